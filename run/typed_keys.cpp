// Which key types which byte, and how long it is down.
#include "run/typed_keys.h"

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
    {0x01, 0x20}, {0x04, 0x35}, {0x05, 0x1F}, {0x08, 0x1E}, {0x09, 0x26}, {0x0A, 0x47},
    {0x0B, 0x21}, {0x0C, 0x36}, {0x0D, 0x47}, {0x1B, 0x01}, {0x1C, 0x61}, {0x1D, 0x63},
    {0x1E, 0x57}, {0x1F, 0x62}, {' ', 0x5E},  {0x7F, 0x34},
};

constexpr uint8_t FIRST_FUNCTION_KEY = 0x02;
constexpr int32_t FUNCTION_KEYS = 12;

constexpr bigtime_t LONG_AGO = -TYPED_KEY_TIME;

}  // namespace

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
  if (number < 1 || number > FUNCTION_KEYS) return 0;
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
