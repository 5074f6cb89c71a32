// Lines, rectangles, ellipses and arcs, exact to the pixel, into both planes of a page with the
// same coverage. Everything is cut to the page, for any coordinates; a shape far outside costs no
// more than one inside. No modes, no palette, no STEP: see graphics.h.
#pragma once

#include <algorithm>
#include <cstdint>

#include "common/types.h"
#include "run/screen/grph_page.h"

namespace zoka {

/// A pixel's place; may lie anywhere.
struct TPixel {
  int32_t x = 0;
  int32_t y = 0;
};

/// A whole number within limits; not a number is the lower one.
inline int32_t saturated(double v, int32_t low, int32_t high) {
  // std::max gives its first number if the second is none.
  return static_cast<int32_t>(std::min<double>(std::max<double>(low, v), high));
}

/// A coordinate as a pixel number: floor(v + 0.5), saturated; not a number is far to the left.
int32_t pixel_coord(double v);
inline TPixel pixel_at(const TPoint& p) {
  return {pixel_coord(static_cast<double>(p.x)), pixel_coord(static_cast<double>(p.y))};
}

/// A rectangle with inclusive corners, sorted.
TRect rect_of(const TPixel& p1, const TPixel& p2);

/// Both ends are drawn; the same pixels in both directions.
void draw_line(TGrphPage& page, const TPen& pen, const TPixel& p1, const TPixel& p2);
/// The frame inside `r`, corners inclusive.
void stroke_rect(TGrphPage& page, const TPen& pen, const TRect& r);
void fill_rect(TGrphPage& page, const TPen& pen, const TRect& r);

/// An ellipse with its axes upright. Row y holds each pixel x with
/// |x - cx| < (rx + .5) * sqrt(1 - ((y - cy) / (ry + .5))^2), where |y - cy| < ry + .5; below a
/// radius of .5 cx counts rounded. Nothing is drawn with a radius below 0, or not a number.
struct TEllipse {
  double cx = 0;
  double cy = 0;
  double rx = 0;
  double ry = 0;
};

/// The part of an ellipse between two angles, counter-clockwise from the positive x axis, in
/// degrees. A span of 360 or more is the whole.
struct TSector {
  double start = 0;
  double span = 0;
};

/// The pixels of the ellipse.
void fill_ellipse(TGrphPage& page, const TPen& pen, const TEllipse& ellipse);
/// Those with a 4-neighbour that is none of them.
void stroke_ellipse(TGrphPage& page, const TPen& pen, const TEllipse& ellipse);
/// The outline's pixels within the sector, and the pixels of both of its ends.
void stroke_arc(TGrphPage& page, const TPen& pen, const TEllipse& ellipse, const TSector& sector);
/// The ellipse's pixels within the sector, and the centre.
void fill_arc(TGrphPage& page, const TPen& pen, const TEllipse& ellipse, const TSector& sector);
/// The point of the ellipse at an angle in degrees.
TPixel ellipse_point(const TEllipse& ellipse, double degrees);

/// Moves the picture up by `v` rows and left by `h` columns (negative: down, right); what opens is
/// filled.
void roll_page(TGrphPage& page, const TPen& fill, int32_t v, int32_t h);

}  // namespace zoka
