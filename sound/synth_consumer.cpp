// Live sound of the built-in synthesiser.
#include "sound/synth_consumer.h"

#include <algorithm>

#include "sound/alsa_api.h"

namespace zoka {

namespace {

constexpr bigtime_t SECOND = 1000000;

// The samples follow the clock if they lag by more than this or hurry on by more than that; in
// between they keep their own even time. Devices take a buffer's worth ahead.
constexpr bigtime_t MAX_LAG = 10000;
constexpr bigtime_t MAX_LEAD = 200000;
// A device that takes samples without playing them is held back.
constexpr bigtime_t MAX_UNPLAYED = 100000;

constexpr bigtime_t PUMP_SPAN = SECOND / 50;

// What a device holds: enough that a busy machine does not interrupt the sound, and no more than is
// heard as late.
constexpr int DEVICE_FRAMES = 512;
constexpr int DEVICE_BLOCKS = 4;

constexpr int32_t OPENER_PRIORITY = 15;

constexpr const char* DRIVERS[] = {"pulseaudio", "alsa"};

}  // namespace

void TSynthQueue::Push(const TMidiEvent& event) {
  const TLock lock(mLock);
  mEvents.push({event, mSerial++});
}

bool TSynthQueue::PopBefore(bigtime_t end, TMidiEvent* event) {
  const TLock lock(mLock);
  if (mEvents.empty() || mEvents.top().event.time >= end) return false;
  *event = mEvents.top().event;
  mEvents.pop();
  return true;
}

void TSynthQueue::Clear() {
  const TLock lock(mLock);
  mEvents = {};
}

TSynthPlayer::TSynthPlayer(TClock& clock, TSynthQueue& queue, std::unique_ptr<TSynthesizer> synth)
    : mClock(clock), mQueue(queue), mThrottle(clock), mSynth(std::move(synth)) {}

void TSynthPlayer::FollowClock() {
  bigtime_t now = mClock.system_time();
  if (mBegun && mBlockTime > now + MAX_LEAD) {
    mClock.Wait(mBlockTime - MAX_UNPLAYED, mThrottle);
    now = mClock.system_time();
  }
  if (mBegun && mBlockTime >= now - MAX_LAG && mBlockTime <= now + MAX_LEAD) return;
  mBegun = true;
  mOrigin = now;
  mPlainFrames = 0;
  mBlockTime = now;
}

void TSynthPlayer::Render(float* left, float* right, size_t frames) {
  FollowClock();
  const bigtime_t begin = mBlockTime;
  mPlainFrames += static_cast<int64_t>(frames);
  mBlockTime = mOrigin + mPlainFrames * SECOND / SYNTH_RATE;
  size_t done = 0;
  TMidiEvent event;
  while (mQueue.PopBefore(mBlockTime, &event)) {
    const bigtime_t offset = std::max<bigtime_t>(event.time - begin, 0);
    const size_t until = std::min(frames, static_cast<size_t>(offset * SYNTH_RATE / SECOND));
    if (until > done) {
      mSynth->Render(left + done, right + done, until - done);
      done = until;
    }
    mSynth->Apply(event.bytes);
    mSilentFrames = 0;
  }
  mSilentFrames = mSynth->IsSounding() ? 0 : mSilentFrames + static_cast<int64_t>(frames);
  if (mSilentFrames > SYNTH_TAIL_FRAMES) {
    std::fill(left + done, left + frames, 0.0F);
    std::fill(right + done, right + frames, 0.0F);
  } else if (frames > done) {
    mSynth->Render(left + done, right + done, frames - done);
  }
}

// Opens the synthesiser while the events already wait.
class TSynthConsumer::TOpener final : public TThread {
 public:
  TOpener(TClock& clock, TSynthConsumer& consumer)
      : TThread("Synthesizer", OPENER_PRIORITY, clock, TActorClass::Timer), mConsumer(consumer) {}
  /// Here and not in the base, as the thread may still be on its way to Execute.
  ~TOpener() override { Wait(nullptr); }

 private:
  int32_t Execute() override {
    mConsumer.Open();
    return 0;
  }
  TSynthConsumer& mConsumer;
};

TSynthConsumer::TSynthConsumer(TClock& clock, TOpening opening)
    : TMidiConsumer(BUILT_IN_SYNTH_NAME), mClock(clock), mOpening(opening) {}

TSynthConsumer::~TSynthConsumer() {
  mOpener.reset();
  if (mPump) mClock.CancelTimer(mPump);
  if (mDriver) fluid_api()->delete_fluid_audio_driver(mDriver);
  if (mDriverSettings) fluid_api()->delete_fluid_settings(mDriverSettings);
}

void TSynthConsumer::Receive(const TMidiEvent& event) {
  if (mState == TState::Dead) return;
  mQueue.Push(event);
  TState closed = TState::Closed;
  if (!mState.compare_exchange_strong(closed, TState::Opening)) return;
  mOpener = std::make_unique<TOpener>(mClock, *this);
  mOpener->Resume();
}

void TSynthConsumer::Connected(int32_t) {
  if (mOpening == TOpening::Connected) Open();
}

// A note that begins after the silence that follows a disconnection would never end.
void TSynthConsumer::Disconnected(int32_t) {
  mQueue.Clear();
}

bool TSynthConsumer::Open() {
  const std::lock_guard<std::mutex> guard(mOpenLock);
  if (mState == TState::Playing || mState == TState::Dead) return HasDevice();
  mState = OpenAll();
  if (mState == TState::Dead) mQueue.Clear();
  return HasDevice();
}

TSynthConsumer::TState TSynthConsumer::OpenAll() {
  std::unique_ptr<TSynthesizer> synth = TSynthesizer::Create();
  if (!synth) return TState::Dead;
  alsa_api();  // loaded for its silence: the synthesiser's library uses it, too
  mPlayer = std::make_unique<TSynthPlayer>(mClock, mQueue, std::move(synth));
  for (const char* driver : DRIVERS) {
    if (OpenDriver(driver)) break;
  }
  mHasDevice = mDriver != nullptr;
  if (mDriver) return TState::Playing;
  if (mOpening == TOpening::FirstEvent) return TState::Dead;
  mPump = mClock.StartTimer(PUMP_SPAN, true, [this] { Pump(); });
  return TState::Playing;
}

bool TSynthConsumer::OpenDriver(const char* name) {
  const TFluidApi& api = *fluid_api();
  mDriverSettings = api.new_fluid_settings();
  if (!mDriverSettings) return false;
  api.fluid_settings_setstr(mDriverSettings, "audio.driver", name);
  api.fluid_settings_setnum(mDriverSettings, "synth.sample-rate", SYNTH_RATE);
  api.fluid_settings_setint(mDriverSettings, "audio.period-size", DEVICE_FRAMES);
  api.fluid_settings_setint(mDriverSettings, "audio.periods", DEVICE_BLOCKS);
  mDriver = api.new_fluid_audio_driver2(mDriverSettings, Callback, this);
  if (mDriver) return true;
  api.delete_fluid_settings(mDriverSettings);
  mDriverSettings = nullptr;
  return false;
}

int TSynthConsumer::Callback(void* self, int frames, int, float*[], int sides, float* side[]) {
  if (sides < 2 || frames <= 0) return 0;
  auto* consumer = static_cast<TSynthConsumer*>(self);
  if (consumer->mBlocks < RUNNING_BLOCKS) ++consumer->mBlocks;
  consumer->mPlayer->Render(side[0], side[1], static_cast<size_t>(frames));
  return 0;
}

void TSynthConsumer::Pump() {
  mPlayer->Render(mPumpLeft.data(), mPumpRight.data(), mPumpLeft.size());
}

}  // namespace zoka
