// Composing in time, and the blinking cursor.
#include "run/run_picture.h"

namespace zoka {
namespace {

/// A picture composed less than this ago is left to the host's next frame: a program that draws
/// much pays for 125 pictures a second at most.
constexpr bigtime_t COMPOSE_INTERVAL = 8000;
constexpr bigtime_t CURSOR_BLINK_INTERVAL = 500'000;

}  // namespace

TRunPicture::TRunPicture(TClock& clock, TRunHost& host, TBasicRsrc& rsrc)
    : mClock(clock), mHost(host), mRsrc(rsrc), mPainter(rsrc) {}

TRunPicture::~TRunPicture() {
  StopBlinking();
}

void TRunPicture::Update() {
  if (!mHost.WantsPicture()) {
    mRsrc.TakeModifiedRect();
    return;
  }
  if (mFlushAsked.load(std::memory_order_relaxed)) return;
  const bigtime_t now = mClock.system_time();
  if (now - mLastCompose.load() < COMPOSE_INTERVAL || !ComposeFrame(UPDATE_LOCK_LIMIT)) AskFlush();
}

bool TRunPicture::ComposeFrame(bigtime_t lockLimit) {
  if (!mWindowLock.LockFor(lockLimit)) return false;
  const TRect changed = mPainter.DrawBasic(mFrame, true);
  mWindowLock.unlock();
  mLastCompose.store(mClock.system_time());
  if (changed.IsValid()) mHost.Present(changed);
  return true;
}

void TRunPicture::AskFlush() {
  if (!mFlushAsked.exchange(true)) mHost.ComposeSoon();
}

void TRunPicture::ComposeHeldBack() {
  // The host's frame that was asked for finds nothing left to do.
  if (mFlushAsked.load()) ComposeFrame(UPDATE_LOCK_LIMIT);
}

void TRunPicture::Flush() {
  mFlushAsked.store(false);
  ComposeFrame(FOREVER);
}

void TRunPicture::StartBlinking() {
  StopBlinking();
  mBlinkTimer = mClock.StartTimer(CURSOR_BLINK_INTERVAL, true,
                                  [this] { mHost.Post([this] { CursorBlinkRqtd(); }); });
}

void TRunPicture::StopBlinking() {
  mClock.CancelTimer(mBlinkTimer);
}

void TRunPicture::CursorBlinkRqtd() {
  if (mRsrc.FlipCursorBlink()) Flush();
}

}  // namespace zoka
