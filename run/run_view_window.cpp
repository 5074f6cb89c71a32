// The run view, what its window shows of it: the picture, title and drives, and what is copied.
#include "app/settings/prefs.h"
#include "common/file_path.h"
#include "run/run_view.h"

namespace zoka {

void TRunView::AttachedToWindow() {
  SetWinTitle();
  for (int32_t drive = 0; drive < LAMP_COUNT; ++drive) SendUpdateMenuDrvFolder(drive);
  PrefRunWinFontChanged();
  ShowBootStr();
  mPicture.StartBlinking();
}

void TRunView::DetachedFromWindow() {
  mPicture.StopBlinking();
}

void TRunView::UpdateScreenRqtd() {
  mPicture.Update();
}

void TRunView::PrefRunWinFontChanged() {
  mRsrc.SetFontFamilyAndSize(mContext.prefs->RWFF, mContext.prefs->RWFS.load());
  FlushScreen();
}

void TRunView::LanguageChanged() {
  SetWinTitle();
  for (int32_t drive = 0; drive < LAMP_COUNT; ++drive) SendUpdateMenuDrvFolder(drive);
}

std::string TRunView::WinTitle() const {
  std::string mode;
  if (CompatiMode() == COMPAT_DISK) mode = mContext.catalogue->GetString("DISK-BASIC");
  if (CompatiMode() == COMPAT_DOS) mode = mContext.catalogue->GetString("DOS-BASIC");
  return mode + " - " + APP_NAME + " " + mContext.catalogue->GetString("(Run Window)");
}

void TRunView::SetWinTitle() {
  mHost.SetTitle(WinTitle());
}

// --- Drives -------------------------------------------------------------------------------------

void TRunView::SetDriveFolder(int32_t index, const std::string& path) {
  if (index < 0 || index >= DRIVE_COUNT) return;
  mRsrc.DrvFolderRefs().SetFolder(index, path);
  if (index < LAMP_COUNT) SendUpdateMenuDrvFolder(index);
}

void TRunView::SendUpdateMenuDrvFolder(int32_t index) {
  const std::string path = DriveFolder(index);
  mHost.DriveChanged(
      index, path,
      path.empty() ? mContext.catalogue->GetString("(Empty)") : extract_file_name(path));
}

std::string TRunView::DriveFolder(int32_t index) const {
  return mRsrc.DrvFolderRefs().Folder(index);
}

void TRunView::SetFDDAccessLamp(int32_t driveIdx, int32_t change) {
  mHost.Lamp(driveIdx, change);
}

void TRunView::TranscriptRow(const std::string& row) {
  mHost.TranscriptRow(row);
}

// --- The clipboard ------------------------------------------------------------------------------

void TRunView::MItemCopyTextClicked() {
  mHost.SetClipboardText(mRsrc.ScreenText());
}

void TRunView::MItemCopyGrphClicked(int32_t page) {
  TFrameBuffer picture;
  mPicture.Painter().DrawGrphPage(picture, page);
  mHost.SetClipboardImage(picture);
}

void TRunView::MItemCopyCompositionClicked() {
  TFrameBuffer picture;
  mPicture.Painter().DrawComposition(picture);
  mHost.SetClipboardImage(picture);
}

}  // namespace zoka
