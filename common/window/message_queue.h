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
/// window thread's. While it is held nothing is handled: a window that stands in an alert does not
/// go on with its messages, as others do with theirs.
class TMessageQueue final : public THandler {
 public:
  /// `handle` gets each message. What still waits when the queue goes is dropped.
  explicit TMessageQueue(std::function<void(const TMessage&)> handle);

  void PostMessage(const TMessage& message) override;
  /// Hold and Release nest.
  void Hold() { ++mHolds; }
  void Release();

 private:
  void Schedule();
  void HandleAll();
  bool Take(TMessage* message);

  std::function<void(const TMessage&)> mHandle;
  std::mutex mMutex;
  std::deque<TMessage> mMessages;  // under mMutex
  bool mScheduled = false;         // under mMutex
  int mHolds = 0;
  QObject mContext;  // gone first, and scheduled calls with it
};

}  // namespace zoka
