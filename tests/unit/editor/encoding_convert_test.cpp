// Shift-JIS, JIS and the PC-98's peculiarities.
#include "editor/encoding_convert.h"

#include <gtest/gtest.h>

#include "common/text/charset.h"
#include "common/text/jis.h"
#include "common/text/utf8.h"
#include "tests/support/hex.h"

namespace zoka {
namespace {

constexpr char RAW[] = "(raw)";

std::string from_sjis(std::string_view hex) {
  std::string text;
  return convert_to_utf8(CHARSET_SJIS, from_hex(hex), &text) ? text : RAW;
}

std::string from_jis(std::string_view hex) {
  std::string text;
  return convert_to_utf8(CHARSET_JIS, from_hex(hex), &text) ? text : RAW;
}

void expect_pc98(std::string_view hex, bool cv98, std::string_view result, int64_t count) {
  std::string text = from_hex(hex);
  EXPECT_EQ(ConvertJisToJis(&text, cv98), count) << hex;
  EXPECT_EQ(text, from_hex(result)) << hex;
}

TEST(ShiftJis, SinglesAndPairs) {
  EXPECT_EQ(from_sjis(""), "");
  EXPECT_EQ(from_sjis("00 0A 1A 1B 41 5C 7E 7F"), std::string("\0\n\x1A\x1B"
                                                              "A\\~\x7F",
                                                              8));
  EXPECT_EQ(from_sjis("B1 DF"), "ｱﾟ");
  EXPECT_EQ(from_sjis("A1 DF"), "｡ﾟ");
  EXPECT_EQ(from_sjis("83 41 5C B1 81 5F"), "ア\\ｱ＼");
  EXPECT_EQ(from_sjis("82 A0 88 9F 87 40"), "あ亜①");
  EXPECT_EQ(from_sjis("83 5C 95 5C"), "ソ表");  // second bytes that look like a backslash
}

TEST(ShiftJis, WhatHasNoCounterpart) {
  EXPECT_EQ(from_sjis("82 22 5A"), "\x1A\"Z");  // a bad second byte counts anew
  EXPECT_EQ(from_sjis("85 40"), "\x1A");        // a pair without a meaning
  EXPECT_EQ(from_sjis("80 A0 FD FE FF"), "\x1A\x1A\x1A\x1A\x1A");
  EXPECT_EQ(from_sjis("82 FF 41"),
            "\x1A\x1A"
            "A");
  EXPECT_EQ(from_sjis("82 7F"), "\x1A\x7F");
  EXPECT_EQ(from_sjis("82 00"), std::string("\x1A\0", 2));
}

TEST(ShiftJis, EndWithinAPair) {
  EXPECT_EQ(from_sjis("41 82"), RAW);
  EXPECT_EQ(from_sjis("82"), RAW);
  EXPECT_EQ(from_sjis("82 82"), "ｂ");
}

TEST(Jis, SinglesAndSequences) {
  EXPECT_EQ(from_jis("41 5C 7E 7F B1 A1 DF"), "A\\~\x7Fｱ｡ﾟ");
  EXPECT_EQ(from_jis("80 A0 E0 FF"), "\x1A\x1A\x1A\x1A");
  EXPECT_EQ(from_jis("1B2442 2422 1B284A 5C 7E B1"), "あ\\~ｱ");
  EXPECT_EQ(from_jis("1B2442 2422 1B2842 5C 7E B1"), "あ\\~ｱ");
  EXPECT_EQ(from_jis("1B2440 3441 1B2842 41"), "漢A");
  EXPECT_EQ(from_jis("1B2849 31 21 5F 1B2842 31"), "ｱ｡ﾟ1");
  EXPECT_EQ(from_jis("1B2849 60 7F B1"), "\x1A\x1Aｱ");
  EXPECT_EQ(from_jis("1B2442 2D21"), "①");
}

TEST(Jis, ControlsWithinKanji) {
  EXPECT_EQ(from_jis("1B2442 2422 20 09 00 2424"), std::string("あ \t\0い", 9));
  EXPECT_EQ(from_jis("1B2442 2422 0A 41 42"), "あ\nAB");  // a line feed ends kanji
  EXPECT_EQ(from_jis("1B2849 31 0A 31"), "ｱ\n1");
}

TEST(Jis, WhatHasNoCounterpart) {
  EXPECT_EQ(from_jis("1B2442 2921 2422"), "\x1Aあ");  // an empty row
  EXPECT_EQ(from_jis("1B2442 247F 2422"), "\x1Aあ");
  EXPECT_EQ(from_jis("1B2442 7F41 2422"), "\x1Aあ");
  EXPECT_EQ(from_jis("1B2442 24 20 2422"), "\x1A あ");  // the first alone is bad
  EXPECT_EQ(from_jis("1B2442 B1B2 2422"), "\x1Aあ");
  EXPECT_EQ(from_jis("1B2442 24 1B2842 41"),
            "\x1A"
            "A");
  EXPECT_EQ(from_jis("1B 41"),
            "\x1A"
            "A");  // an unknown sequence
  EXPECT_EQ(from_jis("1B2443 41"), "\x1A$CA");
  EXPECT_EQ(from_jis("1B1B2842 41"),
            "\x1A"
            "A");
}

TEST(Jis, EndWithinAPairOrSequence) {
  EXPECT_EQ(from_jis("1B2442 24"), RAW);
  EXPECT_EQ(from_jis("1B2442 2422 24"), RAW);
  EXPECT_EQ(from_jis("41 1B"), RAW);
  EXPECT_EQ(from_jis("41 1B24"), RAW);
  EXPECT_EQ(from_jis("41 1B28"), RAW);
  EXPECT_EQ(from_jis("1B2442"), "");
}

TEST(Jis, AllCodesGoByTheTable) {
  for (unsigned row = JIS_FIRST; row <= JIS_LAST; ++row) {
    std::string source(BEOS_KI_CODE);
    std::string expected;
    for (unsigned cell = JIS_FIRST; cell <= JIS_LAST; ++cell) {
      source.push_back(static_cast<char>(row));
      source.push_back(static_cast<char>(cell));
      const char32_t code = jis_to_unicode(row << 8 | cell);
      append_utf8(&expected, code != 0 ? code : 0x1A);
    }
    std::string text;
    ASSERT_TRUE(convert_to_utf8(CHARSET_JIS, source, &text));
    EXPECT_EQ(text, expected) << row;
  }
}

TEST(ConvertJisToJis, ExchangesEscapeSequences) {
  for (const bool cv98 : {true, false}) {
    expect_pc98("", cv98, "", 0);
    expect_pc98("1B4B 2422 1B48", cv98, "1B2442 2422 1B284A", 0);
    expect_pc98("1B2442 2422 1B2842", cv98, "1B2442 2422 1B2842", 0);
    expect_pc98("1B48 41 1B", cv98, "1B48 41 1B", 0);
    expect_pc98("1B4B 24", cv98, "1B2442 24 00", 0);
    expect_pc98("1B4B", cv98, "1B2442", 0);
    expect_pc98("B1 41", cv98, "B1 41", 0);
  }
}

TEST(ConvertJisToJis, SingleBytes) {
  expect_pc98("80 88 90 9C E0 EF F0 F7", true, "5F 5B 5E 28 3D 5C 58 53", 8);
  expect_pc98("80 88 90 9C E0 EF F0 F7", false, "80 88 90 9C E0 EF F0 F7", 0);
  std::string all;
  for (int byte = 0x80; byte <= 0xFF; ++byte) all.push_back(static_cast<char>(byte));
  const std::string kept = all.substr(0x20, 0x40);  // A0 to DF
  EXPECT_EQ(ConvertJisToJis(&all, true), 16 * 3 + 8);
  EXPECT_EQ(all, "__---###[[|||##+^T<>`-|][][]()()" + kept + "=>=</\\\\/nvom*O/\\X\\YMDHMS" +
                     "\xF8\xF9\xFA\xFB\xFC\xFD\xFE\xFF");
}

TEST(ConvertJisToJis, Pairs) {
  expect_pc98("1B4B 0041 1B48", true, "1B2442 1B284A 41 1B2442 1B284A", 1);
  expect_pc98("1B4B 0041 1B48", false, "1B2442 0041 1B284A", 0);
  expect_pc98("1B4B 00B1 1B48", true, "1B2442 1B284A B1 1B2442 1B284A", 1);
  expect_pc98("1B4B 2D2A 2D21 2D35 1B48", true, "1B2442 1B284A 3130 1B2442 2331 2331 1B284A", 3);
  expect_pc98("1B4B 2D33 2D34 2D3E 1B48", true,
              "1B2442 1B284A 3139 1B2442 1B284A 3230 1B2442 1B284A 3130 1B2442 1B284A", 3);
  expect_pc98("1B4B 2D29 2D3D 1B48", true, "1B2442 2339 2339 1B284A", 2);
  expect_pc98("1B4B 2B21 1B48", true, "1B2442 1B284A 20 1B2442 1B284A", 1);
  expect_pc98("1B4B 23C1 23DA 1B48", true, "1B2442 2341 235A 1B284A", 2);
  expect_pc98("1B4B 2D2A 2B21 23C1 1B48", false, "1B2442 2D2A 2B21 23C1 1B284A", 0);
}

TEST(ConvertJisToJis, NeighboursOfTheReplacedStay) {
  for (const char* pair :
       {"001F", "0080", "009F", "00E0", "2B22", "2D20", "2D3F", "23C0", "23DB"}) {
    const std::string hex = pair;
    expect_pc98("1B4B" + hex + "1B48", true, "1B2442" + hex + "1B284A", 0);
  }
}

TEST(ConvertJisToJis, GrowsAsFarAsItMust) {
  std::string text = from_hex("1B4B");
  for (int i = 0; i < 100; ++i) text += from_hex("2D2A");
  text += from_hex("1B48");
  ASSERT_EQ(text.size(), 204u);
  EXPECT_EQ(ConvertJisToJis(&text, true), 100);
  EXPECT_EQ(text.size(), 806u);
}

}  // namespace
}  // namespace zoka
