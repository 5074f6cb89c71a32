// The help on the words of the language: one data file, docs/help/keywords.txt, with the texts of
// all languages, compiled in. How it is shown is the window's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/catalogue.h"

namespace zoka {

/// The help on one word.
struct TKeywordHelp {
  std::string word;    // as in the table of keywords
  std::string syntax;  // with the names of its parts in English
  std::string english;
  std::string japanese;

  const std::string& Text(TLanguage language) const {
    return language == TLanguage::Japanese ? japanese : english;
  }
  /// The syntax with the names of its parts in that language.
  std::string Syntax(TLanguage language) const;
};

/// Reads the data: a word on a line of its own, then indented by a tab the syntax, the English and
/// the Japanese text. Empty lines and those that begin with "//" or "=" are skipped; an entry that
/// is not whole is left out.
std::vector<TKeywordHelp> parse_keyword_help(std::string_view source);

/// A name in the syntaxes, and how it reads in Japanese.
struct TSyntaxTerm {
  std::string english;
  std::string japanese;
};

/// Reads the names of the same data: lines of "=", the English name, a tab, the Japanese one.
std::vector<TSyntaxTerm> parse_syntax_terms(std::string_view source);

/// `syntax` with its names in Japanese: the longest that fits, and never a part of a word.
std::string japanese_syntax(std::string_view syntax, const std::vector<TSyntaxTerm>& terms);

/// The entries of all words, sorted by word. Read once a process.
const std::vector<TKeywordHelp>& keyword_help_entries();

/// The help on a word, whatever its case; null for a word that is none of the language's.
const TKeywordHelp* find_keyword_help(std::string_view word);

/// The forms of a syntax: three blanks stand between them.
std::vector<std::string_view> syntax_forms(std::string_view syntax);

/// The first sentence of a text.
std::string_view first_sentence(std::string_view text);

/// The word of the language at a byte of a line, the end of the word included: in upper case, empty
/// if there is none. Words in strings, comments and DATA are none.
std::string keyword_at(std::string_view line, size_t column);

}  // namespace zoka
