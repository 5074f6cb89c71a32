// `zoka play` on the simulated clock: files, faults, and the spectrum of what is heard.
#include "sound/play_command.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "sound/synthesizer.h"
#include "sound/wav_file.h"
#include "tests/support/smf_reader.h"
#include "tests/support/temp_folder.h"
#include "tests/support/wav_sound.h"

using namespace zoka;
using namespace zoka_test;

namespace {

std::string read_file(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class Play : public testing::Test {
 protected:
  TPlayResult Run(const std::vector<std::string>& mml, const TPlayOutputOptions& options) {
    const auto clock = make_simulated_clock();
    TPlayCommand command(*clock, {sVol, mDly}, mml, options);
    return command.Run();
  }
  std::string Path(const char* name) { return folder.Path() + "/" + name; }

  std::atomic<int32_t> sVol{80};
  std::atomic<int64_t> mDly{50000};
  TTempFolder folder;
};

TEST_F(Play, WritesWhatItPlays) {
  const TPlayResult result = Run({"C", "", "E"}, {Path("a.mid"), "", true});
  EXPECT_FALSE(result.fault);
  EXPECT_TRUE(result.unwritten.empty());
  const TSmf smf = TSmfReader::Read(read_file(Path("a.mid")));
  // 485,456 lies nearest to 485,460.
  EXPECT_EQ(smf.events, (std::vector<TSmfEvent>{{50000, {0x91, 72, 64}},
                                                {50000, {0x93, 76, 64}},
                                                {485460, {0x81, 72, 64}},
                                                {485460, {0x83, 76, 64}}}));
}

TEST_F(Play, BackgroundMusicIsPlayedToItsEnd) {
  Run({"MBCDEFG"}, {Path("a.mid"), "", true});
  EXPECT_EQ(TSmfReader::Read(read_file(Path("a.mid"))).events.size(), 10u);
}

TEST_F(Play, AFaultIsReportedAndTheRestIsPlayed) {
  const TPlayResult result = Run({"C", "DN", "E"}, {Path("a.mid"), "", true});
  ASSERT_TRUE(result.fault);
  EXPECT_EQ(result.fault->key, "@Runtime_Err_Bad_MML@");
  EXPECT_EQ(result.fault->fault, TFault::Runtime);
  EXPECT_EQ(result.fault->ID, 0u);
  // Channel 3 was compiled first, then the note before the fault; channel 1 not at all.
  const TSmf smf = TSmfReader::Read(read_file(Path("a.mid")));
  ASSERT_EQ(smf.events.size(), 4u);
  EXPECT_EQ(smf.events[0].bytes, (std::vector<int>{0x92, 74, 64}));
  EXPECT_EQ(smf.events[1].bytes, (std::vector<int>{0x93, 76, 64}));
}

TEST_F(Play, NothingToPlayIsAnEmptyFile) {
  Run({}, {Path("a.mid"), "", true});
  EXPECT_TRUE(TSmfReader::Read(read_file(Path("a.mid"))).events.empty());
}

TEST_F(Play, MoreThanSixStringsAreNotPlayed) {
  Run({"C", "C", "C", "C", "C", "C", "C"}, {Path("a.mid"), "", true});
  EXPECT_EQ(TSmfReader::Read(read_file(Path("a.mid"))).events.size(), 12u);
}

TEST_F(Play, FilesThatCannotBeWrittenAreNamed) {
  const std::string bad = Path("missing/a.mid");
  const std::string badWav = Path("missing/a.wav");
  EXPECT_EQ(Run({"C"}, {bad, badWav, true}).unwritten, (std::vector<std::string>{bad, badWav}));
}

TEST_F(Play, StopSilencesTheMusic) {
  const auto clock = make_simulated_clock();
  TPlayCommand command(*clock, {sVol, mDly}, {"L1C"}, {Path("a.mid"), "", true});
  clock->StartTimer(1000000, false, [&] { command.Stop(); });
  command.Run();
  const TSmf smf = TSmfReader::Read(read_file(Path("a.mid")));
  ASSERT_EQ(smf.events.size(), 1u + 21u + 1u);
  EXPECT_EQ(smf.events.back().time, 1000000);
  int offs = 0;
  for (const TSmfEvent& event : smf.events) offs += event.bytes[0] == 0x81 ? 1 : 0;
  EXPECT_EQ(offs, 1);
}

// Where the soundfont is missing there is nothing to look at.
class PlayWav : public Play {
 protected:
  void SetUp() override {
    if (!TSynthesizer::Create()) GTEST_SKIP() << "no synthesiser on this machine";
  }
};

TEST_F(PlayWav, SoundsTheRightNotesAtTheRightTimes) {
  // A square lead, whose ground tone is strongest. Half notes of 0.995328 s from 0.05 s on.
  Run({"", "", "", "S0L2CEGB-"}, {"", Path("a.wav"), true});
  const TSound sound = TSound::Read(read_file(Path("a.wav")));
  EXPECT_EQ(sound.rate, 44100);
  const int notes[] = {72, 76, 79, 82};
  for (int i = 0; i < 4; ++i) {
    const double begin = 0.05 + i * 0.995328;
    EXPECT_EQ(sound.StrongestNote(72, begin + 0.1, begin + 0.8), notes[i]) << i;
  }
  // Silence before the first note, sound within 5 ms behind its begin.
  EXPECT_EQ(sound.Loudest(0, 0.0495), 0);
  EXPECT_GT(sound.Loudest(0.05, 0.055), 10);
}

TEST_F(PlayWav, ABeepIsHeardForHalfASecond) {
  const auto clock = make_simulated_clock();
  const std::vector<TMidiEvent> events = {
      {100000, "\xC0\x51"}, {100000, "\x90\x51\x7F"}, {600000, "\x80\x51\x7F"}};
  ASSERT_TRUE(write_wav_file(Path("b.wav"), events));
  const TSound sound = TSound::Read(read_file(Path("b.wav")));
  EXPECT_EQ(sound.StrongestNote(76, 0.15, 0.55), 81);
  EXPECT_GT(sound.Loudest(0.5, 0.6), 20 * sound.Loudest(1.5, 4));
}

TEST_F(PlayWav, AllChannelsTogetherDoNotClip) {
  const std::string loud = "V15@V127L1O4C";
  Run({loud, loud, loud, loud, loud, loud}, {"", Path("a.wav"), true});
  const TSound sound = TSound::Read(read_file(Path("a.wav")));
  EXPECT_LT(sound.Loudest(0, 10), 2 * 32767);
  EXPECT_GT(sound.Loudest(0, 10), 2 * 1000);
}

TEST_F(PlayWav, TheSameMusicGivesTheSameBytes) {
  const std::vector<std::string> mml = {"T200@12CDE", "L8GFEDC", "R4C", "S8{CEG}2", "V9>C", "A"};
  Run(mml, {Path("a.mid"), Path("a.wav"), true});
  Run(mml, {Path("b.mid"), Path("b.wav"), true});
  EXPECT_EQ(read_file(Path("a.mid")), read_file(Path("b.mid")));
  EXPECT_EQ(read_file(Path("a.wav")), read_file(Path("b.wav")));
  EXPECT_GT(read_file(Path("a.wav")).size(), 100000u);
}

TEST_F(PlayWav, ALongSilenceIsKeptAndCheap) {
  // A minute of rest.
  const std::vector<TMidiEvent> events = {{60000000, "\x90\x48\x40"}, {60500000, "\x80\x48\x40"}};
  ASSERT_TRUE(write_wav_file(Path("c.wav"), events));
  const std::string bytes = read_file(Path("c.wav"));
  EXPECT_GT(bytes.size(), 44u + 60u * 44100u * 4u);
}

TEST_F(PlayWav, WhatNoFileHoldsIsRefused) {
  EXPECT_FALSE(write_wav_file(Path("d.wav"), {{bigtime_t{1} << 45, "\x90\x48\x40"}}));
}

TEST_F(PlayWav, NoMusicIsAnEmptyFile) {
  ASSERT_TRUE(write_wav_file(Path("e.wav"), {}));
  EXPECT_EQ(read_file(Path("e.wav")).size(), 44u);
}

}  // namespace
