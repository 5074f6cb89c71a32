// Alerts of the windows: which key presses which button, and what waits while one is open.
#include "common/window/alert_dialogs.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTimer>
#include <QtTest/QTest>

#include "common/window/basic_window.h"

namespace zoka {
namespace {

constexpr int WAIT_MS = 30'000;

class AlertDialogs : public testing::Test {
 protected:
  /// A window that writes down its messages, and the answers to the alerts that some of them are.
  class TAskingWindow final : public TBasicWindow {
   public:
    TAskingWindow(TWindowContext& context, AlertDialogs& test, std::string name)
        : TBasicWindow(context), mTest(test), mName(std::move(name)) {}
    void MessageReceived(const TMessage& message) override {
      mTest.mLog += mName;
      if (message.what == message_code("ask")) mTest.mLog += "?" + mTest.Ask();
      if (message.what == message_code("next")) mTest.mLog += "n";
    }

   private:
    AlertDialogs& mTest;
    std::string mName;
  };

  std::string Ask() { return std::to_string(mAlerts.ShowAlert(mAlert, nullptr)); }
  /// Once an alert is open that was not yet, calls `asked` and then presses the key.
  void Answer(Qt::Key key, const std::function<void()>& asked = {}) {
    QTimer::singleShot(0, &mAnswers, [this, key, asked] {
      QMessageBox* const box = mAlerts.OpenDialog();
      if (box == nullptr || box == mAnswered) return Answer(key, asked);
      mAnswered = box;
      if (asked) asked();
      QTest::keyClick(box, key);
    });
  }
  std::string Answered(Qt::Key key) {
    Answer(key);
    return Ask();
  }

  TEngineContext mEngine;
  THandlerRegistry mRegistry;
  TWindowContext mContext{mEngine, mRegistry, {}};
  TAlertDialogs mAlerts;
  TAlert mAlert{"Text", "* Title *", {"Cancel", "No(N)", "Yes(Y)"}, 0};
  QPointer<QMessageBox> mAnswered;
  std::string mLog;
  TAskingWindow mMain{mContext, *this, "M"};
  TAskingWindow mRun{mContext, *this, "R"};
  QObject mAnswers;  // answers still to be given end with it
};

TEST_F(AlertDialogs, KeysPressTheirButtons) {
  EXPECT_EQ(Answered(Qt::Key_Escape), "0");
  EXPECT_EQ(Answered(Qt::Key_N), "1");
  EXPECT_EQ(Answered(Qt::Key_Y), "2");
  EXPECT_EQ(Answered(Qt::Key_Return), "2");
  mAlert.escapeIndex = 1;
  EXPECT_EQ(Answered(Qt::Key_Escape), "1");
  // The label of the other form; keys that no button has do nothing.
  mAlert.buttons = {"C・Cancel", "Run(1)"};
  Answer(Qt::Key_1, [this] { QTest::keyClick(mAlerts.OpenDialog(), Qt::Key_R); });
  EXPECT_EQ(Ask(), "1");
  EXPECT_EQ(Answered(Qt::Key_C), "0");
}

TEST_F(AlertDialogs, TheTextIsFollowedByTheTitle) {
  std::string text;
  int format = -1;
  Answer(Qt::Key_Escape, [&] {
    text = mAlerts.OpenDialog()->text().toStdString();
    format = mAlerts.OpenDialog()->textFormat();
  });
  mAlert.text = "<b>10</b> & more";
  Ask();
  EXPECT_EQ(text, "<b>10</b> & more\n\n* Title *");
  EXPECT_EQ(format, Qt::PlainText);
}

TEST_F(AlertDialogs, AWindowThatAsksWaitsAndOthersGoOn) {
  // Whichever window is in front.
  for (TAskingWindow* front : {&mMain, &mRun}) {
    mMain.show();
    mRun.show();
    front->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(front));
    mLog.clear();
    std::string meanwhile;
    Answer(Qt::Key_Y, [&] {
      mMain.PostMessage(TMessage("next"));
      if (front == &mMain) mRun.PostMessage(TMessage("next"));
      QApplication::processEvents();
      meanwhile = mLog;
    });
    mMain.PostMessage(TMessage("ask"));
    mMain.PostMessage(TMessage("next"));
    ASSERT_TRUE(QTest::qWaitFor([this] { return mLog.ends_with("MnMn"); }, WAIT_MS)) << mLog;
    EXPECT_EQ(meanwhile, front == &mMain ? "MRn" : "M");
    EXPECT_EQ(mLog, front == &mMain ? "MRn?2MnMn" : "M?2MnMn");
  }
}

TEST_F(AlertDialogs, AnAlertOverAnAlertComesBackToIt) {
  mMain.show();
  mRun.show();
  mMain.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&mMain));
  Answer(Qt::Key_Y, [this] {
    // Another window asks while the first one does.
    Answer(Qt::Key_N);
    mRun.PostMessage(TMessage("ask"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return mLog == "MR?1"; }, WAIT_MS)) << mLog;
    mAnswered = mAlerts.OpenDialog();
  });
  mMain.PostMessage(TMessage("ask"));
  ASSERT_TRUE(QTest::qWaitFor([this] { return mLog.size() > 4; }, WAIT_MS));
  EXPECT_EQ(mLog, "MR?1?2");
}

}  // namespace
}  // namespace zoka
