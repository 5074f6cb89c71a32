// Expressions: precedence, types, assignments, operands, argument lists.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/code_listing.h"

namespace zoka {
namespace {

using test::code_of;
using test::listing_of;
using test::records_in;

constexpr char SYNTAX[] = "@Compile_Err_Syntax_Err@";
constexpr char MISMATCH_CALC[] = "@Compile_Err_Type_Mismatch_Calc@";
constexpr char MISMATCH_ASSIGN[] = "@Compile_Err_Type_Mismatch_Assign@";
constexpr char LOGIC_STRING[] = "@Compile_Err_Cannot_Logic_String@";
constexpr char UNLVALUE[] = "@Compile_Err_Assign_Unlvalue@";

/// The code of an expression, compiled as the right side of an assignment; or the error key.
std::string value_of(const std::string& expression, const std::string& name = "Z") {
  const std::string code = code_of(name + "=" + expression);
  const size_t begin = code.find("; ", code.find("BPushVar"));
  const size_t end = code.rfind("; BAssignArray");
  if (begin == std::string::npos || end == std::string::npos || end < begin + 2) return code;
  return code.substr(begin + 2, end - begin - 2);
}

std::string text_of(const std::string& expression) {
  return value_of(expression, "Z$");
}

std::string load(const std::string& name) {
  return "BPushInt -1; BLoadArray var:" + name;
}

TEST(Expression, MultiplicationBeforeAddition) {
  EXPECT_EQ(code_of("A=1+2*3"),
            "BPushInt -1; BPushVar var:A!; BPushInt 1; BPushInt 2; BPushInt 3; BMulInt; BAddInt; "
            "BAssignArray");
}

TEST(Expression, OperatorsAreLeftAssociative) {
  EXPECT_EQ(value_of("1-2-3"), "BPushInt 1; BPushInt 2; BSubInt; BPushInt 3; BSubInt");
  EXPECT_EQ(value_of("2^3^2"), "BPushInt 2; BPushInt 3; BPowFloat; BPushInt 2; BPowFloat");
  EXPECT_EQ(value_of("1<2<3"), "BPushInt 1; BPushInt 2; BLtInt; BPushInt 3; BLtInt");
}

// Each operator against the next tighter one.
TEST(Expression, Precedence) {
  const std::string abc = "BPushInt 1; BPushInt 2; BPushInt 3; ";
  EXPECT_EQ(value_of("1 EQV 2 IMP 3"), abc + "BImpInt; BEqvInt");
  EXPECT_EQ(value_of("1 IMP 2 XOR 3"), abc + "BXorInt; BImpInt");
  EXPECT_EQ(value_of("1 XOR 2 OR 3"), abc + "BOrInt; BXorInt");
  EXPECT_EQ(value_of("1 OR 2 AND 3"), abc + "BAndInt; BOrInt");
  EXPECT_EQ(value_of("1 AND 2=3"), abc + "BEqualInt; BAndInt");
  EXPECT_EQ(value_of("1=2+3"), abc + "BAddInt; BEqualInt");
  EXPECT_EQ(value_of("1+2 MOD 3"), abc + "BModInt; BAddInt");
  EXPECT_EQ(value_of("1 MOD 2\\3"), abc + "BIdivInt; BModInt");
  EXPECT_EQ(value_of("1\\2*3"), abc + "BMulInt; BIdivInt");
  EXPECT_EQ(value_of("1*-2"), "BPushInt 1; BPushInt 2; BNegaInt; BMulInt");
  EXPECT_EQ(value_of("-2^2"), "BPushInt 2; BPushInt 2; BPowFloat; BNegaFloat");
}

TEST(Expression, SignsNest) {
  EXPECT_EQ(value_of("--1"), "BPushInt 1; BNegaInt; BNegaInt");
  EXPECT_EQ(value_of("+-+1"), "BPushInt 1; BNegaInt");
}

TEST(Expression, SignBehindAPowerIsASubtraction) {
  EXPECT_EQ(value_of("2^-1"), "BPushInt 2; BPowFloat; BPushInt 1; BSubFloat");
  EXPECT_EQ(value_of("2^(-1)"), "BPushInt 2; BPushInt 1; BNegaInt; BPowFloat");
}

TEST(Expression, Not) {
  EXPECT_EQ(value_of("NOT A=B"), load("A!") + "; " + load("B!") + "; BEqualFloat; BNotInt");
  EXPECT_EQ(value_of("NOT 1 AND 2"), "BPushInt 1; BNotInt; BPushInt 2; BAndInt");
  EXPECT_EQ(value_of("NOT NOT 1.5"), "BPushFloat 1.5; BNotFloat; BNotFloat");
  EXPECT_EQ(value_of("1 AND NOT 2"), "BPushInt 1; BPushInt 2; BNotInt; BAndInt");
  EXPECT_EQ(value_of("2^NOT 1"), "BPushInt 2; BPushInt 1; BNotInt; BPowFloat");
  EXPECT_EQ(value_of("2^NOT 1=2"),
            "BPushInt 2; BPushInt 1; BPushInt 2; BEqualInt; BNotInt; BPowFloat");
  EXPECT_EQ(value_of("NOT \"A\""), LOGIC_STRING);
}

TEST(Types, OfOperations) {
  EXPECT_EQ(value_of("1+2.5"), "BPushInt 1; BPushFloat 2.5; BAddFloat");
  EXPECT_EQ(value_of("1+2.5#"), "BPushInt 1; BPushDouble 2.5; BAddDouble");
  EXPECT_EQ(value_of("1/2"), "BPushInt 1; BPushInt 2; BDivFloat");
  EXPECT_EQ(value_of("A%/2"), load("A%") + "; BPushInt 2; BDivFloat");
  EXPECT_EQ(value_of("A%\\2"), load("A%") + "; BPushInt 2; BIdivInt");
  EXPECT_EQ(value_of("A#\\2"), load("A#") + "; BPushInt 2; BIdivDouble");
  EXPECT_EQ(value_of("A# MOD 2"), load("A#") + "; BPushInt 2; BModDouble");
  EXPECT_EQ(value_of("A#/2"), load("A#") + "; BPushInt 2; BDivDouble");
  // The type so far counts, also in the tighter operation.
  EXPECT_EQ(value_of("2.5+1*3"), "BPushFloat 2.5; BPushInt 1; BPushInt 3; BMulFloat; BAddFloat");
}

TEST(Types, OfStrings) {
  EXPECT_EQ(text_of("\"A\"+B$"), "BPushString \"A\"; " + load("B$") + "; BAddString");
  EXPECT_EQ(value_of("\"A\"<B$"), "BPushString \"A\"; " + load("B$") + "; BLtString");
  EXPECT_EQ(value_of("A$=B$"), load("A$") + "; " + load("B$") + "; BEqualString");
}

TEST(Types, StringErrors) {
  EXPECT_EQ(value_of("A$*B$"), "@Compile_Err_Cannot_Mul_Div_String@");
  EXPECT_EQ(value_of("A$/B$"), "@Compile_Err_Cannot_Mul_Div_String@");
  EXPECT_EQ(value_of("A$\\B$"), "@Compile_Err_Cannot_Mul_Div_String@");
  EXPECT_EQ(value_of("A$ MOD B$"), "@Compile_Err_Cannot_Mul_Div_String@");
  EXPECT_EQ(value_of("A$-B$"), "@Compile_Err_Cannot_Sub_String@");
  EXPECT_EQ(value_of("A$^B$"), "@Compile_Err_Cannot_Hat_String@");
  EXPECT_EQ(value_of("-A$"), "@Compile_Err_Cannot_Nega_String@");
  EXPECT_EQ(value_of("A$+1"), MISMATCH_CALC);
  EXPECT_EQ(value_of("A$*2"), MISMATCH_CALC);
  EXPECT_EQ(value_of("1=A$"), MISMATCH_CALC);
  EXPECT_EQ(value_of("1+\"A\""), MISMATCH_CALC);
  EXPECT_EQ(value_of("1+CHR$(65)"), MISMATCH_CALC);
  EXPECT_EQ(value_of("A$=B$=C$"), MISMATCH_CALC);
}

TEST(Types, LogicalOperatorsLookAtTheRightOperand) {
  EXPECT_EQ(value_of("A$ AND 1"), load("A$") + "; BPushInt 1; BAndInt");
  for (const char* op : {"AND", "OR", "XOR", "IMP", "EQV"}) {
    EXPECT_EQ(value_of(std::string("1 ") + op + " A$"), LOGIC_STRING) << op;
  }
  EXPECT_EQ(value_of("1.5 AND 2"), "BPushFloat 1.5; BPushInt 2; BAndInt");
  EXPECT_EQ(value_of("1 OR 2.5"), "BPushInt 1; BPushFloat 2.5; BOrFloat");
}

TEST(Types, OfParentheses) {
  EXPECT_EQ(value_of("1+(\"X\")"), MISMATCH_CALC);
  EXPECT_EQ(value_of("1 AND (A$)"), LOGIC_STRING);
  EXPECT_EQ(value_of("A$ AND (1)"), load("A$") + "; BPushInt 1; BAndInt");
  EXPECT_EQ(value_of("1+(2.5)"), "BPushInt 1; BPushFloat 2.5; BAddFloat");
  EXPECT_EQ(value_of("(A$)+1"), MISMATCH_CALC);
  EXPECT_EQ(value_of("(2.5)+1"), "BPushFloat 2.5; BPushInt 1; BAddFloat");
  // The wish to take the next operand's type outlives a parenthesis.
  EXPECT_EQ(value_of("0 OR (1.5#)*3"), "BPushInt 0; BPushDouble 1.5; BPushInt 3; BMulInt; BOrInt");
}

TEST(Parentheses, WhateverClosesIsDropped) {
  EXPECT_EQ(value_of("(1+2)*3"), "BPushInt 1; BPushInt 2; BAddInt; BPushInt 3; BMulInt");
  EXPECT_EQ(value_of("(1+2,"), "BPushInt 1; BPushInt 2; BAddInt");
  EXPECT_EQ(value_of("(1+2]"), "BPushInt 1; BPushInt 2; BAddInt");
  EXPECT_EQ(records_in(listing_of("10 A=(1+2")),
            "-; BLineBegin 10; BPushInt -1; BPushVar var:A!; BPushInt 1; BPushInt 2; BAddInt; "
            "BAssignArray; BExit");
  // The next line's number becomes an operand, and that line is no target.
  EXPECT_EQ(records_in(listing_of("10 A=(1\n20 END")),
            "-; BLineBegin 10; BPushInt -1; BPushVar var:A!; BPushInt 1; BPushInt 20; "
            "BAssignArray; BExit; BExit");
}

TEST(Parentheses, BesideLiterals) {
  EXPECT_EQ(value_of("5(2)"), "BPushInt 2; BPushInt 5");
  EXPECT_EQ(value_of("(1)2"), "BPushInt 1; BPushInt 2");
  EXPECT_EQ(code_of("A=(1) PRINT 2"), SYNTAX);
  EXPECT_EQ(code_of("A=()"), "BPushInt -1; BPushVar var:A!; BAssignArray");
}

TEST(Operands, MissingOnesAreFoundAtRunTime) {
  EXPECT_EQ(value_of("1+"), "BPushInt 1; BAddInt");
  EXPECT_EQ(value_of("2*"), "BPushInt 2; BMulInt");
  EXPECT_EQ(code_of("A="), "BPushInt -1; BPushVar var:A!; BAssignArray");
  EXPECT_EQ(value_of("-"), "BNegaInt");
}

TEST(Operands, KeywordsInExpressions) {
  EXPECT_EQ(code_of("A=LEN"), "@Compile_Err_No_LPar@");
  EXPECT_EQ(code_of("A=1+PRINT"), SYNTAX);
  EXPECT_EQ(code_of("ON A GOTO 10"), load("A!") + "; BPushInt 10; OnGosubGoto 1");
}

TEST(Assignment, AtTheTopOnly) {
  EXPECT_EQ(code_of("A=B=C"), "BPushInt -1; BPushVar var:A!; " + load("B!") + "; " + load("C!") +
                                  "; BEqualFloat; BAssignArray");
  EXPECT_EQ(code_of("IF A$=\"X\" THEN END"), "BPushString \"@L0\"; " + load("A$") +
                                                 "; BPushString \"X\"; BEqualString; BFJmp; "
                                                 "BExit");
  EXPECT_EQ(code_of("LET A=1"), code_of("A=1"));
}

TEST(Assignment, NeedsAVariable) {
  EXPECT_EQ(code_of("A+B=3"), UNLVALUE);
  EXPECT_EQ(code_of("A<B=3"), UNLVALUE);
  EXPECT_EQ(code_of("A AND B=3"), UNLVALUE);
  EXPECT_EQ(code_of("LET -A=3"), UNLVALUE);
  EXPECT_EQ(code_of("LET (A)=3"), UNLVALUE);
  EXPECT_EQ(code_of("IF 1 THEN 1=2"), UNLVALUE);
}

TEST(Assignment, TypesMustFit) {
  EXPECT_EQ(code_of("A$=B$=C$"), MISMATCH_ASSIGN);
  EXPECT_EQ(code_of("A$=1"), MISMATCH_ASSIGN);
  EXPECT_EQ(code_of("A=\"X\""), MISMATCH_ASSIGN);
  EXPECT_EQ(code_of("A%=1.5"), "BPushInt -1; BPushVar var:A%; BPushFloat 1.5; BAssignArray");
}

TEST(Lists, OmittedArguments) {
  EXPECT_EQ(code_of("A(1,,2)"),
            "BPushInt -1; BPushInt 1; BPushAbbrev; BPushInt 2; BLoadArray var:A!");
  EXPECT_EQ(code_of("A(,1)"), "BPushInt -1; BPushAbbrev; BPushInt 1; BLoadArray var:A!");
  EXPECT_EQ(code_of("A(1,)"), "BPushInt -1; BPushInt 1; BLoadArray var:A!");
  EXPECT_EQ(code_of("A(;1;2)"),
            "BPushInt -1; BPushAbbrev; BPushInt 1; BPushInt 2; BLoadArray var:A!");
  EXPECT_EQ(code_of("A(1 2)"), "BPushInt -1; BPushInt 1; BPushInt 2; BLoadArray var:A!");
  EXPECT_EQ(code_of("A()"), load("A!"));
}

TEST(Lists, WithoutProgressAreRefused) {
  for (const char* text : {"A(?)", "A(1,?)", "A(FOR)", "A(TO)", "A(\xE3\x81\x82)", "A(@)"}) {
    EXPECT_EQ(code_of(text), SYNTAX) << text;
  }
}

TEST(Lists, AtTheEndOfTheText) {
  EXPECT_EQ(records_in(listing_of("10 WIDTH 40")),
            "-; BLineBegin 10; BPushInt 40; WidthProc1 0; BExit");
  EXPECT_EQ(listing_of("10 A(1"), "@Compile_Err_No_RPar@");
  EXPECT_EQ(listing_of("10 A("), "@Compile_Err_No_RPar@");
}

}  // namespace
}  // namespace zoka
