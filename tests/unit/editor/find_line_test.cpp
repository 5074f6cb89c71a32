// Lines by their numbers.
#include "editor/find_line.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

TEST(OffsetFromLineNum, TheFirstLineThatBeginsWithTheDigitsIsFound) {
  EXPECT_EQ(OffsetFromLineNum("50 A\n5 B", 5), 0);
  EXPECT_EQ(OffsetFromLineNum("40 A\n5 B", 5), 5);
  EXPECT_EQ(OffsetFromLineNum("1 5\n15\n5", 5), 7);
  EXPECT_EQ(OffsetFromLineNum("10 A\n20 B\n", 20), 5);
}

TEST(OffsetFromLineNum, BlanksAndZerosInFrontHideANumber) {
  EXPECT_EQ(OffsetFromLineNum("010 X", 10), -1);
  EXPECT_EQ(OffsetFromLineNum(" 10 X", 10), -1);
  EXPECT_EQ(OffsetFromLineNum("10 X", 0), -1);
  EXPECT_EQ(OffsetFromLineNum("1 X\n0 Y", 0), 4);
  EXPECT_EQ(OffsetFromLineNum("", 10), -1);
}

TEST(LineWithNumber, ComparesTheWholeNumber) {
  EXPECT_EQ(line_with_number("50 A\n5 B", 5), 1);
  EXPECT_EQ(line_with_number("A\n 10 B\n10 C", 10), 1);
  EXPECT_EQ(line_with_number("A\n\n20 B\n", 20), 2);
  EXPECT_EQ(line_with_number("A\nB", 0), -1);
  EXPECT_EQ(line_with_number("", 1), -1);
}

}  // namespace
}  // namespace zoka
