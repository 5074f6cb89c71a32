// The console tool as host of an engine: the text screen as a transcript on standard output, alerts
// on standard error.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>

#include "common/alert.h"
#include "run/run_host.h"

namespace zoka {

class TBasicRsrc;

/// Writes the transcript of one run after the other.
class TConsoleHost final : public TRunHost, public TAlertHost {
 public:
  void TranscriptRow(std::string_view row) override;
  void FlushOutput() override;
  bool WantsPicture() const override { return mWantsPicture; }
  void RunEnded(int64_t runNumber, int32_t exitStatus, const TMessage* request) override;
  int ShowAlert(const TAlert& alert, TThread* waiter) override;

  /// What to do when standard output cannot be written any more; any thread.
  void SetOnFailure(std::function<void()> onFailure) { mOnFailure = std::move(onFailure); }
  /// What to do, on the machine's thread, at the end of a run that asks for another.
  void SetOnRequest(std::function<void()> onRequest) { mOnRequest = std::move(onRequest); }
  /// The screen is shown live: rows are not written, and alerts are held back until it is not.
  void SetLive(bool live);
  void SetWantsPicture(bool wants) { mWantsPicture = wants; }
  /// A request for another run that the last program left; false if it left none.
  bool TakeRequest(TMessage* request);
  /// Writes rows that are still on the screen: up to the last one that is not empty.
  void WriteScreen(const TBasicRsrc& rsrc);

  /// Output could not be written; with the pipe's reader gone, quietly.
  bool OutputFailed() const { return mFailed.load(); }
  bool ReaderGone() const { return mReaderGone.load(); }

 private:
  void FlushLocked();

  bool mLive = false;       // under mMutex
  std::string mHeldAlerts;  // under mMutex

  std::mutex mMutex;
  std::string mPending;      // under mMutex
  bool mHasRequest = false;  // under mMutex
  TMessage mRequest;         // under mMutex
  std::atomic<bool> mFailed{false};
  std::atomic<bool> mReaderGone{false};
  bool mWantsPicture = false;
  std::function<void()> mOnFailure;
  std::function<void()> mOnRequest;
};

/// Writes all bytes to a file descriptor; false with errno set if it cannot.
bool write_all(int fd, std::string_view bytes);

}  // namespace zoka
