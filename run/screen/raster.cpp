// Straight shapes and ROLL.
#include "run/screen/raster.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace zoka {

namespace {

/// Products of far coordinates take up to 66 bits.
__extension__ using TWide = __int128;

constexpr int64_t floor_div(TWide a, TWide b) {
  return static_cast<int64_t>(a / b - (a % b < 0 ? 1 : 0));
}

/// A row's run, both ends inside the page.
void put_run(TGrphPage& page, const TPen& pen, int32_t y, int32_t from, int32_t to) {
  const size_t count = static_cast<size_t>(to - from) + 1;
  std::memset(page.IndexRow(y) + from, pen.index, count);
  std::fill_n(page.RealRow(y) + from, count, pen.real);
}

/// One axis of a line and the page's extent along it.
struct TAxis {
  int64_t from;
  int64_t to;
  int32_t size;
  /// Pixels from one to the next along this axis.
  ptrdiff_t pitch;

  bool IsOnPage(int64_t at) const { return at >= 0 && at < size; }
};

/// The walk along the major axis: where it begins on the page, and the fraction there.
struct TWalk {
  int64_t first;
  int64_t last;
  /// The minor coordinate at `first`.
  int64_t minor;
  /// (2 (m - m1) delta + d) modulo 2d.
  int64_t rest;
  int64_t step;
  int64_t full;
};

/// minor(m) = minor.from + floor((2 (m - major.from) delta + d) / 2d).
TWalk begin_walk(const TAxis& major, const TAxis& minor) {
  const int64_t d = major.to - major.from;
  const int64_t delta = minor.to - minor.from;
  const int64_t first = std::max<int64_t>(major.from, 0);
  const int64_t last = std::min<int64_t>(major.to, major.size - 1);
  const int64_t full = 2 * d;
  const TWide sum = static_cast<TWide>(2) * (first - major.from) * delta + d;
  const int64_t rows = floor_div(sum, full);
  const int64_t rest = static_cast<int64_t>(sum - static_cast<TWide>(rows) * full);
  return {first, last, minor.from + rows, rest, 2 * delta, full};
}

int64_t last_minor(const TWalk& walk) {
  const TWide sum =
      static_cast<TWide>(walk.last - walk.first) * walk.step + static_cast<TWide>(walk.rest);
  return walk.minor + floor_div(sum, walk.full);
}

/// Advances the fraction; 1, 0 or -1 says how the minor coordinate moves.
inline int64_t advance(TWalk& walk) {
  walk.rest += walk.step;
  const int64_t over = -static_cast<int64_t>(walk.rest >= walk.full);
  const int64_t under = -static_cast<int64_t>(walk.rest < 0);
  walk.rest += (walk.full & under) - (walk.full & over);
  return under - over;
}

/// Bits of a fraction that take the place of a division in near lines.
constexpr int32_t FRACTION_BITS = 40;
/// Below this 2d, the rounded steps over a page's width cannot add up to the next 1 / 2d: what is
/// above the true fraction stays below the next possible one, so the whole part is exact.
constexpr int64_t NEAR_FULL = 1 << 20;

constexpr int64_t fraction_of(int64_t part, int64_t whole) {
  return -floor_div(-(part * (int64_t{1} << FRACTION_BITS)), whole);
}

/// All of a near line's walk lies on the page.
template <ptrdiff_t ALONG, ptrdiff_t ACROSS>
void walk_inside(TGrphPage& page, const TPen& pen, const TWalk& walk) {
  const ptrdiff_t start = walk.first * ALONG + walk.minor * ACROSS;
  uint8_t* const index = page.IndexRow(0) + start;
  uint32_t* const real = page.RealRow(0) + start;
  const uint8_t indexPen = pen.index;
  const uint32_t realPen = pen.real;
  const int64_t step = fraction_of(walk.step, walk.full);
  const ptrdiff_t count = walk.last - walk.first;
  int64_t minor = fraction_of(walk.rest, walk.full);
  for (ptrdiff_t i = 0; i <= count; ++i) {
    const ptrdiff_t offset = i * ALONG + static_cast<ptrdiff_t>(minor >> FRACTION_BITS) * ACROSS;
    index[offset] = indexPen;
    real[offset] = realPen;
    minor += step;
  }
}

void walk_clipped(TGrphPage& page, const TPen& pen, const TAxis& major, const TAxis& minor,
                  TWalk walk) {
  for (int64_t m = walk.first; m <= walk.last; ++m) {
    if (minor.IsOnPage(walk.minor)) {
      const ptrdiff_t offset = m * major.pitch + walk.minor * minor.pitch;
      page.IndexRow(0)[offset] = pen.index;
      page.RealRow(0)[offset] = pen.real;
    }
    walk.minor += advance(walk);
  }
}

void draw_sloped(TGrphPage& page, const TPen& pen, TAxis major, TAxis minor) {
  if (major.from > major.to) {
    std::swap(major.from, major.to);
    std::swap(minor.from, minor.to);
  }
  const TWalk walk = begin_walk(major, minor);
  const bool isInside = minor.IsOnPage(walk.minor) && minor.IsOnPage(last_minor(walk));
  if (!isInside || walk.full >= NEAR_FULL) {
    walk_clipped(page, pen, major, minor, walk);
  } else if (major.pitch == 1) {
    walk_inside<1, SCREEN_WIDTH>(page, pen, walk);
  } else {
    walk_inside<SCREEN_WIDTH, 1>(page, pen, walk);
  }
}

}  // namespace

int32_t pixel_coord(double v) {
  return saturated(std::floor(v + 0.5), INT32_MIN, INT32_MAX);
}

TRect rect_of(const TPixel& p1, const TPixel& p2) {
  return {std::min(p1.x, p2.x), std::min(p1.y, p2.y), std::max(p1.x, p2.x), std::max(p1.y, p2.y)};
}

void draw_line(TGrphPage& page, const TPen& pen, const TPixel& p1, const TPixel& p2) {
  const TRect box = rect_of(p1, p2);
  if (p1.y == p2.y || p1.x == p2.x) {
    fill_rect(page, pen, box);
    return;
  }
  if (!intersection_of(box, WHOLE_PAGE).IsValid()) return;
  page.Touch();
  const TAxis across{p1.x, p2.x, SCREEN_WIDTH, 1};
  const TAxis down{p1.y, p2.y, SCREEN_HEIGHT, SCREEN_WIDTH};
  const bool isFlat = std::abs(across.to - across.from) >= std::abs(down.to - down.from);
  if (isFlat) {
    draw_sloped(page, pen, across, down);
  } else {
    draw_sloped(page, pen, down, across);
  }
}

void fill_rect(TGrphPage& page, const TPen& pen, const TRect& r) {
  const TRect inside = intersection_of(r, WHOLE_PAGE);
  if (!inside.IsValid()) return;
  page.Touch();
  for (int32_t y = inside.top; y <= inside.bottom; ++y) {
    put_run(page, pen, y, inside.left, inside.right);
  }
}

void stroke_rect(TGrphPage& page, const TPen& pen, const TRect& r) {
  fill_rect(page, pen, {r.left, r.top, r.right, r.top});
  fill_rect(page, pen, {r.left, r.bottom, r.right, r.bottom});
  fill_rect(page, pen, {r.left, r.top, r.left, r.bottom});
  fill_rect(page, pen, {r.right, r.top, r.right, r.bottom});
}

namespace {

/// Moves `count` pixels of one plane towards the first by `back` (negative: away from it); the
/// opened ones are filled by the caller.
template <typename TPlane>
void shift_pixels(TPlane* first, int32_t count, int32_t back) {
  const size_t kept = static_cast<size_t>(count - std::abs(back));
  std::memmove(first + std::max(-back, 0), first + std::max(back, 0), kept * sizeof(TPlane));
}

void roll_vertically(TGrphPage& page, const TPen& fill, int32_t v) {
  shift_pixels(page.IndexRow(0), SCREEN_WIDTH * SCREEN_HEIGHT, v * SCREEN_WIDTH);
  shift_pixels(page.RealRow(0), SCREEN_WIDTH * SCREEN_HEIGHT, v * SCREEN_WIDTH);
  // What opens below, or above: one of the two holds nothing.
  fill_rect(page, fill, {0, SCREEN_HEIGHT - v, WHOLE_PAGE.right, WHOLE_PAGE.bottom});
  fill_rect(page, fill, {0, 0, WHOLE_PAGE.right, -v - 1});
}

void roll_horizontally(TGrphPage& page, const TPen& fill, int32_t h) {
  for (int32_t y = 0; y < SCREEN_HEIGHT; ++y) {
    shift_pixels(page.IndexRow(y), SCREEN_WIDTH, h);
    shift_pixels(page.RealRow(y), SCREEN_WIDTH, h);
  }
  fill_rect(page, fill, {SCREEN_WIDTH - h, 0, WHOLE_PAGE.right, WHOLE_PAGE.bottom});
  fill_rect(page, fill, {0, 0, -h - 1, WHOLE_PAGE.bottom});
}

}  // namespace

void roll_page(TGrphPage& page, const TPen& fill, int32_t v, int32_t h) {
  if (page.IsPristine() && fill.index == 0 && fill.real == 0) return;
  page.Touch();
  if (v != 0) roll_vertically(page, fill, std::clamp(v, -SCREEN_HEIGHT, SCREEN_HEIGHT));
  if (h != 0) roll_horizontally(page, fill, std::clamp(h, -SCREEN_WIDTH, SCREEN_WIDTH));
}

}  // namespace zoka
