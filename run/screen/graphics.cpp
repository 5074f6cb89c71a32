// TGraphics: from a statement's operands to the rasters.
#include "run/screen/graphics.h"

#include <cmath>

namespace zoka {

namespace {

constexpr int32_t KANJI_SIZE = 16;

TEllipse ellipse_of(const TPoint& center, const TPoint& radius) {
  return {static_cast<double>(center.x), static_cast<double>(center.y),
          static_cast<double>(radius.x), static_cast<double>(radius.y)};
}

/// The rectangle round an ellipse.
TRect bounds_of(const TEllipse& e) {
  return rect_of({pixel_coord(e.cx - e.rx), pixel_coord(e.cy - e.ry)},
                 {pixel_coord(e.cx + e.rx), pixel_coord(e.cy + e.ry)});
}

double whole_degrees(float degrees) {
  return std::floor(static_cast<double>(degrees) + 0.5);
}

bool has_fill(int32_t fill) {
  return fill != NO_FILL;
}

}  // namespace

TGrphPage& TGraphics::ActivePage() {
  return mRsrc.grphBitmap[static_cast<size_t>(mRsrc.activePage)];
}

void TGraphics::Done(const TRect& touched, const TPoint& newLastPoint) {
  mRsrc.lastPoint = newLastPoint;
  mRsrc.MarkGrph(touched);
}

// --- Lines --------------------------------------------------------------------------------------

void TGraphics::Pset(const TPoint& p, int8_t color) {
  Line(p, p, color);
}

void TGraphics::Line(const TPoint& p1, const TPoint& p2, int8_t color) {
  TLock lock(mRsrc.mMutex);
  const TPixel from = pixel_at(p1);
  const TPixel to = pixel_at(p2);
  draw_line(ActivePage(), mRsrc.PenOf(color), from, to);
  Done(rect_of(from, to), p2);
}

void TGraphics::StrokeRect(const TPoint& p1, const TPoint& p2, int8_t color) {
  TLock lock(mRsrc.mMutex);
  const TRect r = rect_of(pixel_at(p1), pixel_at(p2));
  stroke_rect(ActivePage(), mRsrc.PenOf(color), r);
  Done(r, p2);
}

void TGraphics::FillRect(const TPoint& p1, const TPoint& p2, int8_t color, int32_t fill) {
  TLock lock(mRsrc.mMutex);
  const TRect r = rect_of(pixel_at(p1), pixel_at(p2));
  const int8_t inside = has_fill(fill) ? static_cast<int8_t>(fill) : color;
  fill_rect(ActivePage(), mRsrc.PenOf(inside), r);
  if (has_fill(fill)) stroke_rect(ActivePage(), mRsrc.PenOf(color), r);
  Done(r, p2);
}

// --- Circles ------------------------------------------------------------------------------------

void TGraphics::StrokeEllipse(const TPoint& center, const TPoint& radius, int8_t color) {
  TLock lock(mRsrc.mMutex);
  const TEllipse ellipse = ellipse_of(center, radius);
  stroke_ellipse(ActivePage(), mRsrc.PenOf(color), ellipse);
  Done(bounds_of(ellipse), center);
}

void TGraphics::FillEllipse(const TPoint& center, const TPoint& radius, int8_t color,
                            int32_t fill) {
  TLock lock(mRsrc.mMutex);
  const TEllipse ellipse = ellipse_of(center, radius);
  const int8_t inside = has_fill(fill) ? static_cast<int8_t>(fill) : color;
  fill_ellipse(ActivePage(), mRsrc.PenOf(inside), ellipse);
  if (has_fill(fill)) stroke_ellipse(ActivePage(), mRsrc.PenOf(color), ellipse);
  Done(bounds_of(ellipse), center);
}

void TGraphics::StrokeArc(const TPoint& center, const TPoint& radius, int8_t color,
                          const TArcOperands& arc) {
  TLock lock(mRsrc.mMutex);
  const TEllipse ellipse = ellipse_of(center, radius);
  const TSector sector{whole_degrees(arc.start), whole_degrees(arc.span)};
  const TPen pen = mRsrc.PenOf(color);
  stroke_arc(ActivePage(), pen, ellipse, sector);
  const bool isDrawn = ellipse.rx >= 0 && ellipse.ry >= 0;
  if (isDrawn && arc.startRadius) {
    draw_line(ActivePage(), pen, pixel_at(center), ellipse_point(ellipse, sector.start));
  }
  if (isDrawn && arc.endRadius) {
    const double end = sector.start + sector.span;
    draw_line(ActivePage(), pen, pixel_at(center), ellipse_point(ellipse, end));
  }
  Done(bounds_of(ellipse), center);
}

void TGraphics::FillArc(const TPoint& center, const TPoint& radius, int8_t color,
                        const TArcOperands& arc, int32_t fill) {
  TLock lock(mRsrc.mMutex);
  const TEllipse ellipse = ellipse_of(center, radius);
  const TSector sector{static_cast<double>(arc.start), static_cast<double>(arc.span)};
  const int8_t inside = has_fill(fill) ? static_cast<int8_t>(fill) : color;
  fill_arc(ActivePage(), mRsrc.PenOf(inside), ellipse, sector);
  if (has_fill(fill)) stroke_arc(ActivePage(), mRsrc.PenOf(color), ellipse, sector);
  Done(bounds_of(ellipse), center);
}

// --- Areas --------------------------------------------------------------------------------------

void TGraphics::Paint(const TPoint& p, int8_t color, int8_t border) {
  TLock lock(mRsrc.mMutex);
  const TPixel start = pixel_at(p);
  const TRect box = mRsrc.mFloodFill.Fill(ActivePage(), mRsrc.PenOf(color),
                                          static_cast<uint8_t>(border), start.x, start.y);
  Done(box, p);
}

TGrphBlock TGraphics::GetBlock(const TPoint& p1, const TPoint& p2) {
  TLock lock(mRsrc.mMutex);
  mRsrc.lastPoint = p2;
  return get_block(ActivePage(), rect_of(pixel_at(p1), pixel_at(p2)));
}

void TGraphics::Put(const TPixel& at, const TGrphBlock& block, TPutMode mode) {
  uint32_t pixels[GRPH_PAL_COLORS];
  for (size_t i = 0; i < mRsrc.grphPal.size(); ++i) pixels[i] = pixel_of(mRsrc.grphPal[i]);
  put_block(ActivePage(), block, at, mode, pixels);
}

void TGraphics::PutBlock(const TPoint& p, const TGrphBlock& block, TPutMode mode) {
  TLock lock(mRsrc.mMutex);
  const TPixel at = pixel_at(p);
  Put(at, block, mode);
  const double right = static_cast<double>(at.x) + static_cast<double>(block.width) - 1;
  const double bottom = static_cast<double>(at.y) + static_cast<double>(block.height) - 1;
  Done({at.x, at.y, pixel_coord(right), pixel_coord(bottom)}, p);
}

void TGraphics::PutKanji(const TPoint& p, std::string_view utf8, TPutMode mode, int8_t fore,
                         int8_t back) {
  TLock lock(mRsrc.mMutex);
  mRsrc.LoadFont();
  const TGlyph& glyph = mRsrc.glyphs.Glyph(utf8);
  const int32_t baseline = static_cast<int32_t>(std::floor(mRsrc.fontHeight.ascent + 0.5f));
  TGrphBlock block{KANJI_SIZE, KANJI_SIZE, 0, 0, KANJI_SIZE, KANJI_SIZE, {}};
  for (int32_t y = 0; y < KANJI_SIZE; ++y) {
    const uint32_t bits = glyph.Bits(y - baseline);
    for (int32_t x = 0; x < KANJI_SIZE; ++x) {
      block.pixels.push_back(static_cast<uint8_t>(bits << x & 0x80000000u ? fore : back));
    }
  }
  const TPixel at = pixel_at(p);
  Put(at, block, mode);
  Done(rect_of(at, {pixel_coord(static_cast<double>(at.x) + KANJI_SIZE),
                    pixel_coord(static_cast<double>(at.y) + KANJI_SIZE)}),
       p);
}

void TGraphics::Roll(int32_t v, int32_t h, int8_t fill) {
  TLock lock(mRsrc.mMutex);
  roll_page(ActivePage(), mRsrc.PenOf(fill), v, h);
  mRsrc.MarkAll();
}

int32_t TGraphics::Point(int32_t x, int32_t y) const {
  if (x < 0 || x >= SCREEN_WIDTH || y < 0 || y >= SCREEN_HEIGHT) return -1;
  return static_cast<int8_t>(mRsrc.GrphBmp(mRsrc.ActivePage()).IndexRow(y)[x]);
}

}  // namespace zoka
