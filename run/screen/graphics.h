// TGraphics: what the graphic statements do to the active page. Each operation draws, keeps the
// last referenced point and marks what it touched; it repaints nothing. Operands are whole: STEP,
// defaults and errors are the statements' business.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/types.h"
#include "run/screen/basic_rsrc.h"
#include "run/screen/grph_block.h"
#include "run/screen/raster.h"

namespace zoka {

/// No fill colour: the fill forms then fill with the colour and draw no outline.
constexpr int32_t NO_FILL = -1;

/// Operands of CIRCLE as StrokeArc and FillArc take them.
struct TArcOperands {
  /// Degrees, counter-clockwise from the positive x axis; the span from there on.
  float start = 0;
  float span = 0;
  /// Draw the radius at that end (StrokeArc only).
  bool startRadius = false;
  bool endRadius = false;
};

/// Coordinates are graphic rows and columns of the active page and may be anything, also fractions,
/// infinities and no numbers: they are rounded by floor(v + .5) and cut to the page. Colours are
/// bytes: the index plane stores them as they are, the real plane their palette entry modulo 16.
/// Machine's thread. Costs nothing to make: all state is the screen's.
class TGraphics {
 public:
  explicit TGraphics(TBasicRsrc& rsrc) : mRsrc(rsrc) {}

  /// PSET and PRESET.
  void Pset(const TPoint& p, int8_t color);
  /// LINE. `lastPoint` becomes p2 in all three forms.
  void Line(const TPoint& p1, const TPoint& p2, int8_t color);
  void StrokeRect(const TPoint& p1, const TPoint& p2, int8_t color);
  /// Filled with `fill`, and framed with `color` on top, if there is a fill colour.
  void FillRect(const TPoint& p1, const TPoint& p2, int8_t color, int32_t fill = NO_FILL);
  /// CIRCLE. `lastPoint` becomes the centre, also when a radius is negative or no number and
  /// nothing is drawn. `radius` holds both radii.
  void StrokeEllipse(const TPoint& center, const TPoint& radius, int8_t color);
  void FillEllipse(const TPoint& center, const TPoint& radius, int8_t color,
                   int32_t fill = NO_FILL);
  /// Start and span are rounded to whole degrees here, and only here.
  void StrokeArc(const TPoint& center, const TPoint& radius, int8_t color, const TArcOperands& arc);
  void FillArc(const TPoint& center, const TPoint& radius, int8_t color, const TArcOperands& arc,
               int32_t fill = NO_FILL);
  /// PAINT from `p` up to the border colour.
  void Paint(const TPoint& p, int8_t color, int8_t border);

  /// GET@: the picture between two corners, inclusive. `lastPoint` becomes p2.
  TGrphBlock GetBlock(const TPoint& p1, const TPoint& p2);
  /// PUT@ with its upper left corner at `p`.
  void PutBlock(const TPoint& p, const TGrphBlock& block, TPutMode mode);
  /// PUT@ KANJI: the glyph of the character that `utf8` begins with (blank if there is none) as a
  /// picture of 16 by 16 pixels of the two colours.
  void PutKanji(const TPoint& p, std::string_view utf8, TPutMode mode, int8_t fore, int8_t back);
  /// ROLL: the picture moves up by `v` and left by `h`, over all 400 rows in every mode; what opens
  /// takes the colour `fill`.
  void Roll(int32_t v, int32_t h, int8_t fill);
  /// POINT(x,y): the index as a signed byte, or -1 outside 640 by 400 (400 in every mode).
  int32_t Point(int32_t x, int32_t y) const;

 private:
  /// Marks and remembers; the screen mutex is held.
  void Done(const TRect& touched, const TPoint& newLastPoint);
  TGrphPage& ActivePage();
  void Put(const TPixel& at, const TGrphBlock& block, TPutMode mode);

  TBasicRsrc& mRsrc;
};

}  // namespace zoka
