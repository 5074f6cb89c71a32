// The start of the application: splash, the page of a first start, files given at the start, and
// starts among settings that are damaged or cannot be kept.
#include <sys/resource.h>

#include <csignal>
#include <set>

#include "tests/window/start_rig.h"

namespace zoka {
namespace {

class TStartTest : public TStartRig {
 protected:
  /// Starts as the program does with a splash window.
  TSplashWindow* StartWithSplash(const std::string& path = "") {
    MakeEngine();
    TWindowContext context{mEngine->Context(), mEngine->Registry(), {}};
    auto* const splash = new TSplashWindow(context);
    splash->ShowThen([this, splash, path] {
      mApp = std::make_unique<TBasicApp>(*mEngine, splash);
      mSplashStr = splash->SplashStr().toStdString();
      mApp->ReadyToRun(path);
    });
    return splash;
  }
  void StartFirst(TLanguage language = TLanguage::English) {
    MakeEngine(language);
    Start();
    mApp->ShowFirstStartPage();
    Window().activateWindow();
    EXPECT_TRUE(Until([this] { return Window().isActiveWindow(); }));
  }
  TFirstStartPage* Page() { return mApp->FirstStartPage(); }

  std::string mSplashStr;
};

TEST_F(TStartTest, TheSplashStandsUntilTheMainWindowAppears) {
  const QPointer<TSplashWindow> splash = StartWithSplash();
  EXPECT_TRUE(splash->isVisible());
  EXPECT_EQ(splash->objectName(), "SplashWindow");
  EXPECT_EQ(splash->windowFlags() & Qt::WindowStaysOnTopHint, 0);
  EXPECT_EQ(splash->windowFlags() & Qt::X11BypassWindowManagerHint, 0);
  EXPECT_EQ(mApp, nullptr);
  ASSERT_TRUE(Until([this] { return mApp != nullptr; }));
  EXPECT_EQ(mSplashStr, "Adjusting sub windows");
  EXPECT_TRUE(Window().isVisible());
  EXPECT_EQ(mApp->SplashWindow(), nullptr);
  EXPECT_TRUE(splash.isNull() || !splash->isVisible());
  ASSERT_TRUE(Until([&] { return splash.isNull(); }));
}

TEST_F(TStartTest, TheSplashIsInTheMiddleOfTheScreen) {
  const QPointer<TSplashWindow> splash = StartWithSplash();
  const QPoint middle = splash->screen()->availableGeometry().center();
  EXPECT_LE((splash->frameGeometry().center() - middle).manhattanLength(), 2);
  ASSERT_TRUE(Until([this] { return mApp != nullptr; }));
}

TEST_F(TStartTest, TheQuestionAboutAKeptListComesOverTheSplash) {
  WriteSettings("AutoSave.bas", "10 END\n");
  bool splashStands = false;
  const QPointer<TSplashWindow> splash = StartWithSplash();
  AnswerNext(Qt::Key_N, [&] { splashStands = splash && splash->isVisible(); });
  ASSERT_TRUE(Until([this] { return mApp != nullptr && Window().isVisible(); }));
  EXPECT_TRUE(splashStands);
}

TEST_F(TStartTest, TheSplashSpeaksTheUsersLanguage) {
  MakeEngine(TLanguage::Japanese);
  TWindowContext context{mEngine->Context(), mEngine->Registry(), {}};
  auto* const splash = new TSplashWindow(context);
  mApp = std::make_unique<TBasicApp>(*mEngine, splash);
  EXPECT_EQ(splash->SplashStr(), "ウィンドウを配置しています");
  mApp->ReadyToRun("");
}

TEST_F(TStartTest, WithoutASplashNothingOfItIsMade) {
  Start();
  EXPECT_EQ(mApp->SplashWindow(), nullptr);
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    EXPECT_FALSE(window->isVisible() && window->objectName() == "SplashWindow");
  }
}

TEST_F(TStartTest, AGivenFileIsThereBeforeTheWindow) {
  mFolder.Write("a.bas", "10 END\n");
  MakeEngine();
  mApp = std::make_unique<TBasicApp>(*mEngine);
  EXPECT_FALSE(Window().isVisible());
  mApp->ReadyToRun(mFolder.Path("a.bas"));
  EXPECT_EQ(Edit().Get(), "10 END\n");
  EXPECT_EQ(Title(), "a.bas - Zoka-BASIC (Main: Edit Window)");
  EXPECT_TRUE(Window().isVisible());
}

TEST_F(TStartTest, AGivenFileThatIsNotThereIsSaidAndTheWindowAppears) {
  AnswerNext(Qt::Key_U);
  Start(mFolder.Path("none.bas"));
  EXPECT_EQ(mAsked, "The program list \"" + mFolder.Path("none.bas") +
                        "\" cannot be loaded.\n\n* Zoka-BASIC *");
  EXPECT_TRUE(Window().isVisible());
  EXPECT_EQ(Document().CurPath(), "");
}

TEST_F(TStartTest, OnlyTheFirstStartIsOfANewUser) {
  MakeEngine();
  EXPECT_TRUE(mEngine->IsNewUser());
  Start();
  End();
  MakeEngine();
  EXPECT_FALSE(mEngine->IsNewUser());
}

TEST_F(TStartTest, TheFirstPageBeginsANewListWithOneKey) {
  StartFirst();
  ASSERT_NE(Page(), nullptr);
  EXPECT_TRUE(Page()->isVisible());
  EXPECT_EQ(QApplication::focusWidget(), Page()->NewButton());
  QTest::keyClick(Page()->NewButton(), Qt::Key_Return);
  EXPECT_TRUE(Page() == nullptr || !Page()->isVisible());
  EXPECT_EQ(Edit().Get(), "");
  EXPECT_FALSE(Document().IsModified());
  QTest::keyClicks(&Edit(), "10");
  EXPECT_EQ(Edit().Get(), "10");
}

TEST_F(TStartTest, TheFirstPageOpensASampleAsACopyWithoutAName) {
  StartFirst();
  for (size_t i = 0; i < TFirstStartPage::SAMPLE_COUNT; ++i) {
    EXPECT_TRUE(Page()->Sample(i)->isEnabled());
    EXPECT_FALSE(Page()->Sample(i)->icon().isNull()) << i;
  }
  Page()->Sample(1)->setFocus();
  QTest::keyClick(Page()->Sample(1), Qt::Key_Return);
  ASSERT_TRUE(Until([this] { return !Edit().Get().empty(); }));
  EXPECT_TRUE(Page() == nullptr || !Page()->isVisible());
  EXPECT_EQ(Document().CurPath(), "");
  EXPECT_FALSE(Document().IsModified());
  EXPECT_EQ(Edit().Get().substr(0, 13), "10 ' Bricks: ");
}

TEST_F(TStartTest, TheFirstPageChangesTheLanguageOfAllTexts) {
  StartFirst();
  Page()->Language(TLanguage::Japanese)->click();
  ASSERT_TRUE(Until([this] { return Page()->NewButton()->text() == "新しいリストを始める"; }));
  ASSERT_TRUE(
      Until([this] { return Title() == "(新しいリスト) - Zoka-BASIC (メイン: 編集ウィンドウ)"; }));
  EXPECT_TRUE(Page()->isVisible());
  End();
  // It is the user's choice from then on.
  Start();
  EXPECT_EQ(Title(), "(新しいリスト) - Zoka-BASIC (メイン: 編集ウィンドウ)");
}

TEST_F(TStartTest, TheFirstPageMarksTheSystemsLanguage) {
  StartFirst(TLanguage::Japanese);
  EXPECT_TRUE(Page()->Language(TLanguage::Japanese)->isChecked());
}

TEST_F(TStartTest, EveryControlOfTheFirstPageIsReachedByTheTabKey) {
  StartFirst();
  std::set<QWidget*> reached;
  for (int i = 0; i < 20; ++i) {
    reached.insert(QApplication::focusWidget());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_TRUE(reached.contains(Page()->NewButton()));
  for (size_t i = 0; i < TFirstStartPage::SAMPLE_COUNT; ++i) {
    EXPECT_TRUE(reached.contains(Page()->Sample(i))) << i;
  }
  EXPECT_TRUE(reached.contains(Page()->Language(TLanguage::English)));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(Page() == nullptr || !Page()->isVisible());
}

TEST_F(TStartTest, WhoJustTypesBeginsAList) {
  StartFirst();
  QTest::keyClicks(Page()->NewButton(), "1");
  EXPECT_TRUE(Page() == nullptr || !Page()->isVisible());
  EXPECT_EQ(Edit().Get(), "1");
}

TEST_F(TStartTest, TheMenusTakeTheFirstPageAway) {
  for (const char* code : {"_new", "PSTE", "run"}) {
    StartFirst();
    Choose(code);
    EXPECT_TRUE(Page() == nullptr || !Page()->isVisible()) << code;
    End();
  }
  mFolder.Write("a.bas", "10 END\n");
  StartFirst();
  PostRefs(mFolder.Path("a.bas"));
  EXPECT_TRUE(Page() == nullptr || !Page()->isVisible());
}

TEST_F(TStartTest, ARestoredTextIsNotCoveredByTheFirstPage) {
  WriteSettings("AutoSave.journal", "10 END\n");
  AnswerNext(Qt::Key_Y);
  StartFirst();
  EXPECT_EQ(Page(), nullptr);
}

constexpr const char SET_ASIDE[] = " Damaged settings were set aside; the defaults are in use.";

TEST_F(TStartTest, SettingsOfAnyBytesAreSetAsideWithOneNotice) {
  const std::string any("\xFF\x01nonsense\0\x80", 12);
  for (const char* name : {"ZokaBASIC_Prefs.arc", "ZokaBASIC_ExitStates.arc", "ZokaBASIC_MRUF.arc",
                           "ZokaBASIC_MRUFDD.arc"}) {
    WriteSettings(name, any);
  }
  Start();
  EXPECT_EQ(mAsked, "");
  EXPECT_EQ(Status(), SET_ASIDE);
  EXPECT_EQ(mEngine->Context().prefs->SVol.load(), 80);
  EXPECT_EQ(Window().History().CountMRUFs(), 0);
  for (const char* name : {"ZokaBASIC_Prefs.arc", "ZokaBASIC_ExitStates.arc", "ZokaBASIC_MRUF.arc",
                           "ZokaBASIC_MRUFDD.arc"}) {
    EXPECT_NE(ReadSettings(name), any) << name;
    EXPECT_EQ(ReadSettings(std::string(name) + ".damaged"), any) << name;
  }
  End();
  Start();
  EXPECT_EQ(Status(), "");
}

TEST_F(TStartTest, SettingsCutAtEveryByteDoNotKeepItFromStarting) {
  Start();
  ASSERT_EQ(mEngine->Context().prefs->SaveToFile(), 0);
  End();
  const std::string whole = ReadSettings("ZokaBASIC_Prefs.arc");
  for (size_t length = 0; length < whole.size(); length += whole.size() / 7 + 1) {
    WriteSettings("ZokaBASIC_Prefs.arc", whole.substr(0, length));
    Start();
    // An empty file is as good as none.
    EXPECT_EQ(Status(), length == 0 ? "" : SET_ASIDE) << length;
    EXPECT_EQ(mAsked, "");
    End();
  }
}

TEST_F(TStartTest, AFolderInThePlaceOfASettingsFileIsLeftAlone) {
  std::filesystem::create_directories(mFolder.Path("settings/ZokaBASIC/ZokaBASIC_Prefs.arc"));
  Start();
  EXPECT_EQ(mAsked, "");
  EXPECT_TRUE(Window().isVisible());
  EXPECT_TRUE(
      std::filesystem::is_directory(mFolder.Path("settings/ZokaBASIC/ZokaBASIC_Prefs.arc")));
}

/// A start whose settings have no place that can be written.
class THomeless : public TStartRig, public testing::WithParamInterface<const char*> {};

TEST_P(THomeless, TheApplicationWorksAndSaysThatNothingIsKept) {
  mPlace.root = GetParam();
  mDesktop.dataHome = mDesktop.configHome = "/proc/none";
  mDesktop.dataFolders = QStringList{"/proc/none"};
  Start();
  EXPECT_EQ(mAsked, "");
  EXPECT_TRUE(Window().isVisible());
  EXPECT_EQ(mStarted.size(), 0);
  QTest::keyClicks(&Edit(), "10 END");
  ASSERT_TRUE(Until([this] {
    return Status() ==
           " Unsaved text cannot be kept for a restart: your settings folder cannot be written. "
           "Save often.";
  })) << Status();
  TMessage save("SAVE");
  save.AddRef("directory", TPathRef{mFolder.Path()});
  save.AddString("name", "x");
  Post(save);
  EXPECT_EQ(mFolder.Read("x.bas"), "10 END");
  Post("run");
  ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Idle; }));
}

// No home at all; one below a file; one on a system that takes no folders, as a read-only one does.
INSTANTIATE_TEST_SUITE_P(Places, THomeless,
                         testing::Values("", "/dev/null/home", "/proc/zoka-home"));

/// Lets no file of this process grow, as a full disk does.
class TFullDisk {
 public:
  TFullDisk() {
    getrlimit(RLIMIT_FSIZE, &mBefore);
    mHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit none = mBefore;
    none.rlim_cur = 0;
    setrlimit(RLIMIT_FSIZE, &none);
  }
  ~TFullDisk() {
    setrlimit(RLIMIT_FSIZE, &mBefore);
    std::signal(SIGXFSZ, mHandler);
  }
  TFullDisk(const TFullDisk&) = delete;
  TFullDisk& operator=(const TFullDisk&) = delete;

 private:
  rlimit mBefore{};
  void (*mHandler)(int) = nullptr;
};

TEST_F(TStartTest, AFullDiskKeepsOldFilesAndSaysSo) {
  mFolder.Write("a.bas", "10 END\n");
  Start(mFolder.Path("a.bas"));
  ASSERT_EQ(mEngine->Context().prefs->SaveToFile(), 0);
  const std::string prefs = ReadSettings("ZokaBASIC_Prefs.arc");
  {
    const TFullDisk full;
    QTest::keyClicks(&Edit(), "5");
    ASSERT_TRUE(Until([this] { return Status().find("cannot be kept") != std::string::npos; }));
    Choose("_sav");
    EXPECT_EQ(Status(),
              " \"a.bas\" cannot be saved. Nothing is lost: choose another place with Save As.");
    EXPECT_EQ(mAsked, "");
    EXPECT_TRUE(Document().IsModified());
    EXPECT_NE(mEngine->Context().prefs->SaveToFile(), 0);
  }
  EXPECT_EQ(mFolder.Read("a.bas"), "10 END\n");
  EXPECT_EQ(ReadSettings("ZokaBASIC_Prefs.arc"), prefs);
  Choose("_sav");
  EXPECT_EQ(mFolder.Read("a.bas"), "510 END\n");
}

TEST_F(TStartTest, AStartOnAFullDiskWorks) {
  const TFullDisk full;
  Start();
  EXPECT_EQ(mAsked, "");
  EXPECT_TRUE(Window().isVisible());
  End();
}

TEST_F(TStartTest, FourKeysHeldAtTheStartRemoveTheSettings) {
  Start();
  mEngine->Context().prefs->SVol = 33;
  ASSERT_EQ(mEngine->Context().prefs->SaveToFile(), 0);
  End();
  ASSERT_TRUE(HasSettings("ZokaBASIC_ExitStates.arc"));
  mPlace.modifiers = [] { return RESET_MODIFIERS; };
  MakeEngine();
  EXPECT_EQ(mEngine->Context().prefs->SVol.load(), 80);
  EXPECT_FALSE(HasSettings("ZokaBASIC_Prefs.arc"));
  EXPECT_FALSE(HasSettings("ZokaBASIC_ExitStates.arc"));
}

}  // namespace
}  // namespace zoka
