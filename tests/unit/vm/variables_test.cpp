// Variables, arrays, DATA, and user functions in the machine.
#include <gtest/gtest.h>

#include "common/text/number.h"
#include "tests/unit/vm/machine_rig.h"

namespace zoka {
namespace {

using enum TVMCodeCmd;

constexpr const char OUT_OF_RANGE[] = "@Runtime_Err_Subscript_Out_Of_Range@";

/// DIM of one variable.
void dim(TMachineRig& rig, const std::string& name, const std::vector<int32_t>& sizes) {
  rig.Ref(name, sizes).OpLong(Dim, 1);
}

TEST(Variables, AssignmentConverts) {
  TMachineRig rig;
  rig.Ref("A%").Double(2.5).Assign().Ref("B!").Int(7).Assign().Ref("C#").Float(0.5f).Assign();
  rig.Ref("D$").Int(7).Assign().Ref("E%").Text("7").Assign();
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("A%")->ints[0], 3);
  EXPECT_EQ(rig.Var("B!")->floats[0], 7.0f);
  EXPECT_EQ(rig.Var("C#")->doubles[0], 0.5);
  EXPECT_EQ(rig.Var("D$")->texts[0].View(), "");
  EXPECT_EQ(rig.Var("E%")->ints[0], 0);
}

TEST(Variables, IntegersHold32Bits) {
  TMachineRig rig;
  rig.Let("A%", 40000);
  rig.Ref("A%").Load("A%").Load("A%").Op(BMulInt).Load("A%").Op(BMulInt).Assign();
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("A%")->ints[0], static_cast<int32_t>(static_cast<uint32_t>(64000000000000)));
}

TEST(Variables, APlainVariableAndAnArrayShareAName) {
  TMachineRig rig;
  rig.Let("A!", 5).Ref("A!", {1}).Int(6).Assign().Load("A!").Load("A!", {1});
  EXPECT_EQ(rig.Run(), 0);
  const auto values = rig.Values();
  ASSERT_EQ(values.size(), 2u);
  EXPECT_EQ(values[0].fval, 5.0f);
  EXPECT_EQ(values[1].fval, 6.0f);
}

TEST(Arrays, ComeIntoBeingWithElevenElements) {
  TMachineRig rig;
  rig.Load("A!", {3}).Load("A!", {10});
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("A!")->strides[1], 11);
  TMachineRig beyond;
  beyond.Load("A!", {3}).Load("A!", {11});
  EXPECT_EQ(beyond.RunToFault(), OUT_OF_RANGE);
}

TEST(Arrays, WrongNumberOfSubscripts) {
  TMachineRig rig;
  rig.Ref("A!", {1}).Int(1).Assign().Ref("A!", {1, 2}).Int(3).Assign();
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Bad_Dimension@");
}

TEST(Arrays, OnlyTheFlatOffsetIsTested) {
  TMachineRig rig;
  dim(rig, "A!", {2, 2});
  rig.Ref("A!", {1, 2}).Int(7).Assign().Load("A!", {0, 5}).Load("A!", {2, -1 - 1});
  EXPECT_EQ(rig.Run(), 0);
  const auto values = rig.Values();
  EXPECT_EQ(values.at(0).fval, 7.0f);
  EXPECT_EQ(values.at(1).fval, 0.0f);  // A(2,-2) is A(1,1)
  TMachineRig beyond;
  dim(beyond, "A!", {2, 2});
  beyond.Load("A!", {0, 9});
  EXPECT_EQ(beyond.RunToFault(), OUT_OF_RANGE);
}

TEST(Arrays, SubscriptsRound) {
  TMachineRig rig;
  rig.Ref("A%", {3}).Int(9).Assign();
  rig.Int(-1).Float(2.5f);
  rig.code.mCodes.push_back(TVMCode(BLoadArray).SetVar(rig.Var("A%")));
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, 9);
}

TEST(Arrays, ASubscriptOfMinusOneIsTheEndMark) {
  for (double subscript : {-1.0, -1.5, -0.6}) {
    TMachineRig rig;
    rig.Let("A!", 5).Int(-1).Double(subscript);
    rig.code.mCodes.push_back(TVMCode(BLoadArray).SetVar(rig.Var("A!")));
    EXPECT_EQ(rig.Run(), 0);
    const auto values = rig.Values();
    ASSERT_EQ(values.size(), 2u) << subscript;  // the real end mark stays
    EXPECT_EQ(values[0].lval, -1);
    EXPECT_EQ(values[1].fval, 5.0f);
  }
}

TEST(Arrays, DimKeepsThePlainValueAndEmptiesTheElements) {
  TMachineRig rig;
  rig.Let("A!", 5);
  dim(rig, "A!", {3});
  rig.Ref("A!", {1}).Int(7).Assign();
  dim(rig, "A!", {3});
  rig.Load("A!").Load("A!", {1});
  EXPECT_EQ(rig.Run(), 0);
  const auto values = rig.Values();
  EXPECT_EQ(values.at(0).fval, 5.0f);
  EXPECT_EQ(values.at(1).fval, 0.0f);
}

TEST(Arrays, NegativeSizes) {
  TMachineRig rig;
  dim(rig, "A!", {-5});
  EXPECT_EQ(rig.Run(), 0);
  TMachineRig access;
  dim(access, "A!", {-5});
  access.Load("A!", {0});
  EXPECT_EQ(access.RunToFault(), OUT_OF_RANGE);
  // DIM A(-1) has no dimensions: the next access with a subscript makes them.
  TMachineRig none;
  none.Ref("A!", {-1}).OpLong(Dim, 1).Load("A!", {10});
  EXPECT_EQ(none.Run(), 0);
}

TEST(Arrays, SizesBeyondAllMemory) {
  for (const std::vector<int32_t>& sizes :
       {std::vector<int32_t>{INT32_MAX}, {INT32_MAX - 1}, {65535, 65535}, {INT32_MAX - 1, 5}}) {
    TMachineRig rig;
    dim(rig, "A#", sizes);
    EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Bad_Dimension@");
    EXPECT_EQ(rig.Var("A#")->dimCount, 0);
  }
}

TEST(Arrays, SubscriptsAreLimited) {
  const std::vector<int32_t> allowed(126, 0);
  TMachineRig dims;
  dim(dims, "A!", allowed);
  dims.Load("A!", allowed);
  EXPECT_EQ(dims.Run(), 0);
  for (size_t count : {127u, 300u}) {
    const std::vector<int32_t> many(count, 0);
    TMachineRig rig;
    dim(rig, "A!", many);
    EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Bad_Dimension@");
    TMachineRig load;
    load.Load("A!", many);
    EXPECT_EQ(load.RunToFault(), "@Runtime_Err_Bad_Dimension@");
  }
}

TEST(Arrays, HugeSubscriptsDoNotOverflow) {
  TMachineRig rig;
  dim(rig, "A!", {100, 100, 100});
  rig.Load("A!", {INT32_MAX, INT32_MAX, INT32_MAX});
  EXPECT_EQ(rig.RunToFault(), OUT_OF_RANGE);
}

TEST(Arrays, OptionBaseIsTestedAtOnce) {
  TMachineRig rig;
  rig.Load("A!", {0}).Int(1).Op(OptionBase).Load("A!", {0});
  EXPECT_EQ(rig.RunToFault(), OUT_OF_RANGE);
  EXPECT_EQ(rig.rsrc.OptionBase(), 1);
  TMachineRig two;  // with two dimensions only the first element is out of reach
  two.Int(1).Op(OptionBase);
  dim(two, "A!", {2, 2});
  two.Ref("A!", {1, 0}).Int(1).Assign();
  EXPECT_EQ(two.Run(), 0);
  for (int32_t base : {2, -1}) {
    TMachineRig wrong;
    wrong.Int(base).Op(OptionBase);
    EXPECT_EQ(wrong.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
  }
}

TEST(Arrays, MissingEndMark) {
  TMachineRig rig;
  rig.Int(5);
  rig.code.mCodes.push_back(TVMCode(BLoadArray).SetVar(rig.Var("A!")));
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

TEST(Swap, ExchangesElementsAndTexts) {
  TMachineRig rig;
  rig.Ref("A$", {1}).Text("one").Assign().Ref("A$", {2}).Text("two").Assign();
  rig.Ref("A$", {1}).Ref("A$", {2}).OpLong(Swap, 2);
  rig.Load("A$", {1}).Load("A$", {2});
  EXPECT_EQ(rig.Run(), 0);
  const auto values = rig.Values();
  ASSERT_EQ(values.size(), 2u);
  EXPECT_EQ(rig.TextOf(values[0]), "two");
  EXPECT_EQ(rig.TextOf(values[1]), "one");
}

TEST(Swap, TypesMustAgree) {
  TMachineRig rig;
  rig.Ref("A!").Ref("B#").OpLong(Swap, 2);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Type_Mismatch@");
}

TEST(Data, ARunFallsOverIt) {
  TMachineRig rig;
  rig.OpText(Data, "1").OpText(Data, "2").Int(5);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, 5);
}

TEST(Data, ReadsItemsInOrderFirstVariableFirst) {
  TMachineRig rig;
  rig.Ref("A%").Ref("B$").OpLong(Read, 2).Ref("C#").OpLong(Read, 1);
  rig.OpText(Data, "3.7").OpText(Data, "&HFF").Int(0).OpText(Data, "-1.5E2x");
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("A%")->ints[0], 3);
  EXPECT_EQ(rig.Var("B$")->texts[0].View(), "&HFF");
  EXPECT_EQ(rig.Var("C#")->doubles[0], -150);
}

TEST(Data, AnEarlierItemSubscriptsNothingLater) {
  TMachineRig rig;  // the subscript of the second variable was computed before the first was read
  rig.Ref("I%").Int(-1).Load("I%");
  rig.code.mCodes.push_back(TVMCode(BPushVar).SetVar(rig.Var("A%")));
  rig.OpLong(Read, 2).OpText(Data, "3").OpText(Data, "9");
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("A%")->ints[1], 9);
}

int32_t read_int(std::string_view item) {
  TMachineRig rig;
  rig.Ref("A%").OpLong(Read, 1).OpText(Data, item);
  EXPECT_EQ(rig.Run(), 0);
  return rig.Var("A%")->ints[0];
}

TEST(Data, NumbersOfItems) {
  EXPECT_EQ(read_int("3.7"), 3);
  EXPECT_EQ(read_int("1E3"), 1);
  EXPECT_EQ(read_int("&HFF"), 255);
  EXPECT_EQ(read_int("&hfFg"), 255);
  EXPECT_EQ(read_int("&HFFFFFFFF"), -1);
  EXPECT_EQ(read_int("&O17"), 15);
  EXPECT_EQ(read_int("&o17A"), 15);
  EXPECT_EQ(read_int("&17"), 0);
  EXPECT_EQ(read_int("&"), 0);
  EXPECT_EQ(read_int("A"), 0);
  EXPECT_EQ(read_int(""), 0);
  EXPECT_EQ(read_int("3000000000"), INT32_MAX);
  EXPECT_EQ(read_int("-3000000000"), INT32_MIN);
}

TEST(Data, AnOctalItemWithAnEight) {
  TMachineRig rig;
  rig.Ref("A%").OpLong(Read, 1).OpText(Data, "&O18");
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

TEST(Data, PastTheLastItem) {
  TMachineRig rig;
  rig.OpText(Data, "1").Ref("A%").Ref("B%").OpLong(Read, 2);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Out_Of_Data@");
  EXPECT_EQ(rig.Var("A%")->ints[0], 1);
}

TEST(Data, RestoreGoesToTheNextItemBehindALine) {
  TMachineRig rig;
  rig.Line(10).OpText(Data, "1").Line(20).Int(0).Line(30).OpText(Data, "2");
  rig.Line(40).Int(20).OpBool(Restore, true).Ref("A%").OpLong(Read, 1);
  rig.OpBool(Restore, false).Ref("B%").OpLong(Read, 1);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("A%")->ints[0], 2);
  EXPECT_EQ(rig.Var("B%")->ints[0], 1);
}

TEST(Data, RestoreToALabelOrNothing) {
  TMachineRig rig;
  rig.OpText(Data, "1").Label("L").OpText(Data, "2");
  rig.Text("L").OpBool(Restore, true).Abbrev().OpBool(Restore, true);
  rig.Ref("A%").OpLong(Read, 1);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("A%")->ints[0], 2);
  TMachineRig missing;
  missing.Int(999).OpBool(Restore, true);
  EXPECT_EQ(missing.RunToFault(), "@Runtime_Err_Undefined_Line_Number@");
  TMachineRig label;
  label.Text("NONE").OpBool(Restore, true);
  EXPECT_EQ(label.RunToFault(), "@Runtime_Err_Undefined_Label@");
}

// --- DEF FN

/// Defines FNA(X!)=X!*2 behind the program.
void define_double(TMachineRig& rig) {
  TUserFuncInfo* info = rig.code.InsertUserFunc("FNA");
  info->label = "@L1";
  info->params = {"X!"};
  info->paramKinds = {ttSng};
  rig.Op(BExit).Label("@L1").OpLong(BLoadUserFuncParam, 0).Int(2).Op(BMulFloat);
  rig.Op(BRetFromUserFunc);
}

TEST(UserFunctions, AreCalledBeforeTheirDefinitionHasBeenPassed) {
  TMachineRig rig;
  rig.Int(100).Special().Int(21).OpText(BCallUserFunc, "FNA").Op(BAddInt);
  define_double(rig);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, 142);
}

TEST(UserFunctions, CallsAreRemembered) {
  TMachineRig rig;
  rig.Let("I%", 0).Label("LOOP");
  rig.Ref("I%").Load("I%").Int(1).Op(BAddInt).Assign();
  rig.Ref("S!").Load("S!").Special().Load("I%").OpText(BCallUserFunc, "FNA").Op(BAddFloat).Assign();
  rig.Text("LOOP").Load("I%").Int(10).Op(BGeInt).Op(BFJmp);
  define_double(rig);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("S!")->floats[0], 110.0f);
}

TEST(UserFunctions, CheckTheirArguments) {
  struct TCase {
    std::vector<std::string> arguments;
    const char* key;
  };
  const TCase cases[] = {{{"1", "2"}, "@Runtime_Err_Ill_Func_Call@"},
                         {{}, "@Runtime_Err_Ill_Func_Call@"},
                         {{"S"}, "@Runtime_Err_Type_Mismatch@"}};
  for (const TCase& c : cases) {
    TMachineRig rig;
    rig.Special();
    for (const std::string& argument : c.arguments) {
      if (argument == "S") {
        rig.Text(argument);
      } else {
        rig.Int(parse_long(argument));
      }
    }
    rig.OpText(BCallUserFunc, "FNA");
    define_double(rig);
    EXPECT_EQ(rig.RunToFault(), c.key);
  }
}

TEST(UserFunctions, Undefined) {
  TMachineRig rig;
  rig.Special().OpText(BCallUserFunc, "FNZ");
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Undefined_User_Func@");
}

TEST(UserFunctions, TextArgumentsComeBackWhole) {
  TMachineRig rig;
  TUserFuncInfo* info = rig.code.InsertUserFunc("FNB$");
  info->label = "@L2";
  info->params = {"X$", "Y!", "Z$"};
  rig.Special().Text("a").Text("b").Op(BAddString).Int(1).Text("c").OpText(BCallUserFunc, "FNB$");
  rig.Op(BExit).Label("@L2").OpLong(BLoadUserFuncParam, 0).OpLong(BLoadUserFuncParam, 2);
  rig.Op(BAddString).Op(BRetFromUserFunc);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.TextOf(rig.Value()), "abc");
}

TEST(UserFunctions, RecursionEndsInAnError) {
  TMachineRig rig;
  TUserFuncInfo* info = rig.code.InsertUserFunc("FNR");
  info->label = "@L3";
  info->params = {"X!"};
  rig.Special().Int(1).OpText(BCallUserFunc, "FNR").Op(BExit);
  rig.Label("@L3").Int(1).Special().OpLong(BLoadUserFuncParam, 0).OpText(BCallUserFunc, "FNR");
  rig.Op(BAddInt).Op(BRetFromUserFunc);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

TEST(UserFunctions, ParameterAndReturnOutsideOfACall) {
  TMachineRig parameter;
  parameter.OpLong(BLoadUserFuncParam, 0);
  EXPECT_EQ(parameter.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
  TMachineRig ret;
  ret.Op(BRetFromUserFunc);
  EXPECT_EQ(ret.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

// --- memory and ports

int32_t peek(int32_t segment, int32_t address, int32_t connections) {
  TMachineRig rig;
  rig.inputs.connections = connections;
  rig.Int(segment).Op(DefSeg).Int(address).Op(Peek);
  EXPECT_EQ(rig.Run(), 0);
  return rig.Value().lval;
}

TEST(Memory, OneByteTellsOfTheSoundBoard) {
  EXPECT_EQ(peek(0xA000, 0x3FEE, 1), 8);
  EXPECT_EQ(peek(0xA3FE, 0xE, 3), 8);
  EXPECT_EQ(peek(0, 0xA3FEE, 1), 8);
  EXPECT_EQ(peek(0xA000, 0x3FEE, 0), 0);
  EXPECT_EQ(peek(0xA000, 0x3FEF, 1), 0);
  EXPECT_EQ(peek(INT32_MAX, 0x3FEE, 1), 0);
}

TEST(Memory, NegativeSegments) {
  TMachineRig rig;
  rig.Int(-1).Op(DefSeg);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

int32_t inp(int32_t port, const std::set<uint8_t>& down = {}) {
  TMachineRig rig;
  rig.inputs.keysDown = down;
  rig.Int(port).Op(Inp);
  EXPECT_EQ(rig.Run(), 0);
  return rig.Value().lval;
}

TEST(Ports, KeysClearTheirBits) {
  EXPECT_EQ(inp(0xE0), 0xFF);
  EXPECT_EQ(inp(0xE0, {0x37}), 0x7F);
  EXPECT_EQ(inp(0xE0, {0x64, 0x4A}), 0xBE);
  EXPECT_EQ(inp(0xE1), 0xFF);
  EXPECT_EQ(inp(0xE1, {0x47}), 0x7F);
  EXPECT_EQ(inp(0xE1, {0x5B}), 0x7F);
  EXPECT_EQ(inp(0xE7), 0x7F);
  EXPECT_EQ(inp(0xEA, {0x26}), 0x7E);
  EXPECT_EQ(inp(0xEB, {0x21, 0x36}), 0xFC);
  EXPECT_EQ(inp(0xE8, {0x5C}), 0x7F);
  EXPECT_EQ(inp(0xE9, {0x5C}), 0xFE);
  EXPECT_EQ(inp(0xEC, {0x1F, 0x1E}), 0x7E);
  EXPECT_EQ(inp(0xED), 0);
  EXPECT_EQ(inp(0xDF), 0);
  EXPECT_EQ(inp(0), 0);
  EXPECT_EQ(inp(0x7FFF), 0);
}

TEST(Ports, Counters) {
  TMachineRig rig;
  rig.inputs.timeOffset = 0x34100 * 5 + 0x341 * 7 - 100;  // the poll itself takes 100
  rig.Int(0x5D).Op(Inp);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, (5 * 256 + 7) & 0xFF);
  TMachineRig slow;
  slow.inputs.timeOffset = 0x34100 * int64_t{259};
  slow.Int(0x5F).Op(Inp);
  EXPECT_EQ(slow.Run(), 0);
  EXPECT_EQ(slow.Value().lval, 3);
}

TEST(Ports, OutOfRange) {
  for (int32_t port : {0x8000, -1}) {
    TMachineRig rig;
    rig.Int(port).Op(Inp);
    EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
  }
}

TEST(Memory, ARunIsRefusedMoreThanItsShare) {
  TMachineRig rig;
  rig.memoryLimit = 1 << 20;
  dim(rig, "A#", {200000});
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Bad_Dimension@");
}

}  // namespace
}  // namespace zoka
