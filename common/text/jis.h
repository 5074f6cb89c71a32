// The one table of double-byte characters: JIS codes and Shift-JIS pairs to Unicode and back. It is
// filled when it is first used and costs nothing before; single bytes and shift sequences are the
// business of those who read texts.
#pragma once

#include <cstdint>

namespace zoka {

/// Bytes of a JIS code, row and cell alike, lie in this range.
constexpr unsigned JIS_FIRST = 0x21;
constexpr unsigned JIS_LAST = 0x7E;

/// The character of a Shift-JIS pair, or 0 if the pair stands for none. Any thread.
char32_t sjis_to_unicode(unsigned char lead, unsigned char trail);

/// The character of a JIS code such as 0x3021 (first byte times 256 plus second byte), or 0 if
/// there is none. The rows of NEC are known: 0x2D21 is U+2460. Any thread.
char32_t jis_to_unicode(uint32_t jis);

/// The JIS code of a double-byte character, the lowest where there are several, or 0. Characters
/// that differ from the table's only by convention (U+301C and U+FF5E, and their like) are taken
/// for those of the table. Any thread.
uint32_t unicode_to_jis(char32_t code);

/// True for the first byte of a Shift-JIS pair, and for a byte that can be the second.
constexpr bool is_sjis_lead(unsigned char byte) {
  return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}
constexpr bool is_sjis_trail(unsigned char byte) {
  return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

}  // namespace zoka
