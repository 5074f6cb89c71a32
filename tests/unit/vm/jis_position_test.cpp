// String positions: both compatibility modes, both weights, every class of character.
#include "vm/jis_position.h"

#include <gtest/gtest.h>

#include "app/settings/compat_mode.h"
#include "common/text/utf8.h"

namespace zoka {
namespace {

constexpr int32_t DISK = COMPAT_DISK;
constexpr int32_t DOS = COMPAT_DOS;
constexpr TJisCount DISK_BYTES{DISK, 2};
constexpr TJisCount DISK_CHARS{DISK, 1};
constexpr TJisCount DOS_BYTES{DOS, 2};
constexpr TJisCount DOS_CHARS{DOS, 1};

int64_t length_of(std::string_view text, TJisCount count) {
  return Utf8PosToJisPosKernel(text, static_cast<int64_t>(text.size()), count);
}

struct TLengthRow {
  const char* text;
  int64_t diskBytes, diskChars, dosBytes, dosChars;
};

TEST(JisPosition, Lengths) {
  const TLengthRow rows[] = {
      {"", 0, 0, 0, 0},        {"A", 1, 1, 1, 1},
      {"ABC", 3, 3, 3, 3},     {"ｱ", 1, 1, 1, 1},
      {"ｱA｡", 3, 3, 3, 3},     {"あ", 6, 3, 2, 1},
      {"あい", 8, 4, 4, 2},    {"Aあ", 7, 4, 3, 2},
      {"あA", 7, 4, 3, 2},     {"ｱあ", 7, 4, 3, 2},
      {"AあB", 8, 5, 4, 3},    {"あAい", 13, 7, 5, 3},
      {"Aあいｱ", 10, 6, 6, 4}, {"\xE3", 6, 3, 2, 1},
      {"A\xE3", 7, 4, 3, 2},   {"\x80\x80\x80", 6, 3, 2, 1},
      {"あ\xE3", 8, 4, 4, 2},
  };
  for (const TLengthRow& row : rows) {
    EXPECT_EQ(length_of(row.text, DISK_BYTES), row.diskBytes) << row.text;
    EXPECT_EQ(length_of(row.text, DISK_CHARS), row.diskChars) << row.text;
    EXPECT_EQ(length_of(row.text, DOS_BYTES), row.dosBytes) << row.text;
    EXPECT_EQ(length_of(row.text, DOS_CHARS), row.dosChars) << row.text;
  }
}

TEST(JisPosition, PositionsOfOffsets) {
  // The closing shift counts only where ASCII or the end follows.
  EXPECT_EQ(Utf8PosToJisPosKernel("あい", 3, DISK_BYTES), 4);
  EXPECT_EQ(Utf8PosToJisPosKernel("あA", 3, DISK_BYTES), 6);
  EXPECT_EQ(Utf8PosToJisPosKernel("あｱ", 3, DISK_BYTES), 4);
  EXPECT_EQ(Utf8PosToJisPosKernel("あｱ", 6, DISK_BYTES), 7);
  EXPECT_EQ(Utf8PosToJisPosKernel("あい", 3, DOS_BYTES), 2);
  EXPECT_EQ(Utf8PosToJisPosKernel("あい", 3, DOS_CHARS), 1);
  // An offset inside a character counts the whole character.
  EXPECT_EQ(Utf8PosToJisPosKernel("あい", 1, DOS_BYTES), 2);
  EXPECT_EQ(Utf8PosToJisPosKernel("ｱ", 2, DOS_BYTES), 1);
  EXPECT_EQ(Utf8PosToJisPosKernel("ABC", 0, DISK_BYTES), 0);
  EXPECT_EQ(Utf8PosToJisPosKernel("ABC", 99, DISK_BYTES), 3);
}

struct TOffsetRow {
  const char* text;
  int64_t position;
  int64_t disk, dos;
};

TEST(JisPosition, OffsetsOfPositionsInBytes) {
  const TOffsetRow rows[] = {
      {"ABC", 0, 0, 0},
      {"ABC", 2, 2, 2},
      {"ABC", 3, 3, 3},
      // Beyond the end each position is one byte more.
      {"ABC", 7, 7, 7},
      {"", 5, 5, 5},
      {"ｱ", 3, 5, 5},
      // The first position inside the opening shift, then inside the character.
      {"あい", 1, 0, 3},
      {"あい", 2, 0, 3},
      {"あい", 3, 3, 6},
      {"あい", 4, 3, 6},
      {"あい", 5, 6, 7},
      {"あい", 6, 6, 8},
      // Behind the last kanji the closing shift comes first.
      {"あ", 4, 3, 5},
      {"あ", 6, 3, 7},
      {"あ", 7, 4, 8},
      {"Aあ", 1, 1, 1},
      {"Aあ", 2, 1, 4},
      {"Aあ", 3, 1, 4},
      {"Aあ", 4, 4, 5},
      {"あA", 5, 3, 6},
      {"あA", 6, 3, 7},
      {"あA", 7, 4, 8},
      {"ｱｲ", 1, 3, 3},
      {"ABC", -1, 0, 0},
  };
  for (const TOffsetRow& row : rows) {
    EXPECT_EQ(JisPosToUtf8PosKernel(row.text, row.position, DISK_BYTES), row.disk)
        << row.text << row.position;
    EXPECT_EQ(JisPosToUtf8PosKernel(row.text, row.position, DOS_BYTES), row.dos)
        << row.text << row.position;
  }
}

TEST(JisPosition, OffsetsOfPositionsInCharacters) {
  const TOffsetRow rows[] = {
      {"あい", 1, 0, 3}, {"あい", 2, 3, 6}, {"あい", 3, 6, 7}, {"Aあ", 1, 1, 1},
      {"Aあ", 2, 1, 4},  {"Aあ", 3, 4, 5},  {"あA", 3, 3, 5},  {"あA", 4, 4, 6},
  };
  for (const TOffsetRow& row : rows) {
    EXPECT_EQ(JisPosToUtf8PosKernel(row.text, row.position, DISK_CHARS), row.disk)
        << row.text << row.position;
    EXPECT_EQ(JisPosToUtf8PosKernel(row.text, row.position, DOS_CHARS), row.dos)
        << row.text << row.position;
  }
}

TEST(JisPosition, FromTheEnd) {
  const TOffsetRow rows[] = {
      {"ABC", 0, 0, 0}, {"ABC", 2, 2, 2}, {"ABC", 9, 9, 9}, {"あA", 1, 1, 1}, {"あA", 2, 1, 4},
      {"あA", 3, 1, 4}, {"あA", 4, 4, 5}, {"Aあ", 1, 0, 3}, {"Aあ", 3, 3, 4}, {"Aあ", 6, 3, 7},
      {"Aあ", 7, 4, 8}, {"ｱｲ", 1, 3, 3},  {"", 3, 3, 3},
  };
  for (const TOffsetRow& row : rows) {
    EXPECT_EQ(JisPosToUtf8PosR(row.text, row.position, DISK), row.disk) << row.text << row.position;
    EXPECT_EQ(JisPosToUtf8PosR(row.text, row.position, DOS), row.dos) << row.text << row.position;
  }
}

TEST(JisPosition, FromTheEndOfBytesThatAreNoText) {
  // Half a character at the end is its own; in front of others it takes three bytes again.
  EXPECT_EQ(JisPosToUtf8PosR("A\xE3", 1, DOS), 3);
  EXPECT_EQ(JisPosToUtf8PosR("\x80\x80", 1, DOS), 3);
  EXPECT_EQ(JisPosToUtf8PosR("\xFF\xFF\xFF\xFF\xFF", 4, DOS), 6);
}

TEST(JisPosition, LengthsOfParts) {
  EXPECT_EQ(JisLenToUtf8Len("ABCDE", 1, 3, DOS_BYTES), 3);
  EXPECT_EQ(JisLenToUtf8Len("あいう", 2, 2, DOS_BYTES), 3);
  EXPECT_EQ(JisLenToUtf8Len("あいう", 0, 3, DOS_BYTES), 6);
  EXPECT_EQ(JisLenToUtf8Len("あいう", 0, 2, DISK_BYTES), 0);
  EXPECT_EQ(JisLenToUtf8Len("あいう", 4, 4, DISK_BYTES), 3);
  // The clamp is the length of the whole text, not of what is left of it.
  EXPECT_EQ(JisLenToUtf8Len("ABCDE", 1, 255, DOS_BYTES), 5);
  EXPECT_EQ(JisLenToUtf8Len("ABCDE", 99, 3, DOS_BYTES), 3);
  EXPECT_EQ(JisLenToUtf8Len("", 0, 3, DOS_BYTES), 0);
}

TEST(JisPosition, LengthsOfPartsInCharacters) {
  EXPECT_EQ(JisLenToUtf8Len("あいう", 1, 1, DOS_CHARS), 3);
  // One more where a kanji begins, for its shift.
  EXPECT_EQ(JisLenToUtf8Len("あいう", 0, 1, DISK_CHARS), 3);
  EXPECT_EQ(JisLenToUtf8Len("Aあ", 0, 1, DISK_CHARS), 1);
  EXPECT_EQ(JisLenToUtf8Len("Aあ", 1, 1, DISK_CHARS), 3);
  EXPECT_EQ(JisLenToUtf8Len("ｱあ", 0, 1, DISK_CHARS), 3);
}

TEST(JisPosition, EndsOnAnyBytes) {
  // Lead bytes at the end, bytes that lead nothing, far positions: no read outside, no endless
  // walk.
  for (int first = 0x80; first < 0x100; ++first) {
    std::string text = "A" + std::string(1, static_cast<char>(first));
    for (TJisCount count : {DISK_BYTES, DISK_CHARS, DOS_BYTES, DOS_CHARS}) {
      EXPECT_GE(length_of(text, count), 2) << first;
      EXPECT_GE(JisPosToUtf8PosKernel(text, 1'000'000'000, count), 999'999'000) << first;
      EXPECT_LE(JisLenToUtf8Len(text, 0, 255, count), 2) << first;
    }
  }
}

}  // namespace
}  // namespace zoka
