// Line numbers at the starts of lines.
#include "editor/renumber.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

std::string renumbered(std::string text, int32_t newLine, int32_t oldLine, int32_t step) {
  EXPECT_TRUE(Renumber(&text, newLine, oldLine, step, false));
  return text;
}

std::string numbered(std::string text) {
  EXPECT_TRUE(Renumber(&text, 1, 1, 1, true));
  return text;
}

TEST(Renumber, GivesNewNumbers) {
  EXPECT_EQ(renumbered("10 A=1\n20 B=2", 100, 1, 10), "100 A=1\n110 B=2");
  EXPECT_EQ(renumbered("10\n20\n", 100, 1, 10), "100 \n110 \n");
  EXPECT_EQ(renumbered("", 10, 1, 10), "");
}

TEST(Renumber, OnlyABlankSparesTheBlank) {
  EXPECT_EQ(renumbered("10A=1", 100, 1, 10), "100 A=1");
  EXPECT_EQ(renumbered("10\tA", 100, 1, 10), "100 \tA");
  EXPECT_EQ(renumbered("10 A", 100, 1, 10), "100 A");
}

TEST(Renumber, BlankBeforeTheDigitsIsNoNumber) {
  EXPECT_EQ(renumbered(" 10 A", 100, 1, 10), "100 10 A");
}

TEST(Renumber, EmptyLinesTakeNoNumber) {
  EXPECT_EQ(renumbered("\n\n10 A\n\nB", 100, 1, 10), "\n\n100 A\n\n110 B");
}

TEST(Renumber, LowerLinesGetTheNumberBehindTheirDigits) {
  EXPECT_EQ(renumbered("10 PRINT", 1000, 100, 10), "101000 PRINT");
  EXPECT_EQ(renumbered("10 A\n200 B\n30 C", 1000, 100, 10), "101000 A\n1010 B\n301020 C");
  EXPECT_EQ(renumbered("0 A", 100, 1, 10), "0100 A");
  EXPECT_EQ(renumbered("5\n10 X", 1000, 10, 10), "5\n1000 X");
}

TEST(Renumber, JumpTargetsStay) {
  EXPECT_EQ(renumbered("10 GOTO 10\n20 GOSUB 10", 100, 1, 5), "100 GOTO 10\n105 GOSUB 10");
}

TEST(Renumber, UnnumberedListsOnly) {
  EXPECT_EQ(numbered("A=1\nPRINT A\n"), "1 A=1\n2 PRINT A\n");
  EXPECT_EQ(numbered("X\n0 A"), "1 X\n02 A");
  EXPECT_EQ(numbered("X\n70 A"), "1 X\n2 A");
  EXPECT_EQ(numbered(""), "");
  std::string text = "10 A\nB";
  EXPECT_FALSE(Renumber(&text, 1, 1, 1, true));
  EXPECT_EQ(text, "10 A\nB");
}

TEST(Renumber, StopsAtAnEndMark) {
  EXPECT_EQ(renumbered("10 A\n\x1A"
                       "20 B\n",
                       100, 1, 10),
            "100 A\n\x1A"
            "20 B\n");
  EXPECT_EQ(renumbered("10 A\x1A\n20 B", 100, 1, 10), "100 A\x1A\n20 B");
}

TEST(Renumber, GreatNumbers) {
  EXPECT_EQ(renumbered("99999999999999999999 A", 7, INT32_MAX, 1), "7 A");
  EXPECT_EQ(renumbered("A\nB", INT32_MAX, 1, 10), "2147483647 A\n2147483657 B");
  EXPECT_EQ(renumbered("00000000000000000005 A", 100, 6, 1), "00000000000000000005100 A");
}

TEST(Renumber, BytesAreJustBytes) {
  EXPECT_EQ(renumbered(std::string("10 \0\xFF\n20 \xE3", 10), 1, 1, 1),
            std::string("1 \0\xFF\n2 \xE3", 8));
}

}  // namespace
}  // namespace zoka
