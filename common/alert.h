// How the engine asks its host to show an alert. The windows show a dialog, the console tool writes
// to standard error.
#pragma once

#include <string>
#include <vector>

namespace zoka {

class TThread;

/// An alert: what it says, its title line, its buttons from left to right.
struct TAlert {
  std::string text;
  std::string title;
  std::vector<std::string> buttons;
  /// Index of the button that Escape presses, or -1.
  int escapeIndex = -1;
};

/// Shows alerts. Called on any thread; blocks until it is answered. Only on a thread that is not
/// the host's own nor the `waiter` may it return -1 at once, the alert being left to be read.
class TAlertHost {
 public:
  virtual ~TAlertHost() = default;

  /// Returns the index of the pressed button. If `waiter` is given, the wait also ends (with -1)
  /// when that thread is asked to terminate, and the alert is taken down.
  virtual int ShowAlert(const TAlert& alert, TThread* waiter) = 0;
};

/// The text that is shown: text, two newlines, title, newline. Both front ends show these bytes.
std::string alert_bytes(const TAlert& alert);

}  // namespace zoka
