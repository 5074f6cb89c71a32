// Painting: graphics first, text over it, the cursor on top.
#include "run/screen/compose.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

#include "common/text/utf8.h"

namespace zoka {

namespace {

constexpr uint32_t OPAQUE = 0xFF000000;
/// Width of a glyph's cell before 40 columns double it.
constexpr int32_t GLYPH_CELL_WIDTH = 8;

void fill_frame(TFrameBuffer& target, const TRect& r, uint32_t pixel) {
  if (!r.IsValid()) return;
  for (int32_t y = r.top; y <= r.bottom; ++y) {
    std::fill(target.Row(y) + r.left, target.Row(y) + r.right + 1, pixel);
  }
}

/// A part of the frame with each of the page's rows `scale` times.
void copy_page(TFrameBuffer& target, const TRect& r, const TGrphPage& page, int32_t scale) {
  if (page.IsPristine()) return fill_frame(target, r, OPAQUE);
  for (int32_t y = r.top; y <= r.bottom; ++y) {
    const uint32_t* source = page.RealRow(y / scale);
    uint32_t* row = target.Row(y);
    for (int32_t x = r.left; x <= r.right; ++x) row[x] = source[x] | OPAQUE;
  }
}

/// A row of a glyph, one frame pixel a bit. `bits` holds only bits that lie inside.
void put_bits(uint32_t* target, uint32_t bits, uint32_t pixel) {
  while (bits) {
    const int column = std::countl_zero(bits);
    target[column] = pixel;
    bits &= ~(0x80000000u >> column);
  }
}

/// The same with each pixel twice; the halves are cut one by one.
void put_wide_bits(uint32_t* row, int32_t x, uint32_t bits, uint32_t pixel, const TRect& inside) {
  while (bits) {
    const int column = std::countl_zero(bits);
    for (int32_t at = x + 2 * column; at < x + 2 * column + 2; ++at) {
      if (at >= inside.left && at <= inside.right) row[at] = pixel;
    }
    bits &= ~(0x80000000u >> column);
  }
}

/// The bits of glyph columns `first` to `last`.
uint32_t column_mask(int32_t first, int32_t last) {
  return (UINT32_MAX >> first) & (UINT32_MAX << (31 - last));
}

}  // namespace

uint32_t* TFrameBuffer::Row(int32_t y) {
  if (!mPixels) {
    const size_t count = static_cast<size_t>(SCREEN_WIDTH) * SCREEN_HEIGHT;
    mPixels = std::make_unique<uint32_t[]>(count);
    std::fill_n(mPixels.get(), count, OPAQUE);
  }
  return mPixels.get() + static_cast<ptrdiff_t>(y) * SCREEN_WIDTH;
}

TRect TScreenPainter::DrawBasic(TFrameBuffer& target, bool isView) {
  TLock lock(mRsrc.mMutex);
  if (mRsrc.cursorShown) MarkCursor();
  // Taken before the painting: what changes from now on belongs to the next.
  const TRect r = intersection_of(std::exchange(mRsrc.modifiedRect, TRect{}), WHOLE_PAGE);
  if (!r.IsValid()) return TRect{};
  PaintGraphics(target, r);
  PaintText(target, r);
  if (isView && mRsrc.cursorShown && mRsrc.cursorBlink) PaintCursor(target, r);
  return r;
}

void TScreenPainter::DrawComposition(TFrameBuffer& target) {
  TLock lock(mRsrc.mMutex);
  PaintGraphics(target, WHOLE_PAGE);
  PaintText(target, WHOLE_PAGE);
}

void TScreenPainter::DrawGrphPage(TFrameBuffer& target, int32_t page) {
  TLock lock(mRsrc.mMutex);
  const int32_t which = page < 0 ? mRsrc.displayPage : page;
  if (which >= PAGE_COUNT) return fill_frame(target, WHOLE_PAGE, OPAQUE);
  copy_page(target, WHOLE_PAGE, mRsrc.grphBitmap[static_cast<size_t>(which)], 1);
}

void TScreenPainter::MarkCursor() {
  const int32_t cell = mRsrc.cursorPos;
  if (!mRsrc.IsOnScreen(cell)) return;
  const bool isRightHalf = mRsrc.txtCell[static_cast<size_t>(cell)].IsRightHalf();
  mRsrc.MarkTxt(isRightHalf ? cell - 1 : cell, cell);
}

void TScreenPainter::PaintGraphics(TFrameBuffer& target, const TRect& r) const {
  const bool isShown = mRsrc.grphVisible && mRsrc.displayPage != NO_PAGE;
  if (!isShown) return fill_frame(target, r, OPAQUE);
  const TGrphPage& page = mRsrc.grphBitmap[static_cast<size_t>(mRsrc.displayPage)];
  copy_page(target, r, page, mRsrc.grphYScale);
}

void TScreenPainter::PaintText(TFrameBuffer& target, const TRect& r) {
  // The cells fill the picture to its last pixel.
  const int32_t lastRow = r.bottom / mRsrc.cellHeight;
  const int32_t lastCol = r.right / mRsrc.cellWidth;
  // A wide character may reach in from the cell before.
  const int32_t firstCol = std::max(r.left / mRsrc.cellWidth - 1, 0);
  for (int32_t row = r.top / mRsrc.cellHeight; row <= lastRow; ++row) {
    for (int32_t col = firstCol; col <= lastCol; ++col) PaintCell(target, r, row, col);
  }
}

void TScreenPainter::PaintCell(TFrameBuffer& target, const TRect& r, int32_t row, int32_t col) {
  const auto at =
      static_cast<size_t>(row) * static_cast<size_t>(mRsrc.txtCols) + static_cast<size_t>(col);
  const TTxtCell& cell = mRsrc.txtCell[at];
  if (cell.IsEmpty() || cell.IsRightHalf()) return;
  mRsrc.LoadFont();
  const TGlyph& glyph = mRsrc.glyphs.Glyph(cell.text);
  const int32_t glyphWidth = GLYPH_CELL_WIDTH * (is_kanji(cell.text) ? 2 : 1);
  const int32_t scale = mRsrc.cellWidth / GLYPH_CELL_WIDTH;
  const int32_t x = col * mRsrc.cellWidth;
  const int32_t y = row * mRsrc.cellHeight;
  const TRect inside =
      intersection_of(r, {x, y, x + glyphWidth * scale - 1, y + mRsrc.cellHeight - 1});
  if (!inside.IsValid()) return;
  const TRgb& color = mRsrc.txtPal[static_cast<size_t>(mRsrc.txtAttr[at] & 7)];
  const uint32_t pixel = pixel_of(color) | OPAQUE;
  const int32_t baseline = y + static_cast<int32_t>(std::floor(mRsrc.txtBaseline + 0.5f));
  for (int32_t line = inside.top; line <= inside.bottom; ++line) {
    const uint32_t bits = glyph.Bits(line - baseline);
    if (scale == 1) {
      put_bits(target.Row(line) + x, bits & column_mask(inside.left - x, inside.right - x), pixel);
    } else {
      put_wide_bits(target.Row(line), x, bits, pixel, inside);
    }
  }
}

void TScreenPainter::PaintCursor(TFrameBuffer& target, const TRect& r) const {
  if (!mRsrc.IsOnScreen(mRsrc.cursorPos)) return;
  const size_t at = static_cast<size_t>(mRsrc.cursorPos);
  const TTxtCell& cell = mRsrc.txtCell[at];
  const bool hasOwnColor = !cell.IsEmpty() && !cell.IsRightHalf();
  const int8_t color = hasOwnColor ? mRsrc.txtAttr[at] : mRsrc.txtColor;
  const int32_t x = mRsrc.cursorPos % mRsrc.txtCols * mRsrc.cellWidth;
  const int32_t y = mRsrc.cursorPos / mRsrc.txtCols * mRsrc.cellHeight;
  const TRect block{x, y, x + mRsrc.cellWidth - 1, y + mRsrc.cellHeight - 1};
  fill_frame(target, intersection_of(r, block),
             pixel_of(mRsrc.txtPal[static_cast<size_t>(color & 7)]) | OPAQUE);
}

}  // namespace zoka
