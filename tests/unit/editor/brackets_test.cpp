// Pairs of brackets at the cursor of a line.
#include "editor/brackets.h"

#include <gtest/gtest.h>

#include <string>

#include "editor/format_source.h"

namespace zoka {
namespace {

/// "at-partner" of each column of the line, "." for none; a blank between two.
std::string pairs(std::string_view line) {
  std::string all;
  for (size_t column = 0; column <= line.size(); ++column) {
    const auto pair = bracket_pair(line, column);
    if (column > 0) all += " ";
    all += pair ? std::to_string(pair->first) + "-" + std::to_string(pair->second) : ".";
  }
  return all;
}

TEST(BracketPair, IsAtTheCursorOrInFrontOfIt) {
  EXPECT_EQ(pairs("A(1)B"), ". 1-3 1-3 3-1 3-1 .");
  EXPECT_EQ(pairs("[1]"), "0-2 0-2 2-0 2-0");
}

TEST(BracketPair, OneInFrontComesFirst) {
  EXPECT_EQ(bracket_pair("(A)(B)", 3), std::pair(size_t{2}, size_t{0}));
  EXPECT_EQ(bracket_pair("((1+2)*3)", 1), std::pair(size_t{0}, size_t{8}));
}

TEST(BracketPair, TheInnerOnesAreCounted) {
  EXPECT_EQ(bracket_pair("((1)+(2))", 0), std::pair(size_t{0}, size_t{8}));
  EXPECT_EQ(bracket_pair("((1)+(2))", 9), std::pair(size_t{8}, size_t{0}));
  EXPECT_EQ(bracket_pair("A(B[1],2)", 2), std::pair(size_t{1}, size_t{8}));
}

TEST(BracketPair, HalfAPairIsNone) {
  EXPECT_EQ(pairs("(A"), ". . .");
  EXPECT_EQ(pairs("A)"), ". . .");
  EXPECT_EQ(pairs("([1)"), "0-3 0-3 . 3-0 3-0");
}

TEST(BracketPair, RelationsAreNoBrackets) {
  EXPECT_EQ(pairs("A<B>C"), ". . . . . .");
}

TEST(BracketPair, TextsAndCommentsHaveNone) {
  EXPECT_EQ(pairs("\"(\"()"), ". . . 3-4 3-4 4-3");
  EXPECT_EQ(bracket_pair("LEN(\")\")", 4), std::pair(size_t{3}, size_t{7}));
  EXPECT_EQ(pairs("'()"), ". . . .");
}

TEST(BracketPair, OnlyWhatIsCompiledIsLookedAt) {
  const std::string blanks(MAX_LINE_BYTES - 2, ' ');
  EXPECT_EQ(bracket_pair("(" + blanks + ")", 0), std::pair(size_t{0}, MAX_LINE_BYTES - 1));
  EXPECT_EQ(bracket_pair("(" + blanks + " )", 0), std::nullopt);
  EXPECT_EQ(bracket_pair("(" + blanks + " )", MAX_LINE_BYTES + 1), std::nullopt);
  EXPECT_EQ(bracket_pair("", 0), std::nullopt);
  EXPECT_EQ(bracket_pair("()", 3), std::nullopt);
}

}  // namespace
}  // namespace zoka
