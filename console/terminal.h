// TTerminal: the terminal in the mode that a running program needs, and back as it was: also when
// the process is stopped, continued, killed or crashes.
#pragma once

#include <atomic>
#include <string>
#include <thread>

#include "console/quit_event.h"
#include "console/terminal_screen.h"
#include "run/key_feeder.h"

namespace zoka {

class TRunView;

/// Shows the text screen live on standard output and types the terminal's keys into the run, on a
/// thread of its own. At most one at a time.
class TTerminal {
 public:
  /// Begins. View and feeder outlive this.
  TTerminal(TRunView& view, TKeyFeeder& feeder);
  /// Shows the last state and gives the terminal back. Requests to stop are no longer held.
  ~TTerminal();
  TTerminal(const TTerminal&) = delete;
  TTerminal& operator=(const TTerminal&) = delete;

  /// True if standard input and output are a terminal.
  static bool IsThere();
  /// Keeps a request to stop (SIGTSTP) waiting until the terminal is given back. To be called
  /// before the process starts its first thread, since threads inherit this.
  static void HoldSuspend();
  /// Gives the terminal back as it was, from any thread or signal handler; nothing if it is.
  static void Restore();

 private:
  void Run();
  bool ReadKeys(int timeoutMs);
  void Show();
  void Suspend();

  TRunView& mView;
  TKeyFeeder& mFeeder;
  TTerminalScreen mScreen;
  std::string mPending;
  TQuitEvent mQuit;
  int mSuspendFd;
  std::thread mThread;
};

}  // namespace zoka
