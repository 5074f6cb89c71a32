// Numbers from text. The C library's readers would follow the locale and take "nan" and "0x".
#include "core/number_text.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace zoka {
namespace {

/// One beyond the greatest 32-bit integer; negated, the least.
constexpr int64_t LONG_LIMIT = int64_t{1} << 31;

/// Takes white space and a sign off; true if the sign is a minus.
bool take_sign(std::string_view* text) {
  const auto begin = std::find_if_not(text->begin(), text->end(), is_space);
  text->remove_prefix(static_cast<size_t>(begin - text->begin()));
  if (text->empty() || (text->front() != '-' && text->front() != '+')) return false;
  const bool negative = text->front() == '-';
  text->remove_prefix(1);
  return negative;
}

bool starts_number(std::string_view text) {
  return !text.empty() &&
         (is_digit(text[0]) || (text[0] == '.' && text.size() > 1 && is_digit(text[1])));
}

/// The order of magnitude of a number beyond a double's range: true for too large, false for too
/// small. `digits` is the number's own text.
bool is_overflow(std::string_view digits) {
  const size_t mark = digits.find_first_of("eE");
  if (mark != std::string_view::npos) {
    int32_t exponent = leading_long(digits.substr(mark + 1));
    if (exponent != 0) return exponent > 0;
  }
  return digits.substr(0, digits.find('.')).find_first_of("123456789") != std::string_view::npos;
}

}  // namespace

int32_t leading_long(std::string_view text) {
  const bool negative = take_sign(&text);
  int64_t value = 0;
  for (size_t i = 0; i < text.size() && is_digit(text[i]); ++i) {
    value = std::min(value * 10 + (text[i] - '0'), LONG_LIMIT);
  }
  return static_cast<int32_t>(negative ? -value : std::min(value, LONG_LIMIT - 1));
}

double leading_double(std::string_view text) {
  const bool negative = take_sign(&text);
  if (!starts_number(text)) return 0;
  double value = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, std::chars_format::general);
  if (result.ec == std::errc::result_out_of_range) {
    const std::string_view digits(text.data(), static_cast<size_t>(result.ptr - text.data()));
    value = is_overflow(digits) ? std::numeric_limits<double>::infinity() : 0;
  }
  return negative ? -value : value;
}

}  // namespace zoka
