// TRunMusic: the player of a run view, its output, and what the player is told of the present run.
#pragma once

#include <atomic>
#include <memory>

#include "common/context.h"
#include "sound/midi.h"
#include "sound/mml_player.h"
#include "vm/interrupt_port.h"

namespace zoka {

/// Lives as long as the view: music goes on behind the end of its program. The host's thread.
class TRunMusic {
 public:
  explicit TRunMusic(TEngineContext& context);
  ~TRunMusic();
  TRunMusic(const TRunMusic&) = delete;
  TRunMusic& operator=(const TRunMusic&) = delete;

  /// The run whose machine hears of notes that are played, null for none. When it returns, the
  /// former one is not told any more.
  void SetRun(std::shared_ptr<TInterruptPort> port);
  /// Waits until all music has sounded and then for `tail` microseconds; once `isStopped` is true
  /// silences it instead.
  void Drain(bigtime_t tail, const std::atomic<bool>& isStopped);

  TMmlPlayer& Player() { return mPlayer; }
  TMidiLocalProducer& Producer() { return mProducer; }

 private:
  class TDrainThread;
  class TPlayTarget;

  TClock& mClock;
  TMidiLocalProducer mProducer;
  TMmlPlayer mPlayer;
  std::unique_ptr<TPlayTarget> mTarget;
};

}  // namespace zoka
