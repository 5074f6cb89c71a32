// The way back from jumps.
#include "editor/jump_history.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

TEST(JumpHistory, GoesBackInTurn) {
  TJumpHistory history;
  EXPECT_FALSE(history.Back());
  history.Leave({1, 2});
  history.Leave({3, 4});
  EXPECT_EQ(history.Back(), (TListPlace{3, 4}));
  EXPECT_EQ(history.Back(), (TListPlace{1, 2}));
  EXPECT_TRUE(history.IsEmpty());
}

TEST(JumpHistory, TheSamePlaceCountsOnce) {
  TJumpHistory history;
  history.Leave({1, 2});
  history.Leave({1, 2});
  history.Back();
  EXPECT_TRUE(history.IsEmpty());
}

TEST(JumpHistory, ForgetsTheOldest) {
  TJumpHistory history;
  const auto count = static_cast<int64_t>(TJumpHistory::MAX_PLACES);
  for (int64_t i = 0; i <= count; ++i) history.Leave({i, 0});
  for (int64_t i = count; i >= 1; --i) EXPECT_EQ(history.Back(), (TListPlace{i, 0}));
  EXPECT_FALSE(history.Back());
}

TEST(JumpHistory, FollowsItsLine) {
  TJumpHistory history;
  history.Leave({10, 3});
  history.LinesReplaced(4, 1, 3);
  history.LinesReplaced(20, 1, 5);
  EXPECT_EQ(history.Back(), (TListPlace{12, 3}));
  history.Leave({10, 3});
  history.LinesReplaced(4, 3, 1);
  EXPECT_EQ(history.Back(), (TListPlace{8, 3}));
}

TEST(JumpHistory, AKeyWithinTheLineMovesNothing) {
  TJumpHistory history;
  history.Leave({10, 3});
  history.LinesReplaced(10, 1, 1);
  EXPECT_EQ(history.Back(), (TListPlace{10, 3}));
}

TEST(JumpHistory, ALineThatIsGoneLeavesItsPlace) {
  TJumpHistory history;
  history.Leave({5, 3});
  history.LinesReplaced(4, 3, 1);
  EXPECT_EQ(history.Back(), (TListPlace{4, 0}));
}

}  // namespace
}  // namespace zoka
