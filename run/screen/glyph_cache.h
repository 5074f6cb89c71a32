// TGlyphCache: one-bit glyphs of the run font. It knows no cells and no colours; what it gives is
// the same for the window, for PUT@ of a kanji and for screenshots.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "app/settings/prefs.h"

namespace zoka {

/// Measures of the run font, in pixels; the default is that of the default font.
struct TFontHeight {
  float ascent = 14;
  float descent = 2;
  float leading = 0;
};

/// A glyph as bit rows.
struct TGlyph {
  /// Row of rows[0] relative to the baseline; negative above it.
  int32_t top = 0;
  /// Bit 31 is the column of the origin, bit 30 the next one; what lies before it is cut off.
  std::vector<uint32_t> rows;

  /// The bits of row y relative to the baseline; none above and below the glyph.
  uint32_t Bits(int32_t y) const {
    const size_t row = static_cast<size_t>(y - top);
    return row < rows.size() ? rows[row] : 0;
  }
};

/// Pixels of the em square at a font size of the settings: a size of 14 gives the 16 pixels that
/// fill the cell.
int32_t em_of_font_size(float size);

/// Finds and opens the fonts when the first glyph is asked for, not before. One thread at a time:
/// the screen mutex of the screen that it belongs to guards it.
class TGlyphCache {
 public:
  TGlyphCache();
  ~TGlyphCache();
  TGlyphCache(const TGlyphCache&) = delete;
  TGlyphCache& operator=(const TGlyphCache&) = delete;

  /// Family and size as the settings have them; an unknown family counts as the default. Loads
  /// nothing yet.
  void SetFontFamilyAndSize(std::string_view family, float size);
  bool IsLoaded() const { return mFaces != nullptr; }
  /// Loads the fonts, if that is still to do.
  void Load();
  /// The first font's measures; loads.
  TFontHeight Height();
  /// The glyph of the character that `utf8` begins with: of the first font in which its advance is
  /// one cell (two for a kanji), else of any that has it. Blank for what no font has and for bytes
  /// that are no character. Valid until the font changes.
  const TGlyph& Glyph(std::string_view utf8);

 private:
  /// The open fonts; keeps FreeType's types out of this header.
  class TFaces;

  static constexpr size_t ASCII_COUNT = 128;

  std::string mFamily = DEFAULT_RUN_FONT;
  int32_t mEm;
  std::unique_ptr<TFaces> mFaces;
  std::unordered_map<char32_t, TGlyph> mGlyphs;
  /// The same for the commonest ones, without a search; null until first asked for.
  std::array<const TGlyph*, ASCII_COUNT> mAscii{};
};

}  // namespace zoka
