// Painting: graphics, text and cursor in the frame, glyphs, PNG files.
#include "run/screen/compose.h"

#include <cstdio>
#include <filesystem>
#include <random>

#include "run/screen/graphics.h"
#include "run/screen/png_file.h"
#include "tests/support/png_picture.h"
#include "tests/unit/screen/screen_fixture.h"

namespace zoka {
namespace {

constexpr uint32_t BLACK = 0xFF000000;
constexpr uint32_t WHITE = 0xFFFFFFFF;
constexpr uint32_t RED = 0xFFFF0000;

class TComposeTest : public TScreenTest {
 protected:
  std::vector<uint32_t> Pixels(const TFrameBuffer& from) const {
    return {from.Row(0), from.Row(0) + SCREEN_WIDTH * SCREEN_HEIGHT};
  }
  std::vector<uint32_t> Composition() {
    TFrameBuffer whole;
    painter.DrawComposition(whole);
    return Pixels(whole);
  }
  /// A cell of the frame as text, "#" for pixels of that colour.
  std::string Shape(const TFrameBuffer& from, TRect r, uint32_t color) const {
    std::string shape;
    for (int32_t y = r.top; y <= r.bottom; ++y) {
      for (int32_t x = r.left; x <= r.right; ++x) shape += from.Row(y)[x] == color ? '#' : '.';
      shape += '\n';
    }
    return shape;
  }

  TScreenPainter painter{rsrc};
  TGraphics graphics{rsrc};
  TFrameBuffer frame;
};

/// "A" of the default font, as its designers published it, in rows 4 to 13 of 16.
constexpr const char LETTER_A[] =
    "........\n........\n........\n........\n"
    "...##...\n..#..#..\n..#..#..\n.#....#.\n.#....#.\n"
    ".######.\n.#....#.\n.#....#.\n.#....#.\n.#....#.\n"
    "........\n........\n";

TEST_F(TComposeTest, AnEmptyScreenIsBlackAndTouchesNothing) {
  rsrc.SetScrModifiedAll2();
  EXPECT_EQ(painter.DrawBasic(frame, true), (TRect{0, 0, 639, 399}));
  for (uint32_t pixel : Pixels(frame)) ASSERT_EQ(pixel, BLACK);
  EXPECT_TRUE(rsrc.GrphBmp(0).IsPristine());
}

TEST_F(TComposeTest, NothingModifiedPaintsNothing) {
  EXPECT_FALSE(painter.DrawBasic(frame, true).IsValid());
}

TEST_F(TComposeTest, WhatIsPaintedIsForgotten) {
  rsrc.Print("A");
  EXPECT_TRUE(painter.DrawBasic(frame, true).IsValid());
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
  EXPECT_FALSE(painter.DrawBasic(frame, true).IsValid());
}

TEST_F(TComposeTest, GlyphsAreTheFontsOwnPixels) {
  rsrc.Print("A");
  painter.DrawComposition(frame);
  EXPECT_EQ(Shape(frame, {0, 0, 7, 15}, WHITE), LETTER_A);
}

TEST_F(TComposeTest, TwentyRowsPutTheGlyphTwoPixelsLower) {
  rsrc.SetTxtSize(80, 20);
  rsrc.Print("A");
  painter.DrawComposition(frame);
  EXPECT_EQ(Shape(frame, {0, 2, 7, 17}, WHITE), LETTER_A);
}

TEST_F(TComposeTest, FortyColumnsDoubleEachPixel) {
  rsrc.SetTxtSize(40, 25);
  rsrc.Print(" A");
  painter.DrawComposition(frame);
  std::string expected;
  for (const char c : std::string(LETTER_A)) expected += c == '\n' ? "\n" : std::string(2, c);
  EXPECT_EQ(Shape(frame, {16, 0, 31, 15}, WHITE), expected);
}

TEST_F(TComposeTest, TextColoursComeFromTheAttribute) {
  rsrc.SetTxtColor(2);
  rsrc.Print("A");
  rsrc.SetTxtColor(1);
  painter.DrawComposition(frame);
  EXPECT_EQ(Shape(frame, {0, 0, 7, 15}, RED), LETTER_A);
}

TEST_F(TComposeTest, KanjiFillTwoCellsAndSomeComeFromTheOtherFont) {
  // The Greek letter is half as wide in the default font as its two cells.
  rsrc.Print("漢α");
  painter.DrawComposition(frame);
  const std::string kanji = Shape(frame, {0, 0, 15, 15}, WHITE);
  EXPECT_GT(std::count(kanji.begin(), kanji.end(), '#'), 60);
  EXPECT_NE(Shape(frame, {8, 0, 15, 15}, WHITE).find('#'), std::string::npos);
  EXPECT_NE(Shape(frame, {24, 0, 31, 15}, WHITE).find('#'), std::string::npos);
}

TEST_F(TComposeTest, AGlyphReachesFromTheFirstColumnToTheLast) {
  rsrc.Print("＿");
  painter.DrawComposition(frame);
  std::string expected;
  for (int y = 0; y < 16; ++y) expected += std::string(16, y == 15 ? '#' : '.') + '\n';
  EXPECT_EQ(Shape(frame, {0, 0, 15, 15}, WHITE), expected);
}

TEST_F(TComposeTest, ACharacterThatIsTooNarrowInEachFontIsShownAllTheSame) {
  // The default font alone has this one, at half the width of its two cells.
  rsrc.Print("ğ");
  painter.DrawComposition(frame);
  EXPECT_EQ(Shape(frame, {0, 0, 7, 15}, WHITE),
            "........\n.#....#.\n.#....#.\n..####..\n"
            "........\n......#.\n..###.#.\n.#...#..\n"
            ".#...#..\n.#...#..\n..###...\n..#.....\n"
            "..####..\n.#....#.\n.#....#.\n..####..\n");
}

TEST_F(TComposeTest, AWideCharacterAtTheLastColumnShowsItsLeftHalf) {
  rsrc.Print("漢");
  rsrc.SetCursorPos(79);
  rsrc.Print("漢");
  painter.DrawComposition(frame);
  EXPECT_EQ(Shape(frame, {632, 0, 639, 15}, WHITE), Shape(frame, {0, 0, 7, 15}, WHITE));
  EXPECT_EQ(Shape(frame, {0, 16, 7, 31}, WHITE).find('#'), std::string::npos);
}

TEST_F(TComposeTest, BrokenBytesAndControlsAreBlank) {
  rsrc.Print("\xFF\xC0\x7F\xED\xA0\x80");
  for (uint32_t pixel : Composition()) ASSERT_EQ(pixel, BLACK);
}

TEST_F(TComposeTest, TwoHundredLinesAreStretched) {
  graphics.Pset({5, 7}, 2);
  painter.DrawComposition(frame);
  EXPECT_EQ(frame.Row(13)[5], BLACK);
  EXPECT_EQ(frame.Row(14)[5], RED);
  EXPECT_EQ(frame.Row(15)[5], RED);
  EXPECT_EQ(frame.Row(16)[5], BLACK);
  rsrc.SetGrphYScale(1);
  painter.DrawComposition(frame);
  EXPECT_EQ(frame.Row(7)[5], RED);
  EXPECT_EQ(frame.Row(14)[5], BLACK);
}

TEST_F(TComposeTest, APutKanjiHasTheRowsOfThePrintedCharacter) {
  rsrc.SetGrphYScale(1);
  graphics.PutKanji({0, 0}, "A", TPutMode::PSet, 7, 2);
  painter.DrawComposition(frame);
  EXPECT_EQ(Shape(frame, {0, 0, 7, 15}, WHITE), LETTER_A);
  EXPECT_EQ(Shape(frame, {8, 0, 15, 15}, RED).find('.'), std::string::npos);
}

TEST_F(TComposeTest, TheFontIsLoadedForTheFirstCharacterOnly) {
  rsrc.SetFontHeight({10, 3});
  painter.DrawComposition(frame);
  EXPECT_EQ(rsrc.TxtBaseline(), 11.5f);
  rsrc.Print("A");
  painter.DrawComposition(frame);
  EXPECT_EQ(rsrc.TxtBaseline(), 14);
}

TEST_F(TComposeTest, TextLiesOverGraphics) {
  graphics.FillRect({0, 0}, {639, 199}, 2);
  rsrc.Print("A");
  painter.DrawComposition(frame);
  EXPECT_EQ(Shape(frame, {0, 0, 7, 15}, WHITE), LETTER_A);
  EXPECT_EQ(frame.Row(0)[0], RED);
  EXPECT_EQ(frame.Row(399)[639], RED);
}

TEST_F(TComposeTest, HiddenGraphicsAreBlackUnderTheText) {
  graphics.FillRect({0, 0}, {639, 399}, 2);
  rsrc.Print("A");
  rsrc.SetGrphVisible(false);
  painter.DrawComposition(frame);
  EXPECT_EQ(frame.Row(0)[0], BLACK);
  EXPECT_EQ(Shape(frame, {0, 0, 7, 15}, WHITE), LETTER_A);
  rsrc.SetGrphVisible(true);
  rsrc.SetDisplayPage(NO_PAGE);
  painter.DrawComposition(frame);
  EXPECT_EQ(frame.Row(0)[0], BLACK);
}

TEST_F(TComposeTest, TheDisplayedPageIsShown) {
  rsrc.SetActivePage(1);
  graphics.FillRect({0, 0}, {639, 199}, 2);
  EXPECT_EQ(Composition()[0], BLACK);
  rsrc.SetDisplayPage(1);
  EXPECT_EQ(Composition()[0], RED);
}

TEST_F(TComposeTest, TheCursorIsABlockInTheViewOnly) {
  rsrc.SetTxtColor(2);
  rsrc.SetCursorPos(81);
  rsrc.SetCursorShown(true);
  rsrc.FlipCursorBlink();
  painter.DrawBasic(frame, false);
  EXPECT_EQ(Shape(frame, {8, 16, 15, 31}, RED).find('#'), std::string::npos);
  painter.DrawBasic(frame, true);
  EXPECT_EQ(Shape(frame, {8, 16, 15, 31}, RED).find('.'), std::string::npos);
  EXPECT_EQ(frame.Row(16)[7], BLACK);
  EXPECT_EQ(frame.Row(16)[16], BLACK);
  rsrc.FlipCursorBlink();
  painter.DrawBasic(frame, true);
  EXPECT_EQ(Shape(frame, {8, 16, 15, 31}, RED).find('#'), std::string::npos);
}

TEST_F(TComposeTest, TheCursorOnACharacterTakesItsColour) {
  rsrc.SetTxtColor(2);
  rsrc.Print("A");
  rsrc.SetTxtColor(7);
  rsrc.SetCursorPos(0);
  rsrc.SetCursorShown(true);
  rsrc.FlipCursorBlink();
  painter.DrawBasic(frame, true);
  EXPECT_EQ(Shape(frame, {0, 0, 7, 15}, RED).find('.'), std::string::npos);
}

TEST_F(TComposeTest, TheCursorOnARightHalfRepaintsTheLeftHalfToo) {
  rsrc.Print("A漢");
  painter.DrawBasic(frame, true);
  rsrc.SetCursorPos(2);
  rsrc.SetCursorShown(true);
  EXPECT_EQ(painter.DrawBasic(frame, true), (TRect{8, 0, 24, 16}));
}

TEST_F(TComposeTest, AShownCursorIsPaintedEachTimeWithItsOwnCellOnly) {
  rsrc.SetCursorShown(true);
  painter.DrawBasic(frame, true);
  EXPECT_EQ(painter.DrawBasic(frame, true), (TRect{0, 0, 8, 16}));
  rsrc.SetCursorPos(81);
  EXPECT_EQ(painter.DrawBasic(frame, true), (TRect{8, 16, 16, 32}));
  for (const int32_t outside : {-1, 2000}) {
    rsrc.SetCursorPos(outside);
    rsrc.SetScrModifiedKernel2({100, 100, 107, 107});
    EXPECT_EQ(painter.DrawBasic(frame, true), (TRect{100, 100, 107, 107})) << outside;
  }
}

TEST_F(TComposeTest, ACursorOffTheScreenIsNotShown) {
  rsrc.SetCursorShown(true);
  rsrc.FlipCursorBlink();
  for (int32_t pos : {-1, -80, 2000, 5000}) {
    rsrc.SetCursorPos(pos);
    painter.DrawBasic(frame, true);
  }
  for (uint32_t pixel : Pixels(frame)) ASSERT_EQ(pixel, BLACK);
}

TEST_F(TComposeTest, ACompositionForgetsNoChange) {
  rsrc.Print("A");
  const TRect before = rsrc.ModifiedRect();
  painter.DrawComposition(frame);
  EXPECT_EQ(rsrc.ModifiedRect(), before);
}

TEST_F(TComposeTest, AGraphicPageIsCopiedUnstretched) {
  graphics.Pset({5, 7}, 2);
  rsrc.SetActivePage(2);
  graphics.Pset({6, 8}, 2);
  painter.DrawGrphPage(frame, -1);
  EXPECT_EQ(frame.Row(7)[5], RED);
  EXPECT_EQ(frame.Row(8)[5], BLACK);
  graphics.Pset({0, 399}, 2);
  graphics.Pset({639, 399}, 2);
  painter.DrawGrphPage(frame, 2);
  EXPECT_EQ(frame.Row(8)[6], RED);
  EXPECT_EQ(frame.Row(399)[0], RED);
  EXPECT_EQ(frame.Row(399)[639], RED);
  rsrc.SetDisplayPage(2);
  painter.DrawGrphPage(frame, 0);
  EXPECT_EQ(frame.Row(7)[5], RED);
  EXPECT_EQ(frame.Row(8)[6], BLACK);
  rsrc.SetDisplayPage(NO_PAGE);
  painter.DrawGrphPage(frame, -1);
  EXPECT_EQ(frame.Row(7)[5], BLACK);
}

TEST_F(TComposeTest, PartsPaintedInAnyOrderEqualAPictureOfTheWhole) {
  std::mt19937 random(21);
  const char* const texts[] = {"A", "漢字", "ｱｲ", "xyz", " ", "\x1E", "é", "α"};
  for (const auto& [cols, rows] : {std::pair{80, 25}, {40, 25}, {80, 20}, {40, 20}}) {
    rsrc.SetTxtSize(cols, rows);
    rsrc.SetGrphYScale(cols == 40 ? 2 : 1);
    for (int i = 0; i < 300; ++i) {
      rsrc.SetCursorPos(static_cast<int32_t>(random() % unsigned(cols * rows)));
      rsrc.SetTxtColor(static_cast<int8_t>(random() % 8));
      rsrc.Print(texts[random() % 8]);
      const float x = static_cast<float>(random() % 640), y = static_cast<float>(random() % 400);
      graphics.Line({x, y}, {x + 13, y - 21}, static_cast<int8_t>(random() % 16));
      if (random() % 3 == 0) painter.DrawBasic(frame, false);
    }
    painter.DrawBasic(frame, false);
    ASSERT_EQ(Pixels(frame), Composition()) << cols << " by " << rows;
  }
}

TEST_F(TComposeTest, UnknownFamiliesCountAsTheDefault) {
  rsrc.SetFontFamilyAndSize("No Such Family At All", 14);
  rsrc.Print("A");
  painter.DrawComposition(frame);
  EXPECT_EQ(Shape(frame, {0, 0, 7, 15}, WHITE), LETTER_A);
}

TEST_F(TComposeTest, AFamilyIsFoundByEachOfItsNames) {
  std::vector<std::string> shapes;
  for (const char* family : {"IPAGothic", "IPAゴシック", "ipagothic", "Unifont-JP"}) {
    rsrc.SetFontFamilyAndSize(family, 14);
    rsrc.SetCursorPos(0);
    rsrc.Print("漢");
    painter.DrawComposition(frame);
    shapes.push_back(Shape(frame, {0, 0, 15, 15}, WHITE));
  }
  EXPECT_EQ(shapes[1], shapes[0]);
  EXPECT_EQ(shapes[2], shapes[0]);
  EXPECT_NE(shapes[3], shapes[0]);
}

TEST_F(TComposeTest, OtherFamiliesAndSizesStayWithinTheirCells) {
  for (const float size : {5.f, 14.f, 23.f, 50.f}) {
    rsrc.SetFontFamilyAndSize("IPAGothic", size);
    rsrc.ClearTxtBuf(0, 25);
    rsrc.SetCursorPos(81);
    rsrc.Print("漢");
    painter.DrawComposition(frame);
    for (int32_t y = 0; y < SCREEN_HEIGHT; ++y) {
      for (int32_t x = 0; x < SCREEN_WIDTH; ++x) {
        const bool isInside = x >= 8 && x < 24 && y >= 16 && y < 32;
        ASSERT_TRUE(isInside || frame.Row(y)[x] == BLACK) << x << "," << y;
      }
    }
    EXPECT_NE(Shape(frame, {8, 16, 23, 31}, WHITE).find('#'), std::string::npos) << size;
  }
}

TEST_F(TComposeTest, AnOddSizeHasHalfWidthsToo) {
  // Of 17 pixels the half is 9; the letter is that of the default font, a row higher than with 16.
  rsrc.SetFontFamilyAndSize("Unifont-JP", 15);
  rsrc.Print("A");
  painter.DrawComposition(frame);
  EXPECT_EQ(Shape(frame, {0, 0, 7, 15}, WHITE),
            "........\n........\n........\n...##...\n"
            "..#..#..\n..#..#..\n..#..#..\n.#....#.\n"
            ".#....#.\n.######.\n.#....#.\n.#....#.\n"
            ".#....#.\n.#....#.\n........\n........\n");
}

TEST_F(TComposeTest, AGlyphWiderThanItsCellsShowsItsLeftPart) {
  // A bar of five rows at 57 pixels: columns 5 to 51, rows 25 to 21 above a baseline at 30.
  rsrc.SetFontFamilyAndSize("IPAGothic", 50);
  rsrc.Print("一");
  painter.DrawComposition(frame);
  std::string expected;
  for (int y = 0; y < 16; ++y) {
    const bool isBar = y >= 5 && y <= 9;
    expected += "....." + std::string(11, isBar ? '#' : '.') + '\n';
  }
  EXPECT_EQ(Shape(frame, {0, 0, 15, 15}, WHITE), expected);
}

TEST(TGlyphTest, SizesOfTheSettingsBecomePixels) {
  EXPECT_EQ(em_of_font_size(14), 16);
  EXPECT_EQ(em_of_font_size(7), 8);
  EXPECT_EQ(em_of_font_size(15), 17);
  EXPECT_EQ(em_of_font_size(0), 1);
  EXPECT_EQ(em_of_font_size(-3), 1);
}

TEST(TGlyphTest, TheDefaultFontHasTheMeasuresOfTheCell) {
  TGlyphCache glyphs;
  EXPECT_FALSE(glyphs.IsLoaded());
  const TFontHeight height = glyphs.Height();
  EXPECT_EQ(height.ascent, 14);
  EXPECT_EQ(height.descent, 2);
}

TEST(TGlyphTest, MeasuresAreThoseOfTheFontsEmSquare) {
  // 1802 and 246 of 2048 units.
  TGlyphCache glyphs;
  glyphs.SetFontFamilyAndSize("IPAGothic", 14);
  EXPECT_EQ(glyphs.Height().ascent, 1802 / 128.f);
  EXPECT_EQ(glyphs.Height().descent, 246 / 128.f);
}

// --- PNG ----------------------------------------------------------------------------------------

TEST_F(TComposeTest, APngReadsBackAsItWasWritten) {
  graphics.FillRect({10, 10}, {300, 150}, 3);
  rsrc.Print("漢字ABC");
  painter.DrawComposition(frame);
  const std::string path = ::testing::TempDir() + "zoka_compose_test.png";
  ASSERT_TRUE(write_png(path, frame));
  const TPicture picture = read_picture(path);
  std::filesystem::remove(path);
  EXPECT_EQ(picture.width, 640u);
  EXPECT_EQ(picture.height, 400u);
  EXPECT_EQ(picture.pixels, Pixels(frame));
}

TEST_F(TComposeTest, APngThatCannotBeWrittenIsAnError) {
  EXPECT_FALSE(write_png("/no/such/folder/x.png", frame));
  EXPECT_FALSE(write_png("/dev/full", frame));
}

}  // namespace
}  // namespace zoka
