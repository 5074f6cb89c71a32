// Debugged runs as documents and run views make them: connection, the end of a run, the next one.
#include <gtest/gtest.h>

#include <condition_variable>
#include <memory>
#include <mutex>

#include "debugger/debug_model.h"
#include "debugger/debugger.h"
#include "editor/list_document.h"
#include "run/run_view.h"
#include "tests/support/test_engine.h"

namespace zoka {
namespace {

using TLines = std::vector<std::string>;

/// A document, its run view and a model, all without windows.
class TDesk final : public TTestEngine,
                    public TDebugModelHost,
                    public TDocumentHost,
                    public TRunHost {
 public:
  TDesk() : model(context, *this) {
    exitStates.UDbg.store(true);
    prefs.BrkS.store(false);
    prefs.ASBR.store(false);
    view = std::make_unique<TRunView>(context, static_cast<TRunHost&>(*this));
    view->SetDebugModel(&model);
    document = std::make_unique<TListDocument>(context, *view, text, *this);
    model.KeepLog(true);
  }

  void DebugModelChanged() override {
    const std::lock_guard<std::mutex> lock(mMutex);
    mChanged = true;
    mCondition.notify_all();
  }
  void DebuggerReady() override {
    ++readies;
    if (breakItem) model.ToggleBreakPoint(*breakItem);
  }
  void RunEnded(int64_t, int32_t, const TMessage* message) override {
    if (message != nullptr) request = *message;
  }

  TRunOutcome Run(const std::string& list) {
    text.Set(list);
    return document->RunBasic(TMessage("run"));
  }
  void AwaitStop() {
    for (;;) {
      // Taken before the look, so that a change behind the look is told.
      model.TakeChanges();
      if (model.RunMode() == TDebugRunMode::Breaked) return;
      std::unique_lock<std::mutex> lock(mMutex);
      mCondition.wait(lock, [this] { return mChanged; });
      mChanged = false;
    }
  }

  TDebugModel model;
  TStringText text;
  std::unique_ptr<TRunView> view;
  std::unique_ptr<TListDocument> document;
  std::optional<size_t> breakItem;
  int readies = 0;
  TMessage request;

 private:
  std::mutex mMutex;
  std::condition_variable mCondition;
  bool mChanged = false;
};

TEST(DebugRun, WithoutTheOptionThereIsNoDebugger) {
  TDesk desk;
  desk.exitStates.UDbg.store(false);
  EXPECT_EQ(desk.Run("10 A=1\n"), TRunOutcome::Started);
  EXPECT_EQ(desk.view->Debugger(), nullptr);
  EXPECT_EQ(desk.view->WaitForEnd(), 0);
  EXPECT_EQ(desk.model.Log(), TLines{});
  EXPECT_EQ(desk.readies, 0);
}

TEST(DebugRun, WithoutAModelThereIsNoDebugger) {
  TDesk desk;
  desk.view->SetDebugModel(nullptr);
  EXPECT_EQ(desk.Run("10 A=1\n"), TRunOutcome::Started);
  EXPECT_EQ(desk.view->Debugger(), nullptr);
}

// The lines that are shown are those that were compiled, with the numbers that a list without them
// was given.
TEST(DebugRun, ADocumentConnectsTheModel) {
  TDesk desk;
  EXPECT_EQ(desk.Run("A=1\nB=2\n"), TRunOutcome::Started);
  EXPECT_EQ(desk.view->WaitForEnd(), 0);
  EXPECT_EQ(desk.model.Log(), (TLines{"clnc 1", "uvir A! 0", "clnc 2", "uvir B! 0", "dbed"}));
  EXPECT_EQ(desk.model.SrcLine(0).text, "1 A=1");
  EXPECT_EQ(desk.model.VarRow(1).value, "2");
  EXPECT_EQ(desk.readies, 1);
}

TEST(DebugRun, BreakpointsOfTheEditorAreSetBeforeTheStart) {
  TDesk desk;
  desk.breakItem = 1;
  desk.Run("10 A=1\n20 A=2\n");
  desk.AwaitStop();
  EXPECT_EQ(desk.model.CurLine(), 20);
  EXPECT_TRUE(desk.model.StepIn());
  EXPECT_EQ(desk.view->WaitForEnd(), 0);
}

TEST(DebugRun, TheBreakAtTheStart) {
  TDesk desk;
  desk.prefs.BrkS.store(true);
  desk.Run("10 A=1\n20 A=2\n");
  desk.AwaitStop();
  EXPECT_EQ(desk.model.VarRow(0).value, "0");
  EXPECT_TRUE(desk.view->KillBasic());
  EXPECT_EQ(desk.model.Log(), (TLines{"clnc 10", "dbbr 10", "dbed Killed"}));
  EXPECT_EQ(desk.model.CallStackText(0), "[Killed]");
  EXPECT_FALSE(desk.model.HasDebugger());
}

TEST(DebugRun, QuittingARunForgetsItsDebugger) {
  TDesk desk;
  desk.Run("10 GOTO 10\n");
  EXPECT_TRUE(desk.view->QuitBasic());
  EXPECT_EQ(desk.view->Debugger(), nullptr);
  EXPECT_FALSE(desk.model.HasDebugger());
  EXPECT_FALSE(desk.model.Stop());
}

TEST(DebugRun, ARunThatNeverStartedIsForgotten) {
  TDesk desk;
  EXPECT_EQ(desk.view->CompileBasic("10 A=1\n"), TCompileResult::Runnable);
  desk.view->ReadyBasic();
  desk.model.SetVMachine(desk.view->Debugger());
  EXPECT_TRUE(desk.model.HasDebugger());
  desk.view->QuitBasic();
  EXPECT_FALSE(desk.model.HasDebugger());
}

// A list that does not compile ends the old run; nothing of that is left to click on.
TEST(DebugRun, ACompileErrorBehindARunLeavesNothingDangling) {
  TDesk desk;
  desk.prefs.BrkS.store(true);
  desk.Run("10 A=1\n");
  desk.AwaitStop();
  EXPECT_EQ(desk.Run("10 NEXT\n"), TRunOutcome::CompileFailed);
  EXPECT_FALSE(desk.model.HasDebugger());
  EXPECT_FALSE(desk.model.Stop());
  EXPECT_FALSE(desk.model.Run());
  EXPECT_EQ(desk.model.VarCount(), 0u);
  EXPECT_EQ(desk.model.ValueOf("A"), std::nullopt);
}

TEST(DebugRun, ARunThatReplacesOneAtAStopIsConnectedAnew) {
  TDesk desk;
  desk.prefs.BrkS.store(true);
  desk.Run("10 A=1\n");
  desk.AwaitStop();
  desk.Run("20 B=1\n");
  desk.AwaitStop();
  EXPECT_EQ(desk.model.Log(), (TLines{"clnc 10", "dbbr 10", "dbed", "clnc 20", "dbbr 20"}));
  EXPECT_EQ(desk.model.VarRow(0).label, "B! : ");
  EXPECT_TRUE(desk.model.Run());
  EXPECT_EQ(desk.view->WaitForEnd(), 0);
}

TEST(DebugRun, AProgramThatAsksForAnotherRunIsDebuggedAgain) {
  TDesk desk;
  desk.Run("10 RUN 30\n20 END\n30 END\n");
  desk.view->WaitForEnd();
  EXPECT_EQ(desk.document->VMachineRunRqtd(desk.request), TRunOutcome::Started);
  desk.view->WaitForEnd();
  EXPECT_EQ(desk.model.Log(), (TLines{"clnc 10", "dbed", "clnc 30", "dbed"}));
}

TEST(DebugRun, AViewThatGoesTakesItsVariablesWithIt) {
  TDesk desk;
  desk.Run("10 A=1\n");
  desk.document.reset();
  desk.view.reset();
  EXPECT_EQ(desk.model.VarCount(), 0u);
  EXPECT_FALSE(desk.model.HasDebugger());
}

}  // namespace
}  // namespace zoka
