// Transcript and alerts of the console tool.
#include "console/console_host.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

#include "run/screen/basic_rsrc.h"

namespace zoka {
namespace {

/// Rows are held back until a wait or until there is this much of them.
constexpr size_t MAX_PENDING_BYTES = 1 << 16;

}  // namespace

bool write_all(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

void TConsoleHost::TranscriptRow(std::string_view row) {
  std::lock_guard lock(mMutex);
  if (mLive) return;
  mPending.append(row);
  mPending += '\n';
  if (mPending.size() >= MAX_PENDING_BYTES) FlushLocked();
}

void TConsoleHost::FlushOutput() {
  std::lock_guard lock(mMutex);
  FlushLocked();
}

void TConsoleHost::FlushLocked() {
  if (!mFailed.load() && !write_all(STDOUT_FILENO, mPending)) {
    if (errno == EPIPE) mReaderGone.store(true);
    mFailed.store(true);
    if (mOnFailure) mOnFailure();
  }
  mPending.clear();
}

void TConsoleHost::RunEnded(int64_t, int32_t, const TMessage* request) {
  if (request != nullptr && mOnRequest) mOnRequest();
  std::lock_guard lock(mMutex);
  mHasRequest = request != nullptr;
  if (request != nullptr) mRequest = *request;
}

bool TConsoleHost::TakeRequest(TMessage* request) {
  std::lock_guard lock(mMutex);
  if (!mHasRequest) return false;
  mHasRequest = false;
  *request = mRequest;
  return true;
}

int TConsoleHost::ShowAlert(const TAlert& alert, TThread*) {
  std::lock_guard lock(mMutex);
  if (mLive) {
    mHeldAlerts += alert_bytes(alert);
    return 0;
  }
  FlushLocked();
  write_all(STDERR_FILENO, alert_bytes(alert));
  return 0;
}

void TConsoleHost::SetLive(bool live) {
  std::lock_guard lock(mMutex);
  mLive = live;
  if (!live) write_all(STDERR_FILENO, std::exchange(mHeldAlerts, {}));
}

void TConsoleHost::WriteScreen(const TBasicRsrc& rsrc) {
  int32_t last = rsrc.TxtRows() - 1;
  while (last >= 0 && rsrc.RowText(last).empty()) --last;
  for (int32_t row = 0; row <= last; ++row) TranscriptRow(rsrc.RowText(row));
  FlushOutput();
}

}  // namespace zoka
