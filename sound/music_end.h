// Waits for the end of all music, on a thread of its own: what the console does when a program has
// ended and its music has not.
#pragma once

#include "common/thread.h"
#include "sound/mml_player.h"

namespace zoka {

/// Waits until all queued music has sounded and then for `tail` microseconds, which the output
/// needs behind the last event. If the caller is asked to end, silences all channels instead. For a
/// thread of the engine.
void wait_for_music(TMmlPlayer& player, bigtime_t tail, const TPlayCaller& caller);

/// Waits once. A host's thread owns it.
class TMusicEnd final : private TThread, private TPlayEventTarget {
 public:
  TMusicEnd(TClock& clock, TMmlPlayer& player, bigtime_t tail);

  /// Begins to wait. Called while the machine still runs, it keeps simulated time from running on
  /// unwatched; else WaitForEnd does it.
  void Start() { Resume(); }

  /// Returns when all queued music has sounded, or soon after Stop.
  void WaitForEnd();

  /// Cuts the music: all channels are silenced. Any thread.
  void Stop() { Terminate(); }

 private:
  int32_t Execute() override;
  void HappenInterrupt(int32_t) override {}
  bool IsTerminated() const override { return TThread::IsTerminated(); }

  TMmlPlayer& mPlayer;
  const bigtime_t mTail;
};

}  // namespace zoka
