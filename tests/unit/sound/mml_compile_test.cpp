// The compiling half: lengths, pitches, settings and refusals, seen through the events that come
// out. Ticks are worked out by hand: a quarter note has 4,608, a tick 108 microseconds.
#include "tests/unit/sound/sound_fixture.h"

using namespace zoka;
using namespace zoka_test;

namespace {

/// A note as the rows below write it: ticks of its begin and of its end.
struct TNote {
  int note;
  int64_t on;
  int64_t off;
  int velocity = 64;
};

struct TRow {
  const char* mml;
  std::vector<TNote> notes;
};

void PrintTo(const TRow& row, std::ostream* out) {
  *out << row.mml;
}

class MmlNotes : public TSoundTest, public testing::WithParamInterface<TRow> {
 protected:
  // Of one time, an end comes before a begin unless the note itself has no length.
  TSeenList Expected(int ch) const {
    TSeenList events;
    for (const TNote& n : GetParam().notes) {
      events.push_back(note_on(At(n.on), ch, n.note, n.velocity));
      events.push_back(note_off(At(n.off), ch, n.note, n.velocity));
    }
    return events;
  }
};

TEST_P(MmlNotes, PlayAtTheirTicks) {
  PlayOn(1, GetParam().mml);
  EXPECT_EQ(Rest(), Expected(1));
}

TEST_P(MmlNotes, PlayTheSameOnTheOtherFmChannels) {
  PlayOn(3, GetParam().mml);
  EXPECT_EQ(Rest(), Expected(3));
}

INSTANTIATE_TEST_SUITE_P(
    Lengths, MmlNotes,
    testing::Values(TRow{"C", {{72, 0, 4032}}}, TRow{"CD", {{72, 0, 4032}, {74, 4608, 8640}}},
                    TRow{"C1D", {{72, 0, 16128}, {74, 18432, 22464}}},
                    TRow{"C64D", {{72, 0, 252}, {74, 288, 4320}}},
                    TRow{"C3D", {{72, 0, 5376}, {74, 6144, 10176}}},
                    // 3,684 ticks: 3,223.5 and 460.5 are both cut.
                    TRow{"C5D", {{72, 0, 3223}, {74, 3683, 7715}}},
                    TRow{"C7D", {{72, 0, 2303}, {74, 2632, 6664}}},
                    TRow{"C4608D", {{72, 0, 3}, {74, 3, 4035}}}, TRow{"C4.", {{72, 0, 6048}}},
                    TRow{"C4.D", {{72, 0, 6048}, {74, 6912, 10944}}},
                    TRow{"C4^4D", {{72, 0, 8064}, {74, 9216, 13248}}},
                    TRow{"C4^8D", {{72, 0, 6048}, {74, 6912, 10944}}},
                    TRow{"C4^^8D", {{72, 0, 6048}, {74, 6912, 10944}}},
                    TRow{"C4^D", {{72, 0, 4032}, {74, 4608, 8640}}},
                    // One dot anywhere lengthens the whole tie, once.
                    TRow{"C4.^4D", {{72, 0, 12096}, {74, 13824, 17856}}},
                    TRow{"C4^4.D", {{72, 0, 12096}, {74, 13824, 17856}}},
                    TRow{"C4.^4.D", {{72, 0, 12096}, {74, 13824, 17856}}},
                    TRow{"C4..D", {{72, 0, 6048}, {74, 6912, 10944}}},
                    TRow{"C.D", {{72, 0, 6048}, {74, 6912, 10944}}},
                    TRow{"C..D", {{72, 0, 6048}, {74, 6912, 10944}}},
                    TRow{"L8C.D", {{72, 0, 3024}, {74, 3456, 5472}}},
                    TRow{"L64C.D", {{72, 0, 378}, {74, 432, 684}}},
                    TRow{"C4 8D", {{72, 0, 6048}, {74, 6912, 10944}}},
                    TRow{"C^D", {{72, 0, 4032}, {74, 4608, 8640}}}, TRow{"L1C", {{72, 0, 16128}}},
                    TRow{"L 2 C D", {{72, 0, 8064}, {74, 9216, 17280}}},
                    TRow{"L4.C", {{72, 0, 4032}}}));

INSTANTIATE_TEST_SUITE_P(Quantize, MmlNotes,
                         testing::Values(TRow{"Q8CD", {{72, 0, 4608}, {74, 4608, 9216}}},
                                         TRow{"Q1CD", {{72, 0, 576}, {74, 4608, 5184}}},
                                         TRow{"Q4C8D", {{72, 0, 1152}, {74, 2304, 4608}}},
                                         TRow{"Q3C5", {{72, 0, 1381}}}));

INSTANTIATE_TEST_SUITE_P(
    Pitches, MmlNotes,
    testing::Values(
        TRow{"C+", {{73, 0, 4032}}}, TRow{"C#", {{73, 0, 4032}}}, TRow{"C-", {{71, 0, 4032}}},
        TRow{"E", {{76, 0, 4032}}}, TRow{"F", {{77, 0, 4032}}}, TRow{"G", {{79, 0, 4032}}},
        TRow{"A", {{81, 0, 4032}}}, TRow{"B", {{83, 0, 4032}}}, TRow{"B+", {{84, 0, 4032}}},
        TRow{"O1C", {{36, 0, 4032}}}, TRow{"O8C", {{120, 0, 4032}}}, TRow{"O8G", {{127, 0, 4032}}},
        TRow{"O1<C", {{24, 0, 4032}}}, TRow{"O1<C-", {{23, 0, 4032}}},
        TRow{"O1<<C", {{12, 0, 4032}}}, TRow{"O1<<<<C", {{12, 0, 4032}}},
        TRow{"O1<<C-", {{11, 0, 4032}}}, TRow{"O1<<<<>>C", {{36, 0, 4032}}},
        TRow{">C<C", {{84, 0, 4032}, {72, 4608, 8640}}},
        // Octave 9 begins at note 132, which MIDI does not have: it takes its time in silence.
        TRow{"O8>C", {}}, TRow{"O8>CO4D", {{74, 4608, 8640}}}, TRow{"O8>>>>><C", {{120, 0, 4032}}},
        TRow{"O8G+O4D", {{74, 4608, 8640}}},
        TRow{"c d+ o5 c", {{72, 0, 4032}, {75, 4608, 8640}, {84, 9216, 13248}}}));

INSTANTIATE_TEST_SUITE_P(
    Volumes, MmlNotes,
    testing::Values(TRow{"V15C", {{72, 0, 4032, 127}}}, TRow{"V0C", {{72, 0, 4032, 0}}},
                    TRow{"V7C", {{72, 0, 4032, 59}}}, TRow{"V8C", {{72, 0, 4032, 67}}},
                    TRow{"@V0C", {{72, 0, 4032, 0}}}, TRow{"@V127C", {{72, 0, 4032, 127}}},
                    TRow{"@V 100 C", {{72, 0, 4032, 100}}}));

INSTANTIATE_TEST_SUITE_P(
    Rests, MmlNotes,
    testing::Values(TRow{"RC", {{72, 4608, 8640}}}, TRow{"PC", {{72, 4608, 8640}}},
                    TRow{"R8C", {{72, 2304, 6336}}}, TRow{"R4.C", {{72, 6912, 10944}}},
                    TRow{"R4^8C", {{72, 6912, 10944}}}, TRow{"L2RC", {{72, 9216, 17280}}},
                    TRow{"R", {}}, TRow{"R5000C", {{72, 0, 4032}}}));

INSTANTIATE_TEST_SUITE_P(
    Tuplets, MmlNotes,
    testing::Values(
        TRow{"{CDE}4F", {{72, 0, 1344}, {74, 1536, 2880}, {76, 3072, 4416}, {77, 4608, 8640}}},
        TRow{"{CDE}F", {{72, 0, 1344}, {74, 1536, 2880}, {76, 3072, 4416}, {77, 4608, 8640}}},
        TRow{"{CRE}4F", {{72, 0, 2016}, {76, 2304, 4320}, {77, 4608, 8640}}},
        TRow{"{C8D16L1}4", {{72, 0, 2016}, {74, 2304, 4320}}},
        TRow{"{C>D}4C", {{72, 0, 2016}, {74, 2304, 4320}, {72, 4608, 8640}}},
        TRow{"{CD}4^4", {{72, 0, 4032}, {74, 4608, 8640}}},
        TRow{"{CD}.", {{72, 0, 3024}, {74, 3456, 6480}}},
        // 1,228 ticks each: 1,074.5 and 153.5 are cut, note by note.
        TRow{"{CDE}5F", {{72, 0, 1074}, {74, 1227, 2301}, {76, 2454, 3528}, {77, 3681, 7713}}},
        TRow{"Q8{CD}8", {{72, 0, 1152}, {74, 1152, 2304}}}, TRow{"{C}2", {{72, 0, 8064}}},
        TRow{"{CD}5000E", {{72, 0, 0}, {74, 0, 0}, {76, 0, 4032}}}));

INSTANTIATE_TEST_SUITE_P(
    Ignored, MmlNotes,
    testing::Values(
        TRow{"M8C", {{72, 0, 4032}}}, TRow{"K5C", {{72, 0, 4032}}}, TRow{"_3C", {{72, 0, 4032}}},
        TRow{"Y1,2C", {{72, 0, 4032}}}, TRow{"Z1,2C", {{72, 0, 4032}}}, TRow{"!C", {{72, 0, 4032}}},
        TRow{"*C", {{72, 0, 4032}}}, TRow{"+C", {{72, 0, 4032}}}, TRow{"#C", {{72, 0, 4032}}},
        TRow{"-C", {{72, 0, 4032}}}, TRow{".C", {{72, 0, 4032}}}, TRow{"^C", {{72, 0, 4032}}},
        TRow{"}C", {{72, 0, 4032}}}, TRow{"MCD", {{74, 0, 4032}}}, TRow{"M@WC", {{72, 0, 4032}}},
        TRow{"C M", {{72, 0, 4032}}}, TRow{"CY", {{72, 0, 4032}}}, TRow{"CZ1", {{72, 0, 4032}}},
        TRow{"MFC", {{72, 0, 4032}}}));

using MmlCompile = TSoundTest;

TEST_F(MmlCompile, ANoteWithoutLengthGoesOnAndOffAtOnce) {
  PlayOn(1, "C5000");
  EXPECT_EQ(Rest(), (TSeenList{note_on(At(0), 1, 72, 64), note_off(At(0), 1, 72, 64)}));
}

TEST_F(MmlCompile, RefusesWhatIsNoMusic) {
  for (const char* mml : {"L0",
                          "L65",
                          "Q0",
                          "Q9",
                          "O0",
                          "O9",
                          "T31",
                          "T256",
                          "V16",
                          "@82",
                          "@V128",
                          "S15",
                          "N60",
                          "C0",
                          "C^8",
                          "C4^0",
                          "R0",
                          "4",
                          "C 4 D,E",
                          ",",
                          "@W",
                          "@W4",
                          "L",
                          "LC",
                          "Q",
                          "O",
                          "T",
                          "S",
                          "V",
                          "@",
                          "@V",
                          "@ V5",
                          "L-1",
                          "O+1",
                          "{",
                          "{CDE",
                          "{C{D}}",
                          "{}",
                          "{R}4",
                          "{}4",
                          "{CD}0",
                          "{X}4",
                          "H",
                          "I1",
                          "J",
                          "U",
                          "W",
                          "X",
                          "\"2",
                          "\"",
                          "?",
                          "C;D",
                          "\xEF\xBD\xB1",
                          "C.4",
                          "V,",
                          "T-5"}) {
    EXPECT_TRUE(IsBad(mml)) << mml;
  }
}

TEST_F(MmlCompile, AcceptsTheEndsOfEveryRange) {
  for (const char* mml : {"L1", "L64", "Q1", "Q8", "O1", "O8", "T32", "T255", "V0", "V15", "@0",
                          "@81", "@V0", "@V127", "S0", "S14", "T120", " ", "C000004"}) {
    EXPECT_FALSE(IsBad(mml)) << mml;
  }
}

TEST_F(MmlCompile, SettingsStayForTheNextPlay) {
  PlayOn(1, "O5L8Q8V15");
  Rest();
  const int64_t begin = clock->system_time();
  PlayOn(1, "C");
  EXPECT_EQ(Rest(), (TSeenList{note_on(begin + LATENCY, 1, 84, 127),
                               note_off(begin + LATENCY + 2304 * TICK, 1, 84, 127)}));
}

TEST_F(MmlCompile, SettingsBelongToTheirChannel) {
  Play({"O5L1V15Q1", ""});
  PlayOn(2, "C");
  EXPECT_EQ(Rest(), (TSeenList{note_on(At(0), 2, 72, 64), note_off(At(4032), 2, 72, 64)}));
}

TEST_F(MmlCompile, AnEmptyStringLeavesItsChannelAlone) {
  EXPECT_FALSE(player->SetMml(1, "", Caller()));
  EXPECT_TRUE(player->SetMml(1, " ", Caller()));
  EXPECT_EQ(player->QueuedEvents(1), 0u);
}

TEST_F(MmlCompile, ThereAreSevenChannels) {
  EXPECT_FALSE(player->SetMml(-1, "C", Caller()));
  EXPECT_FALSE(player->SetMml(7, "C", Caller()));
  EXPECT_TRUE(player->SetMml(6, "C", Caller()));
}

TEST_F(MmlCompile, ANoteQueuesThreeEventsAndARestTwo) {
  player->SetMml(1, "C", Caller());
  EXPECT_EQ(player->QueuedEvents(1), 3u);
  player->SetMml(2, "R", Caller());
  EXPECT_EQ(player->QueuedEvents(2), 2u);
  player->SetMml(3, "T120@0MFMBO3", Caller());
  EXPECT_EQ(player->QueuedEvents(3), 2u);
}

TEST_F(MmlCompile, WhatStandsBeforeAFaultIsPlayed) {
  player->ClearCompileLastTick();
  EXPECT_TRUE(IsBad("CN60D"));
  player->Resume();
  EXPECT_EQ(Rest(), (TSeenList{note_on(At(0), 1, 72, 64), note_off(At(4032), 1, 72, 64)}));
}

TEST_F(MmlCompile, ANoteWithABadLengthIsSwitchedOffAgain) {
  player->ClearCompileLastTick();
  EXPECT_TRUE(IsBad("C4^0"));
  player->Resume();
  EXPECT_EQ(Rest(), (TSeenList{note_on(At(0), 1, 72, 64), note_off(At(4032), 1, 72, 64)}));
}

TEST_F(MmlCompile, SsgChannelsScaleTheirVolume) {
  // 64 * 80 / 100; 127 * 80 / 100; 59 * 80 / 100; 100 * 80 / 100.
  for (int ch = 4; ch <= 6; ++ch) {
    const int64_t begin = clock->system_time();
    PlayOn(static_cast<int16_t>(ch), "Q8L64CV15DV7E@V100F@V127G");
    const auto at = [&](int64_t n) { return begin + LATENCY + n * 288 * TICK; };
    EXPECT_EQ(Rest(), (TSeenList{note_on(at(0), ch, 72, 51), note_off(at(1), ch, 72, 51),
                                 note_on(at(1), ch, 74, 101), note_off(at(2), ch, 74, 101),
                                 note_on(at(2), ch, 76, 47), note_off(at(3), ch, 76, 47),
                                 note_on(at(3), ch, 77, 80), note_off(at(4), ch, 77, 80),
                                 note_on(at(4), ch, 79, 101), note_off(at(5), ch, 79, 101)}));
  }
}

TEST_F(MmlCompile, NoVolumeGoesBeyondWhatMidiHas) {
  sVol = 200;
  player->Clear();
  Rest();
  PlayOn(4, "C64V15C64@V10C64");
  const TSeenList events = Rest();
  ASSERT_EQ(events.size(), 6u);
  EXPECT_EQ(events[0].bytes[2], 127);
  EXPECT_EQ(events[2].bytes[2], 127);
  EXPECT_EQ(events[4].bytes[2], 20);
}

TEST_F(MmlCompile, TheVolumeOfSsgChannelsIsReadAnew) {
  sVol = 0;
  PlayOn(4, "C64V15C64");
  const TSeenList events = Rest();
  ASSERT_EQ(events.size(), 4u);
  EXPECT_EQ(events[0].bytes[2], 51);
  EXPECT_EQ(events[2].bytes[2], 0);
}

TEST_F(MmlCompile, VoicesFollowTheTable) {
  const int table[] = {6,   58, 40,  5,  39,  16,  19, 73, 68, 71,  11,  6,  112, 0,   120, 90, 97,
                       70,  99, 103, 93, 61,  58,  56, 43, 40, 5,   4,   5,  26,  39,  32,  16, 17,
                       19,  20, 73,  72, 68,  71,  9,  11, 13, 107, 104, 7,  6,   112, 46,  10, 22,
                       114, 47, 76,  99, 123, 96,  60, 94, 28, 37,  12,  14, 10,  42,  58,  79, 24,
                       63,  29, 38,  69, 94,  104, 88, 85, 32, 109, 98,  70, 91,  45};
  static_assert(std::size(table) == 82);
  for (int voice = 0; voice < 82; ++voice) {
    const int64_t begin = clock->system_time();
    PlayOn(2, "@" + std::to_string(voice) + "R64");
    EXPECT_EQ(Rest(), (TSeenList{program(begin + LATENCY - TICK, 2, table[voice])})) << voice;
  }
}

TEST_F(MmlCompile, SsgShapesFollowTheTable) {
  for (int shape = 0; shape < 15; ++shape) {
    const int64_t begin = clock->system_time();
    PlayOn(5, "S" + std::to_string(shape) + "R64");
    const int expected = shape == 8 || shape == 12 ? 81 : 80;
    EXPECT_EQ(Rest(), (TSeenList{program(begin + LATENCY - TICK, 5, expected)})) << shape;
  }
}

TEST_F(MmlCompile, AProgramChangePrecedesTheNoteOfItsTick) {
  PlayOn(1, "C@5D");
  EXPECT_EQ(Rest(), (TSeenList{note_on(At(0), 1, 72, 64), note_off(At(4032), 1, 72, 64),
                               program(At(4607), 1, 16), note_on(At(4608), 1, 74, 64),
                               note_off(At(8640), 1, 74, 64)}));
}

}  // namespace
