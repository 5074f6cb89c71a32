// What the tests of the player share: a simulated clock whose machine is the test itself, a player
// and a sink that keeps all events.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "common/clock.h"
#include "sound/midi.h"
#include "sound/mml_player.h"

namespace zoka_test {

/// An event as the tests write it down.
struct TSeen {
  int64_t time = 0;
  std::vector<int> bytes;
  bool operator==(const TSeen&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const TSeen& seen) {
  out << "{" << seen.time << ", {";
  for (int byte : seen.bytes) out << " " << byte;
  return out << " }}";
}

using TSeenList = std::vector<TSeen>;

inline TSeen note_on(int64_t time, int ch, int note, int velocity) {
  return {time, {0x90 + ch, note, velocity}};
}
inline TSeen note_off(int64_t time, int ch, int note, int velocity) {
  return {time, {0x80 + ch, note, velocity}};
}
inline TSeen program(int64_t time, int ch, int number) {
  return {time, {0xC0 + ch, number}};
}
inline TSeen control(int64_t time, int ch, int number) {
  return {time, {0xB0 + ch, number, 0}};
}

/// Keeps events in the order of sending.
class TSeenSink : public zoka::TMidiSink {
 public:
  void Receive(const zoka::TMidiEvent& event) override {
    TSeen seen{event.time, {}};
    for (char c : event.bytes) seen.bytes.push_back(static_cast<unsigned char>(c));
    events.push_back(seen);
  }
  TSeenList events;
};

/// A machine that writes down when the trap of ON PLAY was raised.
class TFakeMachine : public zoka::TPlayEventTarget {
 public:
  explicit TFakeMachine(zoka::TClock& clock) : mClock(clock) {}
  void HappenInterrupt(int32_t mask) override {
    masks.push_back(mask);
    times.push_back(mClock.system_time());
  }
  bool IsTerminated() const override { return terminated; }

  std::vector<int32_t> masks;
  std::vector<int64_t> times;
  std::atomic<bool> terminated{false};

 private:
  zoka::TClock& mClock;
};

/// The test's own thread is the machine of the simulated clock: the player runs while the test
/// waits, and only then.
class TSoundTest : public testing::Test {
 protected:
  static constexpr int64_t LATENCY = 50000;
  static constexpr int64_t TICK = 108;  // microseconds at tempo 120

  TSoundTest() {
    clock->EnterThread(clock->PrepareThread(zoka::TActorClass::Machine));
    producer.AddRecorder(&sink);
    player = std::make_unique<zoka::TMmlPlayer>(*clock, zoka::TSoundSettings{sVol, mDly});
    player->SetProducer(&producer);
  }
  ~TSoundTest() override {
    clock->LeaveThread();
    player.reset();
  }

  zoka::TPlayCaller Caller() { return {wake, machine}; }

  /// PLAY: the strings for channel 1 and up.
  void Play(const std::vector<std::string>& mml) {
    player->ClearCompileLastTick();
    for (size_t ch = mml.size(); ch > 0; --ch) {
      player->SetMml(static_cast<int16_t>(ch), mml[ch - 1], Caller());
    }
    player->Resume();
    player->MfBlocking(Caller());
  }
  /// PLAY of one string on one channel.
  void PlayOn(int16_t ch, const std::string& mml) {
    std::vector<std::string> all(static_cast<size_t>(ch));
    all.back() = mml;
    Play(all);
  }
  void Beep(const char* text) {
    player->ClearCompileLastTick();
    player->SetMml(0, text, Caller());
    player->Resume();
    if (std::string(text) == zoka::BEEP_SHORT) player->MfBlocking(Caller());
  }
  void SleepUntil(int64_t time) {
    while (clock->Wait(time, wake)) {
    }
  }
  /// Lets the music play to its end and returns all that was sent since the last call.
  TSeenList Rest() {
    player->Drain(Caller());
    TSeenList events;
    events.swap(sink.events);
    return events;
  }
  /// True if the text is refused with the one key of this language.
  bool IsBad(const std::string& mml, int16_t ch = 1) {
    try {
      player->SetMml(ch, mml, Caller());
    } catch (const zoka::TMmlError& error) {
      EXPECT_STREQ(error.key, "@Runtime_Err_Bad_MML@");
      return true;
    }
    return false;
  }
  /// The stamp of a tick of music that began at time 0 with tempo 120.
  static int64_t At(int64_t tick) { return LATENCY + tick * TICK; }

  std::unique_ptr<zoka::TClock> clock = zoka::make_simulated_clock();
  std::atomic<int32_t> sVol{80};
  std::atomic<int64_t> mDly{LATENCY};
  zoka::TWake wake{*clock};
  TFakeMachine machine{*clock};
  zoka::TMidiLocalProducer producer{*clock, "Zoka-BASIC OUT"};
  TSeenSink sink;
  std::unique_ptr<zoka::TMmlPlayer> player;
};

}  // namespace zoka_test
