// The playing half on the simulated clock: exact stamps, waits, tempo, the beep, ON PLAY, silence.
#include <algorithm>
#include <tuple>

#include "sound/mml_tables.h"
#include "tests/unit/sound/sound_fixture.h"

using namespace zoka;
using namespace zoka_test;

namespace {

using Player = TSoundTest;

// Ticks of tempo 240 and 60: 60,000,000 / (240 * 4608) and / (60 * 4608), cut.
constexpr int64_t TICK_240 = 54;
constexpr int64_t TICK_60 = 217;

TEST_F(Player, PlaysASingleNote) {
  Play({"C"});
  // 0.050 s and 0.485456 s; no program change is sent.
  EXPECT_EQ(Rest(), (TSeenList{note_on(50000, 1, 72, 64), note_off(485456, 1, 72, 64)}));
}

TEST_F(Player, PlayWaitsOnItsGridForTheEndOfTheMusic) {
  Play({"C"});
  // The note ends at 497,664.
  EXPECT_EQ(clock->system_time(), 500000);
}

TEST_F(Player, PlayOfNothingReturnsAtOnce) {
  Play({"O5", "", " "});
  EXPECT_EQ(clock->system_time(), 0);
}

TEST_F(Player, BackgroundMusicReturnsAtOnce) {
  Play({"MBCDE"});
  EXPECT_EQ(clock->system_time(), 0);
  EXPECT_EQ(Rest().size(), 6u);
}

TEST_F(Player, BackgroundIsASettingOfTheChannel) {
  Play({"MBL1C", "L8C"});
  // Waits for channel 2 alone: 2,304 ticks, 248,832 microseconds.
  EXPECT_EQ(clock->system_time(), 260000);
}

TEST_F(Player, ForegroundAgainAfterMf) {
  Play({"MBC"});
  Play({"MFC"});
  // Both notes: 9,216 ticks, 995,328 microseconds.
  EXPECT_EQ(clock->system_time(), 1000000);
}

TEST_F(Player, BackgroundMusicFollowsWithoutAGap) {
  Play({"MBC"});
  Play({"D"});
  EXPECT_EQ(Rest(), (TSeenList{note_on(At(0), 1, 72, 64), note_off(At(4032), 1, 72, 64),
                               note_on(At(4608), 1, 74, 64), note_off(At(8640), 1, 74, 64)}));
}

TEST_F(Player, ForegroundMusicFollowsWhenTheWaitIsOver) {
  Play({"C"});
  Play({"D"});
  EXPECT_EQ(Rest(), (TSeenList{note_on(50000, 1, 72, 64), note_off(485456, 1, 72, 64),
                               note_on(550000, 1, 74, 64), note_off(985456, 1, 74, 64)}));
}

TEST_F(Player, AfterASilenceTheNextNoteStartsAtOnce) {
  Play({"C"});
  SleepUntil(7654321);
  Rest();
  Play({"D"});
  EXPECT_EQ(Rest(), (TSeenList{note_on(7704321, 1, 74, 64), note_off(8139777, 1, 74, 64)}));
}

TEST_F(Player, AllChannelsPlayTogether) {
  Play({"C", "D", "E", "F", "G", "A"});
  EXPECT_EQ(Rest(), (TSeenList{note_on(At(0), 1, 72, 64), note_on(At(0), 2, 74, 64),
                               note_on(At(0), 3, 76, 64), note_on(At(0), 4, 77, 51),
                               note_on(At(0), 5, 79, 51), note_on(At(0), 6, 81, 51),
                               note_off(At(4032), 1, 72, 64), note_off(At(4032), 2, 74, 64),
                               note_off(At(4032), 3, 76, 64), note_off(At(4032), 4, 77, 51),
                               note_off(At(4032), 5, 79, 51), note_off(At(4032), 6, 81, 51)}));
}

// A corpus on all seven channels, its expectation from a model of its own: a list of lengths.
TEST_F(Player, SevenChannelsKeepTheirOwnTimes) {
  const int lengths[6] = {4, 8, 16, 3, 5, 64};
  std::vector<std::string> mml;
  TSeenList expected;
  for (int ch = 1; ch <= 6; ++ch) {
    const int length = lengths[ch - 1];
    std::string text = "MBL" + std::to_string(length);
    const int64_t ticks = 4608 / length * 4;
    int64_t tick = 0;
    for (int n = 0; n < 9; ++n) {
      text += std::string("O") + std::to_string(n % 8 + 1) + "C";
      const int note = 12 * (n % 8 + 1) + 24;
      const int velocity = ch < 4 ? 64 : 51;
      expected.push_back(note_on(At(tick), ch, note, velocity));
      expected.push_back(note_off(At(tick + ticks * 7 / 8), ch, note, velocity));
      tick += ticks * 7 / 8 + ticks / 8;
    }
    mml.push_back(text);
  }
  player->ClearCompileLastTick();
  player->SetMml(0, BEEP_SHORT, Caller());
  expected.push_back(program(At(-1), 0, 81));
  expected.push_back(note_on(At(1), 0, 81, 127));
  expected.push_back(control(At(4630) - LATENCY, 0, 0x7B));
  expected.push_back(note_off(At(4630), 0, 81, 127));
  Play(mml);

  TSeenList events = Rest();
  const auto less = [](const TSeen& a, const TSeen& b) {
    return std::tie(a.time, a.bytes) < std::tie(b.time, b.bytes);
  };
  std::sort(events.begin(), events.end(), less);
  std::sort(expected.begin(), expected.end(), less);
  EXPECT_EQ(events, expected);
}

TEST_F(Player, ATempoChangesWhereItStands) {
  Play({"CT240D"});
  const int64_t change = 4608 * TICK;
  EXPECT_EQ(Rest(), (TSeenList{note_on(At(0), 1, 72, 64), note_off(At(4032), 1, 72, 64),
                               note_on(LATENCY + change, 1, 74, 64),
                               note_off(LATENCY + change + 4032 * TICK_240, 1, 74, 64)}));
}

TEST_F(Player, ATempoIsForAllChannels) {
  Play({"T60C", "", "C"});
  EXPECT_EQ(Rest(), (TSeenList{note_on(LATENCY, 1, 72, 64), note_on(LATENCY, 3, 72, 64),
                               note_off(LATENCY + 4032 * TICK_60, 1, 72, 64),
                               note_off(LATENCY + 4032 * TICK_60, 3, 72, 64)}));
}

TEST_F(Player, ATempoStaysForTheNextPlay) {
  Play({"T240"});
  const int64_t begin = clock->system_time();
  Play({"C"});
  EXPECT_EQ(Rest(), (TSeenList{note_on(begin + LATENCY, 1, 72, 64),
                               note_off(begin + LATENCY + 4032 * TICK_240, 1, 72, 64)}));
}

TEST_F(Player, EveryTempoIsCutToWholeMicroseconds) {
  for (int tempo = 32; tempo <= 255; ++tempo) {
    Play({"T" + std::to_string(tempo)});
    const int64_t begin = clock->system_time();
    Play({"Q8C"});
    const int64_t tick = 60000000 / (tempo * 4608);
    EXPECT_EQ(Rest(), (TSeenList{note_on(begin + LATENCY, 1, 72, 64),
                                 note_off(begin + LATENCY + 4608 * tick, 1, 72, 64)}))
        << tempo;
  }
}

TEST_F(Player, TheLatencyIsReadForEachEventAndBounded) {
  mDly = 0;
  PlayOn(1, "C");
  mDly = 1000000;
  PlayOn(1, "C");
  const int64_t second = 500000;
  mDly = -5;
  PlayOn(1, "C");
  mDly = 9000000;
  PlayOn(1, "C");
  EXPECT_EQ(Rest(), (TSeenList{note_on(0, 1, 72, 64), note_off(435456, 1, 72, 64),
                               note_on(second + 1000000, 1, 72, 64),
                               note_off(second + 1435456, 1, 72, 64), note_on(1000000, 1, 72, 64),
                               note_off(1435456, 1, 72, 64), note_on(1500000 + 3000000, 1, 72, 64),
                               note_off(1500000 + 3435456, 1, 72, 64)}));
}

TEST_F(Player, MusicOnAnotherChannelWaitsForTheSleepingPlayer) {
  Play({"MBL1C"});
  SleepUntil(100000);
  Play({"", "MBC"});
  // The player sleeps until tick 16,128; both ends of the other note have passed by then.
  const int64_t wake_up = 16128 * TICK;
  EXPECT_EQ(Rest(), (TSeenList{note_on(At(0), 1, 72, 64), note_off(wake_up + LATENCY, 1, 72, 64),
                               note_on(wake_up, 2, 72, 64), note_off(wake_up, 2, 72, 64)}));
}

TEST_F(Player, ProgramsAreKeptWhenTheyArePlayed) {
  Play({"@5R64"});
  Rest();
  player->BroadcastMidiInit();
  const int64_t now = clock->system_time();
  EXPECT_EQ(Rest(), (TSeenList{{now, {0xF0, 0x7E, 0x7F, 0x09, 0x01, 0xF7}},
                               program(now, 0, 81),
                               program(now, 1, 16),
                               program(now, 2, 6),
                               program(now, 3, 6),
                               program(now, 4, 80),
                               program(now, 5, 80),
                               program(now, 6, 80)}));
}

TEST_F(Player, MusicPlaysOnWithoutAnOutput) {
  player->SetProducer(nullptr);
  Play({"CT240@5D"});
  EXPECT_EQ(Rest(), TSeenList{});
  // 4,608 ticks each: 497,664 and 248,832.
  EXPECT_EQ(clock->system_time(), 760000);
  player->SetProducer(&producer);
}

using BeepStatement = TSoundTest;

TEST_F(BeepStatement, ShortBeepLastsHalfASecond) {
  Beep(BEEP_SHORT);
  // On at tick 1, off 500,000 / 108 = 4,629 ticks later; the silence before it is not delayed.
  EXPECT_EQ(Rest(), (TSeenList{program(49892, 0, 81), note_on(50108, 0, 81, 127),
                               control(500040, 0, 0x7B), note_off(550040, 0, 81, 127)}));
  EXPECT_EQ(clock->system_time(), 550040);
}

TEST_F(BeepStatement, ShortBeepBlocks) {
  Beep(BEEP_SHORT);
  EXPECT_EQ(clock->system_time(), 520000);
}

TEST_F(BeepStatement, ProgramIsSentOnce) {
  Beep(BEEP_SHORT);
  Rest();
  const int64_t begin = clock->system_time();
  Beep(BEEP_SHORT);
  EXPECT_EQ(Rest(),
            (TSeenList{note_on(begin + LATENCY, 0, 81, 127), control(begin + 4629 * TICK, 0, 0x7B),
                       note_off(begin + LATENCY + 4629 * TICK, 0, 81, 127)}));
}

TEST_F(BeepStatement, HalfASecondWhateverTheTempo) {
  Play({"T240"});
  Rest();
  const int64_t begin = clock->system_time();
  Beep(BEEP_SHORT);
  const TSeenList events = Rest();
  ASSERT_EQ(events.size(), 4u);
  // 500,000 / 54 = 9,259 ticks.
  EXPECT_EQ(events[1].time, begin + LATENCY + TICK_240);
  EXPECT_EQ(events[3].time, begin + LATENCY + TICK_240 * 9260);
}

TEST_F(BeepStatement, OnAndOff) {
  Beep(BEEP_ON);
  EXPECT_EQ(clock->system_time(), 0);
  SleepUntil(500000);
  Beep(BEEP_OFF);
  // The switch on left 9 ticks behind it: 972 microseconds.
  EXPECT_EQ(Rest(), (TSeenList{program(49892, 0, 81), note_on(50108, 0, 81, 127),
                               control(500972, 0, 0x7B), note_off(550972, 0, 81, 127)}));
}

TEST_F(BeepStatement, RepeatsTooSoonAreIgnored) {
  Beep(BEEP_ON);
  SleepUntil(1000);
  Beep(BEEP_ON);
  EXPECT_EQ(Rest().size(), 2u);
  // The ignored one does not count as the last one.
  const int64_t last = 0;
  SleepUntil(last + 100000);
  Beep(BEEP_ON);
  SleepUntil(101001);
  Beep(BEEP_ON);
  EXPECT_EQ(Rest().size(), 2u);
}

TEST_F(BeepStatement, AThousandMicrosecondsAreStillTooSoon) {
  Beep(BEEP_OFF);
  SleepUntil(1000);
  Beep(BEEP_OFF);
  SleepUntil(1001);
  Beep(BEEP_OFF);
  EXPECT_EQ(Rest().size(), 4u);  // twice the silence and the note off
}

TEST_F(BeepStatement, OnAndOffAreThrottledApart) {
  Beep(BEEP_ON);
  Beep(BEEP_OFF);
  EXPECT_EQ(Rest(),
            (TSeenList{program(49892, 0, 81), note_on(50108, 0, 81, 127),
                       control(10 * TICK, 0, 0x7B), note_off(50000 + 10 * TICK, 0, 81, 127)}));
}

TEST_F(BeepStatement, IsHeldUntilASleepingPlayerWakes) {
  Play({"MBL1C"});
  Beep(BEEP_SHORT);
  EXPECT_EQ(clock->system_time(), 1760000);
  const int64_t wake_up = 1741824;
  EXPECT_EQ(Rest(),
            (TSeenList{note_on(50000, 1, 72, 64), program(wake_up, 0, 81),
                       note_on(wake_up, 0, 81, 127), control(wake_up, 0, 0x7B),
                       note_off(wake_up, 0, 81, 127), note_off(wake_up + LATENCY, 1, 72, 64)}));
}

TEST_F(BeepStatement, NumbersAboveTwoAreRefused) {
  EXPECT_TRUE(IsBad("\"3", 0));
  EXPECT_TRUE(IsBad("\"", 0));
  EXPECT_TRUE(IsBad("\"C", 0));
}

TEST_F(BeepStatement, ABurstWithinATickIsItsLastEvent) {
  TPlayQueue queue;
  for (int64_t id = 0; id < 5; ++id) {
    TPlayData data;
    data.id = id;
    data.tick = id < 4 ? 7 : 8;
    queue.Push(data);
  }
  EXPECT_EQ(queue.OptimizedBeepQueuePop().id, 3);
  EXPECT_EQ(queue.Count(), 1u);
  EXPECT_EQ(queue.OptimizedBeepQueuePop().id, 4);
  EXPECT_TRUE(queue.IsEmpty());
}

TEST(PlayQueue, OrdersByTickAndThenByCreation) {
  TPlayQueue queue;
  const int64_t ticks[] = {5, 3, 5, -1, 3, 5};
  for (int64_t id = 0; id < 6; ++id) {
    TPlayData data;
    data.id = id;
    data.tick = ticks[id];
    queue.Push(data);
  }
  std::vector<int64_t> ids;
  while (!queue.IsEmpty()) ids.push_back(queue.Pop().id);
  EXPECT_EQ(ids, (std::vector<int64_t>{3, 1, 4, 0, 2, 5}));
}

using OnPlay = TSoundTest;

TEST_F(OnPlay, RaisesOnEachPassBelowTheThreshold) {
  player->SetVMachine(&machine);
  player->SetIrOptCh(2);
  player->SetIrOptByte(3);
  Play({"", "CDEFG"});
  // Of 15 events 7 are left (3 notes) when the third note goes off.
  const std::vector<int64_t> ticks = {13248, 13824, 17856, 18432, 22464, 23040};
  std::vector<int64_t> times;
  for (const int64_t tick : ticks) times.push_back(tick * TICK);
  EXPECT_EQ(machine.times, times);
  for (const int32_t mask : machine.masks) EXPECT_EQ(mask, 0x40000);
}

TEST_F(OnPlay, ChannelZeroIsTheFullest) {
  player->SetVMachine(&machine);
  player->SetIrOptCh(0);
  player->SetIrOptByte(1);
  Play({"C", "CDE"});
  // Channel 2: 2 events left when its last note has begun, then 1, then none.
  EXPECT_EQ(machine.times, (std::vector<int64_t>{9216 * TICK, 13248 * TICK, 13824 * TICK}));
}

TEST_F(OnPlay, ANegativeChannelIsTheEmptiest) {
  player->SetVMachine(&machine);
  player->SetIrOptCh(-1);
  player->SetIrOptByte(2);
  Play({"CDE", "CDE", "CDE", "CDE", "CDE", "CDEF"});
  // Of nine events 8 are left when the first note has begun, 7 at its end, 5 when the second one
  // has begun: 2 notes.
  EXPECT_EQ(machine.times.front(), 4608 * TICK);
}

TEST_F(OnPlay, TheBeepIsNotLookedAt) {
  player->SetVMachine(&machine);
  player->SetIrOptCh(0);
  player->SetIrOptByte(0);
  Beep(BEEP_SHORT);
  // Passes at ticks 0, 1 and 4,630; channels 1 to 6 are empty in all of them.
  EXPECT_EQ(machine.times, (std::vector<int64_t>{0, TICK, 4630 * TICK}));
}

TEST_F(OnPlay, TempoAloneIsAPass) {
  player->SetVMachine(&machine);
  Play({"T100"});
  Rest();
  EXPECT_EQ(machine.times, (std::vector<int64_t>{0}));
}

TEST_F(OnPlay, NoMachineNoTrap) {
  player->SetVMachine(&machine);
  player->SetVMachine(nullptr);
  Play({"C"});
  EXPECT_TRUE(machine.times.empty());
}

TEST_F(OnPlay, AChannelThatIsNoneRaisesNothing) {
  player->SetVMachine(&machine);
  player->SetIrOptCh(7);
  player->SetIrOptByte(255);
  Play({"C"});
  EXPECT_TRUE(machine.times.empty());
}

using Waits = TSoundTest;

TEST_F(Waits, PlayEndsWhenTheMachineIsAskedToEnd) {
  clock->StartTimer(30001, false, [this] {
    machine.terminated = true;
    wake.Signal();
  });
  Play({"L1C"});
  EXPECT_EQ(clock->system_time(), 30001);
}

TEST_F(Waits, OtherSignalsDoNotEndPlay) {
  clock->StartTimer(30001, false, [this] { wake.Signal(); });
  Play({"C"});
  EXPECT_EQ(clock->system_time(), 500000);
}

TEST_F(Waits, PlayEndsWhenThePlayerIsAskedToEnd) {
  clock->StartTimer(30001, false, [this] { player->Terminate(); });
  Play({"L1C"});
  EXPECT_EQ(clock->system_time(), 40000);
}

TEST_F(Waits, MoreThanAChannelHoldsWaitsForThePlayer) {
  std::string mml;
  // Rests without length: 120,000 events that are due at once.
  for (int i = 0; i < 60000; ++i) mml += "R5000";
  player->SetMml(1, mml, Caller());
  EXPECT_EQ(clock->system_time(), 20000);
  EXPECT_EQ(player->QueuedEvents(1), 20000u);
}

TEST_F(Waits, AFullChannelLetsGoWhenTheMachineIsAskedToEnd) {
  std::string mml;
  for (int i = 0; i < 40000; ++i) mml += "C";
  clock->StartTimer(50001, false, [this] {
    machine.terminated = true;
    wake.Signal();
  });
  EXPECT_TRUE(player->SetMml(1, mml, Caller()));
  EXPECT_EQ(clock->system_time(), 50001);
  EXPECT_LE(player->QueuedEvents(1), 100000u);
  machine.terminated = false;
  player->Clear();
}

TEST_F(Waits, TheBufferIsEmptyWhenNothingIsAhead) {
  EXPECT_TRUE(player->IsBufferEmpty());
  Play({"MBC"});
  EXPECT_FALSE(player->IsBufferEmpty());
  SleepUntil(400000);
  EXPECT_FALSE(player->IsBufferEmpty());
  SleepUntil(497665);
  EXPECT_TRUE(player->IsBufferEmpty());
}

TEST_F(Waits, ASwitchedBeepLeavesTheBufferEmpty) {
  Beep(BEEP_ON);
  SleepUntil(10000);
  EXPECT_TRUE(player->IsBufferEmpty());
  EXPECT_TRUE(player->IsIdle());
}

TEST_F(Waits, DrainEndsWithTheLastStamp) {
  Play({"MBC"});
  EXPECT_FALSE(player->IsIdle());
  player->Drain(Caller());
  EXPECT_TRUE(player->IsIdle());
  EXPECT_EQ(player->LastStamp(), 485456);
  // The queue is seen empty on the grid, behind the last stamp.
  EXPECT_EQ(clock->system_time(), 500000);
}

using Silence = TSoundTest;

// The three control changes of a channel.
void ExpectSilence(const TSeenList& events, size_t first, int64_t time, int ch) {
  ASSERT_LE(first + 3, events.size());
  EXPECT_EQ(events[first], control(time, ch, 0x7B));
  EXPECT_EQ(events[first + 1], control(time, ch, 0x78));
  EXPECT_EQ(events[first + 2], control(time, ch, 0x79));
}

TEST_F(Silence, ClearSilencesAllChannels) {
  SleepUntil(1234);
  player->Clear();
  const TSeenList events = Rest();
  ASSERT_EQ(events.size(), 21u);
  for (int ch = 0; ch < 7; ++ch) ExpectSilence(events, static_cast<size_t>(ch) * 3, 1234, ch);
}

TEST_F(Silence, ClearSwitchesOffASoundingNote) {
  Play({"MBL1C"});
  SleepUntil(100000);
  sink.events.clear();
  player->Clear();
  ASSERT_EQ(sink.events.size(), 22u);
  ExpectSilence(sink.events, 3, 100000, 1);
  EXPECT_EQ(sink.events[6], note_off(100000, 1, 72, 0));
}

TEST_F(Silence, ClearSwitchesOffANoteThatIsStillToSound) {
  Play({"MBL1C"});
  SleepUntil(10000);
  sink.events.clear();
  player->Clear();
  ASSERT_EQ(sink.events.size(), 22u);
  EXPECT_EQ(sink.events[6], note_off(50000, 1, 72, 0));
}

TEST_F(Silence, ClearForgetsMusicAndSettings) {
  Play({"MBO6L8Q4V15T240@5CDEFG"});
  player->SetIrOptByte(9);
  Beep(BEEP_ON);
  SleepUntil(60000);
  player->Clear();
  EXPECT_TRUE(player->IsBufferEmpty());
  player->Drain(Caller());
  sink.events.clear();
  const int64_t begin = clock->system_time();
  Play({"C"});
  EXPECT_EQ(clock->system_time(), begin + 500000);  // in the foreground again
  EXPECT_EQ(Rest(), (TSeenList{note_on(begin + LATENCY, 1, 72, 64),
                               note_off(begin + LATENCY + 4032 * TICK, 1, 72, 64)}));
  // The beep sends its program anew.
  Beep(BEEP_SHORT);
  EXPECT_EQ(Rest()[0].bytes, (std::vector<int>{0xC0, 81}));
}

TEST_F(Silence, TheEndOfThePlayerSilencesAllChannels) {
  Play({"MBL1C"});
  SleepUntil(100000);
  sink.events.clear();
  player->Terminate();
  clock->LeaveThread();
  player.reset();
  clock->EnterThread(clock->PrepareThread(TActorClass::Machine));
  EXPECT_EQ(sink.events.size(), 22u);
  EXPECT_EQ(std::count(sink.events.begin(), sink.events.end(), note_off(100000, 1, 72, 0)), 1);
}

TEST_F(Silence, APlayerThatNeverPlayedGoesQuietly) {
  clock->LeaveThread();
  player.reset();
  clock->EnterThread(clock->PrepareThread(TActorClass::Machine));
  EXPECT_TRUE(sink.events.empty());
}

}  // namespace
