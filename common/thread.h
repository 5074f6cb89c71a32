// TThread: a thread of the engine that starts suspended, may be asked to end, and is waited for.
// It knows nothing of what runs on it.
#pragma once

#include <pthread.h>

#include <atomic>
#include <cstddef>
#include <string>

#include "common/clock.h"

namespace zoka {

/// Stack size of an engine thread: the compiler and DEF FN recurse on the program's own nesting.
constexpr size_t ENGINE_STACK_BYTES = 64u << 20;

/// A thread whose body is Execute. The object outlives its thread: Wait for it before deleting.
class TThread {
 public:
  /// Creates the thread suspended. `priority` is the scheduling wish of the design (15 is an
  /// ordinary thread, 120 a real-time one); a wish that the host refuses is ignored.
  TThread(const char* name, int32_t priority, TClock& clock, TActorClass order);
  virtual ~TThread();
  TThread(const TThread&) = delete;
  TThread& operator=(const TThread&) = delete;

  /// Asks the thread to end: sets the request and wakes the thread from a wait on mWake. Execute
  /// has to look at it. Any thread.
  virtual void Terminate();
  bool IsTerminated() const { return mTerminated.load(std::memory_order_acquire); }

  /// Starts the thread, once. False if the host refuses a thread: it then counts as ended with 0.
  bool Resume();
  bool IsSuspended() const { return mSuspended; }

  /// Waits for the end of the thread; a host's thread calls this. Returns Execute's result in
  /// `*result`. A thread never resumed ends at once with 0.
  void Wait(int32_t* result);

  TClock& Clock() const { return mClock; }
  /// What Terminate signals, and what ends a wait of this thread early.
  TWake& Wake() { return mWake; }

 protected:
  /// The thread's body; its value is the thread's result. Must not let an exception out.
  virtual int32_t Execute() = 0;

  /// What Terminate signals; the thread waits on it.
  TWake mWake;

 private:
  static void* SpawnThread(void* self);

  TClock& mClock;
  std::string mName;
  int32_t mPriority;
  uint64_t mToken = 0;
  pthread_t mThread{};
  std::atomic<bool> mTerminated{false};
  std::atomic<bool> mSuspended{true};
  bool mStarted = false;  // there is a thread to join
  int32_t mResult = 0;
  TActorClass mOrder;
};

}  // namespace zoka
