// Walks from a bracket to its partner.
#include "editor/brackets.h"

#include <vector>

#include "editor/format_source.h"
#include "editor/highlight.h"

namespace zoka {
namespace {

/// Each two places before or behind its partner.
constexpr std::string_view BRACKETS = "([)]";
constexpr size_t KINDS = BRACKETS.size() / 2;

bool is_bracket(std::string_view line, size_t at) {
  return at < line.size() && BRACKETS.find(line[at]) != std::string_view::npos;
}

/// The partner of the bracket `at`, or the length of the line.
size_t partner_of(std::string_view line, const std::vector<TTextStyle>& styles, size_t at) {
  const size_t kind = BRACKETS.find(line[at]);
  const char partner = BRACKETS[(kind + KINDS) % BRACKETS.size()];
  const bool forward = kind < KINDS;
  int depth = 0;
  // Backwards it ends beyond the line, too: 0 is followed by the greatest number.
  for (size_t i = at; i < line.size(); forward ? ++i : --i) {
    if (styles[i] != TTextStyle::Operator) continue;
    if (line[i] == line[at]) ++depth;
    if (line[i] == partner && --depth == 0) return i;
  }
  return line.size();
}

}  // namespace

std::optional<std::pair<size_t, size_t>> bracket_pair(std::string_view line, size_t column) {
  line = line.substr(0, MAX_LINE_BYTES);
  if (column > line.size()) return std::nullopt;
  const size_t at = column > 0 && is_bracket(line, column - 1) ? column - 1 : column;
  if (!is_bracket(line, at)) return std::nullopt;
  std::vector<TTextStyle> styles;
  style_line(line, &styles);
  if (styles[at] != TTextStyle::Operator) return std::nullopt;
  const size_t partner = partner_of(line, styles, at);
  if (partner == line.size()) return std::nullopt;
  return std::pair(at, partner);
}

}  // namespace zoka
