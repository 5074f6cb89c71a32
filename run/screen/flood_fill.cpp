// The order of the fill is that of the machine's own: a queue of points, each filling its row's run
// and adding one point for each run above and below.
#include "run/screen/flood_fill.h"

#include <algorithm>

namespace zoka {

TRect TFloodFill::Fill(TGrphPage& page, const TPen& pen, uint8_t border, int32_t x, int32_t y) {
  TJob job{page, pen, border, {x, y, x, y}};
  const bool isOnPage = x >= 0 && x < SCREEN_WIDTH && y >= 0 && y < SCREEN_HEIGHT;
  if (!isOnPage || page.IndexRow(y)[x] == border) return job.box;
  page.Touch();
  mMarks.resize(static_cast<size_t>(SCREEN_WIDTH) * SCREEN_HEIGHT);
  mQueue.clear();
  Append(y * SCREEN_WIDTH + x);
  // The queue grows while it is walked.
  for (size_t i = 0; i < mQueue.size(); ++i) {
    if (!(mMarks[static_cast<size_t>(mQueue[i])] & VISITED)) FillRun(job, mQueue[i]);
  }
  ForgetMarks(job.box);
  return job.box;
}

void TFloodFill::Append(int32_t at) {
  mMarks[static_cast<size_t>(at)] |= QUEUED;
  mQueue.push_back(at);
}

bool TFloodFill::IsOpen(const TJob& job, int32_t at) const {
  return job.page.IndexRow(0)[at] != job.border && !(mMarks[static_cast<size_t>(at)] & VISITED);
}

void TFloodFill::FillRun(TJob& job, int32_t at) {
  const int32_t y = at / SCREEN_WIDTH;
  const uint8_t* row = job.page.IndexRow(y);
  int32_t x = at % SCREEN_WIDTH;
  while (x > 0 && row[x - 1] != job.border) --x;
  const int32_t first = y * SCREEN_WIDTH + x;
  job.box = {std::min(job.box.left, x), std::min(job.box.top, y), job.box.right,
             std::max(job.box.bottom, y)};
  const bool hasAbove = y > 0;
  const bool hasBelow = y < SCREEN_HEIGHT - 1;
  if (hasAbove && IsOpen(job, first - SCREEN_WIDTH)) Append(first - SCREEN_WIDTH);
  if (hasBelow && IsOpen(job, first + SCREEN_WIDTH)) Append(first + SCREEN_WIDTH);
  uint8_t* index = job.page.IndexRow(y);
  uint32_t* real = job.page.RealRow(y);
  for (; x < SCREEN_WIDTH && index[x] != job.border; ++x) {
    const int32_t here = y * SCREEN_WIDTH + x;
    index[x] = job.pen.index;
    real[x] = job.pen.real;
    mMarks[static_cast<size_t>(here)] |= VISITED;
    if (hasAbove) LookBeside(job, x, here - SCREEN_WIDTH);
    if (hasBelow) LookBeside(job, x, here + SCREEN_WIDTH);
  }
  job.box.right = std::max(job.box.right, x);
}

/// Adds the left end of a run beside the one that is being filled.
void TFloodFill::LookBeside(const TJob& job, int32_t x, int32_t at) {
  if (x == 0 || job.page.IndexRow(0)[at - 1] != job.border) return;
  if (IsOpen(job, at) && !(mMarks[static_cast<size_t>(at)] & QUEUED)) Append(at);
}

void TFloodFill::ForgetMarks(const TRect& box) {
  std::fill(mMarks.begin() + static_cast<ptrdiff_t>(box.top) * SCREEN_WIDTH,
            mMarks.begin() + static_cast<ptrdiff_t>(box.bottom + 1) * SCREEN_WIDTH, uint8_t{0});
}

}  // namespace zoka
