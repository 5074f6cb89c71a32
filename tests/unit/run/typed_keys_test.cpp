// The key matrix of typed keys: which key a byte comes from, and how long it is down.
#include "run/typed_keys.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

TEST(TypedKeys, EachByteHasTheKeyOfAJapaneseKeyboard) {
  EXPECT_EQ(typed_key_code("1"), 0x12);
  EXPECT_EQ(typed_key_code("0"), 0x1B);
  EXPECT_EQ(typed_key_code("^"), 0x1D);
  EXPECT_EQ(typed_key_code("q"), 0x27);
  EXPECT_EQ(typed_key_code("@"), 0x31);
  EXPECT_EQ(typed_key_code("["), 0x32);
  EXPECT_EQ(typed_key_code("]"), 0x33);
  EXPECT_EQ(typed_key_code("a"), 0x3C);
  EXPECT_EQ(typed_key_code(":"), 0x46);
  EXPECT_EQ(typed_key_code("z"), 0x4C);
  EXPECT_EQ(typed_key_code("/"), 0x55);
  EXPECT_EQ(typed_key_code("\\"), 0x6A);
  EXPECT_EQ(typed_key_code(" "), 0x5E);
  EXPECT_EQ(typed_key_code("\x0A"), 0x47);
  EXPECT_EQ(typed_key_code("\x1E"), 0x57);
}

TEST(TypedKeys, AShiftedByteComesFromTheSameKey) {
  EXPECT_EQ(typed_key_code("A"), typed_key_code("a"));
  EXPECT_EQ(typed_key_code("!"), typed_key_code("1"));
  EXPECT_EQ(typed_key_code("="), typed_key_code("-"));
  EXPECT_EQ(typed_key_code("*"), typed_key_code(":"));
}

TEST(TypedKeys, WhatNoSingleKeyTypesHasNone) {
  EXPECT_EQ(typed_key_code("あ"), 0);
  EXPECT_EQ(typed_key_code(""), 0);
  EXPECT_EQ(typed_key_code("ab"), 0);
  EXPECT_EQ(typed_key_code("\x02"), 0);
}

TEST(TypedKeys, FunctionKeys) {
  EXPECT_EQ(function_key_code(1), 0x02);
  EXPECT_EQ(function_key_code(12), 0x0D);
  EXPECT_EQ(function_key_code(0), 0);
  EXPECT_EQ(function_key_code(13), 0);
}

TEST(TypedKeys, AKeyIsDownFor50Milliseconds) {
  TTypedKeys keys;
  EXPECT_FALSE(keys.IsDown(0x3C, 0));
  keys.Push(0x3C, 1'000);
  EXPECT_TRUE(keys.IsDown(0x3C, 1'000));
  EXPECT_FALSE(keys.IsDown(0x3D, 1'000));
  EXPECT_TRUE(keys.IsDown(0x3C, 50'999));
  EXPECT_FALSE(keys.IsDown(0x3C, 51'000));
}

TEST(TypedKeys, PushedAgainItStaysDown) {
  TTypedKeys keys;
  keys.Push(0x3C, 0);
  keys.Push(0x3C, 40'000);
  EXPECT_TRUE(keys.IsDown(0x3C, 89'999));
}

TEST(TypedKeys, CodesOutsideTheMatrixAreNoKeys) {
  TTypedKeys keys;
  keys.Push(0, 0);
  keys.Push(128, 0);
  EXPECT_FALSE(keys.IsDown(0, 0));
  EXPECT_FALSE(keys.IsDown(128, 0));
}

}  // namespace
}  // namespace zoka
