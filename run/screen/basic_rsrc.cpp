// TBasicRsrc: construction, initial state, and what belongs to no other subject (alarm, lamps).
#include "run/screen/basic_rsrc.h"

namespace zoka {

TBasicRsrc::TBasicRsrc(TClock& clock) : mClock(clock), mKeyWake(clock) {
  static constexpr int32_t BASE_CODES[TXT_PAL_COLORS] = {0x000, 0x00F, 0x0F0, 0x0FF,
                                                         0xF00, 0xF0F, 0xFF0, 0xFFF};
  for (size_t i = 0; i < basePal.size(); ++i) basePal[i] = BasColCodeToBeRGB(BASE_CODES[i]);
  Init();
}

TBasicRsrc::~TBasicRsrc() {
  for (TLamp& lamp : mLamps) {
    for (TTimerId timer : lamp.timers) mClock.CancelTimer(timer);
  }
}

void TBasicRsrc::Init() {
  InitFuncKeyStr();
  ClearKeyBuf();
  TLock lock(mMutex);
  InitFields();
  txtPal = basePal;
  ResetGrphPal();
  CalcTxtSizeKernel();
  ClearTxtKernel(0, MAX_TXT_ROWS);
  txtAttr.fill(0);
  for (int8_t page = 0; page < PAGE_COUNT; ++page) {
    activePage = page;
    ClearGrphKernel();
  }
  activePage = 0;
  MarkAll();
}

void TBasicRsrc::InitFields() {
  cursorBlink = false;
  cursorShown = false;
  grphVisible = true;
  palStale.fill(false);
  grphYScale = 2;
  grphBackColor = 0;
  grphForeColor = 7;
  optionBase = 0;
  displayPage = 0;
  colorMode = 0;
  consoleTop = 0;
  consoleBottom = MAX_TXT_ROWS;
  txtColor = 7;
  txtRows = MAX_TXT_ROWS;
  txtCols = 80;
  defSeg = 0;
  // Cells beyond the screen are never shown, but a copy of the arrays must not carry garbage.
  txtCell.fill(EMPTY_CELL);
}

void TBasicRsrc::SetOwner(TScreenOwner* newOwner) {
  owner = newOwner;
}

int32_t TBasicRsrc::SetOnTimeDl(const char* hhmmss) {
  return owner ? owner->SetOnTimeDl(hhmmss) : -1;
}

void TBasicRsrc::SetFDDAccessLampByDriveIndex(int32_t driveIdx) {
  if (driveIdx < 0 || driveIdx >= LAMP_COUNT || !owner) return;
  TLamp& lamp = mLamps[static_cast<size_t>(driveIdx)];
  const bigtime_t now = mClock.system_time();
  if (now - lamp.lastTime < LAMP_INTERVAL) return;
  lamp.lastTime = now;
  owner->SetFDDAccessLamp(driveIdx, 1);
  const auto off = [this, driveIdx] { owner->SetFDDAccessLamp(driveIdx, -1); };
  lamp.timers = {mClock.StartTimer(LAMP_ON_TIME, false, off), lamp.timers[0], lamp.timers[1]};
}

void TBasicRsrc::SetFDDAccessLampByFileDesc(int32_t fileNum) {
  const TZokaFile* file = files.Find(fileNum);
  if (file) SetFDDAccessLampByDriveIndex(file->DrvIdx());
}

}  // namespace zoka
