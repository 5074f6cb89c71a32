// The way back from jumps.
#include "editor/jump_history.h"

#include <gtest/gtest.h>

#include <array>

namespace zoka {
namespace {

TEST(JumpHistory, GoesBackInTurn) {
  TJumpHistory history;
  EXPECT_FALSE(history.Back());
  history.Leave(12);
  history.Leave(34);
  EXPECT_EQ(history.Back(), 34);
  EXPECT_EQ(history.Back(), 12);
  EXPECT_TRUE(history.IsEmpty());
}

TEST(JumpHistory, TheSamePlaceCountsOnce) {
  TJumpHistory history;
  history.Leave(12);
  history.Leave(12);
  history.Back();
  EXPECT_TRUE(history.IsEmpty());
}

TEST(JumpHistory, ForgetsTheOldest) {
  TJumpHistory history;
  const auto count = static_cast<int64_t>(TJumpHistory::MAX_PLACES);
  for (int64_t i = 0; i <= count; ++i) history.Leave(i);
  for (int64_t i = count; i >= 1; --i) EXPECT_EQ(history.Back(), i);
  EXPECT_FALSE(history.Back());
}

TEST(JumpHistory, KeepsToItsCharacter) {
  TJumpHistory history;
  for (const auto& [at, length, expected] :
       {std::array<int64_t, 3>{5, 3, 13}, {10, 2, 12}, {11, 4, 10}}) {
    history.Leave(10);
    history.Inserted(at, length);
    EXPECT_EQ(history.Back(), expected) << "put in at " << at;
  }
  for (const auto& [at, length, expected] :
       {std::array<int64_t, 3>{2, 3, 7}, {10, 4, 10}, {11, 4, 10}, {7, 3, 7}, {8, 100, 8}}) {
    history.Leave(10);
    history.Deleted(at, length);
    EXPECT_EQ(history.Back(), expected) << "taken out at " << at;
  }
}

}  // namespace
}  // namespace zoka
