// Units: which runs of instructions are one, and that they do what their instructions do.
#include <gtest/gtest.h>

#include "tests/unit/vm/machine_rig.h"
#include "vm/units.h"

namespace zoka {
namespace {

using enum TVMCodeCmd;

uint32_t number(TUnit unit) {
  return static_cast<uint32_t>(unit);
}

TEST(Units, AnAdditionOfAConstantIsOne) {
  TMachineRig rig;
  rig.Ref("A%").Load("A%").Int(7).Op(BAddInt).Assign().Op(BExit);
  const std::vector<TVMCode> codes = code_with_units(rig.code);
  ASSERT_EQ(codes.size(), rig.code.mCodes.size());
  EXPECT_EQ(codes[1].Number(), number(TUnit::AddConstant));
  EXPECT_EQ(codes[1].lval(), -1) << "operands stay";
  EXPECT_EQ(codes[2].Cmd(), BPushVar);
  EXPECT_EQ(codes[3].Number(), number(TUnit::LoadPlain)) << "a unit of its own, for jumps";
  EXPECT_EQ(codes[5].Number(), number(TUnit::ConstantOperand));
  EXPECT_EQ(codes[7].Cmd(), BAssignArray);
}

/// Each unit as far as it reaches; what its operands are does not matter.
struct TUnitProgram {
  TUnit unit;
  void (*append)(TMachineRig&);
};
const TUnitProgram PROGRAMS[] = {
    {TUnit::LoadPlain, [](TMachineRig& rig) { rig.Load("A%"); }},
    {TUnit::LoadText, [](TMachineRig& rig) { rig.Load("A$"); }},
    {TUnit::PlaceOfPlain, [](TMachineRig& rig) { rig.Ref("A%"); }},
    {TUnit::Jump, [](TMachineRig& rig) { rig.Text("@L").Op(BJmp); }},
    {TUnit::Call, [](TMachineRig& rig) { rig.Text("@L").Op(BCall); }},
    {TUnit::TestFor, [](TMachineRig& rig) { rig.Op(BCmpFor).Op(BFJmp); }},
    {TUnit::ForToConstant,
     [](TMachineRig& rig) { rig.Text("@L").Load("I%").Int(9).Int(1).Op(BCmpFor).Op(BFJmp); }},
    {TUnit::ForToVariable,
     [](TMachineRig& rig) { rig.Text("@L").Load("I%").Load("L%").Int(1).Op(BCmpFor).Op(BFJmp); }},
    {TUnit::AddConstant,
     [](TMachineRig& rig) { rig.Ref("A%").Load("A%").Int(7).Op(BAddInt).Assign(); }},
    {TUnit::ConstantOperand, [](TMachineRig& rig) { rig.Int(7).Op(BAddInt); }},
    {TUnit::VariableOperand, [](TMachineRig& rig) { rig.Load("A%").Op(BAddInt); }},
    {TUnit::Branch, [](TMachineRig& rig) { rig.Op(BEqualInt).Op(BFJmp); }},
};

TEST(Units, ReachUpToTheNextStatementAndNoFarther) {
  for (const TUnitProgram& program : PROGRAMS) {
    TMachineRig whole;
    program.append(whole);
    whole.Line(20).Op(BExit);
    EXPECT_EQ(code_with_units(whole.code)[1].Number(), number(program.unit));
    TMachineRig cut;
    program.append(cut);
    cut.code.AddStatementBegin(cut.Next() - 1);
    cut.Line(20).Op(BExit);
    EXPECT_NE(code_with_units(cut.code)[1].Number(), number(program.unit));
  }
}

TEST(Units, EndWhereAStatementBegins) {
  TMachineRig rig;
  rig.Int(-1);
  rig.code.AddStatementBegin(2);
  rig.code.mCodes.push_back(TVMCode(BLoadArray).SetVar(rig.Var("A%")));
  rig.Op(BExit);
  EXPECT_EQ(code_with_units(rig.code)[1].Cmd(), BPushInt);
}

TEST(Units, AJumpMayLeadIntoOne) {
  TMachineRig rig;
  rig.Let("A%", 4).Ref("A%").Text("@IN").Op(BJmp);
  rig.Ref("B%").Label("@IN").Load("A%").Int(1).Op(BAddInt).Assign();
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("A%")->ints[0], 5);
  EXPECT_EQ(rig.Var("B%")->ints[0], 0);
  EXPECT_TRUE(rig.Values().empty());
}

TEST(Units, OperandsOfAllTypes) {
  TMachineRig rig;
  rig.Let("A%", 7).Ref("B!").Float(2.5f).Assign().Ref("C#").Double(0.25).Assign();
  rig.Load("A%").Load("B!").Op(BMulFloat);   // 17.5
  rig.Load("C#").Load("A%").Op(BSubDouble);  // -6.75
  rig.Load("B!").Load("C#").Op(BAddInt);     // 3 + 0
  rig.Int(2147483647).Int(1).Op(BAddInt);    // wraps
  rig.Double(0.5).Int(3).Op(BMulDouble);     // 1.5
  EXPECT_EQ(rig.Run(), 0);
  const auto values = rig.Values();
  ASSERT_EQ(values.size(), 5u);
  EXPECT_EQ(values[0].fval, 17.5f);
  EXPECT_EQ(values[1].dval, -6.75);
  EXPECT_EQ(values[2].lval, 3);
  EXPECT_EQ(values[3].lval, INT32_MIN);
  EXPECT_EQ(values[4].dval, 1.5);
}

TEST(Units, AnOperandThatIsNoNumberReadsAsZero) {
  TMachineRig rig;
  rig.Let("A%", 5).Text("text").Int(3).Op(BSubInt).Text("text").Load("A%").Op(BAddInt);
  rig.Text("@NO").Text("text").Int(0).Op(BEqualInt).Op(BFJmp).Int(1).Label("@NO");
  rig.Text("@OVER").Text("text").Int(1).Op(BEqualInt).Op(BFJmp).Int(2).Label("@OVER");
  EXPECT_EQ(rig.Run(), 0);
  const auto values = rig.Values();
  ASSERT_EQ(values.size(), 3u);
  EXPECT_EQ(values[0].lval, -3);
  EXPECT_EQ(values[1].lval, 5);
  EXPECT_EQ(values[2].lval, 1) << "0 = 0, so no jump, but one over the 2";
}

TEST(Units, ALimitThatIsNoNumberReadsAsZero) {
  for (const int32_t current : {-5, 5}) {
    TMachineRig rig;
    rig.Let("I%", current).Text("@OUT").Load("I%").Text("text").Int(1).Op(BCmpFor).Op(BFJmp);
    rig.Int(2).Int(3).Label("@OUT").Int(4);
    EXPECT_EQ(rig.Run(), 0);
    EXPECT_EQ(rig.Values().size(), current < 0 ? 3u : 1u) << current;
  }
}

/// Rounds of FOR I% = `from` with that limit and step, the limit a constant or the variable L%.
int32_t rounds(int32_t from, int32_t limit, int32_t step, bool isVariable) {
  TMachineRig rig;
  rig.Let("L%", limit).Let("I%", from).Label("@TEST").Text("@OUT").Load("I%");
  if (isVariable) {
    rig.Load("L%");
  } else {
    rig.Int(limit);
  }
  rig.Int(step).Op(BCmpFor).Op(BFJmp);
  rig.Ref("C%").Load("C%").Int(1).Op(BAddInt).Assign();
  rig.Ref("I%").Load("I%").Int(step).Op(BAddDouble).Assign().Text("@TEST").Op(BJmp);
  rig.Label("@OUT");
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_TRUE(rig.Values().empty());
  return rig.Var("C%")->ints[0];
}

TEST(Units, WholeTestsOfFor) {
  for (const bool isVariable : {false, true}) {
    EXPECT_EQ(rounds(1, 10, 1, isVariable), 10);
    EXPECT_EQ(rounds(10, 1, -3, isVariable), 4);
    EXPECT_EQ(rounds(2, 1, 1, isVariable), 0);
    EXPECT_EQ(rounds(1, 1, -1, isVariable), 1);
  }
}

TEST(Units, AMissingTargetIsAnErrorWhenItIsReached) {
  TMachineRig missed;
  missed.Let("A%", 1).Text("@NOWHERE").Load("A%").Int(1).Int(1).Op(BCmpFor).Op(BFJmp);
  EXPECT_EQ(missed.Run(), 0) << "the jump is not taken";
  TMachineRig taken;
  taken.Let("A%", 2).Text("@NOWHERE").Load("A%").Int(1).Int(1).Op(BCmpFor).Op(BFJmp);
  EXPECT_EQ(taken.RunToFault(), "@Runtime_Err_Undefined_Label@");
  TMachineRig line;
  line.Goto(999);
  EXPECT_EQ(line.RunToFault(), "@Runtime_Err_Undefined_Line_Number@");
}

TEST(Units, ACallReturnsBehindIt) {
  TMachineRig rig;
  rig.Gosub(100).Ref("B%").Load("A%").Assign().Op(BExit);
  rig.Line(100).Let("A%", 6).Return();
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("B%")->ints[0], 6);
}

TEST(Units, TextsOfPlainVariables) {
  TMachineRig rig;
  rig.Ref("A$").Text("one").Assign().Ref("B$").Load("A$").Assign();
  rig.Ref("A$").Load("A$").Text("two").Op(BAddString).Assign();
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("A$")->texts[0].View(), "onetwo");
  EXPECT_EQ(rig.Var("B$")->texts[0].View(), "one");
}

TEST(Units, ElementsOfTwoDimensions) {
  TMachineRig rig;
  rig.Ref("A!", {3, 4}).Float(1.5f).Assign().Ref("A!", {4, 3}).Int(9).Assign();
  rig.Load("A!", {3, 4}).Load("A!", {4, 3});
  EXPECT_EQ(rig.Run(), 0);
  const auto values = rig.Values();
  ASSERT_EQ(values.size(), 2u);
  EXPECT_EQ(values[0].fval, 1.5f);
  EXPECT_EQ(values[1].fval, 9.0f);
}

}  // namespace
}  // namespace zoka
