// TRunAlarm: the one alarm of ON TIME$. What it raises is its owner's business.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string_view>

#include "common/clock.h"

namespace zoka {

/// Any thread. The clock outlives it.
class TRunAlarm {
 public:
  explicit TRunAlarm(TClock& clock) : mClock(clock) {}
  ~TRunAlarm() { Clear(); }
  TRunAlarm(const TRunAlarm&) = delete;
  TRunAlarm& operator=(const TRunAlarm&) = delete;

  /// Calls `ring` once, on the clock's thread, when it is `hhmmss` ("hh:mm:ss") next: at once if it
  /// is that now. Replaces an alarm that is still to come. 0, or -1 for a malformed time, which
  /// changes nothing.
  int32_t Set(std::string_view hhmmss, std::function<void()> ring);
  void Clear();

 private:
  TClock& mClock;
  std::atomic<TTimerId> mTimer{0};
};

}  // namespace zoka
