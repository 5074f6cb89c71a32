// The main window: typing, running, faults, files, and leaving with work that is not saved.
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <filesystem>

#include "tests/window/window_rig.h"

namespace zoka {
namespace {

class TMainWindowTest : public TWindowRig {
 protected:
  TMainWindowTest() { Window().activateWindow(); }

  TZokaBasicWindow& Window() { return mApp->MainWindow(); }
  TEditTxtView& Edit() { return Window().View().Edit(); }
  QMessageBox* Alert() { return mEngine->Alerts().OpenDialog(); }

  void Choose(const char* code) {
    QAction* const item = Window().FindItem(code);
    ASSERT_NE(item, nullptr) << code;
    item->trigger();
  }
  void Type(const char* text) { QTest::keyClicks(&Edit(), text); }
  void TypeLine(const char* text) {
    Type(text);
    QTest::keyClick(&Edit(), Qt::Key_Return);
  }
  /// Answers the question that comes next with a key.
  void AnswerNext(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTimer::singleShot(0, &Window(), [this, key, held] {
      if (Alert() == nullptr) return AnswerNext(key, held);
      mAsked = Alert()->text();
      QTest::keyClick(Alert(), key, held);
    });
  }
  void Post(const TMessage& message) {
    Window().PostMessage(message);
    QApplication::processEvents();
  }
  void PostRefs(const std::string& path) {
    TMessage message("_RRC");
    message.AddRef("refs", TPathRef{path});
    Post(message);
  }
  void ChooseSaveName(const std::string& path) {
    ASSERT_TRUE(Until([&] { return Window().SavePanel() && Window().SavePanel()->isVisible(); }));
    auto* const name = Window().SavePanel()->findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(name, nullptr);
    name->setText(QString::fromStdString(path));
    QTest::keyClick(name, Qt::Key_Return);
  }

  QString mAsked;
};

TEST_F(TMainWindowTest, TypeRunFaultFixRunSaveReopen) {
  EXPECT_EQ(Window().windowTitle(), "(New List) - Zoka-BASIC (Main: Edit Window)");
  TypeLine("10 CLS");
  Type("20 PRINT \"he\";\"llo\":PRINT 1.");
  EXPECT_TRUE(Document().IsModified());
  Choose("run");
  ASSERT_TRUE(Until([&] { return Alert() != nullptr && IsIdle(); })) << Edit().Get() << Screen();
  Alert()->reject();
  ASSERT_TRUE(Until([&] { return Edit().FaultLine() == 1; }));
  EXPECT_TRUE(Window().StatusText().startsWith(" Compile Error"))
      << Window().StatusText().toStdString();

  // The fix takes the mark away.
  QTest::keyClick(&Edit(), Qt::Key_End);
  for (int i = 0; i < 9; ++i) QTest::keyClick(&Edit(), Qt::Key_Backspace);
  EXPECT_EQ(Edit().FaultLine(), -1);
  EXPECT_EQ(Edit().Get(), "10 CLS\n20 PRINT \"he\";\"llo\"");
  // Offscreen no window manager gives the window back its keys behind a dialog.
  Window().activateWindow();
  ASSERT_TRUE(Until([&] { return Window().isActiveWindow(); }));
  QTest::keyClick(&Window(), Qt::Key_F5);
  ASSERT_TRUE(Until([&] { return Shows("hello") && IsIdle(); })) << Screen();

  Choose("_sav");
  const std::string path = mFolder.Path("first");
  ChooseSaveName(path);
  ASSERT_TRUE(Until([&] { return !Document().IsModified(); }));
  EXPECT_EQ(mFolder.Read("first.bas"), "10 CLS\n20 PRINT \"he\";\"llo\"");
  EXPECT_EQ(Document().CurPath(), path + ".bas");
  EXPECT_EQ(Window().windowTitle(), "first.bas - Zoka-BASIC (Main: Edit Window)");
  EXPECT_EQ(Window().History().MRUFAt(0), path + ".bas");

  Choose("_new");
  ASSERT_TRUE(Until([&] { return Edit().Get().empty(); }));
  PostRefs(path + ".bas");
  ASSERT_TRUE(Until([&] { return Document().CurPath() == path + ".bas"; }));
  EXPECT_EQ(Edit().Get(), "10 CLS\n20 PRINT \"he\";\"llo\"");
  EXPECT_FALSE(Document().IsModified());
}

TEST_F(TMainWindowTest, ARunTimeFaultIsMarkedInItsLine) {
  Edit().Set("PRINT 1\n\nPRINT 1/0\n");
  Choose("run");
  ASSERT_TRUE(Until([&] { return Alert() != nullptr; }));
  Alert()->reject();
  ASSERT_TRUE(Until([&] { return IsIdle() && Edit().FaultLine() == 2; }));
}

TEST_F(TMainWindowTest, AShiftJisListIsSavedUnderANewNameOnly) {
  mFolder.Write("sjis.bas", "10 PRINT \"\x82\xA0\"\n");
  PostRefs(mFolder.Path("sjis.bas"));
  ASSERT_TRUE(Until([&] { return Document().Charset() == 11; }));
  EXPECT_EQ(Edit().Get(), "10 PRINT \"\xE3\x81\x82\"\n");
  Choose("_sav");
  ChooseSaveName(mFolder.Path("utf8.bas"));
  ASSERT_TRUE(Until([&] { return Document().Charset() == 0; }));
  EXPECT_EQ(mFolder.Read("sjis.bas"), "10 PRINT \"\x82\xA0\"\n");
  EXPECT_EQ(mFolder.Read("utf8.bas"), "10 PRINT \"\xE3\x81\x82\"\n");
  // From now on it goes straight to its file.
  Type("1");
  Choose("_sav");
  ASSERT_TRUE(Until([&] { return !Document().IsModified(); }));
  EXPECT_EQ(mFolder.Read("utf8.bas"), "110 PRINT \"\xE3\x81\x82\"\n");
  EXPECT_FALSE(Window().SavePanel()->isVisible());
}

TEST_F(TMainWindowTest, ConvertedAndRawBytesComeBackAsTheyWere) {
  const std::string raw = "10 A\r\n\xFF\x80 \x01\n";
  Edit().Set(raw);
  EXPECT_EQ(Edit().Get(), raw);
  Edit().Set(std::string("a\0b", 3));
  EXPECT_EQ(Edit().Get(), std::string("a\0b", 3));
}

TEST_F(TMainWindowTest, ACancelledQuestionLeavesAllAsItWas) {
  Type("10 END");
  AnswerNext(Qt::Key_Escape);
  EXPECT_FALSE(mApp->QuitRequested());
  EXPECT_EQ(Edit().Get(), "10 END");
  EXPECT_TRUE(Document().IsModified());
  EXPECT_TRUE(Window().isVisible());
}

TEST_F(TMainWindowTest, NoQuitsWithoutSaving) {
  mFolder.Write("a.bas", "10 END\n");
  PostRefs(mFolder.Path("a.bas"));
  Type("5 CLS:");
  AnswerNext(Qt::Key_N);
  EXPECT_TRUE(mApp->QuitRequested());
  EXPECT_TRUE(mAsked.startsWith("Save the changes to \"a.bas\"?")) << mAsked.toStdString();
  EXPECT_EQ(mFolder.Read("a.bas"), "10 END\n");
}

TEST_F(TMainWindowTest, YesSavesAndThenQuits) {
  mFolder.Write("a.bas", "10 END\n");
  PostRefs(mFolder.Path("a.bas"));
  Type("5");
  AnswerNext(Qt::Key_Y);
  EXPECT_FALSE(mApp->QuitRequested());
  ASSERT_TRUE(Until([&] { return mEngine->Context().privacy.quitting.load(); }));
  EXPECT_EQ(mFolder.Read("a.bas"), "510 END\n");
}

TEST_F(TMainWindowTest, YesForAListWithoutANameAsksForItAndThenQuits) {
  Type("10 END");
  AnswerNext(Qt::Key_Y);
  EXPECT_FALSE(mApp->QuitRequested());
  ChooseSaveName(mFolder.Path("named.bas"));
  ASSERT_TRUE(Until([&] { return mEngine->Context().privacy.quitting.load(); }));
  EXPECT_EQ(mFolder.Read("named.bas"), "10 END");
}

TEST_F(TMainWindowTest, CancelOnThePanelStopsTheQuit) {
  Type("10 END");
  AnswerNext(Qt::Key_Y);
  EXPECT_FALSE(mApp->QuitRequested());
  ASSERT_TRUE(Until([&] { return Window().SavePanel() && Window().SavePanel()->isVisible(); }));
  Window().SavePanel()->reject();
  // A later save by name does not bring the old wish back.
  Choose("_sva");
  ChooseSaveName(mFolder.Path("named.bas"));
  ASSERT_TRUE(Until([&] { return !Document().IsModified(); }));
  QApplication::processEvents();
  EXPECT_FALSE(mEngine->Context().privacy.quitting.load());
}

TEST_F(TMainWindowTest, AFailedSaveKeepsTheTextAndEndsTheChain) {
  mFolder.Write("a.bas", "10 END\n");
  PostRefs(mFolder.Path("a.bas"));
  Type("5");
  std::filesystem::remove(mFolder.Path("a.bas"));
  mFolder.MakeFolder("a.bas");
  AnswerNext(Qt::Key_Y);
  Choose("_new");
  ASSERT_TRUE(Until([&] { return Window().StatusText().contains("cannot be saved"); }));
  QApplication::processEvents();
  EXPECT_EQ(Edit().Get(), "510 END\n");
  EXPECT_TRUE(Document().IsModified());
}

TEST_F(TMainWindowTest, GoToLineFindsTheFirstThatBeginsSo) {
  Edit().Set("40 A\n50 B\n5 C\n");
  TMessage message("gtlr");
  message.AddString("SISmplIptTxt", "5");
  Post(message);
  int line = -1;
  int column = -1;
  Edit().getCursorPosition(&line, &column);
  EXPECT_EQ(line, 1);
}

TEST_F(TMainWindowTest, RunFromALabel) {
  Edit().Set("10 CLS:PRINT \"no\":END\n20 *HERE:CLS:PRINT \"he\";\"re\"\n");
  Choose("runl");
  ASSERT_TRUE(Until([&] { return mApp->RunLineWindow().isVisible(); }));
  mApp->RunLineWindow().Input()->setText("*here");
  QTest::keyClick(mApp->RunLineWindow().Input(), Qt::Key_Return);
  ASSERT_TRUE(Until([&] { return Shows("here") && IsIdle(); })) << Screen();
  EXPECT_FALSE(Shows("no"));
}

TEST_F(TMainWindowTest, RenumberTakesItsDefaultsAndCanBeUndone) {
  Edit().Set("1 A\n2 B\n");
  Choose("rnmb");
  ASSERT_TRUE(Until([&] { return mApp->RenumWindow().isVisible(); }));
  mApp->RenumWindow().Field(2)->setText("0");
  mApp->RenumWindow().ApplyRenum();
  ASSERT_TRUE(Until([&] { return Edit().Get() == "10 A\n11 B\n"; })) << Edit().Get();
  EXPECT_EQ(mApp->RenumWindow().Field(2)->text(), "1");
  EXPECT_TRUE(Document().IsModified());
  Edit().undo();
  EXPECT_EQ(Edit().Get(), "1 A\n2 B\n");
}

TEST_F(TMainWindowTest, KillIsLiveOnlyWhileAProgramRuns) {
  EXPECT_FALSE(Window().FindItem("kill")->isEnabled());
  Edit().Set("10 GOTO 10\n");
  Choose("run");
  ASSERT_TRUE(Until([&] { return Document().State() == TDocumentState::Running; }));
  EXPECT_TRUE(Window().FindItem("kill")->isEnabled());
  EXPECT_EQ(Window().StatusText(), " Running");
  Choose("kill");
  ASSERT_TRUE(Until([&] { return IsIdle(); }));
  EXPECT_FALSE(Window().FindItem("kill")->isEnabled());
  EXPECT_EQ(Window().StatusText(), "");
}

TEST_F(TMainWindowTest, FindCountsAndReplaces) {
  Edit().Set("10 A=1:a=2\n20 AB=A\n");
  TFindBar& bar = Window().View().FindBar();
  bar.FindText()->setText("a");
  EXPECT_EQ(bar.Count(), 4);
  bar.CaseBox()->setChecked(true);
  EXPECT_EQ(bar.Count(), 1);
  bar.CaseBox()->setChecked(false);
  bar.WordBox()->setChecked(true);
  EXPECT_EQ(bar.Count(), 3);
  bar.ReplaceText()->setText("XA");
  EXPECT_EQ(bar.ReplaceAll(), 3);
  EXPECT_EQ(Edit().Get(), "10 XA=1:XA=2\n20 AB=XA\n");
  Edit().undo();
  EXPECT_EQ(Edit().Get(), "10 A=1:a=2\n20 AB=A\n");
  bar.WordBox()->setChecked(false);
  bar.RegexBox()->setChecked(true);
  bar.FindText()->setText("[0-9]+");
  EXPECT_EQ(bar.Count(), 4);
  bar.FindText()->setText("[");
  EXPECT_EQ(bar.Count(), 0);
}

TEST_F(TMainWindowTest, UnsavedTextIsInTheJournalUntilItIsSaved) {
  const std::string journal = mFolder.Path("settings/ZokaBASIC/AutoSave.journal");
  Type("10 REM");
  ASSERT_TRUE(Until([&] { return std::filesystem::exists(journal); }));
  EXPECT_EQ(mFolder.Read("settings/ZokaBASIC/AutoSave.journal"), "10 REM");
  TMessage save("SAVE");
  save.AddRef("directory", TPathRef{mFolder.Path()});
  save.AddString("name", "x");
  Post(save);
  EXPECT_EQ(mFolder.Read("x.bas"), "10 REM");
  EXPECT_FALSE(std::filesystem::exists(journal));
}

TEST_F(TMainWindowTest, EveryMenuTextAndControlHasANameInBothLanguages) {
  for (const TLanguage language : {TLanguage::English, TLanguage::Japanese}) {
    mApp->SetLanguage(language);
    ASSERT_TRUE(Until([&] {
      return Window().windowTitle().contains("(Main: Edit Window)") ==
             (language == TLanguage::English);
    }));
    for (const QAction* item : Window().findChildren<QAction*>()) {
      if (!item->isSeparator() && !item->objectName().isEmpty()) {
        EXPECT_FALSE(item->text().isEmpty()) << item->objectName().toStdString();
      }
    }
    for (const QLineEdit* field : Window().View().findChildren<QLineEdit*>()) {
      EXPECT_FALSE(field->accessibleName().isEmpty());
    }
    EXPECT_FALSE(Edit().accessibleName().isEmpty());
  }
}

}  // namespace
}  // namespace zoka
