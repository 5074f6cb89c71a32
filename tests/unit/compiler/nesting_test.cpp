// Deep nesting ends in a syntax error instead of the compiler's stack, long lists are compiled in
// time that grows with their length, and no bytes make the compiler hang.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/support/code_listing.h"

namespace zoka {
namespace {

using test::fault_of;
using test::listing_of;
using test::TCompiling;

constexpr int DEEP = 10'000;
constexpr char SYNTAX[] = "@Compile_Err_Syntax_Err@";

std::string repeated(int count, const std::string& piece) {
  std::string text;
  for (int i = 0; i < count; ++i) text += piece;
  return text;
}

TEST(Nesting, OfStatements) {
  for (const char* piece :
       {"A=(", "A(", "IF 1 THEN ", "FOR I=1 TO 2:", "FOR I=1 TO 2\n10 ", "WHILE 1:", "POKE ("}) {
    EXPECT_EQ(listing_of("10 " + repeated(DEEP, piece)), SYNTAX) << piece;
  }
}

TEST(Nesting, OfExpressions) {
  for (const char* piece : {"(", "NOT ", "-", "+", "2^NOT ", "LEN(", "FNA(", "B(", "(\n20 "}) {
    EXPECT_EQ(listing_of("10 A=" + repeated(DEEP, piece) + "1"), SYNTAX) << piece;
  }
}

TEST(Nesting, OfIgnoredArguments) {
  EXPECT_EQ(listing_of("10 POKE " + repeated(DEEP, "(")), SYNTAX);
  EXPECT_EQ(fault_of("10 A=FRE" + repeated(DEEP, "(") + "1" + repeated(DEEP, ")")), "compiles");
}

TEST(Nesting, UpToTheLimit) {
  // The outermost expression and the right side of the assignment count too.
  const int depth = MAX_COMPILER_DEPTH - 2;
  EXPECT_EQ(fault_of("10 A=" + repeated(depth, "(") + "1"), "compiles");
  EXPECT_EQ(listing_of("10 A=" + repeated(depth + 1, "(") + "1"), SYNTAX);
}

TEST(Nesting, DepthIsLeftAgain) {
  EXPECT_EQ(fault_of("10 " + repeated(3000, "A=((1)):IF A THEN B=-1\n20 ") + "END"), "compiles");
  EXPECT_EQ(fault_of("10 A=" + repeated(DEEP, "1+") + "1"), "compiles");
}

TEST(Length, CodeGrowsWithTheList) {
  std::string source;
  for (int i = 1; i <= 20'000; ++i) source += std::to_string(i) + " A=1\n";
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile(source), TCompileResult::Runnable);
  EXPECT_EQ(compiling.code.mCodes.size(), 20'000u * 5 + 2);
  EXPECT_EQ(compiling.code.FindLine(20'000), 19'999 * 5 + 1);
}

// Pieces of the language in any order: whatever comes out, it comes out.
TEST(Robustness, AnyOrderOfWordsEnds) {
  const char* const PIECES[] = {
      "A",    "B$",   "1",      "2.5",  "\"S\"", "(",    ")",     "[",    "]",    ",",    ";",
      ":",    "=",    "<",      "+",    "-",     "*",    "^",     "\\",   "NOT",  "AND",  "IF",
      "THEN", "ELSE", "FOR",    "TO",   "STEP",  "NEXT", "WHILE", "WEND", "GOTO", "ON",   "FNA",
      "DEF",  "DIM",  "PRINT",  "#1",   "#",     "?",    "'",     "\n10", "DATA", "READ", "USING",
      "LEN",  "MID$", "DEFINT", "LINE", "@",     "AS",   "INPUT", "KEY",  "\xE3", "SWAP", "TIME$"};
  std::mt19937 random(1);
  std::uniform_int_distribution<size_t> pick(0, std::size(PIECES) - 1);
  TCompiling compiling;
  for (int round = 0; round < 3000; ++round) {
    std::string source = "10";
    for (int i = 0; i < 12; ++i) source += std::string(" ") + PIECES[pick(random)];
    const TCompileResult result = compiling.Compile(source);
    ASSERT_NE(result, TCompileResult::Cancelled) << source;
    ASSERT_EQ(result == TCompileResult::Failed, !compiling.fault.key.empty()) << source;
  }
}

TEST(Robustness, AnyBytesEnd) {
  std::mt19937 random(2);
  std::uniform_int_distribution<int> byte(1, 255);
  TCompiling compiling;
  for (int round = 0; round < 3000; ++round) {
    std::string source = "10 ";
    for (int i = 0; i < 20; ++i) {
      const char c = static_cast<char>(byte(random));
      if (c != '&') source += c;  // octal numbers are endless by design
    }
    const TCompileResult result = compiling.Compile(source);
    ASSERT_NE(result, TCompileResult::Cancelled) << source;
  }
}

}  // namespace
}  // namespace zoka
