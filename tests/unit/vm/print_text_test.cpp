// The texts that PRINT, WRITE, STR$ and PRINT USING make of values.
#include "vm/print_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zoka {
namespace {

struct TRow {
  double value;
  const char* printed;
  const char* str;
};

TEST(PrintText, Numbers) {
  const TRow rows[] = {
      {0, " 0 ", " 0"},
      {5, " 5 ", " 5"},
      {-5, "-5 ", "-5"},
      {0.5, " 0.5 ", " 0.5"},
      {-0.25, "-0.25 ", "-0.25"},
      {1.0 / 3, " 0.333333 ", " 0.333333"},
      {100000, " 100000 ", " 100000"},
      {999999, " 999999 ", " 999999"},
      {999999.5, " 1e+06 ", " 1e+06"},
      {1000000, " 1e+06 ", " 1e+06"},
      {1234567, " 1.23457e+06 ", " 1.23457e+06"},
      {0.0001, " 0.0001 ", " 0.0001"},
      {0.00001, " 1e-05 ", " 1e-05"},
      {1e300, " 1e+300 ", " 1e+300"},
      // Zeros at the end go also where they belong to the exponent; this is meant.
      {1.5e10, " 1.5e+1 ", " 1.5e+1"},
      {1.5e-20, " 1.5e-2 ", " 1.5e-2"},
      {1.5e100, " 1.5e+1 ", " 1.5e+1"},
      {10.50, " 10.5 ", " 10.5"},
      {-1.5e10, "-1.5e+1 ", "-1.5e+1"},
  };
  for (const TRow& row : rows) {
    EXPECT_EQ(GetPrintStrFromNum(row.value), row.printed);
    EXPECT_EQ(str_dl_text(row.value), row.str);
  }
}

TEST(PrintText, NegativeZeroKeepsItsSignBehindTheBlank) {
  EXPECT_EQ(GetPrintStrFromNum(-0.0), " -0 ");
  EXPECT_EQ(str_dl_text(-0.0), " 0");
}

TEST(PrintText, WhatIsNoNumber) {
  constexpr double INFINITE = std::numeric_limits<double>::infinity();
  EXPECT_EQ(GetPrintStrFromNum(INFINITE), " inf ");
  EXPECT_EQ(GetPrintStrFromNum(-INFINITE), "-inf ");
  std::string text = GetPrintStrFromNum(-std::numeric_limits<double>::quiet_NaN());
  EXPECT_TRUE(text == "-nan " || text == "nan ") << text;
}

TEST(PrintText, ElimZeroNeedsAPoint) {
  for (auto [text, expected] : {std::pair{"100", "100"},
                                {"1.50", "1.5"},
                                {"1.", "1"},
                                {"1.000", "1"},
                                {"1e+10", "1e+10"},
                                {"1.5e+10", "1.5e+1"},
                                {".0", ""},
                                {"", ""}}) {
    std::string tidied = text;
    ElimZero(&tidied);
    EXPECT_EQ(tidied, expected) << text;
  }
}

TEST(PrintText, Items) {
  EXPECT_EQ(GetPrintStr(TStackData::Of(int32_t{7}), 3), " 7 ");
  EXPECT_EQ(GetWriteStr(TStackData::Of(int32_t{-1234567})), "-1234567");
  EXPECT_EQ(GetWriteStr(TStackData::Of(double{1000000})), "1e+06");
  EXPECT_EQ(GetWriteStr(TStackData::Of(double{2.5})), "2.5");
  EXPECT_EQ(GetWriteStr(TStackData::Of(double{-0.5})), "-0.5");
}

TEST(PrintText, UsingFields) {
  EXPECT_EQ(fill_using_format("##.##", {3, 14}), " 3.14");
  EXPECT_EQ(fill_using_format("###", {1234}), "1234");
  EXPECT_EQ(fill_using_format("####", {-12}), " -12");
  EXPECT_EQ(fill_using_format("#", {-2147483647 - 1}), "-2147483648");
  EXPECT_EQ(fill_using_format("", {1}), "");
  EXPECT_EQ(fill_using_format("a#あ##", {1, 2}), "a1あ 2");
  // Values left over are dropped, and fields left over are blank.
  EXPECT_EQ(fill_using_format("#", {1, 2}), "1");
  EXPECT_EQ(fill_using_format("#,###", {1}), "1,   ");
}

TEST(PrintText, UsingKnowsNoOtherCharacters) {
  EXPECT_EQ(fill_using_format("+-$*!&\\.,^@", {1}), "+-$*!&\\.,^@");
}

}  // namespace
}  // namespace zoka
