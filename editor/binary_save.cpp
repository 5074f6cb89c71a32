// Walks through the records of a tokenised list and through the items of each record. Whatever the
// file says, nothing is read outside it, and a record that reaches beyond it makes it a bad one.
#include "editor/binary_save.h"

#include <charconv>

#include "common/text/ascii.h"
#include "editor/binary_save_number.h"
#include "editor/binary_save_words.h"

namespace zoka {

namespace {

/// Thrown for a bad file, and caught where decoding begins.
constexpr int32_t BAD_FILE = -1;

constexpr size_t HEADER_BYTES = 4;
constexpr unsigned WORD_DATA = 0x91;
constexpr unsigned WORD_ELSE = 0x99;
constexpr unsigned FUNCTION_PREFIX = 0xFF;

std::string number_text(int64_t value, int base = 10) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, value, base);
  return std::string(text, end.ptr);
}

/// Double-byte text between ESC K and ESC H, where a quote or a colon is half a character.
class TKanjiMode {
 public:
  bool IsOn() const { return mIsOn; }

  /// Takes the next raw byte.
  void BinSaveJpnCheck(char byte) {
    if (mLast == '\x1B' && byte == 'K') mIsOn = true;
    if (mLast == '\x1B' && byte == 'H') mIsOn = false;
    mLast = byte;
  }

 private:
  char mLast = 0;
  bool mIsOn = false;
};

/// Decodes one file.
class TDecoder {
 public:
  explicit TDecoder(std::string_view file) : mFile(file) {}

  /// The text. Throws BAD_FILE.
  std::string Decode() {
    mText.reserve(mFile.size() * 2);
    while (BinSaveGetLineInfo()) DecodeRecord();
    return std::move(mText);
  }

 private:
  unsigned ByteAt(size_t pos) const {
    return pos < mFile.size() ? static_cast<unsigned char>(mFile[pos]) : 0;
  }

  /// Reads a record's header and appends its line number; false at the end of the records. That end
  /// is known by its place alone: the last byte of the file stands where a header should begin.
  bool BinSaveGetLineInfo() {
    if (mPos >= mFile.size()) throw BAD_FILE;
    if (mPos == mFile.size() - 1) return false;
    const size_t link = ByteAt(mPos) | ByteAt(mPos + 1) << 8;
    const unsigned line = ByteAt(mPos + 2) | ByteAt(mPos + 3) << 8;
    // A shorter record would end within its header, a longer one beyond the last byte.
    if (link <= HEADER_BYTES || link >= mFile.size() - mPos) throw BAD_FILE;
    mEnd = mPos + link - 1;
    mPos += HEADER_BYTES;
    mText += number_text(line);
    return true;
  }

  /// The items of a record, and its terminator, which is not looked at.
  void DecodeRecord() {
    while (mPos < mEnd) DecodeItem();
    ++mPos;
    mText.push_back('\n');
  }

  void DecodeItem() {
    const unsigned first = BinSaveGetChar();
    if (first == 0x00) {
      BinSaveDecodeRem();
    } else if (first <= 0x09) {
      BinSaveDecodeSpace(first);
    } else if (first >= 0x0C && first <= 0x1F) {
      BinSaveDecodeNum(first);
    } else if (first == 0x22) {
      BinSaveDecodeDQuote();
    } else if (first >= 0x20 && first <= 0x40) {
      mText.push_back(static_cast<char>(first));
    } else if (first >= 0x41 && first <= 0x5A) {
      BinSaveDecodeLabelAndVar(first);
    } else if (first >= 0x80) {
      DecodeWord(first);
    } else {
      throw BAD_FILE;  // also 0x0B, which would be an octal number
    }
  }

  /// The next byte of the record.
  unsigned BinSaveGetChar() {
    if (mPos >= mEnd) throw BAD_FILE;
    return ByteAt(mPos++);
  }

  unsigned BinSaveGetInt16() {
    const unsigned low = BinSaveGetChar();
    return low | BinSaveGetChar() << 8;
  }

  /// The next `count` bytes of the record.
  std::string_view TakeBytes(size_t count) {
    if (mEnd - mPos < count) throw BAD_FILE;
    const std::string_view bytes = mFile.substr(mPos, count);
    mPos += count;
    return bytes;
  }

  void BinSaveDecodeRem() { mText += TakeBytes(mEnd - mPos); }

  void BinSaveDecodeSpace(unsigned count) { mText.append(count, ' '); }

  void BinSaveDecodeNum(unsigned form) {
    switch (form) {
      case 0x0C:
        DecodeHex();
        return;
      case 0x0E:
      case 0x1C:
        mText += number_text(static_cast<int16_t>(BinSaveGetInt16()));
        return;
      case 0x0F:
        mText += number_text(BinSaveGetChar());
        return;
      case 0x1D:
        mText += bin_save_single(TakeBytes(4));
        return;
      case 0x1F:
        mText += bin_save_double(TakeBytes(8));
        return;
      default:  // digits; the other forms have no text
        if (form >= 0x10 && form <= 0x19) mText += number_text(form - 0x10);
    }
  }

  void DecodeHex() { mText += "&H" + to_upper(number_text(BinSaveGetInt16(), 16)); }

  void BinSaveDecodeDQuote() {
    TKanjiMode kanji;
    mText.push_back('"');
    while (mPos < mEnd) {
      const char byte = static_cast<char>(BinSaveGetChar());
      mText.push_back(byte);
      kanji.BinSaveJpnCheck(byte);
      if (byte == '"' && !kanji.IsOn()) return;
    }
  }

  /// The first letter of a name stands before its length.
  void BinSaveDecodeLabelAndVar(unsigned first) {
    mText.push_back(static_cast<char>(first));
    const size_t length = BinSaveGetChar();
    mText += TakeBytes(length);
  }

  void DecodeWord(unsigned first) {
    if (first == WORD_DATA) return BinSaveDecodeData();
    // The format stores a colon before each ELSE. Whatever byte stands there goes.
    if (first == WORD_ELSE) mText.pop_back();
    const unsigned code = first == FUNCTION_PREFIX ? first << 8 | BinSaveGetChar() : first;
    BinSaveDecodeReservedWord(static_cast<int32_t>(code));
  }

  void BinSaveDecodeReservedWord(int32_t code) {
    const std::string_view word = bin_save_word(code);
    if (word.empty()) throw BAD_FILE;
    mText += word;
  }

  /// DATA and its raw text, up to a colon outside quotes and kanji, or to a remark.
  void BinSaveDecodeData() {
    TKanjiMode kanji;
    bool isQuoted = false;
    mText += "DATA";
    while (mPos < mEnd) {
      const char byte = mFile[mPos];
      if (byte == '\0' && !kanji.IsOn() && !isQuoted) return;
      ++mPos;
      mText.push_back(byte);
      kanji.BinSaveJpnCheck(byte);
      if (kanji.IsOn()) continue;
      if (byte == '"') isQuoted = !isQuoted;
      if (byte == ':' && !isQuoted) return;
    }
  }

  std::string_view mFile;
  size_t mPos = 1;  // behind the magic
  size_t mEnd = 0;  // the terminator of the present record
  std::string mText;
};

}  // namespace

int32_t BinSaveToAsciiSave(std::string* buf) {
  if (!is_bin_save(*buf)) return BAD_FILE;
  try {
    *buf = TDecoder(*buf).Decode();
  } catch (int32_t failure) {
    return failure;
  }
  return 0;
}

}  // namespace zoka
