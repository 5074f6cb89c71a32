// The recorder's files, read back by the tests' own reader.
#include "sound/midi_recorder.h"

#include "tests/support/smf_reader.h"
#include "tests/unit/sound/sound_fixture.h"

using namespace zoka;
using namespace zoka_test;

namespace {

TMidiEvent Event(bigtime_t time, const std::string& bytes) {
  return {time, bytes};
}

using Recorder = TSoundTest;

TEST(MidiFile, HasOneTrackInTicksOfTwentyMicroseconds) {
  const TSmf smf = TSmfReader::Read(make_midi_file({}));
  EXPECT_EQ(smf.format, 0);
  EXPECT_EQ(smf.tracks, 1);
  EXPECT_EQ(smf.division, 25000);
  EXPECT_TRUE(smf.events.empty());
  ASSERT_EQ(smf.metas.size(), 2u);
  // The tempo: 500,000 microseconds a quarter note; then the end of the track.
  EXPECT_EQ(smf.metas[0].bytes, (std::vector<int>{0xFF, 0x51, 0x07, 0xA1, 0x20}));
  EXPECT_EQ(smf.metas[1].bytes, (std::vector<int>{0xFF, 0x2F}));
}

TEST(MidiFile, KeepsAllKindsOfMessages) {
  const TSmf smf = TSmfReader::Read(make_midi_file(
      {Event(0, "\xF0\x7E\x7F\x09\x01\xF7"), Event(20, "\xC1\x50"), Event(40, "\x91\x48\x40"),
       Event(60, std::string("\xB0\x7B\0", 3)), Event(80, "\x81\x48\x40")}));
  EXPECT_EQ(smf.events, (std::vector<TSmfEvent>{{0, {0xF0, 0x7E, 0x7F, 0x09, 0x01, 0xF7}},
                                                {20, {0xC1, 0x50}},
                                                {40, {0x91, 0x48, 0x40}},
                                                {60, {0xB0, 0x7B, 0}},
                                                {80, {0x81, 0x48, 0x40}}}));
}

TEST(MidiFile, RoundsEachTimeByItself) {
  // 9 rounds down, 10 up; the roundings do not add up.
  std::vector<TMidiEvent> events;
  for (int i = 0; i < 100; ++i) events.push_back(Event(i * 29, "\x91\x48\x40"));
  const TSmf smf = TSmfReader::Read(make_midi_file(events));
  ASSERT_EQ(smf.events.size(), 100u);
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(smf.events[static_cast<size_t>(i)].time, (i * 29 + 10) / 20 * 20);
  }
}

TEST(MidiFile, EveryLengthOfGapComesBack) {
  for (const bigtime_t gap :
       {0LL, 20LL, 127LL * 20, 128LL * 20, 16383LL * 20, 16384LL * 20, 2097151LL * 20,
        2097152LL * 20, 268435455LL * 20, 268435456LL * 20, 3000000000LL * 20}) {
    const TSmf smf =
        TSmfReader::Read(make_midi_file({Event(0, "\xC1\x01"), Event(gap, "\xC1\x02")}));
    ASSERT_EQ(smf.events.size(), 2u);
    EXPECT_EQ(smf.events[1].time, gap);
  }
}

TEST_F(Recorder, SortsByTimeAndThenByArrival) {
  TMidiRecorder recorder(1000);
  recorder.Receive(Event(1300, "\xC1\x03"));
  recorder.Receive(Event(1200, "\xC1\x01"));
  recorder.Receive(Event(1300, "\xC1\x04"));
  recorder.Receive(Event(1200, "\xC1\x02"));
  const std::vector<TMidiEvent> events = recorder.Events();
  ASSERT_EQ(events.size(), 4u);
  for (size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(events[i].bytes, std::string("\xC1") + static_cast<char>(i + 1));
    EXPECT_EQ(events[i].time, i < 2 ? 200 : 300);
  }
}

TEST_F(Recorder, RecordsWhatThePlayerSends) {
  TMidiRecorder recorder(0);
  producer.AddRecorder(&recorder);
  Play({"MBC", "{EG}4"});
  Beep(BEEP_SHORT);
  player->Drain(Caller());
  producer.RemoveRecorder(&recorder);
  const TSmf smf = TSmfReader::Read(make_midi_file(recorder.Events()));
  const auto rounded = [](int64_t time) { return (time + 10) / 20 * 20; };
  // The beep comes when PLAY has waited for channel 2, whose end is tick 4,608: at 500,000.
  const int64_t beep = 500000;
  EXPECT_EQ(smf.events, (std::vector<TSmfEvent>{{50000, {0x91, 72, 64}},
                                                {50000, {0x92, 76, 64}},
                                                {rounded(At(2016)), {0x82, 76, 64}},
                                                {rounded(At(2304)), {0x92, 79, 64}},
                                                {rounded(At(4032)), {0x81, 72, 64}},
                                                {rounded(At(4320)), {0x82, 79, 64}},
                                                {rounded(beep + At(-1)), {0xC0, 81}},
                                                {rounded(beep + At(1)), {0x90, 81, 127}},
                                                {rounded(beep + 4630 * TICK), {0xB0, 0x7B, 0}},
                                                {rounded(beep + At(4630)), {0x80, 81, 127}}}));
}

TEST_F(Recorder, FilesThatCannotBeWrittenAreNoticed) {
  EXPECT_FALSE(write_whole_file("/nonexistent/folder/file.mid", "x"));
  EXPECT_FALSE(write_whole_file("/dev/full", "x"));
}

}  // namespace
