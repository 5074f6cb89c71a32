// TFloodFill: PAINT's scan-line fill of a page.
#pragma once

#include <cstdint>
#include <vector>

#include "common/types.h"
#include "run/screen/grph_page.h"

namespace zoka {

/// Keeps its work space between fills; one thread at a time.
class TFloodFill {
 public:
  /// Fills from (x, y) over every pixel that is not `border`, in both planes, up to row 399 also in
  /// the 200-line modes. The border colour alone stops it: what already has the pen's colour is
  /// gone over. Returns the touched box; a start on the border or outside the page draws nothing
  /// and gives the start alone.
  TRect Fill(TGrphPage& page, const TPen& pen, uint8_t border, int32_t x, int32_t y);

 private:
  /// Of each pixel in mMarks: whether it is filled, and whether it has been put into the queue.
  static constexpr uint8_t VISITED = 1;
  static constexpr uint8_t QUEUED = 2;

  /// The fill under way.
  struct TJob {
    TGrphPage& page;
    TPen pen;
    uint8_t border;
    TRect box;
  };

  void Append(int32_t at);
  bool IsOpen(const TJob& job, int32_t at) const;
  void FillRun(TJob& job, int32_t at);
  void LookBeside(const TJob& job, int32_t x, int32_t at);
  void ForgetMarks(const TRect& box);

  std::vector<uint8_t> mMarks;
  /// First in, first out; numbers y * 640 + x.
  std::vector<int32_t> mQueue;
};

}  // namespace zoka
