// TScreenOwner: what the simulated screen asks of the run view above it.
#pragma once

#include <cstdint>
#include <string>

#include "common/types.h"

namespace zoka {

/// Implemented by the run view. No lock of the screen is held during any of these calls.
class TScreenOwner {
 public:
  virtual ~TScreenOwner() = default;

  /// Something may be waiting in `modifiedRect`: take the window's lock (for at most
  /// UPDATE_LOCK_LIMIT) and paint it, or let it be; it stays for the next call. Machine's thread
  /// and host's thread.
  virtual void UpdateScreenRqtd() = 0;

  /// Arms ON TIME$ for "hh:mm:ss"; 0, or -1 for a malformed time. Machine's thread.
  virtual int32_t SetOnTimeDl(const char* hhmmss) = 0;

  /// Adds `change` (+1 or -1) to the accesses under way on drive index 0 or 1. Machine's thread for
  /// +1, the clock's for -1; must be short.
  virtual void SetFDDAccessLamp(int32_t driveIdx, int32_t change) = 0;

  /// A row is about to scroll off the top of the console area; its text, without trailing blanks,
  /// as well-formed UTF-8. Called before the rows move. The thread that prints.
  virtual void TranscriptRow(const std::string& row) = 0;

  /// The machine is about to block until a key comes or `deadline` (FOREVER for none) passes; flush
  /// what it has shown. Machine's thread.
  virtual void KeyWaitBegins(bigtime_t deadline) = 0;

  /// A key was taken or the buffer emptied: there is room for more. The thread that did it.
  virtual void KeyBufHasRoom() = 0;
};

/// How long UpdateScreen may wait for the window's lock, in microseconds of real time.
constexpr bigtime_t UPDATE_LOCK_LIMIT = 300'000;

}  // namespace zoka
