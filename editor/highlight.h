// The colours of a list's line, as classes of its bytes: a small reader with the tokeniser's own
// rules for words, numbers and strings. It compiles nothing and knows no faults.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace zoka {

/// What a byte of a line belongs to. The values are the editor's style numbers.
enum class TTextStyle : uint8_t {
  Plain,
  LineNumber,
  Keyword,
  Function,
  Number,
  String,
  Comment,
  Label,
  Operator,
};
constexpr int TEXT_STYLE_COUNT = static_cast<int>(TTextStyle::Operator) + 1;

/// One style a byte of `line`, which has no line feed, into `*styles`.
void style_line(std::string_view line, std::vector<TTextStyle>* styles);

/// What a word of the language is: Keyword, Function, or Plain for a name. Case does not count.
TTextStyle style_of_word(std::string_view word);

/// All words of the language, in upper case, sorted.
const std::vector<std::string_view>& language_words();

/// Length of DATA's items, from behind the word to the colon outside of quotes, or to the end.
size_t data_length(std::string_view text);

/// Length of the word at the start of `text`, 0 if none begins there. Type characters, "." and "@"
/// belong to it.
size_t word_length(std::string_view text);

}  // namespace zoka
