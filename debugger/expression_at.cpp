// Finding names in source lines.
#include "debugger/expression_at.h"

#include "common/text/ascii.h"

namespace zoka {
namespace {

constexpr std::string_view NAME_SIGNS = "_.@%!#$";

/// Steps over a text in quotes that begins at `at`; the line's end ends it, too.
size_t behind_quotes(std::string_view line, size_t at) {
  const size_t end = line.find('"', at + 1);
  return end == line.npos ? line.size() : end + 1;
}

/// The end of the subscripts that begin with the parenthesis at `open`, or `open` if it is never
/// closed.
size_t behind_subscripts(std::string_view line, size_t open) {
  int depth = 0;
  for (size_t at = open; at < line.size();) {
    if (line[at] == '"') {
      at = behind_quotes(line, at);
      continue;
    }
    if (line[at] == '(') ++depth;
    if (line[at] == ')' && --depth == 0) return at + 1;
    ++at;
  }
  return open;
}

size_t behind_name(std::string_view line, size_t at) {
  while (at < line.size() && is_name_char(line[at])) ++at;
  return at;
}

bool is_remark(std::string_view line, size_t at, size_t end) {
  const std::string_view word = line.substr(at, end - at);
  return word.size() == 3 && to_upper(word[0]) == 'R' && to_upper(word[1]) == 'E' &&
         to_upper(word[2]) == 'M';
}

}  // namespace

bool is_name_begin(char c) {
  return is_letter(c) || c == '_';
}

bool is_name_char(char c) {
  return is_letter(c) || is_digit(c) || NAME_SIGNS.find(c) != NAME_SIGNS.npos;
}

std::string_view expression_at(std::string_view line, size_t column) {
  for (size_t at = 0; at < line.size() && at <= column;) {
    const char c = line[at];
    if (c == '\'') return {};
    if (c == '"') {
      at = behind_quotes(line, at);
    } else if (is_name_begin(c)) {
      const size_t end = behind_name(line, at);
      if (is_remark(line, at, end)) return {};
      if (column < end) {
        const bool isArray = end < line.size() && line[end] == '(';
        return line.substr(at, (isArray ? behind_subscripts(line, end) : end) - at);
      }
      at = end;
    } else if (is_digit(c) || c == '&') {
      // The letters of &HFF and 1E5 are no names.
      at = behind_name(line, at + 1);
    } else {
      ++at;
    }
  }
  return {};
}

}  // namespace zoka
