// TRunInputs: all that enters a machine from outside. Handlers ask it and nothing else, so that a
// run can be recorded, and replayed exactly.
#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "common/clock.h"
#include "common/types.h"
#include "run/screen/file.h"
#include "vm/mouse_state.h"

namespace zoka {

class TInterruptPort;
class TThread;
struct TFileInputBounds;

/// A place in a run, the same in every form of the program: how many jumps have been taken, and the
/// code index of the instruction that comes next.
struct TRunPosition {
  uint64_t jumps;
  int32_t codeIndex;
};

/// Reads of one run, in order, and the events by position. Called on the machine's thread. Where a
/// read is given what the engine holds (the mouse, an open file), the answer is made of that unless
/// somebody overrides it.
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

  /// The bits of the events that are pending before the instruction at that position.
  virtual uint32_t PendingEvents(const TInterruptPort& port, const TRunPosition& position);

  virtual int32_t ReadMouse(TMouseRead what, TMouseState& mouse);

  /// The folder in a drive, by index; empty if there is none.
  virtual std::string DriveFolder(const TDriveFolders& drives, int32_t index);
  /// TDriveFolders::FullPathFName, with its faults.
  virtual std::string FilePath(const TDriveFolders& drives, std::string_view name, bool mustExist);
  virtual std::vector<TFolderEntry> ListFolder(const std::string& path);

  /// TFileTable::Open, with its faults.
  virtual void OpenFile(TFileTable& files, const TDriveFolders& drives, std::string_view name,
                        int32_t number, int32_t mode);
  /// EOF.
  virtual bool IsAtEnd(TZokaFile& file);
  /// What INPUT# and LINE INPUT# take: InputFromFile.
  virtual std::list<std::string> ReadItems(TZokaFile& file, int32_t count, bool asLine,
                                           const TFileInputBounds& bounds);
  /// What INPUT$ takes: InputDlFromFile.
  virtual bool ReadCharacters(TZokaFile& file, int32_t count, int32_t mode, std::string* text,
                              const TFileInputBounds& bounds);
};

}  // namespace zoka
