// Renders recorded MIDI to a WAV file: 44,100 samples a second, two sides, 16 bits. The same events
// give the same bytes each time.
#pragma once

#include <string>
#include <vector>

#include "sound/midi.h"

namespace zoka {

/// Renders the events, which are in order of time, in microseconds from the file's begin. The file
/// ends when the last note has died away, at most a few seconds behind the last event. False if
/// there is no synthesiser, if the file cannot be written or if it would grow beyond what the
/// format holds.
bool write_wav_file(const std::string& path, const std::vector<TMidiEvent>& events);

}  // namespace zoka
