// TMutex: locking, and in debug builds the watch over the order of locks.
#include "common/mutex.h"

#if ZOKA_DEBUG
#include <cstdio>
#include <cstdlib>
#endif

namespace zoka {

#if ZOKA_DEBUG
namespace {

/// A bit for each rank that the thread holds.
thread_local unsigned tHeldRanks = 0;

void note_lock(TLockRank rank) {
  const unsigned place = static_cast<unsigned>(rank);
  if (tHeldRanks >> place) {
    std::fprintf(stderr, "lock of rank %u taken while ranks %#x are held\n", place, tHeldRanks);
    std::abort();
  }
  tHeldRanks |= 1u << place;
}

void note_unlock(TLockRank rank) {
  tHeldRanks &= ~(1u << static_cast<unsigned>(rank));
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

}  // namespace zoka
