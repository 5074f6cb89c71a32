// Handing messages over to the window thread.
#include "common/window/message_queue.h"

#include <utility>

namespace zoka {

TMessageQueue::TMessageQueue(std::function<void(const TMessage&)> handle)
    : mHandle(std::move(handle)) {}

void TMessageQueue::PostMessage(const TMessage& message) {
  {
    std::lock_guard lock(mMutex);
    mMessages.push_back(message);
  }
  Schedule();
}

void TMessageQueue::Schedule() {
  {
    std::lock_guard lock(mMutex);
    if (std::exchange(mScheduled, true)) return;
  }
  QMetaObject::invokeMethod(
      &mContext, [this] { HandleAll(); }, Qt::QueuedConnection);
}

void TMessageQueue::Release() {
  if (--mHolds == 0) Schedule();
}

bool TMessageQueue::Take(TMessage* message) {
  std::lock_guard lock(mMutex);
  if (mHolds > 0 || mMessages.empty()) return false;
  *message = std::move(mMessages.front());
  mMessages.pop_front();
  return true;
}

void TMessageQueue::HandleAll() {
  {
    std::lock_guard lock(mMutex);
    mScheduled = false;
  }
  // A message further out stands in an alert; its call takes what has come meanwhile.
  if (mHandling) return;
  mHandling = true;
  TMessage message;
  while (Take(&message)) mHandle(message);
  mHandling = false;
}

}  // namespace zoka
