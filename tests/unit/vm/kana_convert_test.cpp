// AKCNV$, KACNV$, JIS$ and KNJ$ as functions on texts.
#include "vm/kana_convert.h"

#include <gtest/gtest.h>

#include "common/text/utf8.h"

namespace zoka {
namespace {

TEST(KanaConvert, AsciiBecomesFullWidth) {
  EXPECT_EQ(AkcnvDl("!09AZaz~"), "！０９ＡＺａｚ～");
  EXPECT_EQ(AkcnvDl(" \"'\\"), "　”’￥");
  EXPECT_EQ(AkcnvDl(""), "");
}

TEST(KanaConvert, AllAsciiHasItsForm) {
  for (int code = 0x21; code <= 0x7E; ++code) {
    if (code == '"' || code == '\'' || code == '\\') continue;
    std::string expected;
    append_utf8(&expected, static_cast<char32_t>(0xFF01 + code - 0x21));
    EXPECT_EQ(AkcnvDl(std::string(1, static_cast<char>(code))), expected) << code;
    EXPECT_EQ(KacnvDl(expected), std::string(1, static_cast<char>(code))) << code;
  }
}

TEST(KanaConvert, OtherBytesStay) {
  EXPECT_EQ(AkcnvDl("\x01\x1F\x7F"), "\x01\x1F\x7F");
  EXPECT_EQ(AkcnvDl("あ漢é"), "あ漢é");
  EXPECT_EQ(AkcnvDl("\xE3"), "\xE3");
  EXPECT_EQ(AkcnvDl("\x80\xFF"), "\x80\xFF");
}

TEST(KanaConvert, HalfWidthKanaBothWays) {
  EXPECT_EQ(AkcnvDl("ｱﾟ｡"), "ア゜。");
  for (int32_t kana = 0; kana < HALF_KANA_COUNT; ++kana) {
    EXPECT_EQ(AkcnvDl(half_kana(kana)), full_kana(kana));
    EXPECT_EQ(KacnvDl(full_kana(kana)), std::string(half_kana(kana)));
  }
}

TEST(KanaConvert, DoubleByteBecomesSingle) {
  EXPECT_EQ(KacnvDl(""), "");
  EXPECT_EQ(KacnvDl("　”’￥"), " \"'\\");
  EXPECT_EQ(KacnvDl("＂＇＼"), "\"'\\");
  EXPECT_EQ(KacnvDl("Ａア"), "Aｱ");
}

TEST(KanaConvert, WhatHasNoSingleFormIsRefused) {
  for (const char* text : {"A", "ＡA", " ", "あ", "漢", "ガ", "ｱ", "\xE3", "\x80", "Ａ\xEF"}) {
    EXPECT_FALSE(KacnvDl(text)) << text;
  }
}

TEST(KanaConvert, JisCodes) {
  EXPECT_EQ(jis_dl("亜"), "3021");
  EXPECT_EQ(jis_dl("あいう"), "2422");
  EXPECT_EQ(jis_dl("　"), "2121");
  EXPECT_EQ(jis_dl("AB"), "4142");
  EXPECT_EQ(jis_dl("\x01\x02"), "102");
  EXPECT_EQ(jis_dl("ｱ"), "EFBD");
  for (const char* text : {"", "A", "한", "é", "\xE3\x81"}) EXPECT_FALSE(jis_dl(text)) << text;
}

TEST(KanaConvert, CharactersOfJisCodes) {
  EXPECT_EQ(knj_dl("3021"), "亜");
  EXPECT_EQ(knj_dl("256f"), "ワ");
  EXPECT_EQ(knj_dl("24220"), "あ");
  EXPECT_EQ(knj_dl("1B4B"), "");
  EXPECT_EQ(knj_dl("1b48"), "");
  for (const char* text : {"", "302", "302G", "-302", "+302", " 302", "0000", "FFFF", "2020"}) {
    EXPECT_FALSE(knj_dl(text)) << text;
  }
  EXPECT_EQ(JisCodeToUtf8Char(0x2422), "あ");
  EXPECT_EQ(JisCodeToUtf8Char(0x12422), "");
}

}  // namespace
}  // namespace zoka
