// The slider of the speed control: nine positions a decade, the first of them the shortest
// interval. What an interval does to a run is elsewhere.
#pragma once

#include <cstdint>

#include "common/types.h"

namespace zoka {

/// The slider's ends: 100 microseconds and 1 second.
constexpr int32_t MIN_SLIDER_POSITION = 1;
constexpr int32_t MAX_SLIDER_POSITION = 37;

/// The interval of a position in microseconds: 1 is 100, 2 is 200, 9 is 900, 10 is 1000. Positions
/// beyond an end count as the end.
bigtime_t interval_of_slider(int32_t position);

/// The position for an interval in microseconds: that of the step at or below it. Intervals beyond
/// an end stand at the end.
int32_t slider_of_interval(bigtime_t interval);

}  // namespace zoka
