// What a line of a list says about the others: its number, the labels that it defines, the lines
// and labels that it jumps to, and the names it uses. Read from the line alone, by the tokeniser's
// own rules for words; nothing is compiled, and a line that is half typed is read as far as it
// goes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zoka {

/// A place that a line names: a label that is defined there, or the target of a jump. Offsets are
/// bytes of the line; those of a label include its asterisk.
struct TPlaceName {
  size_t begin = 0;
  size_t end = 0;
  int32_t line = 0;   // of a target that is no label
  std::string label;  // in upper case, without the asterisk; empty for a line
  bool live = true;   // false for a target that the compiler reads past (ON ERROR, RESUME)

  bool IsLabel() const { return !label.empty(); }
  bool operator==(const TPlaceName&) const = default;
};

/// The facts of one line of the editor. A byte 0x1A inside ends a line of the program, as it does
/// for the compiler, so there may be more than one number.
struct TLineFacts {
  bool beginsWithDigit = false;  // at its very first byte
  int32_t filled = 0;            // lines of the program in it that are not empty
  std::vector<int32_t> numbers;  // of those that have one other than 0
  std::vector<TPlaceName> labels;
  std::vector<TPlaceName> jumps;   // only targets that are written out; computed ones are not here
  std::vector<std::string> names;  // variables and functions of the user, in upper case, once each
};

/// Reads a line without its end. What lies beyond the bytes that are compiled is not looked at.
TLineFacts read_line_facts(std::string_view line);

}  // namespace zoka
