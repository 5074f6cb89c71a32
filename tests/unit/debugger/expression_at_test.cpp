// Which expression of a source line is pointed at.
#include <gtest/gtest.h>

#include "debugger/expression_at.h"

namespace zoka {
namespace {

constexpr std::string_view LINE = "10 A$(I+1,2)=\"B\"+C%:X=&HFF+1E5:PRINT (Y)'Z";

std::string_view at(std::string_view text, size_t offset = 0) {
  return expression_at(LINE, LINE.find(text) + offset);
}

TEST(ExpressionAt, ANameHasItsTypeAndItsSubscripts) {
  EXPECT_EQ(at("A$"), "A$(I+1,2)");
  EXPECT_EQ(at("A$", 1), "A$(I+1,2)");
  EXPECT_EQ(at("C%", 1), "C%");
  EXPECT_EQ(at("Y)"), "Y");
}

TEST(ExpressionAt, WithinSubscriptsItIsTheNameThere) {
  // The name was stepped over, its parenthesis is nobody's.
  EXPECT_EQ(at("I+1"), "I");
  EXPECT_EQ(at("(I"), "");
  EXPECT_EQ(at(")="), "");
}

TEST(ExpressionAt, NumbersTextsAndCommentsHaveNone) {
  EXPECT_EQ(at("10 "), "");
  EXPECT_EQ(at("B\""), "");
  EXPECT_EQ(at("HFF"), "");
  EXPECT_EQ(at("E5"), "");
  EXPECT_EQ(at("Z"), "");
  EXPECT_EQ(at("'Z"), "");
  EXPECT_EQ(expression_at("10 REM ABC", 8), "");
  EXPECT_EQ(expression_at("10 remark=1", 4), "remark");
}

TEST(ExpressionAt, NamesAreWordsOfTheLanguage) {
  EXPECT_EQ(expression_at("10 A.B=_X+A%B*2", 5), "A.B");
  EXPECT_EQ(expression_at("10 A.B=_X+A%B*2", 7), "_X");
  EXPECT_EQ(expression_at("10 A.B=_X+A%B*2", 12), "A%B");
}

TEST(ExpressionAt, WhatIsNeverClosedIsNoSubscript) {
  EXPECT_EQ(expression_at("10 A(1", 3), "A");
  EXPECT_EQ(expression_at("10 A(\")\"", 3), "A");
  EXPECT_EQ(expression_at("10 A((1)+\")\",2)", 3), "A((1)+\")\",2)");
  EXPECT_EQ(expression_at("10 A$=\"open", 8), "");
}

TEST(ExpressionAt, BeyondTheLineThereIsNothing) {
  EXPECT_EQ(expression_at("", 0), "");
  EXPECT_EQ(expression_at("10 A", 4), "");
  EXPECT_EQ(expression_at("10 A", 999), "");
}

}  // namespace
}  // namespace zoka
