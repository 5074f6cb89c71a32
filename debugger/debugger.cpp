// The debugger's handlers, its loop, and the stop.
#include "debugger/debugger.h"

#include <new>

#include "common/immortal.h"
#include "debugger/debug_model.h"
#include "debugger/expression.h"
#include "vm/handlers.h"

namespace zoka {
namespace {

TDebugger& debugger_of(TVMachine& m) {
  return static_cast<TDebugger&>(m);
}

void DebugBasicDim(TVMachine& m, const TVMCode* code) {
  for (int32_t i = 0; i < code->lval(); ++i) m.SendResetVarRqtd(m.DimOneVar());
}

void DebugBasicSwap(TVMachine& m, const TVMCode* code) {
  ExeBasicSwap(m, code);
  debugger_of(m).SendUpdateVarInfoRqtd(MAX_VAR_ACCESSES);
}

void DebugBasicBCall(TVMachine& m, const TVMCode* code) {
  ExeBasicBCall(m, code);
  debugger_of(m).CallMade();
}

void DebugBasicBRet(TVMachine& m, const TVMCode* code) {
  debugger_of(m).ReturnBegins();
  ExeBasicBRet(m, code);
  debugger_of(m).ReturnMade();
}

void DebugBasicBExit(TVMachine& m, const TVMCode* code) {
  ExeBasicBExit(m, code);
  debugger_of(m).ProgramEnded();
}

void DebugBasicBAssignArray(TVMachine& m, const TVMCode* code) {
  ExeBasicBAssignArray(m, code);
  debugger_of(m).SendUpdateVarInfoRqtd(1);
}

void DebugBasicBLineBegin(TVMachine& m, const TVMCode* code) {
  ExeBasicBLineBegin(m, code);
  debugger_of(m).LineBegun();
}

std::vector<TVMHandler> make_debug_table() {
  using enum TVMCodeCmd;
  const TVMHandler* base = vm_handler_table();
  std::vector<TVMHandler> table(base, base + OPERATION_COUNT);
  auto replace = [&table](TVMCodeCmd cmd, TVMHandler handler) {
    table[static_cast<uint16_t>(cmd)] = handler;
  };
  replace(Dim, DebugBasicDim);
  replace(Swap, DebugBasicSwap);
  replace(BCall, DebugBasicBCall);
  replace(BRet, DebugBasicBRet);
  replace(BExit, DebugBasicBExit);
  replace(BAssignArray, DebugBasicBAssignArray);
  replace(BLineBegin, DebugBasicBLineBegin);
  return table;
}

}  // namespace

TDebugger::TDebugger(const char* name, const TMachineParts& parts, TDebugModel* debugView,
                     int64_t runNumber)
    : TVMachine(name, parts),
      mRunNumber(runNumber),
      fDebugView(debugView),
      mBreakWake(*parts.context->clock) {
  mWatched = true;
}

TDebugger::~TDebugger() {
  mPort->SetStop(nullptr);
  TDebugger::Terminate();
  Wait(nullptr);
}

const TVMHandler* TDebugger::HandlerTable() const {
  static const auto& table = immortal<std::vector<TVMHandler>>(make_debug_table());
  return table.data();
}

void TDebugger::RunLoop(const TVMHandler* table) {
  const TVMCode* const end = mMidCode->mCodes.data() + mMidCode->mCodes.size();
  const std::atomic<uint32_t>& flags = mPort->mIrFlags;
  while (mPC != end) {
    if (Mode() == TDebugRunMode::Stop) [[unlikely]]
      Break();
    if (flags.load(std::memory_order_relaxed) != 0) [[unlikely]]
      Interrupt();
    const TVMCode* code = mPC;
    table[static_cast<uint16_t>(code->Number())](*this, code);
    ++mPC;
  }
}

void TDebugger::SetDebugRunMode(TDebugRunMode mode) {
  fDebugRunMode.store(mode, std::memory_order_relaxed);
  fCallDepth.store(0, std::memory_order_relaxed);
}

void TDebugger::Unbreak() {
  fResume.store(true, std::memory_order_release);
  mBreakWake.Signal();
}

void TDebugger::Terminate() {
  TVMachine::Terminate();
  mBreakWake.Signal();
}

void TDebugger::RegisterVarAccess(int32_t access, TVarInfo* var, int32_t index) {
  fVarAccess[access] = {index, var};
}

void TDebugger::SendUpdateVarInfoRqtd(int count) {
  fDebugView->UpdateVarInfoRqtd(mRunNumber, fVarAccess, count);
}

void TDebugger::SendResetVarRqtd(TVarInfo* var) {
  fDebugView->ResetVarRqtd(mRunNumber, var);
}

void TDebugger::ExeBasicOnGosubGotoGosubInvoked() {
  CallMade();
}

void TDebugger::CallMade() {
  fCallDepth.fetch_add(1, std::memory_order_relaxed);
  fDebugView->AddCallStackRqtd(mRunNumber, mCurLine);
}

void TDebugger::ReturnBegins() {
  const int32_t depth = fCallDepth.fetch_sub(1, std::memory_order_relaxed);
  if (Mode() == TDebugRunMode::StepOut && depth == 0) Break();
}

void TDebugger::ReturnMade() {
  fDebugView->RemoveCallStackRqtd(mRunNumber);
}

void TDebugger::ProgramEnded() {
  if (mEndReported) return;
  mEndReported = true;
  fDebugView->DebuggerDebugBasicEnded(mRunNumber, mContext.privacy.killed.load());
}

void TDebugger::LineBegun() {
  fDebugView->CurLineNumChanged(mRunNumber, mCurLine);
  const TDebugRunMode mode = Mode();
  const bool stepped =
      mode == TDebugRunMode::StepIn ||
      (mode == TDebugRunMode::StepOver && fCallDepth.load(std::memory_order_relaxed) <= 0);
  // Asked first, so that a breakpoint counts each pass.
  if (MeetsBreakPoint() || stepped) Break();
}

bool TDebugger::MeetsBreakPoint() {
  std::string condition;
  const bool isRunTo = mBreakPoints.IsRunTo(mCurLine);
  if (!mBreakPoints.Find(mCurLine, &condition)) return isRunTo;
  // A condition that cannot be evaluated stops: the user is to see that it is wrong.
  if (!condition.empty() && !condition_holds(condition, *mMidCode).value_or(true)) return isRunTo;
  return mBreakPoints.Passes(mCurLine) || isRunTo;
}

void TDebugger::Break() {
  // Cleared before the report: who answers it at once is not missed.
  fResume.store(false, std::memory_order_release);
  if (IsTerminated()) return;
  mBreakPoints.ClearRunTo();
  NoteWait();
  mRsrc->UpdateScreen();
  mHost->FlushOutput();
  fDebugView->DebuggerBreaked(mRunNumber, mCurLine);
  for (;;) {
    // Looked at before the edits: one that was made before the program goes on is not left out.
    const bool over = fResume.load(std::memory_order_acquire) || IsTerminated();
    CarryOutEdits();
    if (over) break;
    Clock().RealWait(mBreakWake);
  }
}

void TDebugger::Edit(TVarInfo* var, int32_t slot, TEditValue value) {
  {
    const TLock lock(mEditLock);
    mEdits.push_back({var, slot, std::move(value)});
  }
  mBreakWake.Signal();
}

void TDebugger::CarryOutEdits() {
  std::vector<TEdit> edits;
  {
    const TLock lock(mEditLock);
    edits.swap(mEdits);
  }
  for (TEdit& edit : edits) CarryOut(edit);
}

void TDebugger::CarryOut(TEdit& edit) {
  if (!has_slot(*edit.var, edit.slot)) return;
  TStackData value = TStackData::Of(edit.value.number);
  if (edit.var->kind == ttStr) {
    try {
      TText text(edit.value.text);
      const uint32_t length = text.Length();
      value = TStackData::OfText(text.Detach(), length);
    } catch (const std::bad_alloc&) {
      return;  // no room for it: the value stays as it was
    }
  }
  StoreSlot(edit.var, edit.slot, value);
  const TVarAccess access{edit.slot, edit.var};
  fDebugView->UpdateVarInfoRqtd(mRunNumber, &access, 1);
}

void TDebugger::ShowFault(const TException& fault) {
  fDebugView->ScrollToSpecifyLineNumRqtd(mRunNumber, static_cast<int32_t>(fault.ID));
  TVMachine::ShowFault(fault);
}

void TDebugger::ExecuteDone() {
  ProgramEnded();
  TVMachine::ExecuteDone();
}

}  // namespace zoka
