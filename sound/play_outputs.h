// Where the music of a console run goes: to the loudspeaker, to a MIDI file, to a WAV file, or
// nowhere.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "common/clock.h"
#include "sound/midi.h"
#include "sound/midi_recorder.h"
#include "sound/synth_consumer.h"

namespace zoka {

/// What the command line asks for.
struct TPlayOutputOptions {
  /// Paths of the files to write; empty: none.
  std::string midiPath;
  std::string wavPath;
  /// --no-wait: nothing sounds.
  bool noWait = false;
};

/// Connects a producer to what the options ask for, for the life of this object: files are recorded
/// from now on; without files and with real time the built-in synthesiser sounds, if there is a
/// sound device. The clock and the producer must outlive it; a host's thread owns it.
class TPlayOutputs {
 public:
  TPlayOutputs(TClock& clock, TMidiLocalProducer& producer, const TPlayOutputOptions& options);
  ~TPlayOutputs();
  TPlayOutputs(const TPlayOutputs&) = delete;
  TPlayOutputs& operator=(const TPlayOutputs&) = delete;

  /// Opens the sound device now and waits until it runs, if the options let music sound. Without
  /// this the first note opens it, and may come late.
  void OpenDevice();

  /// How long the loudspeaker goes on after the last event's time; 0 if nothing sounds.
  bigtime_t Tail() const;

  /// Writes the files. Returns the paths of those that could not be written.
  std::vector<std::string> Finish();

 private:
  TClock& mClock;
  TMidiLocalProducer& mProducer;
  const TPlayOutputOptions mOptions;
  TMidiRecorder mRecorder;
  bool mRecording;
  TMidiRoster mRoster;
  std::shared_ptr<TSynthConsumer> mSynth;
};

}  // namespace zoka
