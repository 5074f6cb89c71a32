// The walks behind string positions.
#include "vm/jis_position.h"

#include <algorithm>
#include <cstring>

#include "app/settings/compat_mode.h"
#include "common/text/utf8.h"

namespace zoka {
namespace {

/// Every kanji is taken to be this long.
constexpr int64_t KANJI_BYTES = 3;

/// Number of leading bytes that are ASCII; most texts are ASCII throughout, so it looks at many
/// bytes at a time.
size_t ascii_run(std::string_view text) {
  constexpr uint64_t HIGH_BITS = 0x8080808080808080;
  constexpr size_t WORDS = 4;
  uint64_t words[WORDS];
  size_t count = 0;
  for (; count + sizeof words <= text.size(); count += sizeof words) {
    std::memcpy(words, text.data() + count, sizeof words);
    if (((words[0] | words[1] | words[2] | words[3]) & HIGH_BITS) != 0) break;
  }
  for (; count + sizeof words[0] <= text.size(); count += sizeof words[0]) {
    std::memcpy(words, text.data() + count, sizeof words[0]);
    if ((words[0] & HIGH_BITS) != 0) break;
  }
  while (count < text.size() && (static_cast<unsigned char>(text[count]) & 0x80) == 0) ++count;
  return count;
}

/// True if the last `count` bytes are ASCII characters: no lead byte stands before them within its
/// reach, so that it could claim them.
bool ends_in_ascii(std::string_view text, int64_t count) {
  constexpr int64_t REACH = 3;
  const auto size = static_cast<int64_t>(text.size());
  if (count < 0 || count > size) return false;
  const std::string_view tail =
      text.substr(static_cast<size_t>(std::max<int64_t>(size - count - REACH, 0)));
  return ascii_run(tail) == tail.size();
}

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
      if (mCount.mode == COMPAT_DISK) position += mCount.weight;
      isKanji = isKanjiNow;
    } else if (isKanji) {
      position += mCount.weight;
      offset += KANJI_BYTES;
    } else {
      ++position;
      offset += isKana ? static_cast<int64_t>(KANA_BYTES) : 1;
    }
  }

  /// As many steps as ASCII characters follow, up to position `positions`, or byte `bytes`.
  void SkipAscii(int64_t positions, int64_t bytes) {
    if (isKanji) return;
    const int64_t limit = std::min(positions - position, bytes - offset);
    if (limit <= 0) return;
    const size_t count =
        ascii_run(mText.substr(static_cast<size_t>(offset), static_cast<size_t>(limit)));
    offset += static_cast<int64_t>(count);
    position += static_cast<int64_t>(count);
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

bool begins_in_ascii(std::string_view text, int64_t count) {
  const std::string_view start = text.substr(0, static_cast<size_t>(count));
  return ascii_run(start) == start.size();
}

int64_t JisPosToUtf8PosKernel(std::string_view text, int64_t jisPos, TJisCount count) {
  TJisWalk walk(text, count);
  walk.SkipAscii(jisPos, static_cast<int64_t>(text.size()));
  while (walk.position < jisPos && !walk.AtEnd()) walk.Step();
  if (walk.position >= jisPos) return walk.offset;
  // The change back from kanji, and then one position a byte.
  if (walk.isKanji && count.mode == COMPAT_DISK) walk.position += count.weight;
  return walk.offset + std::max<int64_t>(jisPos - walk.position, 0);
}

int64_t Utf8PosToJisPosKernel(std::string_view text, int64_t bytes, TJisCount count) {
  TJisWalk walk(text, count);
  walk.SkipAscii(INT64_MAX, std::min(bytes, static_cast<int64_t>(text.size())));
  while (walk.offset < bytes && !walk.AtEnd()) walk.Step();
  bool closes = count.mode == COMPAT_DISK && walk.isKanji && is_ascii_at(text, walk.offset);
  return walk.position + (closes ? count.weight : 0);
}

int64_t JisPosToUtf8PosR(std::string_view text, int64_t jisPos, int32_t mode) {
  if (ends_in_ascii(text, jisPos)) return jisPos;
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
  if (count.weight == 1 && count.mode == COMPAT_DISK && isKanjiAtStart) ++length;
  return std::min(JisPosToUtf8PosKernel(rest, length, count), size);
}

}  // namespace zoka
