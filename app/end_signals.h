// TEndSignals: SIGTERM, SIGINT and SIGHUP end the application in order instead of killing it. It
// asks nobody anything; what unsaved text becomes is its owner's business.
#pragma once

#include <QObject>
#include <functional>

namespace zoka {

/// One at a time, on the window thread. The second signal of a kind kills.
class TEndSignals final : private QObject {
 public:
  /// `end` is called on the window thread when a signal comes. Signals that the process was started
  /// to ignore stay ignored.
  explicit TEndSignals(std::function<void()> end);
  ~TEndSignals() override;

 private:
  void Read();

  std::function<void()> mEnd;
  int mPipe[2] = {-1, -1};
};

}  // namespace zoka
