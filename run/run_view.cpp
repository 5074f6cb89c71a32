// The run view: the life of a run, from compilation to its end. What reaches it from outside is in
// run_view_events.cpp, what the window sees of it in run_view_window.cpp and boot_text.cpp.
#include "run/run_view.h"

#include <utility>

#include "app/settings/exit_states.h"
#include "debugger/debug_model.h"
#include "debugger/debugger.h"
#include "run/key_feeder.h"
#include "run/live_inputs.h"

namespace zoka {

TRunView::TRunView(TEngineContext& context, TRunHost& host)
    : mContext(context),
      mHost(host),
      mRsrc(*context.clock),
      mMusic(context),
      mPicture(*context.clock, host, mRsrc),
      mAlarm(*context.clock),
      mCompileJob(context, mMidCode, mCompatiMode),
      mInputs(std::make_unique<TLiveInputs>(context, mRsrc, host, mMusic.Producer())) {
  const int32_t preferred = context.prefs->CmpM.load();
  if (preferred != COMPAT_AUTO) mCompatiMode.store(preferred);
  mRsrc.SetFontFamilyAndSize(context.prefs->RWFF, context.prefs->RWFS.load());
  mRsrc.SetOwner(this);
}

TRunView::~TRunView() {
  DetachedFromWindow();
  CancelCompile();
  FinishCompile();
  QuitBasic();
  if (mDebugModel != nullptr) mDebugModel->ClearVar();
  mAlarm.Clear();
  mRsrc.SetOwner(nullptr);
}

// --- Compilation --------------------------------------------------------------------------------

TCompileResult TRunView::CompileBasic(const char* text) {
  StartCompile(text, nullptr);
  return FinishCompile();
}

void TRunView::StartCompile(std::string text, std::function<void()> ended) {
  FinishCompile();
  if (mDebugModel != nullptr) mDebugModel->ClearVar();
  mCompileJob.Start(std::move(text), std::move(ended));
  // A stop by force that came just before counts.
  if (mStopRequested.load()) CancelCompile();
}

// --- Life of a run ------------------------------------------------------------------------------

void TRunView::ForgetDebugger() {
  if (mDebugger != nullptr) mDebugModel->ForgetVMachine(mDebugger);
  mDebugger = nullptr;
}

void TRunView::MakeMachine() {
  ForgetDebugger();
  TMachineParts parts;
  parts.context = &mContext;
  parts.midCode = &mMidCode;
  parts.rsrc = &mRsrc;
  parts.player = &mMusic.Player();
  parts.inputs = mInputs.get();
  parts.host = this;
  parts.memoryLimit = mMemoryLimit;
  parts.plain = mPlain;
  if (mDebugModel != nullptr && mContext.exitStates->UDbg.load()) {
    auto debugger = std::make_unique<TDebugger>("Debugger", parts, mDebugModel, mRunNumber);
    mDebugger = debugger.get();
    mMachine = std::move(debugger);
  } else {
    mMachine = std::make_unique<TVMachine>("Virtual Machine", parts);
  }
}

bool TRunView::ReadyBasic() {
  ++mRunNumber;
  {
    TLock lock(mRequestLock);
    mHasRequest = false;
  }
  MakeMachine();
  mMachine->SetRuntimeCompatiMode(CompatiMode());
  SetPort(mMachine->Port());
  mMusic.SetRun(mMachine->Port());
  mAlarm.Clear();
  SetWinTitle();
  // Keys of a script that were handed over but not read belong to the next run.
  if (mKeyFeeder.load() == nullptr) mRsrc.ClearKeyBuf();
  SetUseSpeedControl();
  return true;
}

bool TRunView::RunBasic(const TMessage& start) {
  if (!mMachine || !mMachine->SetStartPos(start)) return false;
  if (TKeyFeeder* feeder = mKeyFeeder.load()) feeder->Begin();
  mMachine->Resume();
  return true;
}

bool TRunView::QuitBasic(TVMachine* which) {
  if (!mMachine || (which != nullptr && which != mMachine.get())) return false;
  mMusic.SetRun(nullptr);
  mMachine->Terminate();
  PreventInputBlock();
  if (TKeyFeeder* feeder = mKeyFeeder.load()) feeder->End();
  mMachine->Wait(nullptr);
  ForgetDebugger();
  mMachine.reset();
  SetPort(nullptr);
  return true;
}

bool TRunView::KillBasic() {
  mContext.privacy.killed.store(true);
  CancelCompile();
  return QuitBasic();
}

bool TRunView::ClearBasic() {
  if (mDebugModel != nullptr) mDebugModel->ClearVar();
  mMidCode.Clear();
  mRsrc.SetScrModifiedAll2();
  mRsrc.UpdateScreen();
  return true;
}

int32_t TRunView::WaitForEnd() {
  int32_t status = 0;
  if (mMachine) mMachine->Wait(&status);
  return status;
}

void TRunView::ForceStop() {
  mStopRequested.store(true);
  CancelCompile();
  if (auto port = Port()) port->Terminate();
  // The machine may stand still for keys that never come.
  if (TKeyFeeder* feeder = mKeyFeeder.load()) feeder->End();
}

void TRunView::PreventInputBlock() {
  mRsrc.PushToKeyBuf("\x0A", 1);
}

// --- TMachineHost -------------------------------------------------------------------------------

void TRunView::SendRunRequest(const TMessage& message) {
  TLock lock(mRequestLock);
  mHasRequest = true;
  mRequest = message;
}

void TRunView::FlushOutput() {
  mPicture.ComposeHeldBack();
  mHost.FlushOutput();
}

void TRunView::MachineEnded(int32_t exitStatus) {
  mPicture.ComposeHeldBack();
  bool hasRequest;
  TMessage request;
  {
    TLock lock(mRequestLock);
    hasRequest = std::exchange(mHasRequest, false);
    request = mRequest;
  }
  mHost.RunEnded(mRunNumber, exitStatus, hasRequest ? &request : nullptr);
}

}  // namespace zoka
