// What both clocks keep of a timer, and how they order what is due. When it fires is each clock's
// own business; nothing else includes this.
#pragma once

#include <algorithm>
#include <functional>
#include <tuple>
#include <utility>

#include "common/clock.h"

namespace zoka {

/// Place in a clock's queue: time, who comes first at the same time, serial number.
using TClockKey = std::tuple<bigtime_t, TActorClass, uint64_t>;

/// A timer that has been started. It is shared with whoever is calling its function, which may
/// cancel it meanwhile.
struct TClockTimer {
  TClockTimer(bigtime_t wanted, bool repeats, std::function<void()> function, TActorClass actor)
      // Where it repeats at least a microsecond, since else no time would pass between its rounds.
      : delay(std::max<bigtime_t>(wanted, repeats ? 1 : 0)),
        repeat(repeats),
        order(actor),
        fn(std::move(function)) {}

  TClockKey key;  // the clock's, once the timer is in its queue
  const bigtime_t delay;
  const bool repeat;
  const TActorClass order;
  const std::function<void()> fn;
};

}  // namespace zoka
