// Walking the text cells.
#include "run/window/screen_reading.h"

#include <algorithm>

namespace zoka {

TScreenReading::TScreenReading(const TTxtSnapshot& screen) : mCols(screen.cols) {
  for (int32_t row = 0; row < screen.rows; ++row) ReadRow(screen, row);
  mRowStarts.push_back(static_cast<int>(mText.size()));
  mCursor = OffsetOf(screen.cursorPos);
}

void TScreenReading::ReadRow(const TTxtSnapshot& screen, int32_t row) {
  mRowStarts.push_back(static_cast<int>(mText.size()));
  const int32_t first = row * screen.cols;
  int32_t end = first + screen.cols;
  while (end > first && screen.cells[static_cast<size_t>(end) - 1].IsEmpty()) --end;
  for (int32_t cell = first; cell < end; ++cell) {
    const TTxtCell& content = screen.cells[static_cast<size_t>(cell)];
    if (content.IsRightHalf()) continue;
    const bool isWide = cell + 1 < end && screen.cells[static_cast<size_t>(cell) + 1].IsRightHalf();
    mText += content.IsEmpty() ? QString(' ') : QString::fromUtf8(content.text);
    mPlaces.resize(static_cast<size_t>(mText.size()), {cell, isWide ? 2 : 1});
  }
  mText += '\n';
  mPlaces.push_back({end, 1});
}

TReadPlace TScreenReading::PlaceOf(int offset) const {
  if (mPlaces.empty()) return {};
  return mPlaces[static_cast<size_t>(std::clamp(offset, 0, static_cast<int>(mPlaces.size()) - 1))];
}

int TScreenReading::OffsetOf(int32_t cell) const {
  const auto rows = static_cast<int32_t>(mRowStarts.size()) - 1;
  if (rows <= 0) return 0;
  const int32_t wanted = std::clamp(cell, 0, rows * mCols - 1);
  const auto row = static_cast<size_t>(wanted / mCols);
  const auto begin = mPlaces.begin() + mRowStarts[row];
  const auto end = mPlaces.begin() + mRowStarts[row + 1] - 1;  // the line feed
  const auto found = std::find_if(
      begin, end, [wanted](const TReadPlace& place) { return wanted < place.cell + place.cells; });
  return static_cast<int>(found - mPlaces.begin());
}

TTextChange text_change(const QString& before, const QString& after) {
  const qsizetype shorter = std::min(before.size(), after.size());
  qsizetype start = 0;
  while (start < shorter && before[start] == after[start]) ++start;
  if (start > 0 && before[start - 1].isHighSurrogate()) --start;
  qsizetype same = 0;  // at the end
  while (same < shorter - start &&
         before[before.size() - 1 - same] == after[after.size() - 1 - same]) {
    ++same;
  }
  if (same > 0 && before[before.size() - same].isLowSurrogate()) --same;
  return {static_cast<int>(start), before.mid(start, before.size() - start - same),
          after.mid(start, after.size() - start - same)};
}

}  // namespace zoka
