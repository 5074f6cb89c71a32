// The old machines' text as UTF-8: Shift-JIS, and JIS with the PC-98's own escape sequences and
// characters. Framing is done here; what a pair of bytes means, the table of common/text knows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zoka {

/// Exchanges the PC-98's escape sequences for those of ISO-2022-JP and, with `cv98` on, characters
/// that only the PC-98 has for the nearest that others have. Returns the number of characters that
/// were replaced.
int64_t ConvertJisToJis(std::string* text, bool cv98);

/// Converts a text of CHARSET_SJIS or CHARSET_JIS. What has no counterpart becomes 0x1A. Returns
/// false if the text ends within a character or an escape sequence; `utf8` is then of no use.
bool convert_to_utf8(int32_t charset, std::string_view source, std::string* utf8);

}  // namespace zoka
