// The machine's life: construction, the main loop, errors, the end of a run, waits.
#include "vm/vmachine.h"

#include <new>
#include <stdexcept>
#include <utility>

#include "app/settings/show_alert.h"
#include "sound/mml_player.h"
#include "vm/engine_priority.h"
#include "vm/memory_budget.h"
#include "vm/units.h"

namespace zoka {

TVMachine::TVMachine(const char* name, const TMachineParts& parts)
    : TThread(name, MACHINE_PRIORITY, *parts.context->clock, TActorClass::Machine),
      mStack(&mBudget),
      mMidCode(parts.midCode),
      mUserFuncArgs(&mBudget),
      mRsrc(parts.rsrc),
      mPlayer(parts.player),
      mInputs(parts.inputs),
      mHost(parts.host),
      mContext(*parts.context),
      mPort(std::make_shared<TInterruptPort>()),
      mPlain(parts.plain),
      mCodeBase(parts.midCode->mCodes.data()) {
  // Zeroed memory that the host hands out when it is touched: most instructions look nothing up.
  mLookups.reset(static_cast<TLookup*>(std::calloc(mMidCode->mCodes.size(), sizeof(TLookup))));
  if (!mLookups) throw std::bad_alloc();
  mPC = mCodeBase + 1;
  mDataPos = mPC;
  mBudget.limit = parts.memoryLimit > 0 ? parts.memoryLimit : default_memory_limit();
  mPort->SetStop([this] { Terminate(); });
}

TVMachine::~TVMachine() {
  mPort->SetStop(nullptr);
  TVMachine::Terminate();
  Wait(nullptr);
  for (TStackData& target : mIrTargets) target.Release();
}

void TVMachine::Terminate() {
  mPort->mStopped.store(true);
  mPort->mIrFlags.fetch_or(IR_FORCED_STOP);
  TThread::Terminate();
  mRsrc->WakeKeyWait();
}

bool TVMachine::SetStartPos(const TMessage& message) {
  mStart = message;
  return true;
}

void TVMachine::JumpToStart() {
  int32_t line = 0;
  std::string label;
  int32_t index = 0;
  if (mStart.FindInt32("LineNum", &line)) {
    index = FindTarget(TStackData::Of(line));
  } else if (mStart.FindString("Label", &label)) {
    index = mMidCode->FindLabel(label);
    if (index == 0) throw RuntimeException2(ERR_UNDEFINED_LABEL);
  }
  if (index != 0) mPC = mCodeBase + index;
}

void TVMachine::UseUnits() {
  const int32_t index = PCIndex();
  const auto dataIndex = static_cast<int32_t>(mDataPos - mCodeBase);
  mCodeWithUnits = code_with_units(*mMidCode);
  mCodeBase = mCodeWithUnits.data();
  mPC = CodeAt(index);
  mDataPos = CodeAt(dataIndex);
}

void TVMachine::RunLoop(const TVMHandler* table) {
  if (!mPlain) UseUnits();
  const TVMCode* const end = mCodeBase + mMidCode->mCodes.size();
  const std::atomic<uint32_t>& flags = mPort->mIrFlags;
  while (mPC != end) {
    if (flags.load(std::memory_order_relaxed) != 0) [[unlikely]]
      Interrupt();
    const TVMCode* code = mPC;
    table[static_cast<uint16_t>(code->Number())](*this, code);
    ++mPC;
  }
}

void TVMachine::RunProgram() {
  try {
    JumpToStart();
    RunLoop(HandlerTable());
  } catch (const std::bad_alloc&) {
    throw RuntimeException2(ERR_ILL_FUNC_CALL);
  } catch (const std::length_error&) {
    throw RuntimeException2(ERR_ILL_FUNC_CALL);
  }
}

int32_t TVMachine::Execute() {
  TTextBlock::SetBudget(&mBudget);
  try {
    RunProgram();
  } catch (const TException& fault) {
    mFault = fault;
    // What stood before the error is in the file when the alert is read.
    mHeldOutput.Flush();
    ShowFault(fault);
    mExitStatus = 1;
  }
  mHeldOutput.Flush();
  if (mRunRequested) mHost->SendRunRequest(mRunRequest);
  ExecuteDone();
  TTextBlock::SetBudget(nullptr);
  mHost->MachineEnded(mExitStatus);
  return mExitStatus;
}

void TVMachine::ShowFault(const TException& fault) {
  mHost->FlushOutput();
  show_fault_alert(mContext, exception_text(fault, *mContext.catalogue), this);
}

void TVMachine::ExecuteDone() {
  if (mContext.privacy.quitting.load()) return;
  const bool repeats = mInputs->RepeatRun();
  if (repeats && mPlayer != nullptr) {
    while (!IsTerminated() && !mPlayer->IsBufferEmpty()) Snooze(POLL_INTERVAL);
  }
  PrintExit();
  if (repeats) RepeatRun();
}

void TVMachine::RepeatRun() {
  // A run has one successor, and one that was stopped has none.
  if (mExitStatus != 0 || mRunRequested || IsTerminated()) return;
  if (mContext.privacy.killed.load()) return;
  TMessage message(RUN_REQUEST_CODE);
  message.AddBool("NotFore", true);
  mHost->SendRunRequest(message);
}

void TVMachine::PrintExit() {
  if (mExitStatus == 1) PrintErrStr();
  PrintOk();
  mRsrc->UpdateScreen();
}

void TVMachine::PrintOk() {
  mRsrc->Print("Ok");
  mRsrc->DoCRLF();
}

void TVMachine::PrintErrStr() {
  mRsrc->Print(mErrStr);
  mRsrc->DoCRLF();
}

TException TVMachine::RuntimeException2(std::string_view key,
                                        std::vector<TException::TArgument> arguments) {
  GenerateErrStrDisplay(key, arguments);
  TException fault;
  fault.ID = static_cast<uint32_t>(mCurLine);
  fault.key = key;
  fault.arguments = std::move(arguments);
  return fault;
}

void TVMachine::GenerateErrStrDisplay(std::string_view key,
                                      const std::vector<TException::TArgument>& arguments) {
  mErrStr = mContext.catalogue->GetString(key);
  for (const auto& [placeholder, value] : arguments) {
    mErrStr = replace_placeholder(std::move(mErrStr), placeholder, value);
  }
  mErrStr += " in " + std::to_string(mCurLine);
}

void TVMachine::RequestRun(const TMessage& message) {
  mRunRequest = message;
  mRunRequested = true;
}

void TVMachine::Snooze(bigtime_t span) {
  NoteWait();
  mHost->FlushOutput();
  if (!IsTerminated()) Clock().snooze(span, mWake);
}

bigtime_t TVMachine::SystemTime() {
  NoteWait();
  return mInputs->SystemTime();
}

TLocalTime TVMachine::LocalTime() {
  NoteWait();
  return mInputs->LocalTime();
}

std::string TVMachine::PopKey() {
  NoteWait();
  mHost->FlushOutput();
  return mInputs->PopKey(*this);
}

std::string TVMachine::PopKeyWithTimeout(bigtime_t timeout) {
  NoteWait();
  if (timeout > 0) mHost->FlushOutput();
  return mInputs->PopKeyWithTimeout(timeout, *this);
}

void TVMachine::RunLong() {
  NoteWait();
  Clock().RunningLong();
}

void TVMachine::RegisterVarAccess(int32_t, TVarInfo*, int32_t) {}

void TVMachine::ExeBasicOnGosubGotoGosubInvoked() {}

void TVMachine::SendResetVarRqtd(TVarInfo*) {}

}  // namespace zoka
