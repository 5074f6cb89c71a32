// Tool tips: when they come, when they go, and that the next one comes at once. Time stands still;
// timers are let run out by hand.
#include "common/window/tool_tip.h"

#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QPushButton>
#include <QTimerEvent>
#include <QtTest/QTest>

namespace zoka {
namespace {

class ToolTip : public testing::Test {
 protected:
  ToolTip() {
    TToolTip::SetNow([this] { return mNow; });
    auto* const row = new QHBoxLayout(&mBar);
    for (QPushButton* button : {&mGo, &mStop}) {
      row->addWidget(button);
      new TToolTip(button);
    }
    mGo.setObjectName("Go");
    mGo.setToolTip("Goes on");
    mStop.setObjectName("Stop");
    mStop.setToolTip("Stops");
    mBar.show();
  }
  ~ToolTip() override { TToolTip::SetNow({}); }

  static void Send(QWidget& button, QEvent::Type type) {
    QEvent event(type);
    QApplication::sendEvent(&button, &event);
  }
  static void Enter(QWidget& button) {
    QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(&button, &event);
  }
  static std::string Shown() {
    return TToolTip::OpenWindow() ? TToolTip::OpenWindow()->text().toStdString() : "";
  }
  /// The time that a tip of this button waits for now; -1 if for none.
  static int Awaited(const QWidget& button) {
    QTimer* const timer = Running(button);
    return timer != nullptr ? timer->interval() : -1;
  }
  /// Lets that time be over.
  static void RunOut(const QWidget& button) {
    QTimer* const timer = Running(button);
    ASSERT_NE(timer, nullptr);
    QTimerEvent event(timer->timerId());
    QApplication::sendEvent(timer, &event);
  }

  int64_t mNow = 0;
  QWidget mBar;
  QPushButton mGo;
  QPushButton mStop;

 private:
  static QTimer* Running(const QWidget& button) {
    for (QObject* child : button.children()) {
      if (dynamic_cast<TToolTip*>(child) == nullptr) continue;
      for (QTimer* timer : child->findChildren<QTimer*>()) {
        if (timer->isActive()) return timer;
      }
    }
    return nullptr;
  }
};

TEST_F(ToolTip, ComesAfterASecondAndGoesAfterFive) {
  Enter(mGo);
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Awaited(mGo), 1000);
  RunOut(mGo);
  EXPECT_EQ(Shown(), "Goes on");
  EXPECT_EQ(TToolTip::OpenWindow()->objectName(), "TlTipWin_Go");
  EXPECT_EQ(Awaited(mGo), 5000);
  RunOut(mGo);
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Awaited(mGo), -1);
}

TEST_F(ToolTip, TheNextOneComesAtOnce) {
  Enter(mGo);
  RunOut(mGo);
  Send(mGo, QEvent::Leave);
  EXPECT_EQ(Shown(), "");
  mNow += 199;
  Enter(mStop);
  EXPECT_EQ(Shown(), "Stops");
  Send(mStop, QEvent::Leave);
  mNow += 200;
  Enter(mGo);
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Awaited(mGo), 1000);
}

TEST_F(ToolTip, LeavingOrPressingInTimeKeepsItAway) {
  for (const QEvent::Type type : {QEvent::Leave, QEvent::MouseButtonPress, QEvent::Hide}) {
    Enter(mGo);
    EXPECT_EQ(Awaited(mGo), 1000);
    if (type == QEvent::MouseButtonPress) {
      QTest::mousePress(&mGo, Qt::LeftButton);
    } else {
      Send(mGo, type);
    }
    EXPECT_EQ(Awaited(mGo), -1) << type;
    EXPECT_EQ(Shown(), "") << type;
  }
}

TEST_F(ToolTip, WithoutATextThereIsNone) {
  mGo.setToolTip("");
  Enter(mGo);
  RunOut(mGo);
  EXPECT_EQ(TToolTip::OpenWindow(), nullptr);
}

}  // namespace
}  // namespace zoka
