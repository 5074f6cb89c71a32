// Words that are offered for what has been typed.
#include "editor/completion.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zoka {
namespace {

using TWords = std::vector<std::string>;

const TListIndex& list() {
  static const auto INDEX = [] {
    TListIndex index;
    index.SetText("10 PRICE=1:PRIZE$=\"A\"\n20 *MAIN:*MENU\n30 PRESS=FNPRIME(1)\n");
    return index;
  }();
  return INDEX;
}

/// The words for a cursor at the "|" of a line.
TCompletion at_cursor(std::string line, bool asked = false) {
  const size_t column = line.find('|');
  line.erase(column, 1);
  return complete_word(line, column, list(), asked);
}
TWords words(const std::string& line, bool asked = false) {
  return at_cursor(line, asked).words;
}

TEST(Completion, WordsOfTheLanguageAndNamesOfTheList) {
  EXPECT_EQ(words("10 PRI|"), (TWords{"PRICE", "PRINT", "PRIZE$"}));
  EXPECT_EQ(words("10 PR|"), (TWords{"PRESET", "PRESS", "PRICE", "PRINT", "PRIZE$"}));
  EXPECT_EQ(words("10 A=LEF|"), TWords{"LEFT$"});
  EXPECT_EQ(words("10 FNP|"), TWords{"FNPRIME"});
  EXPECT_EQ(words("10 GO|"), (TWords{"GO TO", "GOSUB", "GOTO"}));
}

TEST(Completion, TakesThePlaceOfTheWord) {
  EXPECT_EQ(at_cursor("10 A=1:PRI|").begin, 7u);
  EXPECT_EQ(at_cursor("10 PRINT \"あ\":PRI|").begin, 15u);
}

TEST(Completion, AWordThatIsWholeIsNotOffered) {
  EXPECT_TRUE(words("10 PRINT|").empty()) << "PRINT# is no word that a program may use";
  EXPECT_EQ(words("10 INPUT|"), (TWords{"INPUT#", "INPUT$"}));
  EXPECT_TRUE(words("10 XYZ|").empty());
}

TEST(Completion, WaitsForTwoLetters) {
  EXPECT_TRUE(words("10 P|").empty());
  const TWords asked = words("10 P|", true);
  EXPECT_NE(std::find(asked.begin(), asked.end(), "PSET"), asked.end());
  EXPECT_TRUE(words("10 |", true).empty());
}

TEST(Completion, FollowsTheCaseOfWhatIsTyped) {
  EXPECT_EQ(words("10 pri|"), (TWords{"price", "print", "prize$"}));
  EXPECT_EQ(words("10 Pri|"), (TWords{"PRICE", "PRINT", "PRIZE$"}));
}

TEST(Completion, NeverInTextsCommentsDataAndNumbers) {
  for (const char* line : {"10 PRINT \"PRI|", "10 PRINT \"PRI|\"", "10 REM PRI|", "10 'PRI|",
                           "10 DATA PRI|", "10 DATA 1,PRI|", "10 A=&HAB|", "10 A=12|"}) {
    EXPECT_TRUE(words(line).empty()) << line;
    EXPECT_TRUE(words(line, true).empty()) << line;
  }
  EXPECT_EQ(words("10 DATA 1:PRI|").size(), 3u);
  EXPECT_EQ(words("10 PRINT \"A\":PRI|").size(), 3u);
}

TEST(Completion, NotInFrontOfALetter) {
  EXPECT_TRUE(words("10 PRI|NT").empty());
  EXPECT_EQ(words("10 PRI|=1").size(), 3u);
}

TEST(Completion, LabelsBehindTheAsteriskOfAJump) {
  EXPECT_EQ(words("10 GOTO *|"), (TWords{"MAIN", "MENU"}));
  EXPECT_EQ(words("10 GOSUB *M|"), (TWords{"MAIN", "MENU"}));
  EXPECT_EQ(words("10 IF A THEN *ma|"), TWords{"main"});
  EXPECT_EQ(words("10 ON X GOTO 10,*ME|"), TWords{"MENU"});
  EXPECT_TRUE(words("10 GOTO *PRI|").empty()) << "no label is a word of the language";
}

TEST(Completion, NothingWhereALabelIsDefined) {
  EXPECT_TRUE(words("10 *MA|").empty());
  EXPECT_TRUE(words("10 A=1:*PRI|", true).empty());
}

TEST(Completion, AProductIsNoLabel) {
  EXPECT_EQ(words("10 A=B*PRI|").size(), 3u);
}

TEST(Completion, IsBounded) {
  TListIndex index;
  std::string text;
  for (int i = 0; i < 1000; ++i) text += "AB" + std::to_string(i) + "=1\n";
  index.SetText(text);
  EXPECT_EQ(complete_word("AB", 2, index, false).words.size(), COMPLETION_MAX_WORDS);
  EXPECT_TRUE(complete_word("AB", 99, index, false).words.size() > 0);
  EXPECT_TRUE(complete_word(std::string(1'000'000, 'A'), 1'000'000, index, true).words.empty());
}

}  // namespace
}  // namespace zoka
