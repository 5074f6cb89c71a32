// What handlers share in reading their operands: the error of a bad one, ranges, operands that were
// left out, and the place of the cursor that may stand for them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "common/text/number.h"
#include "vm/vmachine.h"

namespace zoka {

/// The exception of an operand that a statement does not take, to be thrown.
inline TException bad_call(TVMachine& m) {
  return m.RuntimeException2(ERR_ILL_FUNC_CALL);
}

/// Raises an illegal function call outside `low` to `high`.
inline void check_range(TVMachine& m, int32_t value, int32_t low, int32_t high) {
  if (value < low || value > high) throw bad_call(m);
}

/// Takes the mark of an operand that was left out; false if there is an operand.
inline bool drop_if_omitted(TVMachine& m) {
  if (m.TopKind() != TStackKind::Abbrev) return false;
  m.Drop();
  return true;
}

/// Pops an operand that may have been left out.
inline std::optional<int32_t> pop_optional(TVMachine& m) {
  if (drop_if_omitted(m)) return std::nullopt;
  return m.PopInt();
}

/// The cursor's column, and its row: it may stand above the screen after a long scroll, in a row
/// below 0.
inline int32_t cursor_column(const TVMachine& m) {
  int32_t cols = m.mRsrc->TxtCols();
  int32_t column = m.mRsrc->CursorPos() % cols;
  return column < 0 ? column + cols : column;
}
inline int32_t cursor_row(const TVMachine& m) {
  return (m.mRsrc->CursorPos() - cursor_column(m)) / m.mRsrc->TxtCols();
}

/// Pops where the next run begins into its request: a number is a line, a text a label, anything
/// else nothing.
inline void pop_start(TVMachine& m, TMessage* message) {
  const TOwnedData start(m.Pop());
  if (start->kind == TStackKind::String) {
    message->AddString("Label", start->View());
  } else if (is_number(start->kind)) {
    message->AddInt32("LineNum", stack_int(*start));
  }
}

/// The octal number at the start of `digits`, like parse_octal; but 8 and 9 are digits, and none of
/// such a number.
inline int32_t parse_strict_octal(TVMachine& m, std::string_view digits) {
  const size_t end = std::min(digits.find_first_not_of("01234567"), digits.size());
  if (end < digits.size() && (digits[end] == '8' || digits[end] == '9')) throw bad_call(m);
  return parse_octal(digits);
}

}  // namespace zoka
