// The character sets that program lists come in, and the guesses made from their bytes. Conversion
// itself is the editor's.
#pragma once

#include <cstdint>
#include <string_view>

namespace zoka {

/// Character sets by their traditional numbers. CHARSET_UTF8 means that nothing is converted.
constexpr int32_t CHARSET_UTF8 = 0;
constexpr int32_t CHARSET_SJIS = 11;
constexpr int32_t CHARSET_JIS = 13;

/// Kanji in and kanji out, as the PC-98 writes them and as ISO-2022-JP does.
constexpr std::string_view BAS_KI_CODE = "\x1BK";
constexpr std::string_view BAS_KO_CODE = "\x1BH";
constexpr std::string_view BEOS_KI_CODE = "\x1B$B";
constexpr std::string_view BEOS_KO_CODE = "\x1B(J";

/// What cannot be converted becomes this byte.
constexpr char SUBSTITUTE = '\x1A';

/// CHARSET_JIS if there is an ESC, else CHARSET_SJIS if the text is no UTF-8, else CHARSET_UTF8.
/// Looks at the text up to its first NUL. It steps over whole UTF-8 sequences even when they are
/// faulty, so that an ESC inside one is not seen; that is meant.
int32_t detect_charset(std::string_view text);

/// Line ends of a text up to its first NUL: 0 LF, 1 CR and LF, 2 CR.
int32_t detect_cr_type(std::string_view text);

}  // namespace zoka
