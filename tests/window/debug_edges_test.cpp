// Edges of the debug window: quick clicks, very long lists, values that cannot be shown, runs to
// the cursor that never begin, programs that grow by merging, and what readers of the screen find.
#include <QAccessible>
#include <QFontDatabase>
#include <QFontInfo>

#include "tests/window/debug_rig.h"

namespace zoka {
namespace {

class TDebugEdgesTest : public TDebugWindowRig {
 protected:
  static QAccessibleInterface& Readable(TRowView& view) {
    return *QAccessible::queryAccessibleInterface(&view);
  }
  static std::string Read(TRowView& view, int row) {
    QAccessibleInterface* const found = Readable(view).child(row);
    return found == nullptr ? "none" : found->text(QAccessible::Name).toStdString();
  }
};

constexpr const char LOOP[] = "10 FOR I=1 TO 9\n20 A=A+I\n30 NEXT\n40 END\n";

TEST_F(TDebugEdgesTest, QuickClicksInTheMarginToggleEachTime) {
  RunToStop(LOOP, 0, 10);
  const QPoint place(10, Source().RowRect(2).center().y());
  QTest::mouseClick(Source().viewport(), Qt::LeftButton, {}, place);
  EXPECT_TRUE(Model().SrcLine(2).breakPoint);
  // The host makes one event of the second press.
  QTest::mouseDClick(Source().viewport(), Qt::LeftButton, {}, place);
  EXPECT_FALSE(Model().SrcLine(2).breakPoint);
  EXPECT_EQ(MarkedLines(), (std::vector<int>{0}));
  EXPECT_EQ(View().Debugger()->BreakPoints().Lines(), (std::vector<int32_t>{10}));
  QTest::mouseDClick(Source().viewport(), Qt::LeftButton, {}, QPoint(60, place.y()));
  EXPECT_FALSE(Model().SrcLine(2).breakPoint);

  ClickMargin(2);
  EXPECT_EQ(MarkedLines(), (std::vector<int>{0, 2}));
  const QPoint inMargin(Edit().marginWidth(0) + 4, 2 * Edit().textHeight(2) + 4);
  QTest::mouseDClick(Edit().viewport(), Qt::LeftButton, {}, inMargin);
  EXPECT_EQ(MarkedLines(), (std::vector<int>{0}));
}

TEST_F(TDebugEdgesTest, ARunToCursorThatNeverBeganStopsNoOtherRun) {
  Edit().Set("10 A=\n20 A=2\n30 A=3\n");
  Edit().setCursorPosition(1, 0);
  EditKey(Qt::Key_F10, Qt::ControlModifier);
  ASSERT_TRUE(Until([&] { return mEngine->Alerts().OpenDialog() != nullptr; }));
  mEngine->Alerts().OpenDialog()->reject();
  ASSERT_TRUE(Until([&] { return IsIdle() && mEngine->Alerts().OpenDialog() == nullptr; }));
  RunList("10 A=1\n20 A=2\n30 A=3\n");
  ASSERT_TRUE(Ended());
  EXPECT_EQ(Value("A!"), "3");
}

TEST_F(TDebugEdgesTest, TheDebugWindowRunsARunningProgramToItsCursorToo) {
  RunList("10 A=A+1\n20 GOTO 10\n");
  ASSERT_TRUE(Until([&] { return Model().CurLine() == 20; }));
  DebugView().Refresh();  // before that there are no rows to choose from
  Source().SetCurrentRow(0);
  DebugKey(Qt::Key_F10, Qt::ControlModifier);
  ASSERT_TRUE(StandsAt(10));
}

TEST_F(TDebugEdgesTest, ThePreferenceStopsAtTheStartAndThenTheConditionCounts) {
  mEngine->Context().prefs->BrkS.store(true);
  Edit().Set("10 A=A+1\n20 IF A<9 THEN 10\n");
  Marks().Set(0, {"A=5", 1});
  RunList();
  ASSERT_TRUE(StandsAt(10));
  EXPECT_EQ(Value("A!"), "0");
  Press("TBRun");
  ASSERT_TRUE(Until([&] { return IsAt(10) && Value("A!") == "5"; }));
  Press("TBRun");
  ASSERT_TRUE(Ended());
  EXPECT_EQ(Value("A!"), "9");
}

TEST_F(TDebugEdgesTest, AProgramThatMergesAnotherKeepsItsMarks) {
  mFolder.Write("more.bas", "100 GOTO 30\n");
  mFolder.Write("first.bas", "10 A=1\n20 CHAIN MERGE \"more.bas\",100\n30 B=2\n40 END\n");
  ASSERT_TRUE(mApp->MainWindow().OpenFile(mFolder.Path("first.bas")));
  Marks().Set(1, {});
  Marks().Set(2, {"B=0", 1});
  RunList();
  ASSERT_TRUE(StandsAt(20));
  const int64_t run = View().RunNumber();
  Press("TBRun");
  ASSERT_TRUE(Until([&] { return View().RunNumber() == run + 1; }));
  ASSERT_TRUE(StandsAt(30));
  EXPECT_EQ(Source().Rows(), 5);
  EXPECT_EQ(Source().RowText(4), "100 GOTO 30");
  EXPECT_EQ(LastCall(), "[Current] 30 B=2");
  EXPECT_EQ(MarkedLines(), (std::vector<int>{1, 2}));
  EXPECT_EQ(Marks().RuleOf(2), (TBreakRule{"B=0", 1}));
  EXPECT_EQ(Marks().StopLine(), 2);
  // The merged lines can have breakpoints as well.
  ClickMargin(4);
  EXPECT_EQ(View().Debugger()->BreakPoints().Lines(), (std::vector<int32_t>{20, 30, 100}));
  Press("TBRun");
  ASSERT_TRUE(Ended());
}

TEST_F(TDebugEdgesTest, AHundredThousandLines) {
  std::string list;
  for (int line = 1; line <= 100'000; ++line) list += std::to_string(line) + " A=A+1\n";
  RunToStop(list, 99'999, 100'000);
  ASSERT_EQ(Source().Rows(), 100'000);
  EXPECT_EQ(Source().RowText(99'999), "100000 A=A+1");
  EXPECT_TRUE(Source().viewport()->rect().contains(Source().RowRect(99'999).center()));
  EXPECT_EQ(Marks().StopLine(), 99'999);
  Source().grab();
  QTest::keyClick(&Source(), Qt::Key_Home);
  EXPECT_EQ(Source().RowRect(0).top(), 0);
  EXPECT_EQ(Value("A!"), "99999");
}

// Where a tab goes counts for how far a line reaches.
TEST_F(TDebugEdgesTest, LinesWithTabsScrollToTheirEnds) {
  constexpr int TAB_STOP = 80;
  RunToStop("10\tREM " + std::string(200, 'x') + "\n20 END\n", 1, 20);
  Source().grab();
  const int expected = 25 + TAB_STOP + text_width(QString(204, 'x'), Source().font()) + 25;
  ASSERT_TRUE(Until([&] {
    return Source().horizontalScrollBar()->maximum() == expected - Source().viewport()->width();
  })) << Source().horizontalScrollBar()->maximum() + Source().viewport()->width()
      << " for " << expected;
}

TEST_F(TDebugEdgesTest, TheFieldOfARowThatWasScrolledAwayIsInSight) {
  RunToStop("10 DIM A(999)\n20 END\n", 1, 20);
  Vars().ExpandOrCollapse(0, true);
  Vars().SetCurrentRow(3);
  Vars().verticalScrollBar()->setValue(500);
  Vars().EditValue();
  ASSERT_NE(Vars().Editor(), nullptr);
  EXPECT_TRUE(Vars().viewport()->rect().contains(Vars().Editor()->geometry().center()));
  Vars().Editor()->setText("7");
  QTest::keyClick(Vars().Editor(), Qt::Key_Return);
  ASSERT_TRUE(Until([&] { return Model().VarChildRow(0, 2).value == "7"; }));
}

// Bytes that are no characters would be lost if they were shown, edited and stored.
TEST_F(TDebugEdgesTest, ATextThatCannotBeShownIsEditedFromNothing) {
  RunToStop("10 A$=\"x\"\n20 END\n", 1, 20);
  Vars().SetCurrentRow(0);
  Model().EditVar(0, 0, "a\xE3");
  ASSERT_TRUE(Until([&] { return Value("A$") == "a\xE3"; }));
  Vars().EditValue();
  ASSERT_NE(Vars().Editor(), nullptr);
  EXPECT_EQ(Vars().Editor()->text(), "");
  QTest::keyClick(Vars().Editor(), Qt::Key_Return);
  EXPECT_EQ(Vars().Editor(), nullptr);
  EXPECT_EQ(Value("A$"), "a\xE3") << "nothing was typed, nothing is stored";
}

TEST_F(TDebugEdgesTest, TheSelectedVariableStaysSelected) {
  RunToStop("10 DIM A(5),B(5)\n20 C=1\n30 DIM A(2)\n40 END\n", 1, 20);
  Vars().ExpandOrCollapse(0, true);
  Vars().ExpandOrCollapse(1, true);
  Vars().SetCurrentRow(8);
  EXPECT_EQ(Vars().RowText(8), "B!(0) : 0");
  Vars().ExpandOrCollapse(0, false);
  EXPECT_EQ(Vars().RowText(Vars().CurrentRow()), "B!(0) : 0");
  Vars().ExpandOrCollapse(0, true);
  Vars().SetCurrentRow(3);
  Press("TBStepIn");
  ASSERT_TRUE(StandsAt(30));
  Press("TBStepIn");
  ASSERT_TRUE(StandsAt(40));
  // The element has gone with the old array.
  EXPECT_EQ(Vars().RowText(Vars().CurrentRow()), "A! : 0");
}

TEST_F(TDebugEdgesTest, AFamilyThatIsGoneGivesWayToOneOfFixedPitch) {
  mEngine->Context().prefs->DWFF = "No Such Family";
  mApp->PostMessage(TMessage("pdfc"));
  const QString fixed = QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family();
  const QString expected = QFontDatabase::hasFamily("IPAGothic") ? QString("IPAGothic") : fixed;
  ASSERT_TRUE(Until([&] { return Source().font().family() == expected; }));
  EXPECT_EQ(Calls().font().family(), expected);
  EXPECT_EQ(Vars().font().family(), expected);
}

// ---- Readers of the screen.

TEST_F(TDebugEdgesTest, ReadersFindTheLinesOfTheSource) {
  RunToStop("10 A=1\n20 A=2\n30 END\n", 1, 20);
  QAccessibleInterface& source = Readable(Source());
  EXPECT_EQ(source.role(), QAccessible::List);
  EXPECT_EQ(source.text(QAccessible::Name), "Source");
  QAccessibleInterface* const row = source.child(1);
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->role(), QAccessible::ListItem);
  EXPECT_EQ(row->text(QAccessible::Name), "Stopped here: Breakpoint: 20 A=2");
  EXPECT_EQ(Read(Source(), 2), "30 END");
  EXPECT_EQ(row->parent(), &source);
  EXPECT_EQ(source.child(1), row);
  EXPECT_EQ(source.indexOfChild(row), 1);
  EXPECT_EQ(source.childAt(row->rect().center().x(), row->rect().center().y()), row);
  EXPECT_FALSE(row->state().selected);
  EXPECT_FALSE(row->state().invisible);
  Source().SetCurrentRow(1);
  EXPECT_TRUE(row->state().selected);
  EXPECT_TRUE(row->state().selectable);
  // Behind the rows stand the parts of the widget.
  QAccessibleInterface* const part = source.child(3);
  ASSERT_NE(part, nullptr);
  EXPECT_EQ(source.indexOfChild(part), 3);
  EXPECT_GT(source.childCount(), 3);
  EXPECT_EQ(source.child(-1), nullptr);
  EXPECT_EQ(source.child(source.childCount()), nullptr);

  QAccessibleInterface* const last = source.child(2);
  Press("TBRun");
  ASSERT_TRUE(Ended());
  Model().SetSrcCode("10 END\n");
  DebugView().Refresh();
  EXPECT_FALSE(last->isValid());
  EXPECT_TRUE(last->state().invalid);
  EXPECT_EQ(last->text(QAccessible::Name), "");
  EXPECT_EQ(source.indexOfChild(last), -1);
}

TEST_F(TDebugEdgesTest, ReadersFindArraysAndAMillionElements) {
  RunToStop("10 DIM A%(999999)\n20 A%(5)=7:B=1\n30 B=2\n40 END\n", 2, 30);
  QAccessibleInterface& vars = Readable(Vars());
  EXPECT_EQ(vars.role(), QAccessible::Tree);
  EXPECT_EQ(vars.child(0)->role(), QAccessible::TreeItem);
  EXPECT_TRUE(vars.child(0)->state().expandable);
  EXPECT_TRUE(vars.child(0)->state().collapsed);
  EXPECT_FALSE(vars.child(1)->state().expandable);
  Press("TBStepIn");
  ASSERT_TRUE(StandsAt(40));
  EXPECT_EQ(Read(Vars(), 1), "Changed: B! : 2");
  Vars().ExpandOrCollapse(0, true);
  EXPECT_TRUE(vars.child(0)->state().expanded);
  EXPECT_EQ(Read(Vars(), 6), "A%(5) : 7");
  EXPECT_FALSE(vars.child(6)->state().expandable);
  EXPECT_EQ(Read(Vars(), 1'000'000), "A%(999999) : 0");
  EXPECT_TRUE(vars.child(1'000'000)->state().invisible);
  EXPECT_EQ(Read(Vars(), 1'000'001), "Changed: B! : 2");
  // Who walks over all of them is given no more than can be held.
  const QAccessible::Id first = QAccessible::uniqueId(vars.child(0));
  for (int row = 0; row < 3000; ++row) ASSERT_NE(vars.child(row), nullptr);
  EXPECT_EQ(QAccessible::accessibleInterface(first), nullptr);
  EXPECT_EQ(Read(Vars(), 0), "A% : 0");
}

TEST_F(TDebugEdgesTest, ReadersFollowTheSelectedRow) {
  RunToStop(LOOP, 1, 20);
  Debug().activateWindow();
  ASSERT_TRUE(Until([&] { return Debug().isActiveWindow(); }));
  QAccessibleInterface& source = Readable(Source());
  Source().setFocus();
  Source().SetCurrentRow(0);
  QTest::keyClick(&Source(), Qt::Key_Down);
  EXPECT_EQ(source.focusChild(), source.child(1));
  EXPECT_TRUE(source.child(1)->state().focused);
  QTest::keyClick(&Source(), Qt::Key_Down);
  QTest::keyClick(&Source(), Qt::Key_Space);
  ASSERT_EQ(source.focusChild(), source.child(2));
  EXPECT_EQ(source.focusChild()->text(QAccessible::Name), "Breakpoint: 30 NEXT");
  // Of a list without the keyboard no row has the focus.
  Calls().setFocus();
  Calls().SetCurrentRow(0);
  EXPECT_FALSE(source.child(2)->state().focused);
  EXPECT_TRUE(source.child(2)->state().selected);
  EXPECT_EQ(Readable(Calls()).focusChild(), Readable(Calls()).child(0));
  EXPECT_EQ(Read(Calls(), 0), "[Current] 20 A=A+I");
}

}  // namespace
}  // namespace zoka
