// Numbers in texts.
#include "common/text/number.h"

#include <gtest/gtest.h>

#include <limits>

namespace zoka {
namespace {

TEST(ParseLong, ReadsTheLeadingInteger) {
  size_t used = 9;
  EXPECT_EQ(parse_long(" -12AB", &used), -12);
  EXPECT_EQ(used, 4u);
  EXPECT_EQ(parse_long("+7.9"), 7);
  EXPECT_EQ(parse_long("ABC", &used), 0);
  EXPECT_EQ(used, 0u);
  EXPECT_EQ(parse_long("", &used), 0);
}

TEST(ParseLong, ClampsToThirtyTwoBits) {
  EXPECT_EQ(parse_long("3000000000"), 2147483647);
  EXPECT_EQ(parse_long("-99999999999999999999"), -2147483647 - 1);
  EXPECT_EQ(parse_long("2147483647"), 2147483647);
  EXPECT_EQ(parse_long("-2147483648"), -2147483647 - 1);
}

TEST(ParseDouble, ReadsTheLeadingDecimalNumber) {
  EXPECT_EQ(parse_double(" -1.5E+2x"), -150.0);
  EXPECT_EQ(parse_double(".5."), 0.5);
  EXPECT_EQ(parse_double("5."), 5.0);
  EXPECT_EQ(parse_double("3e"), 3.0);
  EXPECT_EQ(parse_double("."), 0.0);
  EXPECT_EQ(parse_double("-"), 0.0);
}

TEST(ParseDouble, KnowsNeitherNamesNorHexadecimal) {
  EXPECT_EQ(parse_double("nan"), 0.0);
  EXPECT_EQ(parse_double("inf"), 0.0);
  EXPECT_EQ(parse_double("0x10"), 0.0);
}

TEST(ParseDouble, GoesToTheEndsOfTheRange) {
  EXPECT_EQ(parse_double("1e999"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(parse_double("-1e999"), -std::numeric_limits<double>::infinity());
  EXPECT_EQ(parse_double("1e-999"), 0.0);
}

TEST(Trim, CutsWhiteSpaceAtBothEnds) {
  EXPECT_EQ(trim(" \ta b\r\n"), "a b");
  EXPECT_EQ(trim("  "), "");
}

}  // namespace
}  // namespace zoka
