// Conversions of AKCNV$, KACNV$, JIS$ and KNJ$ between single-byte and double-byte characters and
// JIS codes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zoka {

/// A text in double-byte characters as far as there are any; other characters stay.
std::string AkcnvDl(std::string_view text);

/// A text of double-byte characters in single-byte ones; none if it holds a character that has no
/// such form, or an ASCII one.
std::optional<std::string> KacnvDl(std::string_view text);

/// The JIS code of the character that the text begins with, in hexadecimal; the first two bytes of
/// a text that begins with no kanji. None for a text of less than two bytes or a character without
/// a code.
std::optional<std::string> jis_dl(std::string_view text);

/// The character of the JIS code that the text's first four hexadecimal digits make; empty for the
/// old machines' shift sequences. None if they make no code.
std::optional<std::string> knj_dl(std::string_view text);

/// The character of a JIS code as UTF-8; empty if there is none.
std::string JisCodeToUtf8Char(uint32_t code);

}  // namespace zoka
