// TInterruptPort: what other threads share with a machine: pending events, their states, the stop
// request. It outlives the run, so no other thread ever holds a machine.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>

#include "common/mutex.h"
#include "core/traps.h"

namespace zoka {

/// Events by mask; each has the slot of its lowest bit.
enum TIrMask : uint32_t {
  IR_FORCED_STOP = 0x1,
  IR_SPEED_CONTROL = 0x2,
  IR_STOP_KEY = TRAP_STOP,
  IR_HELP_KEY = TRAP_HELP,
  IR_TIME = TRAP_TIME,
  IR_KEY_1 = TRAP_KEY,  // to 0x8000, KEY 10
  IR_PLAY = TRAP_PLAY,
  IR_MOUSE_MOVED = TRAP_MOUSE,
  IR_MOUSE_LEFT_DOWN = 0x400000,
  IR_MOUSE_RIGHT_DOWN = 0x800000,
  IR_MOUSE_LEFT_UP = 0x1000000,
  IR_MOUSE_RIGHT_UP = 0x2000000,
};
constexpr int IR_SLOT_COUNT = 32;

/// State of an event's trap.
enum class TIrState : uint8_t { Off = 0, Stop = 1, On = 2 };

/// What an event leads to; decided by a pure function of the event, its state and its target.
enum class TIrVerdict : uint8_t { Ignored, Terminate, Held, Pending };
TIrVerdict judge_interrupt(uint32_t mask, TIrState state, bool hasTarget);

/// Number of the lowest set bit of a mask; -1 for 0.
int num_shifts(uint32_t mask);

/// The shared words. All operations from any thread.
class TInterruptPort {
 public:
  TInterruptPort();

  /// An event happens. The break key is a forced stop when no trap takes it. A mask that is not
  /// that of an event with a target is ignored.
  void HappenInterrupt(uint32_t mask);
  void UnhappenInterrupt(uint32_t mask);
  /// Sets the event's state to On; an event held meanwhile becomes pending.
  void TurnOnInterrupt(uint32_t mask);

  /// The forced stop: sets bit 0 and calls the stop function, if there is one. Not with a lock of
  /// rank Variables or below held.
  void Terminate();
  /// What the forced stop calls: the machine's own Terminate. Null takes it away, and waits until a
  /// call under way has ended; so the machine may go afterwards.
  void SetStop(std::function<void()> stop);

  std::atomic<uint32_t> mIrFlags{0};
  std::atomic<uint32_t> mIrMask{0};
  std::array<std::atomic<TIrState>, IR_SLOT_COUNT> mIrStates;
  /// Bit n: the event of slot n has a GOSUB target.
  std::atomic<uint32_t> mHasTarget{0};
  /// A forced stop was asked for.
  std::atomic<bool> mStopped{false};

 private:
  TMutex mStopLock{TLockRank::Variables};
  std::function<void()> mStop;
};

}  // namespace zoka
