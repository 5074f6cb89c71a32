// Lines followed through edits.
#include "editor/line_drift.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

TEST(LineDrift, WithoutEditsNothingMoves) {
  const TLineDrift drift;
  EXPECT_EQ(drift.Now(0), 0);
  EXPECT_EQ(drift.Then(7), 7);
}

TEST(LineDrift, NewLinesPushThoseBehindThem) {
  TLineDrift drift;
  drift.Note(2, 0, 3);
  EXPECT_EQ(drift.Now(1), 1);
  EXPECT_EQ(drift.Now(2), 5);
  EXPECT_EQ(drift.Then(1), 1);
  EXPECT_EQ(drift.Then(2), -1);
  EXPECT_EQ(drift.Then(4), -1);
  EXPECT_EQ(drift.Then(5), 2);
}

TEST(LineDrift, RemovedLinesAreGone) {
  TLineDrift drift;
  drift.Note(2, 3, 0);
  EXPECT_EQ(drift.Now(1), 1);
  EXPECT_EQ(drift.Now(2), -1);
  EXPECT_EQ(drift.Now(4), -1);
  EXPECT_EQ(drift.Now(5), 2);
  EXPECT_EQ(drift.Then(2), 5);
}

TEST(LineDrift, EditsAddUp) {
  TLineDrift drift;
  drift.Note(0, 0, 2);  // 0 1 | then-line 0 is 2
  drift.Note(3, 1, 0);  // then-line 1 is gone
  drift.Note(5, 0, 1);  // before then-line 4
  EXPECT_EQ(drift.Now(0), 2);
  EXPECT_EQ(drift.Now(1), -1);
  EXPECT_EQ(drift.Now(2), 3);
  EXPECT_EQ(drift.Now(3), 4);
  EXPECT_EQ(drift.Now(4), 6);
  for (int line : {0, 2, 3, 4, 100}) EXPECT_EQ(drift.Then(drift.Now(line)), line);
  EXPECT_EQ(drift.Then(5), -1);
}

TEST(LineDrift, AnotherTextLosesAllUntilTheNextReset) {
  TLineDrift drift;
  drift.Note(0, 0, 1);
  drift.LoseAll();
  EXPECT_EQ(drift.Now(0), -1);
  EXPECT_EQ(drift.Then(0), -1);
  drift.Reset();
  EXPECT_EQ(drift.Now(0), 0);
  EXPECT_EQ(drift.Then(0), 0);
}

}  // namespace
}  // namespace zoka
