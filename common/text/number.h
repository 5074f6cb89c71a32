// Numbers in texts, read and written the same everywhere, whatever the host's locale: the decimal
// forms of the language. Nothing here knows the tokeniser's or PRINT's own rules.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zoka {

/// A decimal integer at the start of `text`, behind white space and a sign; clamped to 32 bits, 0
/// if there is none. What follows it is ignored.
int32_t parse_long(std::string_view text);

/// A decimal number at the start of `text`, behind white space and a sign: digits, a point, digits,
/// an exponent with E or e; 0 if there is none. Too great ones give infinity, too small ones 0.
/// What follows is ignored; words for infinity and the like are no numbers.
double parse_double(std::string_view text);

/// Hexadecimal or octal digits at the start of `text`, up to the first other character; the low 32
/// bits of their number. 0 if there are none.
int32_t parse_hex(std::string_view text);
int32_t parse_octal(std::string_view text);

/// The digits of a number in that base, with capitals.
std::string digits_in_base(uint32_t value, int base);

}  // namespace zoka
