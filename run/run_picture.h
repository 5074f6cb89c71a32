// TRunPicture: the picture of a run view, and when it is composed: at once, or with the host's next
// frame. How it is painted is in screen/compose.h.
#pragma once

#include <atomic>
#include <cstdint>

#include "common/clock.h"
#include "run/run_host.h"
#include "run/screen/basic_rsrc.h"
#include "run/screen/compose.h"
#include "run/window_lock.h"

namespace zoka {

/// Nothing is owned; clock, host and screen outlive the picture.
class TRunPicture {
 public:
  TRunPicture(TClock& clock, TRunHost& host, TBasicRsrc& rsrc);
  ~TRunPicture();
  TRunPicture(const TRunPicture&) = delete;
  TRunPicture& operator=(const TRunPicture&) = delete;

  /// The screen has changed: composes that, unless a picture is young still or the lock can't be
  /// had; the host is then asked for a frame. Machine's thread and host's thread.
  void Update();
  /// Composes what was held back, as nothing follows for a while. Machine's thread.
  void ComposeHeldBack();
  /// The frame that the host was asked for. Host's thread.
  void Flush();
  /// The cursor blinks from now on, or no longer. Host's thread.
  void StartBlinking();
  void StopBlinking();

  /// Complete but for what Flush would add. Read it with Lock() held.
  const TFrameBuffer& Frame() const { return mFrame; }
  /// What keeps the picture whole between the threads. The host may hold it while it paints; never
  /// in a call that waits.
  TWindowLock& Lock() { return mWindowLock; }
  TScreenPainter& Painter() { return mPainter; }

 private:
  bool ComposeFrame(bigtime_t lockLimit);
  void AskFlush();
  void CursorBlinkRqtd();

  TClock& mClock;
  TRunHost& mHost;
  TBasicRsrc& mRsrc;
  TWindowLock mWindowLock;
  TFrameBuffer mFrame;      // under mWindowLock
  TScreenPainter mPainter;  // its DrawBasic under mWindowLock
  std::atomic<bigtime_t> mLastCompose{0};
  std::atomic<bool> mFlushAsked{false};
  TTimerId mBlinkTimer = 0;
};

}  // namespace zoka
