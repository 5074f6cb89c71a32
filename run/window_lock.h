// TWindowLock: the lock of the run window: whoever composes or paints the picture holds it. It is
// the outermost of the engine's locks, may be taken again by its holder, and may be tried for a
// while, in real time.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>

#include "common/types.h"

namespace zoka {

/// Any thread; none that holds a lock of another rank.
class TWindowLock {
 public:
  TWindowLock() = default;
  TWindowLock(const TWindowLock&) = delete;
  TWindowLock& operator=(const TWindowLock&) = delete;

  /// Takes the lock within `limit` microseconds (FOREVER: whenever it is free); false if it could
  /// not. Each success is paired with an unlock.
  bool LockFor(bigtime_t limit);
  /// These meet BasicLockable.
  void lock() { LockFor(FOREVER); }
  void unlock();

 private:
  std::mutex mMutex;
  std::condition_variable mFreed;
  bool mFree = false;  // a wake-up for one who waits
  int32_t mDepth = 0;
  std::thread::id mHolder;
};

}  // namespace zoka
