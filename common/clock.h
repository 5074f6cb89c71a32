// The one clock of an engine: the time of day, waits and timers, real or simulated. It is the only
// place where a thread of the engine blocks; nothing else sleeps or reads a system clock.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "common/types.h"

namespace zoka {

/// A local date and time. `month` is 1 to 12, `year` the full year.
struct TLocalTime {
  int year = 1970;
  int month = 1;
  int day = 1;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// Who is served first of those due at the same simulated time.
enum class TActorClass : uint8_t { Player, Timer, Keys, Machine };

class TClock;

/// What a thread of the engine waits on besides the time. One thread waits, any thread signals; a
/// signal given while nobody waits is kept for the next wait (once, like a flag).
/// The clock outlives the wake.
class TWake {
 public:
  explicit TWake(TClock& clock);
  ~TWake();
  TWake(const TWake&) = delete;
  TWake& operator=(const TWake&) = delete;

  /// Wakes the waiting thread, or lets its next wait return at once. Any thread. Call it with no
  /// leaf lock held.
  void Signal();

 private:
  friend class TClock;
  friend class TRealClock;
  friend class TSimulatedClock;
  TClock& mClock;
  bool mSignalled = false;           // under the clock's lock
  void* mWaiter = nullptr;           // the clock's own record of who waits here
  std::condition_variable mChanged;  // used by the real clock
};

/// Names a running timer; 0 is none.
using TTimerId = uint64_t;

/// Interface of the clock. All operations may be called from any thread unless stated.
class TClock {
 public:
  virtual ~TClock() = default;

  /// Microseconds since a fixed moment (boot on the real clock). Never goes back.
  virtual bigtime_t system_time() = 0;

  /// The local date and time now. The simulated clock counts it on from its start value.
  virtual TLocalTime local_time() = 0;

  /// True if time passes only in waits and polls.
  virtual bool IsSimulated() const = 0;

  /// Blocks the calling thread until `deadline` (of system_time) or until `wake` is signalled;
  /// FOREVER waits for the signal alone. Returns true if it was the signal, which is used up.
  /// A deadline that has passed returns at once, after a look at the signal.
  /// A thread that has not entered a simulated clock takes no part in its time: it waits in real
  /// time, for the signal or as long as the deadline is away.
  virtual bool Wait(bigtime_t deadline, TWake& wake) = 0;

  /// A look at something that only time changes (an empty key buffer, the time of day, a counter).
  /// On the simulated clock it lets 100 microseconds pass, so that polling programs get on; on the
  /// real clock it does nothing.
  virtual void Poll() = 0;

  /// The machine has run long without waiting or polling: the simulated clock goes on to the next
  /// deadline of anybody (with none, by 100 microseconds); the real clock does nothing.
  virtual void RunningLong() = 0;

  /// Calls `fn` after `delay` microseconds, and then each `delay` again if `repeat`. `fn` runs on
  /// the clock's own thread (real) or on whichever thread of the engine gives way (simulated); it
  /// must be short, must not wait, and may start or cancel timers.
  virtual TTimerId StartTimer(bigtime_t delay, bool repeat, std::function<void()> fn,
                              TActorClass order = TActorClass::Timer) = 0;

  /// Stops a timer. When it returns, the timer's function neither runs nor will run, unless it is
  /// called from that function itself. An unknown or ended id is ignored.
  virtual void CancelTimer(TTimerId id) = 0;

  /// Brackets the life of an engine thread that waits on this clock (the machine, the player).
  /// On the simulated clock exactly one of these runs at a time: Enter blocks until it is this
  /// one's turn. PrepareThread is called by the creator before the thread starts, so that no time
  /// passes meanwhile; it returns the token for Enter. For a thread that has not entered, Poll and
  /// RunningLong do nothing.
  virtual uint64_t PrepareThread(TActorClass order) = 0;
  virtual void EnterThread(uint64_t token) = 0;
  virtual void LeaveThread() = 0;
  /// Gives a token back that no thread will enter with, since it could not be started.
  virtual void AbandonThread(uint64_t token) = 0;

  /// Simulated time stands still while a thread of the engine is inside a real wait (a shown alert,
  /// a debugger's break). Brackets such a wait, which itself blocks on `wake` alone.
  virtual void RealWait(TWake& wake) = 0;

  /// Sleeps; ended early only by `wake` (then true).
  bool snooze(bigtime_t span, TWake& wake);

 protected:
  friend class TWake;
  virtual void SignalWake(TWake& wake) = 0;
  virtual void ForgetWake(TWake& wake) = 0;
};

/// The local time that is `elapsed` microseconds behind `start`, fractions of a second dropped.
TLocalTime local_time_after(const TLocalTime& start, bigtime_t elapsed);

/// The host's clock. With `start` its local time begins there and goes on from it.
std::unique_ptr<TClock> make_real_clock(const std::optional<TLocalTime>& start = {});

/// A clock that stands still but for waits and polls. `start` is its local time at system_time 0.
std::unique_ptr<TClock> make_simulated_clock(const TLocalTime& start = TLocalTime{1980, 1, 1});

}  // namespace zoka
