// TDebugger: a machine that can stop at lines and tells the model of the debug view what happens.
// It shows nothing; what is shown stands in debug_model.h.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "debugger/break_points.h"
#include "debugger/debug_types.h"
#include "vm/vmachine.h"

namespace zoka {

class TDebugModel;

/// Runs the same code as TVMachine, with some rows of the handler table replaced. Reports are
/// applied to the model on the machine's own thread; those of lines, calls, returns and values are
/// dropped if the model is not free within REPORT_LIMIT.
class TDebugger final : public TVMachine {
 public:
  /// `debugView` is not owned and outlives the machine. `runNumber` goes with every report.
  TDebugger(const char* name, const TMachineParts& parts, TDebugModel* debugView,
            int64_t runNumber);
  ~TDebugger() override;

  int64_t RunNumber() const { return mRunNumber; }

  // --- Any thread.
  void AddBreakPoint(int32_t line) { mBreakPoints.Add(line); }
  /// See TBreakPoints::Remove.
  void RemoveBreakPoint(int32_t line) { mBreakPoints.Remove(line); }
  TBreakPoints& BreakPoints() { return mBreakPoints; }
  /// Never Breaked. The call depth counts from 0 anew, also by Stop.
  void SetDebugRunMode(TDebugRunMode mode);
  /// Lets the program go on from where it stands.
  void Unbreak();
  void Terminate() override;
  /// Stores a value when the machine stands next, at once if it stands now. A slot that the
  /// variable does not have (any more) is ignored.
  void Edit(TVarInfo* var, int32_t slot, TEditValue value);

  // --- The machine's thread: what the program did.
  void RegisterVarAccess(int32_t access, TVarInfo* var, int32_t index) override;
  void ExeBasicOnGosubGotoGosubInvoked() override;
  void SendResetVarRqtd(TVarInfo* var) override;
  /// Reports the first `count` registered accesses.
  void SendUpdateVarInfoRqtd(int count);
  void LineBegun();
  void CallMade();
  void ReturnBegins();
  void ReturnMade();
  /// Reports the end of the program, once a run.
  void ProgramEnded();

 protected:
  const TVMHandler* HandlerTable() const override;
  void RunLoop(const TVMHandler* table) override;
  void ShowFault(const TException& fault) override;
  void ExecuteDone() override;

 private:
  struct TEdit {
    TVarInfo* var;
    int32_t slot;
    TEditValue value;
  };

  TDebugRunMode Mode() const { return fDebugRunMode.load(std::memory_order_relaxed); }
  bool MeetsBreakPoint();
  void Break();
  void CarryOutEdits();
  void CarryOut(TEdit& edit);

  const int64_t mRunNumber;
  std::atomic<bool> fResume{false};
  /// Calls entered since the mode was set; may go below 0.
  std::atomic<int32_t> fCallDepth{0};
  TBreakPoints mBreakPoints;
  TDebugModel* fDebugView;
  std::atomic<TDebugRunMode> fDebugRunMode{TDebugRunMode::Run};
  TVarAccess fVarAccess[MAX_VAR_ACCESSES];
  /// Ends the wait of a stop. The machine's own wake is not used for it, since a signal left over
  /// would cut the program's next wait short.
  TWake mBreakWake;
  TMutex mEditLock{TLockRank::Leaf};
  std::vector<TEdit> mEdits;  // under mEditLock
  bool mEndReported = false;
};

}  // namespace zoka
