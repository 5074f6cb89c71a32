// Character classes of plain ASCII, the same everywhere: a byte above 0x7F is in none of them.
#pragma once

#include <string>
#include <string_view>

namespace zoka {

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
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// The text with its letters in upper case.
inline std::string to_upper(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) c = to_upper(c);
  return upper;
}

}  // namespace zoka
