// What the live display writes for a changed screen.
#include "console/terminal_screen.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

class TerminalScreen : public testing::Test {
 protected:
  TerminalScreen() : mClock(make_simulated_clock()), mRsrc(*mClock) {}
  std::string Update() { return mScreen.Update(mRsrc.TxtSnapshot()); }

  std::unique_ptr<TClock> mClock;
  TBasicRsrc mRsrc;
  TTerminalScreen mScreen;
};

TEST_F(TerminalScreen, WritesAllRowsAtFirstAndNothingWithoutAChange) {
  std::string first = Update();
  EXPECT_TRUE(first.starts_with("\x1b[?25l\x1b[0m\x1b[2J"));
  EXPECT_NE(first.find("\x1b[25;1H"), std::string::npos);
  EXPECT_EQ(Update(), "");
}

TEST_F(TerminalScreen, WritesTheRowThatChangedWithItsColours) {
  Update();
  mRsrc.Print("A");
  mRsrc.SetTxtColor(2);
  mRsrc.Print("あ");
  EXPECT_EQ(Update(), "\x1b[?25l\x1b[1;1H\x1b[97mA\x1b[91mあ\x1b[0m\x1b[K");
}

TEST_F(TerminalScreen, ShowsTheCursorWhereInputWaits) {
  Update();
  mRsrc.SetCursorPos(82);
  mRsrc.SetCursorShown(true);
  EXPECT_EQ(Update(), "\x1b[?25l\x1b[2;3H\x1b[?25h");
}

TEST_F(TerminalScreen, CutsToASmallTerminal) {
  mScreen.SetSize(2, 3);
  Update();
  mRsrc.Print("ABCDE");
  mRsrc.SetCursorPos(240);
  mRsrc.Print("X");
  EXPECT_EQ(Update(), "\x1b[?25l\x1b[1;1H\x1b[97mABC\x1b[0m\x1b[K");
}

TEST_F(TerminalScreen, LeavesBelowTheLastRow) {
  mRsrc.SetCursorPos(160);
  mRsrc.Print("X");
  Update();
  EXPECT_EQ(mScreen.Leave(), "\x1b[0m\x1b[3;1H\r\n\x1b[?25h");
}

}  // namespace
}  // namespace zoka
