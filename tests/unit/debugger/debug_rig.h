// What debugger tests need around a debugger: an engine without windows, a list compiled, the model
// with its log, and a wait for the next stop.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "compiler/compiler.h"
#include "debugger/debug_model.h"
#include "debugger/debugger.h"
#include "tests/support/test_engine.h"
#include "tests/unit/vm/machine_rig.h"

namespace zoka {

/// A debugged run of one list; the run's number is 1.
class TDebugRig final : public TTestEngine, public TDebugModelHost {
 public:
  static constexpr int32_t ENDED = -1;
  static constexpr int64_t RUN = 1;

  explicit TDebugRig(const char* list, bool breakAtStart = false)
      : inputs(*clock), rsrc(*clock), model(context, *this) {
    context.alertHost = &alertLog;
    prefs.BrkS.store(breakAtStart);
    int32_t mode = 0;
    TCompiler compiler(context, &code);
    EXPECT_EQ(compiler.Compile(list, &mode), TCompileResult::Runnable) << compiler.Fault().key;
    Connect(list);
  }
  ~TDebugRig() override {
    if (debugger) debugger->Terminate();
    if (debugger) debugger->Wait(nullptr);
    model.SetVMachine(nullptr);
  }

  void DebugModelChanged() override {
    if (onChange) onChange();
    const std::lock_guard<std::mutex> lock(mMutex);
    mChanged = true;
    mCondition.notify_all();
  }

  void Start() { debugger->Resume(); }
  /// Starts if need be; the line of the next stop, or ENDED.
  int32_t NextStop() {
    Start();
    for (;;) {
      Gather();
      const std::vector<std::string> log = model.Log();
      for (; mRead < log.size(); ++mRead) {
        if (log[mRead].starts_with("dbbr ")) return std::stoi(log[mRead++].substr(5));
        if (log[mRead].starts_with("dbed")) return ENDED;
      }
      if (!AwaitChange()) return INT32_MIN;
    }
  }
  /// Waits until the log holds `report`; false if it never does.
  bool AwaitReport(const std::string& report) {
    for (;;) {
      Gather();
      const std::vector<std::string> log = model.Log();
      if (std::find(log.begin(), log.end(), report) != log.end()) return true;
      if (!AwaitChange()) return false;
    }
  }
  int32_t RunToEnd() {
    EXPECT_EQ(NextStop(), ENDED);
    int32_t status = -1;
    debugger->Wait(&status);
    return status;
  }
  std::vector<std::string> LogOfRun() {
    RunToEnd();
    return model.Log();
  }
  void Kill() {
    context.privacy.killed.store(true);
    debugger->Terminate();
    debugger->Wait(nullptr);
  }
  void BreakAt(int32_t line) { model.ToggleBreakPoint(*model.FindSrcLine(line)); }
  size_t Item(const std::string& name) {
    for (size_t i = 0; i < model.VarCount(); ++i) {
      if (model.VarRow(i).label == name + " : ") return i;
    }
    ADD_FAILURE() << name;
    return 0;
  }
  std::string Value(const std::string& name) { return model.VarRow(Item(name)).value; }
  TVarInfo& Var(const std::string& name) { return *code.FindVar(name); }

  TAlertLog alertLog;
  THostLog host;
  TTestInputs inputs;
  TBasicRsrc rsrc;
  TMidCode code;
  TDebugModel model;
  TDebugChanges changes;  // all that NextStop has seen since it was last cleared
  std::function<void()> onChange;
  std::unique_ptr<TDebugger> debugger;

 private:
  void Connect(const char* list) {
    TMachineParts parts;
    parts.context = &context;
    parts.midCode = &code;
    parts.rsrc = &rsrc;
    parts.inputs = &inputs;
    parts.host = &host;
    parts.memoryLimit = 64 << 20;
    debugger = std::make_unique<TDebugger>("Debugger", parts, &model, RUN);
    model.KeepLog(true);
    model.SetSrcCode(list);
    model.ClearCallStack();
    model.SetVar(&code);
    model.SetVMachine(debugger.get());
    model.SetFirstBreakPoint();
  }
  void Gather() {
    const TDebugChanges more = model.TakeChanges();
    changes.source |= more.source;
    changes.marks |= more.marks;
    changes.callStack |= more.callStack;
    changes.values |= more.values;
    changes.variables |= more.variables;
    changes.breaked |= more.breaked;
    changes.ended |= more.ended;
    if (more.scrollTo) changes.scrollTo = more.scrollTo;
    changes.resetVars.insert(changes.resetVars.end(), more.resetVars.begin(), more.resetVars.end());
  }
  bool AwaitChange() {
    std::unique_lock<std::mutex> lock(mMutex);
    const bool changed =
        mCondition.wait_for(lock, std::chrono::seconds(60), [this] { return mChanged; });
    mChanged = false;
    EXPECT_TRUE(changed) << "the debugger reports nothing";
    return changed;
  }

  std::mutex mMutex;
  std::condition_variable mCondition;
  bool mChanged = false;
  size_t mRead = 0;
};

}  // namespace zoka
