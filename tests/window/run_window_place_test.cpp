// The run window's size when it is first shown. One that changes then makes window managers with
// frames put the window elsewhere, a frame's width farther with each start.
#include "tests/window/window_rig.h"

namespace zoka {
namespace {

class TRunWindowPlaceTest : public testing::TestWithParam<bool> {};

TEST_P(TRunWindowPlaceTest, TheSizeIsThereBeforeTheWindowIsShown) {
  const TTempFolder folder;
  TSettingsPlace place;
  place.root = folder.Path("settings");
  TAppEngine engine(place, TLanguage::English);
  engine.Context().exitStates->MBrS.store(GetParam());
  TBasicApp app(engine);
  TRunWindow& window = app.RunWindow();
  const QSize before = window.size();
  window.Appear();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window, WAIT_MS));
  QApplication::processEvents();
  EXPECT_EQ(window.size(), before);
  EXPECT_EQ(window.IsMenuBarShown(), GetParam());
  if (!GetParam()) {
    EXPECT_EQ(before, QSize(640, 400));
  }
}

INSTANTIATE_TEST_SUITE_P(MenuBar, TRunWindowPlaceTest, testing::Bool());

}  // namespace
}  // namespace zoka
