// Graphic operations on the active page: what they draw, remember and mark; PAINT and pictures
// against slow formulas of the test's own; both planes against each other.
#include "run/screen/graphics.h"

#include <cmath>
#include <deque>
#include <limits>
#include <random>
#include <set>

#include "tests/unit/screen/screen_fixture.h"

namespace zoka {
namespace {

const float INF = std::numeric_limits<float>::infinity();
const float NOT_A_NUMBER = std::nanf("");

class TGraphicsTest : public TScreenTest {
 protected:
  TGraphicsTest() { rsrc.SetGrphYScale(1), rsrc.TakeModifiedRect(); }

  int Index(int32_t x, int32_t y) const { return rsrc.GrphBmp(0).IndexRow(y)[x]; }
  /// Both planes hold the same picture through the palette.
  void ExpectSamePlanes(int8_t number) const {
    const TGrphPage& page = rsrc.GrphBmp(number);
    for (int32_t i = 0; i < SCREEN_WIDTH * SCREEN_HEIGHT; ++i) {
      ASSERT_EQ(page.RealRow(0)[i], pixel_of(rsrc.GrphPal(page.IndexRow(0)[i] & 15))) << i;
    }
  }
  std::vector<uint8_t> Plane(int8_t page = 0) const {
    const uint8_t* first = rsrc.GrphBmp(page).IndexRow(0);
    return {first, first + SCREEN_WIDTH * SCREEN_HEIGHT};
  }
  int CountOf(int value) const {
    const std::vector<uint8_t> plane = Plane();
    return static_cast<int>(std::count(plane.begin(), plane.end(), static_cast<uint8_t>(value)));
  }

  TGraphics graphics{rsrc};
};

// --- What each operation remembers and marks ----------------------------------------------------

TEST_F(TGraphicsTest, PointsRememberTheirPlace) {
  graphics.Pset({10.4f, 20.6f}, 3);
  EXPECT_EQ(Index(10, 21), 3);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{10.4f, 20.6f}));
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{10, 21, 10, 21}));
}

TEST_F(TGraphicsTest, LinesAndBoxesRememberTheirSecondPoint) {
  graphics.Line({30, 40}, {10, 20}, 1);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{10, 20}));
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{10, 20, 30, 40}));
  graphics.StrokeRect({30, 40}, {10, 20}, 1);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{10, 20}));
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{10, 20, 30, 40}));
  graphics.FillRect({50, 60}, {70, 80}, 1);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{70, 80}));
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{50, 60, 70, 80}));
}

TEST_F(TGraphicsTest, AFillColourPutsTheFrameOnTop) {
  graphics.FillRect({10, 10}, {20, 20}, 1, 2);
  EXPECT_EQ(Index(10, 15), 1);
  EXPECT_EQ(Index(15, 15), 2);
  graphics.FillRect({10, 10}, {20, 20}, 3);
  EXPECT_EQ(Index(15, 15), 3);
  graphics.FillEllipse({100, 100}, {20, 10}, 4, 5);
  EXPECT_EQ(Index(100, 100), 5);
  EXPECT_EQ(Index(120, 100), 4);
  graphics.FillEllipse({100, 100}, {20, 10}, 6);
  EXPECT_EQ(Index(100, 100), 6);
}

TEST_F(TGraphicsTest, CirclesRememberTheirCentreEvenIfNothingIsDrawn) {
  graphics.StrokeEllipse({100, 50}, {20, 10}, 1);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{100, 50}));
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{80, 40, 120, 60}));
  const std::vector<uint8_t> before = Plane();
  graphics.StrokeEllipse({1, 2}, {-5, 5}, 1);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{1, 2}));
  graphics.FillEllipse({3, 4}, {5, NOT_A_NUMBER}, 1, 2);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{3, 4}));
  graphics.StrokeArc({5, 6}, {-1, 5}, 1, {0, 90, true, true});
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{5, 6}));
  graphics.FillArc({7, 8}, {-1, -5}, 1, {0, 90, false, false}, 3);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{7, 8}));
  EXPECT_EQ(Plane(), before);
}

TEST_F(TGraphicsTest, ARadiusIsDrawnAtEachNegativeEndOnly) {
  // From 0 to 90 degrees: the end's radius goes straight up, the start's to the right.
  graphics.StrokeArc({100, 100}, {50, 50}, 1, {0, 90, false, true});
  EXPECT_EQ(Index(100, 75), 1);
  EXPECT_EQ(Index(125, 100), 0);
  graphics.StrokeArc({300, 100}, {50, 50}, 1, {0, 90, true, false});
  EXPECT_EQ(Index(300, 75), 0);
  EXPECT_EQ(Index(325, 100), 1);
}

TEST_F(TGraphicsTest, ARadiusIsDrawnInAnEllipseWithoutWidthOrHeight) {
  // From 0 to 45 degrees the outline itself is no more than the centre; the end at 45 degrees lies
  // 50 times sin 45 = 35 pixels from it.
  graphics.StrokeArc({100, 100}, {0, 50}, 1, {0, 45, false, true});
  EXPECT_EQ(CountOf(1), 36);
  EXPECT_EQ(Index(100, 100), 1);
  EXPECT_EQ(Index(100, 65), 1);
  rsrc.ClearGrphBuf();
  graphics.StrokeArc({100, 100}, {50, 0}, 1, {45, 45, true, false});
  EXPECT_EQ(CountOf(1), 36);
  EXPECT_EQ(Index(135, 100), 1);
}

TEST_F(TGraphicsTest, StrokedArcsRoundTheirAnglesToWholeDegrees) {
  graphics.StrokeArc({300, 200}, {150, 150}, 1, {0.4f, 89.5f, true, true});
  const std::vector<uint8_t> rounded = Plane();
  rsrc.ClearGrphBuf();
  graphics.StrokeArc({300, 200}, {150, 150}, 1, {0, 90, true, true});
  EXPECT_EQ(Plane(), rounded);
}

TEST_F(TGraphicsTest, ColoursAreBytes) {
  graphics.Pset({1, 1}, static_cast<int8_t>(300));
  EXPECT_EQ(graphics.Point(1, 1), 300 - 256);
  graphics.Pset({1, 1}, -3);
  EXPECT_EQ(graphics.Point(1, 1), -3);
  EXPECT_EQ(rsrc.GrphBmp(0).RealRow(1)[1], pixel_of(rsrc.GrphPal(13)));
}

TEST_F(TGraphicsTest, PointOutsideIsMinusOneAndHasAll400RowsInEveryMode) {
  graphics.Pset({639, 399}, 4);
  rsrc.SetGrphYScale(2);
  EXPECT_EQ(graphics.Point(639, 399), 4);
  EXPECT_EQ(graphics.Point(700, 10), -1);
  EXPECT_EQ(graphics.Point(640, 0), -1);
  EXPECT_EQ(graphics.Point(0, 400), -1);
  EXPECT_EQ(graphics.Point(-1, 0), -1);
  EXPECT_EQ(graphics.Point(0, INT32_MIN), -1);
}

TEST_F(TGraphicsTest, DrawingGoesToTheActivePage) {
  rsrc.SetActivePage(1);
  graphics.Pset({1, 1}, 1);
  EXPECT_EQ(Index(1, 1), 0);
  EXPECT_EQ(graphics.Point(1, 1), 1);
  EXPECT_TRUE(rsrc.GrphBmp(0).IsPristine());
}

// --- PAINT --------------------------------------------------------------------------------------

/// Connected pixels that are not the border, found one by one.
std::set<std::pair<int, int>> region_of(const std::vector<uint8_t>& plane, int x, int y,
                                        uint8_t border) {
  std::set<std::pair<int, int>> region;
  std::deque<std::pair<int, int>> open{{x, y}};
  while (!open.empty()) {
    const auto [px, py] = open.front();
    open.pop_front();
    if (px < 0 || px >= SCREEN_WIDTH || py < 0 || py >= SCREEN_HEIGHT) continue;
    if (plane[static_cast<size_t>(py * SCREEN_WIDTH + px)] == border) continue;
    if (!region.insert({px, py}).second) continue;
    for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
      open.push_back({px + dx, py + dy});
    }
  }
  return region;
}

TEST_F(TGraphicsTest, PaintFillsUpToTheBorderOnly) {
  graphics.StrokeRect({100, 100}, {120, 110}, 2);
  graphics.Line({105, 101}, {105, 109}, 4);
  graphics.Paint({110, 105}, 4, 2);
  EXPECT_EQ(CountOf(4), 19 * 9);
  EXPECT_EQ(CountOf(2), 2 * 21 + 2 * 9);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{110, 105}));
  ExpectSamePlanes(0);
}

TEST_F(TGraphicsTest, PaintStartingOnTheBorderOrOutsideDrawsNothing) {
  graphics.FillRect({10, 10}, {20, 20}, 2);
  const std::vector<uint8_t> before = Plane();
  graphics.Paint({15, 15}, 4, 2);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{15, 15}));
  for (const TPoint& p : {TPoint{-1, 0}, TPoint{640, 0}, TPoint{0, 400}, TPoint{INF, 1e30f},
                          TPoint{NOT_A_NUMBER, 5}}) {
    graphics.Paint(p, 4, 2);
  }
  EXPECT_EQ(Plane(), before);
}

TEST_F(TGraphicsTest, PaintReachesTheUnseenHalfIn200LineModes) {
  rsrc.SetGrphYScale(2);
  graphics.Paint({0, 0}, 2, 2);
  EXPECT_EQ(graphics.Point(0, 399), 2);
  EXPECT_EQ(CountOf(2), SCREEN_WIDTH * SCREEN_HEIGHT);
}

TEST_F(TGraphicsTest, PaintMarksItsBox) {
  graphics.StrokeRect({100, 100}, {120, 110}, 2);
  rsrc.TakeModifiedRect();
  graphics.Paint({110, 105}, 4, 2);
  // The right edge is where the walk stopped.
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{101, 101, 120, 109}));
}

TEST_F(TGraphicsTest, PaintGoesRoundASinglePixelOfTheBorder) {
  for (const TPoint& border : {TPoint{0, 0},
                               {1, 0},
                               {320, 0},
                               {639, 0},
                               {0, 100},
                               {1, 100},
                               {320, 100},
                               {639, 100},
                               {0, 300},
                               {1, 300},
                               {320, 300},
                               {639, 300},
                               {0, 399},
                               {1, 399},
                               {320, 399},
                               {639, 399}}) {
    rsrc.ClearGrphBuf();
    graphics.Pset(border, 2);
    graphics.Paint({320, 200}, 4, 2);
    EXPECT_EQ(CountOf(4), SCREEN_WIDTH * SCREEN_HEIGHT - 1) << border.x << "," << border.y;
  }
}

TEST_F(TGraphicsTest, PaintFillsRandomMazesAsAPixelByPixelSearchDoes) {
  std::mt19937 random(3);
  for (int round = 0; round < 6; ++round) {
    rsrc.ClearGrphBuf();
    for (int i = 0; i < 120 + 60 * round; ++i) {
      const auto coord = [&](int size) { return static_cast<float>(random() % unsigned(size)); };
      const TPoint p{coord(640), coord(400)};
      const TPoint q{p.x + coord(120) - 60, p.y + coord(120) - 60};
      graphics.Line(p, q, static_cast<int8_t>(1 + i % 3));
    }
    for (int x = 0; x < 640; x += 2) graphics.Pset({static_cast<float>(x), 150}, 2);
    const std::vector<uint8_t> before = Plane();
    const int8_t paint = static_cast<int8_t>(round % 2 ? 2 : 6);
    graphics.Paint({320, 200}, paint, 2);
    const auto region = region_of(before, 320, 200, 2);
    const std::vector<uint8_t> after = Plane();
    for (int y = 0; y < SCREEN_HEIGHT; ++y) {
      for (int x = 0; x < SCREEN_WIDTH; ++x) {
        const size_t at = static_cast<size_t>(y * SCREEN_WIDTH + x);
        ASSERT_EQ(after[at], region.count({x, y}) ? paint : before[at]) << x << "," << y;
      }
    }
    ExpectSamePlanes(0);
  }
}

// --- Pictures -----------------------------------------------------------------------------------

TEST_F(TGraphicsTest, PictureHasBothCornersAndRemembersTheSecond) {
  graphics.Pset({10, 10}, 1);
  graphics.Pset({12, 13}, 2);
  const TGrphBlock block = graphics.GetBlock({10, 10}, {12, 13});
  EXPECT_EQ(block.width, 3);
  EXPECT_EQ(block.height, 4);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{12, 13}));
  graphics.PutBlock({100, 200}, block, TPutMode::PSet);
  EXPECT_EQ(Index(100, 200), 1);
  EXPECT_EQ(Index(102, 203), 2);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{100, 200}));
}

TEST_F(TGraphicsTest, PutMarksThePicture) {
  const TGrphBlock block = graphics.GetBlock({0, 0}, {9, 19});
  rsrc.TakeModifiedRect();
  graphics.PutBlock({100, 200}, block, TPutMode::PSet);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{100, 200, 109, 219}));
}

TEST_F(TGraphicsTest, APictureTakesTheColoursOfNowAndLeavesThoseBesideIt) {
  const TGrphBlock block = graphics.GetBlock({0, 0}, {3, 0});
  graphics.FillRect({10, 10}, {20, 10}, 1);
  rsrc.SetGrphPal(1, {255, 0, 0});
  rsrc.SetColorMode(0);
  graphics.PutBlock({12, 10}, block, TPutMode::Or);
  for (int32_t x = 10; x <= 20; ++x) {
    const bool isPut = x >= 12 && x <= 15;
    EXPECT_EQ(rsrc.GrphBmp(0).RealRow(10)[x], isPut ? 0x0000FFu : 0xFF0000u) << x;
  }
}

TEST_F(TGraphicsTest, APictureBesideThePageTouchesNothing) {
  const TGrphBlock block = graphics.GetBlock({0, 0}, {9, 9});
  for (const TPoint& p : {TPoint{640, 0}, TPoint{0, 400}, TPoint{-10, 0}, TPoint{0, -10}}) {
    graphics.PutBlock(p, block, TPutMode::PReset);
  }
  EXPECT_TRUE(rsrc.GrphBmp(0).IsPristine());
  graphics.PutBlock({-9, -9}, block, TPutMode::PReset);
  EXPECT_EQ(CountOf(15), 1);
}

TEST_F(TGraphicsTest, XorTwiceRestores) {
  for (int i = 0; i < 8; ++i) graphics.FillRect({i * 5.f, 0}, {i * 5.f + 4, 30}, int8_t(i));
  const TGrphBlock block = graphics.GetBlock({0, 0}, {31, 15});
  graphics.FillRect({50, 50}, {90, 90}, 5);
  const std::vector<uint8_t> before = Plane();
  graphics.PutBlock({60, 60}, block, TPutMode::Xor);
  EXPECT_NE(Plane(), before);
  graphics.PutBlock({60, 60}, block, TPutMode::Xor);
  EXPECT_EQ(Plane(), before);
}

int combined(TPutMode mode, int s, int d) {
  switch (mode) {
    case TPutMode::PSet:
      return s;
    case TPutMode::PReset:
      return (15 - s) & 0xFF;
    case TPutMode::Or:
      return s | d;
    case TPutMode::And:
      return s & d;
    case TPutMode::Xor:
      return s ^ d;
  }
  return -1;
}

TEST_F(TGraphicsTest, AllModesCombineAndClipAsTheTableSays) {
  std::mt19937 random(5);
  for (int mode = 0; mode <= 4; ++mode) {
    for (const TPixel& at : {TPixel{50, 60}, TPixel{-7, -9}, TPixel{625, 390}, TPixel{-40, 0},
                             TPixel{640, 0}, TPixel{0, 400}, TPixel{600, 100}}) {
      for (int i = 0; i < 40; ++i) {
        const float x = static_cast<float>(random() % 640), y = static_cast<float>(random() % 400);
        graphics.FillRect({x, y}, {x + 30, y + 20}, static_cast<int8_t>(random() % 16));
      }
      // Taken partly outside: what lies outside counts as index 0.
      const TGrphBlock block = graphics.GetBlock({-5, 300}, {30, 420});
      const std::vector<uint8_t> before = Plane();
      graphics.PutBlock({static_cast<float>(at.x), static_cast<float>(at.y)}, block,
                        static_cast<TPutMode>(mode));
      const auto source = [&](int x, int y) {
        const int fromX = x - at.x - 5, fromY = y - at.y + 300;
        const bool isOn = fromX >= 0 && fromY < SCREEN_HEIGHT;
        return isOn ? before[static_cast<size_t>(fromY * SCREEN_WIDTH + fromX)] : 0;
      };
      const std::vector<uint8_t> after = Plane();
      for (int y = 0; y < SCREEN_HEIGHT; ++y) {
        for (int x = 0; x < SCREEN_WIDTH; ++x) {
          const size_t i = static_cast<size_t>(y * SCREEN_WIDTH + x);
          const bool isTouched = x >= at.x && x < at.x + 36 && y >= at.y && y < at.y + 121;
          const int expected = isTouched
                                   ? combined(static_cast<TPutMode>(mode), source(x, y), before[i])
                                   : before[i];
          ASSERT_EQ(after[i], expected) << x << "," << y << " mode " << mode;
        }
      }
      ExpectSamePlanes(0);
    }
  }
}

TEST_F(TGraphicsTest, HugePicturesKeepTheirPartOnThePage) {
  graphics.Pset({5, 6}, 3);
  const TGrphBlock block = graphics.GetBlock({-2e9f, -2e9f}, {2e9f, 2e9f});
  EXPECT_EQ(block.width, 4'000'000'001);
  EXPECT_EQ(block.pixels.size(), 640u * 400u);
  rsrc.ClearGrphBuf();
  graphics.PutBlock({-2e9f, -2e9f}, block, TPutMode::PSet);
  EXPECT_EQ(Index(5, 6), 3);
  EXPECT_EQ(CountOf(3), 1);
  graphics.PutBlock({0, 0}, block, TPutMode::PReset);
  EXPECT_EQ(CountOf(15), SCREEN_WIDTH * SCREEN_HEIGHT);
}

TEST(TPlanarTest, BitsOfThePlanesMakeTheIndex) {
  // Two lines of nine dots: two bytes a plane and line.
  const std::vector<uint8_t> data = {0x80, 0x00, 0xC0, 0x80, 0x01, 0x80,   // line 0
                                     0xFF, 0x80, 0x00, 0x00, 0xFF, 0x7F};  // line 1
  EXPECT_EQ(planar_bytes(9, 2, 3), 12);
  const TGrphBlock block =
      planar_block(9, 2, 3, [&](int64_t i) { return data[static_cast<size_t>(i)]; });
  EXPECT_EQ(block.pixels, (std::vector<uint8_t>{3, 2, 0, 0, 0, 0, 0, 4, 6,  //
                                                5, 5, 5, 5, 5, 5, 5, 5, 1}));
}

TEST(TPlanarTest, FourPlanesAndEmptyPictures) {
  const auto all = [](int64_t) { return uint8_t{0xFF}; };
  EXPECT_EQ(planar_block(1, 1, 4, all).pixels, std::vector<uint8_t>{15});
  EXPECT_EQ(planar_bytes(1, 1, 4), 4);
  EXPECT_EQ(planar_bytes(8, 1, 4), 4);
  for (const auto& [w, h] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {5, -1}}) {
    EXPECT_TRUE(planar_block(w, h, 3, all).pixels.empty());
    EXPECT_EQ(planar_bytes(w, h, 3), 0);
  }
}

TEST_F(TGraphicsTest, EmptyPicturesDrawNothing) {
  graphics.PutBlock({0, 0}, planar_block(0, 0, 3, nullptr), TPutMode::PReset);
  EXPECT_EQ(CountOf(0), SCREEN_WIDTH * SCREEN_HEIGHT);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{0, 0}));
}

TEST_F(TGraphicsTest, KanjiIsAPictureOfTwoColours) {
  graphics.PutKanji({100, 100}, "漢", TPutMode::PSet, 5, 2);
  EXPECT_EQ(CountOf(5) + CountOf(2), 256);
  EXPECT_GT(CountOf(5), 40);
  EXPECT_GT(CountOf(2), 40);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{100, 100}));
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{100, 100, 116, 116}));
  ExpectSamePlanes(0);
  rsrc.ClearGrphBuf();
  graphics.PutKanji({0, 0}, "", TPutMode::PSet, 5, 2);
  EXPECT_EQ(CountOf(2), 256);
}

TEST_F(TGraphicsTest, KanjiAtTheEdgeIsCut) {
  graphics.PutKanji({632, 396}, "漢", TPutMode::PSet, 5, 2);
  EXPECT_EQ(CountOf(5) + CountOf(2), 8 * 4);
  graphics.PutKanji({-1e30f, NOT_A_NUMBER}, "漢", TPutMode::PSet, 5, 2);
}

TEST_F(TGraphicsTest, RollMovesTheActivePageAndMarksAll) {
  graphics.Pset({0, 200}, 5);
  rsrc.TakeModifiedRect();
  graphics.Roll(1, 0, 3);
  EXPECT_EQ(Index(0, 199), 5);
  EXPECT_EQ(Index(7, 399), 3);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{0, 200}));
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 0, 640, 400}));
  ExpectSamePlanes(0);
}

// --- Anything goes ------------------------------------------------------------------------------

TEST_F(TGraphicsTest, RandomDrawingLeavesBothPlanesAlike) {
  std::mt19937 random(99);
  const auto coord = [&]() -> float {
    switch (random() % 12) {
      case 0:
        return 1e30f;
      case 1:
        return -INF;
      case 2:
        return NOT_A_NUMBER;
      case 3:
        return static_cast<float>(static_cast<int32_t>(random()));
      default:
        return static_cast<float>(random() % 10000) / 10 - 150;
    }
  };
  const auto point = [&] { return TPoint{coord(), coord()}; };
  for (int i = 0; i < 3000; ++i) {
    const int8_t color = static_cast<int8_t>(random());
    const int32_t fill = static_cast<int32_t>(random() % 17) - 1;
    const TPoint p = point(), q = point();
    switch (random() % 12) {
      case 0:
        graphics.Pset(p, color);
        break;
      case 1:
        graphics.Line(p, q, color);
        break;
      case 2:
        graphics.StrokeRect(p, q, color);
        break;
      case 3:
        graphics.FillRect(p, {p.x + 20, p.y + 30}, color, fill);
        break;
      case 4:
        graphics.StrokeEllipse(p, q, color);
        break;
      case 5:
        graphics.FillEllipse(p, {coord() / 9, coord() / 9}, color, fill);
        break;
      case 6:
        graphics.StrokeArc(p, q, color, {coord(), coord(), true, true});
        break;
      case 7:
        graphics.FillArc(p, {coord() / 9, coord() / 9}, color, {coord(), coord(), false, false},
                         fill);
        break;
      case 8:
        graphics.Paint(p, color, static_cast<int8_t>(random() % 8));
        break;
      case 9:
        graphics.PutBlock(q, graphics.GetBlock(p, {p.x + 40, p.y + 40}),
                          static_cast<TPutMode>(random() % 5));
        break;
      case 10:
        graphics.PutKanji(p, "字", static_cast<TPutMode>(random() % 5), color, 1);
        break;
      default:
        graphics.Roll(static_cast<int32_t>(random() % 21) - 10,
                      static_cast<int32_t>(random() % 21) - 10, color);
    }
  }
  ExpectSamePlanes(0);
}

}  // namespace
}  // namespace zoka
