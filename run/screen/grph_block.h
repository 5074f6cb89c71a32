// TGrphBlock: a stored picture of GET@ and PUT@, and how it is combined with a page.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "common/types.h"
#include "run/screen/grph_page.h"
#include "run/screen/raster.h"

namespace zoka {

/// How PUT@ combines a stored index s with the page's index d. The keywords' numbers.
enum class TPutMode : int32_t { PSet = 0, PReset = 1, Or = 2, And = 3, Xor = 4 };

/// A picture of palette indices, `width` by `height`. Of a picture taken partly outside the page
/// only the part on the page is kept; the rest is index 0.
struct TGrphBlock {
  int64_t width = 0;
  int64_t height = 0;
  /// Where the kept part lies in the picture; its width or height may be 0.
  int64_t keptLeft = 0;
  int64_t keptTop = 0;
  int64_t keptWidth = 0;
  int64_t keptHeight = 0;
  /// The kept part's indices, row by row.
  std::vector<uint8_t> pixels;
};

/// The picture between two corners, inclusive, wherever they lie.
TGrphBlock get_block(const TGrphPage& page, const TRect& r);

/// Combines `block` into the page with its upper left corner at `at`, cut to the page. `pixels` are
/// the colours of the 16 palette entries.
void put_block(TGrphPage& page, const TGrphBlock& block, const TPixel& at, TPutMode mode,
               const uint32_t (&pixels)[GRPH_PAL_COLORS]);

/// Bytes that a planar picture's data take: line by line, each plane's bytes in turn.
int64_t planar_bytes(int64_t width, int64_t height, int32_t planes);

/// A picture that a program has put into an integer array in the layout of the machine: `byte(i)`
/// gives the data's byte number i, 0 to planar_bytes - 1; it may throw. A width or height below 1
/// gives an empty picture.
TGrphBlock planar_block(int64_t width, int64_t height, int32_t planes,
                        const std::function<uint8_t(int64_t)>& byte);

}  // namespace zoka
