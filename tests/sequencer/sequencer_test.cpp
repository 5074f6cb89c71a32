// The bridge to the system's sequencer on a kernel that has one. Run by `./dev sequencer` in an
// emulated machine; elsewhere it fails.
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <numeric>

#include "common/last_acts.h"
#include "sound/alsa_sequencer.h"
#include "tests/sequencer/instrument.h"

using namespace zoka;
using namespace zoka_test;

namespace {

constexpr int WAIT_MS = 5000;
constexpr int QUIET_MS = 500;
constexpr size_t SILENCE_EVENTS = 48;
constexpr char PIANO[] = "Piano: Keys";
const char* gProgram = nullptr;

/// Our side: a producer, and the roster that the system's ports come into.
struct TOurSide {
  explicit TOurSide(TClock& theClock) : clock(theClock) {
    roster.RegisterProducer(&producer);
    roster.StartWatching([this](const TMidiNotice& notice) {
      const std::lock_guard<std::mutex> guard(lock);
      notices.push_back(notice);
    });
    sequencer = std::make_unique<TAlsaSequencer>(clock, roster, producer);
  }
  ~TOurSide() {
    sequencer.reset();
    roster.UnregisterProducer(&producer);
  }
  int32_t IdOf(const std::string& name) {
    for (const auto& consumer : roster.Consumers()) {
      if (consumer->Name() == name) return consumer->ID();
    }
    return 0;
  }
  bool WasTold(TMidiOp op, int32_t id) {
    const std::lock_guard<std::mutex> guard(lock);
    return std::any_of(notices.begin(), notices.end(), [&](const TMidiNotice& notice) {
      return notice.op == op && notice.consumer == id;
    });
  }

  TClock& clock;
  std::mutex lock;
  std::vector<TMidiNotice> notices;
  TMidiRoster roster;
  TMidiLocalProducer producer{clock, midi_out_name()};
  std::unique_ptr<TAlsaSequencer> sequencer;
};

class Sequencer : public testing::Test {
 protected:
  void SetUp() override {
    ours = std::make_unique<TOurSide>(*clock);
    ASSERT_TRUE(ours->sequencer->IsOpen());
  }
  bool Until(const std::function<bool()>& condition) {
    TWake wake(*clock);
    const bigtime_t end = clock->system_time() + WAIT_MS * bigtime_t{1000};
    while (!condition() && clock->system_time() < end) clock->snooze(10000, wake);
    return condition();
  }
  /// A new instrument that the roster knows of; its number there.
  int32_t AddPiano() {
    piano = std::make_unique<TInstrument>(*clock);
    EXPECT_TRUE(piano->IsOpen());
    EXPECT_TRUE(Until([this] { return ours->IdOf(PIANO) != 0; }));
    return ours->IdOf(PIANO);
  }
  void ExpectSilence(const std::vector<TArrival>& arrivals) {
    ASSERT_EQ(arrivals.size(), SILENCE_EVENTS);
    for (size_t i = 0; i < SILENCE_EVENTS; ++i) {
      constexpr unsigned CONTROLS[] = {0x7B, 0x78, 0x79};
      EXPECT_EQ(arrivals[i].event.type, SND_SEQ_EVENT_CONTROLLER);
      EXPECT_EQ(arrivals[i].event.data.control.channel, i / 3);
      EXPECT_EQ(arrivals[i].event.data.control.param, CONTROLS[i % 3]);
    }
  }

  std::unique_ptr<TClock> clock = make_real_clock();
  std::unique_ptr<TInstrument> piano;
  std::unique_ptr<TOurSide> ours;
};

TEST_F(Sequencer, PortsThatWereThereAreFound) {
  EXPECT_NE(ours->IdOf("Midi Through: Midi Through Port-0"), 0);
  for (const auto& consumer : ours->roster.Consumers()) {
    EXPECT_EQ(consumer->Name().find("System"), std::string::npos) << consumer->Name();
  }
}

TEST_F(Sequencer, OthersSeeUsByOurName) {
  AddPiano();
  EXPECT_GE(piano->FindClient("Zoka-BASIC OUT"), 0);
}

TEST_F(Sequencer, APortThatComesIsAnnouncedAndOneThatGoesToo) {
  const int32_t id = AddPiano();
  EXPECT_TRUE(ours->WasTold(TMidiOp::Registered, id));
  ASSERT_TRUE(ours->roster.Connect(ours->producer, id));
  piano.reset();
  EXPECT_TRUE(Until([&] { return ours->WasTold(TMidiOp::Unregistered, id); }));
  EXPECT_EQ(ours->producer.CountConnections(), 0);
}

TEST_F(Sequencer, AConnectionIsOneThatOthersSee) {
  const int32_t id = AddPiano();
  ASSERT_TRUE(ours->roster.Connect(ours->producer, id));
  EXPECT_FALSE(piano->Next(QUIET_MS));
  EXPECT_EQ(piano->Subscribed(), 1);
  ASSERT_TRUE(ours->roster.Disconnect(ours->producer, id));
  ExpectSilence(piano->Take(SILENCE_EVENTS, WAIT_MS));
  EXPECT_FALSE(piano->Next(QUIET_MS));
  EXPECT_EQ(piano->Unsubscribed(), 1);
}

TEST_F(Sequencer, ConnectionsOfOthersAreFollowed) {
  const int32_t id = AddPiano();
  const int client = piano->FindClient("Zoka-BASIC OUT");
  ASSERT_TRUE(piano->ConnectFrom(client, 0));
  EXPECT_TRUE(Until([&] { return ours->producer.IsConnected(id); }));
  ours->producer.SprayNoteOn(3, 60, 64, 0);
  const auto arrival = piano->Next(WAIT_MS);
  ASSERT_TRUE(arrival);
  EXPECT_EQ(arrival->event.type, SND_SEQ_EVENT_NOTEON);
  EXPECT_EQ(arrival->event.data.note.channel, 3);
  EXPECT_EQ(arrival->event.data.note.note, 60);
  EXPECT_EQ(arrival->event.data.note.velocity, 64);
  ASSERT_TRUE(piano->DisconnectFrom(client, 0));
  EXPECT_TRUE(Until([&] { return !ours->producer.IsConnected(id); }));
}

TEST_F(Sequencer, EventsComeAtTheirStamps) {
  constexpr int NOTES = 40;
  constexpr bigtime_t SPAN = 20000;
  ASSERT_TRUE(ours->roster.Connect(ours->producer, AddPiano()));
  const bigtime_t start = clock->system_time() + 200000;
  // The later ones are sent first: it is the stamp that counts.
  for (int i = NOTES - 1; i >= 0; --i) {
    ours->producer.SprayNoteOn(1, static_cast<uint8_t>(40 + i), 64, start + i * SPAN);
  }
  const std::vector<TArrival> arrivals = piano->Take(NOTES, WAIT_MS);
  ASSERT_EQ(arrivals.size(), size_t{NOTES});
  std::vector<bigtime_t> late;
  for (int i = 0; i < NOTES; ++i) {
    const auto index = static_cast<size_t>(i);
    EXPECT_EQ(arrivals[index].event.data.note.note, 40 + i);
    late.push_back(arrivals[index].time - (start + i * SPAN));
  }
  const auto [least, most] = std::minmax_element(late.begin(), late.end());
  const bigtime_t mean = std::accumulate(late.begin(), late.end(), bigtime_t{0}) / NOTES;
  std::printf("late, in microseconds: mean %d, least %d, most %d\n", static_cast<int>(mean),
              static_cast<int>(*least), static_cast<int>(*most));
  // The queue's time and the clock's were read one after the other; an emulated machine is slow.
  EXPECT_GT(*least, -2000);
  EXPECT_LT(mean, 5000);
}

TEST_F(Sequencer, SystemExclusiveMessagesComeWhole) {
  ASSERT_TRUE(ours->roster.Connect(ours->producer, AddPiano()));
  ours->producer.SpraySystemExclusive("\x7E\x7F\x09\x01", 0);
  const auto arrival = piano->Next(WAIT_MS);
  ASSERT_TRUE(arrival);
  EXPECT_EQ(arrival->event.type, SND_SEQ_EVENT_SYSEX);
  EXPECT_EQ(arrival->event.data.ext.len, 6u);
}

TEST_F(Sequencer, ADisconnectionTakesBackWhatIsScheduledAndSilences) {
  const int32_t id = AddPiano();
  ASSERT_TRUE(ours->roster.Connect(ours->producer, id));
  ours->producer.SprayNoteOn(1, 60, 64, 0);
  ours->producer.SprayNoteOn(1, 72, 64, clock->system_time() + 300000);
  ASSERT_TRUE(piano->Next(WAIT_MS));
  ours->roster.Disconnect(ours->producer, id);
  ExpectSilence(piano->Take(SILENCE_EVENTS, WAIT_MS));
  EXPECT_FALSE(piano->Next(QUIET_MS));
}

TEST_F(Sequencer, TheEndSilences) {
  ASSERT_TRUE(ours->roster.Connect(ours->producer, AddPiano()));
  ours->producer.SprayNoteOn(1, 60, 64, 0);
  ASSERT_TRUE(piano->Next(WAIT_MS));
  ours.reset();
  ExpectSilence(piano->Take(SILENCE_EVENTS, WAIT_MS));
}

/// Runs this program once more, to play a note and die of `death`; the status of its end.
int PlayAndDie(const char* death) {
  pid_t child = 0;
  char* const arguments[] = {const_cast<char*>(gProgram), const_cast<char*>("--die"),
                             const_cast<char*>(death), nullptr};
  if (posix_spawn(&child, gProgram, nullptr, nullptr, arguments, environ) != 0) return -1;
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

TEST_F(Sequencer, ACrashSilences) {
  AddPiano();
  for (const int death : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL}) {
    const int status = PlayAndDie(std::to_string(death).c_str());
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == death) << death;
    const std::vector<TArrival> arrivals = piano->Take(1 + SILENCE_EVENTS, WAIT_MS);
    ASSERT_EQ(arrivals.size(), 1 + SILENCE_EVENTS) << death;
    EXPECT_EQ(arrivals[0].event.type, SND_SEQ_EVENT_NOTEON);
    ExpectSilence({arrivals.begin() + 1, arrivals.end()});
    // The note that was still to come goes with the queue.
    EXPECT_FALSE(piano->Next(QUIET_MS)) << death;
  }
}

/// The other program of ACrashSilences.
int play_and_die(int death) {
  do_in_crash({silence_alsa_in_crash});
  const std::unique_ptr<TClock> clock = make_real_clock();
  TOurSide ours(*clock);
  if (!ours.roster.Connect(ours.producer, ours.IdOf(PIANO))) return EXIT_FAILURE;
  ours.producer.SprayNoteOn(1, 60, 64, 0);
  ours.producer.SprayNoteOn(1, 72, 64, clock->system_time() + 300000);
  TWake wake(*clock);
  clock->snooze(100000, wake);
  ::raise(death);
  return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  gProgram = argv[0];
  if (argc == 3) return play_and_die(std::atoi(argv[2]));
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
