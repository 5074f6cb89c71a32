// What helps with typing and reading a list, by real keys and the mouse: completion, underlines,
// hover, F1, the way to definitions and back.
#include "editor/window/edit_comforts.h"

#include <QAction>
#include <QHelpEvent>
#include <QToolTip>
#include <cstring>

#include "tests/window/window_rig.h"

namespace zoka {
namespace {

using S = QsciScintillaBase;

class TComfortsTest : public TWindowRig {
 protected:
  TComfortsTest() {
    Window().activateWindow();
    Edit().setFocus();
    QApplication::processEvents();
  }

  TZokaBasicWindow& Window() { return mApp->MainWindow(); }
  TEditTxtView& Edit() { return Window().View().Edit(); }
  TEditComforts& Comforts() { return Window().View().Comforts(); }
  TCompletionPopup& Popup() { return Comforts().Completion(); }

  void Type(const char* text) { QTest::keyClicks(&Edit(), text); }
  void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::keyClick(&Edit(), key, held);
  }
  void GoTo(int64_t line, int64_t column) {
    edit_call(Edit(), S::SCI_GOTOPOS, position_of(Edit(), {line, column}));
  }
  TListPlace Cursor() { return place_of(Edit(), edit_call(Edit(), S::SCI_GETCURRENTPOS)); }
  /// The underlined parts of a line, with blanks between them.
  std::string Underlined(int64_t line) {
    Comforts().Marks().Update();
    std::string text;
    const std::string bytes = Edit().Get();
    const long begin = edit_call(Edit(), S::SCI_POSITIONFROMLINE, line);
    const long end = edit_call(Edit(), S::SCI_GETLINEENDPOSITION, line);
    bool was = false;
    for (long at = begin; at < end; ++at) {
      const bool marked = edit_call(Edit(), S::SCI_INDICATORVALUEAT, UNDEFINED_INDICATOR, at) != 0;
      if (marked && !was && !text.empty()) text += ' ';
      if (marked) text += bytes[static_cast<size_t>(at)];
      was = marked;
    }
    return text;
  }
  /// The point of a place in the editor's view.
  QPoint PointOf(int64_t line, int64_t column) {
    const int64_t at = position_of(Edit(), {line, column});
    const auto x = static_cast<int>(edit_call(Edit(), S::SCI_POINTXFROMPOSITION, 0, at));
    const auto y = static_cast<int>(edit_call(Edit(), S::SCI_POINTYFROMPOSITION, 0, at));
    return {x + 2, y + static_cast<int>(edit_call(Edit(), S::SCI_TEXTHEIGHT, line)) / 2};
  }
  QAction* Item(const char* text) {
    for (QAction* action : Window().findChildren<QAction*>()) {
      if (action->text() == text) return action;
    }
    return nullptr;
  }
};

TEST_F(TComfortsTest, CompletionIsOfferedAndTakenWithTab) {
  Type("10 PRI");
  ASSERT_TRUE(Popup().isVisible());
  EXPECT_EQ(Popup().Words(), QStringList{"PRINT"});
  Press(Qt::Key_Tab);
  EXPECT_EQ(Edit().Get(), "10 PRINT");
  EXPECT_FALSE(Popup().isVisible());
  EXPECT_TRUE(Document().IsModified());
}

TEST_F(TComfortsTest, ReturnBeginsALineUnlessAWordWasChosen) {
  Type("10 PRI");
  ASSERT_TRUE(Popup().isVisible());
  Press(Qt::Key_Return);
  EXPECT_EQ(Edit().Get(), "10 PRI\n");
  EXPECT_FALSE(Popup().isVisible());
  Type("20 GO");
  EXPECT_EQ(Popup().Words(), (QStringList{"GO TO", "GOSUB", "GOTO"}));
  Press(Qt::Key_Down);
  Press(Qt::Key_Return);
  EXPECT_EQ(Edit().Get(), "10 PRI\n20 GOSUB");
}

TEST_F(TComfortsTest, ArrowsStayWithinTheList) {
  Type("10 GO");
  Press(Qt::Key_Up);
  EXPECT_EQ(Popup().currentRow(), 0);
  Press(Qt::Key_PageDown);
  EXPECT_EQ(Popup().currentRow(), 2);
  Press(Qt::Key_Down);
  EXPECT_EQ(Popup().currentRow(), 2);
  Press(Qt::Key_Enter);
  EXPECT_EQ(Edit().Get(), "10 GOTO");
}

TEST_F(TComfortsTest, EscapeKeepsTheListAwayFromTheWord) {
  Type("10 PR");
  ASSERT_TRUE(Popup().isVisible());
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Popup().isVisible());
  Type("I");
  EXPECT_FALSE(Popup().isVisible());
  EXPECT_EQ(Edit().Get(), "10 PRI");
  // The next word has its list again, and so has this one for who asks.
  Type(":PS");
  EXPECT_TRUE(Popup().isVisible());
  Press(Qt::Key_Escape);
  Comforts().CompleteWord();
  EXPECT_EQ(Popup().Words(), QStringList{"PSET"});
}

TEST_F(TComfortsTest, OtherKeysGoToTheEditor) {
  Type("10 PRI");
  ASSERT_TRUE(Popup().isVisible());
  Press(Qt::Key_Left);
  EXPECT_FALSE(Popup().isVisible());
  Press(Qt::Key_End);
  Type("=1");
  EXPECT_EQ(Edit().Get(), "10 PRI=1");
  EXPECT_FALSE(Popup().isVisible());
  EXPECT_TRUE(Edit().hasFocus() || Edit().viewport()->hasFocus());
}

TEST_F(TComfortsTest, TheListFollowsTheWord) {
  Type("10 PR");
  const auto count = Popup().Words().size();
  Type("I");
  EXPECT_LT(Popup().Words().size(), count);
  Press(Qt::Key_Backspace);
  ASSERT_TRUE(Until([&] { return Popup().Words().size() == count; }));
  Press(Qt::Key_Backspace);
  Press(Qt::Key_Backspace);
  ASSERT_TRUE(Until([&] { return !Popup().isVisible(); }));
  EXPECT_EQ(Edit().Get(), "10 ");
}

TEST_F(TComfortsTest, NamesAndLabelsOfTheList) {
  Edit().Set("10 COUNTER=1\n20 *MAINLOOP\n");
  GoTo(2, 0);
  Type("30 count");
  EXPECT_EQ(Popup().Words(), QStringList{"counter"});
  Press(Qt::Key_Tab);
  Type(":GOTO *");
  EXPECT_EQ(Popup().Words(), QStringList{"MAINLOOP"});
  Press(Qt::Key_Tab);
  EXPECT_EQ(Edit().Get(), "10 COUNTER=1\n20 *MAINLOOP\n30 counter:GOTO *MAINLOOP");
}

TEST_F(TComfortsTest, NoListInTextsAndComments) {
  Type("10 PRINT \"PRI");
  EXPECT_FALSE(Popup().isVisible());
  Type("\":REM PRI");
  EXPECT_FALSE(Popup().isVisible());
}

TEST_F(TComfortsTest, ACompletionIsOneStepToUndo) {
  Type("10 PRI");
  Press(Qt::Key_Tab);
  Edit().undo();
  EXPECT_EQ(Edit().Get(), "10 PRI");
}

TEST_F(TComfortsTest, AClickTakesAWord) {
  Type("10 GO");
  ASSERT_TRUE(Popup().isVisible());
  const QRect row = Popup().visualItemRect(Popup().item(2));
  QTest::mouseClick(Popup().viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
  EXPECT_EQ(Edit().Get(), "10 GOTO");
}

TEST_F(TComfortsTest, TheListIsWithinTheEditor) {
  Window().resize(400, 300);
  QApplication::processEvents();
  for (int i = 0; i < 30; ++i) Press(Qt::Key_Return);
  Type("10 A=1234567890123456789012345678901234567890:P");
  Comforts().CompleteWord();
  ASSERT_TRUE(Popup().isVisible());
  EXPECT_TRUE(Edit().rect().contains(Popup().geometry()));
  EXPECT_FALSE(Popup().geometry().contains(
      Edit().viewport()->mapTo(&Edit(), PointOf(Cursor().line, Cursor().column))));
}

TEST_F(TComfortsTest, JumpsThatLeadNowhereAreUnderlined) {
  Edit().Set("10 GOTO 30:GOSUB *SUB\n20 IF A THEN 10 ELSE 5\n");
  EXPECT_EQ(Underlined(0), "30 *SUB");
  EXPECT_EQ(Underlined(1), "5");
  // A definition takes the lines away as it is typed, and brings them back when it goes.
  GoTo(2, 0);
  Type("30 *SUB");
  EXPECT_EQ(Underlined(0), "");
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Underlined(0), "*SUB");
  for (int i = 0; i < 5; ++i) Press(Qt::Key_Backspace);
  EXPECT_EQ(Underlined(0), "30 *SUB");
  Edit().undo();
  Edit().undo();
  EXPECT_EQ(Underlined(2), "");
}

TEST_F(TComfortsTest, EveryKindOfJumpIsUnderlined) {
  Edit().Set(
      "10 GOTO 1:GO TO 2:GOSUB 3:RESTORE 4:RUN 5:RETURN 6\n"
      "20 IF A THEN 1 ELSE 2\n30 ON X GOTO 1,2:ON KEY GOSUB 3,*K\n40 IF A GOTO 9\n"
      "50 ON ERROR GOTO 100:RESUME 200:REM GOTO 1\n60 PRINT \"GOTO 1\":GOTO 10\n");
  EXPECT_EQ(Underlined(0), "1 2 3 4 5 6");
  EXPECT_EQ(Underlined(1), "1 2");
  EXPECT_EQ(Underlined(2), "1 2 3 *K");
  EXPECT_EQ(Underlined(3), "9");
  EXPECT_EQ(Underlined(4), "");
  EXPECT_EQ(Underlined(5), "");
}

TEST_F(TComfortsTest, UnnumberedListsCountTheirLines) {
  Edit().Set("PRINT\nGOTO 2\nGOTO 4\n");
  EXPECT_EQ(Underlined(1), "");
  EXPECT_EQ(Underlined(2), "4");
  GoTo(3, 0);
  Type("A=1");
  EXPECT_EQ(Underlined(2), "");
}

TEST_F(TComfortsTest, TheIndexFollowsEveryEdit) {
  Edit().Set("10 A\r\n20 B\r30 C\n");
  const TListIndex& index = Comforts().Watch().Index();
  const auto same = [&] {
    TListIndex whole;
    whole.SetText(Edit().Get());
    return whole.LineCount() == index.LineCount() && whole.NamesWith("") == index.NamesWith("") &&
           whole.LabelsWith("") == index.LabelsWith("");
  };
  EXPECT_TRUE(same());
  const auto change = [&](int64_t from, int64_t to, const char* text) {
    edit_call(Edit(), S::SCI_SETTARGETRANGE, from, to);
    Edit().SendScintilla(S::SCI_REPLACETARGET, std::strlen(text), text);
    EXPECT_TRUE(same()) << Edit().Get();
  };
  change(5, 5, "X");  // between CR and LF
  change(5, 6, "");   // and together again
  change(4, 5, "");   // the CR goes
  change(0, 9, "*L\n*M\n");
  Edit().undo();
  EXPECT_TRUE(same());
  Edit().redo();
  EXPECT_TRUE(same());
  Edit().Append("40 *N\n");
  Edit().Insert("5 *O\n");
  Edit().Replace("10 Z\n20 Y\n");
  EXPECT_TRUE(same());
  EXPECT_EQ(index.NamesWith(""), (std::vector<std::string>{"Y", "Z"}));
}

TEST_F(TComfortsTest, HoverTellsOfWordsAndTargets) {
  Edit().Set("10 PRINT LEFT$(A$,1)\n20 GOTO 10:GOSUB *NONE:GOTO 99\n");
  const THoverHelp& hover = Comforts().Hover();
  EXPECT_TRUE(hover.TextAt({0, 10}).contains("LEFT$(text$,length)"));
  EXPECT_TRUE(hover.TextAt({0, 10}).contains("Takes the beginning of a text."));
  EXPECT_FALSE(hover.TextAt({0, 10}).contains("kanji")) << "one sentence is enough";
  EXPECT_EQ(hover.TextAt({0, 15}), "");
  EXPECT_TRUE(hover.TextAt({1, 9}).contains("10 PRINT LEFT$(A$,1)"));
  EXPECT_TRUE(hover.TextAt({1, 19}).contains("There is no label *NONE."));
  EXPECT_TRUE(hover.TextAt({1, 29}).contains("There is no line 99."));
  mApp->SetLanguage(TLanguage::Japanese);
  ASSERT_TRUE(Until([&] { return hover.TextAt({1, 29}).contains("行99はありません。"); }));
  EXPECT_TRUE(hover.TextAt({0, 10}).contains("文字列の左側を取り出します。"));
}

TEST_F(TComfortsTest, TheToolTipIsShownBelowThePointer) {
  Edit().Set("10 PRINT 1\n");
  const QPoint point = PointOf(0, 4);
  QHelpEvent help(QEvent::ToolTip, point, Edit().viewport()->mapToGlobal(point));
  QApplication::sendEvent(Edit().viewport(), &help);
  EXPECT_TRUE(QToolTip::text().contains("PRINT")) << QToolTip::text().toStdString();
  const QPoint nowhere(point.x(), Edit().viewport()->height() - 2);
  QHelpEvent none(QEvent::ToolTip, nowhere, Edit().viewport()->mapToGlobal(nowhere));
  QApplication::sendEvent(Edit().viewport(), &none);
  ASSERT_TRUE(Until([&] { return QToolTip::text().isEmpty() || !QToolTip::isVisible(); }));
}

TEST_F(TComfortsTest, F1ShowsTheWordUnderTheCursor) {
  Edit().Set("10 circle(1,2),3\n");
  GoTo(0, 5);
  QTest::keyClick(&Window(), Qt::Key_F1);
  TKeywordWindow& words = Comforts().KeywordWindow();
  ASSERT_TRUE(words.isVisible());
  ASSERT_NE(words.WordList()->currentItem(), nullptr);
  EXPECT_EQ(words.WordList()->currentItem()->text(), "CIRCLE");
  EXPECT_TRUE(words.Page()->toPlainText().contains("Draws a circle, an ellipse or an arc."));
  // Another word, by the keyboard alone.
  QTest::keyClicks(words.Wanted(), "lef");
  EXPECT_EQ(words.WordList()->currentItem()->text(), "LEFT$");
  words.Wanted()->clear();
  QTest::keyClick(words.Wanted(), Qt::Key_Down);
  EXPECT_EQ(words.WordList()->currentItem()->text(), "LEN");
  mApp->SetLanguage(TLanguage::Japanese);
  ASSERT_TRUE(Until([&] { return words.Page()->toPlainText().contains("文字列の長さ"); }));
  QTest::keyClick(&words, Qt::Key_Escape);
  EXPECT_FALSE(words.isVisible());
}

TEST_F(TComfortsTest, F1WithoutAWordShowsThemAll) {
  QTest::keyClick(&Window(), Qt::Key_F1);
  TKeywordWindow& words = Comforts().KeywordWindow();
  ASSERT_TRUE(words.isVisible());
  EXPECT_EQ(words.WordList()->count(), 189);
  EXPECT_FALSE(words.Page()->toPlainText().isEmpty());
  QTest::keyClicks(words.Wanted(), "zzz");
  EXPECT_TRUE(words.Page()->toPlainText().isEmpty());
}

TEST_F(TComfortsTest, ToTheDefinitionAndBack) {
  Edit().Set("10 GOTO 30\n20 GOSUB *S\n30 A\n40 B:*S\n");
  GoTo(0, 9);
  QTest::keyClick(&Window(), Qt::Key_F12);
  EXPECT_EQ(Cursor(), (TListPlace{2, 0}));
  GoTo(1, 11);
  QTest::keyClick(&Window(), Qt::Key_F12);
  EXPECT_EQ(Cursor(), (TListPlace{3, 5}));
  QTest::keyClick(&Window(), Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Cursor(), (TListPlace{1, 11}));
  QTest::keyClick(&Window(), Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Cursor(), (TListPlace{0, 9}));
  QTest::keyClick(&Window(), Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Cursor(), (TListPlace{0, 9}));
  EXPECT_TRUE(Window().StatusText().contains("no way back"));
}

TEST_F(TComfortsTest, TheWayBackFollowsItsLine) {
  Edit().Set("10 GOTO 30\n20 A\n30 B\n");
  GoTo(0, 9);
  Comforts().GoToDefinition();
  GoTo(0, 0);
  Type("5 X");
  Press(Qt::Key_Return);
  Type("6 Y");
  Press(Qt::Key_Return);
  Comforts().GoBack();
  EXPECT_EQ(Cursor(), (TListPlace{2, 9}));
}

TEST_F(TComfortsTest, AnotherListHasNoWayBack) {
  Edit().Set("10 GOTO 30\n30 B\n");
  GoTo(0, 9);
  Comforts().GoToDefinition();
  Edit().Set("10 A\n20 B\n");
  GoTo(1, 1);
  Comforts().GoBack();
  EXPECT_EQ(Cursor(), (TListPlace{1, 1}));
}

TEST_F(TComfortsTest, NowhereToGoIsSaidInTheStatusLine) {
  Edit().Set("10 GOTO 99:GOSUB *X\n");
  GoTo(0, 1);
  Comforts().GoToDefinition();
  EXPECT_TRUE(Window().StatusText().contains("No line number or label"));
  GoTo(0, 9);
  Comforts().GoToDefinition();
  EXPECT_EQ(Window().StatusText(), " There is no line 99.");
  EXPECT_EQ(Cursor(), (TListPlace{0, 9}));
}

TEST_F(TComfortsTest, ControlAndAClickGoToTheDefinition) {
  Edit().Set("10 GOTO 30\n20 A\n30 B\n40 GOTO 77\n");
  QTest::mouseClick(Edit().viewport(), Qt::LeftButton, Qt::ControlModifier, PointOf(0, 8));
  EXPECT_EQ(Cursor(), (TListPlace{2, 0}));
  QTest::mouseClick(Edit().viewport(), Qt::LeftButton, Qt::ControlModifier, PointOf(3, 8));
  EXPECT_EQ(Cursor(), (TListPlace{2, 0}));
  EXPECT_EQ(Window().StatusText(), " There is no line 77.");
  // A plain click is the editor's.
  QTest::mouseClick(Edit().viewport(), Qt::LeftButton, Qt::NoModifier, PointOf(0, 8));
  EXPECT_EQ(Cursor().line, 0);
}

TEST_F(TComfortsTest, EveryComfortHasAMenuItemWithItsKey) {
  const std::pair<const char*, QKeySequence> items[] = {
      {"Complete Word(&W)", Qt::CTRL | Qt::Key_Space},
      {"Go to Definition(&D)", Qt::Key_F12},
      {"Go Back(&B)", Qt::ALT | Qt::Key_Left},
      {"Words of the Language", Qt::Key_F1},
  };
  for (const auto& [text, key] : items) {
    ASSERT_NE(Item(text), nullptr) << text;
    EXPECT_EQ(Item(text)->shortcut(), key) << text;
  }
}

TEST_F(TComfortsTest, ControlsHaveNamesInBothLanguages) {
  for (const TLanguage language : {TLanguage::English, TLanguage::Japanese}) {
    mApp->SetLanguage(language);
    QApplication::processEvents();
    EXPECT_FALSE(Popup().accessibleName().isEmpty());
    TKeywordWindow& words = Comforts().KeywordWindow();
    EXPECT_FALSE(words.windowTitle().isEmpty());
    for (const QWidget* widget :
         {static_cast<QWidget*>(words.Wanted()), static_cast<QWidget*>(words.WordList()),
          static_cast<QWidget*>(words.Page())}) {
      EXPECT_FALSE(widget->accessibleName().isEmpty());
    }
  }
}

}  // namespace
}  // namespace zoka
