// Positions in texts as programs count them: an ASCII character or a half-width kana is one, a
// kanji two (or one, in the K functions), and under DISK-BASIC each change between the two costs
// what a shift code cost. Translates them to byte offsets and back; walks from the start each time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zoka {

/// How a text is counted.
struct TJisCount {
  int32_t mode;    // compatibility mode
  int32_t weight;  // of a kanji: 2, or 1 in the K functions
};

/// True if the first `count` bytes, or all of a shorter text, are ASCII: there positions are bytes.
bool begins_in_ascii(std::string_view text, int64_t count);

/// Byte offset of a position; beyond the text it counts on as if ASCII followed, so callers clamp.
int64_t JisPosToUtf8PosKernel(std::string_view text, int64_t jisPos, TJisCount count);

/// Position of a byte offset.
int64_t Utf8PosToJisPosKernel(std::string_view text, int64_t bytes, TJisCount count);

/// Bytes from the end of the text that `jisPos` positions take there; weight 2.
int64_t JisPosToUtf8PosR(std::string_view text, int64_t jisPos, int32_t mode);

/// Byte length of `length` positions from position `start`, at most the length of the whole text.
/// With weight 1 under DISK-BASIC one position more if a kanji stands at the start.
int64_t JisLenToUtf8Len(std::string_view text, int64_t start, int64_t length, TJisCount count);

}  // namespace zoka
