// What a debugger reports, in which order, and how runs end.
#include "tests/unit/debugger/debug_rig.h"

namespace zoka {
namespace {

using TLines = std::vector<std::string>;

TLines log_of(const char* list) {
  TDebugRig rig(list);
  return rig.LogOfRun();
}

TEST(DebugReports, ComeInTheOrderOfTheProgram) {
  EXPECT_EQ(
      log_of("10 GOSUB 40\n20 A=1\n30 END\n40 RETURN\n"),
      (TLines{"clnc 10", "acsr 10", "clnc 40", "rcsr", "clnc 20", "uvir A! 0", "clnc 30", "dbed"}));
}

TEST(DebugReports, OfOnGosubAreThoseOfGosub) {
  EXPECT_EQ(log_of("10 ON 2 GOSUB 40,30\n20 END\n30 RETURN\n40 RETURN\n"),
            (TLines{"clnc 10", "acsr 10", "clnc 30", "rcsr", "clnc 20", "dbed"}));
  EXPECT_EQ(log_of("10 ON 3 GOSUB 30\n20 END\n30 RETURN\n"),
            (TLines{"clnc 10", "clnc 20", "dbed"}));
  EXPECT_EQ(log_of("10 ON 1 GOTO 20\n20 END\n"), (TLines{"clnc 10", "clnc 20", "dbed"}));
}

TEST(DebugReports, OfSwapHaveThreeAccesses) {
  EXPECT_EQ(
      log_of("10 A=1:B=2\n20 SWAP A,B\n"),
      (TLines{"clnc 10", "uvir A! 0", "uvir B! 0", "clnc 20", "uvir A! 0 B! 0 A! 0", "dbed"}));
}

TEST(DebugReports, OfDimComeForEachVariableTheLastFirst) {
  EXPECT_EQ(log_of("10 DIM A(3),B$(2)\n"), (TLines{"clnc 10", "rsvr B$", "rsvr A!", "dbed"}));
}

TEST(DebugReports, OfImplicitDimensioning) {
  EXPECT_EQ(log_of("10 A(3)=1\n20 B=C(4)\n"),
            (TLines{"clnc 10", "rsvr A!", "uvir A! 4", "clnc 20", "rsvr C!", "uvir B! 0", "dbed"}));
}

// Statements that store by other ways than an assignment report nothing; this is meant.
TEST(DebugReports, DoNotComeFromReadAndMid) {
  EXPECT_EQ(log_of("10 READ A:A$=\"abc\"\n20 MID$(A$,1,1)=\"x\"\n30 DATA 5\n"),
            (TLines{"clnc 10", "uvir A$ 0", "clnc 20", "clnc 30", "dbed"}));
}

TEST(DebugReports, DoNotTakeFunctionsForCalls) {
  EXPECT_EQ(log_of("10 DEF FNA(X)=X+1\n20 B=FNA(1)\n"),
            (TLines{"clnc 10", "clnc 20", "uvir B! 0", "dbed"}));
}

TEST(DebugReports, OfARuntimeErrorNameItsLineAndTheEnd) {
  TDebugRig rig("10 A=1\n20 GOTO 99\n");
  EXPECT_EQ(rig.RunToEnd(), 1);
  EXPECT_EQ(rig.model.Log(), (TLines{"clnc 10", "uvir A! 0", "clnc 20", "sslr 20", "dbed"}));
  ASSERT_EQ(rig.alertLog.alerts.size(), 1u);
  EXPECT_EQ(rig.alertLog.alerts[0].buttons, TLines{"Understand(U)"});
  EXPECT_EQ(rig.changes.scrollTo, 1u);
  EXPECT_EQ(rig.model.CallStackText(0), "[Done]");
}

TEST(DebugReports, OfAWrongStartHaveNoLine) {
  TDebugRig rig("10 END\n");
  TMessage start("run");
  start.AddInt32("LineNum", 999);
  rig.debugger->SetStartPos(start);
  EXPECT_EQ(rig.RunToEnd(), 1);
  EXPECT_EQ(rig.model.Log(), (TLines{"sslr 0", "dbed"}));
}

TEST(DebugReports, OfTheEndComeOnceHoweverARunEnds) {
  EXPECT_EQ(log_of("10 STOP\n"), (TLines{"clnc 10", "sslr 10", "dbed"}));
  EXPECT_EQ(log_of("10 END\n20 END\n"), (TLines{"clnc 10", "dbed"}));
  EXPECT_EQ(log_of("10 RETURN\n"), (TLines{"clnc 10", "sslr 10", "dbed"}));
}

TEST(DebugReports, OfTheEndComeWhenAProgramAsksForAnotherRun) {
  TDebugRig rig("10 RUN\n");
  rig.RunToEnd();
  EXPECT_EQ(rig.model.Log(), (TLines{"clnc 10", "dbed"}));
  EXPECT_EQ(rig.host.requests.size(), 1u);
}

TEST(DebugReports, OfOtherRunsAreDropped) {
  TDebugRig rig("10 A=1\n");
  rig.model.CurLineNumChanged(TDebugRig::RUN + 1, 5);
  rig.model.DebuggerDebugBasicEnded(TDebugRig::RUN - 1, true);
  rig.model.DebuggerBreaked(TDebugRig::RUN + 1, 10);
  EXPECT_TRUE(rig.model.HasDebugger());
  EXPECT_EQ(rig.model.Log(), TLines{});
  EXPECT_EQ(rig.model.RunMode(), TDebugRunMode::Run);
}

// A model that is held for longer than the limit loses the reports of lines and values, but not
// that of the end; the program goes on.
TEST(DebugReports, AreDroppedWhenTheModelIsNotFreeInTime) {
  TDebugRig rig("10 A=1\n");
  auto stored = [&rig] {
    const TLock lock(rig.code.VariablesLock());
    return rig.Var("A!").floats[0] == 1.0F;
  };
  {
    const TLock lock(rig.model.Lock());
    rig.Start();
    while (!stored()) {
    }
  }
  rig.RunToEnd();
  const TLines log = rig.model.Log();
  EXPECT_EQ(std::count(log.begin(), log.end(), "clnc 10"), 0);
  EXPECT_EQ(log.back(), "dbed");
}

TEST(DebugReports, TellTheHostOnceUntilItLooks) {
  TDebugRig rig("10 FOR I=1 TO 1000\n20 NEXT\n");
  rig.model.TakeChanges();
  int told = 0;
  rig.onChange = [&told] { ++told; };
  rig.Start();
  rig.debugger->Wait(nullptr);
  EXPECT_EQ(told, 1);
  const TDebugChanges changes = rig.model.TakeChanges();
  EXPECT_TRUE(changes.callStack && changes.values && changes.ended);
  EXPECT_FALSE(changes.breaked || changes.source || changes.variables);
}

// A program is stopped by force at each of its reports in turn: it always ends, and says so once.
TEST(DebugReports, AKillAtAnyMomentEndsTheRunOnce) {
  const char* list =
      "10 DIM A(5):GOSUB 40\n20 SWAP A(1),A(2)\n30 STOP\n40 A(1)=3\n50 ON 1 GOSUB 60\n60 RETURN\n";
  for (int moment = 0; moment < 16; ++moment) {
    TDebugRig rig(list, moment % 2 == 0);
    int reports = 0;
    rig.onChange = [&rig, &reports, moment] {
      rig.model.TakeChanges();
      rig.model.StepIn();
      if (reports++ != moment) return;
      rig.context.privacy.killed.store(true);
      rig.debugger->Terminate();
    };
    rig.model.TakeChanges();
    rig.Start();
    rig.debugger->Wait(nullptr);
    const TLines log = rig.model.Log();
    ASSERT_FALSE(log.empty());
    EXPECT_TRUE(log.back().starts_with("dbed")) << moment;
    EXPECT_EQ(std::count_if(log.begin(), log.end(),
                            [](const std::string& line) { return line.starts_with("dbed"); }),
              1);
    EXPECT_FALSE(rig.model.HasDebugger());
  }
}

}  // namespace
}  // namespace zoka
