// The bases of windows: message queues, labels, places.
#include "common/window/basic_window.h"

#include <gtest/gtest.h>

#include <QScreen>
#include <thread>

#include "app/settings/inter_app_prefs.h"
#include "common/window/basic_view.h"
#include "common/window/menu_label.h"
#include "tests/window/waiting.h"

namespace zoka {
namespace {

TEST(MessageQueue, HandlesInOrderAndHoldsBack) {
  std::vector<int32_t> seen;
  TMessageQueue queue([&](const TMessage& message) {
    int32_t number = 0;
    message.FindInt32("n", &number);
    seen.push_back(number);
  });
  const auto post = [&](int32_t number) {
    TMessage message("test");
    message.AddInt32("n", number);
    queue.PostMessage(message);
  };
  queue.Hold();
  queue.Hold();
  std::thread other([&] {
    post(1);
    post(2);
  });
  other.join();
  QCoreApplication::processEvents();
  queue.Release();
  QCoreApplication::processEvents();
  EXPECT_TRUE(seen.empty());
  queue.Release();
  post(3);
  ASSERT_TRUE(until([&] { return seen.size() == 3; }));
  EXPECT_EQ(seen, (std::vector<int32_t>{1, 2, 3}));
}

TEST(MenuLabel, OnlyTheMergedLetterIsMarked) {
  TCatalogue catalogue;
  TInterAppPrefs prefs;
  TEngineContext context;
  context.catalogue = &catalogue;
  context.interAppPrefs = &prefs;
  const auto label = [&](const char* text, const char* key) {
    return menu_label(context, text, key).toStdString();
  };
  EXPECT_EQ(label("File", "F"), "File(&F)");
  EXPECT_EQ(label("Open...", "O"), "Open(&O)...");
  EXPECT_EQ(label("A & B", "A"), "A && B(&A)");
  EXPECT_EQ(label("A(A) B", "A"), "A(A) B(&A)");
  EXPECT_EQ(label("Help", "F1"), "Help(F1)");
  EXPECT_EQ(label("A&B", ""), "A&&B");
  prefs.SetString(ACC_KEY_FORMAT_ITEM, std::string("\x01") + "a) ");
  EXPECT_EQ(label("File", "F"), "&F) File");
  prefs.SetString(ACC_KEY_FORMAT_ITEM, "");
  EXPECT_EQ(label("File", "F"), "File");
}

TEST(MenuLabel, ButtonsOfAlertsMarkTheirOwnLetter) {
  EXPECT_EQ(marked_label("Yes(Y)"), "Yes(&Y)");
  EXPECT_EQ(marked_label("Y・Yes"), "&Y・Yes");
  EXPECT_EQ(marked_label("R&D"), "R&&D");
  EXPECT_EQ(marked_label("Help(F1)"), "Help(F1)");
}

class TWindowTest : public testing::Test {
 protected:
  TEngineContext mEngine;
  THandlerRegistry mRegistry;
  TWindowContext mContext{mEngine, mRegistry, {}};
};

TEST_F(TWindowTest, StaysOnTheScreen) {
  TBasicWindow window(mContext);
  window.resize(200, 100);
  window.show();
  const QRect free = window.screen()->availableGeometry();
  window.IntelligentMoveTo(QPoint(100'000, 100'000));
  EXPECT_TRUE(free.contains(window.frameGeometry()));
  window.MoveToFrame({-5000, -5000, 0, 0});
  EXPECT_EQ(window.pos(), free.topLeft());
  window.MoveToFrame({30, 40, 90, 90});
  EXPECT_EQ(window.Frame().left, 30);
  EXPECT_EQ(window.Frame().top, 40);
  EXPECT_EQ(window.Frame().right, 230);
}

TEST_F(TWindowTest, ClosingHidesUntilTheApplicationQuits) {
  TBasicWindow window(mContext);
  window.show();
  EXPECT_FALSE(window.QuitRequested());
  EXPECT_TRUE(window.isHidden());
  mEngine.privacy.quitting.store(true);
  EXPECT_TRUE(window.QuitRequested());
}

TEST_F(TWindowTest, MessagesReachAWindowByItsNumber) {
  class TLanguageWindow : public TBasicWindow {
   public:
    using TBasicWindow::TBasicWindow;
    void LanguageChanged() override { ++mCount; }
    int mCount = 0;
  } window(mContext);
  EXPECT_TRUE(mRegistry.Post(window.HandlerId(), TMessage(LANGUAGE_CHANGED_CODE)));
  EXPECT_TRUE(until([&] { return window.mCount == 1; }));
}

TEST(BasicView, TellsClicksFromDrags) {
  class TClickView : public TBasicView {
   public:
    void MouseClickLeftSingle(QPoint) override { mLog += "L"; }
    void MouseClickRightSingle(QPoint) override { mLog += "R"; }
    void MouseClickLeftDouble(QPoint) override { mLog += "D"; }
    void MouseDownLeft(QPoint) override { mLog += "d"; }
    void MouseDownRight(QPoint) override { mLog += "r"; }
    void MouseDragLeft(QPoint) override { mLog += "-"; }
    std::string mLog;
  } view;
  view.resize(300, 300);
  view.show();
  QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(10, 10));
  EXPECT_EQ(view.mLog, "dL");
  view.mLog.clear();
  QTest::mouseClick(&view, Qt::RightButton, {}, QPoint(10, 10));
  EXPECT_EQ(view.mLog, "rR");
  view.mLog.clear();
  QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(10, 10));
  QTest::mouseMove(&view, QPoint(100, 100));
  QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(100, 100));
  EXPECT_EQ(view.mLog, "d-");
  view.mLog.clear();
  QTest::mouseDClick(&view, Qt::LeftButton, {}, QPoint(200, 10));
  EXPECT_NE(view.mLog.find('D'), std::string::npos) << view.mLog;
}

}  // namespace
}  // namespace zoka
