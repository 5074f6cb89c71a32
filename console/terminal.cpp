// The terminal's mode, and the thread that shows and types.
#include "console/terminal.h"

#include <poll.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/signalfd.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>

#include "common/write_all.h"
#include "console/terminal_keys.h"
#include "run/run_view.h"

namespace zoka {
namespace {

/// Between two looks at the screen.
constexpr int FRAME_MS = 16;

// What Restore needs, which may be called at any moment.
termios gSavedMode;
std::atomic<bool> gIsRaw{false};

sigset_t suspend_signal() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGTSTP);
  return set;
}

void enter_raw_mode() {
  if (::tcgetattr(STDIN_FILENO, &gSavedMode) != 0) return;
  termios raw = gSavedMode;
  ::cfmakeraw(&raw);
  raw.c_oflag |= OPOST;
  ::tcsetattr(STDIN_FILENO, TCSADRAIN, &raw);
  gIsRaw.store(true);
}

}  // namespace

bool TTerminal::IsThere() {
  return ::isatty(STDIN_FILENO) && ::isatty(STDOUT_FILENO);
}

void TTerminal::HoldSuspend() {
  sigset_t set = suspend_signal();
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

void TTerminal::Restore() {
  if (!gIsRaw.exchange(false)) return;
  constexpr std::string_view SHOW_CURSOR = "\x1b[0m\x1b[?25h";
  [[maybe_unused]] ssize_t written = ::write(STDOUT_FILENO, SHOW_CURSOR.data(), SHOW_CURSOR.size());
  ::tcsetattr(STDIN_FILENO, TCSADRAIN, &gSavedMode);
}

TTerminal::TTerminal(TRunView& view, TKeyFeeder& feeder) : mView(view), mFeeder(feeder) {
  sigset_t set = suspend_signal();
  mSuspendFd = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
  enter_raw_mode();
  mThread = std::thread([this] { Run(); });
}

TTerminal::~TTerminal() {
  mQuit.Set();
  mThread.join();
  ::close(mSuspendFd);
  Show();
  write_all(STDOUT_FILENO, mScreen.Leave());
  Restore();
  sigset_t set = suspend_signal();
  pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

void TTerminal::Run() {
  while (ReadKeys(FRAME_MS)) Show();
}

bool TTerminal::ReadKeys(int timeoutMs) {
  pollfd fds[3] = {{mQuit.Fd(), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}, {mSuspendFd, POLLIN, 0}};
  int ready = ::poll(fds, 3, timeoutMs);
  if (fds[0].revents != 0) return false;
  if (ready > 0 && fds[2].revents != 0) Suspend();
  bool hasInput = ready > 0 && fds[1].revents != 0;
  if (hasInput) {
    char buffer[256];
    ssize_t size = ::read(STDIN_FILENO, buffer, sizeof buffer);
    // The terminal is gone; the hang-up signal ends the run.
    if (size == 0 || (size < 0 && errno != EINTR)) return false;
    if (size > 0) mPending.append(buffer, static_cast<size_t>(size));
  }
  std::deque<TFeedItem> keys;
  // What a key sends arrives at once, so that a pause ends a sequence.
  TTerminalRequest request = terminal_keys(&mPending, !hasInput, &keys);
  if (!keys.empty()) mFeeder.Add(std::move(keys));
  // The whole group stops, as if the terminal had sent it; this process when it is ready.
  if (request == TTerminalRequest::Suspend) ::kill(0, SIGTSTP);
  return true;
}

void TTerminal::Show() {
  winsize size{};
  if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_row > 0 && size.ws_col > 0) {
    mScreen.SetSize(size.ws_row, size.ws_col);
  }
  std::string bytes = mScreen.Update(mView.Rsrc().TxtSnapshot());
  if (!bytes.empty()) write_all(STDOUT_FILENO, bytes);
}

void TTerminal::Suspend() {
  write_all(STDOUT_FILENO, mScreen.Leave());
  Restore();
  // The held signal stops the process in this call; when the call returns, it was continued.
  sigset_t set = suspend_signal();
  pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
  pthread_sigmask(SIG_BLOCK, &set, nullptr);
  enter_raw_mode();
  mScreen.Forget();
}

}  // namespace zoka
