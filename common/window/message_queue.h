// TMessageQueue: the messages of one window, handled one after the other on the window thread.
#pragma once

#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

#include "common/handler.h"
#include "common/message.h"

namespace zoka {

/// A first-in first-out queue. PostMessage is for any thread; the rest, like the handling, is the
/// window thread's. One message is handled at a time: where handling it stands in an alert, and the
/// event loop goes on inside, the next one waits for the answer, while other queues go on.
class TMessageQueue final : public THandler {
 public:
  /// `handle` gets each message. What still waits when the queue goes is dropped.
  explicit TMessageQueue(std::function<void(const TMessage&)> handle);

  void PostMessage(const TMessage& message) override;
  /// Nothing is handled from Hold to Release; they nest. THeldQueue calls them.
  void Hold() { ++mHolds; }
  void Release();
  /// True while a message is being handled, and while it is held.
  bool IsStanding() const { return mHandling || mHolds > 0; }

 private:
  void Schedule();
  void HandleAll();
  bool Take(TMessage* message);

  std::function<void(const TMessage&)> mHandle;
  std::mutex mMutex;
  std::deque<TMessage> mMessages;  // under mMutex
  bool mScheduled = false;         // under mMutex
  bool mHandling = false;
  int mHolds = 0;
  QObject mContext;  // gone first, and scheduled calls with it
};

/// Holds a queue for as long as it lives: for what a window does outside of its messages and that
/// may ask the user. The queue outlives it.
class THeldQueue final {
 public:
  explicit THeldQueue(TMessageQueue& queue) : mQueue(queue) { mQueue.Hold(); }
  ~THeldQueue() { mQueue.Release(); }
  THeldQueue(const THeldQueue&) = delete;
  THeldQueue& operator=(const THeldQueue&) = delete;

 private:
  TMessageQueue& mQueue;
};

}  // namespace zoka
