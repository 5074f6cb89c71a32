// The run view's picture: when it is composed, the blinking cursor, the title, the clipboard.
#include "app/settings/prefs.h"
#include "run/run_view.h"

namespace zoka {
namespace {

/// A picture composed less than this ago is left to the host's next frame: a program that draws
/// much pays for 125 pictures a second at most.
constexpr bigtime_t COMPOSE_INTERVAL = 8000;
constexpr bigtime_t CURSOR_BLINK_INTERVAL = 500'000;
constexpr TRect WHOLE_SCREEN{0, 0, SCREEN_WIDTH - 1, SCREEN_HEIGHT - 1};

}  // namespace

void TRunView::UpdateScreenRqtd() {
  if (!mHost.WantsPicture()) {
    mRsrc.TakeModifiedRect();
    return;
  }
  if (mFlushAsked.load(std::memory_order_relaxed)) return;
  const bigtime_t now = mContext.clock->system_time();
  if (now - mLastCompose.load() < COMPOSE_INTERVAL || !ComposeFrame(UPDATE_LOCK_LIMIT)) AskFlush();
}

bool TRunView::ComposeFrame(bigtime_t lockLimit) {
  if (!mWindowLock.LockFor(lockLimit)) return false;
  const TRect changed = mPainter.DrawBasic(mFrame, true);
  mWindowLock.unlock();
  mLastCompose.store(mContext.clock->system_time());
  if (changed.IsValid()) mHost.Present(changed);
  return true;
}

void TRunView::AskFlush() {
  if (!mFlushAsked.exchange(true)) mHost.ComposeSoon();
}

void TRunView::FlushPicture() {
  // The host's frame that was asked for finds nothing left to do.
  if (mFlushAsked.load()) ComposeFrame(UPDATE_LOCK_LIMIT);
}

void TRunView::FlushScreen() {
  mFlushAsked.store(false);
  ComposeFrame(FOREVER);
}

void TRunView::AttachedToWindow() {
  SetWinTitle();
  for (int32_t drive = 0; drive < LAMP_COUNT; ++drive) SendUpdateMenuDrvFolder(drive);
  PrefRunWinFontChanged();
  ShowBootStr();
  mBlinkTimer = mContext.clock->StartTimer(CURSOR_BLINK_INTERVAL, true,
                                           [this] { mHost.Post([this] { CursorBlinkRqtd(); }); });
}

void TRunView::DetachedFromWindow() {
  if (mBlinkTimer != 0) mContext.clock->CancelTimer(mBlinkTimer);
  mBlinkTimer = 0;
}

void TRunView::CursorBlinkRqtd() {
  if (mRsrc.FlipCursorBlink()) FlushScreen();
}

void TRunView::PrefRunWinFontChanged() {
  mRsrc.SetFontFamilyAndSize(mContext.prefs->RWFF, mContext.prefs->RWFS.load());
  mRsrc.SetScrModifiedKernel2(WHOLE_SCREEN);
  FlushScreen();
}

void TRunView::LanguageChanged() {
  SetWinTitle();
  for (int32_t drive = 0; drive < LAMP_COUNT; ++drive) SendUpdateMenuDrvFolder(drive);
}

std::string TRunView::WinTitle() const {
  std::string mode;
  if (CompatiMode() == 2) mode = mContext.catalogue->GetString("DISK-BASIC");
  if (CompatiMode() == 3) mode = mContext.catalogue->GetString("DOS-BASIC");
  return mode + " - " + APP_NAME + " " + mContext.catalogue->GetString("(Run Window)");
}

void TRunView::SetWinTitle() {
  mHost.SetTitle(WinTitle());
}

void TRunView::MItemCopyTextClicked() {
  mHost.SetClipboardText(mRsrc.ScreenText());
}

void TRunView::MItemCopyGrphClicked(int32_t page) {
  TFrameBuffer picture;
  mPainter.DrawGrphPage(picture, page);
  mHost.SetClipboardImage(picture);
}

void TRunView::MItemCopyCompositionClicked() {
  TFrameBuffer picture;
  mPainter.DrawComposition(picture);
  mHost.SetClipboardImage(picture);
}

}  // namespace zoka
