// Walks over the line starts of a list.
#include "editor/find_line.h"

#include <string>

#include "common/text/ascii.h"
#include "common/text/number.h"

namespace zoka {
namespace {

/// True if `line` has a number and it is that.
bool has_number(std::string_view line, int32_t lineNum) {
  const size_t start = line.find_first_not_of(" \t");
  if (start == line.npos || !is_digit(line[start])) return false;
  return parse_long(line.substr(start)) == lineNum;
}

}  // namespace

int64_t OffsetFromLineNum(std::string_view text, int32_t lineNum) {
  const std::string digits = std::to_string(lineNum);
  for (size_t at = 0; at != text.npos;) {
    if (text.substr(at).starts_with(digits)) return static_cast<int64_t>(at);
    const size_t end = text.find('\n', at);
    at = end == text.npos ? end : end + 1;
  }
  return -1;
}

int32_t line_with_number(std::string_view text, int32_t lineNum) {
  int32_t line = 0;
  for (size_t at = 0; at != text.npos; ++line) {
    const size_t end = text.find('\n', at);
    if (has_number(text.substr(at, end == text.npos ? end : end - at), lineNum)) return line;
    at = end == text.npos ? end : end + 1;
  }
  return -1;
}

}  // namespace zoka
