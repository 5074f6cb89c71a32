// TDelaySender: turns a burst of messages of one code into one, the last, sent a while after it.
#pragma once

#include <cstdint>
#include <map>

#include "common/clock.h"
#include "common/handler.h"
#include "common/message.h"
#include "common/mutex.h"

namespace zoka {

/// Holds each message back for the delay; a further one of its code takes its place and starts the
/// delay anew. Messages of different codes do not interfere. Any thread. What still waits when it
/// is deleted is dropped. Clock and registry outlive it.
class TDelaySender {
 public:
  TDelaySender(TClock& clock, THandlerRegistry& registry) : mClock(clock), mRegistry(registry) {}
  ~TDelaySender();
  TDelaySender(const TDelaySender&) = delete;
  TDelaySender& operator=(const TDelaySender&) = delete;

  void SetTarget(THandlerId target);
  /// Microseconds; counts for the messages yet to come.
  void SetDelay(bigtime_t delay);
  void SendMessage(const TMessage& message);

 private:
  struct TDelaySendInfo {
    TMessage message;
    TTimerId timer = 0;
    uint64_t sequence = 0;
  };

  void DelaySenderTimeout(uint32_t code, uint64_t sequence);

  TClock& mClock;
  THandlerRegistry& mRegistry;
  TMutex mMutex{TLockRank::Leaf};
  THandlerId mTarget;
  bigtime_t mDelay = 0;
  std::map<uint32_t, TDelaySendInfo> mWaiting;
  uint64_t mLastSequence = 0;
};

}  // namespace zoka
