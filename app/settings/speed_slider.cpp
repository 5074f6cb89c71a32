// The slider's positions, counted through in whole numbers.
#include "app/settings/speed_slider.h"

#include <algorithm>

namespace zoka {
namespace {

constexpr int32_t STEPS_A_DECADE = 9;
constexpr bigtime_t FIRST_DECADE = 100;
constexpr bigtime_t DECADE = 10;

}  // namespace

bigtime_t interval_of_slider(int32_t position) {
  const int32_t steps = std::clamp(position, MIN_SLIDER_POSITION, MAX_SLIDER_POSITION) - 1;
  bigtime_t decade = FIRST_DECADE;
  for (int32_t i = 0; i < steps / STEPS_A_DECADE; ++i) decade *= DECADE;
  return (steps % STEPS_A_DECADE + 1) * decade;
}

int32_t slider_of_interval(bigtime_t interval) {
  int32_t position = MIN_SLIDER_POSITION;
  while (position < MAX_SLIDER_POSITION && interval_of_slider(position + 1) <= interval) ++position;
  return position;
}

}  // namespace zoka
