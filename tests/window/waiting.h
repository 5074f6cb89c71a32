// How tests of the windows wait: for something to become true, or for what is posted to be handed
// on. None of them waits for a time to pass.
#pragma once

#include <QCoreApplication>
#include <QtTest/QTest>
#include <functional>

namespace zoka {

/// Longest wait for anything, in milliseconds; far beyond what a busy machine needs.
constexpr int WAIT_MS = 30'000;

/// Runs the event loop until `condition` holds; false if it does not come to that.
inline bool until(const std::function<bool()>& condition) {
  return QTest::qWaitFor(condition, WAIT_MS);
}

/// Hands on what is posted, what that posts in turn and so on. No chain of messages in the
/// application is longer than these rounds.
inline void run_event_rounds() {
  constexpr int ROUNDS = 5;
  for (int i = 0; i < ROUNDS; ++i) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

}  // namespace zoka
