// What the application does at its start with the text of a session that ended by force, and what
// its own end leaves behind.
#include <sys/file.h>

#include <fcntl.h>
#include <unistd.h>

#include "app/settings/prefs.h"
#include "tests/window/start_rig.h"

namespace zoka {
namespace {

using TAutoSaveStart = TStartRig;

void set_time(const std::string& path, int hoursAgo) {
  std::filesystem::last_write_time(
      path, std::filesystem::file_time_type::clock::now() - std::chrono::hours(hoursAgo));
}

TEST_F(TAutoSaveStart, YesTakesTheTextOverAndKeepsTheFile) {
  WriteSettings("AutoSave.bas", "10 PRINT \"\xE3\x81\x82\"\n");
  AnswerNext(Qt::Key_Y);
  Start();
  EXPECT_EQ(mAsked,
            "Zoka-BASIC did not end regularly the last time. Restore the list that was kept "
            "automatically?\n\nThe kept list may be incomplete.\n\n* Zoka-BASIC *");
  EXPECT_EQ(Buttons(), "No(&N) Yes(&Y)");
  EXPECT_EQ(Edit().Get(), "10 PRINT \"\xE3\x81\x82\"\n");
  EXPECT_EQ(Title(), "(Auto Backuped List) - Zoka-BASIC (Main: Edit Window)");
  EXPECT_TRUE(Document().IsModified());
  EXPECT_TRUE(Document().IsAutoBackup());
  EXPECT_EQ(Document().CurPath(), "");
  EXPECT_EQ(Document().Charset(), 0);
  EXPECT_EQ(ReadSettings("AutoSave.bas"), "10 PRINT \"\xE3\x81\x82\"\n");
}

TEST_F(TAutoSaveStart, TheKeptTextIsReadAsUtf8WhateverThePreferenceSays) {
  TPrefs prefs(&mPlace);
  prefs.DEnc = 3;
  ASSERT_EQ(prefs.SaveToFile(), 0);
  WriteSettings("AutoSave.bas", "10 '\xE3\x81\x82\n");
  AnswerNext(Qt::Key_Y);
  Start();
  EXPECT_EQ(Edit().Get(), "10 '\xE3\x81\x82\n");
  EXPECT_EQ(Document().Charset(), 0);
}

TEST_F(TAutoSaveStart, TheQuestionComesBeforeTheMainWindow) {
  WriteSettings("AutoSave.bas", "10 END\n");
  bool shownBefore = true;
  AnswerNext(Qt::Key_N, [&shownBefore] {
    shownBefore = false;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      const auto* const main = dynamic_cast<const TZokaBasicWindow*>(window);
      if (main != nullptr && main->isVisible()) shownBefore = true;
    }
  });
  Start();
  EXPECT_FALSE(shownBefore);
  EXPECT_TRUE(Window().isVisible());
}

TEST_F(TAutoSaveStart, NoLeavesTheListEmptyAndTheRegularEndDeletesTheFile) {
  WriteSettings("AutoSave.bas", "10 END\n");
  AnswerNext(Qt::Key_N);
  Start();
  EXPECT_EQ(Edit().Get(), "");
  EXPECT_EQ(Title(), "(New List) - Zoka-BASIC (Main: Edit Window)");
  EXPECT_FALSE(Document().IsModified());
  EXPECT_TRUE(HasSettings("AutoSave.bas"));
  End();
  EXPECT_FALSE(HasSettings("AutoSave.bas"));
}

TEST_F(TAutoSaveStart, AnEndBySignalKeepsTheFileOfAnUnmodifiedListToo) {
  WriteSettings("AutoSave.bas", "10 END\n");
  AnswerNext(Qt::Key_N);
  Start();
  Window().View().KeepUnsaved();
  End();
  EXPECT_EQ(ReadSettings("AutoSave.bas"), "10 END\n");
}

TEST_F(TAutoSaveStart, EscapeMeansNo) {
  WriteSettings("AutoSave.bas", "10 END\n");
  AnswerNext(Qt::Key_Escape);
  Start();
  EXPECT_EQ(Edit().Get(), "");
}

TEST_F(TAutoSaveStart, WithoutAFileNothingIsAsked) {
  Start();
  EXPECT_EQ(mAsked, "");
  EXPECT_FALSE(Document().IsModified());
  End();
  // A regular end leaves no reason to ask, either.
  Start();
  EXPECT_EQ(mAsked, "");
}

TEST_F(TAutoSaveStart, TheNewerOfJournalAndListComesBack) {
  WriteSettings("AutoSave.bas", "10 'list\n");
  WriteSettings("AutoSave.journal", "10 'journal\n");
  set_time(mFolder.Path("settings/ZokaBASIC/AutoSave.bas"), 1);
  AnswerNext(Qt::Key_Y);
  Start();
  EXPECT_EQ(Edit().Get(), "10 'journal\n");
  End();
  WriteSettings("AutoSave.bas", "10 'list\n");
  WriteSettings("AutoSave.journal", "10 'journal\n");
  set_time(mFolder.Path("settings/ZokaBASIC/AutoSave.journal"), 1);
  AnswerNext(Qt::Key_Y);
  Start();
  EXPECT_EQ(Edit().Get(), "10 'list\n");
}

TEST_F(TAutoSaveStart, ARestoredTextIsKeptAgain) {
  WriteSettings("AutoSave.journal", "10 END\n");
  AnswerNext(Qt::Key_Y);
  Start();
  std::filesystem::remove(mFolder.Path("settings/ZokaBASIC/AutoSave.journal"));
  ASSERT_TRUE(Until([this] { return HasSettings("AutoSave.journal"); }));
  EXPECT_EQ(ReadSettings("AutoSave.journal"), "10 END\n");
}

TEST_F(TAutoSaveStart, AGivenFileIsAskedForBehindTheRestoredText) {
  mFolder.Write("a.bas", "10 'file\n");
  WriteSettings("AutoSave.bas", "10 'kept\n");
  AnswerNext(Qt::Key_Y, [this] { AnswerNext(Qt::Key_Escape); });
  Start(mFolder.Path("a.bas"));
  EXPECT_EQ(mAsked.substr(0, 46), "Save the changes to \"(Auto Backuped List)\"?\n\n*");
  EXPECT_EQ(Edit().Get(), "10 'kept\n");
}

TEST_F(TAutoSaveStart, ASecondInstanceHasFilesOfItsOwn) {
  Start();
  Edit().Insert("10 'first\n");
  TAppEngine engine(mPlace, TLanguage::English);
  TBasicApp second(engine);
  second.ReadyToRun("");
  second.MainWindow().View().Edit().Insert("10 'second\n");
  ASSERT_TRUE(Until(
      [this] { return HasSettings("AutoSave.journal") && HasSettings("AutoSave.2.journal"); }));
  EXPECT_EQ(ReadSettings("AutoSave.journal"), "10 'first\n");
  EXPECT_EQ(ReadSettings("AutoSave.2.journal"), "10 'second\n");
  EXPECT_EQ(mAsked, "");
  End();
  EXPECT_FALSE(HasSettings("AutoSave.journal"));
  EXPECT_EQ(ReadSettings("AutoSave.2.journal"), "10 'second\n");
}

TEST_F(TAutoSaveStart, TheFileOfARunningInstanceIsNotAskedFor) {
  WriteSettings("AutoSave.bas", "10 'of another\n");
  WriteSettings("AutoSave.lock", "");
  const int held = open(mFolder.Path("settings/ZokaBASIC/AutoSave.lock").c_str(), O_RDWR);
  ASSERT_GE(held, 0);
  ASSERT_EQ(flock(held, LOCK_EX | LOCK_NB), 0);
  Start();
  EXPECT_EQ(mAsked, "");
  End();
  EXPECT_EQ(ReadSettings("AutoSave.bas"), "10 'of another\n");
  close(held);
}

TEST_F(TAutoSaveStart, ARunKeepsTheTextAndNothingElse) {
  mFolder.Write("a.bas", "10 END\n");
  Start(mFolder.Path("a.bas"));
  Edit().Insert("5 CLS\n");
  Post("run");
  ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Idle; }));
  EXPECT_EQ(ReadSettings("AutoSave.bas"), "5 CLS\n10 END\n");
  EXPECT_EQ(mFolder.Read("a.bas"), "10 END\n");
  EXPECT_TRUE(Document().IsModified());
}

TEST_F(TAutoSaveStart, TheRegularAutoSaveKeepsUnmodifiedTextToo) {
  mFolder.Write("a.bas", "10 END\n");
  Start(mFolder.Path("a.bas"));
  Post("asvr");
  EXPECT_EQ(ReadSettings("AutoSave.bas"), "10 END\n");
  EXPECT_FALSE(Document().IsModified());
  Edit().Insert("5 CLS\n");
  Post("asvr");
  EXPECT_EQ(ReadSettings("AutoSave.bas"), "5 CLS\n10 END\n");
  // It changes nothing of the document.
  EXPECT_TRUE(Document().IsModified());
  EXPECT_EQ(Document().CurPath(), mFolder.Path("a.bas"));
  EXPECT_EQ(mFolder.Read("a.bas"), "10 END\n");
}

TEST_F(TAutoSaveStart, AnAutoSaveLeavesTheCharsetOfAConvertedList) {
  mFolder.Write("sjis.bas", "10 '\x82\xA0\n");
  Start(mFolder.Path("sjis.bas"));
  Post("asvr");
  EXPECT_EQ(Document().Charset(), 11);
  EXPECT_EQ(ReadSettings("AutoSave.bas"), "10 '\xE3\x81\x82\n");
}

TEST_F(TAutoSaveStart, WithoutThePreferenceARunKeepsNothing) {
  MakeEngine();
  mEngine->Context().prefs->ASBR = false;
  Start();
  Edit().Set("10 END\n");
  Post("run");
  ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Idle; }));
  EXPECT_FALSE(HasSettings("AutoSave.bas"));
}

}  // namespace
}  // namespace zoka
