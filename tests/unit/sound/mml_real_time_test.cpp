// The player on the host's clock: two threads, no lost wake-up, no data race.
#include <gtest/gtest.h>

#include <memory>
#include <mutex>
#include <vector>

#include "sound/mml_player.h"
#include "tests/unit/sound/sound_fixture.h"

using namespace zoka;
using namespace zoka_test;

namespace {

class TLockedSink : public TMidiSink {
 public:
  void Receive(const TMidiEvent& event) override {
    const std::lock_guard<std::mutex> guard(mLock);
    mEvents.push_back(event);
  }
  std::vector<TMidiEvent> Events() {
    const std::lock_guard<std::mutex> guard(mLock);
    return mEvents;
  }

 private:
  std::mutex mLock;
  std::vector<TMidiEvent> mEvents;
};

class RealTime : public testing::Test {
 protected:
  RealTime() {
    producer.AddRecorder(&sink);
    player = std::make_unique<TMmlPlayer>(*clock, TSoundSettings{sVol, mDly});
    player->SetProducer(&producer);
    player->SetVMachine(&machine);
  }
  ~RealTime() override { player.reset(); }

  class TQuietMachine : public TPlayEventTarget {
   public:
    void HappenInterrupt(int32_t) override { ++raised; }
    bool IsTerminated() const override { return terminated; }
    std::atomic<int> raised{0};
    std::atomic<bool> terminated{false};
  };

  std::unique_ptr<TClock> clock = make_real_clock();
  std::atomic<int32_t> sVol{80};
  std::atomic<int64_t> mDly{50000};
  TWake wake{*clock};
  TQuietMachine machine;
  TMidiLocalProducer producer{*clock, midi_out_name()};
  TLockedSink sink;
  std::unique_ptr<TMmlPlayer> player;
  TPlayCaller Caller() { return {wake, machine}; }
};

TEST_F(RealTime, NoWakeUpIsLost) {
  constexpr int ROUNDS = 2000;
  for (int i = 0; i < ROUNDS; ++i) {
    player->ClearCompileLastTick();
    player->SetMml(1, "MBC5000", Caller());
    player->Resume();
  }
  player->Drain(Caller());
  EXPECT_EQ(sink.Events().size(), 2u * ROUNDS);
  EXPECT_GT(machine.raised, 0);
}

TEST_F(RealTime, StampsKeepTheirDistances) {
  mDly = 3000000;  // more than any wake-up is late, also on a busy machine
  player->ClearCompileLastTick();
  player->SetMml(1, "T255L64CDEFG", Caller());
  player->Resume();
  player->MfBlocking(Caller());
  const std::vector<TMidiEvent> events = sink.Events();
  ASSERT_EQ(events.size(), 10u);
  // 288 ticks of 51 microseconds from note to note, to the microsecond: a late wake-up is taken up
  // by the latency.
  for (size_t i = 2; i < events.size(); ++i) {
    EXPECT_EQ(events[i].time - events[i - 2].time, 288 * 51) << i;
  }
}

TEST_F(RealTime, AMachineThatIsAskedToEndDoesNotWait) {
  player->ClearCompileLastTick();
  player->SetMml(1, "T32C1^1^1^1", Caller());
  player->Resume();
  clock->StartTimer(1000, false, [this] {
    machine.terminated = true;
    wake.Signal();
  });
  const bigtime_t begin = clock->system_time();
  player->MfBlocking(Caller());
  EXPECT_LT(clock->system_time() - begin, 5000000);  // the music lasts 30 seconds
}

TEST_F(RealTime, ClearWhileItPlaysLeavesNoNoteOn) {
  for (int i = 0; i < 50; ++i) {
    player->ClearCompileLastTick();
    player->SetMml(1, "MBT255L64CDEFGABCDEFGAB", Caller());
    player->SetMml(2, "MBL64CDEFGABCDEFGAB", Caller());
    player->Resume();
    clock->Wait(clock->system_time() + 500, wake);
    player->Clear();
  }
  player.reset();
  int last[2][128] = {};
  for (const TMidiEvent& event : sink.Events()) {
    const int status = static_cast<unsigned char>(event.bytes[0]);
    const int kind = status & 0xF0;
    if (kind != 0x90 && kind != 0x80) continue;
    last[(status & 15) - 1][static_cast<unsigned char>(event.bytes[1])] = kind;
  }
  for (const auto& channel : last) {
    for (const int kind : channel) EXPECT_NE(kind, 0x90);
  }
}

}  // namespace
