// Numbers from text, as programs and data spell them: decimal only, whatever the host's locale.
#pragma once

#include <cstdint>
#include <string_view>

namespace zoka {

/// Character classes of plain ASCII: a byte above 0x7F is in none of them.
constexpr bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool is_letter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}
constexpr bool is_space(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
constexpr char to_upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

/// The integer at the start of `text`, behind white space and a sign; 0 if there is none. Clamped
/// to 32 bits.
int32_t leading_long(std::string_view text);

/// The decimal number at the start of `text`, behind white space and a sign, with an exponent of
/// "E" or "e" if there is one; 0 if there is none. Too large a number is infinite.
double leading_double(std::string_view text);

}  // namespace zoka
