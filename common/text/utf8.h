// UTF-8 as the language sees it: the length of characters, kanji and half-width kana, and the two
// kana tables. Texts of programs may hold any bytes; nothing here reads past their end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zoka {

/// Number of half-width kana with their punctuation, U+FF61 to U+FF9F.
constexpr int32_t HALF_KANA_COUNT = 63;

/// Bytes of a half-width kana, and of its full-width form.
constexpr size_t KANA_BYTES = 3;

/// The 63 half-width kana in code order.
constexpr std::string_view HALF_KANA_STR =
    "｡｢｣､･ｦｧｨｩｪｫｬｭｮｯｰｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜﾝﾞﾟ";

/// Their full-width forms in the same order.
constexpr std::string_view FULL_KANA_STR =
    "。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノ"
    "ハヒフヘホマミムメモヤユヨラリルレロワン゛゜";

static_assert(HALF_KANA_STR.size() == HALF_KANA_COUNT * KANA_BYTES);
static_assert(FULL_KANA_STR.size() == HALF_KANA_COUNT * KANA_BYTES);

/// The half-width kana number `index` (0 to 62), and its full-width form.
constexpr std::string_view half_kana(int32_t index) {
  return HALF_KANA_STR.substr(static_cast<size_t>(index) * KANA_BYTES, KANA_BYTES);
}
constexpr std::string_view full_kana(int32_t index) {
  return FULL_KANA_STR.substr(static_cast<size_t>(index) * KANA_BYTES, KANA_BYTES);
}

/// The number (0 to 62) of the half-width kana that `text` begins with, or -1.
constexpr int32_t half_kana_index(std::string_view text) {
  if (text.size() < KANA_BYTES || text[0] != '\xEF') return -1;
  const unsigned second = static_cast<unsigned char>(text[1]);
  const unsigned third = static_cast<unsigned char>(text[2]);
  if (second == 0xBD && third >= 0xA1 && third <= 0xBF) return static_cast<int32_t>(third - 0xA1);
  if (second == 0xBE && third >= 0x80 && third <= 0x9F) return static_cast<int32_t>(third - 0x61);
  return -1;
}

/// The number (0 to 62) of the full-width kana that `text` begins with, or -1.
int32_t full_kana_index(std::string_view text);

/// The number of leading one bits of a UTF-8 lead byte, 1 when there are none. A byte that leads
/// nothing gives what its bits say, so up to 8: see char_length.
constexpr int32_t char_bytes(char lead) {
  int32_t count = 0;
  for (unsigned byte = static_cast<unsigned char>(lead); byte & 0x80; byte = byte << 1 & 0xFF)
    ++count;
  return count > 0 ? count : 1;
}

/// Bytes that the first character of `text` takes: char_bytes, but at most 4 and never beyond the
/// text, which also ends at a NUL; 0 for an empty text.
constexpr size_t char_length(std::string_view text) {
  if (text.empty() || text[0] == '\0') return 0;
  size_t wanted = static_cast<size_t>(char_bytes(text[0]));
  if (wanted > 4) wanted = 4;
  size_t length = 1;
  while (length < wanted && length < text.size() && text[length] != '\0') ++length;
  return length;
}

/// True if `text` begins with a multi-byte character that is no half-width kana. Such a character
/// takes two columns of the screen.
constexpr bool is_kanji(std::string_view text) {
  return !text.empty() && char_bytes(text[0]) > 1 && half_kana_index(text) < 0;
}

/// Appends a character; a surrogate or a number above U+10FFFF becomes U+FFFD.
void append_utf8(std::string* text, char32_t code);

/// The character that `text` begins with, well-formed or U+FFFD, and in `length` the bytes it took
/// (1 for a byte that belongs to no character; 0 for an empty text).
char32_t decode_utf8(std::string_view text, size_t* length);

/// True if all of `text` is well-formed UTF-8 (no surrogates, no over-long forms).
bool is_utf8(std::string_view text);

}  // namespace zoka
