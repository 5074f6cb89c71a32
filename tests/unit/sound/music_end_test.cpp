// The wait for music that goes on behind its program.
#include "sound/music_end.h"

#include "tests/unit/sound/sound_fixture.h"

using namespace zoka;
using namespace zoka_test;

namespace {

using MusicEnd = TSoundTest;

// The test stops being the machine, as a program does that has ended, and becomes it again.
class THostPart {
 public:
  explicit THostPart(TClock& clock) : mClock(clock) { mClock.LeaveThread(); }
  ~THostPart() { mClock.EnterThread(mClock.PrepareThread(TActorClass::Machine)); }

 private:
  TClock& mClock;
};

TEST_F(MusicEnd, AllMusicSoundsBeforeTheEnd) {
  Play({"MBCDEFG"});
  TMusicEnd end(*clock, *player, 0);
  end.Start();
  {
    const THostPart host(*clock);
    end.WaitForEnd();
  }
  EXPECT_EQ(sink.events.size(), 10u);
  EXPECT_EQ(sink.events.back(), note_off(At(22464), 1, 79, 64));
  EXPECT_GE(clock->system_time(), At(22464));
}

TEST_F(MusicEnd, TheTailComesBehindTheMusic) {
  Play({"MBC"});
  const bigtime_t tail = 1234567;
  TMusicEnd end(*clock, *player, tail);
  end.Start();
  {
    const THostPart host(*clock);
    end.WaitForEnd();
  }
  // The queue is seen empty at 500,000.
  EXPECT_EQ(clock->system_time(), 500000 + tail);
}

TEST_F(MusicEnd, WithoutMusicThereIsNoWait) {
  TMusicEnd end(*clock, *player, 0);
  end.Start();
  {
    const THostPart host(*clock);
    end.WaitForEnd();
  }
  EXPECT_EQ(clock->system_time(), 0);
  EXPECT_TRUE(sink.events.empty());
}

TEST_F(MusicEnd, StopSilencesTheMusic) {
  Play({"MBL1CDEFG"});
  TMusicEnd end(*clock, *player, 0);
  clock->StartTimer(100000, false, [&] { end.Stop(); });
  end.Start();
  {
    const THostPart host(*clock);
    end.WaitForEnd();
  }
  // The note, three control changes on seven channels, the note's end.
  ASSERT_EQ(sink.events.size(), 23u);
  EXPECT_EQ(sink.events[1 + 6], note_off(100000, 1, 72, 0));
}

}  // namespace
