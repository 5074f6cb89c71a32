// TWatch: ends a run from outside: after --timeout, or on a signal. A thread of its own waits for
// both; the run's own threads never see a signal.
#pragma once

#include <atomic>
#include <functional>
#include <optional>
#include <thread>

#include "console/quit_event.h"

namespace zoka {

/// Made before any other thread, so that all inherit the blocked signals. Lives as long as the run.
class TWatch {
 public:
  /// Calls `stop` (on its own thread, once) when the time is over or a signal comes; the status to
  /// exit with is then in Status(). If the process is still there GRACE_SECONDS later it ends
  /// without further ado, after `restore`, which must be safe at any moment.
  TWatch(std::optional<double> timeoutSeconds, std::function<void()> stop,
         std::function<void()> restore);
  ~TWatch();
  TWatch(const TWatch&) = delete;
  TWatch& operator=(const TWatch&) = delete;

  /// The exit status that the watch has decided on; 0 while it has not.
  int Status() const { return mStatus.load(); }

  static constexpr int GRACE_SECONDS = 5;

 private:
  void Run();

  std::function<void()> mStop;
  std::function<void()> mRestore;
  int mSignalFd = -1;
  int mTimerFd = -1;
  TQuitEvent mQuit;
  std::atomic<int> mStatus{0};
  std::thread mThread;
};

}  // namespace zoka
