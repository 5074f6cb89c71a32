// The engine's mutex: each has a rank, and a thread takes them in ascending rank only, which debug
// builds assert. It is no recursive lock and has no conditions: waits belong to TClock.
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>

#include "common/types.h"

namespace zoka {

/// The order in which locks are taken: outer ones first. At most one Leaf is held at a time, and
/// nothing is called while one is held.
enum class TLockRank : uint8_t { Window, Screen, DebugModel, Variables, Leaf };

/// A mutex with a rank. Meets BasicLockable, so std::lock_guard works with it. Uncontended it costs
/// one exchange to lock and one to unlock. It is fair: the thread that has waited longest gets it
/// from the one that unlocks, so that a holder which takes it again at once, as a program that only
/// paints does, cannot keep another out.
class TMutex {
 public:
  explicit TMutex(TLockRank rank) : mRank(rank) {}
  TMutex(const TMutex&) = delete;
  TMutex& operator=(const TMutex&) = delete;

  void lock() { lock_within(FOREVER); }
  /// Waits no longer than `limit` microseconds of real time; false if it was not free by then.
  bool lock_within(bigtime_t limit);
  void unlock();

  /// Somebody has asked for it since it was taken, and waits unless the time for that is over. Any
  /// thread; old news as soon as it is told.
  bool IsWanted() const { return mState.load(std::memory_order_relaxed) == WANTED; }

 private:
  struct TWaiter;

  bool LockSlow(bigtime_t limit);
  void UnlockSlow();
  void RemoveWaiter(TWaiter& waiter);

  enum : int { FREE, HELD, WANTED };  // wanted: held, and somebody may be waiting
  std::atomic<int> mState{FREE};
  std::mutex mWaiting;        // for the two members below, and for every change to or from WANTED
  TWaiter* mFirst = nullptr;  // those who wait, in the order in which they came
  TWaiter* mLast = nullptr;
  [[maybe_unused]] const TLockRank mRank;  // looked at by debug builds only
};

using TLock = std::lock_guard<TMutex>;

}  // namespace zoka
