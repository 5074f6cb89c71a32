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

TEST(TypedKeys, ACharacterEndsWithItsBytesOrBeforeAnotherLead) {
  struct TCase {
    const char* text;
    size_t soFar;     // while more may come; 0: the character is cut off
    size_t complete;  // when this is all
  };
  const TCase cases[] = {
      {"A", 1, 1},
      {"AB", 1, 1},
      {"é", 2, 2},
      {"あ", 3, 3},
      {"あい", 3, 3},
      {"😀", 4, 4},
      {"\xE3", 0, 1},
      {"\xE3\x81", 0, 2},
      {"\xF0\x9F\x98", 0, 3},
      {"\xE3\x81z", 2, 2},
      {"\xE3z", 1, 1},
      {"\xC3\xA9\xA9", 2, 2},
      {"\x81\x81", 1, 1},
      {"\xFF", 0, 1},  // leads no character, but looks like more than four bytes
      {"\xFF\x81\x81\x81\x81", 4, 4},
  };
  for (const TCase& test : cases) {
    EXPECT_EQ(typed_character(test.text, false), test.soFar) << test.text;
    EXPECT_EQ(typed_character(test.text, true), test.complete) << test.text;
  }
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
