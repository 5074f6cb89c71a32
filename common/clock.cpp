// TWake's own small part; the clocks are in real_clock.cpp and simulated_clock.cpp.
#include "common/clock.h"

#include "common/host_wait.h"

namespace zoka {

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

}  // namespace zoka
