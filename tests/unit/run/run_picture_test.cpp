// When the run view's picture is composed, on a clock that is set by hand.
#include "run/run_picture.h"

#include <gtest/gtest.h>

#include <map>
#include <thread>
#include <vector>

namespace zoka {
namespace {

/// Time is what `now` says; timers ring when the test lets them.
class THandClock final : public TClock {
 public:
  bigtime_t system_time() override { return now; }
  TLocalTime local_time() override { return {}; }
  bool IsSimulated() const override { return true; }
  bool Wait(bigtime_t, TWake&) override { return false; }
  void Poll() override {}
  void RunningLong() override {}
  TTimerId StartTimer(bigtime_t delay, bool repeat, std::function<void()> fn,
                      TActorClass) override {
    timers[++mLastTimer] = {delay, repeat, std::move(fn)};
    return mLastTimer;
  }
  void CancelTimer(TTimerId id) override { timers.erase(id); }
  uint64_t PrepareThread(TActorClass) override { return 0; }
  void EnterThread(uint64_t) override {}
  void LeaveThread() override {}
  void AbandonThread(uint64_t) override {}
  void RealWait(TWake&) override {}

  struct TTimer {
    bigtime_t delay;
    bool repeat;
    std::function<void()> fn;
  };
  bigtime_t now = 1'000'000;
  std::map<TTimerId, TTimer> timers;

 private:
  void SignalWake(TWake&) override {}
  void ForgetWake(TWake&) override {}

  TTimerId mLastTimer = 0;
};

class TPictureHost final : public TRunHost {
 public:
  void Post(std::function<void()> fn) override { posted.push_back(std::move(fn)); }
  void Present(const TRect& rect) override { presented.push_back(rect); }
  void ComposeSoon() override { ++frames; }
  bool WantsPicture() const override { return isLookedAt; }

  bool isLookedAt = true;
  int frames = 0;
  std::vector<TRect> presented;
  std::vector<std::function<void()>> posted;
};

class TPictureTimingTest : public testing::Test {
 protected:
  TPictureTimingTest() { rsrc.TakeModifiedRect(); }
  /// Changes a part of the screen and says so.
  void Change(const TRect& r) {
    rsrc.SetScrModifiedKernel2(r);
    picture.Update();
  }
  std::vector<TRect> TakePresented() { return std::exchange(host.presented, {}); }

  THandClock clock;
  TPictureHost host;
  TBasicRsrc rsrc{clock};
  TRunPicture picture{clock, host, rsrc};
};

using TRects = std::vector<TRect>;
constexpr TRect FIRST{0, 0, 7, 15};
constexpr TRect SECOND{100, 32, 107, 47};
constexpr TRect BOTH{0, 0, 107, 47};

TEST_F(TPictureTimingTest, AChangeIsComposedAtOnce) {
  Change(FIRST);
  EXPECT_EQ(TakePresented(), TRects{FIRST});
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
  EXPECT_EQ(host.frames, 0);
}

TEST_F(TPictureTimingTest, Within8MillisecondsItIsLeftToOneFrameOfTheHost) {
  Change(FIRST);
  TakePresented();
  clock.now += 7999;
  Change(SECOND);
  Change(FIRST);
  clock.now += 50'000;  // the frame is late
  Change(SECOND);
  EXPECT_EQ(TakePresented(), TRects{});
  EXPECT_EQ(host.frames, 1);
  EXPECT_EQ(rsrc.ModifiedRect(), BOTH);
  picture.Flush();
  EXPECT_EQ(TakePresented(), TRects{BOTH});
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
  clock.now += 8000;
  Change(FIRST);
  EXPECT_EQ(TakePresented(), TRects{FIRST});
  clock.now += 1;
  Change(FIRST);
  EXPECT_EQ(host.frames, 2);
}

TEST_F(TPictureTimingTest, WhatWasHeldBackIsComposedBeforeAWait) {
  picture.ComposeHeldBack();
  EXPECT_EQ(TakePresented(), TRects{});
  Change(FIRST);
  Change(SECOND);
  TakePresented();
  picture.ComposeHeldBack();
  EXPECT_EQ(TakePresented(), TRects{SECOND});
  // The frame that was asked for finds nothing.
  picture.Flush();
  EXPECT_EQ(TakePresented(), TRects{});
}

TEST_F(TPictureTimingTest, WhatNobodyLooksAtIsForgotten) {
  host.isLookedAt = false;
  Change(FIRST);
  EXPECT_EQ(TakePresented(), TRects{});
  EXPECT_EQ(host.frames, 0);
  EXPECT_FALSE(rsrc.ModifiedRect().IsValid());
}

TEST_F(TPictureTimingTest, AWindowThatIsBusyTooLongGetsTheChangeLater) {
  picture.Lock().lock();
  std::thread([&] { Change(FIRST); }).join();  // returns after the limit of real time
  EXPECT_EQ(TakePresented(), TRects{});
  EXPECT_EQ(rsrc.ModifiedRect(), FIRST);
  EXPECT_EQ(host.frames, 1);
  picture.Lock().unlock();
  picture.Flush();
  EXPECT_EQ(TakePresented(), TRects{FIRST});
}

TEST_F(TPictureTimingTest, TheCursorBlinksTwiceASecondWhileItIsShown) {
  picture.StartBlinking();
  picture.StartBlinking();  // once more makes no second timer
  ASSERT_EQ(clock.timers.size(), 1u);
  const THandClock::TTimer timer = clock.timers.begin()->second;
  EXPECT_EQ(timer.delay, 500'000);
  EXPECT_TRUE(timer.repeat);
  // The phase changes on the host's thread, also without a cursor.
  const auto blink = [&] {
    timer.fn();
    ASSERT_EQ(host.posted.size(), 1u);
    std::exchange(host.posted, {})[0]();
  };
  blink();
  EXPECT_EQ(TakePresented(), TRects{});
  rsrc.SetCursorShown(true);
  rsrc.TakeModifiedRect();
  const auto pixel = [&] { return picture.Frame().Row(8)[4]; };
  blink();
  EXPECT_EQ(TakePresented().size(), 1u);
  EXPECT_EQ(pixel(), 0xFF000000);
  blink();
  EXPECT_EQ(pixel(), 0xFFFFFFFF);
  blink();
  EXPECT_EQ(pixel(), 0xFF000000);
  picture.StopBlinking();
  EXPECT_TRUE(clock.timers.empty());
}

}  // namespace
}  // namespace zoka
