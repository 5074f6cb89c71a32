// Characters of UTF-8, kana tables, kanji.
#include "common/text/utf8.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

TEST(CharBytes, CountsLeadingOnes) {
  EXPECT_EQ(char_bytes('A'), 1);
  EXPECT_EQ(char_bytes('\x7F'), 1);
  EXPECT_EQ(char_bytes('\x80'), 1);
  EXPECT_EQ(char_bytes('\xBF'), 1);
  EXPECT_EQ(char_bytes('\xC3'), 2);
  EXPECT_EQ(char_bytes('\xE3'), 3);
  EXPECT_EQ(char_bytes('\xF0'), 4);
  EXPECT_EQ(char_bytes('\xF8'), 5);
  EXPECT_EQ(char_bytes('\xFC'), 6);
  EXPECT_EQ(char_bytes('\xFE'), 7);
  EXPECT_EQ(char_bytes('\xFF'), 8);
}

TEST(CharLength, StaysInsideTheText) {
  EXPECT_EQ(char_length(""), 0u);
  EXPECT_EQ(char_length(std::string_view("\0A", 2)), 0u);
  EXPECT_EQ(char_length("A"), 1u);
  EXPECT_EQ(char_length("あい"), 3u);
  EXPECT_EQ(char_length("\xE3\x81"), 2u);
  EXPECT_EQ(char_length(std::string_view("\xE3\0\x81", 3)), 1u);
  EXPECT_EQ(char_length("\xFF\xFF\xFF\xFF\xFF\xFF"), 4u);
}

TEST(Kana, HalfTableIsInCodeOrder) {
  for (int32_t i = 0; i < HALF_KANA_COUNT; ++i) {
    size_t length = 0;
    EXPECT_EQ(decode_utf8(half_kana(i), &length), static_cast<char32_t>(0xFF61 + i));
    EXPECT_EQ(length, KANA_BYTES);
    EXPECT_EQ(half_kana_index(half_kana(i)), i);
    EXPECT_EQ(full_kana_index(full_kana(i)), i);
  }
}

TEST(Kana, PairsCorrespond) {
  EXPECT_EQ(half_kana(0), "｡");
  EXPECT_EQ(full_kana(0), "。");
  EXPECT_EQ(full_kana(half_kana_index("ｰ")), "ー");
  EXPECT_EQ(full_kana(half_kana_index("ｱ")), "ア");
  EXPECT_EQ(full_kana(half_kana_index("ﾐ")), "ミ");
  EXPECT_EQ(full_kana(62), "゜");
  EXPECT_EQ(half_kana(62), "ﾟ");
}

TEST(Kana, NeighboursAreNone) {
  EXPECT_EQ(half_kana_index("\xEF\xBD\xA0"), -1);  // U+FF60
  EXPECT_EQ(half_kana_index("\xEF\xBE\xA0"), -1);  // U+FFA0
  EXPECT_EQ(half_kana_index("\xEF\xBD"), -1);
  EXPECT_EQ(half_kana_index(""), -1);
  EXPECT_EQ(full_kana_index("あ"), -1);
  EXPECT_EQ(full_kana_index("\xE3\x80"), -1);
  EXPECT_EQ(full_kana_index(""), -1);
}

TEST(IsKanji, MultiByteButNotHalfKana) {
  EXPECT_FALSE(is_kanji("ｱ"));
  EXPECT_FALSE(is_kanji("A"));
  EXPECT_FALSE(is_kanji(""));
  EXPECT_TRUE(is_kanji("あ"));
  EXPECT_TRUE(is_kanji("é"));
  EXPECT_TRUE(is_kanji("😀"));
  EXPECT_TRUE(is_kanji("\xE3"));   // cut short, still no half-width kana
  EXPECT_FALSE(is_kanji("\x81"));  // leads nothing
}

TEST(AppendUtf8, EveryLength) {
  std::string text;
  for (char32_t code : {0x41, 0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0x10000, 0x10FFFF})
    append_utf8(&text, code);
  EXPECT_EQ(text, "A\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
  std::string bad;
  for (char32_t code : {0xD800, 0xDFFF, 0x110000}) append_utf8(&bad, code);
  EXPECT_EQ(bad, "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(DecodeUtf8, RoundTripOfAllCharacters) {
  for (char32_t code = 1; code <= 0x10FFFF; ++code) {
    if (code == 0xD800) code = 0xE000;
    std::string text;
    append_utf8(&text, code);
    size_t length = 0;
    ASSERT_EQ(decode_utf8(text, &length), code);
    ASSERT_EQ(length, text.size());
  }
}

TEST(DecodeUtf8, FaultsTakeOneByte) {
  for (const char* text :
       {"\x80", "\x80\x90\x80\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xED\xA0\x80",
        "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xE3\x81", "\xE3\x41\x81", "\xC3\x41", "\xE3\x41\x42",
        "\xE3\x81\x42", "\xF0\x9F\x98\x42", "\xFF"}) {
    size_t length = 0;
    EXPECT_EQ(decode_utf8(text, &length), 0xFFFDu) << text;
    EXPECT_EQ(length, 1u) << text;
    EXPECT_FALSE(is_utf8(text)) << text;
  }
  size_t length = 1;
  EXPECT_EQ(decode_utf8("", &length), 0xFFFDu);
  EXPECT_EQ(length, 0u);
  EXPECT_TRUE(is_utf8("Aあｱ😀"));
  EXPECT_TRUE(is_utf8(""));
}

}  // namespace
}  // namespace zoka
