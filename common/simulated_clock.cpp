// A clock that stands still but for waits and polls. All that is due lies in one queue; exactly one
// of the threads that have entered runs, and whichever gives way finds the next and runs timers.
#include <limits>
#include <map>
#include <thread>
#include <unordered_map>

#include "common/clock.h"
#include "common/clock_timer.h"
#include "common/host_wait.h"

namespace zoka {

namespace {

/// What one poll costs.
constexpr bigtime_t POLL_TIME = 100;

/// A thread that takes part, from its PrepareThread to its LeaveThread.
struct TActor {
  uint64_t token = 0;
  TClock* clock = nullptr;
  TActorClass order = TActorClass::Machine;
  std::condition_variable turn;
  TClockKey key;
  bool queued = false;
  bool entered = false;
  bool realWait = false;
  bool signalled = false;
  TActor* outer = nullptr;  // the same thread's part in another clock
};

/// The part that the calling thread plays, if any.
thread_local TActor* gActor = nullptr;

}  // namespace

class TSimulatedClock final : public TClock {
 public:
  explicit TSimulatedClock(const TLocalTime& start) : mStart(start) {}

  bigtime_t system_time() override { return mNow.load(std::memory_order_relaxed); }
  TLocalTime local_time() override;
  bool IsSimulated() const override { return true; }
  bool Wait(bigtime_t deadline, TWake& wake) override;
  void Poll() override;
  void RunningLong() override;
  TTimerId StartTimer(bigtime_t delay, bool repeat, std::function<void()> fn,
                      TActorClass order) override;
  void CancelTimer(TTimerId id) override;
  uint64_t PrepareThread(TActorClass order) override;
  void EnterThread(uint64_t token) override;
  void LeaveThread() override;
  void AbandonThread(uint64_t token) override;
  void RealWait(TWake& wake) override;

 protected:
  void SignalWake(TWake& wake) override;
  void ForgetWake(TWake& wake) override;

 private:
  using TGuard = std::unique_lock<std::mutex>;
  /// Either a thread or a timer.
  struct TEvent {
    TActor* actor = nullptr;
    TTimerId timer = 0;
  };

  /// The calling thread's part in this clock, or null.
  TActor* Self() const { return gActor && gActor->clock == this ? gActor : nullptr; }
  TClockKey Enqueue(bigtime_t when, TActorClass order, TEvent event);
  void EnqueueActor(TActor& actor, bigtime_t when, TActorClass order);
  void Dequeue(const TClockKey& key);
  void PublishNextTime();
  bool HostWait(TGuard& lock, bigtime_t deadline, TWake& wake);
  void GiveWay(TGuard& lock, TActor& self);
  void Dispatch(TGuard& lock);
  void Fire(TGuard& lock, TTimerId id);
  void Kick();
  void Remove(TActor& actor);

  const TLocalTime mStart;
  std::atomic<bigtime_t> mNow{0};
  /// Time of the first event: below it a poll needs no lock. The least number in a real wait.
  std::atomic<bigtime_t> mNextTime{FOREVER};

  std::mutex mLock;
  std::map<TClockKey, TEvent> mQueue;
  std::map<uint64_t, std::unique_ptr<TActor>> mActors;
  std::unordered_map<TTimerId, std::shared_ptr<TClockTimer>> mTimers;
  std::condition_variable mFired;
  TActor* mRunning = nullptr;  // who has the turn
  bool mDispatching = false;   // a timer's function runs; nobody has the turn
  int mRealWaits = 0;
  TTimerId mFiring = 0;
  std::thread::id mFiringThread;
  uint64_t mLastToken = 0;
  uint64_t mLastSerial = 0;
  TTimerId mLastTimer = 0;
};

TLocalTime TSimulatedClock::local_time() {
  return local_time_after(mStart, system_time());
}

TClockKey TSimulatedClock::Enqueue(bigtime_t when, TActorClass order, TEvent event) {
  const TClockKey key{when, order, ++mLastSerial};
  mQueue.emplace(key, event);
  PublishNextTime();
  return key;
}

void TSimulatedClock::EnqueueActor(TActor& actor, bigtime_t when, TActorClass order) {
  actor.key = Enqueue(when, order, {&actor, 0});
  actor.queued = true;
}

void TSimulatedClock::Dequeue(const TClockKey& key) {
  mQueue.erase(key);
  PublishNextTime();
}

void TSimulatedClock::PublishNextTime() {
  bigtime_t next = mQueue.empty() ? FOREVER : std::get<0>(mQueue.begin()->first);
  if (mRealWaits > 0) next = std::numeric_limits<bigtime_t>::min();
  mNextTime.store(next, std::memory_order_relaxed);
}

bool TSimulatedClock::HostWait(TGuard& lock, bigtime_t deadline, TWake& wake) {
  const bigtime_t hostDeadline =
      deadline == FOREVER ? FOREVER : add_times(host_time(), deadline - system_time());
  return host_wait(lock, wake.mChanged, wake.mSignalled, hostDeadline);
}

bool TSimulatedClock::Wait(bigtime_t deadline, TWake& wake) {
  TGuard lock(mLock);
  TActor* self = Self();
  if (!self) return HostWait(lock, deadline, wake);
  if (wake.mSignalled) {
    wake.mSignalled = false;
    return true;
  }
  if (deadline <= system_time()) return false;
  wake.mWaiter = self;
  if (deadline != FOREVER) EnqueueActor(*self, deadline, self->order);
  GiveWay(lock, *self);
  wake.mWaiter = nullptr;
  return self->signalled;
}

void TSimulatedClock::Poll() {
  TActor* self = Self();
  if (!self) return;
  // Only the thread that has the turn moves the time, so it needs no lock while nothing is due.
  const bigtime_t until = system_time() + POLL_TIME;
  if (until < mNextTime.load(std::memory_order_relaxed)) {
    mNow.store(until, std::memory_order_relaxed);
    return;
  }
  TGuard lock(mLock);
  EnqueueActor(*self, until, self->order);
  GiveWay(lock, *self);
}

void TSimulatedClock::RunningLong() {
  TActor* self = Self();
  if (!self) return;
  TGuard lock(mLock);
  const bigtime_t now = system_time();
  const bigtime_t next =
      mQueue.empty() ? now + POLL_TIME : std::max(now, std::get<0>(mQueue.begin()->first));
  // Behind all others of that time, or who runs long would be served again and again.
  EnqueueActor(*self, next, TActorClass::Machine);
  GiveWay(lock, *self);
}

/// Gives the turn away and comes back with it. The calling thread does the work of finding who is
/// next for as long as there is something to find.
void TSimulatedClock::GiveWay(TGuard& lock, TActor& self) {
  self.signalled = false;
  mRunning = nullptr;
  for (;;) {
    Dispatch(lock);
    if (mRunning == &self) return;
    self.turn.wait(lock);
  }
}

void TSimulatedClock::Dispatch(TGuard& lock) {
  while (!mRunning && !mDispatching && !mQueue.empty()) {
    const auto [key, event] = *mQueue.begin();
    const bigtime_t when = std::get<0>(key);
    if (when > system_time()) {
      if (mRealWaits > 0) return;
      mNow.store(when, std::memory_order_relaxed);
    }
    Dequeue(key);
    if (event.actor) {
      event.actor->queued = false;
      mRunning = event.actor;
      mRunning->turn.notify_one();
    } else {
      Fire(lock, event.timer);
    }
  }
}

void TSimulatedClock::Fire(TGuard& lock, TTimerId id) {
  const auto timer = mTimers.at(id);
  if (!timer->repeat) mTimers.erase(id);
  mDispatching = true;
  mFiring = id;
  mFiringThread = std::this_thread::get_id();
  TActor* const self = gActor;
  gActor = nullptr;  // inside the function the thread counts as a host's: it must not wait here
  lock.unlock();
  timer->fn();
  lock.lock();
  gActor = self;
  mDispatching = false;
  mFiring = 0;
  mFired.notify_all();
  if (mTimers.contains(id)) {
    const bigtime_t next = add_times(std::get<0>(timer->key), timer->delay);
    timer->key = Enqueue(next, timer->order, {nullptr, id});
  }
}

/// Something is due that was not before, and perhaps everybody waits: has one of them look.
void TSimulatedClock::Kick() {
  if (mRunning || mDispatching) return;
  for (const auto& [token, actor] : mActors) {
    if (!actor->entered) continue;
    actor->turn.notify_one();
    return;
  }
}

TTimerId TSimulatedClock::StartTimer(bigtime_t delay, bool repeat, std::function<void()> fn,
                                     TActorClass order) {
  TGuard lock(mLock);
  auto timer = std::make_shared<TClockTimer>(delay, repeat, std::move(fn), order);
  const TTimerId id = ++mLastTimer;
  timer->key = Enqueue(add_times(system_time(), timer->delay), order, {nullptr, id});
  mTimers.emplace(id, std::move(timer));
  Kick();
  return id;
}

void TSimulatedClock::CancelTimer(TTimerId id) {
  TGuard lock(mLock);
  if (const auto it = mTimers.find(id); it != mTimers.end()) {
    Dequeue(it->second->key);
    mTimers.erase(it);
  }
  while (id != 0 && mFiring == id && mFiringThread != std::this_thread::get_id()) {
    mFired.wait(lock);
  }
}

uint64_t TSimulatedClock::PrepareThread(TActorClass order) {
  TGuard lock(mLock);
  auto actor = std::make_unique<TActor>();
  actor->token = ++mLastToken;
  actor->clock = this;
  actor->order = order;
  // Due at once: until it has entered nobody else's time comes.
  EnqueueActor(*actor, system_time(), order);
  const uint64_t token = actor->token;
  mActors.emplace(token, std::move(actor));
  Kick();
  return token;
}

void TSimulatedClock::EnterThread(uint64_t token) {
  TGuard lock(mLock);
  TActor& self = *mActors.at(token);
  self.outer = gActor;
  self.entered = true;
  for (Dispatch(lock); mRunning != &self; Dispatch(lock)) self.turn.wait(lock);
  gActor = &self;
}

void TSimulatedClock::LeaveThread() {
  TActor* self = Self();
  if (!self) return;
  gActor = self->outer;
  TGuard lock(mLock);
  Remove(*self);
}

void TSimulatedClock::AbandonThread(uint64_t token) {
  TGuard lock(mLock);
  if (const auto it = mActors.find(token); it != mActors.end()) Remove(*it->second);
}

void TSimulatedClock::Remove(TActor& actor) {
  if (actor.queued) Dequeue(actor.key);
  if (mRunning == &actor) mRunning = nullptr;
  mActors.erase(actor.token);
  Kick();
}

void TSimulatedClock::RealWait(TWake& wake) {
  TGuard lock(mLock);
  TActor* self = Self();
  if (!self) {
    host_wait(lock, wake.mChanged, wake.mSignalled, FOREVER);
    return;
  }
  if (wake.mSignalled) {
    wake.mSignalled = false;
    return;
  }
  wake.mWaiter = self;
  self->realWait = true;
  ++mRealWaits;
  PublishNextTime();
  GiveWay(lock, *self);
  wake.mWaiter = nullptr;
}

void TSimulatedClock::SignalWake(TWake& wake) {
  TGuard lock(mLock);
  auto* actor = static_cast<TActor*>(wake.mWaiter);
  if (!actor) {
    wake.mSignalled = true;
    wake.mChanged.notify_all();
    return;
  }
  if (mRunning == actor) {
    // Its time came just now: this signal is for its next wait.
    wake.mSignalled = true;
    return;
  }
  wake.mWaiter = nullptr;
  actor->signalled = true;
  if (actor->realWait) {
    actor->realWait = false;
    --mRealWaits;
  }
  if (actor->queued) Dequeue(actor->key);
  EnqueueActor(*actor, system_time(), actor->order);
  Kick();
}

void TSimulatedClock::ForgetWake(TWake& wake) {
  TGuard lock(mLock);
  wake.mWaiter = nullptr;
}

std::unique_ptr<TClock> make_simulated_clock(const TLocalTime& start) {
  return std::make_unique<TSimulatedClock>(start);
}

}  // namespace zoka
