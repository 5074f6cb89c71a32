// Events as they arrive from other threads. All decisions are made in judge_interrupt.
#include "vm/interrupt_port.h"

#include <bit>
#include <utility>

namespace zoka {

int num_shifts(uint32_t mask) {
  return mask == 0 ? -1 : std::countr_zero(mask);
}

TIrVerdict judge_interrupt(uint32_t mask, TIrState state, bool hasTarget) {
  if (mask == IR_STOP_KEY && (!hasTarget || state == TIrState::Off)) return TIrVerdict::Terminate;
  if (!hasTarget) return TIrVerdict::Ignored;
  switch (state) {
    case TIrState::Stop:
      return TIrVerdict::Held;
    case TIrState::On:
      return TIrVerdict::Pending;
    case TIrState::Off:
      break;
  }
  return TIrVerdict::Ignored;
}

TInterruptPort::TInterruptPort() {
  for (auto& state : mIrStates) state.store(TIrState::Off);
  // The speed control passes the tests of events like a trap that is always on.
  mIrStates[num_shifts(IR_SPEED_CONTROL)].store(TIrState::On);
  mHasTarget.store(IR_SPEED_CONTROL);
}

void TInterruptPort::HappenInterrupt(uint32_t mask) {
  if (mask == 0) return;
  const int slot = num_shifts(mask);
  const bool hasTarget = (mHasTarget.load() >> slot & 1) != 0;
  switch (judge_interrupt(mask, mIrStates[slot].load(), hasTarget)) {
    case TIrVerdict::Terminate:
      Terminate();
      break;
    case TIrVerdict::Pending:
      mIrFlags.fetch_or(mask);
      break;
    case TIrVerdict::Held:
      mIrMask.fetch_or(mask);
      // The trap may have been switched on meanwhile, and then nobody would look at the mask again.
      if (mIrStates[slot].load() == TIrState::On) TurnOnInterrupt(mask);
      break;
    case TIrVerdict::Ignored:
      break;
  }
}

void TInterruptPort::UnhappenInterrupt(uint32_t mask) {
  mIrFlags.fetch_and(~mask);
}

void TInterruptPort::TurnOnInterrupt(uint32_t mask) {
  if (mask == 0) return;
  const int slot = num_shifts(mask);
  mIrStates[slot].store(TIrState::On);
  if ((mIrMask.fetch_and(~mask) & mask) != 0) mIrFlags.fetch_or(mask);
}

void TInterruptPort::Terminate() {
  mStopped.store(true);
  mIrFlags.fetch_or(IR_FORCED_STOP);
  TLock lock(mStopLock);
  if (mStop) mStop();
}

void TInterruptPort::SetStop(std::function<void()> stop) {
  TLock lock(mStopLock);
  mStop = std::move(stop);
}

}  // namespace zoka
