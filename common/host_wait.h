// What the clocks and the locks need of the host: sums of times, and a wait in real time on a
// condition. Nothing else includes this.
#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>

#include "common/types.h"

namespace zoka {

/// The longest wait that is handed to the host in one piece, so that no time overflows.
constexpr bigtime_t MAX_HOST_WAIT = 3'600'000'000;

/// Microseconds of the host's steady clock.
inline bigtime_t host_time() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

/// A sum that stays at FOREVER instead of overflowing.
constexpr bigtime_t add_times(bigtime_t time, bigtime_t span) {
  return span > FOREVER - time ? FOREVER : time + span;
}

/// Waits until `flag` is set or the host's time reaches `deadline`. True if the flag was set; it is
/// cleared. `lock` guards the flag.
inline bool host_wait(std::unique_lock<std::mutex>& lock, std::condition_variable& changed,
                      bool& flag, bigtime_t deadline) {
  while (!flag) {
    if (deadline == FOREVER) {
      changed.wait(lock);
      continue;
    }
    const bigtime_t now = host_time();
    if (deadline <= now) return false;
    const bigtime_t until = now + std::min(deadline - now, MAX_HOST_WAIT);
    changed.wait_until(lock,
                       std::chrono::steady_clock::time_point(std::chrono::microseconds(until)));
  }
  flag = false;
  return true;
}

}  // namespace zoka
