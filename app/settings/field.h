// How one field of a record is written to a message and read from it. The tables of the records
// name the type; the rest follows from it.
#pragma once

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <string>

#include "common/message.h"

namespace zoka {

inline void archive_field(TMessage* to, const char* key, bool value) {
  to->AddBool(key, value);
}
inline void archive_field(TMessage* to, const char* key, int32_t value) {
  to->AddInt32(key, value);
}
inline void archive_field(TMessage* to, const char* key, int64_t value) {
  to->AddInt64(key, value);
}
inline void archive_field(TMessage* to, const char* key, float value) {
  to->AddFloat(key, value);
}
inline void archive_field(TMessage* to, const char* key, const std::string& value) {
  to->AddString(key, value);
}
inline void archive_field(TMessage* to, const char* key, const TFrame& value) {
  to->AddRect(key, value);
}

/// Each reads the field into `*out` where it is there and of that type.
inline bool find_field(const TMessage& from, const char* key, bool* out) {
  return from.FindBool(key, out);
}
inline bool find_field(const TMessage& from, const char* key, int32_t* out) {
  return from.FindInt32(key, out);
}
inline bool find_field(const TMessage& from, const char* key, int64_t* out) {
  return from.FindInt64(key, out);
}
inline bool find_field(const TMessage& from, const char* key, float* out) {
  return from.FindFloat(key, out) && std::isfinite(*out);
}
inline bool find_field(const TMessage& from, const char* key, std::string* out) {
  return from.FindString(key, out);
}
inline bool find_field(const TMessage& from, const char* key, TFrame* out) {
  TFrame frame;
  if (!from.FindRect(key, &frame)) return false;
  for (float side : {frame.left, frame.top, frame.right, frame.bottom}) {
    if (!std::isfinite(side)) return false;
  }
  // A frame without an inside is no window's.
  if (frame.right <= frame.left || frame.bottom <= frame.top) return false;
  *out = frame;
  return true;
}

/// Reads a number that other threads see, brought into its range.
template <typename T>
void unarchive_clamped(const TMessage& from, const char* key, std::atomic<T>* out, T least,
                       T greatest) {
  T value{};
  if (find_field(from, key, &value)) *out = std::clamp(value, least, greatest);
}

inline void unarchive_flag(const TMessage& from, const char* key, std::atomic<bool>* out) {
  bool value = false;
  if (find_field(from, key, &value)) *out = value;
}

}  // namespace zoka
