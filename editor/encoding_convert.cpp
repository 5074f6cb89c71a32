// Two small machines, one for Shift-JIS and one for JIS, and the PC-98's replacements.
#include "editor/encoding_convert.h"

#include <array>
#include <unordered_map>

#include "common/text/charset.h"
#include "common/text/jis.h"
#include "common/text/utf8.h"

namespace zoka {

namespace {

constexpr unsigned char ESCAPE = 0x1B;

/// PC-98 bytes and what they become; bytes not named here stay.
struct TByteRun {
  unsigned first;
  std::string_view replacements;
};
constexpr TByteRun PC98_BYTES[] = {
    {0x80, "__---###[[|||##+"},
    {0x90, "^T<>`-|][][]()()"},
    {0xE0, "=>=</\\\\/nvom*O/\\"},
    {0xF0, "X\\YMDHMS"},
};

using TCharTable1 = std::array<char, 256>;
using TCharTable2 = std::unordered_map<uint32_t, std::string>;

TCharTable1 ConvertJisToJisInit98CharTable1(bool cv98) {
  TCharTable1 table;
  for (size_t i = 0; i < table.size(); ++i) table[i] = static_cast<char>(i);
  if (!cv98) return table;
  for (const TByteRun& run : PC98_BYTES) {
    for (size_t i = 0; i < run.replacements.size(); ++i) table[run.first + i] = run.replacements[i];
  }
  return table;
}

/// Single-byte text within a run of kanji.
std::string outside_kanji(std::string_view bytes) {
  return std::string(BEOS_KO_CODE).append(bytes).append(BEOS_KI_CODE);
}

/// Single bytes that were written as pairs with a first byte of 0.
void add_half_width(TCharTable2* table, unsigned first, unsigned last) {
  for (unsigned code = first; code <= last; ++code)
    (*table)[code] = outside_kanji(std::string(1, static_cast<char>(code)));
}

/// A run of codes that become the double-byte characters `target` and following.
void add_full_width(TCharTable2* table, unsigned first, unsigned count, unsigned target) {
  for (unsigned i = 0; i < count; ++i) {
    (*table)[first + i] = {static_cast<char>(target >> 8), static_cast<char>((target & 0xFF) + i)};
  }
}

TCharTable2 ConvertJisToJisInit98CharTable2(bool cv98) {
  TCharTable2 table;
  if (!cv98) return table;
  add_half_width(&table, 0x0020, 0x007F);
  add_half_width(&table, 0x00A0, 0x00DF);
  table[0x2B21] = outside_kanji(" ");
  add_full_width(&table, 0x2D21, 9, 0x2331);  // circled digits
  for (unsigned i = 0; i <= 10; ++i) table[0x2D2A + i] = outside_kanji(std::to_string(10 + i));
  add_full_width(&table, 0x2D35, 9, 0x2331);  // Roman numerals
  table[0x2D3E] = outside_kanji("10");
  add_full_width(&table, 0x23C1, 26, 0x2341);  // capitals
  return table;
}

/// Decodes Shift-JIS.
class TSjisDecoder {
 public:
  TSjisDecoder(std::string_view source, std::string* utf8) : mSource(source), mUtf8(*utf8) {}

  bool Decode() {
    while (mAt < mSource.size()) {
      const unsigned char byte = ByteAt(mAt);
      if (is_sjis_lead(byte)) {
        if (mAt + 1 == mSource.size()) return false;
        DecodePair(byte, ByteAt(mAt + 1));
      } else {
        DecodeSingle(byte);
      }
    }
    return true;
  }

 private:
  unsigned char ByteAt(size_t at) const { return static_cast<unsigned char>(mSource[at]); }

  void DecodePair(unsigned char lead, unsigned char trail) {
    const char32_t code = sjis_to_unicode(lead, trail);
    append_utf8(&mUtf8, code != 0 ? code : static_cast<char32_t>(SUBSTITUTE));
    mAt += is_sjis_trail(trail) ? 2 : 1;  // a byte that can't be the second is a new character
  }

  void DecodeSingle(unsigned char byte) {
    if (byte < 0x80) {
      mUtf8.push_back(static_cast<char>(byte));
    } else if (byte >= 0xA1 && byte <= 0xDF) {
      mUtf8 += half_kana(byte - 0xA1);
    } else {
      mUtf8.push_back(SUBSTITUTE);
    }
    ++mAt;
  }

  std::string_view mSource;
  std::string& mUtf8;
  size_t mAt = 0;
};

/// Decodes JIS: ISO-2022-JP with half-width kana in eight bits.
class TJisDecoder {
 public:
  TJisDecoder(std::string_view source, std::string* utf8) : mSource(source), mUtf8(*utf8) {}

  bool Decode() {
    while (mAt < mSource.size()) {
      const unsigned char byte = ByteAt(mAt);
      const bool isWhole = byte == ESCAPE ? DecodeEscape() : DecodeCharacter(byte);
      if (!isWhole) return false;
    }
    return true;
  }

 private:
  enum class TSet : uint8_t { Single, Kana, Pairs };

  struct TSequence {
    std::string_view bytes;
    TSet set;
  };
  static constexpr TSequence SEQUENCES[] = {
      {"\x1B(B", TSet::Single}, {"\x1B(J", TSet::Single}, {"\x1B(I", TSet::Kana},
      {"\x1B$@", TSet::Pairs},  {"\x1B$B", TSet::Pairs},
  };

  unsigned char ByteAt(size_t at) const { return static_cast<unsigned char>(mSource[at]); }

  /// False if the text ends within an escape sequence that could still be a good one.
  bool DecodeEscape() {
    const std::string_view rest = mSource.substr(mAt);
    for (const TSequence& sequence : SEQUENCES) {
      if (rest.starts_with(sequence.bytes)) {
        mSet = sequence.set;
        mAt += sequence.bytes.size();
        return true;
      }
      if (sequence.bytes.starts_with(rest)) return false;
    }
    Put(SUBSTITUTE, 1);
    return true;
  }

  /// Controls and blanks stand for themselves everywhere, a NUL too; a line feed ends kanji.
  bool DecodeCharacter(unsigned char byte) {
    if (byte < JIS_FIRST) {
      if (byte == '\n') mSet = TSet::Single;
      Put(byte, 1);
      return true;
    }
    if (mSet == TSet::Pairs) return DecodePair(byte);
    Put(SingleCharacter(byte), 1);
    return true;
  }

  char32_t SingleCharacter(unsigned char byte) const {
    if (byte >= 0xA1 && byte <= 0xDF) return 0xFF61u + (byte - 0xA1u);
    if (byte >= 0x80) return SUBSTITUTE;
    if (mSet == TSet::Single) return byte;
    return byte <= 0x5F ? 0xFF61u + (byte - 0x21u) : SUBSTITUTE;
  }

  /// False if the text ends between the two bytes.
  bool DecodePair(unsigned char first) {
    if (mAt + 1 == mSource.size()) return false;
    const unsigned char second = ByteAt(mAt + 1);
    const char32_t code = jis_to_unicode(static_cast<uint32_t>(first) << 8 | second);
    Put(code != 0 ? code : static_cast<char32_t>(SUBSTITUTE), second < JIS_FIRST ? 1 : 2);
    return true;
  }

  void Put(char32_t code, size_t taken) {
    append_utf8(&mUtf8, code);
    mAt += taken;
  }

  std::string_view mSource;
  std::string& mUtf8;
  size_t mAt = 0;
  TSet mSet = TSet::Single;
};

/// One pass of ConvertJisToJis.
class TPc98Converter {
 public:
  TPc98Converter(std::string_view source, bool cv98)
      : mSource(source),
        mTable1(ConvertJisToJisInit98CharTable1(cv98)),
        mTable2(ConvertJisToJisInit98CharTable2(cv98)) {
    mResult.reserve(source.size() + source.size() / 8);
  }

  std::string Convert() {
    for (size_t at = 0; at < mSource.size();) at += mIsKanji ? InKanji(at) : OutsideKanji(at);
    return std::move(mResult);
  }

  int64_t Count() const { return mCount; }

 private:
  /// Each converts what stands at `at` and returns the bytes to step.
  size_t OutsideKanji(size_t at) {
    if (mSource.substr(at).starts_with(BAS_KI_CODE)) {
      mIsKanji = true;
      mResult += BEOS_KI_CODE;
      return BAS_KI_CODE.size();
    }
    const char replacement = mTable1[static_cast<unsigned char>(mSource[at])];
    if (replacement != mSource[at]) ++mCount;
    mResult.push_back(replacement);
    return 1;
  }

  size_t InKanji(size_t at) {
    if (mSource.substr(at).starts_with(BAS_KO_CODE)) {
      mIsKanji = false;
      mResult += BEOS_KO_CODE;
      return BAS_KO_CODE.size();
    }
    // A last byte without a partner pairs with the NUL behind the text.
    const char pair[] = {mSource[at], at + 1 < mSource.size() ? mSource[at + 1] : '\0'};
    const uint32_t code = static_cast<uint32_t>(static_cast<unsigned char>(pair[0])) << 8 |
                          static_cast<unsigned char>(pair[1]);
    const auto found = mTable2.find(code);
    if (found == mTable2.end()) {
      mResult.append(pair, 2);
    } else {
      ++mCount;
      mResult += found->second;
    }
    return 2;
  }

  std::string_view mSource;
  const TCharTable1 mTable1;
  const TCharTable2 mTable2;
  std::string mResult;
  int64_t mCount = 0;
  bool mIsKanji = false;
};

}  // namespace

int64_t ConvertJisToJis(std::string* text, bool cv98) {
  TPc98Converter converter(*text, cv98);
  *text = converter.Convert();
  return converter.Count();
}

bool convert_to_utf8(int32_t charset, std::string_view source, std::string* utf8) {
  utf8->clear();
  utf8->reserve(source.size() * 2);
  if (charset == CHARSET_SJIS) return TSjisDecoder(source, utf8).Decode();
  return TJisDecoder(source, utf8).Decode();
}

}  // namespace zoka
