// From a signal's handler to the event loop, by a pipe.
#include "app/end_signals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <atomic>
#include <utility>

namespace zoka {
namespace {

constexpr int END_SIGNALS[] = {SIGTERM, SIGINT, SIGHUP};

std::atomic<int> gWriteEnd{-1};

void signalled(int) {
  constexpr char BYTE = 0;
  [[maybe_unused]] const ssize_t written = ::write(gWriteEnd.load(), &BYTE, 1);
}

}  // namespace

TEndSignals::TEndSignals(std::function<void()> end) : mEnd(std::move(end)) {
  if (::pipe2(mPipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
  gWriteEnd.store(mPipe[1]);
  auto* const notifier = new QSocketNotifier(mPipe[0], QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this] { Read(); });
  struct sigaction action = {};
  action.sa_handler = signalled;
  action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (const int number : END_SIGNALS) {
    struct sigaction former = {};
    ::sigaction(number, nullptr, &former);
    if (former.sa_handler != SIG_IGN) ::sigaction(number, &action, nullptr);
  }
}

TEndSignals::~TEndSignals() {
  for (const int number : END_SIGNALS) {
    struct sigaction current = {};
    ::sigaction(number, nullptr, &current);
    if (current.sa_handler == signalled) ::signal(number, SIG_DFL);
  }
  gWriteEnd.store(-1);
  for (const int end : mPipe) {
    if (end >= 0) ::close(end);
  }
}

void TEndSignals::Read() {
  char byte = 0;
  if (::read(mPipe[0], &byte, 1) == 1) mEnd();
}

}  // namespace zoka
