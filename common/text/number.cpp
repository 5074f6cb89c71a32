// Numbers without the C library, whose functions depend on the locale and take more forms.
#include "common/text/number.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

#include "common/text/ascii.h"

namespace zoka {
namespace {

/// Takes white space and a sign off the front; true for a minus.
bool take_sign(std::string_view* text) {
  while (!text->empty() && is_space(text->front())) text->remove_prefix(1);
  if (text->empty() || (text->front() != '-' && text->front() != '+')) return false;
  const bool negative = text->front() == '-';
  text->remove_prefix(1);
  return negative;
}

/// Whether a number without a sign stands at the front.
bool begins_with_number(std::string_view text) {
  if (text.starts_with('.')) text.remove_prefix(1);
  return !text.empty() && is_digit(text.front());
}

/// Whether a number that fits no double is too great rather than too small.
bool is_huge(std::string_view number) {
  const size_t mark = std::min(number.find_first_of("Ee"), number.size());
  const std::string_view mantissa = number.substr(0, mark);
  const size_t point = std::min(mantissa.find('.'), mantissa.size());
  const size_t first = std::min(mantissa.find_first_of("123456789"), mantissa.size());
  const auto places = static_cast<int64_t>(point) - static_cast<int64_t>(first);
  const int64_t exponent = parse_long(number.substr(std::min(mark + 1, number.size())));
  return places + exponent > 0;
}

int32_t parse_digits(std::string_view text, uint32_t base) {
  uint32_t value = 0;
  for (char c : text) {
    const char upper = to_upper(c);
    uint32_t digit = base;
    if (is_digit(c)) digit = static_cast<uint32_t>(c - '0');
    if (upper >= 'A' && upper <= 'F') digit = static_cast<uint32_t>(upper - 'A') + 10;
    if (digit >= base) break;
    value = value * base + digit;
  }
  return static_cast<int32_t>(value);
}

}  // namespace

int32_t parse_long(std::string_view text) {
  const bool negative = take_sign(&text);
  int64_t value = 0;
  for (size_t i = 0; i < text.size() && is_digit(text[i]); ++i) {
    value = std::min<int64_t>(value * 10 + (text[i] - '0'), int64_t{INT32_MAX} + 1);
  }
  if (negative) return static_cast<int32_t>(-value);
  return static_cast<int32_t>(std::min<int64_t>(value, INT32_MAX));
}

double parse_double(std::string_view text) {
  const bool negative = take_sign(&text);
  // Not even a sign counts without a digit; and the words "inf" and "nan" are none.
  if (!begins_with_number(text)) return 0;
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    const std::string_view number(text.data(), static_cast<size_t>(result.ptr - text.data()));
    value = is_huge(number) ? std::numeric_limits<double>::infinity() : 0;
  }
  return negative ? -value : value;
}

int32_t parse_hex(std::string_view text) {
  return parse_digits(text, 16);
}

int32_t parse_octal(std::string_view text) {
  return parse_digits(text, 8);
}

std::string digits_in_base(uint32_t value, int base) {
  constexpr size_t MOST_DIGITS = 32;
  char digits[MOST_DIGITS];
  char* end = std::to_chars(digits, digits + MOST_DIGITS, value, base).ptr;
  return to_upper({digits, end});
}

}  // namespace zoka
