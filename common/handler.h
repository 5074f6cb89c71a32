// THandler: who receives messages, and the registry by which a message names a handler without
// holding a pointer to it.
#pragma once

#include <cstdint>
#include <map>

#include "common/message.h"
#include "common/mutex.h"

namespace zoka {

/// Receives messages. Implemented by documents and window adapters.
class THandler {
 public:
  virtual ~THandler() = default;
  /// Takes the message for handling on the handler's own thread; may queue it. Any thread.
  virtual void PostMessage(const TMessage& message) = 0;
};

/// Maps handler ids to live handlers. An id is never used twice; one that is gone yields null, so
/// that a chain to a closed window simply lapses. Any thread.
class THandlerRegistry {
 public:
  THandlerId Register(THandler* handler);
  void Unregister(THandlerId id);
  /// Posts to the handler; false if it is gone.
  bool Post(THandlerId id, const TMessage& message);

 private:
  TMutex mMutex{TLockRank::Leaf};
  std::map<uint32_t, THandler*> mHandlers;
  uint32_t mLastId = 0;
};

/// Adds the continuation of a request: `next` under "NextMsg", its handler under "NextMsgTgt".
/// Returns 0.
int32_t add_next_msg(TMessage* message, const TMessage& next, THandlerId target);

}  // namespace zoka
