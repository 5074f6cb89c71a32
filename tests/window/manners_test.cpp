// What people expect of any good window: alerts where they are, texts that go when they are out of
// date, items that can be chosen only when there is something to do, keys that everybody knows.
#include <QHelpEvent>
#include <QMenuBar>
#include <QToolTip>
#include <QTreeView>

#include "app/settings/exit_states.h"
#include "editor/window/list_watch.h"
#include "tests/window/start_rig.h"

namespace zoka {
namespace {

using S = QsciScintillaBase;

class TMannersTest : public TStartRig {
 protected:
  /// Long enough for a busy machine, and shorter than a tip stays by itself.
  static constexpr int TIP_WAIT_MS = 8000;

  TMannersTest() {
    Start();
    QApplication::processEvents();
  }
  bool IsIdle() { return Document().State() == TDocumentState::Idle; }
  void Run(const std::string& text) {
    Edit().Set(text);
    AnswerNext(Qt::Key_Return);
    Window().Run();
    ASSERT_TRUE(Until([this] { return !mAsked.empty() && Alert() == nullptr && IsIdle(); }));
    ASSERT_TRUE(Until([this] { return !Status().empty(); }));
  }
};

TEST_F(TMannersTest, AnAlertBehindADialogBelongsToTheWindowOfTheDialog) {
  mApp->RunWindow().Appear();
  Window().activateWindow();
  ASSERT_TRUE(Until([this] { return Window().isActiveWindow(); }));
  TSimpleInputWindow& dialog = mApp->GoToLineWindow();
  dialog.Appear();
  ASSERT_TRUE(Until([&] { return dialog.isActiveWindow(); }));
  QTest::keyClicks(dialog.Input(), "77");
  const QWidget* parent = nullptr;
  AnswerNext(Qt::Key_Return, [&] { parent = Alert()->parentWidget(); });
  QTest::keyClick(dialog.Input(), Qt::Key_Return);
  ASSERT_TRUE(Until([this] { return !mAsked.empty() && Alert() == nullptr; }));
  EXPECT_EQ(mAsked, "There is no such line.\n\n* Zoka-BASIC *");
  EXPECT_EQ(parent, &Window());
}

TEST_F(TMannersTest, MenusMadeAnewKnowWhatCanBeChosen) {
  for (const TLanguage language : {TLanguage::Japanese, TLanguage::English}) {
    mApp->SetLanguage(language);
    const char* const title = language == TLanguage::Japanese ? "強制終了(&K)" : "Kill(&K)";
    ASSERT_TRUE(Until([&] { return Window().FindItem("kill")->text() == title; }));
    for (const char* code : {"kill", "_jaw"}) {
      const auto items = Window().menuBar()->findChildren<QAction*>(code);
      ASSERT_EQ(items.size(), 1) << code;
      EXPECT_FALSE(items[0]->isEnabled()) << code;
    }
  }
}

TEST_F(TMannersTest, AFaultIsToldUntilTheListChanges) {
  Run("10 GOTO 99\n");
  EXPECT_EQ(Status(), " Runtime Error  Undefined line number.  Line: 10 ");
  edit_call(Edit(), S::SCI_GOTOPOS, 10);
  QTest::keyClick(&Edit(), Qt::Key_Left);
  EXPECT_NE(Status(), "");
  QTest::keyClicks(&Edit(), "1");
  EXPECT_EQ(Status(), "");
}

TEST_F(TMannersTest, WhatElseIsToldStaysWhileOneTypes) {
  Run("10 GOTO 99\n");
  mApp->PostMessage(TMessage("prcd"));
  ASSERT_TRUE(Until([this] { return Status() == " Preferences changed."; }));
  QTest::keyClicks(&Edit(), "1");
  EXPECT_EQ(Status(), " Preferences changed.");
}

TEST_F(TMannersTest, ASampleSaysHowItIsRunUntilAnotherListComes) {
  mFolder.Write("sample.bas", "10 PRINT 1\n");
  TMessage message("_smp");
  message.AddRef("refs", TPathRef{mFolder.Path("sample.bas")});
  Post(message);
  EXPECT_EQ(Status(), " F5 runs the sample. In the run window Ctrl+C stops it.");
  Post("_new");
  EXPECT_EQ(Status(), "");
}

TEST_F(TMannersTest, ASaveIsToldUntilTheListChanges) {
  mFolder.Write("list.bas", "10 PRINT 1\n");
  PostRefs(mFolder.Path("list.bas"));
  QTest::keyClicks(&Edit(), "1");
  TMessage save("SAVE");
  save.AddRef("directory", TPathRef{mFolder.Path("none")});
  save.AddString("name", "list.bas");
  Post(save);
  EXPECT_NE(Status().find("cannot be saved"), std::string::npos) << Status();
  Choose("_sav");
  EXPECT_EQ(Status(), " Saved.");
  QTest::keyClicks(&Edit(), "1");
  EXPECT_EQ(Status(), "");
}

TEST_F(TMannersTest, ATipMakesWayForTyping) {
  Edit().Set("10 PRINT 1\n");
  constexpr int64_t IN_PRINT = 4;
  const QPoint point(
      static_cast<int>(edit_call(Edit(), S::SCI_POINTXFROMPOSITION, 0, IN_PRINT)) + 2,
      static_cast<int>(edit_call(Edit(), S::SCI_POINTYFROMPOSITION, 0, IN_PRINT)) + 4);
  QHelpEvent help(QEvent::ToolTip, point, Edit().viewport()->mapToGlobal(point));
  QApplication::sendEvent(Edit().viewport(), &help);
  ASSERT_TRUE(QToolTip::isVisible());
  QTest::keyClicks(&Edit(), "A");
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, TIP_WAIT_MS));
}

TEST_F(TMannersTest, KeysThatEverybodyKnows) {
  const long zoom = edit_call(Edit(), S::SCI_GETZOOM);
  QTest::keyClick(&Window(), Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(edit_call(Edit(), S::SCI_GETZOOM), zoom + 1);
  QTest::keyClick(&Window(), Qt::Key_O, Qt::ControlModifier);
  ASSERT_TRUE(Until([this] { return Window().OpenPanel() && Window().OpenPanel()->isVisible(); }));
  Window().OpenPanel()->reject();
}

TEST_F(TMannersTest, AFilePanelShowsItsColumnsInFull) {
  std::filesystem::create_directory(mFolder.Path("lists"));
  mFolder.Write("lists/list.bas", "10 PRINT 1\n");
  Choose("_sva");
  QFileDialog* const panel = Window().SavePanel();
  ASSERT_TRUE(Until([&] { return panel->isVisible(); }));
  panel->setDirectory(QString::fromStdString(mFolder.Path("lists")));
  auto* const files = panel->findChild<QTreeView*>("treeView");
  ASSERT_NE(files, nullptr);
  ASSERT_TRUE(Until([&] { return files->model()->rowCount(files->rootIndex()) == 1; }));
  ASSERT_TRUE(Until([&] { return files->columnWidth(0) > files->columnWidth(3); }));
  int width = 0;
  for (int column = 0; column < 4; ++column) {
    const QString text = files->model()->index(0, column, files->rootIndex()).data().toString();
    EXPECT_FALSE(text.isEmpty()) << column;
    EXPECT_GT(files->columnWidth(column), files->fontMetrics().horizontalAdvance(text)) << column;
    width += files->columnWidth(column);
  }
  EXPECT_LE(width, files->viewport()->width());
  panel->reject();
}

TEST_F(TMannersTest, TheFirstFolderOfADriveIsLookedForInAFolder) {
  ASSERT_EQ(mEngine->Context().exitStates->RWPF, "");
  TMessage message("spdf");
  message.AddInt32("DrvFolderIdx", 0);
  mApp->RunWindow().MessageReceived(message);
  QFileDialog* const panel = mApp->RunWindow().findChild<QFileDialog*>();
  ASSERT_TRUE(Until([&] { return panel != nullptr && panel->isVisible(); }));
  EXPECT_TRUE(panel->findChild<QTreeView*>("treeView")->rootIndex().isValid());
  panel->reject();
}

}  // namespace
}  // namespace zoka
