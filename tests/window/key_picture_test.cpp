// A key of the host's keyboard on its way to what the widget paints, counted in paintings.
#include <gtest/gtest.h>

#include "tests/window/window_rig.h"

namespace zoka {
namespace {

class TKeyPictureTest : public TWindowRig {
 protected:
  /// Counts the paintings of a widget until one has something in the first cell.
  class TPaintings final : public QObject {
   public:
    TPaintings(TRunWidget& widget, TRunView& view) : mWidget(widget), mView(view) {
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
      for (int32_t y = 0; y < 16; ++y) {
        for (int32_t x = 0; x < 8; ++x) {
          if ((mView.Frame().Row(y)[x] & 0xFFFFFF) != 0) return true;
        }
      }
      return false;
    }
    TRunWidget& mWidget;
    TRunView& mView;
  };
};

TEST_F(TKeyPictureTest, AKeyIsPaintedAtTheSecondPaintingAtTheLatest) {
  StartUntil(
      "10 CLS 3:LOCATE 0,5:PRINT \"waits\":LOCATE 0,0\n"
      "20 A$=INKEY$:IF A$=\"\" THEN 20\n"
      "30 PRINT A$;:GOTO 20\n",
      "waits");
  // What was drawn before is painted.
  QTest::qWait(100);
  TPaintings paintings(Widget(), View());
  QTest::keyClick(&Widget(), Qt::Key_A);
  ASSERT_TRUE(Until([&] { return paintings.isSeen; }));
  EXPECT_LE(paintings.count, 2);
  mApp->MainWindow().Kill();
}

}  // namespace
}  // namespace zoka
