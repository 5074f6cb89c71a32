// Where windows and panels stand that find strange things in the settings, and on which of several
// screens.
#include <QCheckBox>
#include <QComboBox>
#include <QScreen>

#include "app/settings/exit_states.h"
#include "common/window/screen_place.h"
#include "tests/window/start_rig.h"

namespace zoka {
namespace {

TEST(NearestArea, IsThatWithMostOfTheWindow) {
  const QRect left(0, 0, 1920, 1080);
  const QRect right(1920, 0, 1280, 1024);
  const QList<QRect> both{left, right};
  EXPECT_EQ(nearest_area(QRect(100, 100, 500, 400), both), left);
  EXPECT_EQ(nearest_area(QRect(2000, 100, 500, 400), both), right);
  // 250 pixels of it on each, and one more on the right.
  EXPECT_EQ(nearest_area(QRect(1670, 100, 500, 400), both), left);
  EXPECT_EQ(nearest_area(QRect(1671, 100, 500, 400), both), right);
  EXPECT_EQ(nearest_area(QRect(1671, 100, 500, 400), {right, left}), right);
}

TEST(NearestArea, IsTheNextOneForAWindowOutside) {
  const QRect left(0, 0, 1920, 1080);
  const QRect right(1920, 0, 1280, 1024);
  const QList<QRect> both{left, right};
  EXPECT_EQ(nearest_area(QRect(-900, 100, 500, 400), both), left);
  EXPECT_EQ(nearest_area(QRect(3208, 0, 500, 400), both), right);
  EXPECT_EQ(nearest_area(QRect(100, 5000, 500, 400), both), left);
  EXPECT_EQ(nearest_area(QRect(1'000'000, -1'000'000, 2'000'000, 1), both), right);
  EXPECT_EQ(nearest_area(QRect(0, 0, 0, 0), {right}), right);
}

class TStoredPlaces : public TStartRig {
 protected:
  void StartWith(const TFrame& frame, const std::string& folder = "") {
    TExitStates stored(&mPlace);
    stored.WFr = stored.RWFr = stored.DWFr = frame;
    stored.MWPF = stored.RWPF = folder;
    ASSERT_EQ(stored.SaveToFile(), 0);
    Start();
    mApp->DebugWindow().Appear();
    mApp->RunWindow().Appear();
  }
};

TEST_F(TStoredPlaces, FramesOfAnySizeComeToTheScreen) {
  constexpr float HUGE_SIDE = 3e38F;
  for (const TFrame& frame : {TFrame{-HUGE_SIDE, -HUGE_SIDE, HUGE_SIDE, HUGE_SIDE},
                              TFrame{HUGE_SIDE / 2, HUGE_SIDE / 2, HUGE_SIDE, HUGE_SIDE},
                              TFrame{-3e9F, 7, 3e9F, 3e9F}, TFrame{90'000, 5, 190'000, 90'000}}) {
    StartWith(frame);
    const QRect screen = Window().screen()->availableGeometry();
    for (const TBasicWindow* window : {static_cast<TBasicWindow*>(&Window()),
                                       static_cast<TBasicWindow*>(&mApp->DebugWindow())}) {
      EXPECT_EQ(window->size(), screen.size());
      EXPECT_EQ(window->pos(), screen.topLeft());
    }
    EXPECT_TRUE(screen.contains(mApp->RunWindow().pos()));
    End();
  }
}

TEST_F(TStoredPlaces, AFrameOfTheScreenIsTakenAsItIs) {
  StartWith({20, 30, 520, 430});
  for (const TBasicWindow* window :
       {static_cast<TBasicWindow*>(&Window()), static_cast<TBasicWindow*>(&mApp->DebugWindow())}) {
    EXPECT_EQ(window->pos(), QPoint(20, 30));
    EXPECT_EQ(window->size(), QSize(500, 400));
  }
  EXPECT_EQ(mApp->RunWindow().pos(), QPoint(20, 30));
}

TEST_F(TStoredPlaces, APanelWhoseFolderIsNoneOpensElsewhere) {
  for (const std::string& folder : {std::string("/no/such/folder"), std::string("/tmp/\0x", 7),
                                    std::string(200'000, 'x'), std::string("\xFF\xFE/\x80"),
                                    mFolder.Path("settings/ZokaBASIC/ZokaBASIC_ExitStates.arc")}) {
    StartWith(DEFAULT_MAIN_FRAME, folder);
    Post("_opn");
    ASSERT_NE(Window().OpenPanel(), nullptr);
    EXPECT_TRUE(Window().OpenPanel()->isVisible());
    EXPECT_TRUE(Window().OpenPanel()->directory().exists()) << folder.substr(0, 50);
    Window().OpenPanel()->reject();
    TMessage specify("spdf");
    specify.AddInt32("DrvFolderIdx", 0);
    mApp->RunWindow().PostMessage(specify);
    QApplication::processEvents();
    auto* const panel = mApp->RunWindow().findChild<QFileDialog*>();
    ASSERT_NE(panel, nullptr);
    EXPECT_TRUE(panel->isVisible());
    EXPECT_TRUE(panel->directory().exists()) << folder.substr(0, 50);
    End();
  }
}

TEST_F(TStoredPlaces, AHistoryOfStrangeNamesIsAMenu) {
  TMRUF stored;
  stored.SetMaxMRUF(12);
  const std::string names[] = {
      "/a\nb.bas", "/a\tb.bas", "/a&b.bas",  "/a[1].bas",   "",
      "/",         "..",        "/\xFF.bas", "/あ：い.bas", std::string("/\0z", 3),
      "/eleven",   "/twelve"};
  for (const std::string& name : names) stored.AddMRUF(name);
  std::filesystem::create_directories(mFolder.Path("settings/ZokaBASIC"));
  ASSERT_EQ(stored.Save(mFolder.Path("settings/ZokaBASIC/ZokaBASIC_MRUF.arc")), 0);
  Start();
  const QList<QAction*> items = Window().HistoryMenu()->actions();
  // Those, a line, and the item that forgets them all.
  ASSERT_EQ(items.size(), 14);
  EXPECT_EQ(items[0]->text().toStdString(), "twelve(&0)");
  EXPECT_EQ(items[3]->text().toStdString(), "あ(&3)：い.bas");
  EXPECT_EQ(items[8]->text().toStdString(), "a(&8)[1].bas");
  EXPECT_EQ(items[9]->text().toStdString(), "a&&b.bas(&9)");
  // The eleventh and the twelfth have no digit.
  EXPECT_EQ(items[10]->text().toStdString(), "a\tb.bas");
  EXPECT_EQ(items[11]->text().toStdString(), "a\nb.bas");
  // None of them is a list; each says so, once.
  for (int i = 0; i < 12; ++i) {
    AnswerNext(Qt::Key_Escape);
    items[i]->trigger();
    QApplication::processEvents();
    EXPECT_EQ(Document().CurPath(), "") << i;
  }
  EXPECT_EQ(Window().History().CountMRUFs(), 12);
}

TEST_F(TStoredPlaces, TheFieldsOfTheRenumberDialogTakeOneHalf) {
  for (const TLanguage language : {TLanguage::English, TLanguage::Japanese}) {
    MakeEngine(language);
    Start();
    Choose("rnmb");
    TRenumWindow& dialog = mApp->RenumWindow();
    ASSERT_TRUE(Until([&] { return dialog.isVisible(); }));
    EXPECT_EQ(dialog.objectName(), "RenumView");
    const char* const empty[] = {"10", "1", "10"};
    const QList<QLabel*> labels = dialog.findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 3);
    for (int i = 0; i < 3; ++i) {
      QLineEdit& field = *dialog.Field(static_cast<size_t>(i));
      EXPECT_EQ(field.placeholderText(), empty[i]);
      EXPECT_EQ(field.alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
      EXPECT_LE(std::abs(field.width() - labels[i]->width()), 1) << i;
    }
    End();
  }
}

TEST_F(TStoredPlaces, ALanguageThatIsSetElsewhereIsInTheWindowOfCommonPreferences) {
  // Other applications of the user are left out of this.
  const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
  qunsetenv("XDG_RUNTIME_DIR");
  Start();
  if (!before.isNull()) qputenv("XDG_RUNTIME_DIR", before);
  Choose("_Ssp");
  const auto window = [this] { return mApp->Preferences().CommonPrefs().Window(); };
  ASSERT_TRUE(Until([&] { return window() != nullptr && window()->isVisible(); }));
  auto* const menu = window()->findChild<QComboBox*>(LANGUAGE_ITEM);
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->currentData().toByteArray(), FOLLOW_SYSTEM);
  mApp->SetLanguage(TLanguage::Japanese);
  EXPECT_TRUE(Until([&] { return menu->currentData().toByteArray() == LANGUAGE_JAPANESE; }));
  ASSERT_TRUE(Until([this] { return Title().find("編集") != std::string::npos; })) << Title();
  // Cancel takes back what was set while the window was open.
  window()->ButtonCancelClicked();
  std::string language;
  mEngine->Context().interAppPrefs->GetString(LANGUAGE_ITEM, &language);
  EXPECT_EQ(language, FOLLOW_SYSTEM);
}

}  // namespace
}  // namespace zoka
