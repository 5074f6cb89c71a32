// Gives the lines of a list new leading numbers. A text operation that knows nothing of the
// language: numbers within statements, such as jump targets, stay as they are.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zoka {

/// Ends a list that is renumbered, and a line of one that is compiled.
constexpr char END_MARK = '\x1A';

/// Numbers where the user gives none.
constexpr int32_t DEFAULT_NEW_LINE = 10;
constexpr int32_t DEFAULT_STEP = 10;

/// One change of a renumbering: `removed` digits at `position` of the old text give way to `number`
/// and, if `blank` is set, a blank.
struct TRenumEdit {
  size_t position;
  size_t removed;
  int64_t number;
  bool blank;
};

/// The changes that Renumber would make, in ascending order of position, one a line at most.
std::vector<TRenumEdit> renumber_edits(std::string_view text, int32_t newLine, int32_t oldLine,
                                       int32_t step);

/// Applies changes that were computed for `text`.
std::string apply_renumber(std::string_view text, const std::vector<TRenumEdit>& edits);

/// True if `text` begins with a digit, which makes it a list with line numbers.
bool is_numbered(std::string_view text);

/// Numbers the lines of `text` newLine, newLine + step, and so on, and returns true; empty lines
/// take no number, and text behind a byte 0x1A is left alone. With `onlyIfUnnumbered` a text that
/// begins with a digit is left alone and the result is false.
///
/// A line whose number is below `oldLine` keeps its digits, but the next number is put directly
/// behind them: the rest of such a line counts as a line without a number. That is meant.
bool Renumber(std::string* text, int32_t newLine, int32_t oldLine, int32_t step,
              bool onlyIfUnnumbered);

}  // namespace zoka
