// Bytes written as hexadecimal digits, for test data.
#pragma once

#include <string>
#include <string_view>

namespace zoka {

/// The bytes of pairs of digits; blanks and bars between them are skipped.
inline std::string from_hex(std::string_view digits) {
  std::string bytes;
  int high = -1;
  for (const char c : digits) {
    if (c == ' ' || c == '|') continue;
    const int value = c <= '9' ? c - '0' : (c & 0x5F) - 'A' + 10;
    if (high >= 0) bytes.push_back(static_cast<char>(high * 16 + value));
    high = high >= 0 ? -1 : value;
  }
  return bytes;
}

}  // namespace zoka
