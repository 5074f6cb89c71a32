// Renumbering in two steps, each linear: find the changes, then build the new text.
#include "editor/renumber.h"

#include <algorithm>
#include <charconv>

#include "common/text/ascii.h"

namespace zoka {

namespace {

size_t skip_digits(std::string_view text, size_t at) {
  while (at < text.size() && is_digit(text[at])) ++at;
  return at;
}

/// The value of digits, which stops at the greatest 32-bit number.
int32_t number_value(std::string_view digits) {
  int32_t value = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return result.ec == std::errc::result_out_of_range ? INT32_MAX : value;
}

}  // namespace

std::vector<TRenumEdit> renumber_edits(std::string_view text, int32_t newLine, int32_t oldLine,
                                       int32_t step) {
  std::vector<TRenumEdit> edits;
  text = text.substr(0, text.find(END_MARK));
  int64_t next = newLine;
  for (size_t at = 0; at < text.size();) {
    if (text[at] == '\n') {
      ++at;
      continue;
    }
    const size_t end = skip_digits(text, at);
    if (end > at && number_value(text.substr(at, end - at)) < oldLine) {
      at = end;  // what follows is taken for a line of its own
      continue;
    }
    edits.push_back({at, end - at, next, end >= text.size() || text[end] != ' '});
    next += step;
    at = std::min(text.find('\n', end), text.size());
  }
  return edits;
}

std::string apply_renumber(std::string_view text, const std::vector<TRenumEdit>& edits) {
  std::string result;
  result.reserve(text.size() + edits.size() * 8);
  size_t done = 0;
  for (const TRenumEdit& edit : edits) {
    result.append(text, done, edit.position - done);
    result += std::to_string(edit.number);
    if (edit.blank) result += ' ';
    done = edit.position + edit.removed;
  }
  return result.append(text, done, text.size() - done);
}

bool is_numbered(std::string_view text) {
  return !text.empty() && is_digit(text[0]);
}

bool Renumber(std::string* text, int32_t newLine, int32_t oldLine, int32_t step,
              bool onlyIfUnnumbered) {
  if (onlyIfUnnumbered && is_numbered(*text)) return false;
  *text = apply_renumber(*text, renumber_edits(*text, newLine, oldLine, step));
  return true;
}

}  // namespace zoka
