// TSignalStack: where the handler of a fatal signal runs on a thread whose own stack is used up.
// What is done there is common/last_acts.h.
#pragma once

#include <cstddef>
#include <memory>

namespace zoka {

/// The alternate signal stack of the thread that makes it, for as long as it lives; that thread
/// also deletes it. A thread that has one already, as from a checking tool, keeps that.
class TSignalStack {
 public:
  /// Where memory lacks the thread goes without.
  TSignalStack();
  ~TSignalStack();
  TSignalStack(const TSignalStack&) = delete;
  TSignalStack& operator=(const TSignalStack&) = delete;

 private:
  std::unique_ptr<std::byte[]> mBytes;  // empty if it is not the thread's
};

}  // namespace zoka
