// The operators and the numeric functions: results worked out from the language's rules.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "tests/unit/vm/machine_rig.h"

namespace zoka {
namespace {

using enum TVMCodeCmd;

int32_t on_ints(TVMCodeCmd cmd, int32_t left, int32_t right) {
  TMachineRig rig;
  rig.Int(left).Int(right).Op(cmd);
  EXPECT_EQ(rig.Run(), 0);
  const TStackData value = rig.Value();
  EXPECT_EQ(value.kind, TStackKind::Int);
  return value.lval;
}

TStackData on_doubles(TVMCodeCmd cmd, double left, double right) {
  TMachineRig rig;
  rig.Double(left).Double(right).Op(cmd);
  EXPECT_EQ(rig.Run(), 0);
  return rig.Value();
}

int32_t on_texts(TVMCodeCmd cmd, std::string_view left, std::string_view right) {
  TMachineRig rig;
  rig.Text(left).Text(right).Op(cmd);
  EXPECT_EQ(rig.Run(), 0);
  return rig.Value().lval;
}

std::string fault_of(TVMCodeCmd cmd, double left, double right) {
  TMachineRig rig;
  rig.Double(left).Double(right).Op(cmd);
  return rig.RunToFault();
}

TEST(Operators, IntegersWrapIn32Bits) {
  EXPECT_EQ(on_ints(BAddInt, 2, 3), 5);
  EXPECT_EQ(on_ints(BAddInt, INT32_MAX, 1), INT32_MIN);
  EXPECT_EQ(on_ints(BSubInt, INT32_MIN, 1), INT32_MAX);
  EXPECT_EQ(on_ints(BMulInt, 65536, 65536), 0);
  EXPECT_EQ(on_ints(BMulInt, 40000, 40000), 1600000000);
  EXPECT_EQ(on_ints(BMulInt, INT32_MIN, -1), INT32_MIN);
}

TEST(Operators, IntegerDivisionTruncatesAndTheRemainderTakesTheLeftSign) {
  EXPECT_EQ(on_ints(BIdivInt, -7, 2), -3);
  EXPECT_EQ(on_ints(BModInt, -7, 2), -1);
  EXPECT_EQ(on_ints(BModInt, 7, -2), 1);
  EXPECT_EQ(on_ints(BIdivInt, 7, -1), -7);
  EXPECT_EQ(on_ints(BIdivInt, INT32_MIN, -1), INT32_MIN);
  EXPECT_EQ(on_ints(BModInt, INT32_MIN, -1), 0);
}

/// What is left of the memory's charge when A$ has gone: 0 if `use` keeps no part of its text.
int64_t memory_kept_by(const std::function<void(TMachineRig&)>& use) {
  const auto used_by = [](const std::function<void(TMachineRig&)>& part) {
    TMachineRig rig;
    rig.Ref("A$").Text("ab").Text("c").Op(BAddString).Assign().Int(9);
    part(rig);
    rig.Ref("A$").Text("").Assign();
    EXPECT_EQ(rig.Run(), 0);
    return rig.machine->mBudget.used;
  };
  return used_by(use) - used_by([](TMachineRig&) {});
}

TEST(Operators, ATextInPlaceOfANumberIsReleased) {
  EXPECT_EQ(memory_kept_by([](TMachineRig& rig) { rig.Load("A$").Op(BNegaInt); }), 0);
  EXPECT_EQ(memory_kept_by([](TMachineRig& rig) { rig.Load("A$").Int(1).Op(BSubInt); }), 0);
  EXPECT_EQ(memory_kept_by([](TMachineRig& rig) { rig.Load("A$").Load("B%").Op(BSubInt); }), 0);
  EXPECT_EQ(memory_kept_by([](TMachineRig& rig) { rig.Int(1).Load("A$").Op(BSubInt); }), 0);
  EXPECT_EQ(memory_kept_by([](TMachineRig& rig) { rig.Load("A$").Int(1).Int(1).Op(BCmpFor); }), 0);
  EXPECT_EQ(memory_kept_by([](TMachineRig& rig) { rig.Int(1).Load("A$").Int(1).Op(BCmpFor); }), 0);
  EXPECT_EQ(memory_kept_by([](TMachineRig& rig) { rig.Int(1).Int(1).Load("A$").Op(BCmpFor); }), 0);
  EXPECT_NE(memory_kept_by([](TMachineRig& rig) { rig.Load("A$"); }), 0);
}

TEST(Operators, ATextInPlaceOfANumberIsReleasedByTestsThatBranch) {
  const std::function<void(TMachineRig&)> tests[] = {
      [](TMachineRig& rig) { rig.Load("A$").Int(1).Int(1).Op(BCmpFor); },
      [](TMachineRig& rig) { rig.Int(-1).Load("A$").Int(1).Op(BCmpFor); },
      [](TMachineRig& rig) { rig.Int(1).Int(1).Load("A$").Op(BCmpFor); },
      [](TMachineRig& rig) { rig.Load("A$").Int(0).Op(BEqualInt); },
      [](TMachineRig& rig) { rig.Int(0).Load("A$").Op(BEqualInt); },
  };
  for (const auto& test : tests) {
    // The test is true: the target is not looked for.
    EXPECT_EQ(memory_kept_by([&](TMachineRig& rig) {
                test(rig.Int(10));
                rig.Op(BFJmp);
              }),
              0);
  }
}

TEST(Operators, IntegerDivisionRoundsRealOperandsFirst) {
  EXPECT_EQ(on_doubles(BIdivDouble, 7.5, 2.4).lval, 4);
  EXPECT_EQ(on_doubles(BModFloat, 8.6, 4.4).lval, 1);
  EXPECT_EQ(on_doubles(BIdivDouble, 7.5, 2.4).kind, TStackKind::Int);
  EXPECT_EQ(fault_of(BIdivDouble, 7, 0.4), "@Runtime_Err_Div_By_Zero@");
  EXPECT_EQ(fault_of(BModFloat, 1.5, 0.4), "@Runtime_Err_Div_By_Zero@");
}

TEST(Operators, DivisionByZeroIsAnErrorForRealsToo) {
  EXPECT_EQ(fault_of(BDivFloat, 1, 0), "@Runtime_Err_Div_By_Zero@");
  EXPECT_EQ(fault_of(BDivDouble, 1, -0.0), "@Runtime_Err_Div_By_Zero@");
  // The test is made in the handler's own type: this divisor is 0 as a single.
  EXPECT_EQ(fault_of(BDivFloat, 1, 1e-300), "@Runtime_Err_Div_By_Zero@");
  EXPECT_EQ(on_doubles(BDivDouble, 1, 4).dval, 0.25);
  EXPECT_EQ(on_doubles(BDivFloat, 1, 3).fval, 1.0f / 3.0f);
}

TEST(Operators, WorkInTheirOwnTypeWhateverTheyFind) {
  TMachineRig rig;
  rig.Int(3).Double(0.5).Op(BAddFloat);
  EXPECT_EQ(rig.Run(), 0);
  const TStackData value = rig.Value();
  EXPECT_EQ(value.kind, TStackKind::Float);
  EXPECT_EQ(value.fval, 3.5f);
  TMachineRig ints;
  ints.Float(2.5f).Double(-2.5).Op(BAddInt);
  EXPECT_EQ(ints.Run(), 0);
  EXPECT_EQ(ints.Value().lval, 1);
}

TEST(Operators, ValuesThatAreNoNumbersReadAsZero) {
  TMachineRig rig;
  rig.Ref("A$").Text("9").Assign().Load("A$").Int(5).Op(BSubDouble);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().dval, -5);
}

TEST(Operators, Powers) {
  EXPECT_EQ(on_doubles(BPowDouble, 2, 0.5).dval, std::pow(2, 0.5));
  EXPECT_EQ(on_doubles(BPowFloat, 2, 10).fval, 1024.0f);
  EXPECT_EQ(on_doubles(BPowFloat, 2, 10).kind, TStackKind::Float);
}

TEST(Operators, Negation) {
  TMachineRig rig;
  rig.Int(INT32_MIN).Op(BNegaInt).Int(0).Op(BNegaFloat).Double(2.5).Op(BNegaDouble);
  EXPECT_EQ(rig.Run(), 0);
  const auto values = rig.Values();
  ASSERT_EQ(values.size(), 3u);
  EXPECT_EQ(values[0].lval, INT32_MIN);
  EXPECT_EQ(values[1].fval, 0.0f);
  EXPECT_TRUE(std::signbit(values[1].fval));
  EXPECT_EQ(values[2].dval, -2.5);
}

TEST(Operators, RelationsPushMinusOneOrZero) {
  struct TCase {
    TVMCodeCmd cmd;
    int32_t less, equal, greater;
  };
  const TCase cases[] = {{BEqualInt, 0, -1, 0}, {BNoteqInt, -1, 0, -1}, {BLtInt, -1, 0, 0},
                         {BLeInt, -1, -1, 0},   {BGtInt, 0, 0, -1},     {BGeInt, 0, -1, -1}};
  for (const TCase& c : cases) {
    const auto base = static_cast<uint32_t>(c.cmd);
    EXPECT_EQ(on_ints(c.cmd, 1, 2), c.less);
    EXPECT_EQ(on_ints(c.cmd, 2, 2), c.equal);
    EXPECT_EQ(on_ints(c.cmd, 3, 2), c.greater);
    for (uint32_t type : {1u, 2u}) {
      const auto cmd = static_cast<TVMCodeCmd>(base + type);
      EXPECT_EQ(on_doubles(cmd, 1.25, 1.5).lval, c.less);
      EXPECT_EQ(on_doubles(cmd, 1.5, 1.5).lval, c.equal);
      EXPECT_EQ(on_doubles(cmd, 1.5, 1.25).lval, c.greater);
      EXPECT_EQ(on_doubles(cmd, 1.5, 1.25).kind, TStackKind::Int);
    }
    const auto texts = static_cast<TVMCodeCmd>(base + 3);
    EXPECT_EQ(on_texts(texts, "A", "a"), c.less);
    EXPECT_EQ(on_texts(texts, "AB", "AB"), c.equal);
    EXPECT_EQ(on_texts(texts, "ABC", "AB"), c.greater);
    EXPECT_EQ(on_texts(texts, "\xE3\x81\x82", "z"), c.greater);  // bytes, unsigned
    EXPECT_EQ(on_texts(texts, "", "A"), c.less);
  }
}

TEST(Operators, NothingEqualsNotANumber) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(on_doubles(BEqualDouble, nan, nan).lval, 0);
  EXPECT_EQ(on_doubles(BNoteqDouble, nan, nan).lval, -1);
}

TEST(Operators, LogicWorksOnTheLow16BitsAndExtendsTheSign) {
  EXPECT_EQ(on_ints(BOrInt, 65536, 0), 0);
  EXPECT_EQ(on_ints(BAndInt, 0x12345, 0xFFFFF), 9029);
  EXPECT_EQ(on_ints(BAndInt, 0xFFFF, -1), -1);
  EXPECT_EQ(on_ints(BAndInt, -1, -1), -1);
  EXPECT_EQ(on_ints(BXorInt, 65537, 0), 1);
  EXPECT_EQ(on_ints(BXorInt, 0x8000, 0), -32768);
  EXPECT_EQ(on_ints(BEqvInt, 5, 5), -1);
  EXPECT_EQ(on_ints(BEqvInt, 5, 6), ~3);
  EXPECT_EQ(on_ints(BImpInt, -1, 0), 0);
  EXPECT_EQ(on_ints(BImpInt, 0, 0), -1);
  EXPECT_EQ(on_ints(BImpInt, 6, 3), ~6 | 3);
  EXPECT_EQ(on_doubles(BAndFloat, 2.5, 3).lval, 3);
  EXPECT_EQ(on_doubles(BOrDouble, 1, 65536.0 * 65536).lval, 1);
  EXPECT_EQ(on_doubles(BAndFloat, 1, 1).kind, TStackKind::Int);
}

TEST(Operators, Not) {
  struct TCase {
    double value;
    int32_t result;
  };
  for (const TCase& c : {TCase{0, -1}, TCase{-1, 0}, TCase{65535, 0}, TCase{2.5, -4}}) {
    for (TVMCodeCmd cmd : {BNotInt, BNotFloat, BNotDouble}) {
      TMachineRig rig;
      rig.Double(c.value).Op(cmd);
      EXPECT_EQ(rig.Run(), 0);
      const TStackData value = rig.Value();
      EXPECT_EQ(value.kind, TStackKind::Int);
      EXPECT_EQ(value.lval, c.result) << c.value;
    }
  }
}

TEST(Operators, TextsJoin) {
  TMachineRig rig;
  rig.Text("AB").Text("CD").Op(BAddString).Int(7).Op(BAddString);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.TextOf(rig.Value()), "ABCD");  // what is no text joins as an empty one
}

TEST(Operators, AVariablesValueIsWhatItWasWhenItWasRead) {
  TMachineRig rig;
  rig.Ref("A$").Text("old").Assign();
  rig.Load("A$");
  rig.Ref("A$").Text("new").Assign();
  rig.Load("A$").Op(BAddString);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.TextOf(rig.Value()), "oldnew");
}

TEST(Operators, ATextThatGrowsWithoutEndEndsTheRun) {
  TMachineRig rig;
  rig.memoryLimit = 1 << 20;
  rig.Ref("A$").Text("x").Assign();
  rig.Line(10).Ref("A$").Load("A$").Load("A$").Op(BAddString).Assign().Goto(10);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

// --- functions

TStackData call(TVMCodeCmd cmd, const TStackData& argument) {
  TMachineRig rig;
  switch (argument.kind) {
    case TStackKind::Int:
      rig.Int(argument.lval);
      break;
    case TStackKind::Float:
      rig.Float(argument.fval);
      break;
    default:
      rig.Double(argument.dval);
      break;
  }
  rig.Op(cmd);
  EXPECT_EQ(rig.Run(), 0);
  return rig.Value();
}
TStackData call(TVMCodeCmd cmd, int32_t argument) {
  return call(cmd, TStackData::Of(argument));
}
TStackData call(TVMCodeCmd cmd, float argument) {
  return call(cmd, TStackData::Of(argument));
}
TStackData call(TVMCodeCmd cmd, double argument) {
  return call(cmd, TStackData::Of(argument));
}

TEST(NumericFunctions, AbsOfAnIntegerIsASingle) {
  EXPECT_EQ(call(Abs, 16777217).kind, TStackKind::Float);
  EXPECT_EQ(call(Abs, 16777217).fval, 16777216.0f);
  EXPECT_EQ(call(Abs, INT32_MIN).fval, 2147483648.0f);
  EXPECT_EQ(call(Abs, -2.5f).fval, 2.5f);
  EXPECT_EQ(call(Abs, -2.5).dval, 2.5);
  EXPECT_EQ(call(Abs, -2.5).kind, TStackKind::Double);
}

TEST(NumericFunctions, RealOnesComputeInDouble) {
  struct TCase {
    TVMCodeCmd cmd;
    double (*function)(double);
  };
  const TCase cases[] = {{Atn, std::atan}, {Cos, std::cos}, {Sin, std::sin}, {Tan, std::tan},
                         {Exp, std::exp},  {Log, std::log}, {Sqr, std::sqrt}};
  for (const TCase& c : cases) {
    EXPECT_EQ(call(c.cmd, 2).kind, TStackKind::Float);
    EXPECT_EQ(call(c.cmd, 2).fval, static_cast<float>(c.function(2)));
    EXPECT_EQ(call(c.cmd, 0.7f).fval, static_cast<float>(c.function(double{0.7f})));
    EXPECT_EQ(call(c.cmd, 0.7).kind, TStackKind::Double);
    EXPECT_EQ(call(c.cmd, 0.7).dval, c.function(0.7));
  }
}

TEST(NumericFunctions, HaveNoDomainErrors) {
  EXPECT_TRUE(std::isnan(call(Sqr, -1).fval));
  EXPECT_TRUE(std::isnan(call(Log, -1.0).dval));
  EXPECT_EQ(call(Log, 0.0).dval, -std::numeric_limits<double>::infinity());
}

TEST(NumericFunctions, WholeNumbers) {
  EXPECT_EQ(call(Int, -0.5).lval, -1);
  EXPECT_EQ(call(Fix, -0.5).lval, 0);
  EXPECT_EQ(call(Cint, -0.5).lval, 0);
  EXPECT_EQ(call(Cint, 0.5).lval, 1);
  EXPECT_EQ(call(Cint, 2.5f).lval, 3);
  EXPECT_EQ(call(Cint, -2.5f).lval, -2);
  EXPECT_EQ(call(Int, -7).lval, -7);
  EXPECT_EQ(call(Int, 3000000000.0).lval, INT32_MIN);
  EXPECT_EQ(call(Fix, -3e9f).lval, INT32_MIN);
  for (TVMCodeCmd cmd : {Int, Fix, Cint}) EXPECT_EQ(call(cmd, 1.0).kind, TStackKind::Int);
}

TEST(NumericFunctions, Sgn) {
  EXPECT_EQ(call(Sgn, -3).lval, -1);
  EXPECT_EQ(call(Sgn, 0.0f).lval, 0);
  EXPECT_EQ(call(Sgn, 1e-300).lval, 1);
  EXPECT_EQ(call(Sgn, std::numeric_limits<double>::quiet_NaN()).lval, 0);
}

TEST(NumericFunctions, Conversions) {
  EXPECT_EQ(call(Csng, 0.1).fval, 0.1f);
  EXPECT_EQ(call(Csng, 7).kind, TStackKind::Float);
  EXPECT_EQ(call(Cdbl, 0.1f).dval, double{0.1f});
  EXPECT_EQ(call(Cdbl, 7).kind, TStackKind::Double);
}

TEST(NumericFunctions, PushNothingForOtherKinds) {
  for (TVMCodeCmd cmd : {Abs, Sin, Int, Fix}) {
    TMachineRig rig;
    rig.Text("X").Op(cmd);
    EXPECT_EQ(rig.Run(), 0);
    EXPECT_EQ(rig.Values().size(), 0u);
  }
}

TEST(Random, RepeatsTheLastValueForNoPositiveArgument) {
  TMachineRig rig;
  rig.inputs.random = 1 << 30;
  rig.Int(0).Op(Rnd).Int(1).Op(Rnd).Int(-1).Op(Rnd).Int(0).Op(Rnd);
  EXPECT_EQ(rig.Run(), 0);
  const auto values = rig.Values();
  ASSERT_EQ(values.size(), 4u);
  EXPECT_EQ(values[0].fval, 0.0f);
  for (size_t i : {1u, 2u, 3u}) EXPECT_EQ(values[i].fval, 0.5f);
  EXPECT_EQ(rig.inputs.randomReads, 1);
}

TEST(Random, TheGreatestNumberGivesOne) {
  TMachineRig rig;
  rig.inputs.random = INT32_MAX;
  rig.Int(1).Op(Rnd);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().fval, 1.0f);
}

TEST(Random, TheLastValueSurvivesTheRun) {
  TMachineRig first;
  first.inputs.random = 1 << 29;
  first.Double(0.5).Op(Rnd);
  EXPECT_EQ(first.Run(), 0);
  EXPECT_EQ(first.context.sfRand, 0.25f);
}

TEST(Random, RandomizeSeedsWithTheRoundedValue) {
  TMachineRig rig;
  rig.Double(-2.5).OpBool(Randomize, true);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.inputs.seeds, std::vector<int32_t>{-2});
}

}  // namespace
}  // namespace zoka
