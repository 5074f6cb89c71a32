// Taking and giving back the window's lock.
#include "run/window_lock.h"

#include "common/host_wait.h"

namespace zoka {

bool TWindowLock::LockFor(bigtime_t limit) {
  const std::thread::id self = std::this_thread::get_id();
  std::unique_lock lock(mMutex);
  if (mDepth == 0 || mHolder != self) {
    const bigtime_t deadline = add_times(host_time(), limit);
    while (mDepth != 0) {
      if (!host_wait(lock, mFreed, mFree, deadline)) return false;
    }
    mHolder = self;
  }
  ++mDepth;
  return true;
}

void TWindowLock::unlock() {
  {
    std::unique_lock lock(mMutex);
    if (--mDepth != 0) return;
    mFree = true;
  }
  mFreed.notify_one();
}

}  // namespace zoka
