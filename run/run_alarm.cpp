// Times of day.
#include "run/run_alarm.h"

#include <utility>

#include "common/text/ascii.h"
#include "common/text/number.h"

namespace zoka {
namespace {

constexpr int32_t SECONDS_PER_MINUTE = 60;
constexpr int32_t MINUTES_PER_HOUR = 60;
constexpr int32_t HOURS_PER_DAY = 24;
constexpr int32_t SECONDS_PER_DAY = SECONDS_PER_MINUTE * MINUTES_PER_HOUR * HOURS_PER_DAY;
constexpr bigtime_t MICROSECONDS_PER_SECOND = 1'000'000;

int32_t second_of_day(int32_t hour, int32_t minute, int32_t second) {
  return (hour * MINUTES_PER_HOUR + minute) * SECONDS_PER_MINUTE + second;
}

/// Seconds since midnight of "hh:mm:ss", or -1 if it is anything else.
int32_t parse_time_of_day(std::string_view text) {
  if (text.size() != 8 || text[2] != ':' || text[5] != ':') return -1;
  int32_t parts[3];
  constexpr int32_t LIMITS[3] = {HOURS_PER_DAY, MINUTES_PER_HOUR, SECONDS_PER_MINUTE};
  for (size_t i = 0; i < 3; ++i) {
    const std::string_view part = text.substr(i * 3, 2);
    if (!is_digit(part[0]) || !is_digit(part[1])) return -1;
    parts[i] = parse_long(part);
    if (parts[i] >= LIMITS[i]) return -1;
  }
  return second_of_day(parts[0], parts[1], parts[2]);
}

}  // namespace

int32_t TRunAlarm::Set(std::string_view hhmmss, std::function<void()> ring) {
  const int32_t wanted = parse_time_of_day(hhmmss);
  if (wanted < 0) return -1;
  Clear();
  const TLocalTime now = mClock.local_time();
  int32_t seconds = wanted - second_of_day(now.hour, now.minute, now.second);
  if (seconds < 0) seconds += SECONDS_PER_DAY;
  mTimer.store(mClock.StartTimer(seconds * MICROSECONDS_PER_SECOND, false, std::move(ring)));
  return 0;
}

void TRunAlarm::Clear() {
  mClock.CancelTimer(mTimer.load());
}

}  // namespace zoka
