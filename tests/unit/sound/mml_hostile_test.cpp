// MML of any bytes is refused or is music: no crash, no hang, no unbounded memory.
#include <random>

#include "tests/unit/sound/sound_fixture.h"

using namespace zoka;
using namespace zoka_test;

namespace {

using Hostile = TSoundTest;

TEST_F(Hostile, NumbersOfAHundredDigits) {
  const std::string nines(100, '9');
  for (const char* command : {"L", "Q", "O", "T", "V", "@", "@V", "S", "\""}) {
    EXPECT_TRUE(IsBad(command + nines)) << command;
  }
  for (const char* command : {"C", "R", "{CD}", "M", "K", "_"}) {
    EXPECT_FALSE(IsBad(command + nines)) << command;
  }
  EXPECT_FALSE(IsBad("Y" + nines + "," + nines + "C"));
  EXPECT_TRUE(IsBad("C" + std::string(100, '0')));
}

TEST_F(Hostile, NestedBraces) {
  EXPECT_TRUE(IsBad(std::string(100000, '{')));
  EXPECT_FALSE(IsBad(std::string(100000, '}')));
  EXPECT_EQ(player->QueuedEvents(1), 0u);
}

TEST_F(Hostile, AMegabyteOfOctaveSteps) {
  EXPECT_FALSE(IsBad(std::string(1 << 20, '>') + "C"));
  EXPECT_FALSE(IsBad(std::string(1 << 20, '<') + "C"));
  player->Resume();
  EXPECT_EQ(Rest(), (TSeenList{note_on(At(4608), 1, 12, 64), note_off(At(8640), 1, 12, 64)}));
}

TEST_F(Hostile, AMegabyteOfDigitsTiesAndDots) {
  EXPECT_FALSE(IsBad("C" + std::string(1 << 20, '9')));
  std::string tie = "C1";
  while (tie.size() < 1 << 20) tie += "^1.";
  EXPECT_FALSE(IsBad(tie));
  EXPECT_FALSE(IsBad("C4" + std::string(1 << 20, '.')));
  player->Clear();
}

TEST_F(Hostile, TimesDoNotOverflow) {
  std::string tie = "MBT32C1";
  while (tie.size() < 1 << 16) tie += "^1";
  for (int i = 0; i < 1000; ++i) EXPECT_FALSE(IsBad(tie));
  player->Resume();
  SleepUntil(1000000);
  const TSeenList events = sink.events;
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].time, LATENCY);
  player->Clear();
}

TEST_F(Hostile, ATupletOfAMegabyte) {
  EXPECT_FALSE(IsBad("{" + std::string(1 << 15, 'C') + "}4"));
  EXPECT_TRUE(IsBad("{" + std::string(1 << 20, 'R') + "}4"));
  // 4,608 / 32,768 of a tick: no length at all, on and off at once.
  player->Resume();
  const TSeenList events = Rest();
  ASSERT_EQ(events.size(), 2u << 15);
  EXPECT_EQ(events.back(), note_off(At(0), 1, 72, 64));
}

TEST_F(Hostile, RandomBytes) {
  std::mt19937 random(12345);
  for (int round = 0; round < 3000; ++round) {
    std::string mml(random() % 40, '\0');
    for (char& c : mml) c = static_cast<char>(random());
    IsBad(mml, static_cast<int16_t>(random() % 7));
  }
  player->Clear();
}

TEST_F(Hostile, RandomMusicSwitchesOffEachNoteItSwitchesOn) {
  const std::string letters = "CDEFGAB+-#.0123456789<>OLQVTSRP@{}^MBFYZ,*!_K ";
  std::mt19937 random(54321);
  for (int round = 0; round < 500; ++round) {
    std::string mml(random() % 60, '\0');
    for (char& c : mml) c = letters[random() % letters.size()];
    player->ClearCompileLastTick();
    IsBad(mml, static_cast<int16_t>(1 + random() % 6));
    player->Resume();
  }
  int open[16][128] = {};
  for (const TSeen& seen : Rest()) {
    const int kind = seen.bytes[0] & 0xF0;
    if (kind == 0x90) ++open[seen.bytes[0] & 15][seen.bytes[1]];
    if (kind == 0x80) --open[seen.bytes[0] & 15][seen.bytes[1]];
  }
  for (const auto& channel : open) {
    for (const int count : channel) EXPECT_EQ(count, 0);
  }
}

}  // namespace
