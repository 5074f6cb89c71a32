// THandler: who receives messages, and the registry by which a message names a handler without
// holding a pointer to it.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

#include "common/message.h"

namespace zoka {

/// Receives messages. Implemented by documents and window adapters.
class THandler {
 public:
  virtual ~THandler() = default;
  /// Takes the message for handling on the handler's own thread; may queue it. Any thread. It may
  /// post further messages and unregister any handler.
  virtual void PostMessage(const TMessage& message) = 0;
};

/// Maps handler ids to live handlers. An id is never used twice; one that is gone yields null, so
/// that a chain to a closed window simply lapses. Any thread.
class THandlerRegistry {
 public:
  THandlerId Register(THandler* handler);
  /// When it returns, no other thread is inside the handler's PostMessage.
  void Unregister(THandlerId id);
  /// Posts to the handler; false if it is gone.
  bool Post(THandlerId id, const TMessage& message);

 private:
  struct TEntry {
    THandler* handler = nullptr;           // null once unregistered
    std::vector<std::thread::id> posting;  // who is inside its PostMessage
  };

  void EndPosting(uint32_t id);

  std::mutex mMutex;
  std::condition_variable mPosted;  // waits last no longer than a post
  std::map<uint32_t, TEntry> mEntries;
  uint32_t mLastId = 0;
};

/// Fields of a request that goes on behind another: its message, and that message's handler.
constexpr const char NEXT_MSG[] = "NextMsg";
constexpr const char NEXT_MSG_TGT[] = "NextMsgTgt";

/// Adds the continuation of a request to it. Returns 0.
int32_t add_next_msg(TMessage* message, const TMessage& next, THandlerId target);

}  // namespace zoka
