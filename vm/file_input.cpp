// Reading from files, byte by byte.
#include "vm/file_input.h"

#include <algorithm>
#include <new>
#include <string_view>

#include "app/settings/compat_mode.h"
#include "common/text/utf8.h"
#include "vm/jis_position.h"

namespace zoka {
namespace {

constexpr std::string_view DELIMLIST_5DELIMS = " ;,\r\n";
constexpr std::string_view DELIMLIST_CRLF = "\r\n";
constexpr int32_t KANJI_WEIGHT = 2;

/// Bytes between two looks at whether to go on.
constexpr int32_t LOOK_BYTES = 64 * 1024;

/// The bytes of a file, within the bounds of one statement.
class TBoundedReader {
 public:
  TBoundedReader(TBasicFile& file, const TFileInputBounds& bounds)
      : mFile(file), mRoom(bounds.bytes), mReader(bounds.reader) {}

  /// False at the end of the file, and when the reading is to end.
  bool ReadByte(char* byte) {
    if (--mUntilLook == 0 && !GoesOn()) return false;
    return mFile.ReadByte(byte);
  }
  /// Appends a byte that counts.
  void Keep(char byte, std::string* text) {
    if (--mRoom < 0) throw std::bad_alloc();
    *text += byte;
  }
  /// Takes an LF that follows a CR.
  void SkipLineFeed() {
    char byte;
    int64_t position = mFile.Position();
    if (mFile.ReadByte(&byte) && byte != '\n') mFile.Seek(position);
  }

 private:
  bool GoesOn() {
    const bool ends = mReader != nullptr && mReader->IsTerminated();
    mUntilLook = ends ? 1 : LOOK_BYTES;
    return !ends;
  }

  TBasicFile& mFile;
  int64_t mRoom;
  const TThread* mReader;
  int32_t mUntilLook = LOOK_BYTES;
};

/// Reads one item; false if the file ended before it began.
bool read_item(TBoundedReader& file, bool asLine, std::string* item) {
  std::string_view delimiters = asLine ? DELIMLIST_CRLF : DELIMLIST_5DELIMS;
  bool begun = false;
  char byte;
  while (file.ReadByte(&byte)) {
    if (!begun && byte == ' ') continue;
    if (!begun && byte == '"') {
      begun = true;
      while (file.ReadByte(&byte) && byte != '"') file.Keep(byte, item);
      continue;
    }
    if (delimiters.find(byte) != delimiters.npos) {
      if (byte == '\r') file.SkipLineFeed();
      return true;
    }
    begun = true;
    file.Keep(byte, item);
  }
  return begun;
}

/// Reads the bytes of one character; false at the end of the file.
bool read_character(TBoundedReader& file, std::string* character) {
  char byte;
  if (!file.ReadByte(&byte)) return false;
  character->clear();
  file.Keep(byte, character);
  int32_t wanted = std::min(char_bytes(byte), 4);
  while (static_cast<int32_t>(character->size()) < wanted && file.ReadByte(&byte)) {
    file.Keep(byte, character);
  }
  return true;
}

}  // namespace

void InputFromFile(TBasicFile& file, int32_t count, std::list<std::string>* items, bool asLine,
                   const TFileInputBounds& bounds) {
  items->clear();
  TBoundedReader reader(file, bounds);
  for (int32_t i = 0; i < count; ++i) {
    std::string item;
    if (!read_item(reader, asLine, &item)) return;
    items->push_back(std::move(item));
  }
}

bool InputDlFromFile(TBasicFile& file, int32_t count, int32_t mode, std::string* text,
                     const TFileInputBounds& bounds) {
  TBoundedReader reader(file, bounds);
  int64_t position = 0;
  bool wasKanji = false;
  bool counts = mode == COMPAT_DISK;
  auto closing = [&] { return counts && wasKanji ? KANJI_WEIGHT : 0; };
  while (position + closing() < count) {
    std::string character;
    if (!read_character(reader, &character)) return false;
    bool isKanji = char_bytes(character[0]) > 1 && half_kana_index(character) < 0;
    if (isKanji != wasKanji && counts) position += KANJI_WEIGHT;
    position += isKanji ? KANJI_WEIGHT : 1;
    wasKanji = isKanji;
    *text += character;
  }
  return true;
}

}  // namespace zoka
