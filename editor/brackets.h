// Which brackets of a line belong together.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace zoka {

/// The bracket at the cursor and its partner, as bytes of `line`. The cursor stands before byte
/// `column`; a bracket in front of it comes first. Nothing if none is there, or it has no partner.
/// Statements end with their line, so pairs do, too; brackets of texts and comments are none. What
/// lies beyond the bytes that are compiled is not looked at.
std::optional<std::pair<size_t, size_t>> bracket_pair(std::string_view line, size_t column);

}  // namespace zoka
