// The debug window: stops and steps, breakpoints, call stack, variables, and all ways in which a
// program can end while it is looked at.
#include <QClipboard>
#include <QHelpEvent>
#include <QLabel>
#include <QToolButton>
#include <QToolTip>

#include "app/settings/inter_app_prefs.h"
#include "tests/window/debug_rig.h"

namespace zoka {
namespace {

using TDebugWindowTest = TDebugWindowRig;

constexpr const char COUNTING[] = "10 A=1\n20 A=A+1\n30 GOTO 20\n";
constexpr const char CALLING[] =
    "10 A=1\n20 GOSUB 100\n30 A=3\n40 END\n100 A=2\n110 GOSUB 200\n120 RETURN\n200 B=1\n"
    "210 RETURN\n";

TEST_F(TDebugWindowTest, WithThePreferenceItStandsBeforeTheFirstStatement) {
  mEngine->Context().prefs->BrkS.store(true);
  Debug().hide();
  RunList("10 A=1\n20 END\n");
  ASSERT_TRUE(StandsAt(10));
  EXPECT_TRUE(Debug().isVisible());
  EXPECT_EQ(Value("A!"), "0");
  EXPECT_TRUE(Model().SrcLine(0).breaking);
  EXPECT_TRUE(Model().SrcLine(0).breakPoint);
  EXPECT_EQ(LastCall(), "[Current] 10 A=1");
  // The mark is the preference's, not the margin's.
  EXPECT_TRUE(MarkedLines().empty());
  Press("TBRun");
  ASSERT_TRUE(Ended());
  EXPECT_EQ(LastCall(), "[Done]");
  EXPECT_EQ(Value("A!"), "1");
}

TEST_F(TDebugWindowTest, TheWindowIsThereWithoutAStop) {
  Debug().hide();
  RunList("10 END\n");
  ASSERT_TRUE(Ended());
  EXPECT_TRUE(Debug().isVisible());
}

TEST_F(TDebugWindowTest, WithoutTheOptionNothingIsDebugged) {
  mEngine->Context().exitStates->UDbg.store(false);
  Debug().hide();
  Marks().Clear();
  Edit().Set("10 A=1\n20 END\n");
  Marks().Set(0, {});
  RunList();
  ASSERT_TRUE(Until([&] { return IsIdle(); }));
  EXPECT_FALSE(Debug().isVisible());
  EXPECT_EQ(Model().SrcLineCount(), 0u);
}

TEST_F(TDebugWindowTest, AClickUpTo25TogglesAndFartherOnlySelects) {
  RunToStop(COUNTING, 0, 10);
  Click(Source(), 1, 26);
  EXPECT_FALSE(Model().SrcLine(1).breakPoint);
  EXPECT_EQ(Source().CurrentRow(), 1);
  Click(Source(), 2, 25);
  EXPECT_TRUE(Model().SrcLine(2).breakPoint);
  EXPECT_EQ(Source().CurrentRow(), 2);
  EXPECT_EQ(View().Debugger()->BreakPoints().Lines(), (std::vector<int32_t>{10, 30}));
  Click(Source(), 2, 0);
  EXPECT_FALSE(Model().SrcLine(2).breakPoint);
  EXPECT_EQ(View().Debugger()->BreakPoints().Lines(), (std::vector<int32_t>{10}));
}

TEST_F(TDebugWindowTest, StepsByButtons) {
  RunToStop(CALLING, 1, 20);
  Press("TBStepOver");
  ASSERT_TRUE(StandsAt(30));
  EXPECT_EQ(Value("B!"), "1");
}

TEST_F(TDebugWindowTest, StepsByKeysOfTheDebugWindow) {
  RunToStop(CALLING, 1, 20);
  DebugKey(Qt::Key_F11);
  ASSERT_TRUE(StandsAt(100));
  DebugKey(Qt::Key_F10);
  ASSERT_TRUE(StandsAt(110));
  DebugKey(Qt::Key_F11);
  ASSERT_TRUE(StandsAt(200));
  // Out of both subroutines: each stop is on the line of the RETURN.
  DebugKey(Qt::Key_F11, Qt::ShiftModifier);
  ASSERT_TRUE(StandsAt(210));
  DebugKey(Qt::Key_F11);
  ASSERT_TRUE(StandsAt(120));
  DebugKey(Qt::Key_F5);
  ASSERT_TRUE(Ended());
}

TEST_F(TDebugWindowTest, StepsByKeysOfTheEditor) {
  RunToStop(CALLING, 1, 20);
  EXPECT_EQ(mApp->MainWindow().StatusText(), " Stopped by the debugger");
  EditKey(Qt::Key_F11);
  ASSERT_TRUE(StandsAt(100));
  EXPECT_EQ(Marks().StopLine(), 4);
  EditKey(Qt::Key_F10);
  ASSERT_TRUE(StandsAt(110));
  EditKey(Qt::Key_F11, Qt::ShiftModifier);
  ASSERT_TRUE(StandsAt(120));
  // It goes on, and does not start anew.
  EditKey(Qt::Key_F5);
  ASSERT_TRUE(Ended());
  EXPECT_EQ(Value("A!"), "3");
}

TEST_F(TDebugWindowTest, F5RunsTheListAgainFromEitherWindow) {
  RunList("10 A=A+1\n20 PRINT \"end\";A\n");
  ASSERT_TRUE(Ended());
  EditKey(Qt::Key_F5);
  ASSERT_TRUE(Until([&] { return View().RunNumber() == 2; }));
  ASSERT_TRUE(Ended());
  DebugKey(Qt::Key_F5);
  ASSERT_TRUE(Until([&] { return View().RunNumber() == 3; }));
  ASSERT_TRUE(Ended());
}

TEST_F(TDebugWindowTest, RunOfARunningProgramOnlyBringsUpItsWindow) {
  RunList(COUNTING);
  ASSERT_TRUE(Until([&] { return Model().CurLine() == 30; }));
  mApp->RunWindow().hide();
  const int64_t run = View().RunNumber();
  Press("TBRun");
  ASSERT_TRUE(Until([&] { return mApp->RunWindow().isVisible(); }));
  EXPECT_EQ(View().RunNumber(), run);
  EXPECT_EQ(Model().RunMode(), TDebugRunMode::Run);
  // Neither do the steps do anything.
  Press("TBStepIn");
  Press("TBStepOver");
  QApplication::processEvents();
  EXPECT_EQ(Model().RunMode(), TDebugRunMode::Run);
  EXPECT_TRUE(Model().HasDebugger());
}

TEST_F(TDebugWindowTest, PauseStopsARunningProgramAndItGoesOn) {
  RunList(COUNTING);
  ASSERT_TRUE(Until([&] { return Model().CurLine() == 30; }));
  Press("TBPause");
  ASSERT_TRUE(Until([&] { return Model().RunMode() == TDebugRunMode::Breaked; }));
  const std::string value = Value("A!");
  QApplication::processEvents();
  EXPECT_EQ(Value("A!"), value);
  Press("TBRun");
  ASSERT_TRUE(Until([&] { return Value("A!") != value; }));
}

TEST_F(TDebugWindowTest, KillAtAStopAndWhileRunning) {
  RunToStop(COUNTING, 1, 20);
  Press("TBKill");
  ASSERT_TRUE(Ended());
  EXPECT_EQ(LastCall(), "[Killed]");
  EXPECT_FALSE(Model().SrcLine(1).breaking);
  EXPECT_EQ(Value("A!"), "1");

  Marks().Remove(1);
  RunList();
  ASSERT_TRUE(Until([&] { return Model().CurLine() == 30; }));
  DebugKey(Qt::Key_K, Qt::ControlModifier);
  ASSERT_TRUE(Ended());
  EXPECT_EQ(LastCall(), "[Killed]");
}

TEST_F(TDebugWindowTest, KillInAnInputLine) {
  RunList("10 CLS:INPUT \"next\";A\n20 GOTO 10\n");
  ASSERT_TRUE(Until([&] { return Shows("next?"); }));
  Press("TBKill");
  ASSERT_TRUE(Ended()) << IsIdle() << Model().HasDebugger() << Screen();
  EXPECT_EQ(LastCall(), "[Killed]");
}

TEST_F(TDebugWindowTest, KillAsSoonAsThereIsAProgram) {
  for (int round = 0; round < 5; ++round) {
    RunList("10 INPUT A\n20 GOTO 10\n");
    Press("TBKill");
    ASSERT_TRUE(Ended()) << round << IsIdle() << Model().HasDebugger() << Marks().StopLine()
                         << Screen();
    EXPECT_EQ(LastCall(), "[Killed]");
  }
}

TEST_F(TDebugWindowTest, QuitWhileItStands) {
  RunToStop(COUNTING, 1, 20);
  Document().SetModified(false);
  EXPECT_TRUE(mApp->QuitRequested());
}

TEST_F(TDebugWindowTest, ANewRunWhileItStandsTakesItsPlace) {
  RunToStop(COUNTING, 1, 20);
  const int64_t run = View().RunNumber();
  RunList();
  ASSERT_TRUE(Until([&] { return View().RunNumber() == run + 1; }));
  ASSERT_TRUE(StandsAt(20));
  EXPECT_EQ(Value("A!"), "1");
}

TEST_F(TDebugWindowTest, AFaultScrollsToItsLineAndEndsTheRun) {
  std::string list;
  for (int line = 10; line < 3000; line += 10) list += std::to_string(line) + " A=1\n";
  RunList(list + "3000 A=1/0\n" + "3010 END\n");
  ASSERT_TRUE(Until([&] { return mEngine->Alerts().OpenDialog() != nullptr; }));
  DebugView().Refresh();
  EXPECT_TRUE(Source().viewport()->rect().contains(Source().RowRect(299)));
  mEngine->Alerts().OpenDialog()->reject();
  ASSERT_TRUE(Ended());
  EXPECT_EQ(LastCall(), "[Done]");
}

TEST_F(TDebugWindowTest, AnUnnumberedListShowsTheNumbersOfTheRun) {
  RunToStop("A=1\nA=2\nA=3", 1, 2);
  EXPECT_EQ(Source().Rows(), 3);
  EXPECT_EQ(Source().RowText(1), "2 A=2");
  EXPECT_EQ(Marks().StopLine(), 1);
}

TEST_F(TDebugWindowTest, ABreakpointThatIsNeverReachedNeverStops) {
  Edit().Set("10 GOTO 30\n20 A=1\n30 A=2:END\n\n25 A=3\n");
  for (int line : {1, 3, 4}) Marks().Set(line, {});
  RunList();
  ASSERT_TRUE(Ended());
  EXPECT_EQ(LastCall(), "[Done]");
}

TEST_F(TDebugWindowTest, CallStackScrollsAndIsNeverSelected) {
  std::string filler;
  for (int line = 1000; line < 3000; line += 10) filler += std::to_string(line) + " REM\n";
  RunToStop(CALLING + filler, 7, 200);
  ASSERT_EQ(Calls().Rows(), 3);
  EXPECT_EQ(Calls().RowText(0), "20 GOSUB 100");
  EXPECT_EQ(Calls().RowText(1), "110 GOSUB 200");
  EXPECT_EQ(Calls().RowText(2), "[Current] 200 B=1");
  Click(Calls(), 0, 10);
  ASSERT_TRUE(Until([&] { return Source().RowRect(1).top() == 0; }));
  EXPECT_EQ(Calls().CurrentRow(), TRowView::NO_ROW);
  // By keys, too.
  Calls().SetCurrentRow(2);
  QTest::keyClick(&Calls(), Qt::Key_Return);
  ASSERT_TRUE(Until([&] { return Source().RowRect(7).top() == 0; }));
  Press("TBRun");
  ASSERT_TRUE(Ended());
  // A program that has ended is at no line.
  ASSERT_TRUE(Until([this] { return Calls().Rows() == 1; }));
  Click(Calls(), 0, 10);
  DebugView().Refresh();
  EXPECT_EQ(Source().RowRect(7).top(), 0);
}

TEST_F(TDebugWindowTest, TheStopIsTheTopmostLine) {
  std::string list;
  for (int line = 10; line <= 3000; line += 10) list += std::to_string(line) + " A=1\n";
  RunToStop(list, 99, 1000);
  EXPECT_EQ(Source().RowRect(99).top(), 0);
  // The window that comes to the front does not scroll it away.
  QApplication::processEvents();
  EXPECT_EQ(Source().RowRect(99).top(), 0);
}

TEST_F(TDebugWindowTest, ValuesKeepTheirFinalStateUntilTheNextRun) {
  RunList("10 A=5:B$=\"x\":DIM C(3):C(2)=7\n");
  ASSERT_TRUE(Ended());
  ASSERT_TRUE(Until([this] { return Vars().Rows() == 3; }));
  EXPECT_EQ(Vars().RowText(0), "A! : 5");
  EXPECT_EQ(Vars().RowText(1), "B$ : x");
  Click(Vars(), 2, 5);
  ASSERT_EQ(Vars().Rows(), 7);
  EXPECT_EQ(Vars().RowText(5), "C!(2) : 7");
  RunList("10 D=1\n");
  ASSERT_TRUE(Ended());
  ASSERT_TRUE(Until([this] { return Vars().Rows() == 1; }));
}

TEST_F(TDebugWindowTest, ElementsAreMadeAtOnceAndKept) {
  RunToStop("10 DIM A(2,3):A(1,2)=5\n20 DIM B(999)\n30 END\n", 2, 30);
  Vars().SetCurrentRow(0);
  QTest::keyClick(&Vars(), Qt::Key_Right);
  ASSERT_EQ(Vars().Rows(), 2 + 12);
  // The last subscript of the source comes first.
  EXPECT_EQ(Vars().RowText(7), "A!(2,1) : 5");
  Vars().ExpandOrCollapse(1, true);
  EXPECT_EQ(Vars().Rows(), 2 + 12 + 1000);
  EXPECT_EQ(Model().VarChildCount(1), 1000);
  Vars().ExpandOrCollapse(1, false);
  EXPECT_EQ(Vars().Rows(), 2 + 12);
  EXPECT_EQ(Model().VarChildCount(1), 1000);
  // Left goes to the array, and then collapses it.
  Vars().SetCurrentRow(7);
  QTest::keyClick(&Vars(), Qt::Key_Left);
  EXPECT_EQ(Vars().CurrentRow(), 0);
  QTest::keyClick(&Vars(), Qt::Key_Left);
  EXPECT_EQ(Vars().Rows(), 2);
}

TEST_F(TDebugWindowTest, AMillionElementsExpandWithoutAWait) {
  RunToStop("10 DIM A%(999999)\n20 A%(999999)=7\n30 END\n", 2, 30);
  Vars().ExpandOrCollapse(0, true);
  ASSERT_EQ(Vars().Rows(), 1'000'001);
  Vars().SetCurrentRow(1'000'000);
  EXPECT_EQ(Vars().RowText(1'000'000), "A%(999999) : 7");
  EXPECT_TRUE(Vars().viewport()->rect().contains(Vars().RowRect(1'000'000).center()));
  Vars().grab();
  Vars().ExpandOrCollapse(0, false);
  EXPECT_EQ(Vars().Rows(), 1);
  EXPECT_EQ(Vars().CurrentRow(), 0);
}

TEST_F(TDebugWindowTest, DimensionedAgainItCollapses) {
  RunToStop("10 DIM A(5)\n20 FOR I=1 TO 2\n30 DIM A(I*10)\n40 NEXT\n", 2, 30);
  Vars().ExpandOrCollapse(0, true);
  EXPECT_EQ(Vars().Rows(), 2 + 6);
  Vars().SetCurrentRow(6);
  Press("TBRun");
  ASSERT_TRUE(Until([&] { return IsAt(30) && Vars().Rows() == 2; }));
  Vars().ExpandOrCollapse(0, true);
  EXPECT_EQ(Vars().Rows(), 2 + 11);
  Press("TBRun");
  ASSERT_TRUE(Ended());
  ASSERT_TRUE(Until([this] { return Vars().Rows() == 2; }));
}

TEST_F(TDebugWindowTest, ValuesAreEditedWhileItStands) {
  RunToStop("10 A=1:B$=\"x\"\n20 PRINT \"[\";A;B$;\"]\"\n", 1, 20);
  Debug().activateWindow();
  Vars().SetCurrentRow(0);
  QTest::keyClick(&Vars(), Qt::Key_F2);
  ASSERT_NE(Vars().Editor(), nullptr);
  EXPECT_EQ(Vars().Editor()->text(), "1");
  QTest::keyClicks(Vars().Editor(), "no number");
  QTest::keyClick(Vars().Editor(), Qt::Key_Return);
  ASSERT_NE(Vars().Editor(), nullptr) << "it stays, to be mended";
  QTest::keyClicks(Vars().Editor(), "42.5");
  QTest::keyClick(Vars().Editor(), Qt::Key_Return);
  EXPECT_EQ(Vars().Editor(), nullptr);
  ASSERT_TRUE(Until([&] { return Value("A!") == "42.5"; }));

  const QPoint second = Vars().RowRect(1).topLeft() + QPoint(40, 4);
  QTest::mouseClick(Vars().viewport(), Qt::LeftButton, {}, second);
  QTest::mouseDClick(Vars().viewport(), Qt::LeftButton, {}, second);
  ASSERT_NE(Vars().Editor(), nullptr);
  Vars().Editor()->setText("日本");
  QTest::keyClick(Vars().Editor(), Qt::Key_Escape);
  EXPECT_EQ(Vars().Editor(), nullptr);
  EXPECT_EQ(Value("B$"), "x");
  Vars().EditValue();
  Vars().Editor()->setText("日本");
  QTest::keyClick(Vars().Editor(), Qt::Key_Return);
  ASSERT_TRUE(Until([&] { return Value("B$") == "日本"; }));
  Press("TBRun");
  ASSERT_TRUE(Ended());
  EXPECT_TRUE(Shows("[ 42.5 日本]")) << Screen();
  Vars().EditValue();
  EXPECT_EQ(Vars().Editor(), nullptr) << "nothing stands any more";
}

TEST_F(TDebugWindowTest, TheFieldGoesWhenTheProgramGoesOn) {
  RunToStop(COUNTING, 1, 20);
  Vars().SetCurrentRow(0);
  Vars().EditValue();
  ASSERT_NE(Vars().Editor(), nullptr);
  Debug().PostMessage(TMessage("kill"));
  ASSERT_TRUE(Ended());
  EXPECT_EQ(Vars().Editor(), nullptr);
}

TEST_F(TDebugWindowTest, ChangedValuesAreMarked) {
  RunToStop("10 A=1:B=1\n20 A=2\n30 END\n", 1, 20);
  Press("TBStepIn");
  ASSERT_TRUE(StandsAt(30));
  EXPECT_TRUE(Model().VarRow(Item("A!")).changed);
  EXPECT_FALSE(Model().VarRow(Item("B!")).changed);
  // In another colour, and bold.
  const auto has_marked_pixel = [this](const char* name) {
    const QImage row =
        Vars().viewport()->grab(Vars().RowRect(static_cast<int64_t>(Item(name)))).toImage();
    const QRgb wanted = row_colours(Vars().palette()).changed.rgb();
    for (int y = 0; y < row.height(); ++y) {
      for (int x = 0; x < row.width(); ++x) {
        if (row.pixel(x, y) == wanted) return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(has_marked_pixel("A!"));
  EXPECT_FALSE(has_marked_pixel("B!"));
}

TEST_F(TDebugWindowTest, TheValueUnderThePointer) {
  RunToStop("10 DIM A(3):A(2)=8:I=2\n20 PRINT A(I)\n", 1, 20);
  EXPECT_EQ(hover_value(Model(), "20 PRINT A(I)", 9), "A(I) = 8");
  EXPECT_EQ(hover_value(Model(), "20 PRINT A(I)", 11), "I = 2");
  EXPECT_EQ(hover_value(Model(), "20 PRINT A(I)", 4), "");
  EXPECT_EQ(hover_value(Model(), "20 PRINT A(9)", 9), "");

  const auto hover = [](QWidget* widget, QPoint place) {
    QHelpEvent event(QEvent::ToolTip, place, widget->mapToGlobal(place));
    QApplication::sendEvent(widget, &event);
    return QToolTip::text();
  };
  const qreal width = QFontMetricsF(Source().font()).horizontalAdvance('0');
  const QRect row = Source().RowRect(1);
  const QPoint place(25 + static_cast<int>(11.5 * width), row.center().y());
  EXPECT_EQ(hover(Source().viewport(), place), "I = 2");
  QToolTip::hideText();
  const long at = Edit().SendScintilla(QsciScintilla::SCI_POSITIONFROMLINE, 1UL) + 9;
  const int x =
      static_cast<int>(Edit().SendScintilla(QsciScintilla::SCI_POINTXFROMPOSITION, 0UL, at));
  const int y =
      static_cast<int>(Edit().SendScintilla(QsciScintilla::SCI_POINTYFROMPOSITION, 0UL, at));
  EXPECT_EQ(hover(Edit().viewport(), QPoint(x + 3, y + 5)), "A(I) = 8");
}

TEST_F(TDebugWindowTest, TextsFollowTheLanguage) {
  RunList("10 END\n");
  ASSERT_TRUE(Ended());
  EXPECT_EQ(Debug().windowTitle(), "Zoka-BASIC (Debug Window)");
  mApp->SetLanguage(TLanguage::Japanese);
  ASSERT_TRUE(Until([&] { return Debug().windowTitle() == "Zoka-BASIC (デバッグウィンドウ)"; }));
  EXPECT_EQ(LastCall(), "[終了]");
  EXPECT_EQ(DebugView().Button("TBStepOver")->toolTip(), "ステップオーバー");
  EXPECT_EQ(Debug().findChild<QLabel*>("StrViewVar")->text(), "変数");
  EXPECT_EQ(DebugView().RuleDialog().windowTitle(), "ブレークポイントの条件");
}

TEST_F(TDebugWindowTest, FontAndToolBarFollowThePreferences) {
  mEngine->Context().prefs->DWFS.store(20);
  mApp->PostMessage(TMessage("pdfc"));
  ASSERT_TRUE(Until([&] { return Source().font().pointSizeF() == 20; }));
  EXPECT_EQ(Vars().font().pointSizeF(), 20);
  EXPECT_EQ(Calls().font().pointSizeF(), 20);

  auto* const button = qobject_cast<QToolButton*>(DebugView().Button("TBRun"));
  ASSERT_NE(button, nullptr);
  EXPECT_TRUE(button->autoRaise());
  mEngine->Context().interAppPrefs->SetBool("FlatToolBar", false);
  TMessage message("_ipc");
  add_default_info(&message, "FlatToolBar");
  mApp->PostMessage(message);
  ASSERT_TRUE(Until([&] { return !button->autoRaise(); }));
}

TEST_F(TDebugWindowTest, ClosingHidesItAndQuittingKeepsItsPlace) {
  Debug().close();
  EXPECT_FALSE(Debug().isVisible());
  mApp->MainWindow().FindItem("sdwn")->trigger();
  ASSERT_TRUE(Until([&] { return Debug().isVisible(); }));
  Debug().resize(700, 500);
  Debug().move(30, 40);
  const TFrame frame = Debug().Frame();
  EXPECT_TRUE(mApp->QuitRequested());
  EXPECT_EQ(mEngine->Context().exitStates->DWFr, frame);
  mApp.reset();
  mApp = std::make_unique<TBasicApp>(*mEngine);
  EXPECT_EQ(Debug().size(), QSize(700, 500));
}

TEST_F(TDebugWindowTest, EachControlHasANameAndTheKeyboard) {
  for (const char* name : {"TBRun", "TBPause", "TBStepOver", "TBStepIn", "TBStepOut", "TBKill"}) {
    ASSERT_NE(DebugView().Button(name), nullptr) << name;
    EXPECT_FALSE(DebugView().Button(name)->accessibleName().isEmpty()) << name;
  }
  for (const TRowView* view : {static_cast<TRowView*>(&Source()), static_cast<TRowView*>(&Calls()),
                               static_cast<TRowView*>(&Vars())}) {
    EXPECT_FALSE(view->accessibleName().isEmpty());
    EXPECT_TRUE(view->focusPolicy() & Qt::TabFocus);
  }
  RunToStop(COUNTING, 1, 20);
  Source().SetCurrentRow(1);
  // The selected row is moved by keys, and Space is a click on its mark.
  QTest::keyClick(&Source(), Qt::Key_Down);
  EXPECT_EQ(Source().CurrentRow(), 2);
  QTest::keyClick(&Source(), Qt::Key_Space);
  EXPECT_TRUE(Model().SrcLine(2).breakPoint);
  QTest::keyClick(&Source(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "30 GOTO 20");
  QTest::keyClick(&Source(), Qt::Key_Home);
  EXPECT_EQ(Source().CurrentRow(), 0);
  QTest::keyClick(&Source(), Qt::Key_End);
  EXPECT_EQ(Source().CurrentRow(), 2);
}

}  // namespace
}  // namespace zoka
