// TMutex: locking, and in debug builds the watch over the order of locks.
#include "common/mutex.h"

#include "common/host_wait.h"

#if ZOKA_DEBUG
#include <cstdio>
#include <cstdlib>
#endif

namespace zoka {

#if ZOKA_DEBUG
namespace {

/// A bit for each rank that the thread holds.
thread_local unsigned gHeldRanks = 0;

void note_lock(TLockRank rank) {
  const unsigned place = static_cast<unsigned>(rank);
  if (gHeldRanks >> place) {
    std::fprintf(stderr, "lock of rank %u taken while ranks %#x are held\n", place, gHeldRanks);
    std::abort();
  }
  gHeldRanks |= 1u << place;
}

void note_unlock(TLockRank rank) {
  gHeldRanks &= ~(1u << static_cast<unsigned>(rank));
}

}  // namespace
#endif

void TMutex::lock() {
#if ZOKA_DEBUG
  note_lock(mRank);
#endif
  mMutex.lock();
}

void TMutex::unlock() {
  mMutex.unlock();
#if ZOKA_DEBUG
  note_unlock(mRank);
#endif
}

bool TTimedMutex::lock_within(bigtime_t limit) {
#if ZOKA_DEBUG
  note_lock(mRank);
#endif
  int expected = FREE;
  const bool locked =
      mState.compare_exchange_strong(expected, HELD, std::memory_order_acquire) || LockSlow(limit);
#if ZOKA_DEBUG
  if (!locked) note_unlock(mRank);
#endif
  return locked;
}

bool TTimedMutex::LockSlow(bigtime_t limit) {
  const bigtime_t deadline = limit == FOREVER ? FOREVER : add_times(host_time(), limit);
  std::unique_lock<std::mutex> lock(mWaiting);
  while (mState.exchange(WANTED, std::memory_order_acquire) != FREE) {
    if (deadline == FOREVER) {
      mFreed.wait(lock);
      continue;
    }
    if (deadline <= host_time()) return false;
    mFreed.wait_until(lock,
                      std::chrono::steady_clock::time_point(std::chrono::microseconds(deadline)));
  }
  return true;
}

void TTimedMutex::unlock() {
  if (mState.exchange(FREE, std::memory_order_release) == WANTED) {
    // Who saw the mutex held waits by now, or has not yet taken this lock and will look again.
    const std::lock_guard<std::mutex> lock(mWaiting);
    mFreed.notify_one();
  }
#if ZOKA_DEBUG
  note_unlock(mRank);
#endif
}

}  // namespace zoka
