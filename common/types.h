// Plain value types shared by every layer: times, points, rectangles, colours. No behaviour beyond
// their own arithmetic.
#pragma once

#include <algorithm>
#include <cstdint>

namespace zoka {

/// A time or a span of time in microseconds.
using bigtime_t = int64_t;

/// A deadline that never comes.
constexpr bigtime_t FOREVER = INT64_MAX;

/// A point of the simulated screen, in pixels; may lie anywhere, be fractional or not a number.
struct TPoint {
  float x = 0;
  float y = 0;
  bool operator==(const TPoint&) const = default;
};

/// A rectangle in device pixels, left and top inclusive, right and bottom as the owner says. It is
/// valid (holds something) if left <= right and top <= bottom; the default one is not.
struct TRect {
  int32_t left = 0;
  int32_t top = 0;
  int32_t right = -1;
  int32_t bottom = -1;
  bool IsValid() const { return left <= right && top <= bottom; }
  bool operator==(const TRect&) const = default;
};

/// The smallest rectangle that holds both, and what they have in common, which may be not valid; of
/// two rectangles that both have inclusive corners, or both have not.
constexpr TRect union_of(const TRect& a, const TRect& b) {
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
          std::max(a.bottom, b.bottom)};
}
constexpr TRect intersection_of(const TRect& a, const TRect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

/// A rectangle of a window on the host's screen, as the settings keep it.
struct TFrame {
  float left = 0;
  float top = 0;
  float right = 0;
  float bottom = 0;
  bool operator==(const TFrame&) const = default;
};

/// An opaque colour, eight bits a component.
struct TRgb {
  uint8_t red = 0;
  uint8_t green = 0;
  uint8_t blue = 0;
  bool operator==(const TRgb&) const = default;
};

}  // namespace zoka
