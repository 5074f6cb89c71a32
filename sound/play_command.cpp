// `zoka play`.
#include "sound/play_command.h"

#include <algorithm>

#include "sound/music_end.h"

namespace zoka {

namespace {

constexpr char THREAD_NAME[] = "Play";
constexpr int32_t THREAD_PRIORITY = 15;

}  // namespace

TPlayCommand::TPlayCommand(TClock& clock, const TSoundSettings& settings,
                           const std::vector<std::string>& mml, const TPlayOutputOptions& options)
    : TThread(THREAD_NAME, THREAD_PRIORITY, clock, TActorClass::Machine),
      mMml(mml.begin(),
           mml.begin() + static_cast<std::ptrdiff_t>(std::min(mml.size(), MAX_PLAY_STRINGS))),
      mProducer(clock, midi_out_name()),
      mOutputs(clock, mProducer, options),
      mPlayer(clock, settings) {
  mPlayer.SetProducer(&mProducer);
}

TPlayResult TPlayCommand::Run() {
  mOutputs.OpenDevice();
  Resume();
  Wait(nullptr);
  mResult.unwritten = mOutputs.Finish();
  return mResult;
}

int32_t TPlayCommand::Execute() {
  const TPlayCaller caller{mWake, *this};
  mPlayer.ClearCompileLastTick();
  try {
    for (size_t ch = mMml.size(); ch > 0; --ch) {
      mPlayer.SetMml(static_cast<int16_t>(ch), mMml[ch - 1], caller);
    }
  } catch (const TMmlError& error) {
    mResult.fault.emplace();
    mResult.fault->key = error.key;
  }
  mPlayer.Resume();
  wait_for_music(mPlayer, mOutputs.Tail(), caller);
  return 0;
}

}  // namespace zoka
