// What the machine does about pending events, on its own thread, between two instructions.
#include "vm/memory_budget.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

constexpr int FIRST_TRAP_BIT = 3;
constexpr int LAST_TRAP_BIT = 25;

/// Below this the speed control does not sleep: sleeps are too coarse.
constexpr bigtime_t BUSY_WAIT_LIMIT = 20'000;

}  // namespace

void TVMachine::Interrupt() {
  const uint32_t flags = mInputs->PendingEvents(*mPort, {Jumps(), PCIndex()});
  if ((flags & IR_FORCED_STOP) != 0) {
    InterruptVMTerminate();
    return;
  }
  if ((flags & IR_SPEED_CONTROL) != 0) InterruptVMSleep();
  // Several are entered at once, the later ones nested inside the earlier ones.
  for (int bit = FIRST_TRAP_BIT; bit <= LAST_TRAP_BIT; ++bit) {
    if ((flags >> bit & 1) != 0) InterruptGeneral(bit);
  }
}

void TVMachine::InterruptVMTerminate() {
  mExitStatus = 1;
  GenerateErrStrDisplay(ERR_STOP_BREAK);
  JumpToEnd();
  mPort->mIrFlags.fetch_and(~static_cast<uint32_t>(IR_FORCED_STOP));
}

void TVMachine::InterruptVMSleep() {
  // The bit stays set: this runs before every instruction, but slows only statements.
  if (!mMidCode->IsStatementBegin(PCIndex())) return;
  const bigtime_t delay = mInputs->SpeedControlInterval();
  if (delay >= BUSY_WAIT_LIMIT || Clock().IsSimulated()) {
    Snooze(delay);
    return;
  }
  NoteWait();
  const bigtime_t end = Clock().system_time() + delay;
  while (Clock().system_time() < end && !IsTerminated()) {
  }
}

void TVMachine::InterruptGeneral(int bit) {
  const uint32_t mask = 1u << bit;
  mPort->mIrStates[bit].store(TIrState::Stop);
  if (FindTarget(mIrTargets[bit]) != 0) EnterTrap(bit);
  mPort->mIrFlags.fetch_and(~mask);
}

void TVMachine::EnterTrap(int bit) {
  if (static_cast<int64_t>(mIrStack.size()) >= MAX_RETURN_RECORDS) {
    throw RuntimeException2(ERR_ILL_FUNC_CALL);
  }
  // The trap may look at the file that the interrupted statement writes.
  if (!mHeldOutput.Flush()) throw RuntimeException2(ERR_CANNOT_WRITE);
  reserve_counted(&mIrStack, &mBudget);
  mIrStack.push_back({1u << bit, mStack.Depth()});
  // The instruction that was due runs on return.
  PushReturnRecord(PCIndex());
  ChangePC(mIrTargets[bit]);
  ++mPC;
}

}  // namespace zoka
