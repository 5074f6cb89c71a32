// TRunInputs: all that enters a machine from outside. Handlers ask it and nothing else, so that a
// run can be recorded, and replayed exactly.
#pragma once

#include <cstdint>
#include <string>

#include "common/clock.h"
#include "common/types.h"

namespace zoka {

class TThread;

/// Reads of one run, in order. Called on the machine's thread.
class TRunInputs {
 public:
  virtual ~TRunInputs() = default;

  /// The clock. Each read is a poll (TClock::Poll).
  virtual bigtime_t SystemTime() = 0;
  virtual TLocalTime LocalTime() = 0;

  virtual int32_t Random() = 0;
  virtual void SeedRandom(int32_t seed) = 0;

  /// The next key press; waits for it. Empty when the machine is asked to terminate.
  virtual std::string PopKey(TThread& machine) = 0;
  /// The same, but empty when `timeout` microseconds have passed (0: one look, a poll).
  virtual std::string PopKeyWithTimeout(bigtime_t timeout, TThread& machine) = 0;
  /// Whether the key with that code of the simulated keyboard's matrix is down.
  virtual bool IsKeyDown(uint8_t code) = 0;

  /// Consumers connected to the machine's MIDI output.
  virtual int32_t ProducerConnections() = 0;

  /// The speed control's delay per statement, microseconds.
  virtual bigtime_t SpeedControlInterval() = 0;
  /// The repeat-run option.
  virtual bool RepeatRun() = 0;
};

}  // namespace zoka
