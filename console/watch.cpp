// Waiting for the end of time and for signals, by file descriptors of the kernel.
#include "console/watch.h"

#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>

#include "console/options.h"

namespace zoka {
namespace {

sigset_t stop_signals() {
  sigset_t set;
  sigemptyset(&set);
  for (int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&set, signal);
  return set;
}

void arm(int timerFd, double seconds) {
  itimerspec spec{};
  double whole = std::floor(seconds);
  spec.it_value.tv_sec = static_cast<time_t>(whole);
  spec.it_value.tv_nsec = static_cast<long>((seconds - whole) * 1e9);
  // A timer of zero would be off: the smallest time is at once.
  if (spec.it_value.tv_sec == 0 && spec.it_value.tv_nsec == 0) spec.it_value.tv_nsec = 1;
  timerfd_settime(timerFd, 0, &spec, nullptr);
}

}  // namespace

TWatch::TWatch(std::optional<double> timeoutSeconds, std::function<void()> stop,
               std::function<void()> restore)
    : mStop(std::move(stop)), mRestore(std::move(restore)) {
  sigset_t set = stop_signals();
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
  mSignalFd = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
  mTimerFd = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK);
  if (timeoutSeconds) arm(mTimerFd, *timeoutSeconds);
  mThread = std::thread([this] { Run(); });
}

TWatch::~TWatch() {
  mQuit.Set();
  mThread.join();
  for (int fd : {mSignalFd, mTimerFd}) ::close(fd);
}

void TWatch::Run() {
  for (;;) {
    pollfd fds[3] = {{mQuit.Fd(), POLLIN, 0}, {mSignalFd, POLLIN, 0}, {mTimerFd, POLLIN, 0}};
    if (::poll(fds, 3, -1) < 0) continue;
    if (fds[0].revents != 0) return;
    int status = EXIT_TIMEOUT;
    signalfd_siginfo info{};
    if (fds[1].revents != 0 && ::read(mSignalFd, &info, sizeof info) == sizeof info) {
      status = EXIT_SIGNAL + static_cast<int>(info.ssi_signo);
    } else if (fds[2].revents == 0) {
      continue;
    }
    uint64_t expirations = 0;
    [[maybe_unused]] ssize_t size = ::read(mTimerFd, &expirations, sizeof expirations);
    if (mStatus.exchange(status) != 0) {
      // The first stop had its time.
      mRestore();
      ::_exit(status);
    }
    arm(mTimerFd, GRACE_SECONDS);
    mStop();
  }
}

}  // namespace zoka
