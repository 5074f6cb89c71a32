// Events: the decision as a table, the port, traps in a running program, the speed control.
#include <gtest/gtest.h>

#include "tests/unit/vm/machine_rig.h"

namespace zoka {
namespace {

using enum TVMCodeCmd;

TEST(JudgeInterrupt, AllCases) {
  using enum TIrVerdict;
  struct TCase {
    uint32_t mask;
    TIrState state;
    bool hasTarget;
    TIrVerdict verdict;
  };
  const TCase cases[] = {
      {IR_STOP_KEY, TIrState::Off, false, Terminate},
      {IR_STOP_KEY, TIrState::Stop, false, Terminate},
      {IR_STOP_KEY, TIrState::On, false, Terminate},
      {IR_STOP_KEY, TIrState::Off, true, Terminate},
      {IR_STOP_KEY, TIrState::Stop, true, Held},
      {IR_STOP_KEY, TIrState::On, true, Pending},
      {IR_KEY_1, TIrState::Off, false, Ignored},
      {IR_KEY_1, TIrState::Stop, false, Ignored},
      {IR_KEY_1, TIrState::On, false, Ignored},
      {IR_KEY_1, TIrState::Off, true, Ignored},
      {IR_KEY_1, TIrState::Stop, true, Held},
      {IR_KEY_1, TIrState::On, true, Pending},
      {IR_TIME, TIrState::On, true, Pending},
      {IR_SPEED_CONTROL, TIrState::On, true, Pending},
  };
  for (const TCase& c : cases) {
    EXPECT_EQ(judge_interrupt(c.mask, c.state, c.hasTarget), c.verdict)
        << c.mask << " " << static_cast<int>(c.state) << " " << c.hasTarget;
  }
}

TEST(NumShifts, IsTheLowestSetBit) {
  EXPECT_EQ(num_shifts(0), -1);
  EXPECT_EQ(num_shifts(1), 0);
  EXPECT_EQ(num_shifts(0x40), 6);
  EXPECT_EQ(num_shifts(0x2000000), 25);
  EXPECT_EQ(num_shifts(0x48), 3);
  EXPECT_EQ(num_shifts(0x80000000), 31);
}

TEST(InterruptPort, StartsWithAllTrapsOffButTheSpeedControl) {
  TInterruptPort port;
  for (int slot = 0; slot < IR_SLOT_COUNT; ++slot) {
    port.HappenInterrupt(slot == 3 ? 0 : 1u << slot);
  }
  port.TurnOnInterrupt(0);
  EXPECT_EQ(port.mIrFlags, IR_SPEED_CONTROL);
  port.UnhappenInterrupt(IR_SPEED_CONTROL);
  EXPECT_EQ(port.mIrFlags, 0u);
  EXPECT_FALSE(port.mStopped);
}

TEST(InterruptPort, AHeldEventFiresWhenItIsTurnedOn) {
  TInterruptPort port;
  port.mHasTarget |= IR_TIME;
  port.mIrStates[5] = TIrState::Stop;
  port.HappenInterrupt(IR_TIME);
  EXPECT_EQ(port.mIrFlags, 0u);
  EXPECT_EQ(port.mIrMask, IR_TIME);
  port.mIrStates[5] = TIrState::Off;  // what is held stays held
  port.HappenInterrupt(IR_TIME);      // and this one is lost
  EXPECT_EQ(port.mIrMask, IR_TIME);
  port.TurnOnInterrupt(IR_TIME);
  EXPECT_EQ(port.mIrFlags, IR_TIME);
  EXPECT_EQ(port.mIrMask, 0u);
  EXPECT_EQ(port.mIrStates[5], TIrState::On);
}

TEST(InterruptPort, TheStopFunctionIsCalledWhileItIsThere) {
  TInterruptPort port;
  int calls = 0;
  port.SetStop([&] { ++calls; });
  port.Terminate();
  port.SetStop(nullptr);
  port.Terminate();
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(port.mIrFlags, IR_FORCED_STOP);
}

/// ON KEY GOSUB with `targets` for the ten keys; 0 leaves one out.
void on_key(TMachineRig& rig, std::vector<int32_t> targets) {
  targets.resize(10);
  for (int32_t line : targets) {
    if (line == 0) {
      rig.Abbrev();
    } else {
      rig.Int(line);
    }
  }
  rig.OpLong(SetIrTgt, IR_KEY_1);
}

void set_state(TMachineRig& rig, int32_t event, TIrState state) {
  rig.Int(event).Int(static_cast<int32_t>(state)).Op(SetIrState);
}

TEST(Traps, TargetsThatAreLeftOutStay) {
  TMachineRig rig;
  on_key(rig, {0, 200, 300});
  on_key(rig, {0, 0, 100});
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.machine->mIrTargets[6].kind, TStackKind::Gap);
  EXPECT_EQ(rig.machine->mIrTargets[7].lval, 200);
  EXPECT_EQ(rig.machine->mIrTargets[8].lval, 100);
  EXPECT_EQ(rig.machine->Port()->mHasTarget, IR_SPEED_CONTROL | 0x180u);
}

TEST(Traps, AnEventWithoutTargetIsIgnored) {
  TMachineRig rig;
  set_state(rig, 0x41, TIrState::On);
  EXPECT_EQ(rig.Run(), 0);
  rig.machine->HappenInterrupt(IR_KEY_1);
  EXPECT_EQ(rig.machine->Port()->mIrFlags, 0u);
}

/// The states that `event` with ON leaves switched on, as a mask.
uint32_t switched_on(int32_t event) {
  TMachineRig rig;
  set_state(rig, event, TIrState::On);
  EXPECT_EQ(rig.Run(), 0);
  uint32_t mask = 0;
  for (int slot = 0; slot < IR_SLOT_COUNT; ++slot) {
    if (rig.machine->Port()->mIrStates[slot] == TIrState::On) mask |= 1u << slot;
  }
  return mask & ~static_cast<uint32_t>(IR_SPEED_CONTROL);
}

TEST(SetIrState, EventsByNumberAndByMask) {
  EXPECT_EQ(switched_on(0x41), 0x40u);
  EXPECT_EQ(switched_on(0x40), 0x40u);  // KEY(0) is the mask of key 1
  EXPECT_EQ(switched_on(0x4A), 0x8000u);
  EXPECT_EQ(switched_on(0x200001), 0x200000u);
  EXPECT_EQ(switched_on(0x200005), 0x2000000u);
  EXPECT_EQ(switched_on(8), 8u);
  EXPECT_EQ(switched_on(0x20), 0x20u);
  EXPECT_EQ(switched_on(0x40000), 0x40000u);
  EXPECT_EQ(switched_on(0x200000), 0x200000u);
  EXPECT_EQ(switched_on(0x400000), 0x400000u);
}

TEST(SetIrState, WhatIsNoSingleEventIsIgnored) {
  for (int32_t event : {0x4B, 0x40 + 33, 0x40 + 40, 0x3F, 0, 1, 2, 4, 0x18, -1, 0x200006, 0x3FFFFF,
                        0xFFFF, INT32_MIN, 0x1FFFFF}) {
    EXPECT_EQ(switched_on(event), 0u) << event;
    TMachineRig rig;
    set_state(rig, event, TIrState::Stop);
    EXPECT_EQ(rig.Run(), 0);
    EXPECT_EQ(rig.machine->Port()->mIrMask, 0u) << event;
  }
}

TEST(SetIrState, OtherStatesAreIgnored) {
  for (int32_t state : {3, -1, 100}) {
    TMachineRig rig;
    set_state(rig, 0x41, TIrState::On);
    rig.Int(0x41).Int(state).Op(SetIrState);
    EXPECT_EQ(rig.Run(), 0);
    EXPECT_EQ(rig.machine->Port()->mIrStates[6], TIrState::On);
  }
}

TEST(Traps, ThePendingOnesAreEnteredLowestFirstTheLaterNestedInside) {
  TMachineRig rig;
  on_key(rig, {100, 200});
  set_state(rig, 0x41, TIrState::On);
  set_state(rig, 0x42, TIrState::On);
  rig.Line(10).Int(0).Op(BExit);
  rig.Line(100).Ref("A%").Load("A%").Int(10).Op(BMulInt).Int(1).Op(BAddInt).Assign().Return();
  rig.Line(200).Ref("A%").Load("A%").Int(10).Op(BMulInt).Int(2).Op(BAddInt).Assign().Return();
  // Both are pending when the program begins; targets are set by hand as the program will.
  TVMachine& machine = rig.Machine();
  machine.mIrTargets[6] = TStackData::Of(100);
  machine.mIrTargets[7] = TStackData::Of(200);
  machine.Port()->mHasTarget |= 0xC0;
  machine.Port()->mIrStates[6] = machine.Port()->mIrStates[7] = TIrState::On;
  machine.HappenInterrupt(IR_KEY_1 << 1);
  machine.HappenInterrupt(IR_KEY_1);
  EXPECT_EQ(rig.Run(), 0);
  // Key 1 is entered, then key 2 at its first instruction: 2 comes before 1.
  EXPECT_EQ(rig.Var("A%")->ints[0], 21);
  EXPECT_EQ(rig.machine->Port()->mIrStates[6], TIrState::On);
  EXPECT_TRUE(rig.machine->mIrStack.empty());
  EXPECT_EQ(rig.Value().lval, 0);
}

/// A machine with a trap for key 1 at line 100 that is on and pending at the start.
void arm(TMachineRig& rig, const TStackData& target) {
  TVMachine& machine = rig.Machine();
  machine.mIrTargets[6] = target;
  machine.Port()->mHasTarget |= IR_KEY_1;
  machine.Port()->mIrStates[6] = TIrState::On;
  machine.HappenInterrupt(IR_KEY_1);
}

TEST(Traps, TheInstructionThatWasDueRunsOnReturn) {
  TMachineRig rig;
  rig.Int(7).Op(BExit).Line(100).Int(5).Return();
  arm(rig, TStackData::Of(100));
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, 7);
  EXPECT_EQ(rig.machine->Port()->mIrFlags, 0u);
}

TEST(Traps, AnEventDuringItsTrapIsHeldAndFiresAfterReturn) {
  TMachineRig rig;
  // The trap counts; while it runs for the first time its event is marked as held.
  rig.Line(10).Int(0).Int(0).Op(BExit);
  rig.Line(100).Ref("A%").Load("A%").Int(1).Op(BAddInt).Assign().Return();
  arm(rig, TStackData::Of(100));
  rig.machine->Port()->mIrMask |= IR_KEY_1;
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("A%")->ints[0], 2);
  EXPECT_EQ(rig.machine->Port()->mIrStates[6], TIrState::On);
}

TEST(Traps, ReturnToALineLeavesTheTrapStopped) {
  TMachineRig rig;
  rig.Line(10).Int(0).Line(20).Int(1).Op(BExit);
  rig.Line(100).Int(20).OpBool(BRet, false);
  arm(rig, TStackData::Of(100));
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.machine->Port()->mIrStates[6], TIrState::Stop);
  EXPECT_EQ(rig.machine->mIrStack.size(), 1u);
  const auto values = rig.Values();
  ASSERT_EQ(values.size(), 2u);
  EXPECT_EQ(values[0].kind, TStackKind::Return);
}

TEST(Traps, GosubsInsideATrapDoNotEndIt) {
  TMachineRig rig;
  rig.Int(0).Op(BExit);
  rig.Line(100).Gosub(200).Let("B%", 1).Return();
  rig.Line(200).Int(9).Return();
  arm(rig, TStackData::Of(100));
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Var("B%")->ints[0], 1);
  EXPECT_EQ(rig.machine->Port()->mIrStates[6], TIrState::On);
}

TEST(Traps, ATrapIsRearmedThoughTheStackHasForgottenValues) {
  TMachineRig rig;
  // 40,000 values left behind before and inside the trap.
  rig.Let("I%", 0).Label("A").Ref("I%").Load("I%").Int(1).Op(BAddInt).Assign().Int(0);
  rig.Text("A").Load("I%").Int(40000).Op(BGeInt).Op(BFJmp).Op(BExit);
  rig.Line(100).Let("J%", 0).Label("B").Ref("J%").Load("J%").Int(1).Op(BAddInt).Assign().Int(0);
  rig.Text("B").Load("J%").Int(40000).Op(BGeInt).Op(BFJmp).Return();
  arm(rig, TStackData::Of(100));
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.machine->Port()->mIrStates[6], TIrState::On);
  EXPECT_TRUE(rig.machine->mIrStack.empty());
  EXPECT_EQ(rig.machine->Stack().Depth(), 40000);
}

TEST(Traps, AnUndefinedTargetFailsWhenItIsEntered) {
  TMachineRig rig;
  rig.Line(10).Int(0);
  arm(rig, TStackData::Of(999));
  EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Undefined_Line_Number@");
}

TEST(Traps, ATargetThatIsNoneEntersNothing) {
  TMachineRig rig;
  rig.Int(7);
  arm(rig, TStackData::Of(5, TStackKind::Special));
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.Value().lval, 7);
  EXPECT_TRUE(rig.machine->mIrStack.empty());
}

TEST(Traps, AMouseTargetGoesToItsEvent) {
  for (int32_t number = 1; number <= 5; ++number) {
    TMachineRig rig;
    rig.Int(number).Int(100).OpLong(SetIrTgt, IR_MOUSE_MOVED);
    EXPECT_EQ(rig.Run(), 0);
    EXPECT_EQ(rig.machine->mIrTargets[20 + number].lval, 100);
    EXPECT_EQ(rig.machine->Port()->mHasTarget, IR_SPEED_CONTROL | 0x100000u << number);
  }
  for (int32_t number : {0, 6, -1}) {
    TMachineRig rig;
    rig.Int(number).Int(100).OpLong(SetIrTgt, IR_MOUSE_MOVED);
    EXPECT_EQ(rig.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
  }
}

/// The screen's owner as far as ON TIME$ needs one.
class TTimeOwner final : public TScreenOwner {
 public:
  void UpdateScreenRqtd() override {}
  int32_t SetOnTimeDl(const char* hhmmss) override {
    times.emplace_back(hhmmss);
    return times.back() == "12:34:56" ? 0 : -1;
  }
  void SetFDDAccessLamp(int32_t, int32_t) override {}
  void TranscriptRow(const std::string&) override {}
  void KeyWaitBegins(bigtime_t) override {}
  void KeyBufHasRoom() override {}
  std::vector<std::string> times;
};

TEST(Traps, OnTimeArmsTheAlarm) {
  TTimeOwner owner;
  TMachineRig rig;
  rig.rsrc.SetOwner(&owner);
  rig.Text("12:34:56").Int(100).OpLong(SetIrTgt, IR_TIME);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(owner.times, std::vector<std::string>{"12:34:56"});
  EXPECT_EQ(rig.machine->mIrTargets[5].lval, 100);
  TMachineRig wrong;
  wrong.rsrc.SetOwner(&owner);
  wrong.Text("25:00:00").Int(100).OpLong(SetIrTgt, IR_TIME);
  EXPECT_EQ(wrong.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

TEST(Traps, OnPlayChecksItsChannel) {
  TMachineRig rig;
  rig.Int(6).Abbrev().Int(100).OpLong(SetIrTgt, IR_PLAY);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.machine->mIrTargets[18].lval, 100);
  TMachineRig wrong;
  wrong.Int(7).Int(0).Int(100).OpLong(SetIrTgt, IR_PLAY);
  EXPECT_EQ(wrong.RunToFault(), "@Runtime_Err_Ill_Func_Call@");
}

TEST(Traps, ATextTargetOutlivesItsVariable) {
  TMachineRig rig;
  rig.Ref("L$").Text("T").Text("RAP").Op(BAddString).Assign();
  rig.Load("L$").OpLong(SetIrTgt, IR_STOP_KEY).Ref("L$").Text("X").Assign();
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.TextOf(rig.machine->mIrTargets[3]), "TRAP");
}

TEST(Break, IsAForcedStopUnlessTheTrapIsOnOrStopped) {
  for (const TIrState state : {TIrState::Off, TIrState::Stop, TIrState::On}) {
    TMachineRig rig;
    rig.Int(100).OpLong(SetIrTgt, IR_STOP_KEY);
    set_state(rig, 8, state);
    EXPECT_EQ(rig.Run(), 0);
    rig.machine->HappenInterrupt(IR_STOP_KEY);
    EXPECT_EQ(rig.machine->IsTerminated(), state == TIrState::Off);
  }
}

TEST(Break, TheForcedStopComesBeforeAllTraps) {
  TMachineRig rig;
  rig.Line(10).Goto(10).Line(100).Let("A%", 1).Return();
  arm(rig, TStackData::Of(100));
  rig.machine->Port()->Terminate();
  EXPECT_EQ(rig.Run(), 1);
  EXPECT_EQ(rig.Var("A%")->ints[0], 0);
  EXPECT_TRUE(rig.alertLog.alerts.empty());
}

TEST(SpeedControl, WaitsOncePerStatement) {
  for (const bigtime_t interval : {500, 20'000, 1'000'000}) {
    TMachineRig rig;
    rig.inputs.interval = interval;
    rig.Line(10).Int(1).Int(2).Op(BAddInt);
    rig.Line(20).Int(3);
    rig.Machine().HappenInterrupt(IR_SPEED_CONTROL);
    EXPECT_EQ(rig.Run(), 0);
    EXPECT_EQ(rig.clock->system_time(), 2 * interval);
    EXPECT_EQ(rig.machine->Port()->mIrFlags, IR_SPEED_CONTROL);
  }
}

TEST(SpeedControl, GoesWhenItIsSwitchedOff) {
  TMachineRig rig;
  rig.Line(10).Int(1);
  rig.Machine().HappenInterrupt(IR_SPEED_CONTROL);
  rig.machine->Port()->UnhappenInterrupt(IR_SPEED_CONTROL);
  EXPECT_EQ(rig.Run(), 0);
  EXPECT_EQ(rig.clock->system_time(), 0);
}

// --- the mouse's state

TEST(MouseState, PositionsAreRoundedScaledAndKeptInRange) {
  TMouseState mouse;
  mouse.SetMousePosCurrent({10.5f, 101}, 2);
  EXPECT_EQ(mouse.MousePosCurrentX(), 11);
  EXPECT_EQ(mouse.MousePosCurrentY(), 51);
  mouse.SetMousePosCurrent({-5, 5000}, 1);
  EXPECT_EQ(mouse.MousePosCurrentX(), 0);
  EXPECT_EQ(mouse.MousePosCurrentY(), 399);
  mouse.SetMouseMaxY(199);
  EXPECT_EQ(mouse.MousePosCurrentY(), 199);
}

TEST(MouseState, RangesAreSorted) {
  TMouseState mouse;
  mouse.SetMouseRangeX(100, 50);
  mouse.SetMousePosCurrent({10, 0}, 1);
  EXPECT_EQ(mouse.MousePosCurrentX(), 50);
  mouse.SetMousePosCurrent({400, 0}, 1);
  EXPECT_EQ(mouse.MousePosCurrentX(), 100);
}

TEST(InterruptPort, ShowsThatItsMachineIsToStop) {
  TMachineRig rig;
  const std::shared_ptr<TInterruptPort> port = rig.Machine().Port();
  EXPECT_FALSE(port->mStopped);
  rig.Machine().Terminate();  // as the destructor does, without the port
  EXPECT_TRUE(port->mStopped);
}

TEST(MouseState, DistancesCountFromTheRangesEdge) {
  TMouseState mouse;
  mouse.SetMousePosCurrent({700, 20}, 1);
  EXPECT_EQ(mouse.MouseDistanceX(), 639);
  mouse.SetMousePosCurrent({600, 30}, 1);
  EXPECT_EQ(mouse.MouseDistanceX(), -39);
  EXPECT_EQ(mouse.MouseDistanceX(), 0);
  EXPECT_EQ(mouse.MouseDistanceY(), 30);  // independent of X
}

TEST(MouseState, ClicksAreDeliveredOnce) {
  TMouseState mouse;
  mouse.SetMouseButtonLeftState(-1, {5, 300});
  mouse.SetMouseButtonLeftState(0, {6, 301});
  mouse.SetMouseButtonLeftState(-1, {7, 302});
  mouse.SetMouseButtonRightState(-1, {8, 303});
  EXPECT_EQ(mouse.MouseButtonLeftState(), -1);
  EXPECT_EQ(mouse.Read(TMouseRead::LeftDowns), 2);
  EXPECT_EQ(mouse.Read(TMouseRead::LeftDowns), 0);
  EXPECT_EQ(mouse.Read(TMouseRead::LeftUps), 1);
  EXPECT_EQ(mouse.Read(TMouseRead::RightDowns), 1);
  EXPECT_EQ(mouse.Read(TMouseRead::RightUps), 0);
  EXPECT_EQ(mouse.Read(TMouseRead::LeftDownX), 7);
  EXPECT_EQ(mouse.Read(TMouseRead::LeftDownY), 302);  // device rows, whatever the mode
  EXPECT_EQ(mouse.Read(TMouseRead::LeftUpY), 301);
}

}  // namespace
}  // namespace zoka
