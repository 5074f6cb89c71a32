// The walks behind string positions.
#include "vm/jis_position.h"

#include <algorithm>

#include "common/text/utf8.h"
#include "vm/compati_mode.h"

namespace zoka {
namespace {

/// Every kanji is taken to be this long.
constexpr int64_t KANJI_BYTES = 3;

/// The walk over a text: offset, position, and the class of the last character.
class TJisWalk {
 public:
  TJisWalk(std::string_view text, TJisCount count) : mText(text), mCount(count) {}

  /// One step: a character, or the change to another class, after which the same character is
  /// looked at again.
  void Step() {
    std::string_view rest = mText.substr(static_cast<size_t>(offset));
    bool isAscii = (static_cast<unsigned char>(rest[0]) & 0x80) == 0;
    bool isKana = !isAscii && half_kana_index(rest) >= 0;
    bool isKanjiNow = !isAscii && !isKana;
    if (isKanjiNow != isKanji) {
      if (mCount.mode == COMPATI_MODE_DISK) position += mCount.weight;
      isKanji = isKanjiNow;
    } else if (isKanji) {
      position += mCount.weight;
      offset += KANJI_BYTES;
    } else {
      ++position;
      offset += isKana ? static_cast<int64_t>(KANA_BYTES) : 1;
    }
  }

  bool AtEnd() const { return offset >= static_cast<int64_t>(mText.size()); }

  int64_t offset = 0;
  int64_t position = 0;
  bool isKanji = false;

 private:
  std::string_view mText;
  TJisCount mCount;
};

bool is_ascii_at(std::string_view text, int64_t offset) {
  if (offset >= static_cast<int64_t>(text.size())) return true;
  return (static_cast<unsigned char>(text[static_cast<size_t>(offset)]) & 0x80) == 0;
}

}  // namespace

int64_t JisPosToUtf8PosKernel(std::string_view text, int64_t jisPos, TJisCount count) {
  TJisWalk walk(text, count);
  while (walk.position < jisPos && !walk.AtEnd()) walk.Step();
  if (walk.position >= jisPos) return walk.offset;
  // The change back from kanji, and then one position a byte.
  if (walk.isKanji && count.mode == COMPATI_MODE_DISK) walk.position += count.weight;
  return walk.offset + std::max<int64_t>(jisPos - walk.position, 0);
}

int64_t Utf8PosToJisPosKernel(std::string_view text, int64_t bytes, TJisCount count) {
  TJisWalk walk(text, count);
  while (walk.offset < bytes && !walk.AtEnd()) walk.Step();
  bool closes = count.mode == COMPATI_MODE_DISK && walk.isKanji && is_ascii_at(text, walk.offset);
  return walk.position + (closes ? count.weight : 0);
}

int64_t JisPosToUtf8PosR(std::string_view text, int64_t jisPos, int32_t mode) {
  std::string reversed(text.size(), '\0');
  size_t end = text.size();
  for (size_t pos = 0; pos < text.size();) {
    size_t length = std::max<size_t>(char_length(text.substr(pos)), 1);
    end -= length;
    reversed.replace(end, length, text.substr(pos, length));
    pos += length;
  }
  return JisPosToUtf8PosKernel(reversed, jisPos, {mode, 2});
}

int64_t JisLenToUtf8Len(std::string_view text, int64_t start, int64_t length, TJisCount count) {
  int64_t size = static_cast<int64_t>(text.size());
  int64_t offset = std::min(JisPosToUtf8PosKernel(text, start, count), size);
  std::string_view rest = text.substr(static_cast<size_t>(offset));
  bool isKanjiAtStart = !is_ascii_at(rest, 0) && half_kana_index(rest) < 0;
  if (count.weight == 1 && count.mode == COMPATI_MODE_DISK && isKanjiAtStart) ++length;
  return std::min(JisPosToUtf8PosKernel(rest, length, count), size);
}

}  // namespace zoka
