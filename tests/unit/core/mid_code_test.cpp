// The program image: its maps, its keyword tables, and what Clear leaves.
#include "core/mid_code.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zoka {
namespace {

using testing::ElementsAre;
using testing::Pair;

std::vector<std::pair<int32_t, int32_t>> lines_of(const TMidCode& code) {
  std::vector<std::pair<int32_t, int32_t>> lines;
  code.EnumerateLines([&](int32_t line, int32_t index) { lines.emplace_back(line, index); });
  return lines;
}

std::vector<std::pair<std::string, int32_t>> labels_of(const TMidCode& code) {
  std::vector<std::pair<std::string, int32_t>> labels;
  code.EnumerateLabels(
      [&](const std::string& label, int32_t index) { labels.emplace_back(label, index); });
  return labels;
}

TEST(MidCode, MissedLineIsZeroAndNotEnumerated) {
  TMidCode code;
  EXPECT_EQ(code.FindLine(999), 0);
  EXPECT_THAT(lines_of(code), ElementsAre());
  code.InsertLine(20, 5);
  code.InsertLine(10, 7);
  code.InsertLine(999, 9);
  EXPECT_EQ(code.FindLine(999), 9);
  EXPECT_THAT(lines_of(code), ElementsAre(Pair(10, 7), Pair(20, 5), Pair(999, 9)));
}

TEST(MidCode, LaterLineWins) {
  TMidCode code;
  code.InsertLine(10, 1);
  code.InsertLine(10, 4);
  EXPECT_EQ(code.FindLine(10), 4);
}

TEST(MidCode, MissedLabelIsZeroAndNotEnumerated) {
  TMidCode code;
  EXPECT_EQ(code.FindLabel("NOWHERE"), 0);
  EXPECT_EQ(code.FindLabel("NOWHERE"), 0);
  code.InsertLabel("B", 2);
  code.InsertLabel("A", 3);
  code.InsertLabel("B", 4);
  EXPECT_THAT(labels_of(code), ElementsAre(Pair("A", 3), Pair("B", 4)));
}

TEST(MidCode, StatementBegins) {
  TMidCode code;
  code.AddStatementBegin(100);
  code.AddStatementBegin(2);
  EXPECT_TRUE(code.IsStatementBegin(100));
  EXPECT_TRUE(code.IsStatementBegin(2));
  EXPECT_FALSE(code.IsStatementBegin(3));
  EXPECT_FALSE(code.IsStatementBegin(101));
  EXPECT_FALSE(code.IsStatementBegin(-1));
}

TEST(MidCode, VariablesStayInPlace) {
  TMidCode code;
  EXPECT_EQ(code.FindVar("A!"), nullptr);
  TVarInfo* first = code.InsertVar("A!", ttSng);
  first->floats[0] = 1.5f;
  for (int i = 0; i < 1000; ++i) code.InsertVar("V" + std::to_string(i) + "%", ttInt);
  EXPECT_EQ(code.FindVar("A!"), first);
  EXPECT_EQ(code.InsertVar("A!", ttSng), first);
  EXPECT_EQ(first->floats[0], 1.5f);
  EXPECT_EQ(first->name, "A!");
  EXPECT_EQ(first->kind, ttSng);
  EXPECT_EQ(first->slotCount, 2);
}

TEST(MidCode, VariablesAreEnumeratedByName) {
  TMidCode code;
  code.InsertVar("B$", ttStr);
  code.InsertVar("A!", ttSng);
  std::vector<std::string> names;
  code.EnumerateVars([&](const std::string& name, TVarInfo&) { names.push_back(name); });
  EXPECT_THAT(names, ElementsAre("A!", "B$"));
}

TEST(MidCode, LaterFunctionWinsAndTheEarlierStays) {
  TMidCode code;
  EXPECT_EQ(code.FindUserFunc("FNA"), nullptr);
  TUserFuncInfo* first = code.InsertUserFunc("FNA");
  first->label = "@L0";
  TUserFuncInfo* second = code.InsertUserFunc("FNA");
  EXPECT_NE(first, second);
  EXPECT_EQ(code.FindUserFunc("FNA"), second);
  EXPECT_EQ(first->label, "@L0");
  EXPECT_EQ(second->name, "FNA");
}

TEST(MidCode, ClearEmptiesAllButTheKeywords) {
  TMidCode code;
  code.mCodes.emplace_back();
  code.mLineMarks.push_back({1, 0});
  code.InsertLine(10, 1);
  code.InsertLabel("A", 1);
  code.AddStatementBegin(1);
  code.InsertUserFunc("FNA");
  code.InsertTokenKind("NAMED", ttIdent);
  // A variable that shows a literal must go before it.
  TTextBlock* literal = code.AddText("TEXT");
  code.InsertVar("A$", ttStr)->texts[0] = TText(literal, 4);
  EXPECT_TRUE(code.Clear());
  EXPECT_TRUE(code.mCodes.empty());
  EXPECT_EQ(code.mCodes.capacity(), 0u);
  EXPECT_TRUE(code.mLineMarks.empty());
  EXPECT_THAT(lines_of(code), ElementsAre());
  EXPECT_THAT(labels_of(code), ElementsAre());
  EXPECT_FALSE(code.IsStatementBegin(1));
  EXPECT_EQ(code.FindUserFunc("FNA"), nullptr);
  EXPECT_EQ(code.FindVar("A$"), nullptr);
  EXPECT_EQ(code.FindTokenKind("NAMED"), ttNone);
  EXPECT_EQ(code.FindTokenKind("PRINT"), ttProc);
  EXPECT_EQ(code.FindFuncProc("PRINT"), TVMCodeCmd::Print);
}

struct TKeyword {
  std::string word;
  TTokenKind kind;
};

std::vector<TKeyword> all_keywords() {
  return {
#define ZOKA_CONTROL_WORD(word, kind) {word, kind},
#define ZOKA_BOTH(word, ...) {word, ttFuncProc},
#define ZOKA_FUNCTION(word, ...) {word, ttFunc},
#define ZOKA_STATEMENT(word, ...) {word, ttProc},
#include "core/keywords.def"
  };
}

TEST(Keywords, CountsAndKinds) {
  const TMidCode code;
  int control = 0;
  int both = 0;
  int functions = 0;
  int statements = 0;
  int operations = 0;
  std::set<std::string> words;
  for (const TKeyword& keyword : all_keywords()) {
    if (keyword.word.empty()) continue;
    EXPECT_TRUE(words.insert(keyword.word).second) << keyword.word;
    EXPECT_EQ(code.FindTokenKind(keyword.word), keyword.kind) << keyword.word;
    (keyword.kind == ttFuncProc ? both
     : keyword.kind == ttFunc   ? functions
     : keyword.kind == ttProc   ? statements
                                : control) += 1;
    if (code.FindFuncProc(keyword.word) != TVMCodeCmd::Sentinel) ++operations;
  }
  EXPECT_EQ(control, 17);
  EXPECT_EQ(both, 7);
  EXPECT_EQ(functions, 69);
  EXPECT_EQ(statements, 96);
  EXPECT_EQ(operations, 172);
}

TEST(Keywords, OddRows) {
  const TMidCode code;
  EXPECT_EQ(code.FindFuncProc("GO TO"), TVMCodeCmd::Goto);
  EXPECT_EQ(code.FindFuncProc("GOTO"), TVMCodeCmd::Goto);
  EXPECT_EQ(static_cast<uint32_t>(code.FindFuncProc("INPUT#")), 0x1073u);
  EXPECT_EQ(static_cast<uint32_t>(code.FindFuncProc("USR")), 0xDDu);
  EXPECT_EQ(static_cast<uint32_t>(code.FindFuncProc("SPC")), 0xD4u);
  EXPECT_EQ(static_cast<uint32_t>(code.FindFuncProc("TAB")), 0xD9u);
  EXPECT_EQ(code.FindTokenKind("COLOR@"), ttProc);
  EXPECT_EQ(code.FindTokenKind("GET@"), ttProc);
  EXPECT_EQ(code.FindTokenKind("PUT@"), ttProc);
  EXPECT_EQ(code.FindTokenKind("DEFINT"), ttProc);
  EXPECT_EQ(code.FindTokenKind("DEF"), ttProc);
  EXPECT_EQ(code.FindTokenKind(""), ttNone);
  EXPECT_EQ(code.FindTokenKind("MON"), ttNone);
  EXPECT_EQ(code.FindFuncProc("THEN"), TVMCodeCmd::Sentinel);
  EXPECT_EQ(code.FindFuncProc("NOWORD"), TVMCodeCmd::Sentinel);
}

}  // namespace
}  // namespace zoka
