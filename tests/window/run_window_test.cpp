// The run window: picture, keys, mouse, menus, and the end of a run in all its ways.
#include <QAccessible>
#include <QClipboard>
#include <QImage>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>
#include <mutex>

#include "app/settings/exit_states.h"
#include "common/file_path.h"
#include "tests/support/png_picture.h"
#include "tests/window/window_rig.h"

namespace zoka {
namespace {

using TRunWindowTest = TWindowRig;

/// Graphics in colours, text over them, 40 columns and kanji, of all that a picture is made.
constexpr const char PICTURE[] = R"(10 SCREEN 3:CLS 3:WIDTH 80,25
20 LINE(10,10)-(600,300),2,BF:CIRCLE(320,200),90,6:PAINT(320,200),5,6
30 LOCATE 30,12:COLOR 4:PRINT "ABC 漢字 ｱｲｳ"
40 FOR I=0 TO 15:LINE(I*40,380)-(I*40+30,399),I,BF:NEXT
)";

void compare_pictures(const TFrameBuffer& frame, const TPicture& expected) {
  ASSERT_EQ(expected.width, size_t{SCREEN_WIDTH});
  ASSERT_EQ(expected.height, size_t{SCREEN_HEIGHT});
  for (int32_t y = 0; y < SCREEN_HEIGHT; ++y) {
    for (int32_t x = 0; x < SCREEN_WIDTH; ++x) {
      const size_t at = static_cast<size_t>(y) * SCREEN_WIDTH + static_cast<size_t>(x);
      ASSERT_EQ(frame.Row(y)[x], expected.pixels[at]) << x << "," << y;
    }
  }
}

TEST_F(TRunWindowTest, ShowsTheSamePictureAsAScreenshot) {
  RunToEnd(PICTURE);
  const std::string png = mFolder.Path("picture.png");
  QProcess console;
  console.start(ZOKA_PROGRAM,
                {"run", "--config", "none", "--screenshot", QString::fromStdString(png),
                 QString::fromStdString(mFolder.Path("test.bas"))});
  ASSERT_TRUE(console.waitForFinished(WAIT_MS));
  ASSERT_EQ(console.exitCode(), 0) << console.readAllStandardError().toStdString();
  const TPicture expected = read_picture(png);
  View().FlushScreen();
  compare_pictures(View().Frame(), expected);

  // The same pixels are what the widget paints ...
  const QImage painted = Widget().grab().toImage().convertToFormat(QImage::Format_RGB32);
  ASSERT_EQ(painted.size(), QSize(640, 400));
  EXPECT_EQ(painted.pixel(320, 200), expected.pixels[200 * 640 + 320]);
  // ... and what the clipboard gets.
  View().MItemCopyCompositionClicked();
  const QImage copied = QApplication::clipboard()->image();
  ASSERT_EQ(copied.size(), QSize(640, 400));
  for (int y = 0; y < 400; ++y) {
    for (int x = 0; x < 640; ++x) {
      const size_t at = static_cast<size_t>(y) * 640 + static_cast<size_t>(x);
      ASSERT_EQ(painted.pixel(x, y), expected.pixels[at]) << x << "," << y;
      ASSERT_EQ(copied.pixel(x, y), expected.pixels[at]) << x << "," << y;
    }
  }
}

TEST_F(TRunWindowTest, EachPixelOfALargerPictureIsASquare) {
  RunToEnd(PICTURE);
  Widget().SetStep(2);
  View().FlushScreen();
  ASSERT_TRUE(Until([&] { return Widget().size() == QSize(1280, 800); }));
  const QImage painted = Widget().grab().toImage().convertToFormat(QImage::Format_RGB32);
  for (int y = 0; y < 800; ++y) {
    for (int x = 0; x < 1280; ++x) {
      ASSERT_EQ(painted.pixel(x, y), View().Frame().Row(y / 2)[x / 2]) << x << "," << y;
    }
  }
  EXPECT_EQ(Widget().PointAt(QPointF(1279, 799)), (TPoint{639, 399}));
}

TEST_F(TRunWindowTest, KeysReachTheProgram) {
  StartUntil("10 CLS:PRINT \"go\"\n20 A$=INKEY$:IF A$=\"\" THEN 20\n30 PRINT \"[\";A$;\"]\"\n",
             "go");
  QTest::keyClick(&Widget(), Qt::Key_A);
  EXPECT_TRUE(Until([&] { return Shows("[a]"); })) << Screen();
}

TEST_F(TRunWindowTest, ACommandKeyTypesThePlainLetterAndIsNoShortcut) {
  StartUntil("10 CLS:PRINT \"go\"\n20 PRINT \"[\"+INPUT$(2)+\"]\"\n", "go");
  QTest::keyClick(&Widget(), Qt::Key_Q, Qt::ControlModifier);
  QTest::keyClick(&Widget(), Qt::Key_Q, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(Until([&] { return Shows("[qQ]"); })) << Screen();
}

TEST_F(TRunWindowTest, CommandCBreaksAndCopiesNothing) {
  QApplication::clipboard()->setText("kept");
  StartUntil("10 CLS:PRINT \"go\"\n20 GOTO 20\n", "go");
  QTest::keyClick(&Widget(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(Until([&] { return IsIdle(); }));
  EXPECT_TRUE(Shows("in 20")) << Screen();
  EXPECT_EQ(QApplication::clipboard()->text(), "kept");
}

TEST_F(TRunWindowTest, ACommittedTextIsOneKeyPressACharacter) {
  StartUntil("10 CLS:PRINT \"go\"\n20 A$=INPUT$(1):B$=INPUT$(1):PRINT \"[\"+B$+A$+\"]\"\n", "go");
  QInputMethodEvent event("", {});
  event.setCommitString("漢字");
  QApplication::sendEvent(&Widget(), &event);
  EXPECT_TRUE(Until([&] { return Shows("[字漢]"); })) << Screen();
}

TEST_F(TRunWindowTest, FunctionKeysTypeTheirTexts) {
  StartUntil("10 CLS:KEY 1,\"abc\":PRINT \"go\"\n20 PRINT \"[\"+INPUT$(3)+\"]\"\n", "go");
  QTest::keyClick(&Widget(), Qt::Key_F1);
  EXPECT_TRUE(Until([&] { return Shows("[abc]"); })) << Screen();
}

TEST_F(TRunWindowTest, TheMatrixShowsTheKeysThatAreDown) {
  const auto isDown = [&](size_t code) { return mApp->RunWindow().Host().KeyStates().test(code); };
  SendKey(QEvent::KeyPress, Qt::Key_A, 30 + 8);
  EXPECT_TRUE(isDown(0x3C));
  // The host's repeats leave it down.
  SendKey(QEvent::KeyRelease, Qt::Key_A, 30 + 8, true);
  SendKey(QEvent::KeyPress, Qt::Key_A, 30 + 8, true);
  EXPECT_TRUE(isDown(0x3C));
  SendKey(QEvent::KeyRelease, Qt::Key_A, 30 + 8);
  EXPECT_TRUE(Until([&] { return !isDown(0x3C); }));
  SendKey(QEvent::KeyPress, Qt::Key_Space, 57 + 8);
  QFocusEvent leave(QEvent::FocusOut);
  QApplication::sendEvent(&Widget(), &leave);
  EXPECT_TRUE(mApp->RunWindow().Host().KeyStates().none());
}

TEST_F(TRunWindowTest, TheMouseReachesTheProgram) {
  StartUntil(
      "10 SCREEN 3:CLS:PRINT \"go\"\n20 IF MOUSE(3,1)=0 THEN 20\n"
      "30 PRINT MOUSE(0);MOUSE(1);MOUSE(4,1);MOUSE(5,1);MOUSE(2,1)\n"
      "40 IF MOUSE(6,1)=0 THEN 40\n50 PRINT \"up\";MOUSE(7,1)\n",
      "go");
  QMouseEvent move(QEvent::MouseMove, QPointF(100, 50), Widget().mapToGlobal(QPointF(100, 50)),
                   Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&Widget(), &move);
  QTest::mousePress(&Widget(), Qt::LeftButton, {}, QPoint(100, 50));
  EXPECT_TRUE(Until([&] { return Shows(" 100  50  100  50  1"); })) << Screen();
  QTest::mouseRelease(&Widget(), Qt::LeftButton, {}, QPoint(110, 50));
  EXPECT_TRUE(Until([&] { return Shows("up 110"); })) << Screen();
}

TEST_F(TRunWindowTest, ZoomTwiceReturnsToTheSameSize) {
  TRunWindow& window = mApp->RunWindow();
  ASSERT_TRUE(window.IsMenuBarShown());
  ASSERT_TRUE(Until([&] { return window.height() > 400; }));
  const QSize before = window.size();
  window.Zoom();
  EXPECT_TRUE(Until([&] { return window.size() == QSize(640, 400); }));
  EXPECT_EQ(Widget().geometry(), QRect(0, 0, 640, 400));
  EXPECT_FALSE(mEngine->Context().exitStates->MBrS.load());
  window.Zoom();
  EXPECT_TRUE(Until([&] { return window.size() == before; }));
}

TEST_F(TRunWindowTest, TheZoomButtonOfTheWindowTogglesTheMenuBar) {
  TRunWindow& window = mApp->RunWindow();
  window.setWindowState(Qt::WindowMaximized);
  EXPECT_TRUE(Until([&] { return !window.IsMenuBarShown() && !window.isMaximized(); }));
  EXPECT_TRUE(Until([&] { return window.size() == QSize(640, 400); }))
      << window.width() << " by " << window.height();
}

TEST_F(TRunWindowTest, TheWholeScreenKeepsPixelsWhole) {
  TRunWindow& window = mApp->RunWindow();
  const QSize before = window.size();
  window.ToggleFullScreen();
  ASSERT_TRUE(Until([&] { return window.isFullScreen() && Widget().width() > 640; }));
  EXPECT_EQ(Widget().Scale(),
            std::max(1, std::min(Widget().width() / 640, Widget().height() / 400)));
  window.ToggleFullScreen();
  EXPECT_TRUE(Until([&] { return window.size() == before; }));
}

TEST_F(TRunWindowTest, ALampIsLitUntilTheLastAccessIsOver) {
  TRunWindow& window = mApp->RunWindow();
  const auto lamp = [&](int32_t drive, int32_t change) { window.Host().Lamp(drive, change); };
  lamp(0, 1);
  lamp(0, 1);
  ASSERT_TRUE(Until([&] { return window.IsLampLit(0); }));
  EXPECT_FALSE(window.IsLampLit(1));
  lamp(0, -1);
  lamp(1, 1);
  ASSERT_TRUE(Until([&] { return window.IsLampLit(1); }));
  EXPECT_TRUE(window.IsLampLit(0));
  window.LanguageChanged();
  EXPECT_TRUE(window.IsLampLit(0));
  lamp(0, -1);
  EXPECT_TRUE(Until([&] { return !window.IsLampLit(0); }));
}

TEST_F(TRunWindowTest, AProgramThatOpensAFileLightsTheLamp) {
  Start("10 OPEN \"X\" FOR OUTPUT AS #1:CLOSE\n");
  EXPECT_TRUE(Until([&] { return mApp->RunWindow().IsLampLit(0); }));
  EXPECT_TRUE(Until([&] { return !mApp->RunWindow().IsLampLit(0); }));
}

QMenu* menu_of(TRunWindow& window, const QString& title) {
  for (QAction* action : window.menuBar()->actions()) {
    if (action->text() == title) return action->menu();
  }
  return nullptr;
}

TEST_F(TRunWindowTest, TheDriveMenuShowsTheFolder) {
  TRunWindow& window = mApp->RunWindow();
  RunToEnd("10 CLS\n");
  const QString folder = QString::fromStdString(extract_file_name(mFolder.Path()));
  QMenu* menu = menu_of(window, "FDD1(&1)");
  ASSERT_NE(menu, nullptr);
  ASSERT_TRUE(Until([&] {
    return menu->actions()[0]->text() == folder + "(&C) ..." ||
           menu->actions()[0]->text() == folder + " (&C)...";
  })) << menu->actions()[0]->text().toStdString();
  const qsizetype items = menu->actions().size();
  EXPECT_EQ(items, 4);
  menu->actions()[1]->trigger();
  EXPECT_TRUE(Until([&] { return menu->actions()[0]->text().startsWith("(Empty)"); }));
  EXPECT_EQ(menu->actions().size(), items);
  EXPECT_EQ(View().DriveFolder(0), "");
  // The folder that was used comes back from the list.
  menu->actions()[3]->trigger();
  EXPECT_TRUE(Until([&] { return View().DriveFolder(0) == mFolder.Path(); }));
}

TEST_F(TRunWindowTest, CopyTextGivesTheRows) {
  RunToEnd("10 CLS:PRINT \"AB漢 C\":LOCATE 2,2:PRINT \"D\"\n");
  menu_of(mApp->RunWindow(), "Copy(&C)")->actions()[0]->trigger();
  std::string expected = "AB漢 C\n\n  D\nOk\n";
  for (int row = 4; row < 25; ++row) expected += '\n';
  EXPECT_TRUE(Until([&] { return QApplication::clipboard()->text().toStdString() == expected; }))
      << QApplication::clipboard()->text().toStdString();
}

TEST_F(TRunWindowTest, SpeedChangesARunningProgram) {
  StartUntil("10 CLS:PRINT \"go\"\n20 GOTO 20\n", "go");
  QMenu* menu = menu_of(mApp->RunWindow(), "Speed(&S)");
  ASSERT_NE(menu, nullptr);
  menu->actions().last()->trigger();
  EXPECT_TRUE(mEngine->Context().prefs->USpC.load());
  EXPECT_EQ(mEngine->Context().prefs->SpCI.load(), 100'000);
  menu->actions().first()->trigger();
  EXPECT_FALSE(mEngine->Context().prefs->USpC.load());
  mApp->MainWindow().Kill();
}

TEST_F(TRunWindowTest, TitleAndMenusFollowTheLanguage) {
  TRunWindow& window = mApp->RunWindow();
  RunToEnd("10 CLS\n");
  EXPECT_TRUE(Until([&] { return window.windowTitle() == "DISK-BASIC - Zoka-BASIC (Run Window)"; }))
      << window.windowTitle().toStdString();
  mApp->SetLanguage(TLanguage::Japanese);
  EXPECT_TRUE(Until([&] { return menu_of(window, "コピー(&C)") != nullptr; }));
  EXPECT_TRUE(Until([&] { return window.windowTitle().contains("(実行ウィンドウ)"); }))
      << window.windowTitle().toStdString();
}

TEST_F(TRunWindowTest, ClosingOnlyHidesTheWindow) {
  mApp->RunWindow().close();
  EXPECT_TRUE(mApp->RunWindow().isHidden());
  mApp->PostMessage(TMessage("srwn"));
  EXPECT_TRUE(Until([&] { return mApp->RunWindow().isVisible(); }));
}

TEST_F(TRunWindowTest, ReadersOfTheScreenFindItsRows) {
  RunToEnd("10 CLS:PRINT \"AB漢\":PRINT \"C\"\n");
  QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&Widget());
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->role(), QAccessible::Terminal);
  QAccessibleTextInterface* text = found->textInterface();
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->text(0, 9), "AB漢\nC\nOk\n");
  EXPECT_EQ(text->characterCount(), 9 + 22);
  EXPECT_EQ(text->cursorPosition(), 9);
  EXPECT_EQ(text->characterRect(4).topLeft(), Widget().mapToGlobal(QPoint(0, 16)));
}

// ---- How runs end.

TEST_F(TRunWindowTest, RunBeginsAnewAtTheProgramsWish) {
  Start("10 CLS:A$=INKEY$:PRINT \"go\":IF A$=\"\" THEN SLEEP 50:RUN\n20 PRINT \"end\"\n");
  ASSERT_TRUE(Until([&] { return View().RunNumber() >= 3; }));
  QTest::keyClick(&Widget(), Qt::Key_X);
  mApp->MainWindow().Kill();
  EXPECT_TRUE(IsIdle());
}

TEST_F(TRunWindowTest, KillEndsEachKindOfWait) {
  for (const char* wait : {"A$=INPUT$(1)", "INPUT A$", "SLEEP 600000", "GOTO 20"}) {
    StartUntil("10 CLS:PRINT \"go\"\n20 " + std::string(wait) + "\n", "go");
    mApp->MainWindow().Kill();
    EXPECT_TRUE(IsIdle()) << wait;
    EXPECT_EQ(View().VMachine(), nullptr) << wait;
  }
}

TEST_F(TRunWindowTest, AnAlertIsShownAndAnswered) {
  Start("10 CLS:PRINT 1/0\n");
  ASSERT_TRUE(Until([&] { return mEngine->Alerts().OpenDialog() != nullptr; }));
  QMessageBox* box = mEngine->Alerts().OpenDialog();
  EXPECT_EQ(box->text().toStdString(),
            "Runtime Error\n\nDivision by zero.\n\nLine: 10\n\n\n* Zoka-BASIC *");
  EXPECT_EQ(box->windowModality(), Qt::ApplicationModal);
  QTest::keyClick(box, Qt::Key_U);
  EXPECT_TRUE(Until([&] { return IsIdle(); }));
  EXPECT_TRUE(Shows("Division by zero in 10")) << Screen();
  EXPECT_TRUE(Until([&] { return mEngine->Alerts().OpenDialog() == nullptr; }));
}

TEST_F(TRunWindowTest, AnAlertOfAWindowHoldsItsMessagesBackButNoOthers) {
  TZokaBasicWindow& main = mApp->MainWindow();
  main.Appear();
  ASSERT_TRUE(Until([&] { return main.isActiveWindow(); }));
  bool checked = false;
  QTimer::singleShot(0, &main, [&] {
    ASSERT_NE(mEngine->Alerts().OpenDialog(), nullptr);
    QMenu* const before = main.menuBar()->actions()[0]->menu();
    mApp->SetLanguage(TLanguage::Japanese);
    EXPECT_TRUE(Until([&] { return menu_of(mApp->RunWindow(), "コピー(&C)") != nullptr; }));
    EXPECT_EQ(main.menuBar()->actions()[0]->menu(), before);
    EXPECT_EQ(main.menuBar()->actions()[0]->text(), "File(&F)");
    checked = true;
    mEngine->Alerts().OpenDialog()->reject();
  });
  EXPECT_FALSE(main.OpenFile(mFolder.Path("none.bas")));
  EXPECT_TRUE(checked);
  EXPECT_TRUE(Until([&] { return main.menuBar()->actions()[0]->text() == "ファイル(&F)"; }));
}

TEST_F(TRunWindowTest, KillTakesAnAlertDown) {
  Start("10 PRINT 1/0\n");
  ASSERT_TRUE(Until([&] { return mEngine->Alerts().OpenDialog() != nullptr; }));
  mApp->MainWindow().Kill();
  EXPECT_TRUE(IsIdle());
  EXPECT_TRUE(Until([&] { return mEngine->Alerts().OpenDialog() == nullptr; }));
}

TEST_F(TRunWindowTest, ACompileFaultIsShownWhileTheDocumentIsIdle) {
  Start("10 IF\n");
  ASSERT_TRUE(Until([&] { return mEngine->Alerts().OpenDialog() != nullptr && IsIdle(); }));
  mEngine->Alerts().OpenDialog()->reject();
  EXPECT_TRUE(Until([&] { return mEngine->Alerts().OpenDialog() == nullptr; }));
}

TEST_F(TRunWindowTest, AnEndlessCompilationIsKilled) {
  Start("10 A=&O7\n20 PRINT A\n");
  EXPECT_EQ(Document().State(), TDocumentState::Compiling);
  mApp->MainWindow().Kill();
  EXPECT_TRUE(IsIdle());
  RunToEnd("10 CLS:PRINT \"next\"\n");
  EXPECT_TRUE(Shows("next"));
}

TEST_F(TRunWindowTest, ARunDuringACompilationTakesItsPlace) {
  Start("10 A=&O7\n");
  RunToEnd("10 CLS:PRINT \"next\"\n");
  EXPECT_TRUE(Shows("next"));
}

TEST_F(TRunWindowTest, QuittingWhileAProgramWaitsDoesNotHang) {
  StartUntil("10 CLS:PRINT \"go\"\n20 INPUT A$\n", "go");
  mApp.reset();
}

TEST_F(TRunWindowTest, QuittingWhileAnAlertIsShownDoesNotHang) {
  Start("10 PRINT 1/0\n");
  ASSERT_TRUE(Until([&] { return mEngine->Alerts().OpenDialog() != nullptr; }));
  mApp.reset();
}

TEST_F(TRunWindowTest, QuittingWhileAProgramDrawsDoesNotHang) {
  StartUntil("10 SCREEN 3:CLS:PRINT \"go\"\n20 PSET(RND*640,RND*400),RND*7:GOTO 20\n", "go");
  mApp.reset();
}

TEST_F(TRunWindowTest, QuittingWhileCompilingDoesNotHang) {
  Start("10 A=&O7\n");
  mApp.reset();
}

}  // namespace
}  // namespace zoka
