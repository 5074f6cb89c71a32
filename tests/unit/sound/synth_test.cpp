// The live synthesiser by sample time, without a device: events fall on their samples, whatever the
// size of the blocks.
#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "sound/alsa_sequencer.h"
#include "sound/synth_consumer.h"
#include "tests/unit/sound/sound_fixture.h"

using namespace zoka;
using namespace zoka_test;

namespace {

constexpr size_t TENTH = SYNTH_RATE / 10;  // samples in 100,000 microseconds
// The library takes events at the begin of a block of its own.
constexpr size_t GRAIN = 64;

class SynthPlayer : public testing::Test {
 protected:
  void SetUp() override {
    std::unique_ptr<TSynthesizer> synth = TSynthesizer::Create();
    if (!synth) GTEST_SKIP() << "no synthesiser on this machine";
    player = std::make_unique<TSynthPlayer>(*clock, queue, std::move(synth));
    clock->EnterThread(clock->PrepareThread(TActorClass::Machine));
    entered = true;
  }
  void TearDown() override {
    if (entered) clock->LeaveThread();
  }
  /// Renders that many samples of both sides in blocks and returns them summed.
  std::vector<float> Render(size_t frames, size_t block) {
    std::vector<float> left(frames);
    std::vector<float> right(frames);
    for (size_t at = 0; at < frames; at += block) {
      player->Render(left.data() + at, right.data() + at, std::min(block, frames - at));
    }
    for (size_t i = 0; i < frames; ++i) left[i] += right[i];
    return left;
  }
  /// Index of the first sample that is heard, or the count of samples.
  static size_t Onset(const std::vector<float>& samples) {
    const auto it = std::find_if(samples.begin(), samples.end(),
                                 [](float sample) { return std::abs(sample) > 1e-4F; });
    return static_cast<size_t>(it - samples.begin());
  }
  void NoteAt(bigtime_t time) { queue.Push({time, "\x90\x48\x7F"}); }

  std::unique_ptr<TClock> clock = make_simulated_clock();
  TWake wake{*clock};
  TSynthQueue queue;
  std::unique_ptr<TSynthPlayer> player;
  bool entered = false;
};

TEST_F(SynthPlayer, AnEventFallsOnItsSample) {
  queue.Push({0, "\xC0\x50"});
  NoteAt(100000);
  const size_t onset = Onset(Render(2 * TENTH, 512));
  EXPECT_GE(onset, TENTH);
  EXPECT_LE(onset, TENTH + 5 * GRAIN);
}

TEST_F(SynthPlayer, TheSizeOfBlocksDoesNotMatter) {
  std::vector<size_t> onsets;
  for (const size_t block : {size_t{64}, size_t{100}, size_t{1000}, size_t{8000}}) {
    player = std::make_unique<TSynthPlayer>(*clock, queue, TSynthesizer::Create());
    queue.Push({0, "\xC0\x50"});
    NoteAt(clock->system_time() + 100000);
    onsets.push_back(Onset(Render(2 * TENTH, block)));
  }
  const auto ends = std::minmax_element(onsets.begin(), onsets.end());
  EXPECT_LE(*ends.second - *ends.first, 2 * GRAIN);
}

TEST_F(SynthPlayer, LateEventsSoundAtOnce) {
  clock->Wait(500000, wake);
  queue.Push({0, "\xC0\x50"});
  NoteAt(1000);
  EXPECT_LE(Onset(Render(TENTH, 512)), 5 * GRAIN);
}

TEST_F(SynthPlayer, SamplesFollowTheClockAfterAPause) {
  queue.Push({0, "\xC0\x50"});
  EXPECT_EQ(Onset(Render(TENTH, 512)), TENTH);
  clock->Wait(5000000, wake);
  NoteAt(5050000);
  const size_t onset = Onset(Render(TENTH, 512));
  EXPECT_GE(onset, TENTH / 2);
  EXPECT_LE(onset, TENTH / 2 + 5 * GRAIN);
}

TEST_F(SynthPlayer, ADeviceThatDoesNotPlayIsHeldBack) {
  Render(20 * TENTH, 1024);
  // Two seconds of samples: at most 200,000 microseconds and a block ahead of the clock.
  EXPECT_GE(clock->system_time(), 2000000 - 200000 - 30000);
  EXPECT_LE(clock->system_time(), 2000000);
}

TEST_F(SynthPlayer, ADisconnectionForgetsWhatHasNotSounded) {
  NoteAt(10000);
  queue.Clear();
  EXPECT_EQ(Onset(Render(2 * TENTH, 512)), 2 * TENTH);
}

TEST_F(SynthPlayer, EventsOfOneTimeKeepTheirOrder) {
  // On and off: nothing stays; off and on: the note sounds.
  NoteAt(0);
  queue.Push({0, "\x80\x48\x7F"});
  queue.Push({0, std::string("\xB0\x78\0", 3)});
  queue.Push({200000, std::string("\xB0\x78\0", 3)});
  NoteAt(200000);
  const std::vector<float> samples = Render(4 * TENTH, 512);
  EXPECT_EQ(Onset({samples.begin(), samples.begin() + 2 * TENTH}), 2 * TENTH);
  EXPECT_LE(Onset({samples.begin() + 2 * TENTH, samples.end()}), 5 * GRAIN);
}

TEST(SynthConsumer, OpensAndPlaysWithoutANoise) {
  const auto clock = make_simulated_clock();
  clock->EnterThread(clock->PrepareThread(TActorClass::Machine));
  testing::internal::CaptureStderr();
  testing::internal::CaptureStdout();
  {
    TWake wake(*clock);
    TMidiRoster roster;
    TMidiLocalProducer producer(*clock, midi_out_name());
    const auto synth = std::make_shared<TSynthConsumer>(*clock);
    const int32_t id = roster.Register(synth);
    EXPECT_TRUE(roster.Connect(producer, id));
    producer.SprayNoteOn(1, 60, 64, 50000);
    producer.SprayNoteOff(1, 60, 64, 90000);
    clock->Wait(200000, wake);
    EXPECT_TRUE(roster.Disconnect(producer, id));
    roster.Unregister(id);
  }
  clock->LeaveThread();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(SynthConsumer, MayOpenAtTheFirstEvent) {
  const auto clock = make_real_clock();
  testing::internal::CaptureStderr();
  {
    TMidiRoster roster;
    TMidiLocalProducer producer(*clock, midi_out_name());
    const auto synth =
        std::make_shared<TSynthConsumer>(*clock, TSynthConsumer::TOpening::FirstEvent);
    const int32_t id = roster.Register(synth);
    EXPECT_TRUE(roster.Connect(producer, id));
    EXPECT_FALSE(synth->HasDevice());
    producer.SprayNoteOn(1, 60, 64, 0);
    producer.SprayNoteOff(1, 60, 64, 0);
    const bool opened = synth->Open();  // waits for the thread that opens it
    EXPECT_EQ(synth->HasDevice(), opened);
    EXPECT_TRUE(roster.Disconnect(producer, id));
    roster.Unregister(id);
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(SynthConsumer, IsNamedForThePreferences) {
  const auto clock = make_simulated_clock();
  EXPECT_EQ(TSynthConsumer(*clock).Name(), "Built-in Synthesizer");
}

TEST(AlsaLibrary, SaysNothingWithoutADevice) {
  const auto clock = make_simulated_clock();
  testing::internal::CaptureStderr();
  TMidiRoster roster;
  TMidiLocalProducer producer(*clock, midi_out_name());
  TAlsaSequencer sequencer(*clock, roster, producer);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
