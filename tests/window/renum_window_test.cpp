// The renumber dialog: what its fields become.
#include "editor/window/renum_window.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>
#include <memory>
#include <vector>

#include "app/settings/inter_app_prefs.h"

namespace zoka {
namespace {

class TMailbox final : public THandler {
 public:
  void PostMessage(const TMessage& message) override { messages.push_back(message); }
  std::vector<TMessage> messages;
};

class TRenumWindowTest : public testing::Test {
 protected:
  TRenumWindowTest() {
    mContext.catalogue = &mCatalogue;
    mContext.interAppPrefs = &mPrefs;
    mWindow = std::make_unique<TRenumWindow>(nullptr, mContext, mRegistry);
    mWindow->SetTarget(mRegistry.Register(&mMailbox));
  }

  /// Confirms the dialog with these texts; what it sends, and what its fields then show.
  std::string Sent(const char* newLine, const char* oldLine, const char* step) {
    mWindow->Appear();
    const char* const texts[] = {newLine, oldLine, step};
    for (size_t i = 0; i < 3; ++i) mWindow->Field(i)->setText(texts[i]);
    QTest::keyClick(mWindow->Field(0), Qt::Key_Return);
    if (mMailbox.messages.empty()) return "nothing";
    const TMessage message = mMailbox.messages.back();
    std::string sent;
    for (const char* name : {"NewLine", "OldLine", "Step"}) {
      int32_t value = -1;
      message.FindInt32(name, &value);
      sent += std::to_string(value) + " ";
    }
    for (size_t i = 0; i < 3; ++i) sent += "[" + mWindow->Field(i)->text().toStdString() + "]";
    return sent;
  }

  TCatalogue mCatalogue;
  TInterAppPrefs mPrefs;
  TEngineContext mContext;
  THandlerRegistry mRegistry;
  TMailbox mMailbox;
  std::unique_ptr<TRenumWindow> mWindow;
};

TEST_F(TRenumWindowTest, TakesNumbersAsTheyAre) {
  EXPECT_EQ(Sent("100", "20", "5"), "100 20 5 [100][20][5]");
  EXPECT_FALSE(mWindow->isVisible());
  EXPECT_EQ(mMailbox.messages[0].what, message_code("rnmr"));
}

TEST_F(TRenumWindowTest, EmptyFieldsHaveTheirNumbers) {
  // No old line is 0, which is below 1 and put right in its field.
  EXPECT_EQ(Sent("", "", ""), "10 1 10 [][1][]");
}

TEST_F(TRenumWindowTest, WhatIsBelowOneBecomesOne) {
  EXPECT_EQ(Sent("0", "0", "0"), "1 1 1 [1][1][1]");
  EXPECT_EQ(Sent("-5", "-1", "-99"), "1 1 1 [1][1][1]");
  EXPECT_EQ(Sent("abc", "x", " "), "1 1 1 [1][1][1]");
}

TEST_F(TRenumWindowTest, GreatNumbersAreHeldBack) {
  EXPECT_EQ(Sent("99999999999", "1", "1"), "2147483647 1 1 [99999999999][1][1]");
}

TEST_F(TRenumWindowTest, CancelAndEscapeSendNothing) {
  mWindow->Appear();
  QTest::keyClick(mWindow->Field(0), Qt::Key_Escape);
  EXPECT_FALSE(mWindow->isVisible());
  EXPECT_TRUE(mMailbox.messages.empty());
}

}  // namespace
}  // namespace zoka
