// From Microsoft's binary format through IEEE 754 to text.
#include "editor/binary_save_number.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace zoka {

namespace {

constexpr int DECIMALS = 6;

unsigned byte_at(std::string_view bytes, size_t index) {
  return static_cast<unsigned char>(bytes[index]);
}

/// Fixed notation; the longest double has 309 digits before its point.
std::string fixed_text(double value) {
  char text[400];
  const auto end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, DECIMALS);
  return std::string(text, end.ptr);
}

/// Cuts the zeros behind the point, and the point if nothing stays behind it; then the zero before
/// the point. A suffix stays. So 0 with a suffix is left with the suffix alone; that is meant.
std::string tidied(std::string text) {
  if (text.find('.') != std::string::npos) {
    const char last = text.back();
    text.resize(text.find_last_not_of("0!#") + 1);
    if (text.back() == '.') text.pop_back();
    if (last == '!' || last == '#') text.push_back(last);
  }
  if (text.size() > 1 && text[0] == '0') text.erase(0, 1);
  return text;
}

/// True for a whole number that fits 16 bits with sign.
bool is_short(float value) {
  return value >= -32768.0f && value <= 32767.0f && std::trunc(value) == value;
}

}  // namespace

std::string bin_save_single(std::string_view bytes) {
  const unsigned exponent = byte_at(bytes, 3);
  if (exponent == 0) return "0";  // zero in that format, whatever the other bytes are
  const unsigned high = static_cast<unsigned>((static_cast<int>(exponent) - 2) >> 1) & 0xFF;
  const unsigned middle = (exponent << 7 & 0xFF) | byte_at(bytes, 2);
  const uint32_t bits = high << 24 | middle << 16 | byte_at(bytes, 1) << 8 | byte_at(bytes, 0);
  const float value = std::bit_cast<float>(bits);
  std::string text = fixed_text(static_cast<double>(value));
  if (is_short(value)) text.push_back('!');
  return tidied(std::move(text));
}

std::string bin_save_double(std::string_view bytes) {
  const unsigned exponent = byte_at(bytes, 7);
  if (exponent == 0) return "0";
  uint64_t bits = (exponent + 0x37E) >> 4 & 0xFF;
  bits = bits << 8 | ((exponent + 0x7E) << 4 & 0xFF) | byte_at(bytes, 6) >> 3;
  for (size_t i = 6; i > 0; --i)
    bits = bits << 8 | (byte_at(bytes, i) << 5 & 0xFF) | byte_at(bytes, i - 1) >> 3;
  return tidied(fixed_text(std::bit_cast<double>(bits)) + "#");
}

}  // namespace zoka
