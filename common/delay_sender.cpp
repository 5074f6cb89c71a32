// TDelaySender on the clock's timers.
#include "common/delay_sender.h"

#include <utility>

namespace zoka {

TDelaySender::~TDelaySender() {
  std::map<uint32_t, TDelaySendInfo> waiting;
  {
    TLock lock(mMutex);
    waiting.swap(mWaiting);
  }
  for (const auto& [code, info] : waiting) mClock.CancelTimer(info.timer);
}

void TDelaySender::SetTarget(THandlerId target) {
  TLock lock(mMutex);
  mTarget = target;
}

void TDelaySender::SetDelay(bigtime_t delay) {
  TLock lock(mMutex);
  mDelay = delay;
}

void TDelaySender::SendMessage(const TMessage& message) {
  const uint32_t code = message.what;
  TTimerId timer = 0;
  uint64_t sequence = 0;
  bigtime_t delay = 0;
  {
    TLock lock(mMutex);
    sequence = ++mLastSequence;
    delay = mDelay;
    timer = std::exchange(mWaiting[code], {message, 0, sequence}).timer;
  }
  mClock.CancelTimer(timer);
  timer = mClock.StartTimer(delay, false,
                            [this, code, sequence] { DelaySenderTimeout(code, sequence); });
  {
    TLock lock(mMutex);
    const auto it = mWaiting.find(code);
    if (it == mWaiting.end()) return;  // sent already
    if (it->second.sequence == sequence) {
      it->second.timer = timer;
      return;
    }
  }
  // Another thread has sent the same code meanwhile.
  mClock.CancelTimer(timer);
}

void TDelaySender::DelaySenderTimeout(uint32_t code, uint64_t sequence) {
  TMessage message;
  THandlerId target;
  {
    TLock lock(mMutex);
    const auto it = mWaiting.find(code);
    if (it == mWaiting.end() || it->second.sequence != sequence) return;
    message = std::move(it->second.message);
    target = mTarget;
    mWaiting.erase(it);
  }
  mRegistry.Post(target, message);
}

}  // namespace zoka
