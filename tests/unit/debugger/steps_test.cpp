// Where a debugged program stops: steps, breakpoints, pause, kill.
#include "tests/unit/debugger/debug_rig.h"

namespace zoka {
namespace {

using enum TDebugRunMode;
using TLines = std::vector<std::string>;

constexpr int32_t ENDED = TDebugRig::ENDED;

const char* const NESTED =
    "10 GOSUB 100\n20 A=1\n30 END\n100 B=1\n110 GOSUB 200\n120 RETURN\n200 RETURN\n";

TEST(DebugSteps, TheProgramStandsBeforeItsFirstStatement) {
  TDebugRig rig("10 A=1\n20 A=2\n", true);
  EXPECT_EQ(rig.NextStop(), 10);
  EXPECT_EQ(rig.Value("A!"), "0");
  EXPECT_EQ(rig.model.RunMode(), Breaked);
  EXPECT_TRUE(rig.changes.breaked);
  EXPECT_TRUE(rig.model.SrcLine(0).breaking);
  EXPECT_TRUE(rig.model.Run());
  EXPECT_EQ(rig.NextStop(), ENDED);
  EXPECT_EQ(rig.Value("A!"), "2");
}

TEST(DebugSteps, WithoutThePreferenceNothingStops) {
  TDebugRig rig("10 A=1\n");
  EXPECT_EQ(rig.NextStop(), ENDED);
  EXPECT_FALSE(rig.model.SrcLine(0).breakPoint);
}

TEST(DebugSteps, InStopsAtEachLineStart) {
  TDebugRig rig(NESTED, true);
  std::vector<int32_t> stops;
  for (int32_t line = rig.NextStop(); line != ENDED; line = rig.NextStop()) {
    stops.push_back(line);
    ASSERT_TRUE(rig.model.StepIn());
  }
  EXPECT_EQ(stops, (std::vector<int32_t>{10, 100, 110, 200, 120, 20, 30}));
}

TEST(DebugSteps, OverDoesNotStopWithinACall) {
  TDebugRig rig(NESTED, true);
  EXPECT_EQ(rig.NextStop(), 10);
  rig.model.StepOver();
  EXPECT_EQ(rig.NextStop(), 20);
  rig.model.StepOver();
  EXPECT_EQ(rig.NextStop(), 30);
  rig.model.StepOver();
  EXPECT_EQ(rig.NextStop(), ENDED);  // the end is no stop
}

// The depth counts from the step, wherever it was made; a return from that level still stops.
TEST(DebugSteps, OverCountsFromWhereItBegan) {
  TDebugRig rig(NESTED);
  rig.BreakAt(110);
  EXPECT_EQ(rig.NextStop(), 110);
  rig.model.StepOver();
  EXPECT_EQ(rig.NextStop(), 120);
  rig.model.StepOver();
  EXPECT_EQ(rig.NextStop(), 20);
}

TEST(DebugSteps, OutStopsBeforeTheReturnIsCarriedOut) {
  TDebugRig rig(NESTED);
  rig.BreakAt(100);
  EXPECT_EQ(rig.NextStop(), 100);
  rig.model.StepOut();
  EXPECT_EQ(rig.NextStop(), 120);
  EXPECT_EQ(rig.model.CallStackCount(), 2u);  // the call is still there
  EXPECT_EQ(rig.model.CallStackText(0), "10 GOSUB 100");
  rig.model.StepIn();
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_EQ(rig.model.CallStackCount(), 1u);
}

TEST(DebugSteps, OutOfAnInnerCallLeavesTheOuterOne) {
  TDebugRig rig(NESTED);
  rig.BreakAt(200);
  EXPECT_EQ(rig.NextStop(), 200);
  rig.model.StepOut();
  EXPECT_EQ(rig.NextStop(), 200);
  rig.model.StepOut();
  EXPECT_EQ(rig.NextStop(), 120);
}

TEST(DebugSteps, OutAtTheOutermostLevelNeverStops) {
  TDebugRig rig(NESTED, true);
  EXPECT_EQ(rig.NextStop(), 10);
  rig.model.StepOut();
  EXPECT_EQ(rig.NextStop(), ENDED);
}

TEST(DebugSteps, ABreakpointStopsWhateverTheMode) {
  for (TDebugRunMode mode : {TDebugRunMode::Run, StepOver, StepIn, StepOut}) {
    TDebugRig rig("10 GOSUB 100\n20 END\n100 RETURN\n", true);
    EXPECT_EQ(rig.NextStop(), 10);
    rig.BreakAt(100);
    rig.model.Unbreak(mode);
    EXPECT_EQ(rig.NextStop(), 100);
  }
}

TEST(DebugSteps, OverACallOfOnGosub) {
  TDebugRig rig("10 ON 1 GOSUB 100\n20 END\n100 A=1\n110 RETURN\n", true);
  EXPECT_EQ(rig.NextStop(), 10);
  rig.model.StepOver();
  EXPECT_EQ(rig.NextStop(), 20);
}

// A trap is entered without a report, but its RETURN is one: stepping over stops in traps, and the
// view loses an entry. This is meant.
TEST(DebugSteps, OverStopsInsideATrap) {
  TDebugRig rig("10 ON STOP GOSUB 100:STOP ON\n20 A=1\n30 END\n100 B=1\n110 RETURN\n");
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), 20);
  rig.debugger->HappenInterrupt(IR_STOP_KEY);
  rig.model.StepOver();
  EXPECT_EQ(rig.NextStop(), 100);
  rig.model.StepOut();
  EXPECT_EQ(rig.NextStop(), 110);
  rig.model.StepOver();
  EXPECT_EQ(rig.NextStop(), 30);
  const TLines log = rig.model.Log();
  EXPECT_EQ(std::count(log.begin(), log.end(), "rcsr"), 1);
  EXPECT_EQ(std::count_if(log.begin(), log.end(),
                          [](const std::string& line) { return line.starts_with("acsr"); }),
            0);
}

TEST(DebugSteps, ReturnWithALineIsAReturnToo) {
  TDebugRig rig("10 GOSUB 100\n20 END\n30 A=1\n40 END\n100 RETURN 30\n");
  rig.BreakAt(100);
  EXPECT_EQ(rig.NextStop(), 100);
  rig.model.StepOver();
  EXPECT_EQ(rig.NextStop(), 30);
  EXPECT_EQ(rig.model.CallStackCount(), 1u);
}

TEST(DebugSteps, PauseStopsWithinALine) {
  TDebugRig rig("10 A=A+1:GOTO 10\n");
  rig.Start();
  EXPECT_TRUE(rig.AwaitReport("uvir A! 0"));
  EXPECT_TRUE(rig.model.Stop());
  EXPECT_EQ(rig.NextStop(), 10);
  rig.Kill();
  EXPECT_EQ(rig.model.Log().back(), "dbed Killed");
}

// In that mode there is a stop before each instruction; the line reported is the current one, 0
// before the first has begun.
TEST(DebugSteps, ModeStopStopsBeforeEachInstruction) {
  TDebugRig rig("10 A=1\n20 A=2\n");
  rig.debugger->SetDebugRunMode(Stop);
  EXPECT_EQ(rig.NextStop(), 0);
  std::vector<int32_t> stops;
  for (int i = 0; i < 6; ++i) {
    rig.debugger->Unbreak();
    stops.push_back(rig.NextStop());
  }
  EXPECT_EQ(stops, (std::vector<int32_t>{10, 10, 10, 10, 10, 20}));
}

// Pausing counts the depth anew, too: what was a call below is then the level of a step over.
TEST(DebugSteps, SettingAModeResetsTheDepth) {
  TDebugRig rig("10 GOSUB 100\n20 END\n100 A=1\n110 B=1\n120 RETURN\n");
  rig.BreakAt(100);
  EXPECT_EQ(rig.NextStop(), 100);
  rig.debugger->SetDebugRunMode(StepOver);
  rig.debugger->Unbreak();
  EXPECT_EQ(rig.NextStop(), 110);
}

TEST(DebugSteps, CommandsDoNothingWhileTheProgramRuns) {
  TDebugRig rig("10 GOTO 10\n");
  rig.Start();
  EXPECT_TRUE(rig.AwaitReport("clnc 10"));
  EXPECT_FALSE(rig.model.Run());
  EXPECT_FALSE(rig.model.StepIn());
  EXPECT_FALSE(rig.model.EditVar(0, 0, "1"));
  rig.Kill();
  EXPECT_FALSE(rig.model.Stop());
  EXPECT_FALSE(rig.model.RunToCursor(10));
  EXPECT_FALSE(rig.model.StepIn());
}

TEST(DebugSteps, AKillAtAStopSaysSo) {
  TDebugRig rig("10 A=1\n20 A=2\n", true);
  EXPECT_EQ(rig.NextStop(), 10);
  rig.Kill();
  EXPECT_EQ(rig.model.Log().back(), "dbed Killed");
  EXPECT_EQ(rig.model.CallStackText(0), "[Killed]");
  EXPECT_EQ(rig.model.CallStackLine(0), -1);
  EXPECT_FALSE(rig.model.SrcLine(0).breaking);
  EXPECT_EQ(rig.Value("A!"), "0");
}

TEST(DebugSteps, TheBreakKeyAtAStopEndsTheRunAsDone) {
  TDebugRig rig("10 A=1\n20 A=2\n", true);
  EXPECT_EQ(rig.NextStop(), 10);
  rig.debugger->HappenInterrupt(IR_STOP_KEY);
  EXPECT_EQ(rig.NextStop(), ENDED);
  EXPECT_EQ(rig.model.Log().back(), "dbed");
  EXPECT_EQ(rig.model.CallStackText(0), "[Done]");
}

TEST(DebugSteps, AStopRequestMeetsNoStop) {
  TDebugRig rig("10 A=1\n", true);
  rig.debugger->SetDebugRunMode(Stop);
  rig.debugger->Terminate();
  rig.Start();
  rig.debugger->Wait(nullptr);
  EXPECT_EQ(rig.model.Log(), TLines{"dbed"});
}

// A program that stands lets no simulated time pass, and an answer left over cuts no later wait.
TEST(DebugSteps, TimeStandsStillAtAStopAndWaitsAreWhole) {
  TDebugRig rig("10 A=1\n20 SLEEP 1000\n30 END\n", true);
  EXPECT_EQ(rig.NextStop(), 10);
  EXPECT_EQ(rig.clock->system_time(), 0);
  rig.debugger->SetDebugRunMode(TDebugRunMode::Run);
  rig.debugger->Unbreak();
  rig.debugger->Unbreak();
  rig.debugger->Unbreak();
  EXPECT_EQ(rig.NextStop(), ENDED);
  rig.debugger->Wait(nullptr);
  EXPECT_GE(rig.clock->system_time(), 1'000'000);
}

TEST(DebugSteps, ABreakpointThatIsNotReachedNeverStops) {
  TDebugRig rig("10 GOTO 30\n20 A=1\n30 END\n");
  rig.BreakAt(20);
  EXPECT_EQ(rig.NextStop(), ENDED);
}

TEST(DebugSteps, BreakpointsMayBeSetAndTakenAwayAtAStop) {
  TDebugRig rig("10 A=1\n20 A=2\n30 A=3\n", true);
  EXPECT_EQ(rig.NextStop(), 10);
  rig.BreakAt(20);
  rig.BreakAt(30);
  rig.BreakAt(20);
  rig.model.Run();
  EXPECT_EQ(rig.NextStop(), 30);
}

// ---- Conditions, counts, run to cursor.

const char* const LOOP = "10 FOR I=1 TO 10\n20 A=I\n30 NEXT\n40 END\n";

TEST(DebugSteps, ABreakpointStopsOnlyWhereItsConditionHolds) {
  TDebugRig rig(LOOP);
  rig.model.SetBreakRule(1, {"i>6 and I<=8", 1});
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_EQ(rig.Value("I!"), "7");
  rig.model.Run();
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_EQ(rig.Value("I!"), "8");
  rig.model.Run();
  EXPECT_EQ(rig.NextStop(), ENDED);
}

TEST(DebugSteps, ABreakpointStopsFromItsCountOn) {
  TDebugRig rig(LOOP);
  rig.model.SetBreakRule(1, {"I MOD 2=0", 4});
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_EQ(rig.Value("I!"), "8");
  rig.model.Run();
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_EQ(rig.Value("I!"), "10");
}

TEST(DebugSteps, AConditionThatMeansNothingStops) {
  for (const char* condition : {"I>", "Z9=1", "I=\"x\"", "1/0"}) {
    TDebugRig rig(LOOP);
    rig.model.SetBreakRule(1, {condition, 1});
    EXPECT_EQ(rig.NextStop(), 20);
    EXPECT_EQ(rig.Value("I!"), "1");
  }
}

TEST(DebugSteps, AStepStopsWhereAConditionDoesNot) {
  TDebugRig rig(LOOP, true);
  rig.model.SetBreakRule(1, {"I=5", 1});
  EXPECT_EQ(rig.NextStop(), 10);
  rig.model.StepOver();
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_EQ(rig.Value("I!"), "1");
}

TEST(DebugSteps, RunToCursorStopsThereOnce) {
  TDebugRig rig(LOOP, true);
  EXPECT_EQ(rig.NextStop(), 10);
  EXPECT_TRUE(rig.model.RunToCursor(30));
  EXPECT_EQ(rig.NextStop(), 30);
  EXPECT_EQ(rig.Value("A!"), "1");
  rig.model.Run();
  EXPECT_EQ(rig.NextStop(), ENDED);
}

TEST(DebugSteps, RunToCursorReachesARunningProgram) {
  TDebugRig rig("10 A=A+1\n20 GOTO 10\n");
  rig.Start();
  EXPECT_TRUE(rig.AwaitReport("clnc 20"));
  EXPECT_TRUE(rig.model.RunToCursor(20));
  EXPECT_EQ(rig.NextStop(), 20);
}

// A stop of another reason at a breakpoint's line is a pass of it all the same.
TEST(DebugSteps, RunToCursorLeavesTheCountOfABreakpointAlone) {
  TDebugRig rig(LOOP, true);
  rig.model.SetBreakRule(1, {"", 3});
  EXPECT_EQ(rig.NextStop(), 10);
  rig.model.RunToCursor(20);
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_EQ(rig.Value("I!"), "1");
  rig.model.Run();
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_EQ(rig.Value("I!"), "3");
  // Nor does it mind a condition that does not hold.
  rig.model.SetBreakRule(1, {"I=9", 1});
  rig.model.RunToCursor(20);
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_EQ(rig.Value("I!"), "4");
  rig.model.Run();
  EXPECT_EQ(rig.NextStop(), 20);
  EXPECT_EQ(rig.Value("I!"), "9");
}

TEST(DebugSteps, AConditionMeansWhatItMeansToTheProgram) {
  TDebugRig rig("10 X=0\n20 X=X+.1\n30 GOTO 20\n");
  rig.model.SetBreakRule(2, {"X=.1", 1});
  EXPECT_EQ(rig.NextStop(), 30);
  EXPECT_EQ(rig.Value("X!"), "0.1");
}

TEST(DebugSteps, AnotherStopEndsTheRunToCursor) {
  TDebugRig rig("10 A=1\n20 A=2\n30 A=3\n", true);
  EXPECT_EQ(rig.NextStop(), 10);
  rig.BreakAt(20);
  rig.model.RunToCursor(30);
  EXPECT_EQ(rig.NextStop(), 20);
  rig.model.Run();
  EXPECT_EQ(rig.NextStop(), ENDED);
}

}  // namespace
}  // namespace zoka
