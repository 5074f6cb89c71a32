// The machine's life: loop, jumps, subroutines, errors, the end of a run.
#include <gtest/gtest.h>

#include "common/host_memory.h"
#include "tests/unit/vm/machine_rig.h"

namespace zoka {
namespace {

using enum TVMCodeCmd;

TEST(Machine, AnEmptyProgramPrintsOk) {
  TMachineRig rig;
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Screen(), "Ok");
  EXPECT_EQ(rig.host.endStatus, 0);
  EXPECT_TRUE(rig.alertLog.alerts.empty());
}

TEST(Machine, AnErrorShowsAnAlertAndTheLine) {
  TMachineRig rig;
  rig.Line(120).Op(Stop);
  EXPECT_EQ(rig.Run(), 1);
  ASSERT_EQ(rig.alertLog.alerts.size(), 1u);
  EXPECT_EQ(rig.alertLog.alerts[0].text,
            "Runtime Error\n\n@Runtime_Err_Stop_Break@.\n\nLine: 120\n");
  EXPECT_EQ(rig.alertLog.alerts[0].title, "* Zoka-BASIC *");
  EXPECT_EQ(rig.alertLog.alerts[0].buttons, std::vector<std::string>{"Understand(U)"});
  EXPECT_EQ(rig.Screen(), "@Runtime_Err_Stop_Break@ in 120\nOk");
}

TEST(Machine, AnErrorBeforeTheFirstLineNamesLineZeroOnTheScreenOnly) {
  TMachineRig rig;
  rig.Op(Stop);
  EXPECT_EQ(rig.Run(), 1);
  EXPECT_EQ(rig.alertLog.alerts[0].text, "Runtime Error\n\n@Runtime_Err_Stop_Break@.\n\n");
  EXPECT_EQ(rig.Screen(), "@Runtime_Err_Stop_Break@ in 0\nOk");
}

TEST(Machine, OperationsWithoutHandlerAreIllegalCalls) {
  for (uint32_t number : {0x80u, 0x1057u, 0xFF82u, 0u, 0xFFFFu}) {
    TMachineRig rig;
    rig.code.mCodes.emplace_back(static_cast<TVMCodeCmd>(number));
    EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@") << number;
  }
}

TEST(Machine, EmptyRowsDoNothing) {
  TMachineRig rig;
  for (TVMCodeCmd cmd : {BSubString, BDivInt, BPowInt, BTJmp, Goto, Let, Return, BEqvString}) {
    rig.Int(5).Op(cmd);
  }
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Values().size(), 8u);
}

TEST(Machine, PopOfAnEmptyStackIsAnIllegalCall) {
  TMachineRig rig;
  rig.Int(1).Op(BAddInt);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

TEST(Machine, StartsAtALine) {
  TMachineRig rig;
  rig.Line(10).Int(1).Line(20).Int(2);
  TMessage start;
  start.AddInt32("LineNum", 20);
  EXPECT_TRUE(rig.Machine().SetStartPos(start));
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, 2);
}

TEST(Machine, StartsAtALabel) {
  TMachineRig rig;
  rig.Line(10).Int(1).Label("THERE").Int(2);
  TMessage start;
  start.AddString("Label", "THERE");
  rig.Machine().SetStartPos(start);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, 2);
}

TEST(Machine, AWrongStartIsARuntimeErrorOfTheRun) {
  TMachineRig rig;
  rig.Line(10);
  TMessage start;
  start.AddInt32("LineNum", 999);
  EXPECT_TRUE(rig.Machine().SetStartPos(start));
  EXPECT_EQ(rig.Run(), 1);
  EXPECT_EQ(rig.alertLog.alerts[0].text,
            "Runtime Error\n\n@Runtime_Err_Undefined_Line_Number@.\n\n");
  EXPECT_EQ(rig.Screen(), "@Runtime_Err_Undefined_Line_Number@ in 0\nOk");
}

TEST(Machine, AWrongStartLabel) {
  TMachineRig rig;
  TMessage start;
  start.AddString("Label", "NONE");
  rig.Machine().SetStartPos(start);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Undefined_Label@");
}

TEST(Jumps, ToLinesOfAnyNumericKindAndToLabels) {
  TMachineRig rig;
  rig.Line(10).Float(19.6f).Op(BJmp).Int(1);
  rig.Line(20).Double(30.4).Op(BJmp).Int(2);
  rig.Line(30).Text("HERE").Op(BJmp).Int(3);
  rig.Label("HERE").Line(40).Int(4);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, 4);
}

TEST(Jumps, OtherKindsFallThrough) {
  TMachineRig rig;
  rig.Abbrev().Op(BJmp).Special().Op(BJmp).OpBool(BPushBool, true).Op(BJmp).Int(7);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, 7);
}

TEST(Jumps, ToMissingLinesFailWhenTheyRunAndLeaveAZeroEntry) {
  TMachineRig rig;
  rig.Line(10).Goto(999);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Undefined_Line_Number@");
  int entries = 0;
  rig.code.EnumerateLines([&](int32_t, int32_t) { ++entries; });
  EXPECT_EQ(entries, 1);
}

TEST(Jumps, ToMissingLabels) {
  TMachineRig rig;
  rig.Text("NOWHERE").Op(BJmp);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Undefined_Label@");
}

// One instruction meets several targets: what it remembers is the last one only.
TEST(Jumps, AComputedTargetIsLookedUpAnew) {
  TMachineRig rig;
  rig.Line(10).Let("L%", 30);
  rig.Line(20).Load("L%").Op(BJmp);
  rig.Line(30).Let("L%", 40).Int(1).Goto(20);
  rig.Line(40).Int(2);
  EXPECT_EQ(rig.Run(), 0);
  const auto values = rig.Values();
  ASSERT_EQ(values.size(), 2u);
  EXPECT_EQ(values[0].lval, 1);
  EXPECT_EQ(values[1].lval, 2);
}

TEST(Jumps, ATextTargetIsLookedUpByItsText) {
  TMachineRig rig;
  rig.Ref("L$").Text("A").Assign();
  rig.Label("LOOP").Load("L$").Text("X").Op(BAddString).Op(BJmp);
  rig.Label("AX").Int(1).Ref("L$").Text("B").Assign().Text("LOOP").Op(BJmp);
  rig.Label("BX").Int(2);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Values().size(), 2u);
}

TEST(Jumps, ConditionsRoundToIntegers) {
  struct TCase {
    float condition;
    bool jumps;
  };
  for (const TCase& c : {TCase{0.4f, true}, TCase{0.5f, false}, TCase{-0.5f, true},
                         TCase{-0.6f, false}, TCase{0, true}, TCase{-1, false}}) {
    TMachineRig rig;
    rig.Text("END").Float(c.condition).Op(BFJmp).Int(1).Label("END");
    EXPECT_EQ(rig.Run(), 0);
    EXPECT_EQ(rig.Values().size(), c.jumps ? 0u : 1u) << c.condition;
  }
}

TEST(Jumps, AConditionThatIsNoNumberIsFalse) {
  TMachineRig rig;
  rig.Text("END").Text("X").Op(BFJmp).Int(1).Label("END");
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Values().size(), 0u);
}

TEST(Subroutines, ReturnGoesBehindTheCall) {
  TMachineRig rig;
  rig.Line(10).Gosub(100).Int(2).Op(BExit);
  rig.Line(100).Int(1).Int(55).Return();  // what lies above the record is dropped
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, 2);
}

TEST(Subroutines, ReturnWithoutGosub) {
  TMachineRig rig;
  rig.Int(1).Return();
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Return_Without_Gosub@");
}

TEST(Subroutines, ReturnToATargetNeedsNoRecordAndLeavesIt) {
  TMachineRig rig;
  rig.Line(10).Gosub(100);
  rig.Line(20).Int(1).Op(BExit);
  rig.Line(100).Int(20).OpBool(BRet, false);
  EXPECT_EQ(rig.Run(), 0);
  const auto values = rig.Values();
  ASSERT_EQ(values.size(), 2u);
  EXPECT_EQ(values[0].kind, TStackKind::Return);
  TMachineRig bare;
  bare.Line(10).Int(30).OpBool(BRet, false).Line(20).Int(1).Line(30).Int(2);
  EXPECT_EQ(bare.Run(), 0);
  EXPECT_EQ(bare.Value().lval, 2);
}

TEST(Subroutines, EndlessGosubEndsInAnErrorNotInTheHostsMemory) {
  TMachineRig rig;
  rig.Line(10).Gosub(10);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

std::vector<int32_t> run_on(TVMCodeCmd cmd, float selector) {
  TMachineRig rig;
  rig.Line(10).Float(selector).Int(100).Abbrev().Int(300).OpLong(cmd, 3).Int(0).Op(BExit);
  rig.Line(100).Int(1).Op(BExit).Line(300).Int(3);
  EXPECT_EQ(rig.Run(), 0);
  std::vector<int32_t> numbers;
  for (const TStackData& value : rig.Values()) {
    numbers.push_back(value.kind == TStackKind::Return ? -9 : value.lval);
  }
  return numbers;
}

TEST(OnGoto, SelectsOrFallsThrough) {
  EXPECT_EQ(run_on(OnGoto, 1), std::vector<int32_t>{1});
  EXPECT_EQ(run_on(OnGoto, 2.6f), std::vector<int32_t>{3});
  EXPECT_EQ(run_on(OnGoto, 0), std::vector<int32_t>{0});
  EXPECT_EQ(run_on(OnGoto, 4), std::vector<int32_t>{0});
  EXPECT_EQ(run_on(OnGoto, 2), std::vector<int32_t>{0});
  EXPECT_EQ(run_on(OnGoto, -0.4f), std::vector<int32_t>{0});
  EXPECT_EQ(run_on(OnGosub, 3), (std::vector<int32_t>{-9, 3}));
  EXPECT_EQ(run_on(OnGosub, 2), std::vector<int32_t>{0});
}

TEST(OnGoto, NegativeSelectorsAreIllegalCalls) {
  TMachineRig rig;
  rig.Line(10).Int(-1).Int(10).OpLong(OnGoto, 1);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

TEST(For, TheTestLooksAtTheStepsSign) {
  struct TCase {
    double current, limit, step;
    int32_t flag;
  };
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const TCase& c :
       {TCase{1, 3, 1, -1}, TCase{3, 3, 1, -1}, TCase{4, 3, 1, 0}, TCase{3, 3, 0, -1},
        TCase{4, 3, 0, 0}, TCase{1, 3, -1, 0}, TCase{3, 3, -1, -1}, TCase{4, 3, -1, -1},
        TCase{4, 3, nan, -1}, TCase{1, 3, nan, 0}, TCase{nan, 3, 1, 0}}) {
    TMachineRig rig;
    rig.Double(c.current).Double(c.limit).Double(c.step).Op(BCmpFor);
    EXPECT_EQ(rig.Run(), 0);
    const TStackData value = rig.Value();
    EXPECT_EQ(value.kind, TStackKind::Int);
    EXPECT_EQ(value.lval, c.flag) << c.current << " " << c.limit << " " << c.step;
  }
}

TEST(Run, RequestsARunAfterTheLoopAndEndsThisOne) {
  TMachineRig rig;
  rig.Line(10).OpBool(RunCur, false).Op(Stop);
  EXPECT_EQ(rig.Run(), 0);
  ASSERT_EQ(rig.host.requests.size(), 1u);
  EXPECT_EQ(rig.host.requests[0].what, 0x766D7272u);
  EXPECT_TRUE(rig.host.requests[0].IsEmpty());
  EXPECT_EQ(rig.Screen(), "Ok");
}

TEST(Run, CarriesTheStart) {
  TMachineRig line;
  line.Float(99.5f).OpBool(RunCur, true);
  line.Run();
  int32_t number = 0;
  EXPECT_TRUE(line.host.requests.at(0).FindInt32("LineNum", &number));
  EXPECT_EQ(number, 100);
  TMachineRig label;
  label.Text("AB").OpBool(RunCur, true);
  label.Run();
  std::string name;
  EXPECT_TRUE(label.host.requests.at(0).FindString("Label", &name));
  EXPECT_EQ(name, "AB");
}

TEST(Run, NothingIsSentOrPrintedWhenTheApplicationQuits) {
  TMachineRig rig;
  rig.context.privacy.quitting = true;
  rig.OpBool(RunCur, false);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_TRUE(rig.host.requests.empty());
  EXPECT_EQ(rig.Screen(), "");
}

TEST(RepeatRun, ARunHasOneSuccessor) {
  TMachineRig plain;
  plain.inputs.repeats = true;
  plain.Run();
  ASSERT_EQ(plain.host.requests.size(), 1u);
  bool notFore = false;
  EXPECT_TRUE(plain.host.requests[0].FindBool("NotFore", &notFore));
  EXPECT_TRUE(notFore);

  TMachineRig own;
  own.inputs.repeats = true;
  own.OpBool(RunCur, false);
  own.Run();
  EXPECT_EQ(own.host.requests.size(), 1u);

  TMachineRig failed;
  failed.inputs.repeats = true;
  failed.Op(Stop);
  failed.Run();
  EXPECT_TRUE(failed.host.requests.empty());

  TMachineRig killed;
  killed.inputs.repeats = true;
  killed.context.privacy.killed = true;
  killed.Run();
  EXPECT_TRUE(killed.host.requests.empty());
}

TEST(Stop, AForcedStopShowsNoAlert) {
  TMachineRig rig;
  rig.Line(10).Goto(10);
  rig.Machine().Terminate();
  EXPECT_EQ(rig.Run(), 1);
  EXPECT_TRUE(rig.alertLog.alerts.empty());
  EXPECT_EQ(rig.Screen(), "@Runtime_Err_Stop_Break@ in 0\nOk");
}

TEST(Stop, TheBreakKeyIsAForcedStopThroughThePort) {
  TMachineRig rig;
  rig.Line(10).Goto(10);
  rig.Machine().HappenInterrupt(IR_STOP_KEY);
  EXPECT_TRUE(rig.Machine().IsTerminated());
  EXPECT_EQ(rig.Run(), 1);
}

TEST(Stop, ThePortOutlivesTheMachine) {
  TMachineRig rig;
  const std::shared_ptr<TInterruptPort> port = rig.Machine().Port();
  rig.machine.reset();
  port->Terminate();
  port->HappenInterrupt(IR_STOP_KEY);
  EXPECT_TRUE(port->mStopped);
}

TEST(Time, SleepWaitsOnTheClockAfterShowingTheOutput) {
  TMachineRig rig;
  rig.Int(1500).Op(XSleep);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.clock->system_time(), 1'500'000);
  EXPECT_EQ(rig.host.flushes, 1);
}

TEST(Time, SleepOfTheGreatestCountDoesNotOverflow) {
  TMachineRig rig;
  rig.Int(INT32_MAX).Op(XSleep);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.clock->system_time(), int64_t{INT32_MAX} * 1000);
}

TEST(Time, InkeyDoesNotWait) {
  TMachineRig rig;
  rig.Op(InkeyDl);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.TextOf(rig.Value()), "");
  EXPECT_EQ(rig.inputs.timeouts, std::vector<bigtime_t>{0});
}

TEST(Time, NegativeSleepIsAnIllegalCall) {
  TMachineRig rig;
  rig.Int(-1).Op(XSleep);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

TEST(Time, AStoppedMachineDoesNotSleep) {
  TMachineRig rig;
  rig.Int(100000).Op(XSleep);
  rig.Machine().Terminate();
  EXPECT_EQ(rig.Run(), 1);
  EXPECT_EQ(rig.clock->system_time(), 0);
}

TEST(Time, SystemTimeIsMillisecondsAndAPoll) {
  TMachineRig rig;
  rig.inputs.timeOffset = 5'000'000'000'000;  // 5,000,000,000 ms: the low 32 bits count
  rig.Op(XSystemtime);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, static_cast<int32_t>(5'000'000'000 - (1LL << 32)));
  EXPECT_EQ(rig.clock->system_time(), 100);
}

TEST(Time, LongRunsLetSimulatedTimePass) {
  TMachineRig rig;
  // 200,000 rounds of one jump each: three times 65,536.
  rig.Let("I#", 0).Label("LOOP").Ref("I#").Load("I#").Int(1).Op(BAddDouble).Assign();
  rig.Text("LOOP").Load("I#").Double(199999.5).Op(BGtDouble).Op(BFJmp);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.machine->Jumps(), 199'999u);
  EXPECT_EQ(rig.clock->system_time(), 300);
}

TEST(Version, IsTheApplications) {
  TMachineRig rig;
  rig.Op(XZokaversionDl);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.TextOf(rig.Value()), APP_VERSION);
}

TEST(Memory, ARunMayTakeHalfOfWhatIsFree) {
  const auto freeBytes = static_cast<double>(available_memory_kbytes().value_or(0)) * 1024;
  ASSERT_GT(freeBytes, 0);
  // Nobody takes or gives a tenth of it meanwhile.
  EXPECT_NEAR(static_cast<double>(default_memory_limit()) / freeBytes, 0.5, 0.05);
}

TEST(KeyStatement, ReplacesAFunctionKeysText) {
  TMachineRig rig;
  rig.Int(10).Text("abc").Op(Key);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.rsrc.FuncKeyStr(9), "abc");
}

TEST(KeyStatement, ChecksTheNumberThenTheText) {
  for (int32_t number : {0, 11, -1}) {
    TMachineRig rig;
    rig.Int(number).Int(5).Op(Key);
    EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
  }
  TMachineRig rig;
  rig.Int(1).Int(5).Op(Key);
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Type_Mismatch@");
}

}  // namespace
}  // namespace zoka
