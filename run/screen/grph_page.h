// TGrphPage: the two planes of a graphic page, palette indices and colours, and the memory behind
// them. It knows no statements, no modes and no palette.
#pragma once

#include <cstddef>
#include <cstdint>

#include "common/types.h"
#include "run/screen/screen_size.h"

namespace zoka {

/// A pixel of the colour plane: 0x00RRGGBB.
constexpr uint32_t pixel_of(const TRgb& color) {
  return static_cast<uint32_t>(color.red) << 16 | static_cast<uint32_t>(color.green) << 8 |
         color.blue;
}

/// What a drawing puts into both planes: the palette index and the colour that it had then.
struct TPen {
  uint8_t index = 0;
  uint32_t real = 0;
};

/// 640 by 400 pixels twice: kind 0, the index plane, is what POINT, PAINT, GET@ and PUT@ read; kind
/// 1, the real plane, is what is shown. They differ after a palette change that did not rebuild the
/// real plane. The memory comes zeroed from the system and is not touched before the first drawing,
/// so that a program without graphics pays nothing for it.
class TGrphPage {
 public:
  TGrphPage();
  ~TGrphPage();
  TGrphPage(const TGrphPage&) = delete;
  TGrphPage& operator=(const TGrphPage&) = delete;

  /// Row y (0 to 399) of a plane, 640 pixels. Rows follow each other without gaps.
  uint8_t* IndexRow(int32_t y) { return mIndex + static_cast<ptrdiff_t>(y) * SCREEN_WIDTH; }
  const uint8_t* IndexRow(int32_t y) const {
    return mIndex + static_cast<ptrdiff_t>(y) * SCREEN_WIDTH;
  }
  uint32_t* RealRow(int32_t y) { return mReal + static_cast<ptrdiff_t>(y) * SCREEN_WIDTH; }
  const uint32_t* RealRow(int32_t y) const {
    return mReal + static_cast<ptrdiff_t>(y) * SCREEN_WIDTH;
  }

  /// True as long as both planes are still all zero because nothing was drawn.
  bool IsPristine() const { return mPristine; }
  /// To be called before the first write through the rows.
  void Touch() { mPristine = false; }

  /// Fills both planes whole.
  void Clear(const TPen& pen);

 private:
  uint8_t* mIndex;  // owns the memory of both planes
  uint32_t* mReal;
  bool mPristine = true;
};

}  // namespace zoka
