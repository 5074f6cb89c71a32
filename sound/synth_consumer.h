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
#include "common/thread.h"
#include "sound/midi.h"
#include "sound/synthesizer.h"

namespace zoka {

/// The name of the built-in synthesiser among the MIDI outputs. It is stored in the preferences and
/// so is the same in every language; what is shown for it is looked up.
constexpr char BUILT_IN_SYNTH_NAME[] = "Built-in Synthesizer";

/// Events that wait for their time, by time and then by arrival. Any thread.
class TSynthQueue {
 public:
  void Push(const TMidiEvent& event);
  /// Takes the first event before `end`; false if there is none.
  bool PopBefore(bigtime_t end, TMidiEvent* event);
  void Clear();

 private:
  struct TQueued {
    TMidiEvent event;
    uint64_t serial = 0;
    bool operator>(const TQueued& other) const {
      return event.time != other.event.time ? event.time > other.event.time : serial > other.serial;
    }
  };

  TMutex mLock{TLockRank::Leaf};
  uint64_t mSerial = 0;
  std::priority_queue<TQueued, std::vector<TQueued>, std::greater<>> mEvents;
};

/// Renders a queue's events by sample time: each one falls on the sample of its time. One thread at
/// a time. The queue must outlive it.
class TSynthPlayer {
 public:
  TSynthPlayer(TClock& clock, TSynthQueue& queue, std::unique_ptr<TSynthesizer> synth);

  /// Makes the next samples; the device's thread calls it. Blocks for a while if the device takes
  /// samples much faster than they sound.
  void Render(float* left, float* right, size_t frames);

 private:
  void FollowClock();

  TClock& mClock;
  TSynthQueue& mQueue;
  TWake mThrottle;
  std::unique_ptr<TSynthesizer> mSynth;
  bool mBegun = false;
  bigtime_t mBlockTime = 0;  // the clock's time of the next sample
  bigtime_t mOrigin = 0;     // the clock's time of the first of mPlainFrames
  int64_t mPlainFrames = 0;
  int64_t mSilentFrames = 0;
};

/// The instrument.
class TSynthConsumer final : public TMidiConsumer {
 public:
  /// When library, soundfont and device are taken.
  enum class TOpening : uint8_t {
    /// By the first connection, which takes a while. Without a device it keeps time in silence.
    Connected,
    /// By the first event, on a thread of its own: the first notes may come late, but a program
    /// without music pays nothing. Without a device nothing is rendered at all.
    FirstEvent
  };

  explicit TSynthConsumer(TClock& clock, TOpening opening = TOpening::Connected);
  ~TSynthConsumer() override;

  void Receive(const TMidiEvent& event) override;
  void Connected(int32_t producerId) override;
  void Disconnected(int32_t producerId) override;

  /// Opens library, soundfont and device, if that has not been tried yet; true if there is a
  /// device.
  bool Open();
  bool HasDevice() const { return mHasDevice; }
  /// True once the device takes samples steadily; some take a second or two to get going.
  bool IsRunning() const { return mBlocks >= RUNNING_BLOCKS; }

 private:
  static constexpr int RUNNING_BLOCKS = 4;

  class TOpener;
  enum class TState : uint8_t { Closed, Opening, Playing, Dead };

  static int Callback(void* self, int frames, int effects, float* effect[], int sides,
                      float* side[]);
  TState OpenAll();
  bool OpenDriver(const char* name);
  void Pump();

  TClock& mClock;
  const TOpening mOpening;
  TSynthQueue mQueue;
  std::mutex mOpenLock;  // held while libraries are loaded, far longer than our own locks
  std::atomic<TState> mState{TState::Closed};
  std::atomic<bool> mHasDevice{false};
  std::atomic<int> mBlocks{0};  // taken by the device, up to RUNNING_BLOCKS
  std::unique_ptr<TSynthPlayer> mPlayer;
  fluid_settings_t* mDriverSettings = nullptr;
  fluid_audio_driver_t* mDriver = nullptr;
  TTimerId mPump = 0;
  std::array<float, SYNTH_RATE / 50> mPumpLeft;
  std::array<float, SYNTH_RATE / 50> mPumpRight;
  std::unique_ptr<TOpener> mOpener;
};

}  // namespace zoka
