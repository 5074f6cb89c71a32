// TThread on pthreads.
#include "common/thread.h"

#include <sched.h>

#include "common/signal_stack.h"

namespace zoka {

namespace {

/// Wishes from here on ask for real-time scheduling.
constexpr int32_t REAL_TIME_PRIORITY = 100;
/// The host's real-time priority for them: a low one, above all ordinary threads.
constexpr int HOST_REAL_TIME_PRIORITY = 10;
/// The host cuts thread names here.
constexpr size_t MAX_THREAD_NAME = 15;

void wish_priority(int32_t priority) {
  if (priority < REAL_TIME_PRIORITY) return;
  sched_param param{};
  param.sched_priority = HOST_REAL_TIME_PRIORITY;
  pthread_setschedparam(pthread_self(), SCHED_RR, &param);
}

}  // namespace

TThread::TThread(const char* name, int32_t priority, TClock& clock, TActorClass order)
    : mWake(clock), mClock(clock), mName(name), mPriority(priority), mOrder(order) {}

TThread::~TThread() {
  if (!mStarted) return;
  TThread::Terminate();
  Wait(nullptr);
}

void TThread::Terminate() {
  mTerminated.store(true, std::memory_order_release);
  mWake.Signal();
}

bool TThread::Resume() {
  if (!mSuspended.exchange(false)) return true;
  mToken = mClock.PrepareThread(mOrder);
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, ENGINE_STACK_BYTES);
  mStarted = pthread_create(&mThread, &attributes, SpawnThread, this) == 0;
  pthread_attr_destroy(&attributes);
  if (!mStarted) mClock.AbandonThread(mToken);
  return mStarted;
}

void TThread::Wait(int32_t* result) {
  if (mStarted) pthread_join(mThread, nullptr);
  mStarted = false;
  if (result) *result = mResult;
}

void* TThread::SpawnThread(void* self) {
  auto* thread = static_cast<TThread*>(self);
  pthread_setname_np(pthread_self(), thread->mName.substr(0, MAX_THREAD_NAME).c_str());
  wish_priority(thread->mPriority);
  // Should the stack be used up, what a crash still does needs room elsewhere.
  const TSignalStack signalStack;
  thread->mClock.EnterThread(thread->mToken);
  thread->mResult = thread->Execute();
  thread->mClock.LeaveThread();
  return nullptr;
}

}  // namespace zoka
