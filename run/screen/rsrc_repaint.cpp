// TBasicRsrc, repaint bookkeeping: what has changed since it was painted last.
#include <algorithm>
#include <utility>

#include "run/screen/basic_rsrc.h"

namespace zoka {

namespace {

/// Keeps sums and doubles of far coordinates within 32 bits; the painter cuts to the screen anyway.
constexpr int32_t FAR_AWAY = 1 << 28;

int32_t near_enough(int32_t v) {
  return std::clamp(v, -FAR_AWAY, FAR_AWAY);
}

/// The same for cells.
int32_t near_cell(int64_t cell) {
  return static_cast<int32_t>(std::clamp<int64_t>(cell, 0, MAX_TXT_CELLS));
}

}  // namespace

void TBasicRsrc::MarkKernel(const TRect& r) {
  if (!r.IsValid()) return;
  modifiedRect = modifiedRect.IsValid() ? union_of(modifiedRect, r) : r;
}

void TBasicRsrc::MarkGrph(const TRect& r) {
  if (activePage != displayPage || !grphVisible) return;
  const int32_t top = near_enough(std::min(r.top, r.bottom)) * grphYScale;
  const int32_t bottom = near_enough(std::max(r.top, r.bottom)) * grphYScale;
  // One graphic row covers two device rows in the 200-line modes.
  MarkKernel({std::min(r.left, r.right), top, std::max(r.left, r.right),
              grphYScale == 2 ? bottom + 1 : bottom});
}

void TBasicRsrc::MarkAll() {
  MarkGrph({0, 0, SCREEN_WIDTH, SCREEN_HEIGHT});
}

void TBasicRsrc::MarkTxt(int64_t from, int64_t to) {
  const auto [first, last] = std::minmax({near_cell(from), near_cell(to)});
  const int32_t firstRow = first / txtCols;
  const int32_t lastRow = last / txtCols;
  TRect r{0, firstRow * cellHeight, SCREEN_WIDTH, (lastRow + 1) * cellHeight};
  if (firstRow == lastRow) {
    r.left = first % txtCols * cellWidth;
    r.right = (last % txtCols + 1) * cellWidth;
  }
  MarkKernel(r);
}

void TBasicRsrc::SetScrModifiedKernel2(const TRect& r) {
  TLock lock(mMutex);
  MarkKernel(r);
}

void TBasicRsrc::SetScrModifiedByGrph2(const TRect& r) {
  TLock lock(mMutex);
  MarkGrph(r);
}

void TBasicRsrc::SetScrModifiedAll2() {
  TLock lock(mMutex);
  MarkAll();
}

void TBasicRsrc::SetScrModifiedByTxt2(int32_t from, int32_t to) {
  TLock lock(mMutex);
  MarkTxt(from, to);
}

void TBasicRsrc::UpdateScreen() {
  if (owner) owner->UpdateScreenRqtd();
}

TRect TBasicRsrc::ModifiedRect() const {
  TLock lock(mMutex);
  return modifiedRect;
}

TRect TBasicRsrc::TakeModifiedRect() {
  TLock lock(mMutex);
  return std::exchange(modifiedRect, TRect{});
}

}  // namespace zoka
