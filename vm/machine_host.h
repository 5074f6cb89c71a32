// TMachineHost: what a machine asks of the view that owns the run.
#pragma once

#include <cstdint>

#include "common/message.h"

namespace zoka {

/// Implemented by the run view. Called on the machine's thread.
class TMachineHost {
 public:
  virtual ~TMachineHost() = default;

  /// RUN and CHAIN: the message "vmrr" for whoever drives the runs. It is handled only after the
  /// machine's main loop has ended.
  virtual void SendRunRequest(const TMessage& message) = 0;

  /// Waits that a program makes are preceded by this: output that is held back goes out.
  virtual void FlushOutput() = 0;

  /// The last act of the machine's thread: the run is over, but for the thread's own end.
  virtual void MachineEnded(int32_t exitStatus) = 0;
};

}  // namespace zoka
