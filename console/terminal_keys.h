// What a terminal sends for its keys, as the key presses of the simulated machine. Pure: bytes in,
// keys out.
#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "run/key_feeder.h"

namespace zoka {

/// What was typed besides keys.
enum class TTerminalRequest : uint8_t { None, Suspend };

/// Takes the keys off the front of `*bytes`. An unfinished character or sequence stays there; with
/// `isComplete` nothing more is on its way, so that a lone ESC is the Escape key. Ctrl+C is the
/// break key; Ctrl+Z yields Suspend and the keys before it.
TTerminalRequest terminal_keys(std::string* bytes, bool isComplete, std::deque<TFeedItem>* keys);

}  // namespace zoka
