// Clicks at random while a program runs, stops, dimensions and ends: nothing dead-locks, nothing is
// read that is not there, and each run ends. ZOKA_STRESS_SECONDS lets it go on for longer.
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <random>
#include <thread>

#include "tests/unit/debugger/debug_rig.h"

namespace zoka {
namespace {

constexpr int RUNS = 12;
constexpr int CLICKS = 400;

const char* const BUSY =
    "10 ON STOP GOSUB 200:STOP ON\n"
    "20 FOR I=1 TO 100000\n"
    "30 DIM A(I MOD 50),B$(9)\n"
    "40 GOSUB 100\n"
    "50 ON 1+(I MOD 2) GOSUB 100,120\n"
    "60 NEXT\n"
    "70 END\n"
    "100 A(0)=I:B$(I MOD 10)=B$(0)+\"x\":C$=C$+\"y\"\n"
    "110 IF LEN(C$)>100 THEN C$=\"\"\n"
    "120 SWAP A(0),D\n"
    "130 RETURN\n"
    "200 E=E+1\n"
    "210 RETURN\n";

/// Reads all that a view shows.
void paint(TDebugModel& model) {
  model.TakeChanges();
  for (size_t i = 0; i < model.SrcLineCount(); ++i) model.SrcLine(i);
  for (size_t i = 0; i < std::min<size_t>(model.CallStackCount(), 20); ++i) model.CallStackText(i);
  for (size_t i = 0; i < model.VarCount(); ++i) {
    model.VarRow(i);
    for (int32_t child = 0; child < std::min(model.VarChildCount(i), 10); ++child) {
      model.VarChildRow(i, child);
    }
  }
  model.ValueOf("A(0)+D");
}

void click(TDebugRig& rig, std::minstd_rand& random) {
  TDebugModel& model = rig.model;
  const auto pick = [&random](unsigned count) { return random() % count; };
  switch (pick(14)) {
    case 0:
      model.StepIn();
      break;
    case 1:
      model.StepOver();
      break;
    case 2:
      model.StepOut();
      break;
    case 3:
      model.Stop();
      break;
    case 4:
    case 5:
      model.ToggleBreakPoint(pick(14));
      break;
    case 6:
      model.SetBreakRule(pick(14), {"I MOD 3=0", static_cast<int32_t>(pick(4))});
      break;
    case 7:
      model.RunToCursor(static_cast<int32_t>(pick(22)) * 10);
      break;
    case 8:
      model.ExpandOrCollapseVar(pick(8), pick(2) == 0);
      break;
    case 9:
      model.EditVar(pick(8), static_cast<int32_t>(pick(12)), pick(2) == 0 ? "5" : "text");
      break;
    case 10:
      rig.debugger->HappenInterrupt(IR_STOP_KEY);
      break;
    case 11:
      model.ClickCallStack(pick(3));
      break;
    default:
      model.Run();
      break;
  }
}

TEST(DebugStress, ClicksAtRandom) {
  const char* const wanted = std::getenv("ZOKA_STRESS_SECONDS");
  const auto end = std::chrono::steady_clock::now() +
                   std::chrono::seconds(wanted != nullptr ? std::atoll(wanted) : 0);
  for (int run = 0; run < RUNS || std::chrono::steady_clock::now() < end; ++run) {
    TDebugRig rig(BUSY, run % 2 == 0);
    rig.model.KeepLog(false);
    std::atomic<bool> painting{true};
    std::thread painter([&] {
      while (painting.load()) paint(rig.model);
    });
    std::minstd_rand random(static_cast<unsigned>(run) + 1);
    rig.Start();
    for (int i = 0; i < CLICKS; ++i) click(rig, random);
    if (run % 3 == 0) rig.context.privacy.killed.store(true);
    rig.debugger->Terminate();
    rig.debugger->Wait(nullptr);
    painting.store(false);
    painter.join();
    EXPECT_FALSE(rig.model.HasDebugger());
    // The break key may have ended the program before it could be killed.
    const std::string last = rig.model.CallStackText(rig.model.CallStackCount() - 1);
    EXPECT_TRUE(last == "[Done]" || (run % 3 == 0 && last == "[Killed]")) << last;
    rig.model.ClearVar();
  }
}

}  // namespace
}  // namespace zoka
