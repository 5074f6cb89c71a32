// TBasicRsrc, the text screen: printing, scrolling, the line editor's help, reading back.
#include <algorithm>
#include <cstring>
#include <functional>

#include "common/text/utf8.h"
#include "run/screen/basic_rsrc.h"

namespace zoka {

namespace {

constexpr char CODE_CR = 0x0D;
constexpr char CODE_LEFT = 0x1D;
constexpr char CODE_UP = 0x1E;
constexpr char CODE_DOWN = 0x1F;

/// The row of a cell; cells before the screen have negative rows.
constexpr int64_t floor_div(int64_t a, int64_t b) {
  return a / b - (a % b < 0 ? 1 : 0);
}

bool is_control(std::string_view character) {
  return static_cast<unsigned char>(character[0]) <= 0x1F;
}

/// Columns that a text takes; a control character counts one.
int64_t text_width(std::string_view utf8) {
  int64_t width = 0;
  while (const size_t length = char_length(utf8)) {
    width += is_kanji(utf8) ? 2 : 1;
    utf8.remove_prefix(length);
  }
  return width;
}

/// Where the cursor goes on a control character.
int64_t moved_by_control(char code, int64_t cell, int64_t cols) {
  switch (code) {
    case CODE_CR:
      return (floor_div(cell, cols) + 1) * cols;
    case CODE_LEFT:
      return cell - 1;
    case CODE_UP:
      return cell - cols;
    case CODE_DOWN:
      return cell + cols;
    default:
      return cell + 1;
  }
}

void append_well_formed(std::string* text, std::string_view character) {
  if (is_utf8(character)) {
    text->append(character);
  } else {
    append_utf8(text, 0xFFFD);
  }
}

}  // namespace

// --- Size ---------------------------------------------------------------------------------------

void TBasicRsrc::CalcTxtSize() {
  TLock lock(mMutex);
  CalcTxtSizeKernel();
}

void TBasicRsrc::CalcTxtSizeKernel() {
  cellWidth = static_cast<int8_t>(SCREEN_WIDTH / txtCols);
  cellHeight = static_cast<int8_t>(SCREEN_HEIGHT / txtRows);
  const float used = fontHeight.ascent + fontHeight.descent;
  txtBaseline = (static_cast<float>(cellHeight) - used) * 0.5f + fontHeight.ascent;
}

void TBasicRsrc::SetFontFamilyAndSize(std::string_view family, float size) {
  TLock lock(mMutex);
  glyphs.SetFontFamilyAndSize(family, size);
  MarkKernel({0, 0, SCREEN_WIDTH, SCREEN_HEIGHT});
}

void TBasicRsrc::LoadFont() {
  if (glyphs.IsLoaded()) return;
  fontHeight = glyphs.Height();
  CalcTxtSizeKernel();
}

void TBasicRsrc::SetFontHeight(const TFontHeight& height) {
  TLock lock(mMutex);
  fontHeight = height;
  CalcTxtSizeKernel();
}

void TBasicRsrc::SetTxtSize(int32_t cols, int32_t rows) {
  TLock lock(mMutex);
  txtCols = static_cast<int8_t>(cols);
  txtRows = static_cast<int8_t>(rows);
  CalcTxtSizeKernel();
  consoleTop = 0;
  consoleBottom = txtRows;
  ClearTxtKernel(0, MAX_TXT_ROWS);
}

void TBasicRsrc::SetConsole(int32_t startRow, int32_t rows) {
  TLock lock(mMutex);
  if (startRow >= 0) consoleTop = static_cast<int8_t>(startRow);
  if (rows >= 0) consoleBottom = static_cast<int8_t>(std::min<int32_t>(consoleTop + rows, txtRows));
}

int32_t TBasicRsrc::ConsoleHeight() const {
  // CONSOLE 20 alone may put the top below the bottom.
  return std::max(0, consoleBottom - consoleTop);
}

// --- Printing -----------------------------------------------------------------------------------

void TBasicRsrc::Print(std::string_view utf8) {
  const bool startedInside = IsInConsole(floor_div(cursorPos, txtCols));
  if (startedInside) ScrollForText(utf8);
  TLock lock(mMutex);
  cursorPos = PrintWalk(utf8, startedInside);
}

void TBasicRsrc::ScrollForText(std::string_view utf8) {
  const int64_t lastRow = floor_div(cursorPos + text_width(utf8), txtCols);
  if (lastRow >= consoleBottom) ScrollTxt2(static_cast<int32_t>(lastRow - consoleBottom + 1));
}

int32_t TBasicRsrc::PrintWalk(std::string_view utf8, bool startedInside) {
  int64_t cell = cursorPos;
  // All that the walk came by: control codes may lead back over what was just written.
  int64_t lowest = cell;
  int64_t highest = cell;
  while (const size_t length = char_length(utf8)) {
    const std::string_view character = utf8.substr(0, length);
    const bool hidden = floor_div(cell, txtCols) < consoleTop && (startedInside || cell < 0);
    if (is_control(character)) {
      cell = moved_by_control(character[0], cell, txtCols);
    } else {
      const bool isWide = is_kanji(character);
      if (!hidden) WriteChar(cell, character, isWide);
      cell += isWide ? 2 : 1;
    }
    lowest = std::min(lowest, cell);
    highest = std::max(highest, cell);
    // The last row is used over and over: nothing but the width measured beforehand scrolls.
    if (cell >= CellCount()) cell -= txtCols;
    lowest = std::min(lowest, cell);
    utf8.remove_prefix(length);
  }
  MarkTxt(lowest, highest);
  // A gigabyte of "up" codes would leave the range of the cursor.
  return static_cast<int32_t>(std::max<int64_t>(cell, INT32_MIN / 2));
}

void TBasicRsrc::WriteChar(int64_t cell, std::string_view character, bool isWide) {
  if (!IsOnScreen(cell)) return;
  const size_t at = static_cast<size_t>(cell);
  std::memcpy(txtCell[at].text, character.data(), character.size());
  txtCell[at].text[character.size()] = '\0';
  txtAttr[at] = txtColor;
  // At the end of a row the second half falls into the next row; at the end of the screen it is
  // lost.
  if (isWide && IsOnScreen(cell + 1)) txtCell[at + 1].text[0] = TTxtCell::RIGHT_HALF;
}

void TBasicRsrc::DoCRLF() {
  const int32_t row = static_cast<int32_t>(floor_div(cursorPos, txtCols));
  SetCursorPos((row + 1) * txtCols);
  if (cursorPos == consoleBottom * txtCols) ScrollTxt2(1);
  if (cursorPos >= CellCount()) SetCursorPos(cursorPos - txtCols);
}

void TBasicRsrc::SetCursorPos(int32_t pos) {
  TLock lock(mMutex);
  cursorPos = pos;
}

// --- Moving text --------------------------------------------------------------------------------

void TBasicRsrc::ScrollTxt2(int32_t rows) {
  const int32_t height = ConsoleHeight();
  TranscriptRows(std::min(rows, height));
  TLock lock(mMutex);
  const auto cells = txtCell.begin();
  const auto attrs = txtAttr.begin();
  const int32_t top = consoleTop * txtCols;
  const int32_t bottom = top + height * txtCols;
  const int32_t gone = std::min(rows, height) * txtCols;
  std::copy(cells + top + gone, cells + bottom, cells + top);
  std::copy(attrs + top + gone, attrs + bottom, attrs + top);
  // The attributes of the blank rows stay, on purpose: COLOR@ colours places, not texts.
  std::fill(cells + bottom - gone, cells + bottom, EMPTY_CELL);
  cursorPos -= rows * txtCols;
  scrolledRows += rows;
  if (height > 0) MarkTxt(top, bottom - 1);
}

void TBasicRsrc::TranscriptRows(int32_t count) {
  if (!owner) return;
  for (int32_t i = 0; i < count; ++i) owner->TranscriptRow(RowText(consoleTop + i));
}

void TBasicRsrc::SlideTxtToLeft(int32_t pos) {
  TLock lock(mMutex);
  const int32_t from = std::clamp(pos, 1, CellCount());
  const auto cells = txtCell.begin();
  const auto end = std::find_if(cells + from, cells + CellCount(), std::mem_fn(&TTxtCell::IsEmpty));
  *std::copy(cells + from, end, cells + from - 1) = EMPTY_CELL;
  MarkTxt(from - 1, end - cells - 1);
}

void TBasicRsrc::ClearTxtBuf(int32_t fromRow, int32_t toRow) {
  TLock lock(mMutex);
  ClearTxtKernel(fromRow, toRow);
}

void TBasicRsrc::ClearTxtKernel(int32_t fromRow, int32_t toRow) {
  const int32_t from = fromRow * CLEAR_ROW_CELLS;
  const int32_t to = std::min(toRow * CLEAR_ROW_CELLS, MAX_TXT_CELLS);
  cursorPos = from;
  if (from >= to) return;
  std::fill(txtCell.begin() + from, txtCell.begin() + to, EMPTY_CELL);
  MarkTxt(from, to - 1);
}

// --- Cursor and colours -------------------------------------------------------------------------

void TBasicRsrc::SetCursorShown(bool shown) {
  TLock lock(mMutex);
  cursorShown = shown;
  if (IsOnScreen(cursorPos)) MarkTxt(cursorPos, cursorPos);
}

bool TBasicRsrc::FlipCursorBlink() {
  TLock lock(mMutex);
  cursorBlink = !cursorBlink;
  return cursorShown;
}

void TBasicRsrc::SetTxtColor(int8_t color) {
  TLock lock(mMutex);
  txtColor = color;
}

void TBasicRsrc::SetTxtAttr(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t color) {
  if (x1 > x2 || y1 > y2) return;
  TLock lock(mMutex);
  for (int32_t y = y1; y <= y2; ++y) {
    const auto row = txtAttr.begin() + y * txtCols;
    std::fill(row + x1, row + x2 + 1, static_cast<int8_t>(color & 7));
  }
  MarkTxt(y1 * txtCols, (y2 + 1) * txtCols - 1);
}

void TBasicRsrc::SetCellAttr(int32_t cell, int8_t color) {
  TLock lock(mMutex);
  if (!IsOnScreen(cell)) return;
  txtAttr[static_cast<size_t>(cell)] = color;
  MarkTxt(cell, cell);
}

// --- Reading back -------------------------------------------------------------------------------

std::string TBasicRsrc::DisplayedTxt(int32_t from, int32_t to) const {
  std::string text;
  const int32_t last = std::min(to, CellCount() - 1);
  for (int32_t i = std::max(from, 0); i <= last; ++i) {
    const TTxtCell& cell = txtCell[static_cast<size_t>(i)];
    if (cell.IsEmpty()) {
      text += ' ';
    } else if (!cell.IsRightHalf()) {
      text += cell.text;
    }
  }
  return text;
}

void TBasicRsrc::AppendCells(int32_t from, int32_t to, std::string* text) const {
  for (int32_t i = from; i < to; ++i) {
    const TTxtCell& cell = txtCell[static_cast<size_t>(i)];
    if (cell.IsEmpty()) {
      text->push_back(' ');
    } else if (!cell.IsRightHalf()) {
      append_well_formed(text, cell.text);
    }
  }
}

std::string TBasicRsrc::ScreenText() const {
  TLock lock(mMutex);
  std::string text;
  for (int32_t row = 0; row < txtRows; ++row) {
    int32_t end = (row + 1) * txtCols;
    while (end > row * txtCols && txtCell[static_cast<size_t>(end - 1)].IsEmpty()) --end;
    AppendCells(row * txtCols, end, &text);
    text += '\n';
  }
  return text;
}

TTxtSnapshot TBasicRsrc::TxtSnapshot() const {
  TLock lock(mMutex);
  TTxtSnapshot copy{txtCols, txtRows, cursorPos, cursorShown, {}, {}};
  copy.cells.assign(txtCell.begin(), txtCell.begin() + CellCount());
  copy.attrs.assign(txtAttr.begin(), txtAttr.begin() + CellCount());
  return copy;
}

std::string TBasicRsrc::RowText(int32_t row) const {
  TLock lock(mMutex);
  if (row < 0 || row >= txtRows) return {};
  std::string text;
  AppendCells(row * txtCols, (row + 1) * txtCols, &text);
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

}  // namespace zoka
