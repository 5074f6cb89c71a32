// Generated lists in every encoding come back as they were.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "editor/encoding.h"
#include "tests/support/hex.h"
#include "tests/support/jis_writer.h"

namespace zoka {
namespace {

constexpr int LISTS = 3000;

/// Characters of rows 1 to 84 but row 13, which are replaced as the PC-98's own.
std::vector<char32_t> double_byte_characters() {
  std::vector<char32_t> characters;
  for (uint32_t row = 0x21; row <= 0x74; ++row) {
    for (uint32_t cell = 0x21; cell <= 0x7E; ++cell) {
      const char32_t code = jis_to_unicode(row << 8 | cell);
      if (code != 0 && row != 0x2D) characters.push_back(code);
    }
  }
  return characters;
}

/// A list with at least one kanji, in lines.
std::vector<char32_t> random_list(std::mt19937& random, const std::vector<char32_t>& kanji) {
  std::vector<char32_t> list = {'1', ' ', U'あ'};
  for (size_t length = random() % 120; length > 0; --length) {
    switch (random() % 5) {
      case 0:
        list.push_back('\n');
        break;
      case 1:
        list.push_back(0xFF61 + random() % 63);
        break;
      case 2:
        list.push_back(0x20 + random() % 0x5F);
        break;
      default:
        list.push_back(kanji[random() % kanji.size()]);
    }
  }
  return list;
}

std::string loaded(const std::string& bytes, int32_t encoding, int32_t charset) {
  TListText list;
  EXPECT_EQ(list_from_bytes(bytes, encoding, true, &list), TListFault::None);
  EXPECT_EQ(list.charset, charset);
  EXPECT_EQ(list.replacedCount + list.blankedCount, 0);
  return list.text;
}

TEST(EncodingGenerated, RoundTripsWithAutomaticChoice) {
  const std::vector<char32_t> kanji = double_byte_characters();
  std::mt19937 random(3);
  for (int i = 0; i < LISTS; ++i) {
    std::string utf8;
    std::string sjis;
    TJisWriter pc98(BAS_KI_CODE, BAS_KO_CODE);
    TJisWriter iso(BEOS_KI_CODE, "\x1B(B");
    for (const char32_t code : random_list(random, kanji)) {
      append_utf8(&utf8, code);
      append_sjis(&sjis, code);
      pc98.Put(code);
      iso.Put(code);
    }
    ASSERT_EQ(loaded(utf8, ENCODING_AUTO, CHARSET_UTF8), utf8);
    ASSERT_EQ(loaded(sjis, ENCODING_AUTO, CHARSET_SJIS), utf8);
    ASSERT_EQ(loaded(pc98.Finish(), ENCODING_AUTO, CHARSET_JIS), utf8);
    ASSERT_EQ(loaded(iso.Finish(), ENCODING_AUTO, CHARSET_JIS), utf8);
  }
}

TEST(EncodingGenerated, EveryTruncationOfEveryVector) {
  for (const char* hex : {
           "FE0C000A0001C0012241422200 00",
           "FE14000A0001A8014100F11101D601113A9901120000 00",
           "FE0E000A000141024224F12258220000 00",
           "FE0B00409C01A3010E409C0000 00",
           "FE18000A00019120 22613A62222C1B4B3A221B482C633AC000 00",
           "FE0E000A00019120312C3200277800 00",
           "FE0A000A001D0000008100 00",
           "FE0E000A001F000000000000408100 00",
           "1B4B24221B48",
           "1B4B00411B48",
           "1B4B2D2A2D212D351B48",
           "1B4B2B211B48 1B4B23C11B48",
           "8088909CE0EFF0F7",
           "1B244224221B2842",
           "5C1B4B24221B485CB1",
           "82225A 8540 B1DF 4182 CADDC4DE",
           "1B2449 1B2849 31 1B2440 3441 0A",
       }) {
    const std::string vector = from_hex(hex);
    for (size_t length = 0; length <= vector.size(); ++length) {
      for (const int32_t encoding : {ENCODING_AUTO, ENCODING_UTF8, ENCODING_SJIS, ENCODING_JIS}) {
        std::string bytes = vector.substr(0, length);
        bytes.shrink_to_fit();
        TListText list;
        ASSERT_NE(list_from_bytes(std::move(bytes), encoding, true, &list), TListFault::CannotLoad);
        ASSERT_EQ(list.text.find('\0'), std::string::npos);
      }
    }
  }
}

}  // namespace
}  // namespace zoka
