// The text screen: printing, control codes, scrolling, the line editor's help, reading back.
#include "tests/unit/screen/screen_fixture.h"

namespace zoka {
namespace {

using TRows = std::vector<std::string>;

class TTextTest : public TScreenTest {};

// --- Initial state and size ---------------------------------------------------------------------

TEST_F(TTextTest, StartsWithTheValuesOfAFreshMachine) {
  EXPECT_EQ(rsrc.TxtCols(), 80);
  EXPECT_EQ(rsrc.TxtRows(), 25);
  EXPECT_EQ(rsrc.ConsoleTop(), 0);
  EXPECT_EQ(rsrc.ConsoleBottom(), 25);
  EXPECT_EQ(rsrc.TxtColor(), 7);
  EXPECT_EQ(rsrc.CursorPos(), 0);
  EXPECT_FALSE(rsrc.CursorShown());
  EXPECT_EQ(rsrc.OptionBase(), 0);
  EXPECT_EQ(rsrc.DefSeg(), 0);
  for (int32_t i = 0; i < 2000; ++i) {
    ASSERT_TRUE(rsrc.Cell(i).IsEmpty()) << i;
    ASSERT_EQ(rsrc.CellAttr(i), 0) << i;
  }
}

struct TSizeRow {
  int32_t cols;
  int32_t rows;
  int32_t width;
  int32_t height;
  float baseline;
};

TEST_F(TTextTest, CellSizeFollowsColumnsAndRows) {
  for (const TSizeRow& row : {TSizeRow{80, 25, 8, 16, 14}, TSizeRow{40, 25, 16, 16, 14},
                              TSizeRow{80, 20, 8, 20, 16}, TSizeRow{40, 20, 16, 20, 16}}) {
    rsrc.SetTxtSize(row.cols, row.rows);
    EXPECT_EQ(rsrc.CellWidth(), row.width);
    EXPECT_EQ(rsrc.CellHeight(), row.height);
    EXPECT_EQ(rsrc.TxtBaseline(), row.baseline);
  }
}

TEST_F(TTextTest, BaselineFollowsTheFont) {
  rsrc.SetFontHeight({10, 3});
  EXPECT_EQ(rsrc.TxtBaseline(), (16 - 13) * 0.5f + 10);
}

TEST_F(TTextTest, WidthMakesTheConsoleAllRowsAndClearsTheText) {
  rsrc.SetConsole(3, 5);
  rsrc.SetCursorPos(400);
  rsrc.Print("X");
  rsrc.SetTxtSize(40, 20);
  EXPECT_EQ(rsrc.ConsoleTop(), 0);
  EXPECT_EQ(rsrc.ConsoleBottom(), 20);
  EXPECT_EQ(rsrc.CursorPos(), 0);
  EXPECT_EQ(Rows(), TRows{});
}

TEST_F(TTextTest, ConsoleKeepsWhatIsNotGivenAndIsCutToTheScreen) {
  rsrc.SetConsole(5, 10);
  EXPECT_EQ(rsrc.ConsoleTop(), 5);
  EXPECT_EQ(rsrc.ConsoleBottom(), 15);
  rsrc.SetConsole(-1, 3);
  EXPECT_EQ(rsrc.ConsoleTop(), 5);
  EXPECT_EQ(rsrc.ConsoleBottom(), 8);
  rsrc.SetConsole(2, -1);
  EXPECT_EQ(rsrc.ConsoleTop(), 2);
  EXPECT_EQ(rsrc.ConsoleBottom(), 8);
  rsrc.SetConsole(20, 25);
  EXPECT_EQ(rsrc.ConsoleBottom(), 25);
  rsrc.SetConsole(0, 0);
  EXPECT_EQ(rsrc.ConsoleTop(), 0);
  EXPECT_EQ(rsrc.ConsoleBottom(), 0);
}

// --- Printing -----------------------------------------------------------------------------------

TEST_F(TTextTest, PrintWritesCharactersWithTheCurrentColour) {
  rsrc.SetTxtColor(3);
  rsrc.Print("AB");
  rsrc.SetTxtColor(5);
  EXPECT_EQ(CellText(0), "A");
  EXPECT_EQ(CellText(1), "B");
  EXPECT_EQ(rsrc.CellAttr(1), 3);
  EXPECT_EQ(rsrc.CellAttr(2), 0);
  EXPECT_EQ(rsrc.CursorPos(), 2);
}

TEST_F(TTextTest, PrintDoesNotRepaint) {
  rsrc.Print("A");
  EXPECT_EQ(owner.updates, 0);
  rsrc.UpdateScreen();
  EXPECT_EQ(owner.updates, 1);
}

TEST_F(TTextTest, WideCharactersTakeTwoCellsAndHalfKanaOne) {
  rsrc.Print("漢ｱé");
  EXPECT_EQ(CellText(0), "漢");
  EXPECT_TRUE(rsrc.Cell(1).IsRightHalf());
  EXPECT_EQ(CellText(2), "ｱ");
  EXPECT_EQ(CellText(3), "é");
  EXPECT_TRUE(rsrc.Cell(4).IsRightHalf());
  EXPECT_EQ(rsrc.CursorPos(), 5);
}

TEST_F(TTextTest, WideCharacterAtTheLastColumnIsSplit) {
  rsrc.SetCursorPos(79);
  rsrc.Print("漢");
  EXPECT_EQ(CellText(79), "漢");
  EXPECT_TRUE(rsrc.Cell(80).IsRightHalf());
  EXPECT_EQ(rsrc.CursorPos(), 81);
}

TEST_F(TTextTest, WideCharacterAtTheLastCellLosesItsHalf) {
  rsrc.SetConsole(0, 24);
  rsrc.SetCursorPos(1999);
  rsrc.Print("漢");
  EXPECT_EQ(CellText(1999), "漢");
  EXPECT_TRUE(rsrc.Cell(2000).IsEmpty());
  EXPECT_EQ(rsrc.CursorPos(), 2001 - 80);
}

TEST_F(TTextTest, WideCharacterFillsTheLastTwoCells) {
  rsrc.SetConsole(0, 24);
  rsrc.SetCursorPos(1998);
  rsrc.Print("漢");
  EXPECT_EQ(CellText(1998), "漢");
  EXPECT_TRUE(rsrc.Cell(1999).IsRightHalf());
}

TEST_F(TTextTest, FourByteAndBrokenCharactersKeepWithinTheirCell) {
  rsrc.Print("\xF0\x9F\x98\x80\xFF\xE3\x81");
  EXPECT_EQ(CellText(0), "\xF0\x9F\x98\x80");
  EXPECT_TRUE(rsrc.Cell(1).IsRightHalf());
  // A byte 0xFF promises eight bytes, but a character has four at most.
  EXPECT_EQ(CellText(2), "\xFF\xE3\x81");
}

TEST_F(TTextTest, PrintEndsAtANul) {
  rsrc.Print(std::string_view("A\0B", 3));
  EXPECT_EQ(Rows(), TRows{"A"});
  EXPECT_EQ(rsrc.CursorPos(), 1);
}

TEST_F(TTextTest, ControlCodesMove) {
  rsrc.SetCursorPos(165);
  rsrc.Print("\x1D");
  EXPECT_EQ(rsrc.CursorPos(), 164);
  rsrc.Print("\x1E");
  EXPECT_EQ(rsrc.CursorPos(), 84);
  rsrc.Print("\x1F");
  EXPECT_EQ(rsrc.CursorPos(), 164);
  rsrc.Print("\x1C");
  EXPECT_EQ(rsrc.CursorPos(), 165);
  rsrc.Print("\x07");
  EXPECT_EQ(rsrc.CursorPos(), 166);
  rsrc.Print("\r");
  EXPECT_EQ(rsrc.CursorPos(), 240);
  EXPECT_EQ(Rows(), TRows{});
}

TEST_F(TTextTest, ControlCodesCountOneColumnWhenMeasured) {
  // 79 blanks and a control code reach the end of the last row, so the text scrolls beforehand.
  rsrc.SetCursorPos(1920);
  rsrc.Print(std::string(79, 'A') + "\x1D");
  EXPECT_EQ(owner.rows, TRows{""});
  EXPECT_EQ(rsrc.CursorPos(), 1840 + 78);
}

TEST_F(TTextTest, WideCharactersCountTwoColumnsWhenMeasured) {
  std::string text;
  for (int i = 0; i < 39; ++i) text += "漢";
  rsrc.SetCursorPos(1920);
  rsrc.Print(text + "A");
  EXPECT_EQ(owner.rows, TRows{});
  EXPECT_EQ(rsrc.CursorPos(), 1920 + 79);
  // Two cells more, one of them behind the last row.
  rsrc.Print("漢");
  EXPECT_EQ(owner.rows, TRows{""});
}

TEST_F(TTextTest, RowsOffTheScreenHaveNoText) {
  rsrc.SetTxtSize(80, 20);
  for (int32_t row = 0; row < 20; ++row) {
    rsrc.SetCursorPos(row * 80);
    rsrc.Print("A");
  }
  EXPECT_EQ(rsrc.RowText(-1), "");
  EXPECT_EQ(rsrc.RowText(0), "A");
  EXPECT_EQ(rsrc.RowText(19), "A");
  EXPECT_EQ(rsrc.RowText(20), "");
}

TEST_F(TTextTest, FullRowLeavesTheCursorOnTheNext) {
  PrintLine(std::string(80, 'A'));
  PrintLine("B");
  EXPECT_EQ(Rows(), (TRows{std::string(80, 'A'), "", "B"}));
}

TEST_F(TTextTest, CarriageReturnInTheLastRowNeverScrolls) {
  rsrc.SetCursorPos(24 * 80);
  rsrc.Print("A\rB");
  EXPECT_EQ(rsrc.RowText(24), "B");
  EXPECT_TRUE(owner.rows.empty());
  EXPECT_EQ(rsrc.CursorPos(), 24 * 80 + 1);
}

TEST_F(TTextTest, LongTextScrollsOnceBeforehandAndSkipsWhatNeverShows) {
  PrintLine("first");
  std::string text;
  for (int i = 0; i < 30; ++i) text += std::string(80, static_cast<char>('A' + i % 26));
  rsrc.Print(text);
  // The cursor was in row 1; the text ends at the start of row 31, so 7 rows go.
  EXPECT_EQ(owner.rows, (TRows{"first", "", "", "", "", "", ""}));
  EXPECT_EQ(rsrc.RowText(0), std::string(80, 'G'));
  EXPECT_EQ(rsrc.RowText(23), std::string(80, 'D'));
  EXPECT_EQ(rsrc.RowText(24), "");
  EXPECT_EQ(rsrc.CursorPos(), 24 * 80);
}

TEST_F(TTextTest, TextLongerThanTheConsoleShowsItsEnd) {
  rsrc.SetConsole(2, 3);
  rsrc.SetCursorPos(0);
  rsrc.Print("above");
  rsrc.SetCursorPos(2 * 80);
  std::string text;
  for (int i = 0; i < 10; ++i) text += std::string(80, static_cast<char>('0' + i));
  rsrc.Print(text);
  EXPECT_EQ(Rows(), (TRows{"above", "", std::string(80, '8'), std::string(80, '9')}));
  EXPECT_EQ(rsrc.CursorPos(), 4 * 80);
  // Only rows that were on the screen scroll off; what the walk skipped never was a row.
  EXPECT_EQ(owner.rows, (TRows{"", "", ""}));
}

TEST_F(TTextTest, StartAboveTheConsolePrintsNormallyAndDoesNotScroll) {
  rsrc.SetConsole(2, 2);
  rsrc.SetCursorPos(80);
  rsrc.Print("abc");
  EXPECT_EQ(rsrc.RowText(1), "abc");
  EXPECT_TRUE(owner.rows.empty());
}

TEST_F(TTextTest, UpFromInsideWritesNothingAboveTheConsole) {
  rsrc.SetConsole(2, 5);
  rsrc.SetCursorPos(2 * 80 + 10);
  rsrc.Print("\x1EX\x1FY");
  EXPECT_EQ(rsrc.RowText(1), "");
  EXPECT_EQ(rsrc.RowText(2), std::string(11, ' ') + "Y");
}

TEST_F(TTextTest, NegativeCursorWritesNothingUntilItIsBack) {
  rsrc.SetCursorPos(2);
  rsrc.Print("\x1E");
  EXPECT_EQ(rsrc.CursorPos(), -78);
  rsrc.Print(std::string(78, 'A') + "B");
  EXPECT_EQ(Rows(), TRows{"B"});
  EXPECT_EQ(rsrc.CursorPos(), 1);
}

TEST_F(TTextTest, LineEndsAboveTheScreenLeadToTheNextRow) {
  for (const int32_t above : {-80, -79, -1}) {
    rsrc.SetCursorPos(above);
    rsrc.DoCRLF();
    EXPECT_EQ(rsrc.CursorPos(), 0) << above;
    rsrc.SetCursorPos(above - 80);
    rsrc.Print("\rB");
    EXPECT_EQ(rsrc.CursorPos(), -79) << above;
  }
  EXPECT_EQ(Rows(), TRows{});
}

TEST_F(TTextTest, BelowTheConsoleTheLastRowIsUsedOverAndOver) {
  rsrc.SetConsole(0, 20);
  rsrc.SetCursorPos(24 * 80 + 78);
  rsrc.Print("ABC");
  EXPECT_EQ(CellText(1998), "A");
  EXPECT_EQ(CellText(1999), "B");
  EXPECT_EQ(CellText(1920), "C");
  EXPECT_EQ(rsrc.CursorPos(), 1921);
}

TEST_F(TTextTest, CellsBeyondTheScreenAreNotWritten) {
  rsrc.SetTxtSize(40, 25);
  rsrc.SetCursorPos(1600);
  rsrc.Print("ABC");
  for (int32_t i = 0; i < 2000; ++i) ASSERT_TRUE(rsrc.Cell(i).IsEmpty()) << i;
  EXPECT_EQ(rsrc.CursorPos(), 1603 - 3 * 40);
}

TEST_F(TTextTest, HugeTextsOfControlCodesStayInRange) {
  std::string ups;
  ups.resize(40'000'000, '\x1E');
  rsrc.Print(ups);
  EXPECT_EQ(rsrc.CursorPos(), INT32_MIN / 2);
  rsrc.DoCRLF();
  rsrc.Print("A");
  EXPECT_EQ(Rows(), TRows{});
}

// --- Line ends and scrolling --------------------------------------------------------------------

TEST_F(TTextTest, LineEndScrollsAtTheConsolesEnd) {
  rsrc.SetConsole(1, 2);
  rsrc.Print("top");
  rsrc.SetCursorPos(80);
  PrintLine("1");
  PrintLine("2");
  EXPECT_EQ(Rows(), (TRows{"top", "2"}));
  EXPECT_EQ(rsrc.CursorPos(), 2 * 80);
  EXPECT_EQ(owner.rows, TRows{"1"});
}

TEST_F(TTextTest, LineEndInTheLastRowBelowTheConsoleStays) {
  rsrc.SetConsole(0, 20);
  rsrc.SetCursorPos(24 * 80 + 5);
  rsrc.DoCRLF();
  EXPECT_EQ(rsrc.CursorPos(), 24 * 80);
  EXPECT_TRUE(owner.rows.empty());
}

TEST_F(TTextTest, LineEndMarksNothing) {
  rsrc.DoCRLF();
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
}

TEST_F(TTextTest, LineEndOffTheScreenDoesNotRunAway) {
  rsrc.SetTxtSize(40, 25);
  rsrc.SetCursorPos(1600);
  for (int i = 0; i < 100; ++i) rsrc.DoCRLF();
  EXPECT_EQ(rsrc.CursorPos(), 1600);
}

TEST_F(TTextTest, ScrollingMovesCellsAndAttributesButBlankRowsKeepTheirs) {
  rsrc.SetTxtAttr(0, 24, 79, 24, 2);
  rsrc.SetCursorPos(80);
  rsrc.SetTxtColor(4);
  rsrc.Print("x");
  rsrc.ScrollTxt2(1);
  EXPECT_EQ(CellText(0), "x");
  EXPECT_EQ(rsrc.CellAttr(0), 4);
  EXPECT_EQ(rsrc.CellAttr(23 * 80), 2);
  EXPECT_TRUE(rsrc.Cell(24 * 80).IsEmpty());
  EXPECT_EQ(rsrc.CellAttr(24 * 80), 2);
  EXPECT_EQ(rsrc.CursorPos(), 1);
}

TEST_F(TTextTest, ScrollingByTheHeightBlanksAndLeavesTheRowsAbove) {
  rsrc.Print("above");
  rsrc.SetConsole(1, 3);
  for (int i = 1; i < 4; ++i) {
    rsrc.SetCursorPos(i * 80);
    rsrc.Print("r");
  }
  rsrc.SetCursorPos(80);
  rsrc.ScrollTxt2(7);
  EXPECT_EQ(rsrc.ScrolledRows(), 7);
  EXPECT_EQ(Rows(), TRows{"above"});
  EXPECT_EQ(rsrc.CursorPos(), 80 - 7 * 80);
  EXPECT_EQ(owner.rows, (TRows{"r", "r", "r"}));
}

TEST_F(TTextTest, ScrollingAnEmptyConsoleMovesTheCursorOnly) {
  rsrc.Print("keep");
  for (const int32_t row : {19, 20}) {
    rsrc.SetCursorPos(row * 80);
    rsrc.Print("keep");
  }
  const TRows before = Rows();
  rsrc.SetConsole(20, 0);
  rsrc.SetCursorPos(20 * 80);
  rsrc.ScrollTxt2(2);
  EXPECT_EQ(Rows(), before);
  EXPECT_EQ(rsrc.CursorPos(), 18 * 80);
  EXPECT_TRUE(owner.rows.empty());
  // With the top below the bottom it is empty, too.
  rsrc.SetConsole(5, 3);
  rsrc.SetConsole(20, -1);
  rsrc.ScrollTxt2(1);
  EXPECT_EQ(Rows(), before);
}

TEST_F(TTextTest, TranscriptComesBeforeTheRowsMoveAndIsTrimmed) {
  rsrc.Print("row  ");
  rsrc.SetCursorPos(24 * 80);
  rsrc.DoCRLF();
  EXPECT_EQ(owner.rows, TRows{"row"});
}

TEST_F(TTextTest, TranscriptShowsBrokenBytesAsReplacement) {
  rsrc.Print("a\xFFz");
  EXPECT_EQ(rsrc.RowText(0), "a\xEF\xBF\xBD");
}

// --- Clearing -----------------------------------------------------------------------------------

TEST_F(TTextTest, ClearCountsEightyCellsARowAlsoWithForty) {
  rsrc.SetTxtSize(40, 25);
  for (int row = 0; row < 25; ++row) {
    rsrc.SetCursorPos(row * 40);
    rsrc.Print("r");
  }
  rsrc.ClearTxtBuf(2, 5);
  for (int row = 0; row < 25; ++row) {
    EXPECT_EQ(rsrc.RowText(row), row >= 4 && row < 10 ? "" : "r") << row;
  }
  EXPECT_EQ(rsrc.CursorPos(), 160);
}

TEST_F(TTextTest, ClearWithFortyColumnsPutsTheCursorTwiceAsFarDown) {
  rsrc.SetTxtSize(40, 25);
  rsrc.SetConsole(5, 10);
  rsrc.ClearTxtBuf(5, 15);
  PrintLine("10");
  EXPECT_EQ(rsrc.RowText(10), "10");
}

TEST_F(TTextTest, ClearKeepsAttributes) {
  rsrc.SetTxtAttr(0, 0, 79, 0, 6);
  rsrc.ClearTxtBuf(0, 25);
  EXPECT_EQ(rsrc.CellAttr(79), 6);
}

TEST_F(TTextTest, ClearOfAnEmptyConsolePlacesTheCursor) {
  rsrc.Print("A");
  rsrc.ClearTxtBuf(7, 7);
  EXPECT_EQ(rsrc.CursorPos(), 560);
  EXPECT_EQ(Rows(), TRows{"A"});
}

// --- The line editor's help ---------------------------------------------------------------------

TEST_F(TTextTest, SlideMovesTheRunLeftWithoutItsAttributes) {
  rsrc.SetTxtColor(1);
  rsrc.Print("AB");
  rsrc.SetTxtColor(2);
  rsrc.Print("CD");
  rsrc.SetCursorPos(10);
  rsrc.Print("Z");
  rsrc.SlideTxtToLeft(1);
  EXPECT_EQ(rsrc.RowText(0), "BCD       Z");
  EXPECT_TRUE(rsrc.Cell(3).IsEmpty());
  EXPECT_EQ(rsrc.CellAttr(0), 1);
  EXPECT_EQ(rsrc.CellAttr(1), 1);
  EXPECT_EQ(rsrc.CellAttr(2), 2);
}

TEST_F(TTextTest, SlideAtTheEndEmptiesTheCellBefore) {
  rsrc.Print("AB");
  rsrc.SlideTxtToLeft(2);
  EXPECT_EQ(rsrc.RowText(0), "A");
}

TEST_F(TTextTest, SlideStopsAtTheLastCell) {
  rsrc.SetConsole(0, 20);
  rsrc.SetCursorPos(1998);
  rsrc.Print("AB");
  rsrc.SlideTxtToLeft(1999);
  EXPECT_EQ(CellText(1998), "B");
  EXPECT_TRUE(rsrc.Cell(1999).IsEmpty());
  rsrc.SlideTxtToLeft(2000);
  EXPECT_TRUE(rsrc.Cell(1999).IsEmpty());
  rsrc.SlideTxtToLeft(-5);
  rsrc.SlideTxtToLeft(9999);
}

TEST_F(TTextTest, DisplayedTextReadsBlanksHalvesAndCharacters) {
  rsrc.Print("漢A");
  rsrc.SetCursorPos(5);
  rsrc.Print("B");
  EXPECT_EQ(rsrc.DisplayedTxt(0, 5), "漢A  B");
  EXPECT_EQ(rsrc.DisplayedTxt(1, 2), "A");
  EXPECT_EQ(rsrc.DisplayedTxt(3, 2), "");
}

TEST_F(TTextTest, DisplayedTextIsCutToTheScreen) {
  rsrc.Print("A");
  EXPECT_EQ(rsrc.DisplayedTxt(-80, 0), "A");
  EXPECT_EQ(rsrc.DisplayedTxt(1999, 5000), " ");
  EXPECT_EQ(rsrc.DisplayedTxt(-9, -2), "");
}

// --- Colours of places --------------------------------------------------------------------------

TEST_F(TTextTest, ColourOfARectangleLeavesTheText) {
  rsrc.Print("AB");
  rsrc.SetTxtAttr(1, 0, 2, 1, 12);
  EXPECT_EQ(rsrc.CellAttr(0), 7);
  EXPECT_EQ(rsrc.CellAttr(1), 4);
  EXPECT_EQ(rsrc.CellAttr(2), 4);
  EXPECT_EQ(rsrc.CellAttr(3), 0);
  EXPECT_EQ(rsrc.CellAttr(81), 4);
  EXPECT_EQ(rsrc.CellAttr(161), 0);
  EXPECT_EQ(Rows(), TRows{"AB"});
}

TEST_F(TTextTest, ColourOfACellIsThatOfACellInUse) {
  rsrc.SetTxtSize(40, 20);
  rsrc.SetCellAttr(799, 5);
  EXPECT_EQ(rsrc.CellAttr(799), 5);
  const int8_t behind = rsrc.CellAttr(800);
  rsrc.SetCellAttr(800, static_cast<int8_t>(behind ^ 1));
  EXPECT_EQ(rsrc.CellAttr(800), behind);
  rsrc.SetCellAttr(-1, 5);
}

TEST_F(TTextTest, ColourOfASingleCellBetweenEqualCorners) {
  rsrc.SetTxtAttr(3, 5, 3, 5, 6);
  EXPECT_EQ(rsrc.CellAttr(402), 0);
  EXPECT_EQ(rsrc.CellAttr(403), 6);
  EXPECT_EQ(rsrc.CellAttr(404), 0);
  EXPECT_EQ(rsrc.CellAttr(483), 0);
}

TEST_F(TTextTest, ColourWithCornersTurnedRoundDoesNothing) {
  rsrc.SetTxtAttr(5, 0, 4, 0, 1);
  rsrc.SetTxtAttr(0, 5, 0, 4, 1);
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
}

// --- The clipboard's text -----------------------------------------------------------------------

TEST_F(TTextTest, ScreenTextKeepsPrintedBlanksAndEndsEachRow) {
  EXPECT_EQ(rsrc.ScreenText(), std::string(25, '\n'));
  rsrc.SetTxtSize(80, 20);
  PrintLine("漢 ");
  rsrc.SetCursorPos(162);
  rsrc.Print("x\xFF");
  EXPECT_EQ(rsrc.ScreenText(), "漢 \n\n  x\xEF\xBF\xBD\n" + std::string(17, '\n'));
}

TEST_F(TTextTest, SnapshotHoldsTheCellsInUse) {
  rsrc.SetTxtSize(40, 20);
  rsrc.Print("A");
  const TTxtSnapshot copy = rsrc.TxtSnapshot();
  EXPECT_EQ(copy.cols, 40);
  EXPECT_EQ(copy.rows, 20);
  EXPECT_EQ(copy.cursorPos, 1);
  EXPECT_FALSE(copy.cursorShown);
  ASSERT_EQ(copy.cells.size(), 800u);
  EXPECT_STREQ(copy.cells[0].text, "A");
  EXPECT_EQ(copy.attrs[0], 7);
}

TEST_F(TTextTest, InitGoesBackToTheStart) {
  rsrc.SetTxtSize(40, 20);
  rsrc.SetTxtColor(2);
  rsrc.Print("A");
  rsrc.SetOptionBase(1);
  rsrc.TakeModifiedRect();
  rsrc.Init();
  EXPECT_EQ(rsrc.TxtCols(), 80);
  EXPECT_EQ(rsrc.CellAttr(0), 0);
  EXPECT_EQ(rsrc.TxtColor(), 7);
  EXPECT_EQ(rsrc.OptionBase(), 0);
  EXPECT_EQ(Rows(), TRows{});
  // All of the screen goes through the doubling of graphic rows, too.
  EXPECT_EQ(rsrc.ModifiedRect(), (TRect{0, 0, 640, 801}));
}

}  // namespace
}  // namespace zoka
