// Reading from files, byte by byte.
#include "vm/file_input.h"

#include <algorithm>
#include <string_view>

#include "app/settings/compat_mode.h"
#include "common/text/utf8.h"
#include "vm/jis_position.h"

namespace zoka {
namespace {

constexpr std::string_view DELIMLIST_5DELIMS = " ;,\r\n";
constexpr std::string_view DELIMLIST_CRLF = "\r\n";
constexpr int32_t KANJI_WEIGHT = 2;

/// Takes an LF that follows a CR.
void skip_line_feed(TBasicFile& file) {
  char byte;
  int64_t position = file.Position();
  if (file.ReadByte(&byte) && byte != '\n') file.Seek(position);
}

/// Reads one item; false if the file ended before it began.
bool read_item(TBasicFile& file, bool asLine, std::string* item) {
  std::string_view delimiters = asLine ? DELIMLIST_CRLF : DELIMLIST_5DELIMS;
  bool begun = false;
  char byte;
  while (file.ReadByte(&byte)) {
    if (!begun && byte == ' ') continue;
    if (!begun && byte == '"') {
      begun = true;
      while (file.ReadByte(&byte) && byte != '"') *item += byte;
      continue;
    }
    if (delimiters.find(byte) != delimiters.npos) {
      if (byte == '\r') skip_line_feed(file);
      return true;
    }
    begun = true;
    *item += byte;
  }
  return begun;
}

/// Reads the bytes of one character; false at the end of the file.
bool read_character(TBasicFile& file, std::string* character) {
  char byte;
  if (!file.ReadByte(&byte)) return false;
  *character = byte;
  int32_t wanted = std::min(char_bytes(byte), 4);
  while (static_cast<int32_t>(character->size()) < wanted && file.ReadByte(&byte)) {
    *character += byte;
  }
  return true;
}

}  // namespace

void InputFromFile(TBasicFile& file, int32_t count, std::list<std::string>* items, bool asLine) {
  items->clear();
  for (int32_t i = 0; i < count; ++i) {
    std::string item;
    if (!read_item(file, asLine, &item)) return;
    items->push_back(std::move(item));
  }
}

bool InputDlFromFile(TBasicFile& file, int32_t count, int32_t mode, std::string* text) {
  int64_t position = 0;
  bool wasKanji = false;
  bool counts = mode == COMPAT_DISK;
  auto closing = [&] { return counts && wasKanji ? KANJI_WEIGHT : 0; };
  while (position + closing() < count) {
    std::string character;
    if (!read_character(file, &character)) return false;
    bool isKanji = char_bytes(character[0]) > 1 && half_kana_index(character) < 0;
    if (isKanji != wasKanji && counts) position += KANJI_WEIGHT;
    position += isKanji ? KANJI_WEIGHT : 1;
    wasKanji = isKanji;
    *text += character;
  }
  return true;
}

}  // namespace zoka
