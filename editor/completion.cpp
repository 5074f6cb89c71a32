// Chooses the words by what the line says up to the cursor.
#include "editor/completion.h"

#include <algorithm>

#include "common/text/ascii.h"
#include "editor/format_source.h"
#include "editor/highlight.h"

namespace zoka {
namespace {

/// A word of the language that no program may use: it has no generator.
struct TWordUse {
  std::string_view spelling;
  std::string_view generator;
};
constexpr TWordUse STATEMENTS[] = {
#define ZOKA_STATEMENT(spelling, operation, generator) {spelling, #generator},
#include "core/keywords.def"
};

bool is_refused(std::string_view word) {
  return std::any_of(std::begin(STATEMENTS), std::end(STATEMENTS), [&](const TWordUse& use) {
    return use.spelling == word && use.generator == "Missing";
  });
}

/// Takes the place of a label of which only the asterisk is there.
constexpr char ANY_LETTER = 'A';

bool is_word_byte(char c) {
  return word_length(std::string{ANY_LETTER, c}) == 2;
}

size_t word_begin(std::string_view text) {
  size_t begin = text.size();
  while (begin > 0 && is_word_byte(text[begin - 1])) --begin;
  return begin;
}

/// What is typed in small letters goes on in small letters.
void follow_case(std::string_view typed, std::vector<std::string>* words) {
  const auto isUpper = [](char c) { return c >= 'A' && c <= 'Z'; };
  const auto isLower = [](char c) { return c >= 'a' && c <= 'z'; };
  if (std::any_of(typed.begin(), typed.end(), isUpper) ||
      std::none_of(typed.begin(), typed.end(), isLower)) {
    return;
  }
  for (std::string& word : *words) {
    for (char& c : word) c = isUpper(c) ? static_cast<char>(c - 'A' + 'a') : c;
  }
}

std::vector<std::string> words_with(const std::string& prefix, const TListIndex& index) {
  std::vector<std::string> words = index.NamesWith(prefix);
  for (std::string_view word : language_words()) {
    if (word.starts_with(prefix) && !is_refused(word)) words.emplace_back(word);
  }
  std::sort(words.begin(), words.end());
  return words;
}

/// True if the cursor stands where a word of the language or a name may stand.
bool is_plain_place(std::string_view text) {
  std::vector<TTextStyle> styles;
  style_line(text, &styles);
  const TTextStyle style = styles.empty() ? TTextStyle::Comment : styles.back();
  return style == TTextStyle::Plain || style == TTextStyle::Keyword ||
         style == TTextStyle::Function;
}

}  // namespace

TCompletion complete_word(std::string_view line, size_t column, const TListIndex& index,
                          bool asked) {
  TCompletion completion;
  column = std::min(column, line.size());
  if (column > MAX_LINE_BYTES) return completion;
  if (column < line.size() && is_word_byte(line[column])) return completion;
  const std::string_view text = line.substr(0, column);
  completion.begin = word_begin(text);
  const std::string prefix = to_upper(text.substr(completion.begin));
  const bool behindStar = completion.begin > 0 && text[completion.begin - 1] == '*';
  if (behindStar) {
    // The line as it would be with a label there tells whether it is a jump's.
    const TLineFacts facts = read_line_facts(std::string(text) + ANY_LETTER);
    const auto endsHere = [&](const TPlaceName& place) { return place.end == text.size() + 1; };
    if (std::any_of(facts.labels.begin(), facts.labels.end(), endsHere)) return completion;
    if (std::any_of(facts.jumps.begin(), facts.jumps.end(), endsHere)) {
      completion.words = index.LabelsWith(prefix);
    }
  }
  const bool enough = prefix.size() >= (asked ? 1 : COMPLETION_MIN_LETTERS);
  if (completion.words.empty() && enough && word_length(prefix) == prefix.size() &&
      is_plain_place(text)) {
    completion.words = words_with(prefix, index);
  }
  std::erase(completion.words, prefix);
  if (completion.words.size() > COMPLETION_MAX_WORDS) completion.words.resize(COMPLETION_MAX_WORDS);
  follow_case(text.substr(completion.begin), &completion.words);
  return completion;
}

}  // namespace zoka
