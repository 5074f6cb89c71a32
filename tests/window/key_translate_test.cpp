// Keys of the host as the simulated machine gets them.
#include "run/window/key_translate.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

TEST(KeyTranslate, KeysWithBytesOfTheirOwn) {
  struct TRow {
    int key;
    const char* bytes;
    int32_t number;
  };
  const TRow rows[] = {
      {Qt::Key_Home, "\x01", 0},    {Qt::Key_End, "\x04", 0},    {Qt::Key_Insert, "\x05", 0},
      {Qt::Key_Backspace, "\b", 0}, {Qt::Key_Tab, "\t", 0},      {Qt::Key_Return, "\n", 0},
      {Qt::Key_Enter, "\n", 0},     {Qt::Key_PageUp, "\x0B", 0}, {Qt::Key_PageDown, "\x0C", 0},
      {Qt::Key_Escape, "\x1B", 0},  {Qt::Key_Left, "\x1C", 0},   {Qt::Key_Right, "\x1D", 0},
      {Qt::Key_Up, "\x1E", 0},      {Qt::Key_Down, "\x1F", 0},   {Qt::Key_Delete, "\x7F", 0},
      {Qt::Key_F1, "\x10", 2},      {Qt::Key_F10, "\x10", 11},   {Qt::Key_F12, "\x10", 13},
  };
  for (const TRow& row : rows) {
    const std::vector<TKeyPress> expected{{row.bytes, row.number, false}};
    // The text that the toolkit gives does not matter.
    EXPECT_EQ(translate_key(row.key, {}, "x"), expected) << row.key;
  }
}

TEST(KeyTranslate, OtherKeysTypeTheirText) {
  EXPECT_EQ(translate_key(Qt::Key_A, {}, "a"), (std::vector<TKeyPress>{{"a", 0, false}}));
  EXPECT_EQ(translate_key(Qt::Key_A, Qt::ShiftModifier, "A"),
            (std::vector<TKeyPress>{{"A", 0, false}}));
  EXPECT_EQ(translate_key(Qt::Key_yen, {}, "¥"), (std::vector<TKeyPress>{{"¥", 0, false}}));
  EXPECT_TRUE(translate_key(Qt::Key_Shift, {}, "").empty());
  EXPECT_TRUE(translate_key(Qt::Key_F13, {}, "").empty());
}

TEST(KeyTranslate, WithCtrlTheByteIsThePlainKey) {
  const auto with = [](int key, Qt::KeyboardModifiers more, const char* text) {
    return translate_key(key, Qt::ControlModifier | more, text);
  };
  EXPECT_EQ(with(Qt::Key_C, {}, "\x03"), (std::vector<TKeyPress>{{"c", 0, true}}));
  EXPECT_EQ(with(Qt::Key_C, Qt::ShiftModifier, "\x03"), (std::vector<TKeyPress>{{"C", 0, true}}));
  EXPECT_EQ(with(Qt::Key_1, {}, "1"), (std::vector<TKeyPress>{{"1", 0, true}}));
  EXPECT_EQ(with(Qt::Key_Exclam, Qt::ShiftModifier, "!"), (std::vector<TKeyPress>{{"!", 0, true}}));
  EXPECT_EQ(with(Qt::Key_Left, {}, ""), (std::vector<TKeyPress>{{"\x1C", 0, true}}));
  EXPECT_EQ(with(Qt::Key_F2, {}, ""), (std::vector<TKeyPress>{{"\x10", 3, true}}));
  EXPECT_TRUE(with(Qt::Key_Control, {}, "").empty());
  EXPECT_TRUE(with(Qt::Key_Hiragana, {}, "").empty());
}

TEST(KeyTranslate, ATextIsAKeyPressACharacter) {
  EXPECT_EQ(translate_text("漢a𠮷"),
            (std::vector<TKeyPress>{{"漢", 0, false}, {"a", 0, false}, {"𠮷", 0, false}}));
}

TEST(KeyTranslate, EveryKeyOfTheMatrixHasItsKernelCode) {
  struct TRow {
    uint8_t code;
    uint32_t kernelCode;
  };
  const TRow rows[] = {
      {0x01, 1},   {0x02, 59},  {0x0B, 68},  {0x0C, 87}, {0x0D, 88},  {0x0E, 99},  {0x12, 2},
      {0x1B, 11},  {0x1C, 12},  {0x1D, 13},  {0x1E, 14}, {0x1F, 110}, {0x20, 102}, {0x21, 104},
      {0x23, 98},  {0x24, 55},  {0x25, 74},  {0x26, 15}, {0x27, 16},  {0x32, 27},  {0x33, 43},
      {0x34, 111}, {0x35, 107}, {0x36, 109}, {0x37, 71}, {0x39, 73},  {0x3A, 78},  {0x3C, 30},
      {0x46, 40},  {0x47, 28},  {0x48, 75},  {0x4A, 77}, {0x4B, 42},  {0x4C, 44},  {0x55, 53},
      {0x57, 103}, {0x58, 79},  {0x5A, 81},  {0x5B, 96}, {0x5C, 29},  {0x5D, 56},  {0x5E, 57},
      {0x61, 105}, {0x62, 108}, {0x63, 106}, {0x64, 82}, {0x65, 83},  {0x6A, 124}, {0x6D, 92},
      {0x6E, 93},
  };
  for (const TRow& row : rows) {
    EXPECT_EQ(matrix_code(row.kernelCode + 8), row.code) << int{row.code};
  }
  // Caps Lock, the right Shift, no number at all, and one beyond the keyboard.
  for (uint32_t none : {58u + 8, 54u + 8, 0u, 7u, 8u, 135u, 136u, 100'000u}) {
    EXPECT_EQ(matrix_code(none), std::nullopt) << none;
  }
}

}  // namespace
}  // namespace zoka
