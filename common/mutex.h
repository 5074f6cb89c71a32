// The engine's mutex: each has a rank, and a thread takes them in ascending rank only, which debug
// builds assert. It is no recursive lock and has no conditions: waits belong to TClock.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>

#include "common/types.h"

namespace zoka {

/// The order in which locks are taken: outer ones first. At most one Leaf is held at a time, and
/// nothing is called while one is held.
enum class TLockRank : uint8_t { Window, Screen, DebugModel, Variables, Leaf };

/// A mutex with a rank. Meets BasicLockable, so std::lock_guard works with it.
class TMutex {
 public:
  explicit TMutex(TLockRank rank) : mRank(rank) {}
  TMutex(const TMutex&) = delete;
  TMutex& operator=(const TMutex&) = delete;

  void lock();
  void unlock();

 private:
  std::mutex mMutex;
  [[maybe_unused]] const TLockRank mRank;  // looked at by debug builds only
};

using TLock = std::lock_guard<TMutex>;

/// A mutex with a rank that can be waited for with a limit. Uncontended it costs no more than the
/// other; it is not fair.
class TTimedMutex {
 public:
  explicit TTimedMutex(TLockRank rank) : mRank(rank) {}
  TTimedMutex(const TTimedMutex&) = delete;
  TTimedMutex& operator=(const TTimedMutex&) = delete;

  void lock() { lock_within(FOREVER); }
  /// Waits no longer than `limit` microseconds of real time; false if it was not free by then.
  bool lock_within(bigtime_t limit);
  void unlock();

 private:
  bool LockSlow(bigtime_t limit);

  enum : int { FREE, HELD, WANTED };  // wanted: held, and somebody may be waiting
  std::atomic<int> mState{FREE};
  std::mutex mWaiting;
  std::condition_variable mFreed;
  [[maybe_unused]] const TLockRank mRank;  // looked at by debug builds only
};

using TTimedLock = std::lock_guard<TTimedMutex>;

}  // namespace zoka
