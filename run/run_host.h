// TRunHost: what the run view asks of its front end. The window application shows it, the console
// tool writes it; with the null host a run goes unseen.
#pragma once

#include <bitset>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "common/message.h"
#include "common/types.h"

namespace zoka {

class TFrameBuffer;

/// Key codes of the simulated keyboard's matrix.
constexpr size_t KEY_MATRIX_SIZE = 128;
using TKeyStates = std::bitset<KEY_MATRIX_SIZE>;

/// All calls may come from any thread of the engine unless stated, must not wait for one, and must
/// not call back into the run view but through Post. The defaults do nothing.
class TRunHost {
 public:
  virtual ~TRunHost() = default;

  /// Runs `fn` on the host's own thread, later.
  virtual void Post(std::function<void()> fn);

  /// The picture has changed inside `rect` (device pixels). Coalesced by the host.
  virtual void Present(const TRect& rect);
  /// The picture has changed but was not composed yet: call TRunView::FlushScreen within a frame.
  virtual void ComposeSoon();
  /// False if nobody looks at pixels: they are then not composed.
  virtual bool WantsPicture() const;

  /// A row has left the top of the console area for good. In order; before FlushOutput.
  virtual void TranscriptRow(std::string_view row);
  /// What is held back goes out: a wait follows.
  virtual void FlushOutput();

  virtual void SetTitle(const std::string& title);
  /// The folder of drive `index` (0 or 1): its path, empty for none, and the name to show.
  virtual void DriveChanged(int32_t index, const std::string& path, const std::string& name);
  /// An access lamp is switched on (+1) or off (-1).
  virtual void Lamp(int32_t index, int32_t change);

  virtual void SetClipboardText(const std::string& text);
  virtual void SetClipboardImage(const TFrameBuffer& image);

  /// Keys that are down now.
  virtual TKeyStates KeyStates() const;
  /// The pointer is to be followed beyond the view while a button is down. For hosts whose toolkit
  /// does not do so by itself.
  virtual void CapturePointer(bool capture);
  /// Free memory in KBytes, for the boot text.
  virtual int64_t FreeMemoryKBytes() const;

  /// The program of run `runNumber` has ended. If `request` is not null the program has asked for
  /// another run (RUN, CHAIN): hand it to the document.
  virtual void RunEnded(int64_t runNumber, int32_t exitStatus, const TMessage* request);
};

/// Free memory of the host in KBytes, counted in pages of 4 KBytes; 0 if it does not say.
int64_t free_memory_kbytes();

}  // namespace zoka
