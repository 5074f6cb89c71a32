// Framing of messages.
#include "app/settings/iap_wire.h"

#include <cstdint>

#include "common/handler.h"

namespace zoka {
namespace {

constexpr size_t LENGTH_BYTES = 4;
constexpr int BITS_OF_BYTE = 8;

size_t frame_length(std::string_view bytes) {
  size_t length = 0;
  for (size_t i = LENGTH_BYTES; i-- > 0;) {
    length = length << BITS_OF_BYTE | static_cast<unsigned char>(bytes[i]);
  }
  return length;
}

/// Only values that mean the same elsewhere.
TMessage without_local_fields(const TMessage& message) {
  TMessage clean(message.what);
  for (const TMessage::TField& field : message.Fields()) {
    if (field.name.starts_with(NEXT_MSG) || field.values.empty()) continue;
    if (!std::holds_alternative<THandlerId>(field.values[0])) clean.AddField(field);
  }
  return clean;
}

}  // namespace

std::string iap_frame(const TMessage& message) {
  const std::string flat = without_local_fields(message).Flatten();
  if (flat.size() > MAX_IAP_MESSAGE) return {};
  std::string frame;
  for (size_t i = 0; i < LENGTH_BYTES; ++i) {
    frame += static_cast<char>(flat.size() >> (BITS_OF_BYTE * i) & UINT8_MAX);
  }
  return frame + flat;
}

bool TIAPFrameReader::Add(std::string_view bytes) {
  if (!mBroken) mBytes += bytes;
  if (mBytes.size() >= LENGTH_BYTES && frame_length(mBytes) > MAX_IAP_MESSAGE) mBroken = true;
  if (mBroken) mBytes.clear();
  return !mBroken;
}

bool TIAPFrameReader::Next(TMessage* message) {
  if (mBroken || mBytes.size() < LENGTH_BYTES) return false;
  const size_t length = frame_length(mBytes);
  if (length <= MAX_IAP_MESSAGE && mBytes.size() < LENGTH_BYTES + length) return false;
  TMessage read;
  mBroken = length > MAX_IAP_MESSAGE ||
            !read.Unflatten(std::string_view(mBytes).substr(LENGTH_BYTES, length));
  if (mBroken) {
    mBytes.clear();
    return false;
  }
  mBytes.erase(0, LENGTH_BYTES + length);
  *message = without_local_fields(read);
  return true;
}

}  // namespace zoka
