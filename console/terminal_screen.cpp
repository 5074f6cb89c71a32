// Rows of the text screen as ECMA-48 sequences.
#include "console/terminal_screen.h"

#include <algorithm>
#include <cstring>

#include "common/text/utf8.h"

namespace zoka {
namespace {

/// Foreground codes of the text colours: black, blue, red, magenta, green, cyan, yellow, white.
constexpr const char* COLOR_CODES[] = {"90", "94", "91", "95", "92", "96", "93", "97"};
constexpr size_t COLORS = std::size(COLOR_CODES);
constexpr const char CLEAR_SCREEN[] = "\x1b[0m\x1b[2J";
constexpr const char CLEAR_TO_ROW_END[] = "\x1b[0m\x1b[K";
constexpr const char SHOW_CURSOR[] = "\x1b[?25h";
constexpr const char HIDE_CURSOR[] = "\x1b[?25l";

std::string move_to(int32_t row, int32_t column) {
  return "\x1b[" + std::to_string(row + 1) + ";" + std::to_string(column + 1) + "H";
}

/// What a cell shows: a blank for an empty one and for bytes that are no character.
std::string cell_text(const TTxtCell& cell) {
  if (cell.IsEmpty()) return " ";
  size_t length = std::strlen(cell.text);
  bool isControl = length == 1 && (cell.text[0] < ' ' || cell.text[0] == 0x7F);
  return length == 0 || isControl || !is_utf8({cell.text, length}) ? " " : cell.text;
}

size_t cell_index(const TTxtSnapshot& screen, int32_t row, int32_t column) {
  return static_cast<size_t>(row) * static_cast<size_t>(screen.cols) + static_cast<size_t>(column);
}

}  // namespace

void TTerminalScreen::SetSize(int32_t rows, int32_t columns) {
  if (rows != mRows || columns != mColumns) mKnown = false;
  mRows = rows;
  mColumns = columns;
}

bool TTerminalScreen::RowChanged(const TTxtSnapshot& now, int32_t row) const {
  if (!mKnown) return true;
  const size_t begin = cell_index(now, row, 0);
  auto count = static_cast<size_t>(now.cols);
  return std::memcmp(&now.cells[begin], &mShown.cells[begin], count * sizeof(TTxtCell)) != 0 ||
         std::memcmp(&now.attrs[begin], &mShown.attrs[begin], count) != 0;
}

std::string TTerminalScreen::RowBytes(const TTxtSnapshot& now, int32_t row) const {
  std::string bytes = move_to(row, 0);
  int32_t color = -1;
  int32_t width = std::min(now.cols, mColumns);
  auto cell = [&](int32_t column) -> const TTxtCell& {
    return now.cells[cell_index(now, row, column)];
  };
  while (width > 0 && cell(width - 1).IsEmpty()) --width;
  for (int32_t column = 0; column < width; ++column) {
    if (cell(column).IsRightHalf()) continue;
    int32_t wanted = now.attrs[cell_index(now, row, column)] & 7;
    if (wanted != color) {
      bytes += std::string("\x1b[") + COLOR_CODES[static_cast<size_t>(wanted) % COLORS] + "m";
      color = wanted;
    }
    bytes += cell_text(cell(column));
  }
  return bytes + CLEAR_TO_ROW_END;
}

std::string TTerminalScreen::Update(const TTxtSnapshot& now) {
  if (mKnown && (now.cols != mShown.cols || now.rows != mShown.rows)) mKnown = false;
  std::string bytes;
  if (!mKnown) bytes = CLEAR_SCREEN;
  for (int32_t row = 0; row < std::min(now.rows, mRows); ++row) {
    if (RowChanged(now, row)) bytes += RowBytes(now, row);
  }
  bool cursorMoved =
      !mKnown || now.cursorPos != mShown.cursorPos || now.cursorShown != mShown.cursorShown;
  if (!bytes.empty() || cursorMoved) {
    bytes = HIDE_CURSOR + bytes;
    if (now.cursorShown && now.cursorPos >= 0) {
      bytes += move_to(now.cursorPos / now.cols, now.cursorPos % now.cols) + SHOW_CURSOR;
    }
  }
  mShown = now;
  mKnown = true;
  return bytes;
}

std::string TTerminalScreen::Leave() const {
  int32_t last = std::min(mShown.rows, mRows) - 1;
  auto isEmpty = [&](int32_t row) {
    auto begin = mShown.cells.begin() + row * mShown.cols;
    return std::all_of(begin, begin + mShown.cols, [](const TTxtCell& c) { return c.IsEmpty(); });
  };
  if (!mKnown) return SHOW_CURSOR;
  while (last > 0 && isEmpty(last)) --last;
  return std::string("\x1b[0m") + move_to(last, 0) + "\r\n" + SHOW_CURSOR;
}

}  // namespace zoka
