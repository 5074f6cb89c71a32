// TScreenPainter: paints the simulated screen, graphics, text and cursor, into a frame buffer; the
// window, screenshots and the clipboard all get their pixels here.
#pragma once

#include <cstdint>
#include <memory>

#include "common/types.h"
#include "run/screen/basic_rsrc.h"

namespace zoka {

/// 640 by 400 pixels, 0xFFRRGGBB, row by row without gaps. The memory comes with the first Row.
class TFrameBuffer {
 public:
  uint32_t* Row(int32_t y);
  const uint32_t* Row(int32_t y) const { return const_cast<TFrameBuffer*>(this)->Row(y); }

 private:
  std::unique_ptr<uint32_t[]> mPixels;
};

/// Takes the screen mutex for as long as it paints. Any thread that holds the window's lock.
class TScreenPainter {
 public:
  explicit TScreenPainter(TBasicRsrc& rsrc) : mRsrc(rsrc) {}

  /// Paints what has changed since the last call and returns it, inclusive and cut to the screen;
  /// not valid if nothing has. What is painted equals that part of a picture painted whole. The
  /// cursor is drawn in the window's view only.
  TRect DrawBasic(TFrameBuffer& target, bool isView);
  /// Paints the whole screen without the cursor and forgets no change.
  void DrawComposition(TFrameBuffer& target);
  /// A page's real plane as it is, all 400 rows in every mode; -1 is the page shown, and with none
  /// shown the picture is black.
  void DrawGrphPage(TFrameBuffer& target, int32_t page);

 private:
  void MarkCursor();
  void PaintGraphics(TFrameBuffer& target, const TRect& r) const;
  void PaintText(TFrameBuffer& target, const TRect& r);
  void PaintCell(TFrameBuffer& target, const TRect& r, int32_t row, int32_t col);
  void PaintCursor(TFrameBuffer& target, const TRect& r) const;

  TBasicRsrc& mRsrc;
};

}  // namespace zoka
