// A key of the host's keyboard on its way to what the widget paints, counted in paintings.
#include <gtest/gtest.h>

#include "tests/window/window_rig.h"

namespace zoka {
namespace {

class TKeyPictureTest : public TWindowRig {
 protected:
  /// Counts the paintings of a widget until one has something in the first cell of a row.
  class TPaintings final : public QObject {
   public:
    TPaintings(TRunWidget& widget, TRunView& view, int32_t row)
        : mWidget(widget), mView(view), mTop(row * CELL_HEIGHT) {
      mWidget.installEventFilter(this);
    }
    int count = 0;
    bool isSeen = false;

   private:
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::Paint && !isSeen) {
        ++count;
        isSeen = IsCellLit();
      }
      return false;
    }
    bool IsCellLit() const {
      const std::lock_guard lock(mView.Lock());
      for (int32_t y = 0; y < CELL_HEIGHT; ++y) {
        for (int32_t x = 0; x < CELL_WIDTH; ++x) {
          if ((mView.Frame().Row(mTop + y)[x] & 0xFFFFFF) != 0) return true;
        }
      }
      return false;
    }
    static constexpr int32_t CELL_WIDTH = 8, CELL_HEIGHT = 16;
    TRunWidget& mWidget;
    TRunView& mView;
    int32_t mTop;  // of the row, in pixels
  };
  /// What the program has drawn so far is painted, and nothing is left to paint.
  void AwaitPainted(int32_t row) {
    TPaintings paintings(Widget(), View(), row);
    Widget().update();
    ASSERT_TRUE(Until([&] { return paintings.isSeen; }));
    run_event_rounds();
  }
};

TEST_F(TKeyPictureTest, AKeyIsPaintedAtTheSecondPaintingAtTheLatest) {
  StartUntil(
      "10 CLS 3:LOCATE 0,5:PRINT \"waits\":LOCATE 0,0\n"
      "20 A$=INKEY$:IF A$=\"\" THEN 20\n"
      "30 PRINT A$;:GOTO 20\n",
      "waits");
  AwaitPainted(5);
  TPaintings paintings(Widget(), View(), 0);
  QTest::keyClick(&Widget(), Qt::Key_A);
  ASSERT_TRUE(Until([&] { return paintings.isSeen; }));
  EXPECT_LE(paintings.count, 2);
  mApp->MainWindow().Kill();
}

}  // namespace
}  // namespace zoka
