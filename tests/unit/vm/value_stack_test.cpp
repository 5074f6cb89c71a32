// The stack of values: depth with forgotten values, return records, memory.
#include "vm/value_stack.h"

#include <gtest/gtest.h>

#include <string>

namespace zoka {
namespace {

class ValueStackTest : public testing::Test {
 protected:
  void PushInts(int64_t count) {
    for (int64_t i = 0; i < count; ++i) stack.Push(TStackData::Of(static_cast<int32_t>(i)));
  }
  TStackData Pop() {
    bool empty = false;
    const TStackData value = stack.PopSlow(&empty);
    EXPECT_FALSE(empty);
    return value;
  }

  TMemoryBudget budget;
  TValueStack stack{&budget};
};

TEST_F(ValueStackTest, StartsEmpty) {
  bool empty = false;
  EXPECT_TRUE(stack.IsEmpty());
  EXPECT_EQ(stack.Depth(), 0);
  EXPECT_EQ(stack.TopKind(), TStackKind::Gap);
  stack.PopSlow(&empty);
  EXPECT_TRUE(empty);
}

TEST_F(ValueStackTest, LastInFirstOut) {
  PushInts(1000);
  for (int32_t i = 999; i >= 0; --i) EXPECT_EQ(Pop().lval, i);
  EXPECT_TRUE(stack.IsEmpty());
}

TEST_F(ValueStackTest, NothingIsForgottenAtTheLimit) {
  PushInts(STACK_SEGMENT_LIMIT);
  for (int64_t i = STACK_SEGMENT_LIMIT; i-- > 0;) EXPECT_EQ(Pop().lval, i);
  EXPECT_TRUE(stack.IsEmpty());
}

TEST_F(ValueStackTest, OnePastTheLimitTheOldestAreForgotten) {
  PushInts(STACK_SEGMENT_LIMIT + 1);
  EXPECT_EQ(stack.Depth(), STACK_SEGMENT_LIMIT + 1);
  for (int64_t i = 0; i <= STACK_SEGMENT_KEPT; ++i) {
    EXPECT_EQ(Pop().lval, STACK_SEGMENT_LIMIT - i);
  }
  // What was forgotten still counts, and pops as nothing in particular.
  EXPECT_EQ(stack.Depth(), STACK_SEGMENT_LIMIT - STACK_SEGMENT_KEPT);
  EXPECT_FALSE(stack.HasPlain());
  for (int64_t i = STACK_SEGMENT_LIMIT - STACK_SEGMENT_KEPT; i-- > 0;) {
    EXPECT_EQ(Pop().kind, TStackKind::Gap);
    EXPECT_EQ(stack.Depth(), i);
  }
  EXPECT_TRUE(stack.IsEmpty());
}

TEST_F(ValueStackTest, TenMillionRoundsStayBounded) {
  PushInts(2000);
  const int64_t used = budget.used;
  for (int i = 0; i < 10'000'000; ++i) stack.Push(TStackData::Of(i));
  EXPECT_EQ(stack.Depth(), 10'002'000);
  EXPECT_LE(stack.Capacity(), 2 * STACK_SEGMENT_LIMIT);
  EXPECT_LE(budget.used - used, 1 << 20);
}

TEST_F(ValueStackTest, ReturnRestoresTheDepth) {
  PushInts(40000);
  const int64_t depth = stack.Depth();
  stack.PushReturn(77);
  EXPECT_EQ(stack.Depth(), depth + 1);
  EXPECT_FALSE(stack.HasPlain());
  PushInts(100000);
  EXPECT_EQ(stack.Depth(), depth + 1 + 100000);
  int32_t index = 0;
  EXPECT_TRUE(stack.PopToReturn(&index));
  EXPECT_EQ(index, 77);
  EXPECT_EQ(stack.Depth(), depth);
  EXPECT_EQ(Pop().lval, 39999);
}

TEST_F(ValueStackTest, RecordsAreNeverForgotten) {
  for (int32_t i = 0; i < 100000; ++i) stack.PushReturn(i);
  EXPECT_EQ(stack.Depth(), 100000);
  int32_t index = 0;
  for (int32_t i = 99999; i >= 0; --i) {
    ASSERT_TRUE(stack.PopToReturn(&index));
    ASSERT_EQ(index, i);
  }
  EXPECT_FALSE(stack.PopToReturn(&index));
}

TEST_F(ValueStackTest, ReturnWithoutRecordEmpties) {
  PushInts(50000);
  int32_t index = 0;
  EXPECT_FALSE(stack.PopToReturn(&index));
  EXPECT_TRUE(stack.IsEmpty());
}

TEST_F(ValueStackTest, GarbagePopTakesARecordWithItsSideEntry) {
  PushInts(2);
  stack.PushReturn(5);
  PushInts(STACK_SEGMENT_LIMIT + 1);
  for (int64_t i = 0; i < STACK_SEGMENT_LIMIT + 1; ++i) Pop();
  EXPECT_EQ(stack.TopKind(), TStackKind::Return);
  EXPECT_EQ(Pop().kind, TStackKind::Return);
  EXPECT_EQ(stack.ReturnRecordCount(), 0);
  EXPECT_EQ(stack.Depth(), 2);
  EXPECT_EQ(Pop().lval, 1);
}

TEST_F(ValueStackTest, ASegmentBelowARecordKeepsItsOwnGap) {
  PushInts(STACK_SEGMENT_LIMIT + 1);
  stack.PushReturn(9);
  int32_t index = 0;
  ASSERT_TRUE(stack.PopToReturn(&index));
  for (int64_t i = 0; i <= STACK_SEGMENT_KEPT; ++i) Pop();
  EXPECT_EQ(stack.TopKind(), TStackKind::Gap);
  EXPECT_EQ(stack.Depth(), STACK_SEGMENT_LIMIT - STACK_SEGMENT_KEPT);
  // New values above a gap are plain again.
  PushInts(1);
  EXPECT_TRUE(stack.HasPlain(1));
  EXPECT_FALSE(stack.HasPlain(2));
}

TEST_F(ValueStackTest, TextsAreReleasedHoweverTheyGo) {
  TTextBlock::SetBudget(&budget);
  const int64_t before = budget.used;
  for (int i = 0; i < 40000; ++i) {
    TTextBlock* block = TTextBlock::Create("x", 1);
    stack.Push(TStackData::OfText(block, 1));
    if (i == 20000) stack.PushReturn(1);
  }
  int32_t index = 0;
  ASSERT_TRUE(stack.PopToReturn(&index));
  stack.Clear();
  EXPECT_EQ(budget.used - before,
            stack.Capacity() * static_cast<int64_t>(sizeof(TStackData)) + 16 * 16);
  TTextBlock::SetBudget(nullptr);
}

TEST_F(ValueStackTest, GrowthBeyondTheBudgetIsRefused) {
  budget.limit = 100 * static_cast<int64_t>(sizeof(TStackData));
  EXPECT_THROW(PushInts(1), std::bad_alloc);
  EXPECT_TRUE(stack.IsEmpty());
}

TEST(StackData, RoundsHalvesUpward) {
  EXPECT_EQ(round_off(2.5), 3);
  EXPECT_EQ(round_off(-2.5), -2);
  EXPECT_EQ(round_off(-2.6), -3);
  EXPECT_EQ(round_off(0.4), 0);
  EXPECT_EQ(round_off(0.5), 1);
  EXPECT_EQ(round_off(-0.5), 0);
  EXPECT_EQ(round_off(2147483647.4), 2147483647);
  EXPECT_EQ(round_off(2147483647.5), INT32_MIN);
  EXPECT_EQ(round_off(-2147483648.4), INT32_MIN);
  EXPECT_EQ(round_off(1e300), INT32_MIN);
  EXPECT_EQ(round_off(-1e300), INT32_MIN);
  EXPECT_EQ(round_off(std::numeric_limits<double>::quiet_NaN()), INT32_MIN);
  EXPECT_EQ(round_off(std::numeric_limits<double>::infinity()), INT32_MIN);
}

TEST(StackData, OtherKindsReadAsNothing) {
  for (TStackKind kind : {TStackKind::Gap, TStackKind::Var, TStackKind::Special, TStackKind::Abbrev,
                          TStackKind::Return, TStackKind::Bool}) {
    TStackData value = TStackData::Of(5, kind);
    EXPECT_EQ(stack_int(value), 0);
    EXPECT_EQ(stack_float(value), 0);
    EXPECT_EQ(stack_double(value), 0);
  }
  EXPECT_FALSE(stack_bool(TStackData::Of(-1)));
  EXPECT_TRUE(stack_bool(TStackData::OfBool(true)));
}

TEST(StackData, ASingleIsWidenedBeforeTheHalfIsAdded) {
  EXPECT_EQ(stack_int(TStackData::Of(8388609.0f)), 8388609);
  EXPECT_EQ(stack_int(TStackData::Of(0.49999997f)), 0);
}

}  // namespace
}  // namespace zoka
