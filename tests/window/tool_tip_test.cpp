// Tool tips: when they come, when they go, and that the next one comes at once.
#include "common/window/tool_tip.h"

#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QPushButton>
#include <QtTest/QTest>

namespace zoka {
namespace {

constexpr int WAIT_MS = 30'000;

class ToolTip : public testing::Test {
 protected:
  ToolTip() {
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
    // Long after the tip of any other test.
    QTest::qWait(TOOL_TIP_AGAIN_MS + 1);
  }
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
  static qint64 WaitFor(const char* text) {
    QElapsedTimer time;
    time.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown() == text; }, WAIT_MS));
    return time.elapsed();
  }

  QWidget mBar;
  QPushButton mGo;
  QPushButton mStop;
};

TEST_F(ToolTip, ComesAfterASecondAndGoesAfterFive) {
  Enter(mGo);
  EXPECT_GE(WaitFor("Goes on"), TOOL_TIP_SHOW_MS - 50);
  EXPECT_EQ(TToolTip::OpenWindow()->objectName(), "TlTipWin_Go");
  EXPECT_GE(WaitFor(""), TOOL_TIP_HIDE_MS - 50);
}

TEST_F(ToolTip, TheNextOneComesAtOnce) {
  Enter(mGo);
  WaitFor("Goes on");
  Send(mGo, QEvent::Leave);
  EXPECT_EQ(Shown(), "");
  Enter(mStop);
  EXPECT_EQ(Shown(), "Stops");
  Send(mStop, QEvent::Leave);
  QTest::qWait(TOOL_TIP_AGAIN_MS + 1);
  Enter(mGo);
  EXPECT_EQ(Shown(), "");
}

TEST_F(ToolTip, LeavingOrPressingInTimeKeepsItAway) {
  for (const QEvent::Type type : {QEvent::Leave, QEvent::MouseButtonPress, QEvent::Hide}) {
    Enter(mGo);
    if (type == QEvent::MouseButtonPress) {
      QTest::mousePress(&mGo, Qt::LeftButton);
    } else {
      Send(mGo, type);
    }
    QTest::qWait(TOOL_TIP_SHOW_MS + 50);
    EXPECT_EQ(Shown(), "") << type;
  }
}

TEST_F(ToolTip, WithoutATextThereIsNone) {
  mGo.setToolTip("");
  Enter(mGo);
  QTest::qWait(TOOL_TIP_SHOW_MS + 50);
  EXPECT_EQ(TToolTip::OpenWindow(), nullptr);
}

}  // namespace
}  // namespace zoka
