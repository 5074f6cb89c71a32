// Edits a list by lines of arbitrary bytes. The index of the list must be the same as one that is
// read anew, and every place in a line can be asked for words, targets and completions.
#include <cstdlib>

#include "editor/completion.h"
#include "editor/keyword_help.h"
#include "editor/list_index.h"

namespace zoka {
namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

void check_same(const TListIndex& a, const TListIndex& b) {
  require(a.LineCount() == b.LineCount());
  require(a.NamesWith("") == b.NamesWith(""));
  require(a.LabelsWith("") == b.LabelsWith(""));
  for (size_t line = 0; line < a.LineCount(); ++line) {
    for (const TPlaceName& jump : a.Facts(line).jumps) {
      require(a.IsDefined(jump) == b.IsDefined(jump));
      require(a.DefinitionOf(jump) == b.DefinitionOf(jump));
      require(a.IsDefined(jump) == (a.DefinitionOf(jump) >= 0));
    }
  }
}

void check_line(std::string_view line, const TListIndex& index) {
  // Close together at the start, then wider.
  for (size_t column = 0; column <= line.size(); column += 1 + column / 8) {
    const TCompletion completion = complete_word(line, column, index, column % 2 == 0);
    require(completion.begin <= column);
    keyword_at(line, column);
  }
  for (const TPlaceName& jump : read_line_facts(line).jumps) {
    require(jump.begin < jump.end && jump.end <= line.size());
  }
}

std::string joined(const std::vector<std::string_view>& lines) {
  std::string text;
  for (size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) text += '\n';
    text += lines[i];
  }
  return text;
}

/// Each line of the input replaces one of the list; its first two bytes say which, and how many.
void check_edits(std::string_view bytes) {
  TListIndex index;
  std::vector<std::string_view> lines{""};
  for (std::string_view line : split_lines(bytes)) {
    if (line.size() < 2) continue;
    const size_t first = static_cast<unsigned char>(line[0]) % lines.size();
    const size_t removed = static_cast<unsigned char>(line[1]) % 3 % (lines.size() - first);
    const std::string_view text = line.substr(2);
    index.ReplaceLines(first, removed, {text});
    const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(first);
    lines.insert(lines.erase(begin, begin + static_cast<std::ptrdiff_t>(removed)), text);
    check_line(text, index);
  }
  TListIndex whole;
  whole.SetText(joined(lines));
  check_same(index, whole);
}

}  // namespace
}  // namespace zoka

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  zoka::check_edits({reinterpret_cast<const char*>(data), size});
  return 0;
}
