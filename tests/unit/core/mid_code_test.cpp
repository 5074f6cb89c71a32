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

/// Each keyword's number, which is fixed: most are those of tokenised lists.
struct TKeywordNumber {
  const char* word;
  uint32_t number;
};
constexpr TKeywordNumber KEYWORDS[] = {
    {"AUTO", 0x80},      {"BASE", 0x1069},    {"BEEP", 0x83},
    {"BLOAD", 0x82},     {"BSAVE", 0x81},     {"CALL", 0x89},
    {"CHAIN", 0x8B},     {"CIRCLE", 0x8D},    {"CLEAR", 0x88},
    {"CLOSE", 0x86},     {"CLS", 0x8F},       {"CMD", 0xE8},
    {"COLOR", 0x8E},     {"COLOR@", 0x106A},  {"COM", 0x8C},
    {"COMMON", 0x8A},    {"CONSOLE", 0x84},   {"CONT", 0x87},
    {"COPY", 0x85},      {"DATA", 0x91},      {"DEF", 0x98},
    {"DEFINT", 0x94},    {"DEFSNG", 0x95},    {"DEFDBL", 0x96},
    {"DEFSTR", 0x93},    {"DELETE", 0x90},    {"DIM", 0x92},
    {"DRAW", 0xA2},      {"DSKO$", 0x97},     {"EDIT", 0x9C},
    {"END", 0x9A},       {"ERASE", 0x9B},     {"ERROR", 0x9D},
    {"FIELD", 0x9F},     {"FILES", 0xA0},     {"GET", 0xA5},
    {"GET@", 0x1071},    {"GOSUB", 0xA4},     {"GO TO", 0xA3},
    {"GOTO", 0xA3},      {"HELP", 0xA6},      {"INPUT", 0xA7},
    {"INPUT#", 0x1073},  {"KEY", 0xA9},       {"KILL", 0xAA},
    {"KINPUT", 0xE6},    {"KPLOAD", 0xEE},    {"LET", 0xAF},
    {"LFILES", 0xB3},    {"LINE", 0xB0},      {"LIST", 0xE3},
    {"LLIST", 0xAE},     {"LOAD", 0xB1},      {"LOCATE", 0xAC},
    {"LPRINT", 0xAD},    {"LSET", 0xB2},      {"MERGE", 0xB5},
    {"NAME", 0xB8},      {"NEW", 0xB9},       {"ON", 0xBD},
    {"OPEN", 0xBB},      {"OPTION", 0xBE},    {"OUT", 0xBC},
    {"PAINT", 0xC5},     {"PLAY", 0x1080},    {"POKE", 0xC2},
    {"PRESET", 0xC4},    {"PRINT", 0xC0},     {"PRINT#", 0x1085},
    {"PSET", 0xC3},      {"PUT", 0xC1},       {"PUT@", 0x1087},
    {"RANDOMIZE", 0xCE}, {"READ", 0xC7},      {"REM", 0x108A},
    {"RENUM", 0xCD},     {"RESTORE", 0xC9},   {"RESUME", 0xCB},
    {"RETURN", 0xC6},    {"ROLL", 0xCF},      {"RSET", 0xCC},
    {"RUN", 0xC8},       {"SAVE", 0xD3},      {"SCREEN", 0xD0},
    {"SET", 0xE5},       {"SLEEP", 0x109C},   {"STOP", 0xD1},
    {"SWAP", 0xD2},      {"TERM", 0xDB},      {"TROFF", 0xD8},
    {"TRON", 0xD7},      {"VOICE", 0x1092},   {"WAIT", 0xDF},
    {"WIDTH", 0xDE},     {"WRITE", 0xE2},     {"WRITE#", 0x1093},
    {"ABS", 0xFF90},     {"AKCNV$", 0xFFCC},  {"ASC", 0xFF92},
    {"ATN", 0xFF91},     {"ATTR$", 0xFF93},   {"CDBL", 0xFF97},
    {"CHR$", 0xFF9C},    {"CINT", 0xFF95},    {"COS", 0xFF9B},
    {"CSNG", 0xFF96},    {"CSRLIN", 0xFF94},  {"CVI", 0xFF98},
    {"CVS", 0xFF99},     {"CVD", 0xFF9A},     {"DATE$", 0xFF80},
    {"DSKF", 0xFF9D},    {"DSKI$", 0xFFC1},   {"EOF", 0xFFA1},
    {"ERL", 0xFF9E},     {"ERR", 0xFF9F},     {"EXP", 0xFFA0},
    {"FIX", 0xFFA2},     {"FPOS", 0xFFA3},    {"FRE", 0xFFC2},
    {"HEX$", 0xFFA4},    {"INKEY$", 0xFFA8},  {"INP", 0xFFA7},
    {"INPUT$", 0xFFC4},  {"INSTR", 0xFFA5},   {"INT", 0xFFA6},
    {"JIS$", 0xFFC5},    {"KACNV$", 0xFFCD},  {"KEXT$", 0xFFCA},
    {"KINSTR", 0xFFCB},  {"KLEN", 0xFFC8},    {"KMID$", 0xFFC9},
    {"KNJ$", 0xFFC6},    {"KTYPE", 0xFFC7},   {"LEFT$", 0xFFAD},
    {"LEN", 0xFFAC},     {"LOC", 0xFFAB},     {"LOF", 0xFFAE},
    {"LOG", 0xFFAA},     {"LPOS", 0xFFA9},    {"MAP", 0xFFB2},
    {"MKI$", 0xFFAF},    {"MKS$", 0xFFB0},    {"MKD$", 0xFFB1},
    {"OCT$", 0xFFB3},    {"PEEK", 0xFFB5},    {"POS", 0xFFB4},
    {"RIGHT$", 0xFFB6},  {"RND", 0xFFB7},     {"SEARCH", 0xFFB8},
    {"SGN", 0xFFB9},     {"SIN", 0xFFBB},     {"SPACE$", 0xFFBE},
    {"SPC", 0xD4},       {"SQR", 0xFFBA},     {"STATUS", 0xFFCF},
    {"STR$", 0xFFBC},    {"STRING$", 0xFFBD}, {"SYSTEMTIME", 0x109D},
    {"TAB", 0xD9},       {"TAN", 0xFFBF},     {"USR", 0xDD},
    {"VAL", 0xFFC0},     {"VARPTR", 0xFFC3},  {"ZOKAVERSION$", 0x109B},
    {"MID$", 0xFF81},    {"MOUSE", 0x107A},   {"PEN", 0xFF83},
    {"POINT", 0xFF82},   {"TIME$", 0xFF84},   {"VIEW", 0xFF85},
    {"WINDOW", 0xFF86},
};

TEST(Keywords, NumbersOfAll) {
  const TMidCode code;
  for (const auto& [word, number] : KEYWORDS) {
    EXPECT_EQ(static_cast<uint32_t>(code.FindFuncProc(word)), number) << word;
  }
}

}  // namespace
}  // namespace zoka
