// The whole application on Wayland: it starts, draws, is typed into, takes what an input method
// commits, and quits. The compositor places windows and gives them the focus as it likes; asking
// for more must do no harm and make no noise.
#include <QInputMethodEvent>
#include <QTimer>
#include <clocale>
#include <mutex>

#include "tests/window/window_rig.h"

namespace zoka {
namespace {

std::mutex gNoiseLock;
std::string gNoise;

void remember_noise(QtMsgType, const QMessageLogContext&, const QString& text) {
  const std::lock_guard guard(gNoiseLock);
  gNoise += text.toStdString() + "\n";
}

using TWaylandTest = TWindowRig;

TEST_F(TWaylandTest, StartsDrawsIsTypedIntoAndQuits) {
  ASSERT_EQ(QGuiApplication::platformName(), "wayland");
  TRunWindow& window = mApp->RunWindow();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&mApp->MainWindow(), WAIT_MS));
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window, WAIT_MS));
  StartUntil(
      "10 SCREEN 3:CLS 3:LINE(0,300)-(639,399),2,BF\n"
      "20 INPUT \"word\";A$\n"
      "30 PRINT \"[\";A$;\"]\"\n",
      "word?");
  QTest::keyClicks(&Widget(), "ab");
  QInputMethodEvent preedit("かんじ", {});
  QApplication::sendEvent(&Widget(), &preedit);
  EXPECT_EQ(Widget().Preedit(), "かんじ");
  QInputMethodEvent commit;
  commit.setCommitString("漢字");
  QApplication::sendEvent(&Widget(), &commit);
  EXPECT_EQ(Widget().Preedit(), "");
  QTest::keyClick(&Widget(), Qt::Key_Return);
  ASSERT_TRUE(Until([this] { return IsIdle(); })) << Screen();
  EXPECT_TRUE(Shows("[ab漢字]")) << Screen();
  EXPECT_TRUE(Until(
      [this] { return Widget().grab().toImage().pixelColor(320, 350) == QColor(255, 0, 0); }));

  window.move(40, 30);
  window.raise();
  window.activateWindow();
  window.ToggleFullScreen();
  window.ToggleFullScreen();
  window.Zoom();
  window.Zoom();
  mApp->MainWindow().Appear();
  window.Appear();
  QApplication::processEvents();

  QTimer::singleShot(0, qApp, [this] { EXPECT_TRUE(mApp->QuitRequested()); });
  EXPECT_EQ(QApplication::exec(), 0);
  mApp.reset();
  EXPECT_EQ(gNoise, "");
}

}  // namespace
}  // namespace zoka

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "wayland");
  qInstallMessageHandler(zoka::remember_noise);
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  return RUN_ALL_TESTS();
}
