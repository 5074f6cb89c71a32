// How messages of the shared preferences travel between applications: each a length of four bytes,
// lowest first, and the flat message. Which channel carries them is elsewhere.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "common/message.h"

namespace zoka {

/// The greatest flat message that may travel.
constexpr size_t MAX_IAP_MESSAGE = 64 * 1024;

/// The bytes of a message; empty for one that is too large. Handlers and continuations mean
/// nothing elsewhere and stay behind.
std::string iap_frame(const TMessage& message);

/// Puts arriving bytes together to messages. Once it has met nonsense it takes nothing more.
class TIAPFrameReader {
 public:
  /// Adds bytes; false from the first ones on that cannot be a message.
  bool Add(std::string_view bytes);
  /// Takes the next whole message; false if there is none yet.
  bool Next(TMessage* message);
  bool IsBroken() const { return mBroken; }

 private:
  std::string mBytes;
  bool mBroken = false;
};

}  // namespace zoka
