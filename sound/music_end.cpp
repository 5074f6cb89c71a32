// The wait for the end of the music.
#include "sound/music_end.h"

#include <algorithm>

namespace zoka {

namespace {

// Not everybody who asks the caller to end wakes it.
constexpr bigtime_t POLL_SPAN = 20000;

}  // namespace

void wait_for_music(TMmlPlayer& player, bigtime_t tail, const TPlayCaller& caller) {
  player.Drain(caller);
  TClock& clock = player.Clock();
  const bigtime_t end = clock.system_time() + tail;
  while (!caller.target.IsTerminated() && clock.system_time() < end) {
    clock.Wait(std::min(end, clock.system_time() + POLL_SPAN), caller.wake);
  }
  if (caller.target.IsTerminated()) player.Clear();
}

}  // namespace zoka
