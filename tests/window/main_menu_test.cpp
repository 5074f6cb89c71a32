// The main window's menus, item by item: labels, keys, codes, order, what can be chosen; and the
// alerts and status texts of the main window and its list.
#include <QCompleter>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <set>
#include <vector>

#include "app/settings/prefs.h"
#include "tests/window/start_rig.h"

namespace zoka {
namespace {

class TMainMenu : public TStartRig {
 protected:
  /// The items of a menu, a line each: its text, its code in brackets, its shortcut; "-" for a
  /// separator, and ">" behind what has a menu of its own.
  std::string Items(const QMenu* menu) {
    std::string all;
    for (const QAction* item : menu->actions()) {
      if (item->isSeparator()) {
        all += "-\n";
        continue;
      }
      all += item->text().toStdString() + " [" + item->objectName().toStdString() + "]";
      if (!item->shortcut().isEmpty()) {
        all += " " + item->shortcut().toString(QKeySequence::PortableText).toStdString();
      }
      all += item->menu() != nullptr ? " >\n" : "\n";
    }
    return all;
  }
  QMenu* Menu(int place) { return Window().menuBar()->actions().at(place)->menu(); }
  std::string Titles() {
    std::string all;
    for (const QAction* item : Window().menuBar()->actions()) {
      all += item->text().toStdString() + "\n";
    }
    return all;
  }
  /// The first lines of a menu.
  std::string FirstItems(int place, size_t count) {
    const std::string all = Items(Menu(place));
    size_t end = 0;
    for (; count > 0; --count) end = all.find('\n', end) + 1;
    return all.substr(0, end);
  }
};

TEST_F(TMainMenu, TheMenuBar) {
  Start();
  EXPECT_EQ(Window().menuBar()->objectName(), "MenuBar");
  EXPECT_EQ(Titles(), "File(&F)\nEdit(&E)\nRun\nTool(&T)\nWindow(&W)\nHelp(&H)\n");
}

TEST_F(TMainMenu, File) {
  Start();
  EXPECT_EQ(Items(Menu(0)),
            "New(&N) [_new] Ctrl+N\n"
            "Open(&O) [_opn] >\n"
            "-\n"
            "Save(&S) [_sav] Ctrl+S\n"
            "Save As(&A) [_sva] Ctrl+2\n"
            "-\n"
            "Register MIME(&R) [rmim]\n"
            "-\n"
            "Quit(&Q) [_QRQ] Ctrl+Q\n");
  EXPECT_EQ(Items(Window().HistoryMenu()), "-\nDelete All MRULs(&D) [damr]\n");
}

TEST_F(TMainMenu, Edit) {
  Start();
  // What stands behind the last separator is this system's own.
  EXPECT_EQ(FirstItems(1, 9),
            "Cut(&X) [CCUT] Ctrl+X\n"
            "Copy(&C) [COPY] Ctrl+C\n"
            "Paste(&V) [PSTE] Ctrl+V\n"
            "Clear(&L) [clr]\n"
            "-\n"
            "Select All [SALL] Ctrl+A\n"
            "-\n"
            "Go to Line(&G) [gtln] Ctrl+,\n"
            "Renumber [rnmb]\n");
}

TEST_F(TMainMenu, RunToolAndWindow) {
  Start();
  // The debugger's commands follow.
  EXPECT_EQ(FirstItems(2, 7),
            "Run [run] Ctrl+R\n"
            "Run (with Line Number) [runl]\n"
            "-\n"
            "Kill(&K) [kill] Ctrl+K\n"
            "-\n"
            "Repeat [rptr]\n"
            "Use Debugger [usdb]\n");
  EXPECT_TRUE(Window().FindItem("rngo")->shortcut() == QKeySequence(Qt::Key_F5));
  EXPECT_EQ(Items(Menu(3)),
            "Preferences(&P) [_prf] Ctrl+P\n"
            "KORUNE Common Preferences [_Ssp]\n");
  EXPECT_EQ(Items(Menu(4)), "Run Window [srwn]\nDebug Window [sdwn]\n");
}

TEST_F(TMainMenu, Help) {
  Start();
  EXPECT_EQ(FirstItems(5, 5),
            "Help Text [_hlp]\n"
            "-\n"
            "the Zoka-BASIC developers(&J) [_jaw]\n"
            "-\n"
            "About [_ABR]\n");
}

TEST_F(TMainMenu, InJapaneseTheKeysAreTheSame) {
  MakeEngine(TLanguage::Japanese);
  Start();
  EXPECT_EQ(Titles(), "ファイル(&F)\n編集(&E)\n実行\nツール(&T)\nウィンドウ(&W)\nヘルプ(&H)\n");
  EXPECT_EQ(Items(Menu(0)),
            "新規(&N) [_new] Ctrl+N\n"
            "開く(&O) [_opn] >\n"
            "-\n"
            "保存(&S) [_sav] Ctrl+S\n"
            "名前を付けて保存(&A) [_sva] Ctrl+2\n"
            "-\n"
            "MIMEタイプの登録(&R) [rmim]\n"
            "-\n"
            "終了(&Q) [_QRQ] Ctrl+Q\n");
}

TEST_F(TMainMenu, TheFormatOfKeysAndTheLanguageAreFollowedAtOnce) {
  Start();
  mApp->SetLanguage(TLanguage::Japanese);
  ASSERT_TRUE(Until([this] { return Window().FindItem("_new")->text() == "新規(&N)"; }));
  EXPECT_EQ(Title(), "(新しいリスト) - Zoka-BASIC (メイン: 編集ウィンドウ)");
  mApp->SetLanguage(TLanguage::English);
  ASSERT_TRUE(Until([this] { return Window().FindItem("_new")->text() == "New(&N)"; }));
}

TEST_F(TMainMenu, TheHistoryHasADigitForEachOfItsTenFiles) {
  Start();
  for (int i = 0; i < 12; ++i) {
    const std::string name = "f" + std::to_string(i) + ".bas";
    mFolder.Write(name, "10 END\n");
    PostRefs(mFolder.Path(name));
  }
  std::string expected;
  for (int i = 11; i >= 2; --i) {
    expected += "f" + std::to_string(i) + ".bas(&" + std::to_string(11 - i) + ") []\n";
  }
  EXPECT_EQ(Items(Window().HistoryMenu()), expected + "-\nDelete All MRULs(&D) [damr]\n");
  EXPECT_TRUE(HasSettings("ZokaBASIC_MRUF.arc"));
}

TEST_F(TMainMenu, MarksFollowTheExitStates) {
  Start();
  EXPECT_FALSE(Window().FindItem("rptr")->isChecked());
  Choose("rptr");
  EXPECT_TRUE(Window().FindItem("rptr")->isChecked());
  EXPECT_TRUE(mEngine->Context().exitStates->RptR.load());
  Choose("usdb");
  EXPECT_TRUE(Window().FindItem("usdb")->isChecked());
  EXPECT_TRUE(mEngine->Context().exitStates->UDbg.load());
  Choose("rptr");
  EXPECT_FALSE(mEngine->Context().exitStates->RptR.load());
  End();
  Start();
  EXPECT_TRUE(Window().FindItem("usdb")->isChecked());
}

TEST_F(TMainMenu, EditItemsReachTheEditor) {
  Start();
  Edit().Set("ABCD");
  Choose("SALL");
  EXPECT_EQ(Edit().selectedText(), "ABCD");
  EXPECT_FALSE(Document().IsModified());
  Choose("CCUT");
  EXPECT_EQ(Edit().Get(), "");
  EXPECT_TRUE(Document().IsModified());
  Choose("PSTE");
  EXPECT_EQ(Edit().Get(), "ABCD");
  Choose("SALL");
  Choose("COPY");
  Choose("clr");
  EXPECT_EQ(Edit().Get(), "");
  Choose("PSTE");
  EXPECT_EQ(Edit().Get(), "ABCD");
}

TEST_F(TMainMenu, DialogsAndTheirLabels) {
  Start();
  Choose("gtln");
  TSimpleInputWindow& line = mApp->GoToLineWindow();
  ASSERT_TRUE(Until([&] { return line.isVisible(); }));
  EXPECT_EQ(line.windowTitle(), "Go to Line");
  std::set<QString> texts;
  for (const QLabel* label : line.findChildren<QLabel*>()) texts.insert(label->text());
  for (const QPushButton* button : line.findChildren<QPushButton*>()) texts.insert(button->text());
  EXPECT_EQ(texts, (std::set<QString>{"Go to Line(&L): ", "Cancel", "Go(&G)"}));
  Choose("runl");
  TSimpleInputWindow& run = mApp->RunLineWindow();
  ASSERT_TRUE(Until([&] { return run.isVisible(); }));
  EXPECT_EQ(run.windowTitle(), "Run with Line Number");
  texts.clear();
  for (const QLabel* label : run.findChildren<QLabel*>()) texts.insert(label->text());
  for (const QPushButton* button : run.findChildren<QPushButton*>()) texts.insert(button->text());
  EXPECT_EQ(texts, (std::set<QString>{"Line Number or Label(&L): ", "Cancel", "Run(&R)"}));
  Choose("rnmb");
  ASSERT_TRUE(Until([this] { return mApp->RenumWindow().isVisible(); }));
  texts.clear();
  for (const QLabel* label : mApp->RenumWindow().findChildren<QLabel*>()) {
    texts.insert(label->text());
  }
  EXPECT_EQ(texts, (std::set<QString>{"New Line(&N): ", "Old Line(&L): ", "Step(&S): "}));
  for (const char* name : {"TxtCtrlNewLineNum", "TxtCtrlOldLineNum", "TxtCtrlStep"}) {
    const auto* const field = mApp->RenumWindow().findChild<QLineEdit*>(name);
    ASSERT_NE(field, nullptr) << name;
    EXPECT_TRUE(field->alignment() & Qt::AlignRight) << name;
  }
}

TEST_F(TMainMenu, GoToLineSaysWhatIsWrong) {
  Start();
  Edit().Set("10 A\n");
  TMessage message("gtlr");
  message.AddString("SISmplIptTxt", "");
  AnswerNext(Qt::Key_U);
  Post(message);
  EXPECT_EQ(mAsked, "No line has been given.\n\n* Zoka-BASIC *");
  EXPECT_EQ(Buttons(), "Understand(&U)");
  message.ReplaceString("SISmplIptTxt", "99");
  AnswerNext(Qt::Key_Escape);
  Post(message);
  EXPECT_EQ(mAsked, "There is no such line.\n\n* Zoka-BASIC *");
  message.what = message_code("rnlr");
  message.ReplaceString("SISmplIptTxt", "");
  AnswerNext(Qt::Key_U);
  Post(message);
  EXPECT_EQ(mAsked, "No line has been given.\n\n* Zoka-BASIC *");
  EXPECT_EQ(Document().State(), TDocumentState::Idle);
}

TEST_F(TMainMenu, TheQuestionWhetherToSave) {
  Start();
  QTest::keyClicks(&Edit(), "1");
  AnswerNext(Qt::Key_Escape);
  Choose("_new");
  EXPECT_EQ(mAsked, "Save the changes to \"(New List)\"?\n\n* Zoka-BASIC *");
  EXPECT_EQ(Buttons(), "Cancel No(&N) Yes(&Y)");
  EXPECT_EQ(Edit().Get(), "1");
  AnswerNext(Qt::Key_N);
  Choose("_new");
  EXPECT_EQ(Edit().Get(), "");
  EXPECT_FALSE(Document().IsModified());
}

TEST_F(TMainMenu, NewLeavesTheCharsetAsItWas) {
  mFolder.Write("sjis.bas", "10 '\x82\xA0\n");
  Start(mFolder.Path("sjis.bas"));
  ASSERT_EQ(Document().Charset(), 11);
  Choose("_new");
  EXPECT_EQ(Document().Charset(), 11);
  EXPECT_EQ(Document().CurPath(), "");
}

TEST_F(TMainMenu, SaveAsShowsOnePanelOnce) {
  Start();
  QTest::keyClicks(&Edit(), "1");
  Choose("_sva");
  ASSERT_TRUE(Until([this] { return Window().SavePanel() && Window().SavePanel()->isVisible(); }));
  auto* const name = Window().SavePanel()->findChild<QLineEdit*>("fileNameEdit");
  name->setText(QString::fromStdString(mFolder.Path("x")));
  QTest::keyClick(name, Qt::Key_Return);
  ASSERT_TRUE(Until([this] { return !Document().IsModified(); }));
  QApplication::processEvents();
  EXPECT_FALSE(Window().SavePanel()->isVisible());
  EXPECT_EQ(Document().CurPath(), mFolder.Path("x.bas"));
}

TEST_F(TMainMenu, TheOpenPanelSendsEncodingAndBox) {
  mFolder.Write("sjis.bas", "20 '\x82\xA0\n");
  Start();
  Edit().Set("10 END\n");
  Post("_opn");
  ASSERT_TRUE(Until([this] { return Window().OpenPanel() && Window().OpenPanel()->isVisible(); }));
  TZokaOpenPanel& panel = *Window().OpenPanel();
  std::vector<std::string> items;
  for (int i = 0; i < panel.Encoding()->count(); ++i) {
    items.push_back(panel.Encoding()->itemText(i).toStdString());
  }
  EXPECT_EQ(items,
            (std::vector<std::string>{"Auto Detect", "", "UTF-8 (BeOS)", "Shift-JIS (DOS-BASIC)",
                                      "JIS / NEC JIS (DISK-BASIC)"}));
  EXPECT_EQ(panel.CBoxAdd()->text(), "Insert to current position");
  EXPECT_FALSE(panel.CBoxAdd()->isChecked());
  panel.Encoding()->setCurrentIndex(3);
  panel.CBoxAdd()->setChecked(true);
  auto* const name = panel.findChild<QLineEdit*>("fileNameEdit");
  name->setText(QString::fromStdString(mFolder.Path("sjis.bas")));
  QTest::keyClick(name, Qt::Key_Return);
  ASSERT_TRUE(Until([this] { return Document().IsModified(); }));
  EXPECT_EQ(Edit().Get(), "20 '\xE3\x81\x82\n10 END\n");
  EXPECT_EQ(Document().Charset(), 11);
  EXPECT_EQ(Document().CurPath(), "");
  // The box is cleared each time, the mark stays until the preference changes.
  Post("_opn");
  ASSERT_TRUE(Until([&] { return panel.isVisible(); }));
  EXPECT_FALSE(panel.CBoxAdd()->isChecked());
  EXPECT_EQ(panel.Encoding()->currentIndex(), 3);
  mEngine->Context().prefs->DEnc = 4;
  Post("pdec");
  EXPECT_EQ(panel.Encoding()->currentIndex(), 4);
}

TEST_F(TMainMenu, TheItemOpenHasAMenuAndCanBeChosenItself) {
  Start();
  QMenu* const file = Menu(0);
  file->popup(Window().pos());
  file->setActiveAction(Window().FindItem("_opn"));
  QTest::keyClick(file, Qt::Key_Return);
  ASSERT_TRUE(Until([this] { return Window().OpenPanel() && Window().OpenPanel()->isVisible(); }));
  EXPECT_FALSE(file->isVisible());
  Window().OpenPanel()->reject();
  file->popup(Window().pos());
  QTest::mouseClick(file, Qt::LeftButton, {},
                    file->actionGeometry(Window().FindItem("_opn")).center());
  ASSERT_TRUE(Until([this] { return Window().OpenPanel()->isVisible(); }));
  EXPECT_FALSE(file->isVisible());
  Window().OpenPanel()->reject();
  file->popup(Window().pos());
  file->setActiveAction(Window().FindItem("_opn"));
  QTest::keyClick(file, Qt::Key_Right);
  ASSERT_TRUE(Until([this] { return Window().HistoryMenu()->isVisible(); }));
  EXPECT_FALSE(Window().OpenPanel()->isVisible());
  file->hide();
}

TEST_F(TMainMenu, APanelThatIsClosedOffersNoNames) {
  Start();
  Post("_opn");
  ASSERT_TRUE(Until([this] { return Window().OpenPanel() && Window().OpenPanel()->isVisible(); }));
  auto* const name = Window().OpenPanel()->findChild<QLineEdit*>("fileNameEdit");
  ASSERT_NE(name->completer(), nullptr);
  Window().OpenPanel()->reject();
  EXPECT_EQ(name->completer(), nullptr);
  Post("_opn");
  EXPECT_NE(name->completer(), nullptr);
}

TEST_F(TMainMenu, PanelsShareTheirFolderAndItIsFoundAgain) {
  mFolder.MakeFolder("lists");
  Start();
  Post("_opn");
  ASSERT_TRUE(Until([this] { return Window().OpenPanel() && Window().OpenPanel()->isVisible(); }));
  const QString lists = QString::fromStdString(mFolder.Path("lists"));
  Window().OpenPanel()->setDirectory(lists);
  Window().OpenPanel()->reject();
  Choose("_sva");
  ASSERT_TRUE(Until([this] { return Window().SavePanel() && Window().SavePanel()->isVisible(); }));
  EXPECT_EQ(Window().SavePanel()->directory().absolutePath(), lists);
  Window().SavePanel()->reject();
  End();
  Start();
  Post("_opn");
  ASSERT_TRUE(Until([this] { return Window().OpenPanel() && Window().OpenPanel()->isVisible(); }));
  EXPECT_EQ(Window().OpenPanel()->directory().absolutePath(), lists);
}

TEST_F(TMainMenu, TheHistoryAsksBeforeItForgets) {
  mFolder.Write("a.bas", "10 END\n");
  mFolder.Write("b.bas", "20 END\n");
  Start(mFolder.Path("a.bas"));
  PostRefs(mFolder.Path("b.bas"));
  ASSERT_EQ(Window().History().CountMRUFs(), 2);
  TMessage message("_RRC");
  message.AddRef("refs", TPathRef{mFolder.Path("a.bas")});
  message.AddBool(CONTROL_HELD, true);
  AnswerNext(Qt::Key_Escape);
  Post(message);
  EXPECT_EQ(mAsked, "Remove \"a.bas\" from the list of recent files?\n\n* Zoka-BASIC *");
  EXPECT_EQ(Buttons(), "Cancel Yes(&Y)");
  EXPECT_EQ(Window().History().CountMRUFs(), 2);
  AnswerNext(Qt::Key_Y);
  Post(message);
  ASSERT_TRUE(Until([this] { return Window().History().CountMRUFs() == 1; }));
  EXPECT_EQ(Edit().Get(), "20 END\n");
  AnswerNext(Qt::Key_Escape);
  Choose("damr");
  EXPECT_EQ(mAsked,
            "Remove all files from the list of recent files?\n\nTo remove one file, hold Ctrl down "
            "while you choose it.\n\n* Zoka-BASIC *");
  EXPECT_EQ(Buttons(), "Cancel Delete All(&A)");
  EXPECT_EQ(Window().History().CountMRUFs(), 1);
  AnswerNext(Qt::Key_A);
  Choose("damr");
  EXPECT_EQ(Window().History().CountMRUFs(), 0);
}

TEST_F(TMainMenu, WithOptionHeldAHistoryItemIsInserted) {
  mFolder.Write("a.bas", "10 END\n");
  Start();
  Edit().Set("20 END\n");
  TMessage message("_RRC");
  message.AddRef("refs", TPathRef{mFolder.Path("a.bas")});
  message.AddBool(OPTION_HELD, true);
  Post(message);
  EXPECT_EQ(Edit().Get(), "10 END\n20 END\n");
  EXPECT_EQ(Document().CurPath(), "");
}

TEST_F(TMainMenu, TheHelpIsTheTextOfTheLanguage) {
  Start();
  Choose("_hlp");
  ASSERT_EQ(mOpened.size(), 1);
  EXPECT_TRUE(mOpened[0].toLocalFile().endsWith("/ReadMe_Eng.txt"));
  EXPECT_TRUE(QFile::exists(mOpened[0].toLocalFile()));
  mApp->SetLanguage(TLanguage::Japanese);
  ASSERT_TRUE(Until([this] { return Window().FindItem("_new")->text() == "新規(&N)"; }));
  Choose("_hlp");
  ASSERT_EQ(mOpened.size(), 2);
  EXPECT_TRUE(mOpened[1].toLocalFile().endsWith("/ReadMe_Jpn.txt"));
  EXPECT_TRUE(QFile::exists(mOpened[1].toLocalFile()));
}

TEST_F(TMainMenu, WhoCannotShowTheHelpSaysSo) {
  mOpens = false;
  Start();
  AnswerNext(Qt::Key_U);
  Choose("_hlp");
  EXPECT_EQ(mAsked, "The help cannot be shown.\n\n* Zoka-BASIC *");
  EXPECT_EQ(Buttons(), "Understand(&U)");
}

TEST_F(TMainMenu, TheAuthorsPageIsOpenedIfThereIsOne) {
  Start();
  EXPECT_FALSE(Window().FindItem("_jaw")->isEnabled());
  End();
  mDesktop.authorPage = "https://example.org/zoka";
  Start();
  Choose("_jaw");
  EXPECT_EQ(mOpened, QList<QUrl>{QUrl("https://example.org/zoka")});
}

TEST_F(TMainMenu, AboutTellsNameVersionAndLicence) {
  Start();
  Choose("_ABR");
  ASSERT_TRUE(Until([this] { return mApp->AboutWindow() && mApp->AboutWindow()->isVisible(); }));
  std::string texts;
  for (const QLabel* label : mApp->AboutWindow()->findChildren<QLabel*>()) {
    texts += label->text().toStdString() + "\n";
  }
  EXPECT_NE(texts.find(std::string(APP_NAME) + " " + APP_VERSION), texts.npos) << texts;
  EXPECT_NE(texts.find("General Public License"), texts.npos) << texts;
  QTest::keyClick(mApp->AboutWindow(), Qt::Key_Escape);
  EXPECT_FALSE(mApp->AboutWindow()->isVisible());
}

TEST_F(TMainMenu, StatusTextsOfPreferences) {
  Start();
  for (const char* code : {"pmfc", "pwwc", "parc"}) {
    Window().View().SetStatBarStr("");
    Post(code);
    EXPECT_EQ(Status(), " Preferences changed.") << code;
  }
  Window().View().SetStatBarStr("");
  mApp->PostMessage(TMessage("prcd"));
  QApplication::processEvents();
  EXPECT_EQ(Status(), " Preferences changed.");
  // A new language clears it.
  mApp->SetLanguage(TLanguage::Japanese);
  ASSERT_TRUE(Until([this] { return Status().empty(); }));
}

TEST_F(TMainMenu, WindowsAreShownAndHidden) {
  Start();
  EXPECT_FALSE(mApp->RunWindow().isVisible());
  Choose("srwn");
  ASSERT_TRUE(Until([this] { return mApp->RunWindow().isVisible(); }));
  mApp->RunWindow().close();
  EXPECT_FALSE(mApp->RunWindow().isVisible());
  mApp->PostMessage(TMessage("smwn"));
  QApplication::processEvents();
  EXPECT_TRUE(Window().isVisible());
}

TEST_F(TMainMenu, ClosingTheMainWindowIsTheWishToQuit) {
  Start();
  QTest::keyClicks(&Edit(), "1");
  AnswerNext(Qt::Key_Escape);
  Window().close();
  ASSERT_TRUE(Until([this] { return !mAsked.empty(); }));
  EXPECT_TRUE(Window().isVisible());
  EXPECT_FALSE(mEngine->Context().privacy.quitting.load());
  AnswerNext(Qt::Key_N);
  Window().close();
  ASSERT_TRUE(Until([this] { return mEngine->Context().privacy.quitting.load(); }));
}

TEST_F(TMainMenu, ConvertedCharactersAreCountedInTheStatus) {
  mFolder.Write("jis.bas", "10 '\x1BK-!\x1BH\n");
  Start(mFolder.Path("jis.bas"));
  EXPECT_EQ(Status(), " Characters of the PC-98 replaced by similar ones: 1.");
  EXPECT_EQ(Document().Charset(), 13);
}

TEST_F(TMainMenu, KeysThatOnlyMoveDoNotModify) {
  Start();
  Edit().Set("10 A\n20 B\n");
  for (const Qt::Key key :
       {Qt::Key_Home, Qt::Key_End, Qt::Key_Insert, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Escape,
        Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_F6}) {
    QTest::keyClick(&Edit(), key);
    EXPECT_FALSE(Document().IsModified()) << key;
  }
  // A key that could have changed something counts, even where there is nothing to change.
  Edit().Set("");
  QTest::keyClick(&Edit(), Qt::Key_Backspace);
  EXPECT_TRUE(Document().IsModified());
}

TEST_F(TMainMenu, UndoDoesNotMakeAListUnmodified) {
  Start();
  QTest::keyClicks(&Edit(), "1");
  Edit().undo();
  EXPECT_EQ(Edit().Get(), "");
  EXPECT_TRUE(Document().IsModified());
}

TEST_F(TMainMenu, FilesFromOtherApplicationsAreOpenedWhereTheyAreDropped) {
  mFolder.Write("a.bas", "10 END\n");
  mFolder.Write("b.bas", "20 END\n");
  Start();
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(QString::fromStdString(mFolder.Path("a.bas"))),
                 QUrl::fromLocalFile(QString::fromStdString(mFolder.Path("b.bas")))});
  QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Edit().viewport(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Edit().viewport(), &drop);
  // The first one counts.
  ASSERT_TRUE(Until([this] { return Document().CurPath() == mFolder.Path("a.bas"); }));
  EXPECT_EQ(Edit().Get(), "10 END\n");
}

TEST_F(TMainMenu, ABadTokenisedListIsRefused) {
  mFolder.Write("bad.bas", "\xFE");
  Start();
  Edit().Set("10 END\n");
  AnswerNext(Qt::Key_U);
  PostRefs(mFolder.Path("bad.bas"));
  EXPECT_EQ(mAsked, "This tokenised program list is damaged.\n\n* Zoka-BASIC *");
  EXPECT_EQ(Edit().Get(), "10 END\n");
  EXPECT_EQ(Status(), "");
}

}  // namespace
}  // namespace zoka
