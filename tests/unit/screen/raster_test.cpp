// Rasters against formulas of the test's own, pixel by pixel over the whole page, and both planes
// against each other.
#include "run/screen/raster.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <numbers>
#include <random>
#include <string>

namespace zoka {
namespace {

constexpr TPen PEN{5, 0x123456};
constexpr double INF = std::numeric_limits<double>::infinity();
const double NOT_A_NUMBER = std::nan("");

using TPredicate = std::function<bool(int32_t x, int32_t y)>;

/// The first pixel of either plane that is not as `expected` says, or "".
std::string difference(const TGrphPage& page, const TPredicate& expected) {
  for (int32_t y = 0; y < SCREEN_HEIGHT; ++y) {
    for (int32_t x = 0; x < SCREEN_WIDTH; ++x) {
      const bool isSet = expected(x, y);
      const bool index = page.IndexRow(y)[x] == (isSet ? PEN.index : 0);
      const bool real = page.RealRow(y)[x] == (isSet ? PEN.real : 0);
      if (!index || !real) {
        return std::to_string(x) + "," + std::to_string(y) + (isSet ? " missing" : " too much");
      }
    }
  }
  return "";
}

std::unique_ptr<TGrphPage> drawn(const std::function<void(TGrphPage&)>& draw) {
  auto page = std::make_unique<TGrphPage>();
  draw(*page);
  return page;
}

// --- Coordinates --------------------------------------------------------------------------------

TEST(TPixelTest, CoordinatesRoundHalvesUpAndSaturate) {
  EXPECT_EQ(pixel_coord(0.5), 1);
  EXPECT_EQ(pixel_coord(-0.5), 0);
  EXPECT_EQ(pixel_coord(-0.51), -1);
  EXPECT_EQ(pixel_coord(2.4), 2);
  EXPECT_EQ(pixel_coord(2147483646.0), INT32_MAX - 1);
  EXPECT_EQ(pixel_coord(2147483647.0), INT32_MAX);
  EXPECT_EQ(pixel_coord(2147483648.0), INT32_MAX);
  EXPECT_EQ(pixel_coord(-2147483647.0), INT32_MIN + 1);
  EXPECT_EQ(pixel_coord(-2147483648.0), INT32_MIN);
  EXPECT_EQ(pixel_coord(-2147483649.0), INT32_MIN);
  EXPECT_EQ(pixel_coord(1e30), INT32_MAX);
  EXPECT_EQ(pixel_coord(-1e30), INT32_MIN);
  EXPECT_EQ(pixel_coord(INF), INT32_MAX);
  EXPECT_EQ(pixel_coord(-INF), INT32_MIN);
  EXPECT_EQ(pixel_coord(NOT_A_NUMBER), INT32_MIN);
}

// --- Lines --------------------------------------------------------------------------------------

/// The rule in long doubles and whole numbers: for each major m the minor is
/// y1 + floor((2 (m - m1) delta + d) / 2d), counted from the end with the smaller m.
bool line_holds(TPixel a, TPixel b, int32_t x, int32_t y) {
  const auto span = [](int32_t u, int32_t v) {
    return std::llabs(static_cast<long long>(u) - static_cast<long long>(v));
  };
  const bool isFlat = span(a.x, b.x) >= span(a.y, b.y);
  long long m1 = isFlat ? a.x : a.y, m2 = isFlat ? b.x : b.y;
  long long n1 = isFlat ? a.y : a.x, n2 = isFlat ? b.y : b.x;
  const long long m = isFlat ? x : y, n = isFlat ? y : x;
  if (m1 > m2) {
    std::swap(m1, m2);
    std::swap(n1, n2);
  }
  if (m < m1 || m > m2) return false;
  const long long d = m2 - m1;
  if (d == 0) return n == n1;
  // n is the minor if 2 (m - m1) delta + d lies in [2d (n - n1), 2d (n - n1 + 1)).
  const long double sum = 2.0L * (m - m1) * (n2 - n1) + d;
  const long double low = 2.0L * d * (n - n1);
  return sum >= low && sum < low + 2.0L * d;
}

void expect_line(TPixel a, TPixel b) {
  const auto page = drawn([&](TGrphPage& p) { draw_line(p, PEN, a, b); });
  ASSERT_EQ(difference(*page, [&](int32_t x, int32_t y) { return line_holds(a, b, x, y); }), "")
      << a.x << "," << a.y << " - " << b.x << "," << b.y;
}

TEST(TLineTest, SmallLinesAsDrawnByHand) {
  // d = 3, delta = 1: (2m + 3) / 6 is 0, 0, 1, 1.
  const auto page = drawn([](TGrphPage& p) { draw_line(p, PEN, {10, 20}, {13, 21}); });
  EXPECT_EQ(difference(*page,
                       [](int32_t x, int32_t y) {
                         return (y == 20 && (x == 10 || x == 11)) ||
                                (y == 21 && (x == 12 || x == 13));
                       }),
            "");
  // d = 2, delta = -1: (2 - 2m) / 4 is 0, 0, -1 (floor), so the middle stays on the first row.
  const auto down = drawn([](TGrphPage& p) { draw_line(p, PEN, {10, 20}, {12, 19}); });
  EXPECT_EQ(difference(*down,
                       [](int32_t x, int32_t y) {
                         return (y == 20 && (x == 10 || x == 11)) || (y == 19 && x == 12);
                       }),
            "");
}

TEST(TLineTest, AllDirectionsFollowTheFormula) {
  const TPixel center{300, 200};
  for (int32_t dx : {-37, -11, -10, -1, 0, 1, 7, 10, 36}) {
    for (int32_t dy : {-37, -12, -10, -2, 0, 1, 3, 10, 37}) {
      expect_line(center, {center.x + dx, center.y + dy});
    }
  }
}

TEST(TLineTest, ClippedLinesFollowTheFormula) {
  expect_line({-100, -50}, {700, 450});
  expect_line({-7, 399}, {639, -3});
  expect_line({320, -1000}, {330, 1000});
  expect_line({-1000, 200}, {1000, 210});
  expect_line({0, 0}, {639, 399});
  expect_line({-50, 30}, {20, -40});
  expect_line({-10, -10}, {-1, 500});
  expect_line({700, 100}, {800, 110});
  expect_line({5, 400}, {15, 1400});
}

TEST(TLineTest, LinesThatOnlyTouchAnEdgeFollowTheFormula) {
  for (const int32_t outside : {0, 1}) {
    expect_line({10, -5}, {40, -outside});
    expect_line({-5, 10}, {-outside, 40});
    expect_line({-40, 10}, {-outside, 20});
    expect_line({10, -40}, {20, -outside});
    expect_line({10, 420}, {40, 399 + outside});
    expect_line({660, 10}, {639 + outside, 40});
    expect_line({700, 10}, {639 + outside, 20});
    expect_line({10, 440}, {20, 399 + outside});
    expect_line({30, 40}, {-outside, 10});
    expect_line({40, 30}, {10, -outside});
    expect_line({600, 350}, {639 + outside, 399});
    expect_line({600, 370}, {639, 399 + outside});
  }
}

TEST(TLineTest, FarLinesFollowTheFormula) {
  expect_line({INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MAX});
  expect_line({INT32_MIN, 100}, {INT32_MAX, 300});
  expect_line({INT32_MIN, INT32_MAX}, {INT32_MAX, INT32_MIN});
  expect_line({-2000000000, 5}, {1000, 390});
  expect_line({17, INT32_MIN}, {620, INT32_MAX});
  expect_line({INT32_MIN, 0}, {INT32_MIN, 399});
}

TEST(TLineTest, RandomLinesFollowTheFormulaInBothDirections) {
  std::mt19937 random(7);
  const auto coord = [&](int32_t size) {
    return static_cast<int32_t>(random() % (3 * static_cast<unsigned>(size))) - size;
  };
  for (int i = 0; i < 60; ++i) {
    const TPixel a{coord(SCREEN_WIDTH), coord(SCREEN_HEIGHT)};
    const TPixel b{coord(SCREEN_WIDTH), coord(SCREEN_HEIGHT)};
    expect_line(a, b);
    expect_line(b, a);
  }
}

// --- Rectangles ---------------------------------------------------------------------------------

void expect_rects(const TPixel& a, const TPixel& b) {
  const int64_t x1 = std::min(a.x, b.x), x2 = std::max(a.x, b.x);
  const int64_t y1 = std::min(a.y, b.y), y2 = std::max(a.y, b.y);
  const auto inside = [&](int32_t x, int32_t y) {
    return x >= x1 && x <= x2 && y >= y1 && y <= y2;
  };
  const auto frame = [&](int32_t x, int32_t y) {
    return inside(x, y) && (x == x1 || x == x2 || y == y1 || y == y2);
  };
  const auto filled = drawn([&](TGrphPage& p) { fill_rect(p, PEN, rect_of(a, b)); });
  EXPECT_EQ(difference(*filled, inside), "");
  const auto stroked = drawn([&](TGrphPage& p) { stroke_rect(p, PEN, rect_of(a, b)); });
  EXPECT_EQ(difference(*stroked, frame), "");
}

TEST(TRectTest, CornersAreSortedInclusiveAndClipped) {
  expect_rects({10, 20}, {30, 40});
  expect_rects({30, 40}, {10, 20});
  expect_rects({10, 40}, {30, 20});
  expect_rects({5, 5}, {5, 5});
  expect_rects({0, 0}, {639, 399});
  expect_rects({-10, -10}, {5, 5});
  expect_rects({630, 390}, {5000, 5000});
  expect_rects({INT32_MIN, INT32_MIN}, {INT32_MAX, INT32_MAX});
  expect_rects({-20, 3}, {-10, 9});
  expect_rects({640, 3}, {700, 9});
  expect_rects({3, 400}, {7, 500});
}

// --- Ellipses and arcs --------------------------------------------------------------------------

bool ellipse_holds(TEllipse e, int64_t x, int64_t y) {
  if (!(e.rx >= 0) || !(e.ry >= 0)) return false;
  if (e.rx < .5) e.cx = std::floor(e.cx + .5);
  if (e.ry < .5) e.cy = std::floor(e.cy + .5);
  const double dy = static_cast<double>(y) - e.cy;
  if (!(std::fabs(dy) < e.ry + .5)) return false;
  const double q = dy / (e.ry + .5);
  return std::fabs(static_cast<double>(x) - e.cx) < (e.rx + .5) * std::sqrt(1 - q * q);
}

bool outline_holds(const TEllipse& e, int32_t x, int32_t y) {
  return ellipse_holds(e, x, y) && !(ellipse_holds(e, x - 1, y) && ellipse_holds(e, x + 1, y) &&
                                     ellipse_holds(e, x, y - 1) && ellipse_holds(e, x, y + 1));
}

void expect_ellipse(const TEllipse& e) {
  const auto filled = drawn([&](TGrphPage& p) { fill_ellipse(p, PEN, e); });
  EXPECT_EQ(difference(*filled, [&](int32_t x, int32_t y) { return ellipse_holds(e, x, y); }), "")
      << "fill " << e.cx << "," << e.cy << " " << e.rx << "," << e.ry;
  const auto stroked = drawn([&](TGrphPage& p) { stroke_ellipse(p, PEN, e); });
  EXPECT_EQ(difference(*stroked, [&](int32_t x, int32_t y) { return outline_holds(e, x, y); }), "")
      << "outline " << e.cx << "," << e.cy << " " << e.rx << "," << e.ry;
}

TEST(TEllipseTest, SmallCirclesAsDrawnByHand) {
  const auto dot = drawn([](TGrphPage& p) { stroke_ellipse(p, PEN, {10, 10, 0, 0}); });
  EXPECT_EQ(difference(*dot, [](int32_t x, int32_t y) { return x == 10 && y == 10; }), "");
  // Radius 1: |dx| < 1.5 sqrt(1 - (dy / 1.5)^2) is 1.5 in the middle and 1.118 beside it.
  const auto disc = drawn([](TGrphPage& p) { fill_ellipse(p, PEN, {10, 10, 1, 1}); });
  EXPECT_EQ(
      difference(*disc, [](int32_t x,
                           int32_t y) { return std::abs(x - 10) <= 1 && std::abs(y - 10) <= 1; }),
      "");
  const auto ring = drawn([](TGrphPage& p) { stroke_ellipse(p, PEN, {10, 10, 1, 1}); });
  EXPECT_EQ(difference(*ring,
                       [](int32_t x, int32_t y) {
                         return std::abs(x - 10) <= 1 && std::abs(y - 10) <= 1 &&
                                !(x == 10 && y == 10);
                       }),
            "");
}

TEST(TEllipseTest, AllSizesFollowTheFormula) {
  for (double rx : {0.0, 0.3, 0.49, 0.5, 1.0, 2.5, 7.0, 40.0, 100.25}) {
    for (double ry : {0.0, 0.2, 0.5, 3.0, 19.75, 100.0}) {
      expect_ellipse({300, 200, rx, ry});
      expect_ellipse({300.4, 199.75, rx, ry});
      expect_ellipse({300.5, 199.5, rx, ry});
    }
  }
}

TEST(TEllipseTest, ClippedOnesHaveNoOutlineAlongThePagesEdge) {
  expect_ellipse({0, 0, 50, 50});
  expect_ellipse({639, 399, 50, 20});
  expect_ellipse({320, 200, 400, 100});
  expect_ellipse({320, 200, 100, 300});
  expect_ellipse({320, 200, 500, 500});
  expect_ellipse({-3, 200, 2.5, 90});
  expect_ellipse({-1, 200, 1, 9});
  expect_ellipse({640, 200, 1, 9});
  expect_ellipse({641.5, 200, 1, 9});
  expect_ellipse({100, -1, 30, 1});
  expect_ellipse({100, 400, 30, 0});
  expect_ellipse({1000, 200, 5, 5});
}

TEST(TEllipseTest, FarAndHugeOnesFollowTheFormula) {
  expect_ellipse({1e6, 200, 1e6 - 300, 1e5});
  expect_ellipse({-1e9, 200, 1e9, 1e9});
  expect_ellipse({1e17, 200, 1e17, 1e17});
  expect_ellipse({320, 1e17, 1e17, 1e17});
  expect_ellipse({1e30, 1e30, 1e30, 1e30});
  expect_ellipse({1e30, 200, 10, 10});
  expect_ellipse({320, -1e30, 10, 10});
  expect_ellipse({320, 200, 1e30, 10});
  expect_ellipse({320, 200, 10, 1e30});
}

TEST(TEllipseTest, WhatIsNoNumberDrawsNothingOrAllAsTheFormulaSays) {
  for (double odd : {INF, -INF, NOT_A_NUMBER}) {
    expect_ellipse({odd, 200, 10, 10});
    expect_ellipse({320, odd, 10, 10});
    expect_ellipse({320, 200, odd, 10});
    expect_ellipse({320, 200, 10, odd});
    expect_ellipse({odd, odd, odd, odd});
  }
  expect_ellipse({320, 200, -1, 10});
  expect_ellipse({320, 200, 10, -0.01});
}

TEST(TEllipseTest, RandomOnesFollowTheFormula) {
  std::mt19937 random(11);
  std::uniform_real_distribution<float> x(-200, 840), y(-200, 600), r(0, 400);
  for (int i = 0; i < 60; ++i) {
    expect_ellipse({static_cast<double>(x(random)), static_cast<double>(y(random)),
                    static_cast<double>(r(random)), static_cast<double>(r(random))});
  }
}

bool sector_holds(TEllipse e, const TSector& s, int32_t x, int32_t y) {
  if (e.rx < .5) e.cx = std::floor(e.cx + .5);
  if (e.ry < .5) e.cy = std::floor(e.cy + .5);
  const double t =
      std::atan2((e.cy - y) / (e.ry + .5), (x - e.cx) / (e.rx + .5)) * (180 / std::numbers::pi);
  double turned = std::fmod(t - s.start, 360.0);
  if (turned < 0) turned += 360;
  return turned <= s.span;
}

bool is_end(const TEllipse& e, double degrees, int32_t x, int32_t y) {
  const double a = degrees * std::numbers::pi / 180;
  return x == std::floor(e.cx + e.rx * std::cos(a) + .5) &&
         y == std::floor(e.cy - e.ry * std::sin(a) + .5);
}

void expect_arc(const TEllipse& e, const TSector& s) {
  const bool isWhole = s.span >= 360;
  const auto stroked = drawn([&](TGrphPage& p) { stroke_arc(p, PEN, e, s); });
  EXPECT_EQ(difference(*stroked,
                       [&](int32_t x, int32_t y) {
                         if (isWhole) return outline_holds(e, x, y);
                         return (outline_holds(e, x, y) && sector_holds(e, s, x, y)) ||
                                is_end(e, s.start, x, y) || is_end(e, s.start + s.span, x, y);
                       }),
            "")
      << "arc " << s.start << " " << s.span << " of " << e.rx << "," << e.ry;
  const auto filled = drawn([&](TGrphPage& p) { fill_arc(p, PEN, e, s); });
  EXPECT_EQ(difference(*filled,
                       [&](int32_t x, int32_t y) {
                         if (isWhole) return ellipse_holds(e, x, y);
                         return (ellipse_holds(e, x, y) && sector_holds(e, s, x, y)) ||
                                (x == std::floor(e.cx + .5) && y == std::floor(e.cy + .5));
                       }),
            "")
      << "pie " << s.start << " " << s.span << " of " << e.rx << "," << e.ry;
}

TEST(TArcTest, SectorsFollowTheFormula) {
  for (double start : {0.0, 30.0, 45.0, 90.0, 123.4, 180.0, 270.0, 359.0}) {
    for (double span : {0.0, 1.0, 45.0, 90.0, 180.0, 181.0, 270.0, 359.9, 360.0, 400.0}) {
      expect_arc({300, 200, 60, 30}, {start, span});
    }
  }
  // Of a whole turn the end is no more than a point of the outline, and this one lies outside it.
  expect_arc({300, 200, 2, 2}, {45, 359});
  expect_arc({300, 200, 2, 2}, {45, 360});
}

TEST(TArcTest, QuarterTurnsCounterClockwiseFromTheRight) {
  const auto page = drawn([](TGrphPage& p) { fill_arc(p, PEN, {300, 200, 50, 50}, {0, 90}); });
  EXPECT_EQ(page->IndexRow(180)[320], PEN.index);
  EXPECT_EQ(page->IndexRow(180)[280], 0);
  EXPECT_EQ(page->IndexRow(220)[320], 0);
  EXPECT_EQ(page->IndexRow(220)[280], 0);
}

TEST(TArcTest, ClippedAndTinyOnesFollowTheFormula) {
  expect_arc({0, 0, 80, 80}, {200, 150});
  expect_arc({300, 200, 0, 0}, {10, 20});
  expect_arc({300.4, 200, 0.3, 20}, {80, 20});
  expect_arc({320, 200, 900, 900}, {10, 100});
  expect_arc({-100, 500, 400, 300}, {20, 60});
  expect_arc({300, 200, 60, 60}, {1e15, 77});
}

TEST(TArcTest, OddAnglesAndRadiiAreHarmless) {
  for (double odd : {INF, -INF, NOT_A_NUMBER, 1e300}) {
    drawn([&](TGrphPage& p) {
      stroke_arc(p, PEN, {300, 200, 50, 50}, {odd, 90});
      stroke_arc(p, PEN, {300, 200, 50, 50}, {10, odd});
      fill_arc(p, PEN, {300, 200, 50, 50}, {odd, odd});
      fill_arc(p, PEN, {odd, odd, odd, odd}, {0, 90});
    });
  }
  const auto page = drawn([&](TGrphPage& p) {
    stroke_arc(p, PEN, {300, 200, -1, 50}, {0, 90});
    fill_arc(p, PEN, {300, 200, 50, NOT_A_NUMBER}, {0, 90});
  });
  EXPECT_EQ(difference(*page, [](int32_t, int32_t) { return false; }), "");
}

// --- Roll ---------------------------------------------------------------------------------------

/// A page whose pixels all tell where they came from.
std::unique_ptr<TGrphPage> patterned_page() {
  auto page = std::make_unique<TGrphPage>();
  page->Touch();
  for (int32_t y = 0; y < SCREEN_HEIGHT; ++y) {
    for (int32_t x = 0; x < SCREEN_WIDTH; ++x) {
      page->IndexRow(y)[x] = static_cast<uint8_t>(x * 7 + y * 13);
      page->RealRow(y)[x] = static_cast<uint32_t>(y * SCREEN_WIDTH + x + 1);
    }
  }
  return page;
}

void expect_roll(int32_t v, int32_t h) {
  const auto page = patterned_page();
  const auto before = patterned_page();
  roll_page(*page, PEN, v, h);
  for (int64_t y = 0; y < SCREEN_HEIGHT; ++y) {
    for (int64_t x = 0; x < SCREEN_WIDTH; ++x) {
      const int64_t fromX = x + h, fromY = y + v;
      const bool isOpen = fromX < 0 || fromX >= SCREEN_WIDTH || fromY < 0 || fromY >= SCREEN_HEIGHT;
      const int32_t px = static_cast<int32_t>(isOpen ? 0 : fromX);
      const int32_t py = static_cast<int32_t>(isOpen ? 0 : fromY);
      const uint8_t index = isOpen ? PEN.index : before->IndexRow(py)[px];
      const uint32_t real = isOpen ? PEN.real : before->RealRow(py)[px];
      ASSERT_EQ(page->IndexRow(static_cast<int32_t>(y))[x], index) << v << "," << h;
      ASSERT_EQ(page->RealRow(static_cast<int32_t>(y))[x], real) << v << "," << h;
    }
  }
}

TEST(TRollTest, MovesUpAndLeftAndFillsWhatOpens) {
  for (int32_t v : {0, 1, -1, 7, 399, -399, 400, -400, INT32_MAX, INT32_MIN}) {
    for (int32_t h : {0, 1, -1, 13, 639, -639, 640, -640, INT32_MAX, INT32_MIN}) {
      if (v == 0 && h == 0) continue;
      expect_roll(v, h);
    }
  }
}

}  // namespace
}  // namespace zoka
