// Records what a producer sends and writes it as a Standard MIDI File with true times. It sounds
// nothing and is no consumer of the roster.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/clock.h"
#include "common/mutex.h"
#include "sound/midi.h"

namespace zoka {

/// A file's tempo in microseconds a quarter note, and ticks a quarter note: a tick is 20
/// microseconds.
constexpr int32_t SMF_TEMPO = 500000;
constexpr int32_t SMF_DIVISION = 25000;

/// The recorder. Any thread.
class TMidiRecorder final : public TMidiSink {
 public:
  /// Times in the file count from `start`, a time of the clock.
  explicit TMidiRecorder(bigtime_t start) : mStart(start) {}

  void Receive(const TMidiEvent& event) override;

  /// What was received, by time, and of one time in the order of arrival; times count from the
  /// start.
  std::vector<TMidiEvent> Events();

 private:
  const bigtime_t mStart;
  TMutex mLock{TLockRank::Leaf};
  std::vector<TMidiEvent> mEvents;
};

/// The bytes of a Standard MIDI File of format 0 with these events, which are in order of time;
/// times are microseconds from the file's begin, negative ones count as 0.
std::string make_midi_file(const std::vector<TMidiEvent>& events);

/// Writes `bytes` as the whole content of a file. False if that fails.
bool write_whole_file(const std::string& path, std::string_view bytes);

}  // namespace zoka
