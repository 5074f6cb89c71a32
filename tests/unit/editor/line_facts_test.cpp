// What lines say of numbers, labels, jumps and names.
#include "editor/line_facts.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

/// The jumps of a line: numbers, labels with an asterisk, "?" behind what the compiler skips.
std::string jumps(std::string_view line) {
  std::string text;
  for (const TPlaceName& jump : read_line_facts(line).jumps) {
    if (!text.empty()) text += ' ';
    text += jump.IsLabel() ? "*" + jump.label : std::to_string(jump.line);
    if (!jump.live) text += '?';
  }
  return text;
}

std::string labels(std::string_view line) {
  std::string text;
  for (const TPlaceName& label : read_line_facts(line).labels) text += "*" + label.label;
  return text;
}

std::vector<std::string> names(std::string_view line) {
  return read_line_facts(line).names;
}

TEST(LineFacts, EveryStatementThatJumps) {
  EXPECT_EQ(jumps("10 GOTO 100"), "100");
  EXPECT_EQ(jumps("10 GO TO 100"), "100");
  EXPECT_EQ(jumps("10 GOSUB 100:GOSUB *SUB"), "100 *SUB");
  EXPECT_EQ(jumps("10 IF A THEN 100 ELSE 200"), "100 200");
  EXPECT_EQ(jumps("10 IF A THEN *X ELSE *Y"), "*X *Y");
  EXPECT_EQ(jumps("10 IF A GOTO 100 ELSE GOTO 200"), "100 200");
  EXPECT_EQ(jumps("10 IF A THEN B=1:GOTO 30 ELSE 40"), "30 40");
  EXPECT_EQ(jumps("10 RESTORE 50:RESTORE *D:RESTORE"), "50 *D");
  EXPECT_EQ(jumps("10 RETURN 50:RETURN *D:RETURN"), "50 *D");
  EXPECT_EQ(jumps("10 RUN 50:RUN *D:RUN:RUN \"A.BAS\",R"), "50 *D");
  EXPECT_EQ(jumps("10 goto 100:gosub *loop"), "100 *LOOP");
}

TEST(LineFacts, ListsOfTargets) {
  EXPECT_EQ(jumps("10 ON X GOTO 10,,30,*L"), "10 30 *L");
  EXPECT_EQ(jumps("10 ON X+1 GOSUB 10 , 20"), "10 20");
  EXPECT_EQ(jumps("10 ON KEY GOSUB 100,200,*K"), "100 200 *K");
  EXPECT_EQ(jumps("10 ON TIME$=\"12:00:00\" GOSUB 300"), "300");
  EXPECT_EQ(jumps("10 ON STOP GOSUB *S:GOTO 5"), "*S 5");
  EXPECT_EQ(jumps("10 IF A THEN ON B GOTO 1,2"), "1 2");
  // Only ON has a list.
  EXPECT_EQ(jumps("10 GOTO 1,2"), "1");
}

TEST(LineFacts, ComputedTargetsAreNone) {
  EXPECT_EQ(jumps("10 GOTO A*10"), "");
  EXPECT_EQ(jumps("10 GOTO 100+A"), "");
  EXPECT_EQ(jumps("10 GOTO (100)"), "");
  EXPECT_EQ(jumps("10 GOTO &H10"), "");
  EXPECT_EQ(jumps("10 ON X GOTO A(1,2,3),50"), "50");
  EXPECT_EQ(jumps("10 GOTO 1.5"), "");
  EXPECT_EQ(jumps("10 GOTO 100%"), "100");
}

TEST(LineFacts, WhatTheCompilerReadsPastIsMarkedSo) {
  EXPECT_EQ(jumps("10 ON ERROR GOTO 1000"), "1000?");
  EXPECT_EQ(jumps("10 ON ERROR GOTO 0:GOTO 20"), "0? 20");
  EXPECT_EQ(jumps("10 ON PEN GOSUB *P:ON COM GOSUB 1,2"), "*P? 1? 2?");
  EXPECT_EQ(jumps("10 RESUME 20:RESUME NEXT"), "20?");
}

TEST(LineFacts, NoJumpsInTextsCommentsAndData) {
  EXPECT_EQ(jumps("10 PRINT \"GOTO 100\""), "");
  EXPECT_EQ(jumps("10 REM GOTO 100"), "");
  EXPECT_EQ(jumps("10 A=1 'GOTO 100"), "");
  EXPECT_EQ(jumps("10 DATA GOTO 100,\":GOTO 5\":GOTO 20"), "20");
  EXPECT_EQ(jumps("10 PRINT \"open:GOTO 100"), "");
  EXPECT_EQ(jumps("10 A=100:B=GOTOX"), "");
  EXPECT_EQ(jumps("10 LIST 100:CHAIN \"A\",100"), "");
}

TEST(LineFacts, LabelsAreDefinedWhereAStatementBegins) {
  EXPECT_EQ(labels("10 *TOP:A=B*C"), "*TOP");
  EXPECT_EQ(labels("*A *B PRINT 1:*C"), "*A*B*C");
  EXPECT_EQ(labels("10 * low"), "*LOW");
  EXPECT_EQ(labels("10 PRINT A*B"), "");
  EXPECT_EQ(labels("10 GOTO *X"), "");
  EXPECT_EQ(labels("10 IF A THEN *X"), "");
  EXPECT_EQ(labels("10 IF A THEN B=1:*X"), "*X");
  EXPECT_EQ(labels("10 *"), "");
}

TEST(LineFacts, PlacesAreBytesOfTheLine) {
  const TLineFacts facts = read_line_facts("10 *あ:*AB:GOTO  120 :GOSUB *L");
  ASSERT_EQ(facts.labels.size(), 1u) << "a label has no kanji";
  EXPECT_EQ(facts.labels[0].begin, 8u);
  EXPECT_EQ(facts.labels[0].end, 11u);
  ASSERT_EQ(facts.jumps.size(), 2u);
  EXPECT_EQ(facts.jumps[0].begin, 18u);
  EXPECT_EQ(facts.jumps[0].end, 21u);
  EXPECT_EQ(facts.jumps[1].begin, 29u);
  EXPECT_EQ(facts.jumps[1].end, 31u);
}

TEST(LineFacts, Numbers) {
  EXPECT_EQ(read_line_facts("10 A").numbers, std::vector<int32_t>{10});
  EXPECT_EQ(read_line_facts("  0020 A").numbers, std::vector<int32_t>{20});
  EXPECT_TRUE(read_line_facts("0 A").numbers.empty());
  EXPECT_TRUE(read_line_facts("A 10").numbers.empty());
  EXPECT_EQ(read_line_facts("99999999999 A").numbers, std::vector<int32_t>{INT32_MAX});
  EXPECT_TRUE(read_line_facts("10 A").beginsWithDigit);
  EXPECT_FALSE(read_line_facts(" 10 A").beginsWithDigit);
  EXPECT_EQ(read_line_facts("").filled, 0);
  EXPECT_EQ(read_line_facts(" ").filled, 1);
}

TEST(LineFacts, AnEndMarkEndsALineOfTheProgram) {
  const TLineFacts facts = read_line_facts(
      "10 A\x1A\x1A"
      "20 GOTO 10\x1A");
  EXPECT_EQ(facts.numbers, (std::vector<int32_t>{10, 20}));
  EXPECT_EQ(facts.filled, 2);
  ASSERT_EQ(facts.jumps.size(), 1u);
  EXPECT_EQ(facts.jumps[0].begin, 14u);
  EXPECT_EQ(read_line_facts("\x1A").filled, 0);
}

TEST(LineFacts, NamesOnceEach) {
  EXPECT_EQ(names("10 ab$=Cd%+AB$:FOR I=1 TO N"),
            (std::vector<std::string>{"AB$", "CD%", "I", "N"}));
  EXPECT_EQ(names("10 DEF FNA(X)=X:A=FN B(1)"),
            (std::vector<std::string>{"FNA", "X", "A", "FN B"}));
  EXPECT_EQ(names("10 PRINT ABS(1):GOTO *LABEL"), std::vector<std::string>{});
}

TEST(LineFacts, WhatIsNotCompiledIsNotRead) {
  const std::string line = "10 " + std::string(490, ' ') + "GOTO 100";
  EXPECT_EQ(jumps(line.substr(0, 500)), "10");
  EXPECT_EQ(jumps(line), "10") << "cut at 500 bytes, as for the compiler";
}

TEST(LineFacts, AnyBytesAreRead) {
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string line{
          'G', 'O', 'T', 'O', static_cast<char>(first), static_cast<char>(second)};
      for (const TPlaceName& jump : read_line_facts(line).jumps) {
        EXPECT_LE(jump.begin, jump.end);
        EXPECT_LE(jump.end, line.size());
      }
    }
  }
}

}  // namespace
}  // namespace zoka
