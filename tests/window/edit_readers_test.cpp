// What the editor need not do at each key: an interface for readers of the screen, which counts the
// characters of the list, is there only with readers, and partners of brackets are looked for in
// their line.
#include <QAccessible>

#include "editor/window/list_watch.h"
#include "tests/window/window_rig.h"

namespace zoka {
namespace {

using S = QsciScintillaBase;

class TEditReadersTest : public TWindowRig {
 protected:
  ~TEditReadersTest() override { QAccessible::setActive(false); }

  TEditTxtView& Edit() { return mApp->MainWindow().View().Edit(); }
  QAccessibleInterface* Access() { return QAccessible::queryAccessibleInterface(&Edit()); }

  void Paint() {
    QApplication::processEvents();
    Edit().viewport()->repaint();
  }
  /// The number of pixels in the colour of matching brackets, with the cursor at a column of the
  /// first line.
  int LitUp(int column) {
    edit_call(Edit(), S::SCI_GOTOPOS, column);
    // The marks are set while the first picture is painted.
    Paint();
    Paint();
    const QImage picture = Edit().viewport()->grab().toImage();
    const QColor& colour = edit_colours(edit_theme(Edit().palette())).brace;
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == colour;
    }
    return count;
  }
};

TEST_F(TEditReadersTest, WithoutReadersTheEditorIsAControlWithAName) {
  ASSERT_NE(Access(), nullptr);
  EXPECT_EQ(Access()->role(), QAccessible::EditableText);
  EXPECT_EQ(Access()->text(QAccessible::Name), "Program List");
  EXPECT_EQ(Access()->textInterface(), nullptr);
}

TEST_F(TEditReadersTest, ReadersFindTheTextFromTheirComingToTheirGoing) {
  Edit().Set("10 PRINT \"漢字\"\n");
  QAccessible::setActive(true);
  ASSERT_NE(Access(), nullptr);
  EXPECT_EQ(Access()->text(QAccessible::Name), "Program List");
  ASSERT_NE(Access()->textInterface(), nullptr);
  EXPECT_EQ(Access()->textInterface()->characterCount(), 14);
  EXPECT_EQ(Access()->textInterface()->text(9, 13), "\"漢字\"");
  QTest::keyClicks(&Edit(), "5");
  Paint();
  EXPECT_EQ(Access()->textInterface()->cursorPosition(), 1);
  QAccessible::setActive(false);
  EXPECT_EQ(Access()->textInterface(), nullptr);
}

TEST_F(TEditReadersTest, OnlyBracketsOfOneLineArePairs) {
  Edit().Set("10 IF A<B THEN B>A:C=(1\n20 )\n30 D=(2)\n");
  EXPECT_EQ(LitUp(7), 0) << "less than";
  EXPECT_EQ(LitUp(17), 0) << "greater than";
  EXPECT_EQ(LitUp(22), 0) << "its partner is in no other line";
  const auto third = static_cast<int>(Edit().Get().find("(2)"));
  EXPECT_GT(LitUp(third), 0);
  EXPECT_EQ(LitUp(0), 0);
}

}  // namespace
}  // namespace zoka
