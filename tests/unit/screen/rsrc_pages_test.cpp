// Palettes, pages, repaint marks, lamps.
#include "run/screen/graphics.h"
#include "tests/unit/screen/screen_fixture.h"

namespace zoka {
namespace {

class TPagesTest : public TScreenTest {
 protected:
  TGraphics graphics{rsrc};

  uint32_t Real(int8_t page, int32_t x, int32_t y) const {
    return rsrc.GrphBmp(page).RealRow(y)[x];
  }
  int Index(int8_t page, int32_t x, int32_t y) const { return rsrc.GrphBmp(page).IndexRow(y)[x]; }
};

TEST_F(TPagesTest, ColourCodesWidenTheirNibbles) {
  EXPECT_EQ(TBasicRsrc::BasColCodeToBeRGB(0x000), (TRgb{0, 0, 0}));
  EXPECT_EQ(TBasicRsrc::BasColCodeToBeRGB(0xFFF), (TRgb{255, 255, 255}));
  EXPECT_EQ(TBasicRsrc::BasColCodeToBeRGB(0x123), (TRgb{0x22, 0x11, 0x33}));
}

TEST_F(TPagesTest, BaseAndTextPalettesAreTheEightDigitalColours) {
  const TRgb expected[] = {{0, 0, 0},   {0, 0, 255},   {255, 0, 0},   {255, 0, 255},
                           {0, 255, 0}, {0, 255, 255}, {255, 255, 0}, {255, 255, 255}};
  for (int32_t i = 0; i < 8; ++i) {
    EXPECT_EQ(rsrc.BasePal(i), expected[i]);
    EXPECT_EQ(rsrc.TxtPal(i), expected[i]);
    EXPECT_EQ(rsrc.GrphPal(i), expected[i]);
  }
}

TEST_F(TPagesTest, UpperHalfOfTheGraphicPaletteIsDark) {
  const TRgb expected[] = {{0x77, 0x77, 0x77}, {0, 0, 0xAA},      {0xAA, 0, 0},
                           {0xAA, 0, 0xAA},    {0, 0xAA, 0},      {0, 0xAA, 0xAA},
                           {0xAA, 0xAA, 0},    {0xAA, 0xAA, 0xAA}};
  for (int32_t i = 0; i < 8; ++i) EXPECT_EQ(rsrc.GrphPal(i + 8), expected[i]);
}

TEST_F(TPagesTest, GraphicsStartWithTheValuesOfAFreshMachine) {
  EXPECT_TRUE(rsrc.GrphVisible());
  EXPECT_EQ(rsrc.GrphYScale(), 2);
  EXPECT_EQ(rsrc.GrphForeColor(), 7);
  EXPECT_EQ(rsrc.GrphBackColor(), 0);
  EXPECT_EQ(rsrc.ActivePage(), 0);
  EXPECT_EQ(rsrc.DisplayPage(), 0);
  EXPECT_EQ(rsrc.ColorMode(), 0);
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{0, 0}));
  for (int8_t page = 0; page < 4; ++page) EXPECT_FALSE(rsrc.PalStale(page));
}

TEST_F(TPagesTest, NothingTouchesThePagesBeforeTheFirstDrawing) {
  rsrc.ClearGrphBuf();
  rsrc.SetDisplayPage(1);
  rsrc.InitColorPalette();
  graphics.Roll(10, 10, 0);
  for (int8_t page = 0; page < 4; ++page) EXPECT_TRUE(rsrc.GrphBmp(page).IsPristine());
  rsrc.SetGrphBackColor(1);
  rsrc.ClearGrphBuf();
  EXPECT_FALSE(rsrc.GrphBmp(0).IsPristine());
  EXPECT_TRUE(rsrc.GrphBmp(1).IsPristine());
}

TEST_F(TPagesTest, ClearFillsBothPlanesAndHomesTheLastPoint) {
  graphics.Pset({5, 6}, 3);
  rsrc.SetGrphBackColor(9);
  rsrc.ClearGrphBuf();
  EXPECT_EQ(rsrc.LastPoint(), (TPoint{0, 0}));
  EXPECT_EQ(Index(0, 639, 399), 9);
  EXPECT_EQ(Real(0, 639, 399), 0x0000AAu);
  EXPECT_EQ(Real(0, 5, 6), 0x0000AAu);
}

TEST_F(TPagesTest, PaletteChangeRebuildsThePageShownOnly) {
  graphics.Pset({1, 1}, 1);
  rsrc.SetActivePage(1);
  graphics.Pset({1, 1}, 1);
  rsrc.SetGrphPal(1, {255, 0, 0});
  EXPECT_EQ(Real(0, 1, 1), 0xFF0000u);
  EXPECT_EQ(Real(1, 1, 1), 0x0000FFu);
  EXPECT_FALSE(rsrc.PalStale(0));
  for (int8_t page = 1; page < 4; ++page) EXPECT_TRUE(rsrc.PalStale(page));
  rsrc.SetDisplayPage(1);
  EXPECT_EQ(Real(1, 1, 1), 0xFF0000u);
  EXPECT_FALSE(rsrc.PalStale(1));
  EXPECT_TRUE(rsrc.PalStale(2));
}

TEST_F(TPagesTest, WithNoPageShownNothingIsRebuilt) {
  graphics.Pset({1, 1}, 1);
  rsrc.SetDisplayPage(NO_PAGE);
  rsrc.SetGrphPal(1, {255, 0, 0});
  rsrc.TransferGrphBmpPalToReal();
  EXPECT_EQ(Real(0, 1, 1), 0x0000FFu);
  for (int8_t page = 0; page < 4; ++page) EXPECT_TRUE(rsrc.PalStale(page));
}

TEST_F(TPagesTest, BackgroundEntryReachesAnEmptyPage) {
  rsrc.SetGrphPal(0, {1, 2, 3});
  EXPECT_EQ(Real(0, 0, 0), 0x010203u);
  EXPECT_EQ(Real(0, 639, 199), 0x010203u);
  EXPECT_EQ(Real(0, 0, 200), 0u);
}

TEST_F(TPagesTest, ColourModeResetsThePaletteButNotThePicture) {
  rsrc.SetGrphYScale(1);
  graphics.FillRect({0, 0}, {639, 399}, 1);
  rsrc.SetGrphPal(1, rsrc.BasePal(2));
  rsrc.SetColorMode(0);
  EXPECT_EQ(Real(0, 639, 399), 0xFF0000u);
  EXPECT_EQ(rsrc.GrphPal(1), (TRgb{0, 0, 255}));
  rsrc.InitColorPalette();
  EXPECT_EQ(Real(0, 639, 399), 0x0000FFu);
}

TEST_F(TPagesTest, Mode200RebuildsTheUpperHalfOnly) {
  rsrc.SetGrphYScale(1);
  graphics.FillRect({0, 0}, {639, 399}, 1);
  rsrc.SetGrphYScale(2);
  rsrc.SetGrphPal(1, rsrc.BasePal(2));
  rsrc.SetGrphYScale(1);
  EXPECT_EQ(Real(0, 639, 0), 0xFF0000u);
  EXPECT_EQ(Real(0, 639, 199), 0xFF0000u);
  EXPECT_EQ(Real(0, 639, 200), 0x0000FFu);
  EXPECT_EQ(Real(0, 639, 399), 0x0000FFu);
}

TEST_F(TPagesTest, Mode400HasTwoPages) {
  rsrc.SetActivePage(3);
  rsrc.SetDisplayPage(2);
  rsrc.SetGrphYScale(1);
  EXPECT_EQ(rsrc.ActivePage(), 0);
  EXPECT_EQ(rsrc.DisplayPage(), 0);
  rsrc.SetActivePage(1);
  rsrc.SetDisplayPage(1);
  rsrc.SetGrphYScale(1);
  EXPECT_EQ(rsrc.ActivePage(), 1);
  EXPECT_EQ(rsrc.DisplayPage(), 1);
}

TEST_F(TPagesTest, NoPageShownCountsAsAboveTheTwoPages) {
  rsrc.SetDisplayPage(NO_PAGE);
  rsrc.SetGrphYScale(1);
  EXPECT_EQ(rsrc.DisplayPage(), 0);
}

TEST_F(TPagesTest, ModeChangeKeepsThePicture) {
  rsrc.SetGrphYScale(1);
  graphics.Pset({0, 199}, 5);
  graphics.Pset({0, 399}, 6);
  rsrc.SetGrphYScale(2);
  EXPECT_EQ(Index(0, 0, 199), 5);
  EXPECT_EQ(Index(0, 0, 399), 6);
}

// --- Repaint marks ------------------------------------------------------------------------------

TEST_F(TPagesTest, MarksMergeIntoTheirUnion) {
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
  rsrc.SetScrModifiedKernel2({10, 20, 30, 40});
  EXPECT_EQ(rsrc.ModifiedRect(), (TRect{10, 20, 30, 40}));
  rsrc.SetScrModifiedKernel2({5, 25, 31, 30});
  EXPECT_EQ(rsrc.ModifiedRect(), (TRect{5, 20, 31, 40}));
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{5, 20, 31, 40}));
  EXPECT_EQ(rsrc.ModifiedRect(), TRect{});
}

TEST_F(TPagesTest, AGraphicRowIsTwoDeviceRowsIn200LineModes) {
  rsrc.SetScrModifiedByGrph2({0, 7, 639, 7});
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 14, 639, 15}));
  rsrc.SetGrphYScale(1);
  rsrc.TakeModifiedRect();
  rsrc.SetScrModifiedByGrph2({0, 7, 639, 7});
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 7, 639, 7}));
}

TEST_F(TPagesTest, GraphicCornersAreSorted) {
  rsrc.SetScrModifiedByGrph2({30, 9, 10, 4});
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{10, 8, 30, 19}));
}

TEST_F(TPagesTest, DrawingOnAHiddenPageNeedsNoRepaint) {
  rsrc.SetActivePage(1);
  rsrc.TakeModifiedRect();
  rsrc.SetScrModifiedByGrph2({0, 0, 9, 9});
  rsrc.SetScrModifiedAll2();
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
  rsrc.SetActivePage(0);
  rsrc.SetGrphVisible(false);
  rsrc.TakeModifiedRect();
  rsrc.SetScrModifiedAll2();
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
}

TEST_F(TPagesTest, FarRectanglesDoNotOverflow) {
  rsrc.SetScrModifiedByGrph2({INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX});
  const TRect r = rsrc.TakeModifiedRect();
  EXPECT_LT(r.top, 0);
  EXPECT_GT(r.bottom, 400);
}

TEST_F(TPagesTest, TextMarksOneRowOrWholeRows) {
  rsrc.SetScrModifiedByTxt2(83, 81);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{8, 16, 32, 32}));
  rsrc.SetScrModifiedByTxt2(79, 80);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 0, 640, 32}));
  rsrc.SetTxtSize(40, 20);
  rsrc.TakeModifiedRect();
  rsrc.SetScrModifiedByTxt2(41, 41);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{16, 20, 32, 40}));
}

TEST_F(TPagesTest, TextMarksReachTheFirstCellAndNoFurther) {
  rsrc.SetScrModifiedByTxt2(-5, 0);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 0, 8, 16}));
  rsrc.Print("A");
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 0, 16, 16}));
  rsrc.SetCursorPos(0);
  rsrc.SetCursorShown(true);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 0, 8, 16}));
}

TEST_F(TPagesTest, WhatChangesEveryPixelMarksAllOfThem) {
  const TRect all{0, 0, 640, 400};
  rsrc.SetGrphVisible(true);
  EXPECT_EQ(rsrc.TakeModifiedRect(), all);
  rsrc.SetGrphYScale(1);
  EXPECT_EQ(rsrc.TakeModifiedRect(), all);
  rsrc.SetDisplayPage(0);
  EXPECT_EQ(rsrc.TakeModifiedRect(), all);
  rsrc.SetFontFamilyAndSize("IPAGothic", 14);
  EXPECT_EQ(rsrc.TakeModifiedRect(), all);
}

TEST_F(TPagesTest, PrintMarksFromTheOldCursorToTheNew) {
  rsrc.SetCursorPos(80);
  rsrc.Print("AB");
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 16, 24, 32}));
  // Going back over what was written must not leave it unpainted.
  rsrc.Print("XYZ\x1D\x1D\x1D");
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{16, 16, 48, 32}));
}

TEST_F(TPagesTest, WhatChangesTextMarksThatAndNoMore) {
  rsrc.SetCursorPos(80);
  rsrc.Print("ABCD");
  rsrc.TakeModifiedRect();
  rsrc.SlideTxtToLeft(82);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{8, 16, 32, 32}));
  rsrc.ClearTxtBuf(2, 4);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 32, 640, 64}));
  rsrc.ClearTxtBuf(2, 3);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 32, 640, 48}));
  rsrc.ClearTxtBuf(7, 7);
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
  rsrc.SetTxtAttr(3, 5, 9, 6, 1);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 80, 640, 112}));
  rsrc.SetCellAttr(82, 1);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{16, 16, 24, 32}));
  rsrc.SetConsole(2, 4);
  rsrc.TakeModifiedRect();
  rsrc.ScrollTxt2(1);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 32, 640, 96}));
  rsrc.SetConsole(2, 1);
  rsrc.ScrollTxt2(1);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{0, 32, 640, 48}));
  rsrc.SetConsole(2, 0);
  rsrc.ScrollTxt2(1);
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
}

TEST_F(TPagesTest, HidingTheCursorMarksItsCell) {
  rsrc.SetCursorPos(81);
  rsrc.SetCursorShown(true);
  rsrc.TakeModifiedRect();
  rsrc.SetCursorShown(false);
  EXPECT_EQ(rsrc.TakeModifiedRect(), (TRect{8, 16, 16, 32}));
  rsrc.SetCursorPos(-7);
  rsrc.SetCursorShown(true);
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
}

TEST_F(TPagesTest, BlinkFlipsAndSaysWhetherItShows) {
  EXPECT_FALSE(rsrc.FlipCursorBlink());
  rsrc.SetCursorShown(true);
  EXPECT_TRUE(rsrc.FlipCursorBlink());
}

// --- Alarm and lamps ----------------------------------------------------------------------------

TEST_F(TPagesTest, AlarmGoesToTheOwner) {
  EXPECT_EQ(rsrc.SetOnTimeDl("12:00:00"), 0);
  EXPECT_EQ(owner.alarm, "12:00:00");
  rsrc.SetOwner(nullptr);
  EXPECT_EQ(rsrc.SetOnTimeDl("12:00:00"), -1);
}

TEST_F(TPagesTest, LampGoesOnAndOffAfterwards) {
  using TLamps = std::vector<std::pair<int32_t, int32_t>>;
  TWake wake(*clock);
  rsrc.SetFDDAccessLampByDriveIndex(1);
  EXPECT_EQ(owner.lamps, (TLamps{{1, 1}}));
  clock->snooze(199'999, wake);
  EXPECT_EQ(owner.lamps, (TLamps{{1, 1}}));
  clock->snooze(1, wake);
  EXPECT_EQ(owner.lamps, (TLamps{{1, 1}, {1, -1}}));
}

TEST_F(TPagesTest, LampIsThrottledPerDriveAndOverlaps) {
  using TLamps = std::vector<std::pair<int32_t, int32_t>>;
  TWake wake(*clock);
  rsrc.SetFDDAccessLampByDriveIndex(0);
  clock->snooze(99'999, wake);
  rsrc.SetFDDAccessLampByDriveIndex(0);
  rsrc.SetFDDAccessLampByDriveIndex(1);
  clock->snooze(1, wake);
  rsrc.SetFDDAccessLampByDriveIndex(0);
  EXPECT_EQ(owner.lamps, (TLamps{{0, 1}, {1, 1}, {0, 1}}));
  clock->snooze(1'000'000, wake);
  EXPECT_EQ(owner.lamps, (TLamps{{0, 1}, {1, 1}, {0, 1}, {0, -1}, {1, -1}, {0, -1}}));
}

TEST_F(TPagesTest, OnlyTheFirstTwoDrivesHaveALamp) {
  rsrc.SetFDDAccessLampByDriveIndex(-1);
  rsrc.SetFDDAccessLampByDriveIndex(2);
  rsrc.SetFDDAccessLampByFileDesc(1);
  rsrc.SetFDDAccessLampByFileDesc(0);
  rsrc.SetFDDAccessLampByFileDesc(16);
  EXPECT_TRUE(owner.lamps.empty());
}

TEST_F(TPagesTest, NoTimerOfALampOutlivesTheScreen) {
  TWake wake(*clock);
  {
    TBasicRsrc other(*clock);
    other.SetOwner(&owner);
    other.SetFDDAccessLampByDriveIndex(0);
    clock->snooze(100'000, wake);
    other.SetFDDAccessLampByDriveIndex(0);
  }
  clock->snooze(1'000'000, wake);
  EXPECT_EQ(owner.lamps.size(), 2u);
}

}  // namespace
}  // namespace zoka
