// The storage of variables: strides, slots, limits.
#include "core/var_info.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace zoka {
namespace {

void set_dims(TVarInfo* var, const std::vector<int32_t>& dims) {
  var->dimCount = static_cast<int32_t>(dims.size());
  std::copy(dims.begin(), dims.end(), var->dims);
  var->dims[dims.size()] = 0;
}

TEST(VarInfo, PlainVariableHasTwoSlots) {
  TVarInfo var;
  var.CreateDefaultNonArray(ttInt);
  EXPECT_EQ(var.kind, ttInt);
  EXPECT_EQ(var.dimCount, 0);
  EXPECT_EQ(var.strides[0], 1);
  EXPECT_EQ(var.slotCount, 2);
  EXPECT_EQ(var.ints[0], 0);
  EXPECT_EQ(var.ints[1], 0);
}

TEST(VarInfo, UnsettledKindHasNoStorage) {
  TVarInfo var;
  var.CreateDefaultNonArray(ttVoid);
  EXPECT_EQ(var.data, nullptr);
  EXPECT_EQ(var.slotCount, 2);
}

TEST(VarInfo, StridesAreProductsFromTheLastSubscript) {
  TVarInfo var;
  var.CreateDefaultNonArray(ttDbl);
  set_dims(&var, {5, 3, 2});  // DIM A(1,2,4)
  ASSERT_TRUE(var.Create(true));
  EXPECT_EQ(var.strides[0], 1);
  EXPECT_EQ(var.strides[1], 5);
  EXPECT_EQ(var.strides[2], 15);
  EXPECT_EQ(var.strides[3], 30);
  EXPECT_EQ(var.slotCount, 31);
  EXPECT_TRUE(std::all_of(var.doubles, var.doubles + 31, [](double d) { return d == 0; }));
}

TEST(VarInfo, DefaultArrayKeepsThePlainValue) {
  TVarInfo var;
  var.CreateDefaultNonArray(ttSng);
  var.floats[0] = 2.5f;
  ASSERT_TRUE(var.CreateDefaultArray(2));
  EXPECT_EQ(var.dimCount, 2);
  EXPECT_EQ(var.dims[0], 11);
  EXPECT_EQ(var.dims[1], 11);
  EXPECT_EQ(var.dims[2], 0);
  EXPECT_EQ(var.strides[2], 121);
  EXPECT_EQ(var.slotCount, 122);
  EXPECT_EQ(var.floats[0], 2.5f);
  EXPECT_EQ(var.floats[1], 0.0f);
}

TEST(VarInfo, CreatingAgainEmptiesTheElements) {
  TVarInfo var;
  var.CreateDefaultNonArray(ttInt);
  var.ints[0] = 5;
  set_dims(&var, {4});
  ASSERT_TRUE(var.Create(true));
  var.ints[2] = 7;
  ASSERT_TRUE(var.Create(true));
  EXPECT_EQ(var.ints[2], 0);
  EXPECT_EQ(var.ints[0], 5);
  ASSERT_TRUE(var.Create(false));
  EXPECT_EQ(var.ints[0], 0);
}

TEST(VarInfo, TextsAreKeptAndFreed) {
  TMemoryBudget budget;
  TTextBlock::SetBudget(&budget);
  {
    TVarInfo var;
    var.CreateDefaultNonArray(ttStr);
    var.texts[0] = TText("PLAIN");
    ASSERT_TRUE(var.CreateDefaultArray(1));
    EXPECT_EQ(var.texts[0].View(), "PLAIN");
    EXPECT_EQ(var.texts[11].View(), "");
    var.texts[11] = TText("LAST");
    ASSERT_TRUE(var.Create(true));
    EXPECT_EQ(var.texts[11].View(), "");
    var.CreateDefaultNonArray(ttInt);
    EXPECT_EQ(var.ints[0], 0);
    EXPECT_EQ(budget.used, 0);
    var.CreateDefaultNonArray(ttStr);
    var.texts[0] = TText("AGAIN");
  }
  EXPECT_EQ(budget.used, 0);
  TTextBlock::SetBudget(nullptr);
}

TEST(VarInfo, PicturesGo) {
  TVarInfo var;
  var.CreateDefaultNonArray(ttInt);
  var.bitmaps[1] = nullptr;
  ASSERT_TRUE(var.Create(true));
  EXPECT_TRUE(var.bitmaps.empty());
}

TEST(VarInfo, NegativeSizesLeaveOnlyThePlainSlot) {
  TVarInfo var;
  var.CreateDefaultNonArray(ttInt);
  var.ints[0] = 9;
  set_dims(&var, {-4});  // DIM A(-5)
  ASSERT_TRUE(var.Create(true));
  EXPECT_EQ(var.strides[1], -4);
  EXPECT_EQ(var.slotCount, 1);
  EXPECT_EQ(var.ints[0], 9);
  set_dims(&var, {0});  // no element at all
  ASSERT_TRUE(var.Create(true));
  EXPECT_EQ(var.strides[1], 0);
  EXPECT_EQ(var.slotCount, 1);
  set_dims(&var, {-4, -3});  // two wrongs make an array of 12
  ASSERT_TRUE(var.Create(true));
  EXPECT_EQ(var.strides[2], 12);
  EXPECT_EQ(var.slotCount, 13);
}

TEST(VarInfo, DimensionsAreLimited) {
  TVarInfo var;
  var.CreateDefaultNonArray(ttInt);
  set_dims(&var, std::vector<int32_t>(MAX_DIMENSIONS, 1));
  EXPECT_TRUE(var.Create(true));
  EXPECT_EQ(var.strides[MAX_DIMENSIONS], 1);
  var.dimCount = MAX_DIMENSIONS + 1;
  EXPECT_FALSE(var.Create(true));
  var.dimCount = -1;
  EXPECT_FALSE(var.Create(true));
  EXPECT_FALSE(var.CreateDefaultArray(MAX_DIMENSIONS + 1));
  EXPECT_FALSE(var.CreateDefaultArray(-1));
}

TEST(VarInfo, TooManyElementsChangeNothing) {
  TVarInfo var;
  var.CreateDefaultNonArray(ttInt);
  set_dims(&var, {4});
  ASSERT_TRUE(var.Create(true));
  var.ints[3] = 7;
  set_dims(&var, {2147483647});
  EXPECT_FALSE(var.Create(true));
  set_dims(&var, {65536, 65536});  // 0 in 32 bits
  EXPECT_FALSE(var.Create(true));
  set_dims(&var, {65536, 65536, 0});  // refused at the step, whatever follows
  EXPECT_FALSE(var.Create(true));
  set_dims(&var, {65536, -65536});
  EXPECT_FALSE(var.Create(true));
  EXPECT_FALSE(var.CreateDefaultArray(9));  // 11^9
  EXPECT_EQ(var.slotCount, 5);
  EXPECT_EQ(var.strides[1], 4);
  EXPECT_EQ(var.ints[3], 7);
}

TEST(VarInfo, BudgetRefusesLargeArrays) {
  TMemoryBudget budget;
  budget.limit = 1'000'000;
  TVarInfo var;
  var.CreateDefaultNonArray(ttInt);
  EXPECT_FALSE(var.CreateDefaultArray(8, &budget));  // 11^8 elements
  EXPECT_EQ(budget.used, 0);
  ASSERT_TRUE(var.CreateDefaultArray(2, &budget));
  EXPECT_EQ(budget.used, 488);
  set_dims(&var, {249'999});
  ASSERT_TRUE(var.Create(true, &budget));  // in place of the 488 bytes
  EXPECT_EQ(budget.used, 1'000'000);
  set_dims(&var, {250'000});
  EXPECT_FALSE(var.Create(true, &budget));
  EXPECT_EQ(budget.used, 1'000'000);
}

}  // namespace
}  // namespace zoka
