// The wait for music that goes on behind its program.
#include "sound/music_end.h"

#include "tests/unit/sound/sound_fixture.h"

using namespace zoka;
using namespace zoka_test;

namespace {

using MusicEnd = TSoundTest;

TEST_F(MusicEnd, AllMusicSoundsBeforeTheEnd) {
  Play({"MBCDEFG"});
  wait_for_music(*player, 0, Caller());
  ASSERT_EQ(sink.events.size(), 10u);
  EXPECT_EQ(sink.events.back(), note_off(At(22464), 1, 79, 64));
  EXPECT_GE(clock->system_time(), At(22464));
}

TEST_F(MusicEnd, TheTailComesBehindTheMusic) {
  Play({"MBC"});
  const bigtime_t tail = 1234567;
  wait_for_music(*player, tail, Caller());
  // The queue is seen empty at 500,000.
  EXPECT_EQ(clock->system_time(), 500000 + tail);
}

TEST_F(MusicEnd, WithoutMusicThereIsNoWait) {
  wait_for_music(*player, 0, Caller());
  EXPECT_EQ(clock->system_time(), 0);
  EXPECT_TRUE(sink.events.empty());
}

TEST_F(MusicEnd, WhoIsAskedToEndSilencesTheMusic) {
  Play({"MBL1CDEFG"});
  clock->StartTimer(100000, false, [this] {
    machine.terminated = true;
    wake.Signal();
  });
  wait_for_music(*player, 5000000, Caller());
  EXPECT_EQ(clock->system_time(), 100000);
  // The note, three control changes on seven channels, the note's end.
  ASSERT_EQ(sink.events.size(), 23u);
  EXPECT_EQ(sink.events[1 + 6], note_off(100000, 1, 72, 0));
}

TEST_F(MusicEnd, TheTailMayBeCutToo) {
  Play({"MBC"});
  clock->StartTimer(700001, false, [this] {
    machine.terminated = true;
    wake.Signal();
  });
  wait_for_music(*player, 5000000, Caller());
  EXPECT_EQ(clock->system_time(), 700001);
}

}  // namespace
