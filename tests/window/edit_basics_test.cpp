// The editor as people expect it: what is lit up, undo, find and replace, zoom, dropped files,
// recent files, marks of faults.
#include <QAction>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWheelEvent>
#include <filesystem>

#include "editor/window/list_watch.h"
#include "tests/window/window_rig.h"

namespace zoka {
namespace {

using S = QsciScintillaBase;

class TEditBasicsTest : public TWindowRig {
 protected:
  TEditBasicsTest() {
    Window().activateWindow();
    Edit().setFocus();
    QApplication::processEvents();
    // The toolkit holds the keys of the last event to be down; another test's are not.
    QTest::keyClick(&Edit(), Qt::Key_Home);
  }

  TZokaBasicWindow& Window() { return mApp->MainWindow(); }
  TEditTxtView& Edit() { return Window().View().Edit(); }
  TFindBar& Bar() { return Window().View().FindBar(); }
  QMessageBox* Alert() { return mEngine->Alerts().OpenDialog(); }
  const TEditColours& Colours() { return edit_colours(edit_theme(Edit().palette())); }

  void GoTo(int64_t line, int64_t column) {
    edit_call(Edit(), S::SCI_GOTOPOS, position_of(Edit(), {line, column}));
  }
  long Zoom() { return edit_call(Edit(), S::SCI_GETZOOM); }
  void Wheel(int delta, Qt::KeyboardModifiers held) {
    QWidget* const view = Edit().viewport();
    const QPointF point(50, 50);
    QWheelEvent event(point, view->mapToGlobal(point), QPoint(), QPoint(0, delta), Qt::NoButton,
                      held, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view, &event);
  }
  /// The picture of the editor's text.
  QImage Picture() {
    QApplication::processEvents();
    Edit().viewport()->repaint();
    return Edit().viewport()->grab().toImage();
  }
  static int CountOf(const QImage& picture, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == colour;
    }
    return count;
  }
  std::string Selected() { return Edit().selectedText().toStdString(); }
  void Choose(const char* code) { Window().FindItem(code)->trigger(); }
};

TEST_F(TEditBasicsTest, TheLineOfTheCursorIsLitUp) {
  Edit().Set("10 A\n20 B\n30 C\n");
  GoTo(1, 0);
  const QImage picture = Picture();
  EXPECT_GT(CountOf(picture, Colours().currentLine), picture.width());
  EXPECT_LT(CountOf(picture, Colours().currentLine),
            picture.width() * (edit_call(Edit(), S::SCI_TEXTHEIGHT) + 1));
}

TEST_F(TEditBasicsTest, MatchingParenthesesAreLitUp) {
  Edit().Set("10 A=((1+2)*3)\n");
  GoTo(0, 1);
  EXPECT_EQ(CountOf(Picture(), Colours().brace), 0);
  GoTo(0, 5);
  Picture();
  const int both = CountOf(Picture(), Colours().brace);
  EXPECT_GT(both, 0);
  Edit().Set("10 A=(1+2\n");
  GoTo(0, 5);
  Picture();
  EXPECT_EQ(CountOf(Picture(), Colours().brace), 0) << "half a pair is none";
}

TEST_F(TEditBasicsTest, UndoHasNoEnd) {
  constexpr int EDITS = 3000;
  // At alternating ends, so that no two of them are put together.
  for (int i = 0; i < EDITS; ++i) {
    GoTo(i % 2 == 0 ? 0 : 1, 0);
    Edit().Insert(i % 2 == 0 ? "1\n" : "2\n");
  }
  const std::string after = Edit().Get();
  EXPECT_EQ(after.size(), 2U * EDITS);
  while (Edit().isUndoAvailable()) Edit().undo();
  EXPECT_EQ(Edit().Get(), "");
  while (Edit().isRedoAvailable()) Edit().redo();
  EXPECT_EQ(Edit().Get(), after);
}

TEST_F(TEditBasicsTest, UndoKeysAndThatItNeverCallsTheListUnmodified) {
  QTest::keyClicks(&Edit(), "10 A");
  QTest::keyClick(&Window(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Edit().Get(), "");
  EXPECT_TRUE(Document().IsModified());
  QTest::keyClick(&Window(), Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Edit().Get(), "10 A");
  mFolder.Write("a.bas", "10 B\n");
  Document().SetModified(false);
  ASSERT_TRUE(Window().OpenFile(mFolder.Path("a.bas")));
  EXPECT_FALSE(Edit().isUndoAvailable()) << "what was opened cannot be undone";
}

TEST_F(TEditBasicsTest, CutCountsAsAnEdit) {
  Edit().Set("10 A\n");
  Document().SetModified(false);
  Choose("SALL");
  Choose("CCUT");
  ASSERT_TRUE(Until([&] { return Edit().Get().empty(); }));
  EXPECT_TRUE(Document().IsModified());
}

TEST_F(TEditBasicsTest, NoKeyOfTheComponentDeletesALine) {
  Edit().Set("10 A\n20 B\n");
  for (const Qt::Key key : {Qt::Key_L, Qt::Key_D, Qt::Key_T, Qt::Key_U}) {
    for (const Qt::KeyboardModifiers held :
         {Qt::KeyboardModifiers(Qt::ControlModifier), Qt::ControlModifier | Qt::ShiftModifier}) {
      // As the host sends it: with the control character of the letter.
      QKeyEvent press(QEvent::KeyPress, key, held, QString(QChar(key - Qt::Key_A + 1)));
      QApplication::sendEvent(&Edit(), &press);
    }
  }
  EXPECT_EQ(Edit().Get(), "10 A\n20 B\n");
}

TEST_F(TEditBasicsTest, FindTakesTheSelectionAndGoesRound) {
  Edit().Set("10 FOO\n20 BAR\n30 foo\n");
  edit_call(Edit(), S::SCI_SETSEL, 3, 6);
  QTest::keyClick(&Window(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(Bar().isVisible());
  EXPECT_EQ(Bar().FindText()->text(), "FOO");
  EXPECT_EQ(Bar().Count(), 2);
  QTest::keyClick(Bar().FindText(), Qt::Key_Return);
  EXPECT_EQ(Selected(), "foo");
  QTest::keyClick(&Window(), Qt::Key_F3);
  EXPECT_EQ(Selected(), "FOO");
  QTest::keyClick(&Window(), Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "foo");
  Bar().CaseBox()->setChecked(true);
  EXPECT_EQ(Bar().Count(), 1);
  EXPECT_TRUE(Bar().FindNext());
  EXPECT_EQ(Selected(), "FOO");
  QTest::keyClick(Bar().FindText(), Qt::Key_Escape);
  EXPECT_FALSE(Bar().isVisible());
}

TEST_F(TEditBasicsTest, FindCountsOtherLettersAndEmptyOccurrences) {
  Edit().Set("10 'あいあ\n");
  Bar().FindText()->setText("あ");
  EXPECT_EQ(Bar().Count(), 2);
  Bar().RegexBox()->setChecked(true);
  Bar().FindText()->setText("x*");
  EXPECT_GE(Bar().Count(), 0) << "an empty occurrence ends";
  Bar().FindText()->setText("");
  EXPECT_EQ(Bar().Count(), 0);
  EXPECT_FALSE(Bar().FindNext());
}

TEST_F(TEditBasicsTest, ReplaceOneAndByRegularExpression) {
  Edit().Set("10 A1=B2\n");
  Bar().Appear();
  Bar().RegexBox()->setChecked(true);
  Bar().FindText()->setText("([AB])([0-9])");
  Bar().ReplaceText()->setText("\\2\\1");
  GoTo(0, 0);
  Bar().ReplaceOne();  // nothing is selected: it only finds
  EXPECT_EQ(Edit().Get(), "10 A1=B2\n");
  Bar().ReplaceOne();
  EXPECT_EQ(Edit().Get(), "10 1A=B2\n");
  EXPECT_EQ(Selected(), "B2");
  Edit().undo();
  EXPECT_EQ(Bar().ReplaceAll(), 2);
  EXPECT_EQ(Edit().Get(), "10 1A=2B\n");
  EXPECT_TRUE(Document().IsModified());
}

TEST_F(TEditBasicsTest, TheCountFollowsTheList) {
  Edit().Set("10 A\n");
  Bar().FindText()->setText("A");
  Bar().Appear();
  const auto shows = [&](const char* text) {
    for (const QLabel* label : Bar().findChildren<QLabel*>()) {
      if (label->text() == text) return true;
    }
    return false;
  };
  EXPECT_TRUE(shows("Found: 1"));
  Edit().Append("20 A:A\n");
  ASSERT_TRUE(Until([&] { return shows("Found: 3"); }));
}

TEST_F(TEditBasicsTest, ReplaceAllInALongListIsOneStep) {
  std::string text;
  for (int i = 0; i < 20'000; ++i) text += "10 COUNT=COUNT+1:PRINT COUNT\n";
  Edit().Set(text);
  Bar().FindText()->setText("COUNT");
  Bar().ReplaceText()->setText("C");
  EXPECT_EQ(Bar().ReplaceAll(), 60'000);
  EXPECT_TRUE(Edit().Get().starts_with("10 C=C+1:PRINT C\n10 C=C+1"));
  Edit().undo();
  EXPECT_EQ(Edit().Get(), text);
}

TEST_F(TEditBasicsTest, ZoomByKeysAndWheel) {
  const int margin = Edit().marginWidth(0);
  QTest::keyClick(&Window(), Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(Zoom(), 1);
  QTest::keyClick(&Window(), Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(Zoom(), 2);
  EXPECT_GT(Edit().marginWidth(0), margin) << "the numbers keep their room";
  QTest::keyClick(&Window(), Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(Zoom(), 1);
  QTest::keyClick(&Window(), Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(Zoom(), 0);
  Wheel(120, Qt::ControlModifier);
  EXPECT_EQ(Zoom(), 1);
  Wheel(-120, Qt::ControlModifier);
  EXPECT_EQ(Zoom(), 0);
  Wheel(-120, Qt::NoModifier);
  EXPECT_EQ(Zoom(), 0);
  EXPECT_FALSE(Document().IsModified());
}

TEST_F(TEditBasicsTest, TheNumberMarginGrowsWithTheList) {
  const int margin = Edit().marginWidth(0);
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += '\n';
  Edit().Set(text);
  EXPECT_GT(Edit().marginWidth(0), margin);
  Edit().Set("");
  EXPECT_EQ(Edit().marginWidth(0), margin);
}

TEST_F(TEditBasicsTest, ADroppedFileIsOpened) {
  mFolder.Write("a.bas", "10 A\n");
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(QString::fromStdString(mFolder.Path("a.bas")))});
  QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Edit().viewport(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Edit().viewport(), &drop);
  ASSERT_TRUE(Until([&] { return Document().CurPath() == mFolder.Path("a.bas"); }));
  EXPECT_EQ(Edit().Get(), "10 A\n");
}

TEST_F(TEditBasicsTest, WhatIsDroppedFromOutsideWithoutAFileOfThisMachineOpensNothing) {
  QMimeData pages;
  pages.setUrls({QUrl("https://example.org/a.bas")});
  QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &pages, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Edit().viewport(), &drop);
  QApplication::processEvents();
  EXPECT_EQ(Document().CurPath(), "");
  EXPECT_EQ(Edit().Get(), "");
}

TEST_F(TEditBasicsTest, ADropFromTheApplicationItselfIsNoLoad) {
  QMimeData files;
  files.setUrls({QUrl("file:///a.bas")});
  EXPECT_TRUE(is_foreign_drop(nullptr, files));
  EXPECT_FALSE(is_foreign_drop(&Bar(), files)) << "it was dragged from here";
  QMimeData text;
  text.setText("10 A");
  EXPECT_FALSE(is_foreign_drop(nullptr, text)) << "text is the editor's own business";
}

TEST_F(TEditBasicsTest, RecentFilesAreInTheMenu) {
  mFolder.Write("a.bas", "10 A\n");
  mFolder.Write("b.bas", "10 B\n");
  ASSERT_TRUE(Window().OpenFile(mFolder.Path("a.bas")));
  ASSERT_TRUE(Window().OpenFile(mFolder.Path("b.bas")));
  const QList<QAction*> items = Window().HistoryMenu()->actions();
  ASSERT_GE(items.size(), 4);
  EXPECT_TRUE(items[0]->text().startsWith("b.bas"));
  EXPECT_TRUE(items[1]->text().startsWith("a.bas"));
  items[1]->trigger();
  ASSERT_TRUE(Until([&] { return Document().CurPath() == mFolder.Path("a.bas"); }));
  EXPECT_TRUE(std::filesystem::exists(mFolder.Path("settings/ZokaBASIC/ZokaBASIC_MRUF.arc")));
}

TEST_F(TEditBasicsTest, ACompileFaultLightsItsLineUpWithTheTextOfTheAlert) {
  Edit().Set("10 CLS\n20 PRINT 1.\n30 END\n");
  Choose("run");
  ASSERT_TRUE(Until([&] { return Alert() != nullptr; }));
  const QString shown = Alert()->text().section('\n', 0, 0);
  Alert()->reject();
  ASSERT_TRUE(Until([&] { return IsIdle() && Edit().FaultLine() == 1; }));
  EXPECT_GT(CountOf(Picture(), Colours().fault), Picture().width());
  EXPECT_TRUE(Window().StatusText().contains(shown)) << Window().StatusText().toStdString();
  // With the cursor elsewhere its own line is lit up beside the fault's, as long as the editor has
  // the keyboard.
  Window().activateWindow();
  Edit().setFocus();
  ASSERT_TRUE(Until([&] { return Edit().hasFocus() || Edit().viewport()->hasFocus(); }));
  GoTo(0, 0);
  EXPECT_GT(CountOf(Picture(), Colours().fault), Picture().width());
  EXPECT_GT(CountOf(Picture(), Colours().currentLine), Picture().width());
  // A new run takes the mark away.
  Edit().Set("10 END\n");
  EXPECT_EQ(Edit().FaultLine(), -1);
  EXPECT_EQ(CountOf(Picture(), Colours().fault), 0);
}

TEST_F(TEditBasicsTest, ARunTimeFaultLightsItsLineUp) {
  Edit().Set("10 CLS\n20 A(1)=1\n30 A(99)=1\n");
  Choose("run");
  ASSERT_TRUE(Until([&] { return Alert() != nullptr; }));
  Alert()->reject();
  ASSERT_TRUE(Until([&] { return IsIdle() && Edit().FaultLine() == 2; }));
  EXPECT_GT(CountOf(Picture(), Colours().fault), Picture().width());
}

}  // namespace
}  // namespace zoka
