// TBasicRsrc, the graphic side of its state: pages, palettes, colours and what SCREEN selects.
#include "run/screen/basic_rsrc.h"

namespace zoka {

namespace {

constexpr TRect WHOLE_SCREEN{0, 0, SCREEN_WIDTH, SCREEN_HEIGHT};

/// Entries 8 to 15 of a fresh palette: grey and the dark colours.
constexpr TRgb DARK_COLORS[] = {{0x77, 0x77, 0x77}, {0, 0, 0xAA},      {0xAA, 0, 0},
                                {0xAA, 0, 0xAA},    {0, 0xAA, 0},      {0, 0xAA, 0xAA},
                                {0xAA, 0xAA, 0},    {0xAA, 0xAA, 0xAA}};

constexpr uint8_t widened_nibble(int32_t code, int32_t shift) {
  return static_cast<uint8_t>((code >> shift & 15) * 17);
}

}  // namespace

// --- Palettes -----------------------------------------------------------------------------------

TRgb TBasicRsrc::BasColCodeToBeRGB(int32_t code) {
  return {widened_nibble(code, 4), widened_nibble(code, 8), widened_nibble(code, 0)};
}

void TBasicRsrc::ResetGrphPal() {
  for (size_t i = 0; i < basePal.size(); ++i) {
    grphPal[i] = basePal[i];
    grphPal[i + basePal.size()] = DARK_COLORS[i];
  }
}

void TBasicRsrc::InitGrphColPal() {
  TLock lock(mMutex);
  ResetGrphPal();
}

void TBasicRsrc::InitTxtColPal() {
  TLock lock(mMutex);
  txtPal = basePal;
}

void TBasicRsrc::SetColorMode(int8_t mode) {
  TLock lock(mMutex);
  colorMode = mode;
  // The pictures keep their old colours until the next change of a palette entry: as designed.
  ResetGrphPal();
}

void TBasicRsrc::SetGrphPal(int32_t index, const TRgb& color) {
  TLock lock(mMutex);
  grphPal[static_cast<size_t>(index & 15)] = color;
  palStale.fill(true);
  TransferKernel();
  MarkAll();
}

void TBasicRsrc::InitColorPalette() {
  TLock lock(mMutex);
  ResetGrphPal();
  palStale.fill(true);
  TransferKernel();
  MarkAll();
}

void TBasicRsrc::TransferGrphBmpPalToReal() {
  TLock lock(mMutex);
  TransferKernel();
}

void TBasicRsrc::TransferKernel() {
  if (displayPage == NO_PAGE || !palStale[static_cast<size_t>(displayPage)]) return;
  palStale[static_cast<size_t>(displayPage)] = false;
  TGrphPage& page = grphBitmap[static_cast<size_t>(displayPage)];
  std::array<uint32_t, GRPH_PAL_COLORS> pixels;
  for (size_t i = 0; i < pixels.size(); ++i) pixels[i] = pixel_of(grphPal[i]);
  if (page.IsPristine() && pixels[0] == 0) return;
  page.Touch();
  // In the 200-line modes the lower half keeps what it had.
  const int32_t count = SCREEN_WIDTH * SCREEN_HEIGHT / grphYScale;
  const uint8_t* index = page.IndexRow(0);
  uint32_t* real = page.RealRow(0);
  for (int32_t i = 0; i < count; ++i) real[i] = pixels[index[i] & 15];
}

TPen TBasicRsrc::PenOf(int8_t color) const {
  return {static_cast<uint8_t>(color), pixel_of(grphPal[static_cast<size_t>(color & 15)])};
}

// --- Pages --------------------------------------------------------------------------------------

void TBasicRsrc::ClearGrphBuf() {
  TLock lock(mMutex);
  ClearGrphKernel();
}

void TBasicRsrc::ClearGrphKernel() {
  lastPoint = {};
  grphBitmap[static_cast<size_t>(activePage)].Clear(PenOf(grphBackColor));
  MarkAll();
}

void TBasicRsrc::SetGrphVisible(bool visible) {
  TLock lock(mMutex);
  grphVisible = visible;
  MarkKernel(WHOLE_SCREEN);
}

void TBasicRsrc::SetGrphYScale(int8_t scale) {
  TLock lock(mMutex);
  grphYScale = scale;
  // The 400-line modes have two pages only; "none shown" counts as above them, too.
  if (scale == 1 && activePage > 1) activePage = 0;
  if (scale == 1 && displayPage > 1) displayPage = 0;
  MarkKernel(WHOLE_SCREEN);
}

void TBasicRsrc::SetActivePage(int8_t page) {
  TLock lock(mMutex);
  activePage = page;
}

void TBasicRsrc::SetDisplayPage(int8_t page) {
  TLock lock(mMutex);
  displayPage = page;
  TransferKernel();
  MarkKernel(WHOLE_SCREEN);
}

void TBasicRsrc::SetGrphForeColor(int8_t color) {
  TLock lock(mMutex);
  grphForeColor = color;
}

void TBasicRsrc::SetGrphBackColor(int8_t color) {
  TLock lock(mMutex);
  grphBackColor = color;
}

}  // namespace zoka
