// Numbers from text: decimal, clamped, without a locale.
#include "common/text/number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace zoka {
namespace {

TEST(ParseLongRange, ReadsTheStart) {
  EXPECT_EQ(parse_long("10"), 10);
  EXPECT_EQ(parse_long("10.7"), 10);
  EXPECT_EQ(parse_long("1E3"), 1);
  EXPECT_EQ(parse_long(" \t+5x"), 5);
  EXPECT_EQ(parse_long("-5"), -5);
  EXPECT_EQ(parse_long("- 5"), 0);
  EXPECT_EQ(parse_long("x5"), 0);
  EXPECT_EQ(parse_long("0x10"), 0);
  EXPECT_EQ(parse_long(""), 0);
}

TEST(ParseLongRange, ClampsTo32Bits) {
  EXPECT_EQ(parse_long("2147483647"), 2147483647);
  EXPECT_EQ(parse_long("2147483648"), 2147483647);
  EXPECT_EQ(parse_long("-2147483648"), -2147483647 - 1);
  EXPECT_EQ(parse_long("-99999999999999999999"), -2147483647 - 1);
  EXPECT_EQ(parse_long(std::string(1000, '9')), 2147483647);
}

TEST(ParseDoubleRange, ReadsTheStart) {
  EXPECT_EQ(parse_double("1.5"), 1.5);
  EXPECT_EQ(parse_double(".5#"), 0.5);
  EXPECT_EQ(parse_double("5."), 5.0);
  EXPECT_EQ(parse_double(" +1.5E+2x"), 150.0);
  EXPECT_EQ(parse_double("-2e-1"), -0.2);
  EXPECT_EQ(parse_double("1E"), 1.0);
  EXPECT_EQ(parse_double("1,5"), 1.0);
}

TEST(ParseDoubleRange, OnlyDecimalForm) {
  for (const char* text : {"nan", "inf", "INFINITY", "-inf", ".", "", "+", "+-1", "e5", "x"}) {
    EXPECT_EQ(parse_double(text), 0.0) << text;
  }
  EXPECT_EQ(parse_double("0x10"), 0.0);
  EXPECT_TRUE(std::signbit(parse_double("-0")));
}

TEST(ParseDoubleRange, BeyondTheRange) {
  EXPECT_EQ(parse_double("1E999"), HUGE_VAL);
  EXPECT_EQ(parse_double("-1E999"), -HUGE_VAL);
  EXPECT_EQ(parse_double("1E-999"), 0.0);
  EXPECT_EQ(parse_double(std::string(400, '9')), HUGE_VAL);
  EXPECT_EQ(parse_double("0." + std::string(400, '0') + "1"), 0.0);
  EXPECT_EQ(parse_double("1E99999999999"), HUGE_VAL);
}

}  // namespace
}  // namespace zoka
