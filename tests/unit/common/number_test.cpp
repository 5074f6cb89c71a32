// Reading numbers: the decimal forms, and nothing but these.
#include "common/text/number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zoka {
namespace {

TEST(ParseLong, StopsAtTheFirstOtherCharacter) {
  EXPECT_EQ(parse_long("12"), 12);
  EXPECT_EQ(parse_long(" 7"), 7);
  EXPECT_EQ(parse_long(" \t-12.9"), -12);
  EXPECT_EQ(parse_long("+7x"), 7);
  EXPECT_EQ(parse_long("1E3"), 1);
  EXPECT_EQ(parse_long(""), 0);
  EXPECT_EQ(parse_long("-"), 0);
  EXPECT_EQ(parse_long("- 5"), 0);
  EXPECT_EQ(parse_long("0x10"), 0);
}

TEST(ParseLong, Clamps) {
  EXPECT_EQ(parse_long("2147483647"), INT32_MAX);
  EXPECT_EQ(parse_long("2147483648"), INT32_MAX);
  EXPECT_EQ(parse_long("-2147483648"), INT32_MIN);
  EXPECT_EQ(parse_long("-99999999999999999999999"), INT32_MIN);
}

TEST(ParseDouble, DecimalForms) {
  EXPECT_EQ(parse_double("1.5"), 1.5);
  EXPECT_EQ(parse_double("  -.5"), -0.5);
  EXPECT_EQ(parse_double("+5."), 5);
  EXPECT_EQ(parse_double("1.5E+10"), 1.5e10);
  EXPECT_EQ(parse_double("1e-3x"), 0.001);
  EXPECT_EQ(parse_double("1E"), 1);
  EXPECT_EQ(parse_double("1E+"), 1);
  EXPECT_EQ(parse_double("1D5"), 1);
  EXPECT_EQ(parse_double("12,5"), 12);
  EXPECT_EQ(parse_double(std::string_view("1.55", 3)), 1.5);
}

TEST(ParseDouble, WhatIsNoNumber) {
  for (const char* text : {"", ".", "-", "nan", "inf", "-infinity", "E5", ".E5", "x1"}) {
    EXPECT_EQ(parse_double(text), 0) << text;
  }
  EXPECT_EQ(parse_double("0x10"), 0);
  EXPECT_TRUE(std::signbit(parse_double("-0")));
}

TEST(DigitsInBase, AreCapitals) {
  EXPECT_EQ(digits_in_base(0, 16), "0");
  EXPECT_EQ(digits_in_base(0xBEEF, 16), "BEEF");
  EXPECT_EQ(digits_in_base(63, 8), "77");
  EXPECT_EQ(digits_in_base(UINT32_MAX, 2), std::string(32, '1'));
}

TEST(ParseDouble, BeyondTheRange) {
  constexpr double INF = std::numeric_limits<double>::infinity();
  EXPECT_EQ(parse_double("1E400"), INF);
  EXPECT_EQ(parse_double("-1E400"), -INF);
  EXPECT_EQ(parse_double("1E-400"), 0);
  EXPECT_EQ(parse_double("0.0001E400"), INF);
  EXPECT_EQ(parse_double("1E99999999999999999999"), INF);
  EXPECT_EQ(parse_double("1E-99999999999999999999"), 0);
  EXPECT_EQ(parse_double("0E99999"), 0);
  EXPECT_EQ(parse_double(std::string(400, '9')), INF);
}

TEST(ParseDigits, HexadecimalAndOctal) {
  EXPECT_EQ(parse_hex("fFg"), 255);
  EXPECT_EQ(parse_hex("FFFFFFFF"), -1);
  EXPECT_EQ(parse_hex("aA"), 170);
  EXPECT_EQ(parse_hex("@"), 0);
  EXPECT_EQ(parse_hex("123456789"), 0x23456789);
  EXPECT_EQ(parse_hex(""), 0);
  EXPECT_EQ(parse_octal("178"), 15);
  EXPECT_EQ(parse_octal("A"), 0);
}

}  // namespace
}  // namespace zoka
