// TTypedKeys: the key matrix of keys that are typed as bytes, by a script, a pipe or a terminal,
// which tell of a press but never of a release. A window knows real keys; see TRunHost::KeyStates.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "common/types.h"

namespace zoka {

/// How long a typed key is taken to be down; microseconds.
constexpr bigtime_t TYPED_KEY_TIME = 50'000;

/// How many bytes of `text`, which is not empty, are its first key: those of a character as far as
/// they belong together. A stray byte is a key of its own, lest it swallow the Return or the break
/// behind it. 0 if `text` ends inside a character that may go on, as it may unless `isComplete`.
size_t typed_character(std::string_view text, bool isComplete);

/// The matrix code of the key that types these bytes on a Japanese keyboard, shifted or not; 0 if
/// no single key does.
uint8_t typed_key_code(std::string_view bytes);
/// The matrix code of a function key, counted from 1; 0 above 12.
uint8_t function_key_code(int32_t number);

/// When each key was pushed last. From any thread.
class TTypedKeys {
 public:
  TTypedKeys();

  /// The key `code` goes down at `now`. Code 0 is no key.
  void Push(uint8_t code, bigtime_t now);
  bool IsDown(uint8_t code, bigtime_t now) const;

 private:
  static constexpr size_t CODES = 128;
  std::array<std::atomic<bigtime_t>, CODES> mPushed;
};

}  // namespace zoka
