// What may be typed next: the words of the language, names and labels of the list that go on with
// what stands in front of the cursor. How they are shown is the window's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editor/list_index.h"

namespace zoka {

/// From so many letters on a list is offered without being asked for.
constexpr size_t COMPLETION_MIN_LETTERS = 2;
/// A list that is longer helps nobody.
constexpr size_t COMPLETION_MAX_WORDS = 200;

/// Words that may take the place of the bytes [begin, column) of a line.
struct TCompletion {
  size_t begin = 0;
  std::vector<std::string> words;  // sorted; never the word that is there already
};

/// The words for a cursor at `column` of `line`. None inside of strings, comments, DATA and
/// numbers, in front of a letter, and where a label is defined. Behind the asterisk of a jump these
/// are the labels. `asked`: the user wants them, however few letters there are.
TCompletion complete_word(std::string_view line, size_t column, const TListIndex& index,
                          bool asked);

}  // namespace zoka
