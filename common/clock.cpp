// What the clocks share; they are in real_clock.cpp and simulated_clock.cpp.
#include "common/clock.h"

#include <chrono>

#include "common/host_wait.h"

namespace zoka {

namespace {

constexpr bigtime_t USEC_PER_SEC = 1'000'000;

}  // namespace

TWake::TWake(TClock& clock) : mClock(clock) {}

TWake::~TWake() {
  mClock.ForgetWake(*this);
}

void TWake::Signal() {
  mClock.SignalWake(*this);
}

bool TClock::snooze(bigtime_t span, TWake& wake) {
  return Wait(add_times(system_time(), span), wake);
}

TLocalTime local_time_after(const TLocalTime& start, bigtime_t elapsed) {
  using namespace std::chrono;
  const sys_days firstDay = year(start.year) / month(static_cast<unsigned>(start.month)) /
                            day(static_cast<unsigned>(start.day));
  const sys_seconds now = sys_seconds(firstDay) + hours(start.hour) + minutes(start.minute) +
                          seconds(start.second) + seconds(elapsed / USEC_PER_SEC);
  const sys_days today = floor<days>(now);
  const year_month_day date(today);
  const hh_mm_ss time(now - today);
  TLocalTime result;
  result.year = static_cast<int>(date.year());
  result.month = static_cast<int>(static_cast<unsigned>(date.month()));
  result.day = static_cast<int>(static_cast<unsigned>(date.day()));
  result.hour = static_cast<int>(time.hours().count());
  result.minute = static_cast<int>(time.minutes().count());
  result.second = static_cast<int>(time.seconds().count());
  return result;
}

}  // namespace zoka
