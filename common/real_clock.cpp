// The host's clock: waits on condition variables, and one thread for all timers, which starts with
// the first timer.
#include <ctime>
#include <map>
#include <thread>
#include <unordered_map>

#include "common/clock.h"
#include "common/clock_timer.h"
#include "common/host_wait.h"

namespace zoka {

class TRealClock final : public TClock {
 public:
  explicit TRealClock(const std::optional<TLocalTime>& start) : mStart(start) {}
  ~TRealClock() override;

  bigtime_t system_time() override { return host_time(); }
  TLocalTime local_time() override;
  bool IsSimulated() const override { return false; }
  bool Wait(bigtime_t deadline, TWake& wake) override;
  void Poll() override {}
  void RunningLong() override {}
  TTimerId StartTimer(bigtime_t delay, bool repeat, std::function<void()> fn,
                      TActorClass order) override;
  void CancelTimer(TTimerId id) override;
  uint64_t PrepareThread(TActorClass) override { return 0; }
  void EnterThread(uint64_t) override {}
  void LeaveThread() override {}
  void AbandonThread(uint64_t) override {}
  void RealWait(TWake& wake) override { Wait(FOREVER, wake); }

 protected:
  void SignalWake(TWake& wake) override;
  void ForgetWake(TWake& wake) override;

 private:
  using TGuard = std::unique_lock<std::mutex>;

  void Enqueue(TTimerId id, TClockTimer& timer, bigtime_t when);
  void RunTimers();
  void Fire(TGuard& lock);
  void AwaitNextTimer(TGuard& lock);

  const std::optional<TLocalTime> mStart;
  const bigtime_t mMadeAt = host_time();
  std::mutex mLock;
  std::condition_variable mTimersChanged;
  std::condition_variable mFired;
  std::map<TClockKey, TTimerId> mQueue;
  std::unordered_map<TTimerId, std::shared_ptr<TClockTimer>> mTimers;
  TTimerId mLastId = 0;
  uint64_t mLastSerial = 0;
  TTimerId mFiring = 0;
  bool mEnding = false;
  std::thread mThread;
};

TRealClock::~TRealClock() {
  {
    TGuard lock(mLock);
    mEnding = true;
  }
  mTimersChanged.notify_all();
  if (mThread.joinable()) mThread.join();
}

TLocalTime TRealClock::local_time() {
  if (mStart) return local_time_after(*mStart, host_time() - mMadeAt);
  const time_t now = time(nullptr);
  tm parts{};
  localtime_r(&now, &parts);
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
          parts.tm_hour,        parts.tm_min,     parts.tm_sec};
}

bool TRealClock::Wait(bigtime_t deadline, TWake& wake) {
  TGuard lock(mLock);
  return host_wait(lock, wake.mChanged, wake.mSignalled, deadline);
}

void TRealClock::SignalWake(TWake& wake) {
  // Notified under the lock: the waiter may destroy the wake as soon as it sees the flag.
  TGuard lock(mLock);
  wake.mSignalled = true;
  wake.mChanged.notify_all();
}

void TRealClock::ForgetWake(TWake&) {
  // A signal that is just being given still holds the lock.
  TGuard lock(mLock);
}

void TRealClock::Enqueue(TTimerId id, TClockTimer& timer, bigtime_t when) {
  timer.key = {when, timer.order, ++mLastSerial};
  mQueue.emplace(timer.key, id);
}

TTimerId TRealClock::StartTimer(bigtime_t delay, bool repeat, std::function<void()> fn,
                                TActorClass order) {
  TGuard lock(mLock);
  auto timer = std::make_shared<TClockTimer>(delay, repeat, std::move(fn), order);
  const TTimerId id = ++mLastId;
  Enqueue(id, *timer, add_times(host_time(), timer->delay));
  mTimers.emplace(id, std::move(timer));
  if (!mThread.joinable()) mThread = std::thread(&TRealClock::RunTimers, this);
  mTimersChanged.notify_all();
  return id;
}

void TRealClock::CancelTimer(TTimerId id) {
  TGuard lock(mLock);
  if (const auto it = mTimers.find(id); it != mTimers.end()) {
    mQueue.erase(it->second->key);
    mTimers.erase(it);
  }
  if (mThread.get_id() == std::this_thread::get_id()) return;
  while (mFiring == id && id != 0) mFired.wait(lock);
}

void TRealClock::RunTimers() {
  TGuard lock(mLock);
  while (!mEnding) {
    if (mQueue.empty()) {
      mTimersChanged.wait(lock);
    } else if (std::get<0>(mQueue.begin()->first) > host_time()) {
      AwaitNextTimer(lock);
    } else {
      Fire(lock);
    }
  }
}

void TRealClock::AwaitNextTimer(TGuard& lock) {
  const bigtime_t now = host_time();
  const bigtime_t span = std::min(std::get<0>(mQueue.begin()->first) - now, MAX_HOST_WAIT);
  mTimersChanged.wait_until(
      lock, std::chrono::steady_clock::time_point(std::chrono::microseconds(now + span)));
}

void TRealClock::Fire(TGuard& lock) {
  const auto [key, id] = *mQueue.begin();
  mQueue.erase(mQueue.begin());
  const auto timer = mTimers.at(id);
  if (!timer->repeat) mTimers.erase(id);
  mFiring = id;
  lock.unlock();
  timer->fn();
  lock.lock();
  mFiring = 0;
  mFired.notify_all();
  // Rounds that were missed (the host slept) are left out.
  if (mTimers.contains(id)) {
    Enqueue(id, *timer, std::max(add_times(std::get<0>(key), timer->delay), host_time()));
  }
}

std::unique_ptr<TClock> make_real_clock(const std::optional<TLocalTime>& start) {
  return std::make_unique<TRealClock>(start);
}

}  // namespace zoka
