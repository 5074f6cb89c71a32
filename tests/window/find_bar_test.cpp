// The find bar while it is used: what is typed is found at once, and what is found is lit up.
#include <QLabel>
#include <QLineEdit>

#include "editor/window/list_watch.h"
#include "tests/window/start_rig.h"

namespace zoka {
namespace {

using S = QsciScintillaBase;

class TFindBarTest : public TStartRig {
 protected:
  TFindBarTest() {
    Start();
    QApplication::processEvents();
  }

  TFindBar& Bar() { return Window().View().FindBar(); }
  void Press(Qt::Key key) { QTest::keyClick(&Window(), key, Qt::ControlModifier); }
  std::string Selected() { return Edit().selectedText().toStdString(); }
  int64_t Cursor() { return edit_call(Edit(), S::SCI_GETCURRENTPOS); }
  /// The text with brackets around what is lit up.
  std::string Lit() {
    const std::string text = Edit().Get();
    std::string all;
    bool in = false;
    for (size_t i = 0; i <= text.size(); ++i) {
      const bool lit = i < text.size() && edit_call(Edit(), S::SCI_INDICATORVALUEAT,
                                                    FOUND_INDICATOR, static_cast<int64_t>(i)) != 0;
      if (lit != in) all += lit ? "[" : "]";
      in = lit;
      if (i < text.size()) all += text[i];
    }
    return all;
  }
};

TEST_F(TFindBarTest, WhatIsTypedIsFoundAtOnceFromWhereTheSearchBegan) {
  Edit().Set("10 AB\n20 AC\n30 AC\n");
  edit_call(Edit(), S::SCI_GOTOPOS, 6);
  Press(Qt::Key_F);
  QTest::keyClicks(Bar().FindText(), "a");
  EXPECT_EQ(Cursor(), 10);
  QTest::keyClicks(Bar().FindText(), "b");
  EXPECT_EQ(Selected(), "AB") << "from the top again";
  QTest::keyClick(Bar().FindText(), Qt::Key_Backspace);
  QTest::keyClicks(Bar().FindText(), "c");
  EXPECT_EQ(Selected(), "AC");
  EXPECT_EQ(Cursor(), 11) << "the first one from where it began, not the next one";
  QTest::keyClicks(Bar().FindText(), "x");
  EXPECT_EQ(Selected(), "");
  EXPECT_EQ(Cursor(), 6) << "nothing found: back to the start";
  QTest::keyClick(Bar().FindText(), Qt::Key_Backspace);
  QTest::keyClick(Bar().FindText(), Qt::Key_Return);
  EXPECT_EQ(Cursor(), 17) << "Return goes on";
}

TEST_F(TFindBarTest, OccurrencesAreLitUpWhileTheBarIsThere) {
  Edit().Set("10 A=B\n20 AB\n");
  Bar().FindText()->setText("a");
  EXPECT_EQ(Lit(), "10 A=B\n20 AB\n");
  Press(Qt::Key_F);
  EXPECT_EQ(Lit(), "10 [A]=B\n20 [A]B\n");
  QTest::keyClicks(Bar().FindText(), "b");
  EXPECT_EQ(Lit(), "10 A=[B]\n20 A[B]\n") << "the old text is selected, and typed over";
  Edit().Append("30 B\n");
  ASSERT_TRUE(Until([this] { return Lit() == "10 A=[B]\n20 A[B]\n30 [B]\n"; })) << Lit();
  QTest::keyClick(Bar().FindText(), Qt::Key_Escape);
  EXPECT_EQ(Lit(), "10 A=B\n20 AB\n30 B\n");
  EXPECT_TRUE(Bar().FindNext());
  EXPECT_EQ(Lit(), "10 A=B\n20 AB\n30 B\n");
}

TEST_F(TFindBarTest, TheNumberIsShownOnlyWhenSomethingIsLookedFor) {
  Edit().Set("10 AB\n");
  Press(Qt::Key_F);
  const auto shown = [this] {
    QString all;
    for (const QLabel* label : Bar().findChildren<QLabel*>()) all += label->text();
    return all.toStdString();
  };
  EXPECT_EQ(shown(), "");
  QTest::keyClicks(Bar().FindText(), "x");
  EXPECT_EQ(shown(), "Found: 0");
  QTest::keyClick(Bar().FindText(), Qt::Key_Backspace);
  EXPECT_EQ(shown(), "");
}

TEST_F(TFindBarTest, LinesThatComeIntoSightAreLitUp) {
  std::string text;
  for (int i = 0; i < 2000; ++i) text += "10 X\n";
  Edit().Set(text);
  Press(Qt::Key_F);
  QTest::keyClicks(Bar().FindText(), "x");
  const auto isLit = [this](int64_t line) {
    const int64_t place = position_of(Edit(), {line, 3});
    return edit_call(Edit(), S::SCI_INDICATORVALUEAT, FOUND_INDICATOR, place) != 0;
  };
  EXPECT_TRUE(isLit(0));
  EXPECT_FALSE(isLit(1999));
  Edit().GoToOffset(text.size() - 2);
  ASSERT_TRUE(Until([&] { return isLit(1999) && !isLit(0); }));
}

TEST_F(TFindBarTest, CtrlHIsReadyForTheReplacement) {
  Edit().Set("10 AB\n");
  edit_call(Edit(), S::SCI_SETSEL, 3, 5);
  Press(Qt::Key_H);
  EXPECT_EQ(Bar().FindText()->text(), "AB");
  EXPECT_TRUE(Bar().ReplaceText()->hasFocus());
  QTest::keyClicks(Bar().ReplaceText(), "C");
  QTest::keyClick(Bar().ReplaceText(), Qt::Key_Return);
  EXPECT_EQ(Edit().Get(), "10 C\n");
}

TEST_F(TFindBarTest, CtrlHWithNothingToFindAsksForThatFirst) {
  Edit().Set("10 AB\n");
  Press(Qt::Key_H);
  EXPECT_TRUE(Bar().FindText()->hasFocus());
}

}  // namespace
}  // namespace zoka
