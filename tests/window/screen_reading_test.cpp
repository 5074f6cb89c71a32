// The screen's text as its readers walk it.
#include "run/window/screen_reading.h"

#include <gtest/gtest.h>

#include <cstring>

namespace zoka {
namespace {

constexpr int32_t COLS = 6;

/// A screen of rows of six cells; `=` is an empty cell, `<` the right half of a wide character.
TTxtSnapshot screen_of(const std::vector<std::vector<const char*>>& rows, int32_t cursor) {
  TTxtSnapshot screen{COLS, static_cast<int32_t>(rows.size()), cursor, true, {}, {}};
  for (const auto& row : rows) {
    for (const char* text : row) {
      TTxtCell cell{};
      if (*text == '=') {
        cell.text[0] = TTxtCell::EMPTY;
      } else if (*text == '<') {
        cell.text[0] = TTxtCell::RIGHT_HALF;
      } else {
        std::strncpy(cell.text, text, sizeof cell.text - 1);
      }
      screen.cells.push_back(cell);
    }
  }
  return screen;
}

TTxtSnapshot some_screen(int32_t cursor) {
  return screen_of({{"A", "漢", "<", "=", "B", "="},
                    {"=", "=", "=", "=", "=", "="},
                    {"a", "b", "c", "d", "e", "f"},
                    {"𠮷", "<", "\xFF", " ", "=", "="}},
                   cursor);
}

TEST(ScreenReading, RowsEndBehindTheirLastCharacter) {
  const TScreenReading reading(some_screen(0));
  EXPECT_EQ(reading.Text(), QString("A漢 B\n\nabcdef\n𠮷\uFFFD \n"));
}

TEST(ScreenReading, EachCharacterHasItsCells) {
  const TScreenReading reading(some_screen(0));
  const TReadPlace expected[] = {
      {0, 1},  {1, 2},  {3, 1},  {4, 1},  {5, 1},   // A, the kanji, a blank, B, and the line feed
      {6, 1},                                       // the empty row's
      {12, 1}, {13, 1}, {14, 1}, {15, 1}, {16, 1},  // a to e
      {17, 1}, {18, 1},                             // f, and a line feed behind a full row
      {18, 2}, {18, 2}, {20, 1}, {21, 1}, {22, 1},  // both surrogates, the broken byte, the blank
  };
  int offset = 0;
  for (const TReadPlace& place : expected) {
    EXPECT_EQ(reading.PlaceOf(offset), place) << offset;
    ++offset;
  }
  EXPECT_EQ(offset, reading.Text().size());
  EXPECT_EQ(reading.PlaceOf(-1), expected[0]);
  EXPECT_EQ(reading.PlaceOf(1000), expected[offset - 1]);
}

TEST(ScreenReading, EachCellHasItsCharacter) {
  const TScreenReading reading(some_screen(0));
  const int expected[] = {0, 1, 1, 2, 3,  4,  5,  5,  5,  5,  5,  5,
                          6, 7, 8, 9, 10, 11, 13, 13, 15, 16, 17, 17};
  int32_t cell = 0;
  for (const int offset : expected) {
    EXPECT_EQ(reading.OffsetOf(cell), offset) << cell;
    ++cell;
  }
  EXPECT_EQ(reading.OffsetOf(-80), 0);
  EXPECT_EQ(reading.OffsetOf(1000), 17);
}

TEST(ScreenReading, TheCursorStandsAtACharacter) {
  EXPECT_EQ(TScreenReading(some_screen(4)).Cursor(), 3);    // on the B, behind a kanji
  EXPECT_EQ(TScreenReading(some_screen(11)).Cursor(), 5);   // far behind the row's text
  EXPECT_EQ(TScreenReading(some_screen(-6)).Cursor(), 0);   // above the screen
  EXPECT_EQ(TScreenReading(some_screen(24)).Cursor(), 17);  // below it
}

TEST(ScreenReading, OfNothingIsEmpty) {
  const TScreenReading reading;
  EXPECT_EQ(reading.Text(), "");
  EXPECT_EQ(reading.PlaceOf(3), TReadPlace{});
  EXPECT_EQ(reading.OffsetOf(3), 0);
}

TEST(TextChange, IsTheSmallestOne) {
  struct TRow {
    const char* before;
    const char* after;
    int start;
    const char* removed;
    const char* added;
  };
  const TRow rows[] = {
      {"", "", 0, "", ""},
      {"abc", "abc", 3, "", ""},
      {"", "abc", 0, "", "abc"},
      {"abc", "", 0, "abc", ""},
      {"ac", "abc", 1, "", "b"},
      {"abc", "ac", 1, "b", ""},
      {"abc", "axc", 1, "b", "x"},
      {"aa", "aaa", 2, "", "a"},
      {"aaa", "aa", 2, "a", ""},
      {"漢字", "感字", 0, "漢", "感"},
      // These begin with the same surrogate, and these end with the same one.
      {"x𠮷y", "x𠮸y", 1, "𠮷", "𠮸"},
      {"𠀀", "𡀀", 0, "𠀀", "𡀀"},
  };
  for (const TRow& row : rows) {
    const TTextChange change = text_change(row.before, row.after);
    EXPECT_EQ(change.start, row.start) << row.before << " to " << row.after;
    EXPECT_EQ(change.removed, row.removed) << row.before << " to " << row.after;
    EXPECT_EQ(change.added, row.added) << row.before << " to " << row.after;
  }
}

}  // namespace
}  // namespace zoka
