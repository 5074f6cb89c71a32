// Which key types which byte, and how long it is down.
#include "run/typed_keys.h"

#include <algorithm>

#include "common/text/utf8.h"
#include "run/screen/host_keys.h"

namespace zoka {
namespace {

/// A row of keys that lie side by side: the code of its first key, and what each types.
struct TKeyRow {
  uint8_t firstCode;
  std::string_view plain;
  std::string_view shifted;
};
constexpr TKeyRow KEY_ROWS[] = {
    {0x12, "1234567890-^", "!\"#$%&'() =~"},
    {0x27, "qwertyuiop@[", "QWERTYUIOP`{"},
    {0x3C, "asdfghjkl;:", "ASDFGHJKL+*"},
    {0x4C, "zxcvbnm,./", "ZXCVBNM<>?"},
    {0x33, "]", "}"},
    {0x6A, "\\", "|"},
};

/// Keys that type a byte of the platform.
struct TByteKey {
  char byte;
  uint8_t code;
};
constexpr TByteKey BYTE_KEYS[] = {
    {HOST_KEY_HOME, 0x20},      {HOST_KEY_END, 0x35},       {HOST_KEY_INSERT, 0x1F},
    {HOST_KEY_BACKSPACE, 0x1E}, {HOST_KEY_TAB, 0x26},       {HOST_KEY_ENTER, 0x47},
    {HOST_KEY_PAGE_UP, 0x21},   {HOST_KEY_PAGE_DOWN, 0x36}, {'\r', 0x47},
    {HOST_KEY_ESCAPE, 0x01},    {HOST_KEY_LEFT, 0x61},      {HOST_KEY_RIGHT, 0x63},
    {HOST_KEY_UP, 0x57},        {HOST_KEY_DOWN, 0x62},      {' ', 0x5E},
    {HOST_KEY_DELETE, 0x34},
};

constexpr uint8_t FIRST_FUNCTION_KEY = 0x02;

constexpr bigtime_t LONG_AGO = -TYPED_KEY_TIME;

bool is_continuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

}  // namespace

size_t typed_character(std::string_view text, bool isComplete) {
  constexpr int32_t LONGEST_CHARACTER = 4;
  const auto wanted = static_cast<size_t>(std::min(char_bytes(text[0]), LONGEST_CHARACTER));
  size_t count = 1;
  while (count < std::min(wanted, text.size()) && is_continuation(text[count])) ++count;
  const bool isCutOff = count < wanted && count == text.size();
  return isCutOff && !isComplete ? 0 : count;
}

uint8_t typed_key_code(std::string_view bytes) {
  if (bytes.size() != 1) return 0;
  for (const TByteKey& key : BYTE_KEYS) {
    if (key.byte == bytes[0]) return key.code;
  }
  for (const TKeyRow& row : KEY_ROWS) {
    for (std::string_view typed : {row.plain, row.shifted}) {
      size_t at = typed.find(bytes[0]);
      if (at != typed.npos) return static_cast<uint8_t>(row.firstCode + at);
    }
  }
  return 0;
}

uint8_t function_key_code(int32_t number) {
  if (number < 1 || number > HOST_FUNCTION_KEYS) return 0;
  return static_cast<uint8_t>(FIRST_FUNCTION_KEY + number - 1);
}

TTypedKeys::TTypedKeys() {
  for (auto& pushed : mPushed) pushed.store(LONG_AGO);
}

void TTypedKeys::Push(uint8_t code, bigtime_t now) {
  if (code != 0 && code < CODES) mPushed[code].store(now);
}

bool TTypedKeys::IsDown(uint8_t code, bigtime_t now) const {
  return code < CODES && now - mPushed[code].load() < TYPED_KEY_TIME;
}

}  // namespace zoka
