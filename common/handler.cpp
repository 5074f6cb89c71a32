// The handler registry, and continuations in messages.
#include "common/handler.h"

#include <algorithm>

namespace zoka {

THandlerId THandlerRegistry::Register(THandler* handler) {
  std::lock_guard lock(mMutex);
  mEntries[++mLastId].handler = handler;
  return {mLastId};
}

void THandlerRegistry::Unregister(THandlerId id) {
  std::unique_lock lock(mMutex);
  const auto it = mEntries.find(id.id);
  if (it == mEntries.end()) return;
  it->second.handler = nullptr;
  const auto self = std::this_thread::get_id();
  mPosted.wait(lock, [&] {
    const auto entry = mEntries.find(id.id);
    return entry == mEntries.end() ||
           std::ranges::all_of(entry->second.posting, [&](auto thread) { return thread == self; });
  });
  if (const auto entry = mEntries.find(id.id);
      entry != mEntries.end() && entry->second.posting.empty()) {
    mEntries.erase(entry);
  }
}

bool THandlerRegistry::Post(THandlerId id, const TMessage& message) {
  THandler* handler = nullptr;
  {
    std::lock_guard lock(mMutex);
    const auto it = mEntries.find(id.id);
    if (it == mEntries.end() || !it->second.handler) return false;
    handler = it->second.handler;
    it->second.posting.push_back(std::this_thread::get_id());
  }
  // Without the lock, since a handler may post in its turn.
  handler->PostMessage(message);
  EndPosting(id.id);
  return true;
}

void THandlerRegistry::EndPosting(uint32_t id) {
  std::lock_guard lock(mMutex);
  const auto it = mEntries.find(id);
  auto& posting = it->second.posting;
  posting.erase(std::ranges::find(posting, std::this_thread::get_id()));
  if (!it->second.handler && posting.empty()) mEntries.erase(it);
  mPosted.notify_all();
}

int32_t add_next_msg(TMessage* message, const TMessage& next, THandlerId target) {
  message->AddMessage(NEXT_MSG, next);
  message->AddHandler(NEXT_MSG_TGT, target);
  return 0;
}

}  // namespace zoka
