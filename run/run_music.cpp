// Between the player and runs.
#include "run/run_music.h"

#include <utility>

#include "app/settings/prefs.h"
#include "common/thread.h"
#include "sound/music_end.h"
#include "vm/engine_priority.h"

namespace zoka {

/// The machine as the player sees it: events, and whether the run is to end.
class TRunMusic::TPlayTarget final : public TPlayEventTarget {
 public:
  explicit TPlayTarget(std::shared_ptr<TInterruptPort> port) : mPort(std::move(port)) {}
  void HappenInterrupt(int32_t mask) override {
    mPort->HappenInterrupt(static_cast<uint32_t>(mask));
  }
  bool IsTerminated() const override { return mPort->mStopped.load(); }

 private:
  std::shared_ptr<TInterruptPort> mPort;
};

/// Waits for the music as an engine's thread does, on either kind of clock.
class TRunMusic::TDrainThread final : public TThread, private TPlayEventTarget {
 public:
  TDrainThread(TRunMusic& music, bigtime_t tail, const std::atomic<bool>& isStopped)
      : TThread("Drain", MACHINE_PRIORITY, music.mClock, TActorClass::Machine),
        mMusic(music),
        mTail(tail),
        mIsStopped(isStopped) {}

 protected:
  int32_t Execute() override {
    wait_for_music(mMusic.mPlayer, mTail, TPlayCaller{mWake, *this});
    return 0;
  }

 private:
  void HappenInterrupt(int32_t) override {}
  bool IsTerminated() const override { return mIsStopped.load(); }

  TRunMusic& mMusic;
  const bigtime_t mTail;
  const std::atomic<bool>& mIsStopped;
};

TRunMusic::TRunMusic(TEngineContext& context)
    : mClock(*context.clock),
      mProducer(mClock, midi_out_name()),
      mPlayer(mClock, TSoundSettings{context.prefs->SVol, context.prefs->MDly}) {
  mPlayer.SetProducer(&mProducer);
}

TRunMusic::~TRunMusic() {
  SetRun(nullptr);
}

void TRunMusic::SetRun(std::shared_ptr<TInterruptPort> port) {
  auto target = port ? std::make_unique<TPlayTarget>(std::move(port)) : nullptr;
  mPlayer.SetVMachine(target.get());
  mTarget = std::move(target);
}

void TRunMusic::Drain(bigtime_t tail, const std::atomic<bool>& isStopped) {
  TDrainThread thread(*this, tail, isStopped);
  thread.Resume();
  thread.Wait(nullptr);
}

}  // namespace zoka
