// Breakpoints of the editor's margin and of the debug window, and how both follow each other while
// the list is edited, run, and run again.
#include <QAction>
#include <QMenu>
#include <filesystem>

#include "tests/window/debug_rig.h"

namespace zoka {
namespace {

class TBreakPointTest : public TDebugWindowRig {
 protected:
  void PutCursor(int line, int column = 0) { Edit().setCursorPosition(line, column); }
  std::vector<int32_t> EngineLines() { return View().Debugger()->BreakPoints().Lines(); }
  /// The dialog, filled in and confirmed.
  void Confirm(TBreakRuleDialog& dialog, const char* condition, int count) {
    ASSERT_TRUE(Until([&] { return dialog.isVisible(); }));
    dialog.Condition()->setText(condition);
    dialog.Count()->setValue(count);
    QTest::keyClick(dialog.Condition(), Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  }
};

constexpr const char LOOP[] = "10 FOR I=1 TO 9\n20 A=A+I\n30 NEXT\n40 END\n";

TEST_F(TBreakPointTest, AClickAndF9ToggleTheMark) {
  Edit().Set(LOOP);
  ClickMargin(2);
  EXPECT_EQ(MarkedLines(), (std::vector<int>{2}));
  PutCursor(1);
  EditKey(Qt::Key_F9);
  ASSERT_TRUE(Until([&] { return MarkedLines() == std::vector<int>({1, 2}); }));
  EditKey(Qt::Key_F9);
  ASSERT_TRUE(Until([&] { return MarkedLines() == std::vector<int>({2}); }));
  ClickMargin(2);
  EXPECT_TRUE(MarkedLines().empty());
  // A mark is no edit.
  EXPECT_FALSE(Document().IsModified());
}

TEST_F(TBreakPointTest, MarksStayWithTheirLines) {
  Edit().Set("10 A\n20 B\n30 C\n40 D\n");
  Marks().Set(1, {});
  Marks().Set(3, {});
  PutCursor(0);
  QTest::keyClick(&Edit(), Qt::Key_Return);
  EXPECT_EQ(MarkedLines(), (std::vector<int>{2, 4}));
  // In front of a marked line, too.
  PutCursor(2);
  QTest::keyClick(&Edit(), Qt::Key_Return);
  EXPECT_EQ(MarkedLines(), (std::vector<int>{3, 5}));
  PutCursor(3, 2);
  QTest::keyClicks(&Edit(), "xyz");
  EXPECT_EQ(MarkedLines(), (std::vector<int>{3, 5}));
  // A line that goes takes its mark along.
  Edit().setSelection(3, 0, 4, 0);
  QTest::keyClick(&Edit(), Qt::Key_Delete);
  EXPECT_EQ(Edit().text(3), "30 C\n");
  EXPECT_EQ(MarkedLines(), (std::vector<int>{4}));
}

TEST_F(TBreakPointTest, RenumberingAndUndoKeepThem) {
  Edit().Set("10 A\n20 B\n30 C\n");
  Marks().Set(1, {"I=1", 3});
  TMessage message("rnmr");
  message.AddInt32("NewLine", 1000);
  message.AddInt32("OldLine", 1);
  message.AddInt32("Step", 10);
  mApp->MainWindow().PostMessage(message);
  ASSERT_TRUE(Until([&] { return Edit().Get() == "1000 A\n1010 B\n1020 C\n"; }));
  EXPECT_EQ(MarkedLines(), (std::vector<int>{1}));
  EXPECT_EQ(Marks().RuleOf(1), (TBreakRule{"I=1", 3}));
  Edit().undo();
  EXPECT_EQ(Edit().Get(), "10 A\n20 B\n30 C\n");
  EXPECT_EQ(MarkedLines(), (std::vector<int>{1}));
}

TEST_F(TBreakPointTest, AnotherListHasNone) {
  Edit().Set(LOOP);
  Marks().Set(1, {});
  Document().NewList();
  EXPECT_TRUE(MarkedLines().empty());
}

TEST_F(TBreakPointTest, TheyAreSetAnewInEachRun) {
  Edit().Set(LOOP);
  Marks().Set(1, {"I=3", 1});
  for (int run = 1; run <= 2; ++run) {
    RunList();
    ASSERT_TRUE(Until([&] { return View().RunNumber() == run; }));
    ASSERT_TRUE(StandsAt(20));
    EXPECT_EQ(Value("I!"), "3");
    EXPECT_EQ(Model().BreakPointItems(), (std::vector<size_t>{1}));
    EXPECT_EQ(EngineLines(), (std::vector<int32_t>{20}));
  }
}

TEST_F(TBreakPointTest, OneSetInTheDebugWindowDuringARunIsInTheMarginToo) {
  RunToStop(LOOP, 0, 10);
  Click(Source(), 2, 10);
  EXPECT_EQ(MarkedLines(), (std::vector<int>{0, 2}));
  Click(Source(), 0, 10);
  EXPECT_EQ(MarkedLines(), (std::vector<int>{2}));
  Press("TBRun");
  ASSERT_TRUE(StandsAt(30));
}

TEST_F(TBreakPointTest, OneSetThereWithoutARunIsForDisplayOnly) {
  RunList("10 A=1\n20 A=2\n");
  ASSERT_TRUE(Ended());
  Click(Source(), 1, 10);
  EXPECT_TRUE(Model().SrcLine(1).breakPoint);
  EXPECT_TRUE(MarkedLines().empty());
  RunList();
  ASSERT_TRUE(Until([&] { return View().RunNumber() == 2; }));
  ASSERT_TRUE(Ended());
  EXPECT_FALSE(Model().SrcLine(1).breakPoint);
}

TEST_F(TBreakPointTest, OneSetInTheMarginDuringARunCountsAtOnce) {
  RunToStop(LOOP, 0, 10);
  ClickMargin(2);
  EXPECT_TRUE(Model().SrcLine(2).breakPoint);
  EXPECT_EQ(EngineLines(), (std::vector<int32_t>{10, 30}));
  ClickMargin(0);
  EXPECT_EQ(EngineLines(), (std::vector<int32_t>{30}));
  EXPECT_FALSE(Model().SrcLine(0).breakPoint);
}

TEST_F(TBreakPointTest, AListThatChangesUnderTheDebuggerKeepsItsLines) {
  RunToStop(LOOP, 1, 20);
  EXPECT_EQ(Marks().StopLine(), 1);
  PutCursor(0);
  for (int i = 0; i < 3; ++i) QTest::keyClick(&Edit(), Qt::Key_Return);
  EXPECT_EQ(Marks().StopLine(), 4);
  // Both ways.
  Click(Source(), 2, 10);
  EXPECT_EQ(MarkedLines(), (std::vector<int>{4, 5}));
  ClickMargin(6);
  EXPECT_TRUE(Model().SrcLine(3).breakPoint);
  // A line that was not there when the program was compiled means nothing to it.
  ClickMargin(1);
  EXPECT_EQ(EngineLines(), (std::vector<int32_t>{20, 30, 40}));
  Press("TBStepIn");
  ASSERT_TRUE(StandsAt(30));
  EXPECT_EQ(Marks().StopLine(), 5);
  // All of it goes.
  Edit().selectAll();
  QTest::keyClick(&Edit(), Qt::Key_Delete);
  Click(Source(), 1, 10);
  Press("TBStepIn");
  ASSERT_TRUE(Until([&] { return IsAt(20); }));
  Document().NewList();
  Press("TBStepIn");
  ASSERT_TRUE(Until([&] { return IsAt(30); }));
  EXPECT_EQ(Marks().StopLine(), -1);
  EXPECT_TRUE(MarkedLines().empty());
}

TEST_F(TBreakPointTest, ConditionAndCountFromTheMargin) {
  Edit().Set(LOOP);
  PutCursor(1);
  EditKey(Qt::Key_F9, Qt::ShiftModifier);
  Confirm(Link().Dialog(), "I MOD 2=0", 2);
  EXPECT_EQ(Marks().RuleOf(1), (TBreakRule{"I MOD 2=0", 2}));
  RunList();
  ASSERT_TRUE(StandsAt(20));
  EXPECT_EQ(Value("I!"), "4");
  Press("TBRun");
  ASSERT_TRUE(Until([&] { return IsAt(20) && Value("I!") == "6"; }));
}

TEST_F(TBreakPointTest, ConditionFromTheDebugWindowComesBackToTheMargin) {
  RunToStop(LOOP, 0, 10);
  Source().SetCurrentRow(1);
  DebugKey(Qt::Key_F9, Qt::ShiftModifier);
  Confirm(DebugView().RuleDialog(), "I=5", 1);
  EXPECT_EQ(Marks().RuleOf(1), (TBreakRule{"I=5", 1}));
  Press("TBRun");
  ASSERT_TRUE(StandsAt(20));
  EXPECT_EQ(Value("I!"), "5");
  // Cancelled, it leaves all as it was.
  DebugKey(Qt::Key_F9, Qt::ShiftModifier);
  ASSERT_TRUE(Until([&] { return DebugView().RuleDialog().isVisible(); }));
  EXPECT_EQ(DebugView().RuleDialog().Condition()->text(), "I=5");
  QTest::keyClick(&DebugView().RuleDialog(), Qt::Key_Escape);
  EXPECT_EQ(Marks().RuleOf(1), (TBreakRule{"I=5", 1}));
}

TEST_F(TBreakPointTest, AConditionThatCannotBeEvaluatedStops) {
  Edit().Set(LOOP);
  Marks().Set(1, {"NO SUCH=", 1});
  RunList();
  ASSERT_TRUE(StandsAt(20));
  EXPECT_EQ(Value("I!"), "1");
}

TEST_F(TBreakPointTest, F9OfTheDebugWindowTogglesTheSelectedLine) {
  RunToStop(LOOP, 0, 10);
  Source().SetCurrentRow(2);
  DebugKey(Qt::Key_F9);
  ASSERT_TRUE(Until([&] { return Model().SrcLine(2).breakPoint; }));
  EXPECT_EQ(MarkedLines(), (std::vector<int>{0, 2}));
}

TEST_F(TBreakPointTest, MenusOfBothMargins) {
  Edit().Set(LOOP);
  const auto choose = [this](const char* code) {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QAction* const item = menu->findChild<QAction*>(code);
    ASSERT_NE(item, nullptr) << code;
    EXPECT_TRUE(item->isEnabled()) << code;
    item->trigger();
    menu->close();
    QApplication::processEvents();
  };
  ClickMargin(1, Qt::RightButton);
  choose("tgbp");
  EXPECT_EQ(MarkedLines(), (std::vector<int>{1}));
  RunList();
  ASSERT_TRUE(StandsAt(20));
  QContextMenuEvent event(QContextMenuEvent::Mouse, Source().RowRect(3).center(),
                          Source().viewport()->mapToGlobal(Source().RowRect(3).center()));
  QApplication::sendEvent(Source().viewport(), &event);
  choose("tgbp");
  ASSERT_TRUE(Until([&] { return Model().SrcLine(3).breakPoint; }));
  Marks().Remove(1);
  Click(Source(), 1, 10);
  QApplication::sendEvent(Source().viewport(), &event);
  choose("rtcr");
  ASSERT_TRUE(StandsAt(40));
}

TEST_F(TBreakPointTest, RunToCursorFromBothWindows) {
  RunToStop("10 A=1\n20 A=2\n30 A=3\n40 A=4\n50 A=5\n", 0, 10);
  PutCursor(2);
  EditKey(Qt::Key_F10, Qt::ControlModifier);
  ASSERT_TRUE(StandsAt(30));
  Source().SetCurrentRow(3);
  DebugKey(Qt::Key_F10, Qt::ControlModifier);
  ASSERT_TRUE(StandsAt(40));
  EXPECT_EQ(MarkedLines(), (std::vector<int>{0})) << "nothing stays of it";
  Press("TBRun");
  ASSERT_TRUE(Ended());
}

TEST_F(TBreakPointTest, RunToCursorStartsAProgramAndReachesARunningOne) {
  Edit().Set("10 A=1\n20 A=2\n30 GOTO 30\n");
  PutCursor(1);
  EditKey(Qt::Key_F10, Qt::ControlModifier);
  ASSERT_TRUE(StandsAt(20));
  Press("TBRun");
  ASSERT_TRUE(Until([&] { return Model().CurLine() == 30; }));
  PutCursor(2);
  EditKey(Qt::Key_F10, Qt::ControlModifier);
  ASSERT_TRUE(StandsAt(30));
  // The next run knows nothing of it.
  Edit().Set("10 A=1\n20 A=2\n");
  RunList();
  ASSERT_TRUE(Until([&] { return View().RunNumber() == 2; }));
  ASSERT_TRUE(Ended());
}

TEST_F(TBreakPointTest, ThePreferenceStopsAtAFirstLineWithAConditionToo) {
  mEngine->Context().prefs->BrkS.store(true);
  Edit().Set(LOOP);
  Marks().Set(0, {"I=99", 1});
  RunList();
  ASSERT_TRUE(StandsAt(10));
}

TEST_F(TBreakPointTest, TheEditorSaysThatTheOptionIsOff) {
  mEngine->Context().exitStates->UDbg.store(false);
  Edit().Set(LOOP);
  ClickMargin(1);
  EXPECT_EQ(mApp->MainWindow().StatusText(),
            " Programs stop at breakpoints while Run, Use Debugger is on.");
}

TEST_F(TBreakPointTest, AProgramThatRunsItselfStopsAgain) {
  RunToStop("10 A=A+1\n20 RUN\n", 1, 20);
  const int64_t run = View().RunNumber();
  Press("TBRun");
  ASSERT_TRUE(Until([&] { return View().RunNumber() == run + 1 && IsAt(20); }));
  EXPECT_EQ(Value("A!"), "1");
}

TEST_F(TBreakPointTest, AProgramThatLoadsAnotherLeavesItsMarksBehind) {
  mFolder.Write("next.bas", "10 B=1\n20 PRINT \"second\"\n30 END\n");
  mFolder.Write("first.bas", "10 A=1\n20 RUN \"next.bas\"\n");
  ASSERT_TRUE(mApp->MainWindow().OpenFile(mFolder.Path("first.bas")));
  Marks().Set(1, {});
  RunList();
  ASSERT_TRUE(StandsAt(20));
  Press("TBRun");
  ASSERT_TRUE(Until([&] { return Shows("second"); }));
  ASSERT_TRUE(Ended());
  EXPECT_TRUE(MarkedLines().empty());
  EXPECT_EQ(Source().RowText(1), "20 PRINT \"second\"");
}

}  // namespace
}  // namespace zoka
