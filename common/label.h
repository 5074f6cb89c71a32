// Labels of menu items, buttons and controls: the letter by which a key reaches them.
#pragma once

#include <string>
#include <string_view>

namespace zoka {

/// Where an accelerator format puts the key, in its first byte.
constexpr char ACC_KEY_IN_FRONT = '\x01';
constexpr char ACC_KEY_BEHIND = '\x02';

/// `label` with `key` as `format` writes it: the format's first byte tells the place, the rest is a
/// pattern in which "a" stands for the key. Behind means in front of the label's closing "...",
/// "[", full-width or plain colon, if it has one ("Open..." and "O" give "Open(O)..."). An empty
/// format or key gives the label alone.
std::string merge_accelerator_key(std::string_view format, std::string_view key,
                                  std::string_view label);

/// The letter in lower case that a merged label shows: the one between "(" and ")" behind the
/// label, or the first character if "・" follows it; else 0.
char short_cut_from_label(std::string_view label);

}  // namespace zoka
