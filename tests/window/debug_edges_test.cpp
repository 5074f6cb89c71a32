// Edges of the debug window: very long lists, values that cannot be shown, runs to the cursor that
// never begin, and programs that grow by merging.
#include <QFontDatabase>
#include <QFontInfo>

#include "tests/window/debug_rig.h"

namespace zoka {
namespace {

using TDebugEdgesTest = TDebugWindowRig;

constexpr const char LOOP[] = "10 FOR I=1 TO 9\n20 A=A+I\n30 NEXT\n40 END\n";

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

TEST_F(TDebugEdgesTest, AFamilyThatIsGoneGivesWayToOneOfFixedPitch) {
  mEngine->Context().prefs->DWFF = "No Such Family";
  mApp->PostMessage(TMessage("pdfc"));
  const QString fixed = QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family();
  const QString expected = QFontDatabase::hasFamily("IPAGothic") ? QString("IPAGothic") : fixed;
  ASSERT_TRUE(Until([&] { return Source().font().family() == expected; }));
  EXPECT_EQ(Calls().font().family(), expected);
  EXPECT_EQ(Vars().font().family(), expected);
}

}  // namespace
}  // namespace zoka
