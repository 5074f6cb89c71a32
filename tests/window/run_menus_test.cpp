// The menus of the run window: drives and their lamps, what is copied, windows, sizes, speed.
#include <QClipboard>
#include <QFileDialog>
#include <QImage>
#include <QMenu>
#include <QMenuBar>

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "common/file_path.h"
#include "tests/window/window_rig.h"

namespace zoka {
namespace {

using TTexts = std::vector<std::string>;

class TRunMenusTest : public TWindowRig {
 protected:
  TRunWindow& Window() { return mApp->RunWindow(); }

  QMenu* Menu(const QString& title) {
    for (QAction* action : Window().menuBar()->actions()) {
      if (action->text() == title) return action->menu();
    }
    ADD_FAILURE() << title.toStdString();
    return nullptr;
  }
  static TTexts TextsOf(QMenu* menu) {
    TTexts texts;
    for (QAction* action : menu->actions()) {
      texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
    }
    return texts;
  }
  /// The recent folders: what stands below the separator.
  TTexts Recent(int drive) {
    const TTexts all = TextsOf(Menu(QString("FDD%1(&%1)").arg(drive)));
    return {all.begin() + 3, all.end()};
  }
  QAction* Item(QMenu* menu, const QString& text) {
    for (QAction* action : menu->actions()) {
      if (action->text() == text) return action;
    }
    ADD_FAILURE() << text.toStdString();
    return menu->actions()[0];
  }
  /// Puts a folder into a drive as the application is told to.
  void Insert(int32_t drive, const std::string& path) {
    TMessage message("sdfr");
    message.AddInt32("DrvFolderIdx", drive);
    message.AddRef("refs", TPathRef{path});
    Window().PostMessage(message);
    ASSERT_TRUE(Until([&] { return View().DriveFolder(drive) == path; }));
  }
};

TEST_F(TRunMenusTest, ItemsStandInTheirOrder) {
  EXPECT_EQ(TextsOf(Menu("Copy(&C)")),
            (TTexts{"Text(&T)", "-", "Graphic(&G): Display Page", "Graphic: Page 0",
                    "Graphic: Page 1", "Graphic: Page 2", "Graphic: Page 3", "-", "Composition"}));
  TTexts windows = TextsOf(Menu("Window(&W)"));
  windows.resize(5);
  EXPECT_EQ(windows, (TTexts{"Main Window(&M)", "Debug Window(&D)", "-", "Menu Bar(&B)",
                             "Full Screen(&F)"}));
  TTexts drive = TextsOf(Menu("FDD1(&1)"));
  drive.erase(drive.begin());
  EXPECT_EQ(drive, (TTexts{"Eject(&E)", "-"}));
  // Shortcuts would take keys from the program; these two are held with Alt.
  for (QAction* title : Window().menuBar()->actions()) {
    for (QAction* item : title->menu()->actions()) {
      if (item->text() == "Menu Bar(&B)" || item->text() == "Full Screen(&F)") continue;
      EXPECT_TRUE(item->shortcuts().isEmpty()) << item->text().toStdString();
    }
  }
}

TEST_F(TRunMenusTest, PagesAndTheCompositionAreCopied) {
  RunToEnd(
      "10 SCREEN 0:CLS 3:FOR I=0 TO 3:SCREEN ,,I:CLS 2\n"
      "20 LINE(0,0)-(639,399),I+1,BF:NEXT:SCREEN ,,0,17\n");
  QMenu* menu = Menu("Copy(&C)");
  const auto copied = [&](const QString& item) {
    QApplication::clipboard()->clear();
    Item(menu, item)->trigger();
    EXPECT_TRUE(Until([&] { return !QApplication::clipboard()->image().isNull(); })) << "nothing";
    const QImage image = QApplication::clipboard()->image();
    EXPECT_EQ(image.size(), QSize(640, 400));
    return image.pixel(320, 300) & 0xFFFFFF;
  };
  const uint32_t colors[] = {0x0000FF, 0xFF0000, 0xFF00FF, 0x00FF00};
  for (int page = 0; page < 4; ++page) {
    EXPECT_EQ(copied("Graphic: Page " + QString::number(page)), colors[page]) << page;
  }
  EXPECT_EQ(copied("Graphic(&G): Display Page"), colors[2]);
  EXPECT_EQ(copied("Composition"), colors[2]);
}

TEST_F(TRunMenusTest, TheMainWindowComesToTheFront) {
  mApp->MainWindow().hide();
  Item(Menu("Window(&W)"), "Main Window(&M)")->trigger();
  EXPECT_TRUE(Until([&] { return mApp->MainWindow().isVisible(); }));
}

TEST_F(TRunMenusTest, TheSizeIsChosenFromTheMenu) {
  for (const int step : {3, 1, 2}) {
    Item(Menu("Window(&W)"), QString("Size ×%1(&%1)").arg(step))->trigger();
    EXPECT_TRUE(Until([&] { return Widget().size() == QSize(640, 400) * step; })) << step;
    EXPECT_TRUE(Until([&] { return Window().width() == 640 * step; })) << step;
  }
}

TEST_F(TRunMenusTest, TheSpeedMenuSlowsARunningProgramAndMarksTheSpeed) {
  StartUntil("10 CLS:PRINT \"go\"\n20 GOTO 20\n", "go");
  const auto isControlled = [&] {
    return (View().VMachine()->Port()->mIrFlags.load() & IR_SPEED_CONTROL) != 0;
  };
  QMenu* menu = Menu("Speed(&S)");
  const auto marked = [&] {
    QMetaObject::invokeMethod(menu, "aboutToShow");
    TTexts texts;
    for (QAction* action : menu->actions()) {
      if (action->isChecked()) texts.push_back(action->text().toStdString());
    }
    return texts;
  };
  EXPECT_EQ(marked(), TTexts{"Full Speed(&F)"});
  EXPECT_FALSE(isControlled());
  Item(menu, "200 Statements per Second")->trigger();
  EXPECT_TRUE(isControlled());
  EXPECT_EQ(mEngine->Context().prefs->SpCI.load(), 5000);
  EXPECT_EQ(marked(), TTexts{"200 Statements per Second"});
  // The preferences dialog may have set another one since, which need not be among the items.
  mEngine->Context().prefs->SpCI.store(10'000);
  EXPECT_EQ(marked(), TTexts{"100 Statements per Second"});
  mEngine->Context().prefs->SpCI.store(12'345);
  EXPECT_EQ(marked(), TTexts());
  Item(menu, "Full Speed(&F)")->trigger();
  EXPECT_FALSE(isControlled());
  EXPECT_EQ(marked(), TTexts{"Full Speed(&F)"});
  EXPECT_EQ(mEngine->Context().prefs->SpCI.load(), 12'345);
  mApp->MainWindow().Kill();
}

TEST_F(TRunMenusTest, TheSpeedIsSaved) {
  Item(Menu("Speed(&S)"), "1000 Statements per Second")->trigger();
  mApp.reset();
  mEngine.reset();
  mEngine = std::make_unique<TAppEngine>(mPlace, TLanguage::English);
  EXPECT_TRUE(mEngine->Context().prefs->USpC.load());
  EXPECT_EQ(mEngine->Context().prefs->SpCI.load(), 1000);
}

TEST_F(TRunMenusTest, ALitTitleIsGreenWithBlackLetters) {
  QMenu* menu = Menu("FDD2(&2)");
  const auto title = [&] {
    const QImage bar = Window().menuBar()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    return bar.copy(Window().menuBar()->actionGeometry(menu->menuAction()));
  };
  const QImage dark = title();
  Window().Host().Lamp(1, 1);
  ASSERT_TRUE(Until([&] { return Window().IsLampLit(1); }));
  const QImage lit = title();
  const int right = lit.width() - 1;
  const int bottom = lit.height() - 1;
  constexpr QRgb GREEN = 0xFF66FF66;
  // Inset by one pixel at the left and the top, by two at the bottom.
  EXPECT_EQ(lit.pixel(1, 1), GREEN);
  EXPECT_EQ(lit.pixel(right, bottom - 2), GREEN);
  for (int x = 0; x <= right; ++x) {
    EXPECT_EQ(lit.pixel(x, 0), dark.pixel(x, 0)) << x;
    EXPECT_EQ(lit.pixel(x, bottom), dark.pixel(x, bottom)) << x;
    EXPECT_EQ(lit.pixel(x, bottom - 1), dark.pixel(x, bottom - 1)) << x;
  }
  for (int y = 0; y <= bottom; ++y) EXPECT_EQ(lit.pixel(0, y), dark.pixel(0, y)) << y;
  bool hasBlack = false;
  for (int y = 1; y < bottom - 1; ++y) {
    // Nothing of the label in the first eight pixels.
    for (int x = 1; x < 8; ++x) EXPECT_EQ(lit.pixel(x, y), GREEN) << x << "," << y;
    for (int x = 8; x < right; ++x) hasBlack = hasBlack || lit.pixel(x, y) == 0xFF000000;
  }
  EXPECT_TRUE(hasBlack);
}

// ---- Drives.

TEST_F(TRunMenusTest, BothDriveMenusShowTheSameRecentFoldersNewestFirst) {
  TTexts expected;
  for (int i = 1; i <= 12; ++i) {
    const std::string name = "disk" + std::to_string(i);
    mFolder.MakeFolder(name);
    Insert(1, mFolder.Path(name));
    expected.insert(expected.begin(), name);
  }
  expected.resize(10);
  EXPECT_TRUE(Until([&] { return Recent(2) == expected; })) << testing::PrintToString(Recent(2));
  EXPECT_EQ(Recent(1), expected);
  // One of them goes into the drive of the menu that it was chosen in, and to the top.
  Item(Menu("FDD1(&1)"), "disk5")->trigger();
  EXPECT_TRUE(Until([&] { return View().DriveFolder(0) == mFolder.Path("disk5"); }));
  EXPECT_EQ(View().DriveFolder(1), mFolder.Path("disk12"));
  EXPECT_TRUE(Until([&] { return Recent(2)[0] == "disk5"; }));
  EXPECT_EQ(Recent(2).size(), 10u);
}

TEST_F(TRunMenusTest, EjectingLeavesTheRecentFoldersAlone) {
  mFolder.MakeFolder("disk");
  Insert(0, mFolder.Path("disk"));
  ASSERT_TRUE(Until([&] { return Recent(1) == TTexts{"disk"}; }));
  Item(Menu("FDD1(&1)"), "Eject(&E)")->trigger();
  ASSERT_TRUE(Until([&] { return TextsOf(Menu("FDD1(&1)"))[0].starts_with("(Empty)"); }));
  EXPECT_EQ(View().DriveFolder(0), "");
  EXPECT_EQ(Recent(1), TTexts{"disk"});
}

TEST_F(TRunMenusTest, RecentFoldersOutliveTheApplication) {
  mFolder.MakeFolder("disk & co");
  Insert(0, mFolder.Path("disk & co"));
  ASSERT_TRUE(Until([&] { return Recent(1).size() == 1; }));
  mApp.reset();
  mApp = std::make_unique<TBasicApp>(*mEngine);
  EXPECT_EQ(Recent(1), TTexts{"disk && co"});
}

TEST_F(TRunMenusTest, MessagesAboutOtherDrivesChangeNothing) {
  const TTexts before = TextsOf(Menu("FDD1(&1)"));
  for (const int32_t drive : {-1, 2, 14, 1000}) {
    Window().Host().DriveChanged(drive, "/tmp", "tmp");
    Window().Host().Lamp(drive, 1);
    TMessage message("sdfr");
    message.AddInt32("DrvFolderIdx", drive);
    message.AddRef("refs", TPathRef{"/tmp"});
    Window().PostMessage(message);
  }
  // What lacks a field is ignored as well.
  Window().PostMessage(TMessage("sdfr"));
  Window().PostMessage(TMessage("udfr"));
  Window().PostMessage(TMessage("salr"));
  Window().PostMessage(TMessage("ejct"));
  Window().PostMessage(TMessage("spdf"));
  Insert(13, "/tmp");
  EXPECT_EQ(TextsOf(Menu("FDD1(&1)")), before);
  EXPECT_EQ(View().DriveFolder(2), "/tmp");  // it has no menu, but a folder
  EXPECT_FALSE(Window().IsLampLit(0) || Window().IsLampLit(1));
}

TEST_F(TRunMenusTest, AFolderIsSpecifiedInAPanelThatIsMadeOnce) {
  mFolder.MakeFolder("disk");
  QMenu* menu = Menu("FDD2(&2)");
  menu->actions()[0]->trigger();
  const auto panel = [&] { return Window().findChild<QFileDialog*>(); };
  ASSERT_TRUE(Until([&] { return panel() != nullptr && panel()->isVisible(); }));
  QFileDialog* const first = panel();
  EXPECT_EQ(first->windowTitle(), "Zoka-BASIC: Specify Drive Folder");
  EXPECT_EQ(first->labelText(QFileDialog::Accept), "Specify");
  EXPECT_EQ(first->fileMode(), QFileDialog::Directory);
  first->setDirectory(QString::fromStdString(mFolder.Path()));
  emit first->fileSelected(QString::fromStdString(mFolder.Path("disk")));
  first->hide();
  EXPECT_TRUE(Until([&] { return View().DriveFolder(1) == mFolder.Path("disk"); }));
  Menu("FDD1(&1)")->actions()[0]->trigger();
  ASSERT_TRUE(Until([&] { return first->isVisible(); }));
  EXPECT_EQ(panel(), first);
  Window().Quit();
  EXPECT_EQ(mEngine->Context().exitStates->RWPF, mFolder.Path());
}

}  // namespace
}  // namespace zoka
