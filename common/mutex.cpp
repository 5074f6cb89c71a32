// TMutex: locking, and in debug builds the watch over the order of locks.
#include "common/mutex.h"

#include <condition_variable>

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

/// On the stack of the thread that waits; under mWaiting.
struct TMutex::TWaiter {
  TWaiter* next = nullptr;
  bool isHolder = false;
  std::condition_variable handOver;
};

bool TMutex::lock_within(bigtime_t limit) {
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

bool TMutex::LockSlow(bigtime_t limit) {
  const bigtime_t deadline = limit == FOREVER ? FOREVER : add_times(host_time(), limit);
  std::unique_lock<std::mutex> lock(mWaiting);
  if (mState.exchange(WANTED, std::memory_order_acquire) == FREE) {
    // Nobody waits: with a waiter it is never free.
    mState.store(HELD, std::memory_order_relaxed);
    return true;
  }
  TWaiter self;
  (mLast != nullptr ? mLast->next : mFirst) = &self;
  mLast = &self;
  const auto isMine = [&self] { return self.isHolder; };
  if (deadline == FOREVER) {
    self.handOver.wait(lock, isMine);
    return true;
  }
  const auto until = std::chrono::steady_clock::time_point(std::chrono::microseconds(deadline));
  if (self.handOver.wait_until(lock, until, isMine)) return true;
  RemoveWaiter(self);
  return false;
}

void TMutex::unlock() {
#if ZOKA_DEBUG
  note_unlock(mRank);  // before it is free: the next holder may delete it
#endif
  int expected = HELD;
  if (!mState.compare_exchange_strong(expected, FREE, std::memory_order_release)) UnlockSlow();
}

void TMutex::UnlockSlow() {
  // Who found the mutex held is in the list by now, or has given up.
  const std::lock_guard<std::mutex> lock(mWaiting);
  TWaiter* const next = mFirst;
  if (next != nullptr) RemoveWaiter(*next);
  // For a waiter it stays held, so that nobody comes between.
  if (mFirst == nullptr) mState.store(next != nullptr ? HELD : FREE, std::memory_order_release);
  if (next == nullptr) return;
  // Told under the lock: until this lets go of it the waiter cannot leave.
  next->isHolder = true;
  next->handOver.notify_one();
}

void TMutex::RemoveWaiter(TWaiter& waiter) {
  TWaiter* before = nullptr;
  for (TWaiter* at = mFirst; at != &waiter; at = at->next) before = at;
  (before != nullptr ? before->next : mFirst) = waiter.next;
  if (mLast == &waiter) mLast = before;
}

}  // namespace zoka
