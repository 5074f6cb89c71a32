// The wait for the end of the music.
#include "sound/music_end.h"

namespace zoka {

namespace {

constexpr char THREAD_NAME[] = "Music End";
constexpr int32_t THREAD_PRIORITY = 15;

}  // namespace

TMusicEnd::TMusicEnd(TClock& clock, TMmlPlayer& player, bigtime_t tail)
    : TThread(THREAD_NAME, THREAD_PRIORITY, clock, TActorClass::Machine),
      mPlayer(player),
      mTail(tail) {}

void TMusicEnd::WaitForEnd() {
  Start();
  Wait(nullptr);
}

int32_t TMusicEnd::Execute() {
  wait_for_music(mPlayer, mTail, {mWake, *this});
  return 0;
}

void wait_for_music(TMmlPlayer& player, bigtime_t tail, const TPlayCaller& caller) {
  player.Drain(caller);
  TClock& clock = player.Clock();
  const bigtime_t end = clock.system_time() + tail;
  while (!caller.target.IsTerminated() && clock.system_time() < end) clock.Wait(end, caller.wake);
  if (caller.target.IsTerminated()) player.Clear();
}

}  // namespace zoka
