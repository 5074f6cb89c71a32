// Positions in texts that are ASCII in whole or in part: these are walked by words, not characters.
#include <gtest/gtest.h>

#include <string>

#include "app/settings/compat_mode.h"
#include "vm/jis_position.h"

namespace zoka {
namespace {

constexpr TJisCount BYTES{COMPAT_DISK, 2};

TEST(JisAscii, PositionsAreBytes) {
  const std::string text(250, 'x');
  for (int64_t place : {0, 1, 7, 8, 9, 200, 249, 250}) {
    EXPECT_EQ(JisPosToUtf8PosKernel(text, place, BYTES), place);
    EXPECT_EQ(Utf8PosToJisPosKernel(text, place, BYTES), place);
    EXPECT_EQ(JisPosToUtf8PosR(text, place, COMPAT_DISK), place);
  }
  EXPECT_EQ(JisPosToUtf8PosKernel(text, 255, BYTES), 255) << "counts on as if ASCII followed";
  EXPECT_EQ(Utf8PosToJisPosKernel(text, 255, BYTES), 250) << "there is nothing more to count";
}

TEST(JisAscii, KanjiBehindAnAsciiStart) {
  const std::string text = "ABCDEFGHI\u3042Z";  // 9 bytes, 3 bytes, 1 byte
  EXPECT_EQ(Utf8PosToJisPosKernel(text, 9, BYTES), 9);
  EXPECT_EQ(Utf8PosToJisPosKernel(text, 12, BYTES), 15) << "two shifts and a kanji of 2";
  EXPECT_EQ(Utf8PosToJisPosKernel(text, 13, BYTES), 16);
  EXPECT_EQ(JisPosToUtf8PosKernel(text, 9, BYTES), 9);
  EXPECT_EQ(JisPosToUtf8PosKernel(text, 11, BYTES), 9) << "inside the shift";
  EXPECT_EQ(JisPosToUtf8PosKernel(text, 13, BYTES), 12);
  EXPECT_EQ(JisPosToUtf8PosKernel(text, 16, BYTES), 13);
}

TEST(JisAscii, KanjiAtAnyPlaceAmongManyBytes) {
  constexpr int64_t BYTES_AROUND = 80;
  for (int64_t place = 0; place <= BYTES_AROUND; ++place) {
    std::string text(BYTES_AROUND, 'x');
    text.insert(static_cast<size_t>(place), "\u3042");
    EXPECT_EQ(Utf8PosToJisPosKernel(text, place, BYTES), place);
    EXPECT_EQ(Utf8PosToJisPosKernel(text, BYTES_AROUND + 3, BYTES), BYTES_AROUND + 6) << place;
    EXPECT_EQ(JisPosToUtf8PosKernel(text, place + 6, BYTES), place + 3);
    EXPECT_EQ(JisPosToUtf8PosKernel(text, BYTES_AROUND + 6, BYTES), BYTES_AROUND + 3) << place;
  }
}

TEST(JisAscii, TheEndCountedBackwards) {
  const std::string text =
      "\u3042"
      "ABCDE";
  EXPECT_EQ(JisPosToUtf8PosR(text, 2, COMPAT_DISK), 2);
  EXPECT_EQ(JisPosToUtf8PosR(text, 5, COMPAT_DISK), 5);
  EXPECT_EQ(JisPosToUtf8PosR(text, 9, COMPAT_DISK), 8) << "a shift and the kanji";
}

TEST(JisAscii, ALeadByteClaimsWhatFollows) {
  // The three bytes are one character, so the last two are not two of their own.
  EXPECT_EQ(JisPosToUtf8PosR("\xE3"
                             "AB",
                             2, COMPAT_DISK),
            0);
  EXPECT_EQ(JisPosToUtf8PosR("\xE3"
                             "ABCDE",
                             2, COMPAT_DISK),
            2);
}

}  // namespace
}  // namespace zoka
