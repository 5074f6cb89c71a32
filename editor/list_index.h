// TListIndex: what is defined where in the list: line numbers, labels, names. It follows the
// editor's text change by change, so that a key costs the lines it changes and not the list.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "editor/line_facts.h"

namespace zoka {

/// Lines are the editor's, counted from 0. One thread; the editor's.
class TListIndex {
 public:
  TListIndex();

  /// Reads a whole text; lines end at LF, at CR and at the pair of both.
  void SetText(std::string_view text);
  /// Lines [first, first + removed) have become `lines`, which have no line ends.
  void ReplaceLines(size_t first, size_t removed, const std::vector<std::string_view>& lines);

  /// At least 1: an empty text has one empty line.
  size_t LineCount() const { return mLines.size(); }
  /// The facts of a line; those of an empty one beyond the end.
  const TLineFacts& Facts(size_t line) const;

  /// True if a jump there can succeed when the list is run now. A list whose first byte is no digit
  /// is numbered 1, 2, 3 for the run, whatever numbers its lines have.
  bool IsDefined(const TPlaceName& target) const;
  /// The line that a jump leads to, or -1. Of several the last counts, as for the compiler.
  int64_t DefinitionOf(const TPlaceName& target) const;
  /// The target at a byte of a line, the end of its text included, or null.
  const TPlaceName* TargetAt(size_t line, size_t column) const;

  /// Names or labels of the list that begin with `prefix` (upper case), sorted.
  std::vector<std::string> NamesWith(std::string_view prefix) const;
  std::vector<std::string> LabelsWith(std::string_view prefix) const;

 private:
  using TCounts = std::map<std::string, int32_t, std::less<>>;

  bool IsNumbered() const { return Facts(0).beginsWithDigit; }
  void Count(const TLineFacts& facts, int32_t step);
  static void CountOne(TCounts* counts, const std::string& name, int32_t step);
  static std::vector<std::string> KeysWith(const TCounts& counts, std::string_view prefix);

  std::vector<std::unique_ptr<const TLineFacts>> mLines;
  int64_t mFilled = 0;
  std::unordered_map<int32_t, int32_t> mNumbers;  // how many lines have it
  TCounts mLabels;                                // how many definitions
  TCounts mNames;                                 // how many lines use it
};

/// The lines of a text, without their ends.
std::vector<std::string_view> split_lines(std::string_view text);

}  // namespace zoka
