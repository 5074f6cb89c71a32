// Reads the help and finds words in it.
#include "editor/keyword_help.h"

#include <algorithm>
#include <iterator>

#include "common/text/ascii.h"
#include "editor/highlight.h"

namespace zoka {

/// The data file, from the build.
extern const char KEYWORD_HELP[];

namespace {

constexpr size_t ENTRY_LINES = 4;
constexpr std::string_view REMARK = "REM";
constexpr char TERM_MARK = '=';

/// Bytes [begin, end) of a line.
struct TWordPlace {
  size_t begin = 0;
  size_t end = 0;
};

/// The run of one style around a byte.
TWordPlace run_at(const std::vector<TTextStyle>& styles, size_t at) {
  TWordPlace place{at, at};
  while (place.begin > 0 && styles[place.begin - 1] == styles[at]) --place.begin;
  while (place.end < styles.size() && styles[place.end] == styles[at]) ++place.end;
  return place;
}

/// Calls `take` for each line of a text, without its end.
template <typename F>
void for_each_line(std::string_view text, const F& take) {
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    take(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

/// True for the bytes that names in a syntax, and words of the language, are made of.
bool is_name_byte(char c) {
  return is_letter(c) || is_digit(c) || c == '$';
}

/// The longest term that begins at a byte of a syntax, and ends with a word; null if there is none.
const TSyntaxTerm* term_at(std::string_view syntax, size_t at,
                           const std::vector<TSyntaxTerm>& terms) {
  const TSyntaxTerm* longest = nullptr;
  if (at > 0 && is_name_byte(syntax[at - 1])) return nullptr;
  for (const TSyntaxTerm& term : terms) {
    const size_t end = at + term.english.size();
    if (!syntax.substr(at).starts_with(term.english)) continue;
    if (end < syntax.size() && is_name_byte(syntax[end])) continue;
    if (longest == nullptr || term.english.size() > longest->english.size()) longest = &term;
  }
  return longest;
}

bool is_word_style(TTextStyle style) {
  return style == TTextStyle::Keyword || style == TTextStyle::Function;
}

/// The word that has the byte `at`.
std::string word_of_byte(std::string_view line, const std::vector<TTextStyle>& styles, size_t at) {
  if (at >= styles.size()) return "";
  const TWordPlace place = run_at(styles, at);
  if (is_word_style(styles[at])) {
    return to_upper(line.substr(place.begin, place.end - place.begin));
  }
  // A comment's own word is one, too.
  const bool isRemark = styles[at] == TTextStyle::Comment &&
                        to_upper(line.substr(place.begin, REMARK.size())) == REMARK;
  return isRemark && at < place.begin + REMARK.size() ? std::string(REMARK) : "";
}

}  // namespace

std::vector<TKeywordHelp> parse_keyword_help(std::string_view source) {
  std::vector<TKeywordHelp> entries;
  std::vector<std::string> entry;
  const auto finish = [&] {
    if (entry.size() == ENTRY_LINES) entries.push_back({entry[0], entry[1], entry[2], entry[3]});
    entry.clear();
  };
  for_each_line(source, [&](std::string_view line) {
    if (line.empty() || line.starts_with("//") || line[0] == TERM_MARK) return;
    const bool indented = line[0] == '\t';
    if (!indented) finish();
    entry.emplace_back(line.substr(indented ? 1 : 0));
  });
  finish();
  return entries;
}

std::vector<TSyntaxTerm> parse_syntax_terms(std::string_view source) {
  std::vector<TSyntaxTerm> terms;
  for_each_line(source, [&](std::string_view line) {
    const size_t tab = line.find('\t');
    if (!line.starts_with(TERM_MARK) || tab == std::string_view::npos || tab == 1) return;
    terms.push_back({std::string(line.substr(1, tab - 1)), std::string(line.substr(tab + 1))});
  });
  return terms;
}

std::string japanese_syntax(std::string_view syntax, const std::vector<TSyntaxTerm>& terms) {
  std::string japanese;
  for (size_t at = 0; at < syntax.size();) {
    const TSyntaxTerm* const term = term_at(syntax, at, terms);
    if (term == nullptr) {
      japanese += syntax[at++];
      continue;
    }
    japanese += term->japanese;
    at += term->english.size();
  }
  return japanese;
}

std::string TKeywordHelp::Syntax(TLanguage language) const {
  static const auto TERMS = parse_syntax_terms(KEYWORD_HELP);
  return language == TLanguage::Japanese ? japanese_syntax(syntax, TERMS) : syntax;
}

const std::vector<TKeywordHelp>& keyword_help_entries() {
  static const auto ENTRIES = [] {
    std::vector<TKeywordHelp> entries = parse_keyword_help(KEYWORD_HELP);
    std::sort(entries.begin(), entries.end(),
              [](const TKeywordHelp& a, const TKeywordHelp& b) { return a.word < b.word; });
    return entries;
  }();
  return ENTRIES;
}

const TKeywordHelp* find_keyword_help(std::string_view word) {
  const std::string wanted = to_upper(word);
  const auto& entries = keyword_help_entries();
  const auto found = std::lower_bound(
      entries.begin(), entries.end(), wanted,
      [](const TKeywordHelp& entry, const std::string& text) { return entry.word < text; });
  return found != entries.end() && found->word == wanted ? &*found : nullptr;
}

std::vector<std::string_view> syntax_forms(std::string_view syntax) {
  constexpr std::string_view GAP = "   ";
  std::vector<std::string_view> forms;
  for (;;) {
    const size_t end = syntax.find(GAP);
    forms.push_back(syntax.substr(0, end));
    if (end == std::string_view::npos) return forms;
    syntax.remove_prefix(end + GAP.size());
  }
}

std::string_view first_sentence(std::string_view text) {
  constexpr std::string_view FULL_STOP = "。";
  const size_t latin = text.find(". ");
  const size_t japanese = text.find(FULL_STOP);
  const size_t latinEnd = latin == std::string_view::npos ? text.size() : latin + 1;
  const size_t japaneseEnd =
      japanese == std::string_view::npos ? text.size() : japanese + FULL_STOP.size();
  return text.substr(0, std::min(latinEnd, japaneseEnd));
}

std::string keyword_at(std::string_view line, size_t column) {
  std::vector<TTextStyle> styles;
  style_line(line, &styles);
  const std::string word = word_of_byte(line, styles, column);
  return word.empty() && column > 0 ? word_of_byte(line, styles, column - 1) : word;
}

}  // namespace zoka
