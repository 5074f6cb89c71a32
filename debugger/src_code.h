// TSrcCode: the source of the running program as the debug view shows it: its lines with their
// marks. Not locked: the model's lock guards it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "debugger/break_points.h"

namespace zoka {

struct TSrcCodeItem {
  std::string text;
  /// The decimal value at the start of the text; 0 if there is none.
  int32_t line = 0;
  bool breaking = false;    // the program stands here
  bool breakPoint = false;  // has a mark
  TBreakRule rule;          // of the mark, if it has one
};

class TSrcCode {
 public:
  /// Splits at newlines; all marks go.
  void Set(std::string_view text);
  size_t Count() const { return mItems.size(); }
  TSrcCodeItem& Item(size_t index) { return mItems[index]; }
  const TSrcCodeItem& Item(size_t index) const { return mItems[index]; }
  /// The first item of a line number.
  std::optional<size_t> Find(int32_t line) const;
  /// The text of a line; empty if there is none.
  std::string Line(int32_t line) const;
  /// Marks the stop; the one before goes.
  void Break(int32_t line);
  void Unbreak();

 private:
  std::vector<TSrcCodeItem> mItems;
  std::unordered_map<int32_t, size_t> mLines;
  std::optional<size_t> mBreaking;
};

}  // namespace zoka
