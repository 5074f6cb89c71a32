// The run window's picture: whole pixels at any size and any resolution of the host, the blinking
// cursor, what an input method has not committed yet.
#include <QAccessible>
#include <QImage>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QSignalSpy>
#include <mutex>

#include "app/settings/exit_states.h"
#include "tests/window/window_rig.h"

namespace zoka {
namespace {

using TRunPictureTest = TWindowRig;

/// Every pixel is unlike its neighbours.
constexpr const char CHEQUERED[] = R"(10 SCREEN 3:CLS 3:FOR Y=0 TO 399 STEP 2
20 LINE(0,Y)-(639,Y),Y MOD 7+1:NEXT:FOR X=0 TO 639 STEP 2:LINE(X,0)-(X,399),X MOD 5+2:NEXT
)";

constexpr uint32_t BLACK = 0xFF000000;

/// The widget as it is painted, in pixels of the host.
QImage painted(QWidget& widget) {
  return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// Where an input method that asks finds the cursor.
QRect cursor_rectangle(QWidget& widget) {
  QInputMethodQueryEvent query(Qt::ImCursorRectangle);
  QApplication::sendEvent(&widget, &query);
  return query.value(Qt::ImCursorRectangle).toRect();
}

/// Compares what is painted with the machine's picture in squares of `scale` pixels from (left,
/// top) on, and with black outside.
void expect_squares(const QImage& image, const TFrameBuffer& frame, int scale, int left, int top) {
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    const bool isInside = y >= top && y < top + SCREEN_HEIGHT * scale;
    for (int x = 0; x < image.width(); ++x) {
      const bool isPicture = isInside && x >= left && x < left + SCREEN_WIDTH * scale;
      const uint32_t expected =
          isPicture ? frame.Row((y - top) / scale)[(x - left) / scale] : BLACK;
      if (row[x] != expected) FAIL() << x << "," << y << " at scale " << scale;
    }
  }
}

// Also run with other resolutions of the host, see CMakeLists.txt.
TEST_F(TRunPictureTest, AMachinesPixelIsASquareOfWholePixels) {
  RunToEnd(CHEQUERED);
  View().FlushScreen();
  const qreal ratio = Widget().devicePixelRatioF();
  for (int step = 1; step <= TRunWidget::MAX_STEP; ++step) {
    Widget().SetStep(step);
    const int scale = static_cast<int>(std::round(step * ratio));
    const QSize wanted(static_cast<int>(std::ceil(640 * scale / ratio)),
                       static_cast<int>(std::ceil(400 * scale / ratio)));
    ASSERT_TRUE(Until([&] { return Widget().size() == wanted; })) << step;
    ASSERT_EQ(Widget().Scale(), scale);
    const QImage image = painted(Widget());
    // Where the host's units are coarser than its pixels, up to one unit is left over.
    ASSERT_LE(image.width() - 640 * scale, std::ceil(ratio));
    ASSERT_LE(image.height() - 400 * scale, std::ceil(ratio));
    const std::lock_guard lock(View().Lock());
    expect_squares(image, View().Frame(), scale, (image.width() - 640 * scale) / 2,
                   (image.height() - 400 * scale) / 2);
  }
}

TEST_F(TRunPictureTest, AFillingPictureStandsInTheMiddleOfBlack) {
  RunToEnd(CHEQUERED);
  View().FlushScreen();
  mApp->RunWindow().ToggleFullScreen();
  ASSERT_TRUE(Until([&] { return mApp->RunWindow().isFullScreen(); }));
  const qreal ratio = Widget().devicePixelRatioF();
  for (const QSize size : {QSize(1500, 830), QSize(1300, 1300), QSize(700, 401)}) {
    Widget().setFixedSize(size);
    ASSERT_TRUE(Until([&] { return Widget().size() == size; }));
    const QImage image = painted(Widget());
    const int scale =
        std::max(1, static_cast<int>(std::min(std::floor(size.width() * ratio / 640),
                                              std::floor(size.height() * ratio / 400))));
    ASSERT_EQ(Widget().Scale(), scale);
    const int left = (static_cast<int>(size.width() * ratio) - 640 * scale) / 2;
    const int top = (static_cast<int>(size.height() * ratio) - 400 * scale) / 2;
    const std::lock_guard lock(View().Lock());
    expect_squares(image, View().Frame(), scale, left, top);
    EXPECT_EQ(Widget().PointAt(QPointF((left + scale * 639) / ratio, (top + scale * 3) / ratio)),
              (TPoint{639, 3}));
    EXPECT_EQ(Widget().PointAt(QPointF((left - 1) / ratio, top / ratio)), (TPoint{-1, 0}));
  }
}

TEST_F(TRunPictureTest, AWindowThatFilledTheScreenComesBackToItsPlace) {
  TRunWindow& window = mApp->RunWindow();
  window.move(40, 50);
  ASSERT_TRUE(Until([&] { return window.pos() == QPoint(40, 50); }));
  const QRect before = window.geometry();
  for (int i = 0; i < 3; ++i) {
    window.ToggleFullScreen();
    ASSERT_TRUE(Until([&] { return window.isFullScreen() && window.geometry() != before; }));
    window.ToggleFullScreen();
    EXPECT_TRUE(Until([&] { return !window.isFullScreen() && window.geometry() == before; }));
  }
}

TEST_F(TRunPictureTest, QuittingWithTheScreenFilledKeepsThePlaceFromBefore) {
  TRunWindow& window = mApp->RunWindow();
  window.move(40, 50);
  ASSERT_TRUE(Until([&] { return window.pos() == QPoint(40, 50); }));
  const TFrame frame = window.Frame();
  window.ToggleFullScreen();
  ASSERT_TRUE(Until([&] { return window.isFullScreen() && window.pos() == QPoint(0, 0); }));
  window.Quit();
  EXPECT_EQ(mEngine->Context().exitStates->RWFr, frame);
}

TEST_F(TRunPictureTest, AnotherScreenGivesTheWidgetItsSizeAnew) {
  Widget().setFixedSize(100, 100);
  QEvent event(QEvent::ScreenChangeInternal);
  QApplication::sendEvent(&Widget(), &event);
  EXPECT_TRUE(Until([&] { return Widget().width() >= 640 && Widget().height() >= 400; }));
}

TEST_F(TRunPictureTest, TheCursorBlinksWhereTheProgramWaits) {
  StartUntil("10 CLS:INPUT \"name\";A$\n", "name?");
  const auto cursorPixel = [&] {
    const std::lock_guard lock(View().Lock());
    return View().Frame().Row(0)[6 * 8];
  };
  for (const uint32_t color : {0xFFFFFFFFu, BLACK, 0xFFFFFFFFu}) {
    EXPECT_TRUE(Until([&] { return cursorPixel() == color; })) << color;
  }
}

TEST_F(TRunPictureTest, WhatIsNotCommittedIsShownAtTheCursorAndNotTyped) {
  StartUntil("10 CLS:PRINT \"go\"\n20 A$=INPUT$(1):A$=A$+INPUT$(1):PRINT \"[\"+A$+\"]\"\n", "go");
  View().FlushScreen();
  const QImage before = painted(Widget());
  QInputMethodEvent preedit("かん", {});
  QApplication::sendEvent(&Widget(), &preedit);
  EXPECT_EQ(Widget().Preedit(), "かん");
  const QImage during = painted(Widget());
  const QRect cell = cursor_rectangle(Widget());
  EXPECT_EQ(cell, Widget().CellRect(80));
  const qreal ratio = Widget().devicePixelRatioF();
  const QRect there(QPoint(0, 0) + cell.topLeft() * ratio, cell.size() * ratio);
  EXPECT_NE(during.copy(there), before.copy(there));
  EXPECT_EQ(during.copy(QRect(0, 0, during.width(), there.top())),
            before.copy(QRect(0, 0, before.width(), there.top())));
  QInputMethodEvent commit("", {});
  commit.setCommitString("感字");
  QApplication::sendEvent(&Widget(), &commit);
  EXPECT_EQ(Widget().Preedit(), "");
  EXPECT_TRUE(Until([&] { return Shows("[感字]"); })) << Screen();
}

TEST_F(TRunPictureTest, TheInputMethodHearsWhereTheCursorIs) {
  mApp->RunWindow().activateWindow();
  Widget().setFocus();
  ASSERT_TRUE(Until([&] { return Widget().hasFocus(); }));
  QSignalSpy moved(QGuiApplication::inputMethod(), &QInputMethod::cursorRectangleChanged);
  StartUntil("10 CLS:LOCATE 10,5:PRINT \"go\";:A$=INPUT$(1)\n", "go");
  EXPECT_TRUE(Until([&] {
    return moved.count() > 0 && cursor_rectangle(Widget()) == Widget().CellRect(5 * 80 + 12);
  }));
  moved.clear();
  QTest::keyClick(&Widget(), Qt::Key_X);
  EXPECT_TRUE(Until([&] { return IsIdle() && moved.count() > 0; }));
}

// ---- Readers of the screen.

TEST_F(TRunPictureTest, ReadersFindCharactersInWideTextToo) {
  RunToEnd("10 CLS:PRINT \"漢字AB\":LOCATE 5,0:PRINT \"c\";\n");
  QAccessibleTextInterface* text =
      QAccessible::queryAccessibleInterface(&Widget())->textInterface();
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->text(0, 8), "漢字AcOk\n\n");
  const QRect kanji = text->characterRect(1);
  EXPECT_EQ(kanji, QRect(Widget().mapToGlobal(QPoint(16, 0)), QSize(16, 16)));
  EXPECT_EQ(text->characterRect(3), QRect(Widget().mapToGlobal(QPoint(40, 0)), QSize(8, 16)));
  EXPECT_EQ(text->offsetAtPoint(kanji.center()), 1);
  EXPECT_EQ(text->offsetAtPoint(Widget().mapToGlobal(QPoint(41, 1))), 3);
  EXPECT_EQ(text->offsetAtPoint(Widget().mapToGlobal(QPoint(600, 1))), 6);  // the line feed
  EXPECT_EQ(text->offsetAtPoint(Widget().mapToGlobal(QPoint(-1, 1))), -1);
  EXPECT_EQ(text->offsetAtPoint(Widget().mapToGlobal(QPoint(640, 1))), -1);
}

}  // namespace
}  // namespace zoka
