// Lines a second of a debugged program, with all of its reports applied to the model, and the time
// that a step takes.
#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <thread>

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "debugger/debug_model.h"
#include "editor/list_document.h"
#include "run/run_view.h"

namespace zoka {
namespace {

class TNoView final : public TDebugModelHost {
 public:
  void DebugModelChanged() override {}
};

/// Runs a list under the debugger again and again.
class TDebuggedList {
 public:
  explicit TDebuggedList(const char* list) : mClock(make_real_clock()), mModel(mContext, mNoView) {
    mContext.clock = mClock.get();
    mContext.catalogue = &mCatalogue;
    mContext.prefs = &mPrefs;
    mContext.exitStates = &mExitStates;
    mExitStates.UDbg.store(true);
    mPrefs.BrkS.store(false);
    mView = std::make_unique<TRunView>(mContext, mHost);
    mView->SetDebugModel(&mModel);
    mDocument = std::make_unique<TListDocument>(mContext, *mView, mText, mDocumentHost);
    mText.Set(list);
  }

  /// `farBreakpoint` sets one that is never reached.
  void Run(bool farBreakpoint) {
    mDocumentHost.set = [this, farBreakpoint] {
      if (farBreakpoint) mModel.ToggleBreakPoint(mModel.SrcLineCount() - 1);
    };
    mDocument->RunBasic(TMessage("run"));
    mView->WaitForEnd();
  }
  /// Starts the list, which stops at its first line.
  void RunToStop() {
    mPrefs.BrkS.store(true);
    mDocumentHost.set = [] {};
    mDocument->RunBasic(TMessage("run"));
    AwaitStop();
  }
  void Step() {
    mModel.StepIn();
    AwaitStop();
  }

 private:
  class TStarter final : public TDocumentHost {
   public:
    void DebuggerReady() override { set(); }
    std::function<void()> set;
  };

  void AwaitStop() const {
    while (mModel.RunMode() != TDebugRunMode::Breaked) std::this_thread::yield();
  }

  std::unique_ptr<TClock> mClock;
  TCatalogue mCatalogue{TLanguage::Keys};
  TEngineContext mContext;
  TPrefs mPrefs{nullptr};
  TExitStates mExitStates{nullptr};
  TNoView mNoView;
  TDebugModel mModel;
  TRunHost mHost;
  TStringText mText;
  TStarter mDocumentHost;
  std::unique_ptr<TRunView> mView;
  std::unique_ptr<TListDocument> mDocument;
};

constexpr int ROUNDS = 300'000;

void run_lines(benchmark::State& state, const char* list, int linesARound, bool farBreakpoint) {
  TDebuggedList debugged(list);
  for (auto _ : state) debugged.Run(farBreakpoint);
  state.counters["lines/s"] = benchmark::Counter(
      static_cast<double>(state.iterations()) * ROUNDS * linesARound, benchmark::Counter::kIsRate);
}

constexpr char LOOP[] = "10 FOR I=1 TO 300000\n20 A=A+I\n30 B(3)=A\n40 NEXT\n50 END\n60 END\n";
constexpr char CALLS[] = "10 FOR I=1 TO 300000\n20 GOSUB 100\n30 NEXT\n40 END\n100 RETURN\n";

void debugged_lines(benchmark::State& state) {
  run_lines(state, LOOP, 3, false);
}
BENCHMARK(debugged_lines)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void debugged_lines_with_breakpoint(benchmark::State& state) {
  run_lines(state, LOOP, 3, true);
}
BENCHMARK(debugged_lines_with_breakpoint)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void debugged_calls(benchmark::State& state) {
  run_lines(state, CALLS, 3, false);
}
BENCHMARK(debugged_calls)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

/// From the command to the next stop.
void debugged_step(benchmark::State& state) {
  TDebuggedList debugged("10 A=A+1\n20 GOTO 10\n");
  debugged.RunToStop();
  for (auto _ : state) debugged.Step();
}
BENCHMARK(debugged_step)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
}  // namespace zoka
