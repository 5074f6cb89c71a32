// Finding the fonts, and turning their outlines into bit rows.
#include "run/screen/glyph_cache.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>

#include <algorithm>
#include <cmath>
#include <span>

#include FT_FREETYPE_H

#include "common/text/utf8.h"

namespace zoka {

namespace {

/// Has all kanji and kana at the width of their cells, where the default font has some narrower.
constexpr const char FALLBACK_RUN_FONT[] = "IPAGothic";

constexpr int32_t GLYPH_COLUMNS = 32;
constexpr int32_t MAX_EM = 64;

struct TPatternDelete {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using TPattern = std::unique_ptr<FcPattern, TPatternDelete>;

struct TFontFile {
  /// Empty if there is no such font.
  std::string path;
  int index = 0;
};

/// fontconfig gives some font for any name: only one that bears the name counts.
bool has_family(FcPattern* font, const char* family) {
  FcChar8* name = nullptr;
  for (int i = 0; FcPatternGetString(font, FC_FAMILY, i, &name) == FcResultMatch; ++i) {
    if (FcStrCmpIgnoreCase(name, reinterpret_cast<const FcChar8*>(family)) == 0) return true;
  }
  return false;
}

TFontFile find_font(const std::string& family, int32_t em) {
  const TPattern wanted(FcPatternCreate());
  FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
  FcPatternAddDouble(wanted.get(), FC_PIXEL_SIZE, em);
  FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());
  FcResult result = FcResultNoMatch;
  const TPattern found(FcFontMatch(nullptr, wanted.get(), &result));
  TFontFile file;
  FcChar8* path = nullptr;
  if (found && has_family(found.get(), family.c_str()) &&
      FcPatternGetString(found.get(), FC_FILE, 0, &path) == FcResultMatch) {
    file.path = reinterpret_cast<const char*>(path);
    FcPatternGetInteger(found.get(), FC_INDEX, 0, &file.index);
  }
  return file;
}

TGlyph glyph_of(const FT_GlyphSlot slot) {
  TGlyph glyph;
  glyph.top = -slot->bitmap_top;
  const FT_Bitmap& bitmap = slot->bitmap;
  const size_t pitch = static_cast<size_t>(bitmap.pitch);
  const std::span<const unsigned char> buffer(bitmap.buffer, bitmap.rows * pitch);
  for (size_t y = 0; y < bitmap.rows; ++y) {
    const auto source = buffer.subspan(y * pitch, pitch);
    uint32_t row = 0;
    for (int32_t i = 0; i < static_cast<int32_t>(bitmap.width); ++i) {
      const int32_t x = slot->bitmap_left + i;
      const bool isSet = source[static_cast<size_t>(i / 8)] >> (7 - i % 8) & 1;
      if (isSet && x >= 0 && x < GLYPH_COLUMNS) row |= 0x80000000u >> x;
    }
    glyph.rows.push_back(row);
  }
  return glyph;
}

}  // namespace

int32_t em_of_font_size(float size) {
  const double em = std::floor(static_cast<double>(size) * 8 / 7 + 0.5);
  return static_cast<int32_t>(std::min<double>(std::max<double>(1, em), MAX_EM));
}

/// The fonts in the order in which they are asked.
class TGlyphCache::TFaces {
 public:
  TFaces(const std::string& family, int32_t em) : mEm(em) {
    if (FT_Init_FreeType(&mLibrary) != 0) return;
    Add(family);
    if (mFaces.empty()) Add(DEFAULT_RUN_FONT);
    Add(FALLBACK_RUN_FONT);
    Add(DEFAULT_RUN_FONT);
  }

  ~TFaces() {
    for (FT_Face face : mFaces) FT_Done_Face(face);
    if (mLibrary) FT_Done_FreeType(mLibrary);
  }
  TFaces(const TFaces&) = delete;
  TFaces& operator=(const TFaces&) = delete;

  TFontHeight Height() const {
    if (mFaces.empty() || mFaces.front()->units_per_EM == 0) return {};
    const FT_Face face = mFaces.front();
    const float unit = static_cast<float>(mEm) / static_cast<float>(face->units_per_EM);
    const int32_t leading = face->height - face->ascender + face->descender;
    return {static_cast<float>(face->ascender) * unit, static_cast<float>(-face->descender) * unit,
            static_cast<float>(leading) * unit};
  }

  TGlyph Glyph(char32_t code, bool isWide) const {
    for (FT_Face face : mFaces) {
      if (Render(face, code) && Fits(face, isWide)) return glyph_of(face->glyph);
    }
    // Better a glyph of another width, cut to its cell, than none; the last font has most.
    for (auto face = mFaces.rbegin(); face != mFaces.rend(); ++face) {
      if (Render(*face, code)) return glyph_of((*face)->glyph);
    }
    return {};
  }

 private:
  /// Adds a font that is there and was not added before.
  void Add(const std::string& family) {
    const TFontFile file = find_font(family, mEm);
    FT_Face face = nullptr;
    if (std::find(mPaths.begin(), mPaths.end(), file.path) != mPaths.end()) return;
    if (FT_New_Face(mLibrary, file.path.c_str(), file.index, &face) != 0) return;
    if (FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(mEm)) != 0) {
      FT_Done_Face(face);
      return;
    }
    mFaces.push_back(face);
    mPaths.push_back(file.path);
  }

  static bool Render(FT_Face face, char32_t code) {
    const FT_UInt index = FT_Get_Char_Index(face, code);
    return index != 0 && FT_Load_Glyph(face, index, FT_LOAD_RENDER | FT_LOAD_TARGET_MONO) == 0 &&
           face->glyph->bitmap.pixel_mode == FT_PIXEL_MODE_MONO;
  }

  /// An odd em has no exact half.
  bool Fits(FT_Face face, bool isWide) const {
    const int32_t advance = static_cast<int32_t>(face->glyph->advance.x >> 6);
    return isWide ? advance == mEm : std::abs(advance * 2 - mEm) <= 1;
  }

  const int32_t mEm;
  FT_Library mLibrary = nullptr;
  std::vector<FT_Face> mFaces;
  std::vector<std::string> mPaths;
};

TGlyphCache::TGlyphCache() : mEm(em_of_font_size(DEFAULT_RUN_FONT_SIZE)) {}

TGlyphCache::~TGlyphCache() = default;

void TGlyphCache::SetFontFamilyAndSize(std::string_view family, float size) {
  mFamily = family;
  mEm = em_of_font_size(size);
  mFaces.reset();
  mGlyphs.clear();
  mAscii.fill(nullptr);
}

void TGlyphCache::Load() {
  if (!mFaces) mFaces = std::make_unique<TFaces>(mFamily, mEm);
}

TFontHeight TGlyphCache::Height() {
  Load();
  return mFaces->Height();
}

const TGlyph& TGlyphCache::Glyph(std::string_view utf8) {
  const size_t first = utf8.empty() ? 0 : static_cast<unsigned char>(utf8[0]);
  if (first < ASCII_COUNT && mAscii[first]) return *mAscii[first];
  Load();
  size_t length = 0;
  const char32_t code = decode_utf8(utf8, &length);
  auto place = mGlyphs.find(code);
  if (place == mGlyphs.end()) {
    // U+FFFD stands for bytes that are no character, which show as a blank.
    const bool isShown = code >= ' ' && code != 0x7F && code != 0xFFFD;
    TGlyph glyph = isShown ? mFaces->Glyph(code, is_kanji(utf8)) : TGlyph{};
    place = mGlyphs.emplace(code, std::move(glyph)).first;
  }
  if (code < ASCII_COUNT) mAscii[code] = &place->second;
  return place->second;
}

}  // namespace zoka
