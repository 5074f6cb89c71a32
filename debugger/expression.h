// Expressions of the debugger's user: conditions of breakpoints, and values to look at. A small
// part of the language, evaluated from the text while the program stands or runs; nothing of the
// program is changed by it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/mid_code.h"

namespace zoka {

/// A number or a text.
struct TExprValue {
  /// ttInt, ttSng, ttDbl or ttStr.
  TTokenKind kind = ttInt;
  double number = 0;
  std::string text;
  bool IsText() const { return kind == ttStr; }
};

/// Knows numbers (also &H and with an exponent), texts in quotes, variables and their elements,
/// parentheses, arithmetic and integer division, comparisons (-1 or 0), NOT AND OR XOR IMP EQV,
/// with the language's order of precedence and its types: a single equals .1 if it was assigned .1.
/// A name without a type suffix is the variable of single precision, else the integer, double, or
/// text of that name. Nothing if the text is no expression, if kinds don't match, if a variable or
/// an element does not exist, or for a division by zero. Takes the variables' lock. Any thread
/// while the program exists.
std::optional<TExprValue> evaluate_expression(std::string_view text, TMidCode& program);

/// Whether the expression's value is other than 0; nothing also for a text.
std::optional<bool> condition_holds(std::string_view text, TMidCode& program);

/// The number that the whole of `text` spells (decimal or &H), blanks around it allowed.
std::optional<double> whole_number(std::string_view text);

}  // namespace zoka
