// The model: reports and commands. What it answers to a view stands in debug_model_view.cpp.
#include "debugger/debug_model.h"

#include <utility>

#include "app/settings/prefs.h"
#include "debugger/debugger.h"
#include "debugger/expression.h"

namespace zoka {

TDebugModel::TDebugModel(TEngineContext& context, TDebugModelHost& host)
    : mContext(context), mHost(host) {}

/// Applies a change that the host's thread makes, and tells the host if there was one.
template <typename TApply>
bool TDebugModel::Change(TApply apply) {
  bool tell;
  {
    const TLock lock(mLock);
    if (!apply()) return false;
    tell = !std::exchange(mTold, true);
  }
  if (tell) mHost.DebugModelChanged();
  return true;
}

/// Applies a report of the present run, unless the lock is not to be had in time.
template <typename TApply>
void TDebugModel::Report(int64_t run, bigtime_t limit, TApply apply) {
  if (!mLock.lock_within(limit)) return;
  bool tell = false;
  {
    const TLock lock(mLock, std::adopt_lock);
    if (fDebugger == nullptr || run != mRunNumber) return;
    apply();
    tell = !std::exchange(mTold, true);
  }
  if (tell) mHost.DebugModelChanged();
}

void TDebugModel::SetSrcCode(std::string_view text) {
  Change([&] {
    mSrcCode.Set(text);
    if (mContext.prefs->BrkS.load() && mSrcCode.Count() > 0) mSrcCode.Item(0).breakPoint = true;
    mChanges.source = mChanges.marks = true;
    mChanges.scrollTo.reset();
    return true;
  });
}

void TDebugModel::ClearCallStack() {
  Change([&] {
    mCalls.clear();
    mCurLine = NO_LINE;
    mEnd = TEnd::Clear;
    mChanges.callStack = true;
    return true;
  });
}

void TDebugModel::SetVar(TMidCode* program) {
  Change([&] {
    mProgram = program;
    mVars.Set(program);
    mChanges.variables = true;
    mChanges.resetVars.clear();
    return true;
  });
}

void TDebugModel::ClearVar() {
  Change([&] {
    mProgram = nullptr;
    mVars.Clear();
    mChanges.variables = true;
    mChanges.resetVars.clear();
    return true;
  });
}

void TDebugModel::SetVMachine(TDebugger* debugger) {
  const TLock lock(mLock);
  fDebugger = debugger;
  fRunMode = TDebugRunMode::Run;
  if (debugger != nullptr) mRunNumber = debugger->RunNumber();
}

void TDebugModel::ForgetVMachine(const TDebugger* debugger) {
  const TLock lock(mLock);
  if (fDebugger != debugger) return;
  fDebugger = nullptr;
  fRunMode = TDebugRunMode::Run;
}

void TDebugModel::SetFirstBreakPoint() {
  const TLock lock(mLock);
  if (fDebugger == nullptr || !mContext.prefs->BrkS.load() || mSrcCode.Count() == 0) return;
  fDebugger->AddBreakPoint(mSrcCode.Item(0).line);
}

void TDebugModel::CurLineNumChanged(int64_t run, int32_t line) {
  Report(run, REPORT_LIMIT, [&] {
    Note([&] { return "clnc " + std::to_string(line); });
    mCurLine = line;
    mEnd = TEnd::Running;
    mChanges.callStack = true;
  });
}

void TDebugModel::AddCallStackRqtd(int64_t run, int32_t line) {
  Report(run, REPORT_LIMIT, [&] {
    Note([&] { return "acsr " + std::to_string(line); });
    mCalls.push_back(line);
    mChanges.callStack = true;
  });
}

void TDebugModel::RemoveCallStackRqtd(int64_t run) {
  Report(run, REPORT_LIMIT, [&] {
    Note([] { return std::string("rcsr"); });
    if (!mCalls.empty()) mCalls.pop_back();
    mChanges.callStack = true;
  });
}

void TDebugModel::UpdateVarInfoRqtd(int64_t run, const TVarAccess* accesses, int count) {
  Report(run, REPORT_LIMIT, [&] {
    Note([&] {
      std::string text = "uvir";
      for (int i = 0; i < count; ++i) {
        if (accesses[i].var == nullptr) continue;
        text += " " + accesses[i].var->name + " " + std::to_string(accesses[i].index);
      }
      return text;
    });
    mChanges.values = true;
  });
}

void TDebugModel::ResetVarRqtd(int64_t run, TVarInfo* var) {
  Report(run, FOREVER, [&] {
    Note([&] { return "rsvr " + var->name; });
    const size_t item = mVars.Reset(var);
    if (item == mVars.Count()) return;
    if (mChanges.resetVars.size() < MAX_TOLD_RESETS) {
      mChanges.resetVars.push_back(item);
    } else {
      mChanges.variables = true;
    }
  });
}

void TDebugModel::DebuggerBreaked(int64_t run, int32_t line) {
  Report(run, FOREVER, [&] {
    Note([&] { return "dbbr " + std::to_string(line); });
    mSrcCode.Break(line);
    ScrollTo(line);
    mVars.NoteStop();
    fRunMode = TDebugRunMode::Breaked;
    mChanges.marks = mChanges.values = mChanges.breaked = true;
  });
}

void TDebugModel::DebuggerDebugBasicEnded(int64_t run, bool killed) {
  Report(run, FOREVER, [&] {
    Note([&] { return std::string(killed ? "dbed Killed" : "dbed"); });
    mCurLine = NO_LINE;
    mEnd = killed ? TEnd::Killed : TEnd::Done;
    mSrcCode.Unbreak();
    fDebugger = nullptr;
    fRunMode = TDebugRunMode::Run;
    mChanges.callStack = mChanges.marks = mChanges.values = mChanges.ended = true;
  });
}

void TDebugModel::ScrollToSpecifyLineNumRqtd(int64_t run, int32_t line) {
  Report(run, FOREVER, [&] {
    Note([&] { return "sslr " + std::to_string(line); });
    ScrollTo(line);
  });
}

/// False, and nothing scrolls, if there is no such line.
bool TDebugModel::ScrollTo(int32_t line) {
  const std::optional<size_t> index = mSrcCode.Find(line);
  if (index) mChanges.scrollTo = index;
  return index.has_value();
}

/// Lets the program go on. The lock is held.
bool TDebugModel::Resume(TDebugRunMode mode) {
  fRunMode = mode;
  mSrcCode.Unbreak();
  mChanges.marks = true;
  fDebugger->SetDebugRunMode(mode);
  fDebugger->Unbreak();
  return true;
}

bool TDebugModel::Unbreak(TDebugRunMode mode) {
  return Change([&] { return Stands() && Resume(mode); });
}

bool TDebugModel::RunToCursor(int32_t line) {
  return Change([&] {
    if (fDebugger == nullptr) return false;
    fDebugger->BreakPoints().SetRunTo(line);
    return !Stands() || Resume(TDebugRunMode::Run);
  });
}

bool TDebugModel::Stop() {
  const TLock lock(mLock);
  if (fDebugger == nullptr) return false;
  fDebugger->SetDebugRunMode(TDebugRunMode::Stop);
  return true;
}

bool TDebugModel::ClickSrcLine(size_t index, int32_t x) {
  if (x > BREAK_POINT_CLICK_WIDTH) return false;
  return Change([&] {
    if (index >= mSrcCode.Count()) return false;
    TSrcCodeItem& item = mSrcCode.Item(index);
    item.breakPoint = !item.breakPoint;
    item.rule = {};
    mChanges.marks = true;
    if (fDebugger != nullptr && item.breakPoint) fDebugger->AddBreakPoint(item.line);
    if (fDebugger != nullptr && !item.breakPoint) fDebugger->RemoveBreakPoint(item.line);
    return true;
  });
}

void TDebugModel::SetBreakRule(size_t index, const TBreakRule& rule) {
  Change([&] {
    if (index >= mSrcCode.Count()) return false;
    TSrcCodeItem& item = mSrcCode.Item(index);
    item.breakPoint = mChanges.marks = true;
    item.rule = rule;
    if (fDebugger != nullptr) fDebugger->BreakPoints().SetRule(item.line, rule);
    return true;
  });
}

bool TDebugModel::ClickCallStack(size_t index) {
  return Change([&] {
    if (index > mCalls.size()) return false;
    return ScrollTo(index < mCalls.size() ? mCalls[index] : mCurLine);
  });
}

void TDebugModel::ExpandOrCollapseVar(size_t item, bool expand) {
  Change([&] {
    if (item >= mVars.Count()) return false;
    mVars.ExpandOrCollapse(item, expand);
    mChanges.values = true;
    return true;
  });
}

bool TDebugModel::EditVar(size_t item, int32_t slot, std::string_view text) {
  const TLock lock(mLock);
  if (!Stands() || item >= mVars.Count()) return false;
  TVarInfo* var = mVars.Info(item);
  if (!has_slot(*var, slot)) return false;
  TEditValue value;
  if (var->kind == ttStr) {
    value.text = text;
  } else {
    const std::optional<double> number = whole_number(text);
    if (!number) return false;
    value.number = *number;
  }
  fDebugger->Edit(var, slot, std::move(value));
  return true;
}

TDebugChanges TDebugModel::TakeChanges() {
  const TLock lock(mLock);
  mTold = false;
  return std::exchange(mChanges, {});
}

void TDebugModel::KeepLog(bool keep) {
  const TLock lock(mLock);
  mKeepLog = keep;
}

std::vector<std::string> TDebugModel::Log() const {
  const TLock lock(mLock);
  return mLog;
}

}  // namespace zoka
