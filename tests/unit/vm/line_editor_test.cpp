// The line editor's keys, one by one: inside and outside a console area, in both widths, with wide
// characters. The machine does not run; the editor is called as INPUT calls it.
#include "vm/line_editor.h"

#include <gtest/gtest.h>

#include "tests/unit/vm/machine_rig.h"

namespace zoka {
namespace {

const std::string LEFT = "\x1D";
const std::string RIGHT = "\x1C";
const std::string UP = "\x1E";
const std::string DOWN = "\x1F";
const std::string BACKSPACE = "\x08";
const std::string DELETE = "\x7F";

using TKeys = std::vector<std::string>;

/// The same key several times.
TKeys times(int count, const std::string& key) {
  return TKeys(static_cast<size_t>(count), key);
}

class LineEditor : public ::testing::Test {
 protected:
  TBasicRsrc& Screen() { return rig.rsrc; }
  /// Text at a cell, with the cursor left behind it.
  void Put(int32_t cell, std::string_view text) {
    Screen().SetCursorPos(cell);
    Screen().Print(text);
  }
  void ConsoleOfRows5To7() { Screen().SetConsole(5, 3); }

  /// What is read after these keys and Return.
  std::string Line(const TKeys& keys) {
    rig.inputs.keys.assign(keys.begin(), keys.end());
    rig.inputs.keys.push_back("\x0D");
    std::list<std::string> items;
    EXPECT_TRUE(InputFromUser(rig.Machine(), &items, true, nullptr));
    EXPECT_TRUE(rig.inputs.keys.empty());
    EXPECT_EQ(items.size(), 1u);
    return items.empty() ? "" : items.front();
  }
  /// The cell that the cursor reaches by these keys from `start`, found by marking it. The mark
  /// must not scroll.
  int32_t Moved(int32_t start, TKeys keys) {
    Screen().SetCursorPos(start);
    keys.push_back("#");
    Line(keys);
    for (int32_t cell = 0; cell < Screen().TxtRows() * Screen().TxtCols(); ++cell) {
      if (Screen().Cell(cell).text[0] == '#') return cell;
    }
    return -1;
  }

  TMachineRig rig;
};

TEST_F(LineEditor, TypedTextIsReadBack) {
  EXPECT_EQ(Line({"A", "b", " ", "あ", "ｱ", ","}), "Ab あｱ,");
  EXPECT_EQ(Screen().RowText(0), "Ab あｱ,");
  EXPECT_EQ(Screen().CursorPos(), 80);
  EXPECT_FALSE(Screen().CursorShown());
}

TEST_F(LineEditor, NothingTyped) {
  EXPECT_EQ(Line({}), "");
  EXPECT_EQ(Screen().CursorPos(), 80);
}

TEST_F(LineEditor, LeftStopsAtTheFirstCell) {
  EXPECT_EQ(Moved(0, {LEFT}), 0);
}

TEST_F(LineEditor, LeftGoesOverARowsStart) {
  EXPECT_EQ(Moved(80, {LEFT}), 79);
}

TEST_F(LineEditor, LeftStopsAtTheConsolesFirstCell) {
  ConsoleOfRows5To7();
  EXPECT_EQ(Moved(400, {LEFT}), 400);
}

TEST_F(LineEditor, LeftMovesFreelyInsideTheConsole) {
  ConsoleOfRows5To7();
  EXPECT_EQ(Moved(480, {LEFT}), 479);
}

TEST_F(LineEditor, LeftFromOutsideTheConsole) {
  ConsoleOfRows5To7();
  EXPECT_EQ(Moved(320, {LEFT}), 319);  // above
}

TEST_F(LineEditor, LeftFromBelowEntersTheConsole) {
  ConsoleOfRows5To7();
  // The mark in the console's last cell scrolls it, and so does Return.
  EXPECT_EQ(Moved(640, {LEFT}), 639 - 2 * 80);
}

TEST_F(LineEditor, LeftTakesWhatItPasses) {
  Put(0, "OLD");
  EXPECT_EQ(Line({"A", LEFT, LEFT, LEFT}), "LDA");
}

TEST_F(LineEditor, RightStopsAtTheScreensLastCell) {
  Screen().SetCursorPos(1999);
  EXPECT_EQ(Line({RIGHT}), "");  // a step would have taken a cell
}

TEST_F(LineEditor, RightStopsAtTheConsolesLastCell) {
  ConsoleOfRows5To7();
  Screen().SetCursorPos(639);
  EXPECT_EQ(Line({RIGHT}), "");
}

TEST_F(LineEditor, RightFromOutsideEntersTheConsole) {
  ConsoleOfRows5To7();
  EXPECT_EQ(Moved(399, {RIGHT}), 400);
}

TEST_F(LineEditor, RightTakesWhatItPasses) {
  Put(0, "HELLO");
  Screen().SetCursorPos(0);
  EXPECT_EQ(Line({RIGHT, RIGHT, "X", RIGHT}), "HEXL");
}

TEST_F(LineEditor, RightOverEmptyCellsGivesBlanks) {
  EXPECT_EQ(Line({RIGHT, RIGHT, "A"}), "  A");
}

TEST_F(LineEditor, UpStopsInTheFirstRow) {
  // Without a move the range stays.
  EXPECT_EQ(Line({"A", "B", UP}), "AB");
}

TEST_F(LineEditor, UpStopsInTheConsolesFirstRow) {
  ConsoleOfRows5To7();
  Screen().SetCursorPos(400);
  EXPECT_EQ(Line({"A", "B", UP}), "AB");
}

TEST_F(LineEditor, UpBeginsANewRange) {
  Screen().SetCursorPos(160);
  EXPECT_EQ(Line({"A", "B", UP}), "");
  EXPECT_EQ(Moved(163, {UP}), 83);
}

TEST_F(LineEditor, UpFromBelowEntersTheConsole) {
  ConsoleOfRows5To7();
  EXPECT_EQ(Moved(643, {UP}), 563 - 80);  // Return scrolls
}

TEST_F(LineEditor, UpAboveTheConsoleIsFree) {
  ConsoleOfRows5To7();
  EXPECT_EQ(Moved(323, {UP}), 243);
}

TEST_F(LineEditor, DownStopsInTheLastRow) {
  Screen().SetCursorPos(1920);
  EXPECT_EQ(Line({"A", "B", DOWN}), "AB");
}

TEST_F(LineEditor, DownStopsInTheConsolesLastRow) {
  ConsoleOfRows5To7();
  Screen().SetCursorPos(560);
  EXPECT_EQ(Line({"A", "B", DOWN}), "AB");
}

TEST_F(LineEditor, DownBeginsANewRange) {
  EXPECT_EQ(Line({"A", "B", DOWN}), "");
  EXPECT_EQ(Moved(3, {DOWN}), 83);
}

TEST_F(LineEditor, DownFromAboveEntersTheConsole) {
  ConsoleOfRows5To7();
  EXPECT_EQ(Moved(323, {DOWN}), 403);
}

TEST_F(LineEditor, ALineOnTheScreenIsPickedUpAgain) {
  Put(80, "OLD LINE");
  Screen().SetCursorPos(160);
  TKeys keys = {UP};
  for (int i = 0; i < 8; ++i) keys.push_back(RIGHT);
  EXPECT_EQ(Line(keys), "OLD LINE");
}

TEST_F(LineEditor, BackspaceRubsOut) {
  EXPECT_EQ(Line({"A", "B", "C", BACKSPACE}), "AB");
  EXPECT_EQ(Screen().RowText(0), "AB");
}

TEST_F(LineEditor, BackspaceRubsOutTheFirstCell) {
  EXPECT_EQ(Line({"A", BACKSPACE, "B"}), "B");
}

TEST_F(LineEditor, BackspacePullsTheRest) {
  EXPECT_EQ(Line({"A", "B", "C", LEFT, BACKSPACE}), "AC");
  EXPECT_EQ(Screen().RowText(0), "AC");
}

TEST_F(LineEditor, BackspaceAtTheFirstCellDeletes) {
  Put(0, "XYZ");
  Screen().SetCursorPos(0);
  EXPECT_EQ(Line({BACKSPACE}), "");
  EXPECT_EQ(Screen().RowText(0), "YZ");
}

TEST_F(LineEditor, BackspaceAtTheConsolesStartDeletes) {
  ConsoleOfRows5To7();
  Put(399, "A");
  Put(400, "XYZ");
  Screen().SetCursorPos(400);
  EXPECT_EQ(Line({BACKSPACE}), "");
  EXPECT_EQ(Screen().RowText(5), "YZ");
  EXPECT_EQ(Screen().CursorPos(), 480);
}

TEST_F(LineEditor, BackspaceAtARowsStartBehindAnEmptyCellDeletes) {
  Put(80, "XYZ");
  Screen().SetCursorPos(80);
  EXPECT_EQ(Line({BACKSPACE}), "");
  EXPECT_EQ(Screen().RowText(0), "");
  EXPECT_EQ(Screen().RowText(1), "YZ");
}

TEST_F(LineEditor, BackspaceAtARowsStartBehindTextGoesOverIt) {
  Put(79, "A");
  Put(80, "XYZ");
  Screen().SetCursorPos(80);
  EXPECT_EQ(Line({BACKSPACE}), "");
  EXPECT_EQ(Screen().RowText(0), std::string(79, ' ') + "X");
  EXPECT_EQ(Screen().RowText(1), "YZ");
}

TEST_F(LineEditor, BackspaceOverThePromptMakesNoInput) {
  Put(0, "? ");
  EXPECT_EQ(Line({BACKSPACE, "X"}), "");
  EXPECT_EQ(Screen().RowText(0), "?X");
}

TEST_F(LineEditor, DeletePullsTheRestAndKeepsTheEnd) {
  EXPECT_EQ(Line({"A", "B", "C", LEFT, LEFT, LEFT, DELETE}), "BC ");
}

TEST_F(LineEditor, DeleteBehindTheTextEmptiesTheCell) {
  EXPECT_EQ(Line({"A", "B", LEFT, DELETE}), "A ");
}

TEST_F(LineEditor, DeleteStopsAtTheFirstGap) {
  Put(0, "AB D");
  Put(10, "Z");
  Screen().SetCursorPos(0);
  Line({DELETE});
  EXPECT_EQ(Screen().RowText(0), "B D       Z");
}

TEST_F(LineEditor, DeleteInTheLastCellDoesNothing) {
  Screen().SetConsole(0, 24);  // so that the last row does not scroll
  Put(1999, "A");
  Screen().SetCursorPos(1999);
  EXPECT_EQ(Line({DELETE}), "");
  EXPECT_EQ(Screen().RowText(24), std::string(79, ' ') + "A");
}

TEST_F(LineEditor, TheScreensEndsBoundTheCursorOutsideAConsole) {
  ConsoleOfRows5To7();
  EXPECT_EQ(Moved(0, {LEFT}), 0);
  Put(0, "XYZ");
  Screen().SetCursorPos(0);
  EXPECT_EQ(Line({BACKSPACE}), "");
  EXPECT_EQ(Screen().RowText(0), "YZ");
  EXPECT_EQ(Moved(1998, {RIGHT}), 1999);
  EXPECT_EQ(Moved(1925, {DOWN}), 1925);
  Screen().SetCursorPos(1999);
  EXPECT_EQ(Line({RIGHT}), "");
}

TEST_F(LineEditor, OtherControlKeysAdvance) {
  EXPECT_EQ(Line({"A", "\x12", "B", "\x1B", "\x0C", "C"}), "A B  C");
}

TEST_F(LineEditor, KeysOfSeveralCharactersAreTypedWhole) {
  EXPECT_EQ(Line({"日本", "A"}), "日本A");
}

TEST_F(LineEditor, WideCharactersTakeTwoCells) {
  EXPECT_EQ(Line({"あ", "い", LEFT, LEFT, "A"}), "あA");
  EXPECT_EQ(Screen().RowText(0), "あA");
}

TEST_F(LineEditor, WideCharacterOverwrittenFromTheRight) {
  EXPECT_EQ(Line({"あ", LEFT, "A"}), "あA");
}

TEST_F(LineEditor, WideCharacterAtTheRowsEnd) {
  Screen().SetCursorPos(79);
  EXPECT_EQ(Line({"あ", "A"}), "あA");
  EXPECT_TRUE(Screen().Cell(80).IsRightHalf());
}

TEST_F(LineEditor, BackspaceTakesHalfOfAWideCharacter) {
  EXPECT_EQ(Line({"あ", BACKSPACE, "A"}), "あA");
}

TEST_F(LineEditor, In40Columns) {
  Screen().SetTxtSize(40, 25);
  EXPECT_EQ(Line(times(50, "A")), std::string(50, 'A'));
  EXPECT_EQ(Screen().RowText(1), std::string(10, 'A'));
  Screen().SetTxtSize(40, 25);
  EXPECT_EQ(Moved(43, {UP}), 3);
  Screen().SetTxtSize(40, 25);
  EXPECT_EQ(Moved(3, {DOWN}), 43);
  Screen().SetTxtSize(40, 25);
  Screen().SetCursorPos(999);
  EXPECT_EQ(Line({RIGHT}), "");
}

TEST_F(LineEditor, In40ColumnsInsideAConsole) {
  Screen().SetTxtSize(40, 25);
  ConsoleOfRows5To7();
  EXPECT_EQ(Moved(200, {LEFT, UP}), 200);
  Screen().SetTxtSize(40, 25);
  ConsoleOfRows5To7();
  Screen().SetCursorPos(319);
  EXPECT_EQ(Line({RIGHT, DOWN}), "");
}

TEST_F(LineEditor, In20Rows) {
  Screen().SetTxtSize(80, 20);
  Screen().SetCursorPos(1520);
  EXPECT_EQ(Line({"A", DOWN}), "A");
}

TEST_F(LineEditor, LongInputAtTheBottomIsNotLost) {
  Screen().SetCursorPos(1920);
  EXPECT_EQ(Line(times(300, "A")), std::string(300, 'A'));
}

TEST_F(LineEditor, InputLongerThanTheConsoleKeepsWhatIsStillThere) {
  ConsoleOfRows5To7();
  Screen().SetCursorPos(400);
  // Six rows and a quarter were typed; two rows and a quarter are left in the console.
  EXPECT_EQ(Line(times(500, "A")), std::string(180, 'A'));
}

TEST_F(LineEditor, EndlessTypingStaysOnTheScreen) {
  TKeys keys;
  for (int i = 0; i < 2000; ++i) {
    for (const std::string& key : {std::string("漢"), UP, LEFT, DELETE, RIGHT, DOWN, BACKSPACE}) {
      keys.push_back(key);
    }
  }
  for (int i = 0; i < 3000; ++i) keys.push_back("\xE3");
  Line(keys);
  EXPECT_GE(Screen().CursorPos(), 0);
  EXPECT_LT(Screen().CursorPos(), 2000);
}

TEST_F(LineEditor, PromptOf10000Characters) {
  Put(0, std::string(10'000, 'A'));
  EXPECT_EQ(Line({"x", "y"}), "xy");
}

TEST_F(LineEditor, ALimitThatRunsOutIsTold) {
  std::list<std::string> items;
  const int32_t limit = 10;
  rig.inputs.keys = {"A", "B"};
  EXPECT_FALSE(InputFromUser(rig.Machine(), &items, true, &limit));
  EXPECT_EQ(rig.inputs.timeouts, (std::vector<bigtime_t>{1'000'000, 1'000'000, 1'000'000}));
}

TEST_F(LineEditor, LimitsOfAnySize) {
  for (int32_t limit : {0, -1, -5, INT32_MAX}) {
    std::list<std::string> items;
    rig.inputs.timeouts.clear();
    rig.inputs.keys = {"A", "\x0D"};
    EXPECT_TRUE(InputFromUser(rig.Machine(), &items, true, &limit)) << limit;
    EXPECT_EQ(items, std::list<std::string>{"A"});
    EXPECT_EQ(rig.inputs.timeouts.back(), limit * bigtime_t{100'000});
  }
}

TEST_F(LineEditor, ItemsOfALine) {
  using TItems = std::list<std::string>;
  EXPECT_EQ(split_items(""), TItems{""});
  EXPECT_EQ(split_items("a"), TItems{"a"});
  EXPECT_EQ(split_items("a,b"), (TItems{"a", "b"}));
  EXPECT_EQ(split_items("a,"), (TItems{"a", ""}));
  EXPECT_EQ(split_items(",,"), (TItems{"", "", ""}));
  EXPECT_EQ(split_items(" \"a , b\" "), (TItems{" \"a ", " b\" "}));
}

TEST_F(LineEditor, InputDlCountsBytes) {
  rig.inputs.keys = {"é", "A", "ｱ", "B", "C"};
  EXPECT_EQ(InputDlFromUser(rig.Machine(), 2), "é");
  EXPECT_EQ(InputDlFromUser(rig.Machine(), 3), "Aｱ");
  EXPECT_EQ(InputDlFromUser(rig.Machine(), 0), "");
  EXPECT_EQ(InputDlFromUser(rig.Machine(), -3), "");
  EXPECT_EQ(InputDlFromUser(rig.Machine(), 1), "B");
  EXPECT_EQ(Screen().RowText(0), "");
  EXPECT_FALSE(Screen().CursorShown());
}

TEST_F(LineEditor, AStoppedMachineReadsNothing) {
  rig.Machine().Terminate();
  std::list<std::string> items = {"old"};
  EXPECT_TRUE(InputFromUser(rig.Machine(), &items, true, nullptr));
  EXPECT_TRUE(items.empty());
}

/// Looks at the cursor whenever a key is waited for.
class TCursorWatch final : public TTestInputs {
 public:
  explicit TCursorWatch(TMachineRig& rig) : TTestInputs(*rig.clock), mScreen(rig.rsrc) {}
  std::string PopKey(TThread& machine) override {
    shown.push_back(mScreen.CursorShown());
    return TTestInputs::PopKey(machine);
  }
  std::vector<bool> shown;

 private:
  TBasicRsrc& mScreen;
};

TEST_F(LineEditor, TheCursorShowsWhileKeysAreWaitedFor) {
  TCursorWatch watch(rig);
  rig.otherInputs = &watch;
  watch.keys = {"A", "\x0D", "B"};
  std::list<std::string> items;
  EXPECT_TRUE(InputFromUser(rig.Machine(), &items, true, nullptr));
  EXPECT_EQ(InputDlFromUser(rig.Machine(), 1), "B");
  EXPECT_EQ(watch.shown, (std::vector<bool>{true, true, true}));
  rig.machine.reset();
}

TEST(InputStatement, AThousandVariables) {
  TMachineRig rig;
  for (int i = 0; i < 1000; ++i) rig.Ref("A%", {i % 10});
  rig.OpLong(TVMCodeCmd::Input, 1000);
  rig.inputs.keys = {std::string(999, ','), "7", "\x0D"};
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_TRUE(rig.Values().empty());
  EXPECT_EQ(rig.Var("A%")->ints[9 + 1], 7);  // the last variable, behind the plain one
}

}  // namespace
}  // namespace zoka
