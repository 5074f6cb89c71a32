// The help on words: that every word has one in both languages, and which word is meant where.
#include "editor/keyword_help.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "common/text/ascii.h"

namespace zoka {
namespace {

/// Every spelling of the table of keywords, read from the table itself.
const std::set<std::string>& table_words() {
  static const auto WORDS = [] {
    std::set<std::string> words;
    const std::string_view rows[] = {
#define ZOKA_CONTROL_WORD(spelling, kind) spelling,
#define ZOKA_BOTH(spelling, ...) spelling,
#define ZOKA_FUNCTION(spelling, ...) spelling,
#define ZOKA_STATEMENT(spelling, ...) spelling,
#include "core/keywords.def"
    };
    for (std::string_view word : rows) {
      if (!word.empty()) words.emplace(word);
    }
    return words;
  }();
  return WORDS;
}

bool has_japanese(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

TEST(KeywordHelp, EveryKeywordHasAnEntryInBothLanguages) {
  EXPECT_EQ(table_words().size(), 189u) << "17 words of control and operators, 172 others";
  for (const std::string& word : table_words()) {
    const TKeywordHelp* const help = find_keyword_help(word);
    ASSERT_NE(help, nullptr) << word;
    EXPECT_EQ(help->word, word);
    // The syntax shows the word, or what stands in for it.
    EXPECT_FALSE(help->syntax.empty()) << word;
    EXPECT_FALSE(has_japanese(help->syntax)) << word;
    EXPECT_TRUE(help->Text(TLanguage::English).ends_with('.')) << word;
    EXPECT_FALSE(has_japanese(help->Text(TLanguage::English))) << word;
    EXPECT_TRUE(help->Text(TLanguage::Japanese).ends_with("。")) << word;
    EXPECT_TRUE(has_japanese(help->Text(TLanguage::Japanese))) << word;
  }
}

TEST(KeywordHelp, NoEntryIsForAWordThatIsNone) {
  for (const TKeywordHelp& help : keyword_help_entries()) {
    EXPECT_TRUE(table_words().contains(help.word)) << help.word;
  }
  EXPECT_EQ(keyword_help_entries().size(), table_words().size()) << "a word has one entry";
}

TEST(KeywordHelp, NamesInSyntaxesAreTranslated) {
  EXPECT_EQ(find_keyword_help("LEFT$")->Syntax(TLanguage::English), "LEFT$(text$,length)");
  EXPECT_EQ(find_keyword_help("LEFT$")->Syntax(TLanguage::Japanese), "LEFT$(文字列,長さ)");
  EXPECT_EQ(find_keyword_help("WRITE#")->Syntax(TLanguage::Japanese), "WRITE #番号,値...");
  // What stays are coordinates and the like, and the n of PLAY(n).
  const std::set<std::string> kept{"a", "b",  "c",  "d",  "n",  "x",
                                   "y", "x1", "x2", "y1", "y2", "FNname"};
  for (const TKeywordHelp& help : keyword_help_entries()) {
    const std::string syntax = help.Syntax(TLanguage::Japanese);
    std::string word;
    for (const char c : syntax + " ") {
      const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
      if (isLetter || (c >= '0' && c <= '9')) {
        word += c;
        continue;
      }
      const bool isLatin = word == to_upper(word);
      EXPECT_TRUE(isLatin || kept.contains(word)) << syntax << ": " << word;
      word.clear();
    }
  }
}

TEST(KeywordHelp, ReadsNamesOfSyntaxes) {
  const auto terms = parse_syntax_terms("// note\n=a b\tアイ\nA\n\tA x\n=a\tア\n=\tx\n=y\n=#a\tウ");
  ASSERT_EQ(terms.size(), 3u);
  EXPECT_EQ(japanese_syntax("A a,a b,#a,ab,a$,[a]", terms), "A ア,アイ,ウ,ab,a$,[ア]");
  EXPECT_EQ(japanese_syntax("a", {}), "a");
  EXPECT_EQ(japanese_syntax("", terms), "");
}

TEST(KeywordHelp, FindsWordsInAnyCase) {
  ASSERT_NE(find_keyword_help("left$"), nullptr);
  EXPECT_EQ(find_keyword_help("left$")->word, "LEFT$");
  EXPECT_EQ(find_keyword_help("FOO"), nullptr);
  EXPECT_EQ(find_keyword_help(""), nullptr);
}

TEST(KeywordHelp, ReadsEntries) {
  const auto entries = parse_keyword_help(
      "// note\nA\n\tA x\n\tDoes.\n\tします。\n\nB\n\tonly\n\tthree\nC\n\tC\n\tDoes C.\n\tC。");
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(entries[0].word, "A");
  EXPECT_EQ(entries[0].syntax, "A x");
  EXPECT_EQ(entries[0].english, "Does.");
  EXPECT_EQ(entries[0].japanese, "します。");
  EXPECT_EQ(entries[1].japanese, "C。");
  EXPECT_TRUE(parse_keyword_help("").empty());
  EXPECT_TRUE(parse_keyword_help("\tx\n\ty").empty());
}

TEST(SyntaxForms, StandApartByThreeBlanks) {
  using TForms = std::vector<std::string_view>;
  EXPECT_EQ(syntax_forms("RUN [line]   RUN \"file\""), (TForms{"RUN [line]", "RUN \"file\""}));
  EXPECT_EQ(syntax_forms("A  B"), TForms{"A  B"});
  EXPECT_EQ(syntax_forms(""), TForms{""});
}

TEST(FirstSentence, EndsAtAFullStop) {
  EXPECT_EQ(first_sentence("One. Two."), "One.");
  EXPECT_EQ(first_sentence("Version 1.5 only."), "Version 1.5 only.");
  EXPECT_EQ(first_sentence("一つ。二つ。"), "一つ。");
  EXPECT_EQ(first_sentence("none"), "none");
  EXPECT_EQ(first_sentence(""), "");
}

TEST(KeywordAt, TheWordAroundAByte) {
  const std::string_view line = "10 print a;left$(b,1)";
  EXPECT_EQ(keyword_at(line, 0), "");
  EXPECT_EQ(keyword_at(line, 3), "PRINT");
  EXPECT_EQ(keyword_at(line, 7), "PRINT");
  EXPECT_EQ(keyword_at(line, 8), "PRINT") << "the cursor behind a word still means it";
  EXPECT_EQ(keyword_at(line, 9), "");
  EXPECT_EQ(keyword_at(line, 11), "LEFT$");
  EXPECT_EQ(keyword_at(line, 16), "LEFT$");
  EXPECT_EQ(keyword_at(line, 99), "");
}

TEST(KeywordAt, NoWordsInTextsCommentsAndData) {
  EXPECT_EQ(keyword_at("10 A$=\"PRINT\"", 9), "");
  EXPECT_EQ(keyword_at("10 'PRINT", 6), "");
  EXPECT_EQ(keyword_at("10 DATA PRINT", 10), "");
  EXPECT_EQ(keyword_at("10 DATA PRINT", 4), "DATA");
  EXPECT_EQ(keyword_at("10 REM PRINT", 4), "REM");
  EXPECT_EQ(keyword_at("10 REM PRINT", 9), "");
  EXPECT_EQ(keyword_at("10 GO TO 5", 5), "GO TO");
  EXPECT_EQ(keyword_at("", 0), "");
}

}  // namespace
}  // namespace zoka
