// Keys and mouse on their way from the window to the program, as a user causes them.
#include <QMenuBar>
#include <QMouseEvent>

#include "app/settings/exit_states.h"
#include "tests/window/window_rig.h"

namespace zoka {
namespace {

using TRunInputTest = TWindowRig;

/// Shows the code of the first byte of each key press, and ends with the key "z".
constexpr const char CODES[] =
    "10 CLS:PRINT \"go\"\n20 A$=INPUT$(1):PRINT ASC(A$);:IF A$<>\"z\" THEN 20\n";

TEST_F(TRunInputTest, KeysWithoutCharactersHaveTheMachinesCodes) {
  StartUntil(CODES, "go");
  for (const int key : {Qt::Key_Home, Qt::Key_End, Qt::Key_Insert, Qt::Key_Delete, Qt::Key_Left,
                        Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Backspace, Qt::Key_Tab,
                        Qt::Key_Return, Qt::Key_Escape, Qt::Key_Z}) {
    QTest::keyClick(&Widget(), static_cast<Qt::Key>(key));
  }
  EXPECT_TRUE(Until([&] { return IsIdle(); }));
  EXPECT_TRUE(Shows(" 12  1  18  127  29  28  30  31  8  9  13  27  122")) << Screen();
}

TEST_F(TRunInputTest, NoKeyWithoutAltIsAShortcut) {
  for (const Qt::KeyboardModifiers held :
       {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier),
        Qt::KeyboardModifiers(Qt::ControlModifier),
        Qt::KeyboardModifiers(Qt::ControlModifier | Qt::AltModifier)}) {
    QKeyEvent event(QEvent::ShortcutOverride, Qt::Key_M, held, "m");
    event.ignore();
    QApplication::sendEvent(&Widget(), &event);
    EXPECT_TRUE(event.isAccepted()) << held.toInt();
  }
  QKeyEvent alt(QEvent::ShortcutOverride, Qt::Key_M, Qt::AltModifier, "m");
  alt.ignore();
  QApplication::sendEvent(&Widget(), &alt);
  EXPECT_FALSE(alt.isAccepted());
}

TEST_F(TRunInputTest, AltWithMAndReturnChangeTheWindow) {
  TRunWindow& window = mApp->RunWindow();
  window.activateWindow();
  ASSERT_TRUE(Until([&] { return window.isActiveWindow(); }));
  ASSERT_TRUE(window.IsMenuBarShown());
  QTest::keyClick(&Widget(), Qt::Key_M, Qt::AltModifier);
  EXPECT_TRUE(Until([&] { return !window.IsMenuBarShown(); }));
  QTest::keyClick(&Widget(), Qt::Key_Return, Qt::AltModifier);
  EXPECT_TRUE(Until([&] { return window.isFullScreen(); }));
  QTest::keyClick(&Widget(), Qt::Key_Return, Qt::AltModifier);
  EXPECT_TRUE(Until([&] { return !window.isFullScreen(); }));
  QTest::keyClick(&Widget(), Qt::Key_M, Qt::AltModifier);
  EXPECT_TRUE(Until([&] { return window.IsMenuBarShown(); }));
  EXPECT_EQ(View().Rsrc().KeyBufCount(), 0);
}

TEST_F(TRunInputTest, ADoubleClickIsTwoClicks) {
  StartUntil(
      "10 SCREEN 3:CLS:PRINT \"go\"\n20 N=N+MOUSE(6,1):IF N<2 THEN 20\n"
      "30 PRINT \"downs\";MOUSE(3,1);\"at\";MOUSE(4,1);MOUSE(5,1)\n",
      "go");
  const QPointF place(30, 40);
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                                  QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, place, Widget().mapToGlobal(place), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&Widget(), &event);
  }
  EXPECT_TRUE(Until([&] { return Shows("downs 2 at 30  40"); })) << Screen();
}

TEST_F(TRunInputTest, TheRightButtonIsTheSecond) {
  StartUntil(
      "10 SCREEN 3:CLS:PRINT \"go\"\n20 IF MOUSE(6,2)=0 THEN 20\n"
      "30 PRINT MOUSE(3,2);MOUSE(4,2);MOUSE(7,2);MOUSE(3,1);MOUSE(6,1)\n",
      "go");
  QTest::mousePress(&Widget(), Qt::RightButton, {}, QPoint(30, 40));
  QTest::mouseRelease(&Widget(), Qt::RightButton, {}, QPoint(50, 60));
  EXPECT_TRUE(Until([&] { return Shows(" 1  30  50  0  0"); })) << Screen();
}

TEST_F(TRunInputTest, ThePlaceBesideThePictureIsHeldToTheEdge) {
  StartUntil(
      "10 SCREEN 3:CLS:PRINT \"go\"\n20 IF MOUSE(6,1)=0 THEN 20\n"
      "30 PRINT MOUSE(0);MOUSE(1);MOUSE(7,1);MOUSE(8,1)\n",
      "go");
  QTest::mousePress(&Widget(), Qt::LeftButton, {}, QPoint(10, 10));
  const QPointF outside(-25, 450);
  QMouseEvent move(QEvent::MouseMove, outside, Widget().mapToGlobal(outside), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&Widget(), &move);
  QTest::mouseRelease(&Widget(), Qt::LeftButton, {}, outside.toPoint());
  EXPECT_TRUE(Until([&] { return Shows(" 0  399 -25  450"); })) << Screen();
}

TEST_F(TRunInputTest, InThe200LineModesTheRowIsHalvedButThatOfAClick) {
  StartUntil(
      "10 SCREEN 0:CLS:PRINT \"go\"\n20 IF MOUSE(3,1)=0 THEN 20\n"
      "30 PRINT MOUSE(0);MOUSE(1);MOUSE(4,1);MOUSE(5,1)\n",
      "go");
  QMouseEvent move(QEvent::MouseMove, QPointF(101, 300), Widget().mapToGlobal(QPointF(101, 300)),
                   Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&Widget(), &move);
  QTest::mousePress(&Widget(), Qt::LeftButton, {}, QPoint(101, 300));
  EXPECT_TRUE(Until([&] { return Shows(" 101  150  101  300"); })) << Screen();
}

TEST_F(TRunInputTest, ALargerPictureHasTheSamePlaces) {
  Widget().SetStep(3);
  StartUntil(
      "10 SCREEN 3:CLS:PRINT \"go\"\n20 IF MOUSE(3,1)=0 THEN 20\n"
      "30 PRINT MOUSE(4,1);MOUSE(5,1)\n",
      "go");
  ASSERT_TRUE(Until([&] { return Widget().width() == 3 * 640; }));
  QTest::mousePress(&Widget(), Qt::LeftButton, {}, QPoint(3 * 200 + 2, 3 * 100));
  EXPECT_TRUE(Until([&] { return Shows(" 200  100"); })) << Screen();
}

TEST_F(TRunInputTest, InputMeantForARunIsHarmlessBeforeTheFirst) {
  ASSERT_EQ(View().VMachine(), nullptr);
  QTest::keyClick(&Widget(), Qt::Key_C, Qt::ControlModifier);
  QTest::keyClick(&Widget(), Qt::Key_End);
  QTest::keyClick(&Widget(), Qt::Key_F11);
  QTest::mouseClick(&Widget(), Qt::LeftButton, {}, QPoint(1, 1));
  RunToEnd("10 CLS:PRINT \"[\"+INKEY$+\"]\"\n");
  EXPECT_TRUE(Shows("[]")) << Screen();
}

}  // namespace
}  // namespace zoka
