// Taking, making and putting pictures.
#include "run/screen/grph_block.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace zoka {

namespace {

constexpr int32_t BITS = 8;

/// One row of both planes, from the first touched pixel on.
struct TRowTarget {
  uint8_t* index;
  uint32_t* real;
  int32_t count;
};

template <typename TCombine>
void combine_row(const TRowTarget& row, const uint8_t* source, const uint32_t* pixels,
                 TCombine combine) {
  for (int32_t i = 0; i < row.count; ++i) {
    row.index[i] = static_cast<uint8_t>(combine(source[i], row.index[i]));
  }
  for (int32_t i = 0; i < row.count; ++i) row.real[i] = pixels[row.index[i] & 15];
}

void put_row(const TRowTarget& row, const uint8_t* source, const uint32_t* pixels, TPutMode mode) {
  switch (mode) {
    case TPutMode::PSet:
      return combine_row(row, source, pixels, [](int s, int) { return s; });
    case TPutMode::PReset:
      return combine_row(row, source, pixels, [](int s, int) { return 15 - s; });
    case TPutMode::Or:
      return combine_row(row, source, pixels, [](int s, int d) { return s | d; });
    case TPutMode::And:
      return combine_row(row, source, pixels, [](int s, int d) { return s & d; });
    case TPutMode::Xor:
      return combine_row(row, source, pixels, [](int s, int d) { return s ^ d; });
  }
}

/// Gives rows of a picture as if all of it were kept.
class TBlockRows {
 public:
  TBlockRows(const TGrphBlock& block, int64_t left, int32_t count)
      : mBlock(block), mLeft(left), mCount(count) {}

  /// `count` indices of row j from column `left` on.
  const uint8_t* Row(int64_t j) {
    const int64_t from = std::max(mLeft, mBlock.keptLeft);
    const int64_t to = std::min(mLeft + mCount, mBlock.keptLeft + mBlock.keptWidth);
    const bool hasRow = j >= mBlock.keptTop && j < mBlock.keptTop + mBlock.keptHeight;
    if (!hasRow || from >= to) return mZeros.data();
    const uint8_t* source =
        mBlock.pixels.data() + (j - mBlock.keptTop) * mBlock.keptWidth + (from - mBlock.keptLeft);
    if (to - from == mCount) return source;
    std::memcpy(mRow.data() + (from - mLeft), source, static_cast<size_t>(to - from));
    return mRow.data();
  }

 private:
  const TGrphBlock& mBlock;
  const int64_t mLeft;
  const int32_t mCount;
  std::array<uint8_t, SCREEN_WIDTH> mZeros{};
  /// A partly kept row; what is not kept stays 0, as it is the same in every row.
  std::array<uint8_t, SCREEN_WIDTH> mRow{};
};

}  // namespace

TGrphBlock get_block(const TGrphPage& page, const TRect& r) {
  TGrphBlock block;
  block.width = static_cast<int64_t>(r.right) - r.left + 1;
  block.height = static_cast<int64_t>(r.bottom) - r.top + 1;
  const TRect inside = intersection_of(r, WHOLE_PAGE);
  if (!inside.IsValid()) return block;
  block.keptLeft = static_cast<int64_t>(inside.left) - r.left;
  block.keptTop = static_cast<int64_t>(inside.top) - r.top;
  block.keptWidth = inside.right - inside.left + 1;
  block.keptHeight = inside.bottom - inside.top + 1;
  for (int32_t y = inside.top; y <= inside.bottom; ++y) {
    const uint8_t* row = page.IndexRow(y);
    block.pixels.insert(block.pixels.end(), row + inside.left, row + inside.right + 1);
  }
  return block;
}

void put_block(TGrphPage& page, const TGrphBlock& block, const TPixel& at, TPutMode mode,
               const uint32_t (&pixels)[GRPH_PAL_COLORS]) {
  const int64_t left = std::max(at.x, 0);
  const int64_t top = std::max(at.y, 0);
  const int64_t right = std::min<int64_t>(at.x + block.width, SCREEN_WIDTH);
  const int64_t bottom = std::min<int64_t>(at.y + block.height, SCREEN_HEIGHT);
  if (left >= right || top >= bottom) return;
  page.Touch();
  const int32_t count = static_cast<int32_t>(right - left);
  TBlockRows rows(block, left - at.x, count);
  for (int64_t y = top; y < bottom; ++y) {
    const int32_t row = static_cast<int32_t>(y);
    const TRowTarget target{page.IndexRow(row) + left, page.RealRow(row) + left, count};
    put_row(target, rows.Row(y - at.y), pixels, mode);
  }
}

int64_t planar_bytes(int64_t width, int64_t height, int32_t planes) {
  if (width < 1 || height < 1) return 0;
  return (width + BITS - 1) / BITS * planes * height;
}

TGrphBlock planar_block(int64_t width, int64_t height, int32_t planes,
                        const std::function<uint8_t(int64_t)>& byte) {
  TGrphBlock block;
  if (width < 1 || height < 1) return block;
  block.width = width;
  block.height = height;
  block.keptWidth = width;
  block.keptHeight = height;
  block.pixels.assign(static_cast<size_t>(width * height), 0);
  const int64_t lineBytes = (width + BITS - 1) / BITS;
  int64_t at = 0;
  for (int64_t y = 0; y < height; ++y) {
    for (int32_t plane = 0; plane < planes; ++plane) {
      for (int64_t column = 0; column < lineBytes; ++column) {
        const uint8_t bits = byte(at++);
        for (int64_t x = column * BITS; x < std::min(width, (column + 1) * BITS); ++x) {
          const int bit = bits >> (BITS - 1 - (x - column * BITS)) & 1;
          block.pixels[static_cast<size_t>(y * width + x)] |= static_cast<uint8_t>(bit << plane);
        }
      }
    }
  }
  return block;
}

}  // namespace zoka
