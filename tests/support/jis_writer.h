// Writers of the old machines' text for tests: Shift-JIS, ISO-2022-JP and the PC-98's JIS.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/text/charset.h"
#include "common/text/jis.h"
#include "common/text/utf8.h"

namespace zoka {

/// One character at a time, each ASCII, half-width kana or with a JIS code.
class TJisWriter {
 public:
  /// The escape sequences around kanji.
  TJisWriter(std::string_view kanjiIn, std::string_view kanjiOut)
      : mKanjiIn(kanjiIn), mKanjiOut(kanjiOut) {}

  void Put(char32_t code) {
    const uint32_t jis = unicode_to_jis(code);
    if ((jis != 0) != mIsKanji) mBytes += mIsKanji ? mKanjiOut : mKanjiIn;
    mIsKanji = jis != 0;
    if (mIsKanji) {
      mBytes.push_back(static_cast<char>(jis >> 8));
      mBytes.push_back(static_cast<char>(jis & 0xFF));
    } else {
      mBytes.push_back(static_cast<char>(code < 0x80 ? code : code - 0xFF61 + 0xA1));
    }
  }

  /// Closes the last run of kanji.
  std::string Finish() {
    if (mIsKanji) mBytes += mKanjiOut;
    mIsKanji = false;
    return mBytes;
  }

 private:
  std::string_view mKanjiIn;
  std::string_view mKanjiOut;
  std::string mBytes;
  bool mIsKanji = false;
};

/// Appends a character to Shift-JIS text.
inline void append_sjis(std::string* bytes, char32_t code) {
  const uint32_t jis = unicode_to_jis(code);
  if (jis == 0) {
    bytes->push_back(static_cast<char>(code < 0x80 ? code : code - 0xFF61 + 0xA1));
    return;
  }
  const unsigned row = (jis >> 8) - 0x21;
  const unsigned cell = (jis & 0xFF) - 0x21;
  const unsigned lead = row / 2 + (row < 62 ? 0x81 : 0xC1);
  const unsigned trail = row % 2 == 1 ? cell + 0x9F : cell + (cell < 63 ? 0x40 : 0x41);
  bytes->push_back(static_cast<char>(lead));
  bytes->push_back(static_cast<char>(trail));
}

}  // namespace zoka
