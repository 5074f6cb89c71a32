// The table of double-byte characters.
#include "common/text/jis.h"

#include <gtest/gtest.h>

#include <set>

namespace zoka {
namespace {

TEST(SjisToUnicode, KnownPairs) {
  EXPECT_EQ(sjis_to_unicode(0x82, 0xA0), 0x3042u);
  EXPECT_EQ(sjis_to_unicode(0x83, 0x41), 0x30A2u);
  EXPECT_EQ(sjis_to_unicode(0x81, 0x5F), 0xFF3Cu);
  EXPECT_EQ(sjis_to_unicode(0x81, 0x60), 0xFF5Eu);
  EXPECT_EQ(sjis_to_unicode(0x81, 0x7C), 0xFF0Du);
  EXPECT_EQ(sjis_to_unicode(0x87, 0x40), 0x2460u);
  EXPECT_EQ(sjis_to_unicode(0xEA, 0xA4), 0x7199u);
  EXPECT_EQ(sjis_to_unicode(0xF0, 0x40), 0xE000u);
  EXPECT_EQ(sjis_to_unicode(0x81, 0xFC), 0x25EFu);
  EXPECT_EQ(sjis_to_unicode(0xFC, 0x4B), 0x9ED1u);
}

TEST(SjisToUnicode, NoneOutside) {
  EXPECT_EQ(sjis_to_unicode(0x85, 0x40), 0u);
  EXPECT_EQ(sjis_to_unicode(0x82, 0x7F), 0u);
  EXPECT_EQ(sjis_to_unicode(0x82, 0x3F), 0u);
  EXPECT_EQ(sjis_to_unicode(0x82, 0xFD), 0u);
  EXPECT_EQ(sjis_to_unicode(0x80, 0x40), 0u);
  EXPECT_EQ(sjis_to_unicode(0xA0, 0x40), 0u);
  EXPECT_EQ(sjis_to_unicode(0xFD, 0x40), 0u);
}

TEST(JisToUnicode, KnownCodes) {
  EXPECT_EQ(jis_to_unicode(0x2121), 0x3000u);
  EXPECT_EQ(jis_to_unicode(0x2422), 0x3042u);
  EXPECT_EQ(jis_to_unicode(0x3021), 0x4E9Cu);
  EXPECT_EQ(jis_to_unicode(0x3441), 0x6F22u);
  EXPECT_EQ(jis_to_unicode(0x3B7A), 0x5B57u);
  EXPECT_EQ(jis_to_unicode(0x2D21), 0x2460u);
  EXPECT_EQ(jis_to_unicode(0x7426), 0x7199u);
}

TEST(JisToUnicode, NoneOutside) {
  for (uint32_t code : {0x0000u, 0x2120u, 0x217Fu, 0x2021u, 0x7F21u, 0x2921u, 0xA1A1u, 0x12421u})
    EXPECT_EQ(jis_to_unicode(code), 0u) << code;
}

TEST(UnicodeToJis, KnownCharacters) {
  EXPECT_EQ(unicode_to_jis(0x3042), 0x2422u);
  EXPECT_EQ(unicode_to_jis(0x6F22), 0x3441u);
  EXPECT_EQ(unicode_to_jis(0x2460), 0x2D21u);
  EXPECT_EQ(unicode_to_jis(0), 0u);
  EXPECT_EQ(unicode_to_jis('A'), 0u);
  EXPECT_EQ(unicode_to_jis(0xFF71), 0u);
  EXPECT_EQ(unicode_to_jis(0x1F600), 0u);
}

TEST(UnicodeToJis, ConventionsOfOtherSystems) {
  EXPECT_EQ(unicode_to_jis(0x301C), 0x2141u);
  EXPECT_EQ(unicode_to_jis(0x2212), 0x215Du);
  EXPECT_EQ(unicode_to_jis(0x2016), 0x2142u);
  EXPECT_EQ(unicode_to_jis(0x00A2), 0x2171u);
  EXPECT_EQ(unicode_to_jis(0x00A3), 0x2172u);
  EXPECT_EQ(unicode_to_jis(0x00AC), 0x224Cu);
}

TEST(UnicodeToJis, TheLowestOfSeveralCodes) {
  EXPECT_EQ(unicode_to_jis(0x2252), 0x2262u);  // row 2, not row 13
  EXPECT_EQ(unicode_to_jis(0x2170), 0x7C71u);  // a small Roman numeral stands in row 92
}

TEST(UnicodeToJis, UndoesTheTableButForDuplicates) {
  std::set<char32_t> seen;
  int32_t count = 0;
  for (uint32_t row = JIS_FIRST; row <= JIS_LAST; ++row) {
    for (uint32_t cell = JIS_FIRST; cell <= JIS_LAST; ++cell) {
      const char32_t code = jis_to_unicode(row << 8 | cell);
      if (code == 0) continue;
      ++count;
      const bool first = seen.insert(code).second;
      EXPECT_EQ(unicode_to_jis(code) == (row << 8 | cell), first) << row << ' ' << cell;
    }
  }
  // 6,879 of JIS X 0208, 83 of row 13, 374 of rows 89 to 92.
  EXPECT_EQ(count, 6879 + 83 + 374);
}

}  // namespace
}  // namespace zoka
