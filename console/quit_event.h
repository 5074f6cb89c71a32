// TQuitEvent: what ends a thread that waits in poll().
#pragma once

#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>

namespace zoka {

/// Once set it stays so. Any thread.
class TQuitEvent {
 public:
  TQuitEvent() : mFd(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
  ~TQuitEvent() { ::close(mFd); }
  TQuitEvent(const TQuitEvent&) = delete;
  TQuitEvent& operator=(const TQuitEvent&) = delete;

  /// A descriptor that can be read when the event is set.
  int Fd() const { return mFd; }
  void Set() {
    constexpr uint64_t ONE = 1;
    [[maybe_unused]] const ssize_t written = ::write(mFd, &ONE, sizeof ONE);
  }

 private:
  const int mFd;
};

}  // namespace zoka
