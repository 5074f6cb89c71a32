// Guesses about character sets and line ends.
#include "common/text/charset.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

TEST(DetectCharset, EscapesWinThenFaults) {
  struct TCase {
    const char* text;
    int32_t charset;
  };
  const TCase cases[] = {
      {"", 0},
      {"A", 0},
      {"\xE3\x81\x82", 0},
      {"\xC3\xB1", 0},
      {"\xC4\xB1", 0},  // two half-width kana of Shift-JIS that are good UTF-8 too
      {"\xC4\xDE", 11},
      {"\xC0\x80", 0},
      {"\xF0\x9F\x98\x80", 0},
      {"\x82\xA0", 11},
      {"\x7F", 0},
      {"\x80", 11},
      {"\xB1", 11},
      {"\xBF", 11},
      {"\xC3", 11},
      {"\xFF", 11},
      {"\xE3\x81", 11},
      {"\xCA\xDD\xC4\xDE", 11},
      {"\x1B$B$\"", 13},
      {"\x1B\x82\xA0", 13},
      {"\xE3\x1BK", 11},  // the ESC is stepped over as a part of the sequence
  };
  for (const TCase& test : cases) EXPECT_EQ(detect_charset(test.text), test.charset) << test.text;
}

TEST(DetectCharset, LooksNoFurtherThanNul) {
  EXPECT_EQ(detect_charset(std::string_view("A\0\x1B\x82", 4)), 0);
  EXPECT_EQ(detect_charset(std::string_view("\xE3\0\x81", 3)), 11);
}

TEST(DetectCrType, ComparesCounts) {
  EXPECT_EQ(detect_cr_type(""), 0);
  EXPECT_EQ(detect_cr_type("A"), 0);
  EXPECT_EQ(detect_cr_type("A\nB\n"), 0);
  EXPECT_EQ(detect_cr_type("A\r\n"), 1);
  EXPECT_EQ(detect_cr_type("A\r\nB\r\n"), 1);
  EXPECT_EQ(detect_cr_type("A\r\nB\n"), 0);
  EXPECT_EQ(detect_cr_type("A\r\nB\r"), 2);
  EXPECT_EQ(detect_cr_type("A\rB\r"), 2);
  EXPECT_EQ(detect_cr_type(std::string_view("A\n\0\r\r", 5)), 0);
}

}  // namespace
}  // namespace zoka
