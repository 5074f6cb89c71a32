// Ellipses and arcs.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "run/screen/raster.h"

namespace zoka {

namespace {

/// The pixels of an ellipse's row, both ends inclusive; empty if first > last. Rows are looked at
/// one column and one row beyond the page, so that what lies outside counts as a neighbour.
struct TSpan {
  int32_t first = 0;
  int32_t last = -1;
  bool IsEmpty() const { return first > last; }
};

constexpr int32_t BEFORE_PAGE = -1;
constexpr int32_t BEHIND_PAGE = SCREEN_WIDTH;

/// A radius below half a pixel puts the centre on a pixel, so that the ellipse stays symmetric and
/// does not vanish between two pixels.
TEllipse normalised(TEllipse ellipse) {
  if (ellipse.rx < 0.5) ellipse.cx = std::floor(ellipse.cx + 0.5);
  if (ellipse.ry < 0.5) ellipse.cy = std::floor(ellipse.cy + 0.5);
  return ellipse;
}

bool is_drawable(const TEllipse& ellipse) {
  return ellipse.rx >= 0 && ellipse.ry >= 0;
}

/// Half the width of row y; 0 or not a number if the ellipse does not reach it.
double half_width(const TEllipse& ellipse, int32_t y) {
  const double part = (y - ellipse.cy) / (ellipse.ry + 0.5);
  return (ellipse.rx + 0.5) * std::sqrt(1 - part * part);
}

bool covers(double cx, double half, int32_t x) {
  return std::fabs(x - cx) < half;
}

int32_t column_of(double v) {
  return saturated(v, BEFORE_PAGE, BEHIND_PAGE);
}

/// The span is guessed from the centre, a column too long at either end since sums are rounded, and
/// then cut by the formula itself. (Far outside it may be too long by more than a column; it is
/// never too short, since such a sum that comes near the page is exact.)
TSpan row_span(const TEllipse& ellipse, int32_t y) {
  const double half = half_width(ellipse, y);
  const double cx = ellipse.cx;
  TSpan span{column_of(std::floor(cx - half)), column_of(std::ceil(cx + half))};
  while (!span.IsEmpty() && !covers(cx, half, span.first)) ++span.first;
  while (!span.IsEmpty() && !covers(cx, half, span.last)) --span.last;
  return span;
}

/// The rows of the page that the ellipse may reach: first, and one past the last.
struct TRows {
  int32_t first;
  int32_t end;
};

TRows rows_of(const TEllipse& ellipse) {
  const double first = std::floor(ellipse.cy - ellipse.ry - 0.5);
  const double end = std::floor(ellipse.cy + ellipse.ry + 1.5);
  return {saturated(first, 0, SCREEN_HEIGHT), saturated(end, 0, SCREEN_HEIGHT)};
}

void put_pixel(TGrphPage& page, const TPen& pen, const TPixel& p) {
  fill_rect(page, pen, {p.x, p.y, p.x, p.y});
}

void put_span(TGrphPage& page, const TPen& pen, int32_t y, int32_t first, int32_t last) {
  fill_rect(page, pen, {first, y, last, y});
}

/// The pixels of a row that have all four neighbours: the row without its ends, as far as the rows
/// above and below cover it.
TSpan inner_span(const TSpan& above, const TSpan& row, const TSpan& below) {
  return {std::max({row.first + 1, above.first, below.first}),
          std::min({row.last - 1, above.last, below.last})};
}

/// Calls put(y, first, last) for each run of the outline.
template <typename TPut>
void for_outline(const TEllipse& ellipse, TPut put) {
  const TRows rows = rows_of(ellipse);
  TSpan above = row_span(ellipse, rows.first - 1);
  TSpan row = row_span(ellipse, rows.first);
  for (int32_t y = rows.first; y < rows.end; ++y) {
    const TSpan below = row_span(ellipse, y + 1);
    const TSpan inner = inner_span(above, row, below);
    if (inner.IsEmpty()) {
      put(y, row.first, row.last);
    } else {
      put(y, row.first, inner.first - 1);
      put(y, inner.last + 1, row.last);
    }
    above = row;
    row = below;
  }
}

/// Tells whether pixels lie in a sector of an ellipse. A pixel's angle is the parameter of the
/// ellipse, as it is for the radii.
class TSectorTest {
 public:
  TSectorTest(const TEllipse& ellipse, const TSector& sector)
      : mEllipse(ellipse),
        mSector(sector),
        mFirst(direction(sector.start)),
        mLast(direction(sector.start + sector.span)),
        mIsQuick(std::fabs(sector.start) < QUICK_DEGREES && sector.span >= 0) {}

  bool Holds(int32_t x, int32_t y) const {
    const TDirection p{(x - mEllipse.cx) / (mEllipse.rx + 0.5),
                       (mEllipse.cy - y) / (mEllipse.ry + 0.5)};
    const double first = cross(mFirst, p);
    const double last = cross(mLast, p);
    const bool isClear = std::fabs(first) > CLEARANCE && std::fabs(last) > CLEARANCE;
    if (!mIsQuick || !isClear) return HoldsAngle(std::atan2(p.y, p.x));
    const bool behindFirst = first > 0;
    const bool beforeLast = last < 0;
    return mSector.span <= 180 ? behindFirst && beforeLast : behindFirst || beforeLast;
  }

 private:
  struct TDirection {
    double x;
    double y;
  };

  /// Farther from both borders than this the side of each decides, which costs no arc tangent;
  /// rounding is many times smaller up to QUICK_DEGREES.
  static constexpr double CLEARANCE = 1e-9;
  static constexpr double QUICK_DEGREES = 10'000;

  static TDirection direction(double degrees) {
    const double a = degrees * (std::numbers::pi / 180);
    return {std::cos(a), std::sin(a)};
  }
  static double cross(const TDirection& a, const TDirection& b) { return a.x * b.y - a.y * b.x; }

  bool HoldsAngle(double radians) const {
    double turned = std::fmod(radians * (180 / std::numbers::pi) - mSector.start, 360);
    if (turned < 0) turned += 360;
    return turned <= mSector.span;
  }

  const TEllipse mEllipse;
  const TSector mSector;
  const TDirection mFirst;
  const TDirection mLast;
  const bool mIsQuick;
};

/// Draws the pixels of a run that lie in the sector.
void put_sector_run(TGrphPage& page, const TPen& pen, const TSectorTest& sector, int32_t y,
                    const TSpan& run) {
  const int32_t end = std::min(run.last + 1, SCREEN_WIDTH);
  int32_t x = std::max(run.first, 0);
  while (x < end) {
    while (x < end && !sector.Holds(x, y)) ++x;
    const int32_t first = x;
    while (x < end && sector.Holds(x, y)) ++x;
    put_span(page, pen, y, first, x - 1);
  }
}

}  // namespace

TPixel ellipse_point(const TEllipse& ellipse, double degrees) {
  const double a = degrees * (std::numbers::pi / 180);
  return {pixel_coord(ellipse.cx + ellipse.rx * std::cos(a)),
          pixel_coord(ellipse.cy - ellipse.ry * std::sin(a))};
}

void fill_ellipse(TGrphPage& page, const TPen& pen, const TEllipse& given) {
  if (!is_drawable(given)) return;
  const TEllipse ellipse = normalised(given);
  const TRows rows = rows_of(ellipse);
  for (int32_t y = rows.first; y < rows.end; ++y) {
    const TSpan span = row_span(ellipse, y);
    put_span(page, pen, y, span.first, span.last);
  }
}

void stroke_ellipse(TGrphPage& page, const TPen& pen, const TEllipse& given) {
  if (!is_drawable(given)) return;
  for_outline(normalised(given),
              [&](int32_t y, int32_t first, int32_t last) { put_span(page, pen, y, first, last); });
}

void stroke_arc(TGrphPage& page, const TPen& pen, const TEllipse& given, const TSector& sector) {
  if (!is_drawable(given)) return;
  if (sector.span >= 360) {
    stroke_ellipse(page, pen, given);
    return;
  }
  const TEllipse ellipse = normalised(given);
  const TSectorTest test(ellipse, sector);
  for_outline(ellipse, [&](int32_t y, int32_t first, int32_t last) {
    put_sector_run(page, pen, test, y, {first, last});
  });
  // A thin arc may pass between the pixels: its ends are always there.
  put_pixel(page, pen, ellipse_point(given, sector.start));
  put_pixel(page, pen, ellipse_point(given, sector.start + sector.span));
}

void fill_arc(TGrphPage& page, const TPen& pen, const TEllipse& given, const TSector& sector) {
  if (!is_drawable(given)) return;
  if (sector.span >= 360) {
    fill_ellipse(page, pen, given);
    return;
  }
  const TEllipse ellipse = normalised(given);
  const TSectorTest test(ellipse, sector);
  const TRows rows = rows_of(ellipse);
  for (int32_t y = rows.first; y < rows.end; ++y) {
    put_sector_run(page, pen, test, y, row_span(ellipse, y));
  }
  put_pixel(page, pen, {pixel_coord(given.cx), pixel_coord(given.cy)});
}

}  // namespace zoka
