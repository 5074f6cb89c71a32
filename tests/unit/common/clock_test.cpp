// The clocks: the simulated one by exact times and orders, the real one by what needs no measuring.
#include "common/clock.h"

#include <gtest/gtest.h>

#include <thread>

#include "common/thread.h"

namespace zoka {
namespace {

/// A thread of the engine that runs a function.
class TTask : public TThread {
 public:
  TTask(TClock& clock, TActorClass order, std::function<void(TTask&)> body)
      : TThread("Task", 15, clock, order), mBody(std::move(body)) {}
  TWake& Wake() { return mWake; }

 private:
  int32_t Execute() override {
    mBody(*this);
    return 7;
  }
  std::function<void(TTask&)> mBody;
};

/// Makes the calling thread one of the engine.
class TEntered {
 public:
  explicit TEntered(TClock& clock, TActorClass order = TActorClass::Machine) : mClock(clock) {
    mClock.EnterThread(mClock.PrepareThread(order));
  }
  ~TEntered() { mClock.LeaveThread(); }

 private:
  TClock& mClock;
};

class SimulatedClock : public testing::Test {
 protected:
  std::unique_ptr<TClock> clock = make_simulated_clock();
};

TEST_F(SimulatedClock, StandsStillButForWaitsAndPolls) {
  TEntered entered(*clock);
  TWake wake(*clock);
  EXPECT_TRUE(clock->IsSimulated());
  EXPECT_EQ(clock->system_time(), 0);
  clock->Poll();
  EXPECT_EQ(clock->system_time(), 100);
  EXPECT_FALSE(clock->Wait(5000, wake));
  EXPECT_EQ(clock->system_time(), 5000);
  EXPECT_FALSE(clock->snooze(1, wake));
  EXPECT_EQ(clock->system_time(), 5001);
}

TEST_F(SimulatedClock, PassedDeadlineLooksAtTheSignalOnly) {
  TEntered entered(*clock);
  TWake wake(*clock);
  EXPECT_FALSE(clock->Wait(0, wake));
  EXPECT_FALSE(clock->Wait(-5, wake));
  wake.Signal();
  wake.Signal();
  EXPECT_TRUE(clock->Wait(0, wake));
  EXPECT_FALSE(clock->Wait(0, wake));
  EXPECT_EQ(clock->system_time(), 0);
}

TEST_F(SimulatedClock, KeptSignalEndsTheNextWaitWithoutTime) {
  TEntered entered(*clock);
  TWake wake(*clock);
  wake.Signal();
  EXPECT_TRUE(clock->Wait(FOREVER, wake));
  EXPECT_EQ(clock->system_time(), 0);
}

TEST_F(SimulatedClock, LocalTimeIsCountedOn) {
  clock = make_simulated_clock(TLocalTime{1999, 12, 31, 23, 59, 58});
  TEntered entered(*clock);
  TWake wake(*clock);
  clock->Wait(1'999'999, wake);
  EXPECT_EQ(clock->local_time().second, 59);
  clock->Wait(2'000'000, wake);
  const TLocalTime now = clock->local_time();
  EXPECT_EQ(now.year, 2000);
  EXPECT_EQ(now.month, 1);
  EXPECT_EQ(now.day, 1);
  EXPECT_EQ(now.hour, 0);
  EXPECT_EQ(now.minute, 0);
  EXPECT_EQ(now.second, 0);
}

TEST_F(SimulatedClock, LeapDay) {
  clock = make_simulated_clock(TLocalTime{2000, 2, 28, 12, 0, 0});
  TEntered entered(*clock);
  TWake wake(*clock);
  clock->snooze(86'400'000'000, wake);
  EXPECT_EQ(clock->local_time().month, 2);
  EXPECT_EQ(clock->local_time().day, 29);
}

TEST_F(SimulatedClock, EqualTimesAreServedByClassThenSerial) {
  TEntered entered(*clock);
  TWake wake(*clock);
  std::string log;
  const auto note = [&](const char* text) { return [&log, text] { log += text; }; };
  clock->StartTimer(500, false, note("k1 "), TActorClass::Keys);
  clock->StartTimer(500, false, note("t1 "), TActorClass::Timer);
  clock->StartTimer(500, false, note("p1 "), TActorClass::Player);
  clock->StartTimer(500, false, note("t2 "), TActorClass::Timer);
  clock->StartTimer(499, false, note("early "), TActorClass::Machine);
  clock->StartTimer(500, false, note("m "), TActorClass::Machine);
  EXPECT_FALSE(clock->Wait(500, wake));
  // The machine's own wait came after the last timer of its class.
  EXPECT_EQ(log, "early p1 t1 t2 k1 m ");
}

TEST_F(SimulatedClock, TimerWakesTheWaiterAtItsOwnTime) {
  TEntered entered(*clock);
  TWake wake(*clock);
  clock->StartTimer(1234, false, [&] { wake.Signal(); });
  EXPECT_TRUE(clock->Wait(20'000, wake));
  EXPECT_EQ(clock->system_time(), 1234);
}

TEST_F(SimulatedClock, RepeatingTimerKeepsItsGridAndMayBeCancelledByItself) {
  TEntered entered(*clock);
  TWake wake(*clock);
  std::vector<bigtime_t> times;
  TTimerId id = 0;
  id = clock->StartTimer(300, true, [&] {
    times.push_back(clock->system_time());
    if (times.size() == 3) clock->CancelTimer(id);
  });
  clock->Wait(5000, wake);
  EXPECT_EQ(times, (std::vector<bigtime_t>{300, 600, 900}));
}

TEST_F(SimulatedClock, RepeatingTimerWithoutDelayStillLetsTimePass) {
  TEntered entered(*clock);
  TWake wake(*clock);
  int rounds = 0;
  clock->StartTimer(0, true, [&] { ++rounds; });
  clock->Wait(10, wake);
  EXPECT_EQ(rounds, 10);
}

TEST_F(SimulatedClock, TimerMayStartAndCancelTimers) {
  TEntered entered(*clock);
  TWake wake(*clock);
  std::string log;
  const TTimerId victim = clock->StartTimer(200, false, [&] { log += "victim "; });
  clock->StartTimer(100, false, [&] {
    log += "first ";
    clock->CancelTimer(victim);
    clock->StartTimer(50, false, [&] { log += "second "; });
  });
  clock->Wait(1000, wake);
  EXPECT_EQ(log, "first second ");
  clock->CancelTimer(victim);
  clock->CancelTimer(0);
  clock->CancelTimer(999);
}

TEST_F(SimulatedClock, NegativeDelayIsNone) {
  TEntered entered(*clock);
  TWake wake(*clock);
  bigtime_t at = -1;
  clock->StartTimer(-5, false, [&] { at = clock->system_time(); });
  clock->Poll();
  EXPECT_EQ(at, 0);
  EXPECT_EQ(clock->system_time(), 100);
}

TEST_F(SimulatedClock, PollServesWhatIsDueOnItsWay) {
  TEntered entered(*clock);
  std::vector<bigtime_t> times;
  clock->StartTimer(100, false, [&] { times.push_back(clock->system_time()); });
  clock->StartTimer(101, false, [&] { times.push_back(clock->system_time()); });
  clock->Poll();
  EXPECT_EQ(times, (std::vector<bigtime_t>{100}));
  clock->Poll();
  EXPECT_EQ(times, (std::vector<bigtime_t>{100, 101}));
  EXPECT_EQ(clock->system_time(), 200);
}

TEST_F(SimulatedClock, RunningLongGoesOnToTheNextDeadline) {
  TEntered entered(*clock);
  clock->RunningLong();
  EXPECT_EQ(clock->system_time(), 100);
  bool fired = false;
  clock->StartTimer(7000, false, [&] { fired = true; });
  clock->RunningLong();
  EXPECT_EQ(clock->system_time(), 7100);
  EXPECT_TRUE(fired);
}

TEST_F(SimulatedClock, RunningLongLetsOthersOfTheSameTimeGoFirst) {
  TEntered entered(*clock, TActorClass::Player);
  bool fired = false;
  clock->StartTimer(
      0, false, [&] { fired = true; }, TActorClass::Machine);
  clock->RunningLong();
  EXPECT_TRUE(fired);
  EXPECT_EQ(clock->system_time(), 0);
}

TEST_F(SimulatedClock, ThreadsInterleaveByTime) {
  std::vector<std::string> log;  // written by whichever thread has the turn
  const auto body = [&](const char* name, bigtime_t step) {
    return [&log, name, step](TTask& task) {
      for (int i = 0; i < 3; ++i) {
        task.Clock().snooze(step, task.Wake());
        log.push_back(name + std::to_string(task.Clock().system_time()));
      }
    };
  };
  TTask machine(*clock, TActorClass::Machine, body("m", 200));
  TTask player(*clock, TActorClass::Player, body("p", 300));
  TTask starter(*clock, TActorClass::Keys, [&](TTask&) {
    machine.Resume();
    player.Resume();
  });
  starter.Resume();
  int32_t result = 0;
  starter.Wait(&result);
  EXPECT_EQ(result, 7);
  machine.Wait(nullptr);
  player.Wait(nullptr);
  EXPECT_EQ(log, (std::vector<std::string>{"m200", "p300", "m400", "p600", "m600", "p900"}));
}

TEST_F(SimulatedClock, NoTimePassesUntilAPreparedThreadHasEntered) {
  TEntered entered(*clock);
  TWake wake(*clock);
  bigtime_t begun = -1;
  TTask task(*clock, TActorClass::Player, [&](TTask& self) { begun = self.Clock().system_time(); });
  ASSERT_TRUE(task.Resume());
  EXPECT_FALSE(clock->Wait(10'000, wake));
  EXPECT_EQ(begun, 0);
  EXPECT_EQ(clock->system_time(), 10'000);
}

TEST_F(SimulatedClock, SignalFromAnotherThreadOfTheEngine) {
  TEntered entered(*clock);
  TWake wake(*clock);
  TTask task(*clock, TActorClass::Player, [&](TTask& self) {
    self.Clock().snooze(4321, self.Wake());
    wake.Signal();
  });
  task.Resume();
  EXPECT_TRUE(clock->Wait(FOREVER, wake));
  EXPECT_EQ(clock->system_time(), 4321);
}

TEST_F(SimulatedClock, HostEndsAWaitForEver) {
  TTask task(*clock, TActorClass::Machine, [](TTask& self) {
    while (!self.IsTerminated()) self.Clock().Wait(FOREVER, self.Wake());
  });
  task.Resume();
  task.Terminate();
  int32_t result = 0;
  task.Wait(&result);
  EXPECT_EQ(result, 7);
  EXPECT_EQ(clock->system_time(), 0);
}

TEST_F(SimulatedClock, HostTakesNoPart) {
  TWake wake(*clock);
  clock->Poll();
  clock->RunningLong();
  EXPECT_EQ(clock->system_time(), 0);
  EXPECT_FALSE(clock->Wait(1, wake));  // a microsecond of real time
  EXPECT_EQ(clock->system_time(), 0);
  clock->StartTimer(10, false, [] { FAIL() << "no thread of the engine was there"; });
  std::thread signaller([&] { wake.Signal(); });
  EXPECT_TRUE(clock->Wait(FOREVER, wake));
  signaller.join();
  EXPECT_EQ(clock->system_time(), 0);
}

TEST_F(SimulatedClock, TimerOfAHostRunsOnAWaitingThread) {
  std::atomic<bool> stop{false};
  TTask task(*clock, TActorClass::Machine, [&](TTask& self) {
    while (!stop) self.Clock().Wait(FOREVER, self.Wake());
  });
  task.Resume();
  bigtime_t at = -1;
  clock->StartTimer(77, false, [&] {
    at = clock->system_time();
    stop = true;
    task.Wake().Signal();
  });
  task.Wait(nullptr);
  EXPECT_EQ(at, 77);
}

TEST_F(SimulatedClock, TimersMayNotMoveTheTime) {
  TEntered entered(*clock);
  TWake wake(*clock);
  clock->StartTimer(10, false, [&] { clock->Poll(); });
  clock->Wait(20, wake);
  EXPECT_EQ(clock->system_time(), 20);
}

TEST_F(SimulatedClock, RealWaitStopsTheTime) {
  TWake inside(*clock);
  TWake answer(*clock);
  std::vector<bigtime_t> times;
  TTask machine(*clock, TActorClass::Machine, [&](TTask& self) {
    self.Clock().snooze(100, self.Wake());
    inside.Signal();
    self.Clock().RealWait(answer);
    times.push_back(self.Clock().system_time());
    self.Clock().snooze(1000, self.Wake());
    times.push_back(self.Clock().system_time());
  });
  clock->StartTimer(500, false, [&] { times.push_back(clock->system_time()); });
  machine.Resume();
  clock->Wait(FOREVER, inside);  // the test's own thread is a host's
  answer.Signal();
  machine.Wait(nullptr);
  EXPECT_EQ(times, (std::vector<bigtime_t>{100, 500, 1100}));
}

TEST_F(SimulatedClock, RealWaitTakesAKeptSignal) {
  TEntered entered(*clock);
  TWake wake(*clock);
  wake.Signal();
  clock->RealWait(wake);
  clock->Poll();
  EXPECT_EQ(clock->system_time(), 100);
}

TEST_F(SimulatedClock, AbandonedTokenHoldsNobodyUp) {
  TEntered entered(*clock);
  TWake wake(*clock);
  clock->AbandonThread(clock->PrepareThread(TActorClass::Player));
  EXPECT_FALSE(clock->Wait(10, wake));
  EXPECT_EQ(clock->system_time(), 10);
}

TEST_F(SimulatedClock, TwoClocksAreApart) {
  const auto other = make_simulated_clock();
  TEntered entered(*clock);
  {
    TEntered inner(*other);
    other->Poll();
    clock->Poll();  // the thread's part in the outer clock rests
  }
  clock->Poll();
  EXPECT_EQ(other->system_time(), 100);
  EXPECT_EQ(clock->system_time(), 100);
}

TEST_F(SimulatedClock, ManySignalsFromHostsLoseNothing) {
  constexpr int ROUNDS = 2000;
  std::atomic<int> given{0};
  int taken = 0;
  TTask machine(*clock, TActorClass::Machine, [&](TTask& self) {
    while (taken < ROUNDS) {
      self.Clock().Wait(FOREVER, self.Wake());
      while (taken < given) {
        ++taken;
        self.Clock().Poll();
      }
    }
  });
  machine.Resume();
  for (int i = 0; i < ROUNDS; ++i) {
    ++given;
    machine.Wake().Signal();
  }
  machine.Wait(nullptr);
  EXPECT_EQ(taken, ROUNDS);
  EXPECT_EQ(clock->system_time(), ROUNDS * 100);
}

TEST(RealClock, TimeGoesOnAndWaitsEnd) {
  const auto clock = make_real_clock();
  TWake wake(*clock);
  EXPECT_FALSE(clock->IsSimulated());
  const bigtime_t begin = clock->system_time();
  EXPECT_FALSE(clock->snooze(1000, wake));
  EXPECT_GE(clock->system_time(), begin + 1000);
  EXPECT_FALSE(clock->Wait(begin, wake));
  wake.Signal();
  EXPECT_TRUE(clock->Wait(begin, wake));
  EXPECT_FALSE(clock->Wait(begin, wake));
}

TEST(RealClock, SignalEndsAWaitForEver) {
  const auto clock = make_real_clock();
  TTask task(*clock, TActorClass::Machine, [](TTask& self) {
    while (!self.IsTerminated()) self.Clock().snooze(FOREVER, self.Wake());
  });
  EXPECT_TRUE(task.IsSuspended());
  task.Resume();
  EXPECT_FALSE(task.IsSuspended());
  task.Terminate();
  int32_t result = 0;
  task.Wait(&result);
  EXPECT_EQ(result, 7);
}

TEST(RealClock, TimersFireInOrderAndMayBeCancelled) {
  const auto clock = make_real_clock();
  TWake done(*clock);
  std::string log;  // written by the timer thread, read behind the signal
  const TTimerId never = clock->StartTimer(3'600'000'000, false, [&] { log += "never "; });
  clock->StartTimer(2000, false, [&] {
    log += "late ";
    done.Signal();
  });
  clock->StartTimer(1000, false, [&] { log += "early "; });
  EXPECT_TRUE(clock->Wait(FOREVER, done));
  clock->CancelTimer(never);
  EXPECT_EQ(log, "early late ");
}

TEST(RealClock, CancelledTimerIsOverWhenCancelReturns) {
  const auto clock = make_real_clock();
  TWake begun(*clock);
  int rounds = 0;
  const TTimerId id = clock->StartTimer(1, true, [&] {
    ++rounds;
    begun.Signal();
  });
  EXPECT_TRUE(clock->Wait(FOREVER, begun));
  clock->CancelTimer(id);
  const int seen = rounds;  // a data race if the function could still run
  EXPECT_GE(seen, 1);
}

TEST(RealClock, TimerMayCancelItself) {
  const auto clock = make_real_clock();
  TWake done(*clock);
  std::atomic<TTimerId> id{0};
  TWake known(*clock);
  id = clock->StartTimer(1, true, [&] {
    clock->Wait(clock->system_time() + 1'000'000, known);  // until the id is known
    clock->CancelTimer(id);
    done.Signal();
  });
  known.Signal();
  EXPECT_TRUE(clock->Wait(FOREVER, done));
}

TEST(Thread, NeverResumedEndsWithZero) {
  const auto clock = make_real_clock();
  TTask task(*clock, TActorClass::Machine, [](TTask&) {});
  int32_t result = 5;
  task.Wait(&result);
  EXPECT_EQ(result, 0);
}

TEST(Thread, ResumeAgainDoesNothingAndWaitMayBeRepeated) {
  const auto clock = make_simulated_clock();
  int runs = 0;
  TTask task(*clock, TActorClass::Player, [&](TTask&) { ++runs; });
  EXPECT_TRUE(task.Resume());
  task.Wait(nullptr);
  EXPECT_TRUE(task.Resume());
  int32_t result = 0;
  task.Wait(&result);
  EXPECT_EQ(result, 7);
  EXPECT_EQ(runs, 1);
}

TEST(Thread, HasItsNameAndAStackForDeepRecursion) {
  const auto clock = make_real_clock();
  char name[16] = "";
  size_t stack = 0;
  TTask task(*clock, TActorClass::Machine, [&](TTask&) {
    pthread_getname_np(pthread_self(), name, sizeof name);
    pthread_attr_t attributes;
    pthread_getattr_np(pthread_self(), &attributes);
    pthread_attr_getstacksize(&attributes, &stack);
    pthread_attr_destroy(&attributes);
  });
  task.Resume();
  task.Wait(nullptr);
  EXPECT_STREQ(name, "Task");
  EXPECT_GE(stack, ENGINE_STACK_BYTES);
}

}  // namespace
}  // namespace zoka
