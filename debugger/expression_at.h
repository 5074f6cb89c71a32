// Which expression the user means who points at a place of a source line. It evaluates nothing.
#pragma once

#include <cstddef>
#include <string_view>

namespace zoka {

/// What a variable's name may begin with, and what may stand in it: suffixes of types, too, at any
/// place.
bool is_name_begin(char c);
bool is_name_char(char c);

/// The variable at byte `column` of a line, with its type character, and with its subscripts if it
/// has some: pointing at the name of "A(I+1,2)" means the element, pointing at I means I. Empty
/// where there is no name: in numbers, texts in quotes, comments and everything else.
std::string_view expression_at(std::string_view line, size_t column);

}  // namespace zoka
