// The built-in synthesiser as an instrument of the roster: it sounds events at their times through
// the system's sound output. Without a sound device it keeps time in silence.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <queue>
#include <string>
#include <vector>

#include "common/clock.h"
#include "common/mutex.h"
#include "sound/midi.h"
#include "sound/synthesizer.h"

namespace zoka {

/// The name of the built-in synthesiser among the MIDI outputs. It is stored in the preferences and
/// so is the same in every language.
constexpr char BUILT_IN_SYNTH_NAME[] = "Built-in Synthesizer";

/// Renders events by sample time: each one falls on the sample of its time. Fed by one thread,
/// rendered by another.
class TSynthPlayer {
 public:
  TSynthPlayer(TClock& clock, std::unique_ptr<TSynthesizer> synth);
  ~TSynthPlayer();

  void Queue(const TMidiEvent& event);
  /// Forgets what has not sounded yet.
  void ClearQueue();

  /// Makes the next samples; the device's thread calls it. Blocks for a while if the device takes
  /// samples much faster than they sound.
  void Render(float* left, float* right, size_t frames);

 private:
  struct TQueued {
    TMidiEvent event;
    uint64_t serial = 0;
    bool operator>(const TQueued& other) const {
      return event.time != other.event.time ? event.time > other.event.time : serial > other.serial;
    }
  };

  void FollowClock();
  bool PopBefore(bigtime_t end, TMidiEvent* event);

  TClock& mClock;
  TWake mThrottle;
  std::unique_ptr<TSynthesizer> mSynth;
  bool mBegun = false;
  bigtime_t mBlockTime = 0;  // the clock's time of the next sample
  int64_t mPlainFrames = 0;  // frames since mOrigin
  bigtime_t mOrigin = 0;
  int64_t mSilentFrames = 0;
  TMutex mLock{TLockRank::Leaf};
  uint64_t mSerial = 0;
  std::priority_queue<TQueued, std::vector<TQueued>, std::greater<>> mQueue;
};

/// The instrument. Library, soundfont and device are taken when it is first connected.
class TSynthConsumer final : public TMidiConsumer {
 public:
  explicit TSynthConsumer(TClock& clock);
  ~TSynthConsumer() override;

  void Receive(const TMidiEvent& event) override;
  void Connected(int32_t producerId) override;
  void Disconnected(int32_t producerId) override;

  /// Opens library, soundfont and device, if that has not been tried yet; true if there is a
  /// device.
  bool Open();
  bool HasDevice() const { return mDriver != nullptr; }

 private:
  static int Callback(void* self, int frames, int effects, float* effect[], int sides,
                      float* side[]);
  bool OpenDriver(const char* name);
  void Pump();

  TClock& mClock;
  std::mutex mOpening;
  bool mTried = false;
  std::unique_ptr<TSynthPlayer> mPlayer;
  std::atomic<TSynthPlayer*> mReady{nullptr};
  fluid_settings_t* mDriverSettings = nullptr;
  fluid_audio_driver_t* mDriver = nullptr;
  TTimerId mPump = 0;
  std::array<float, SYNTH_RATE / 50> mPumpLeft;
  std::array<float, SYNTH_RATE / 50> mPumpRight;
};

}  // namespace zoka
