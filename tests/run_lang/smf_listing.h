// Reads Standard MIDI Files for the tests. It shares nothing with the engine's writer on purpose.
#pragma once

#include <string>

namespace zoka {

/// The events of a MIDI file as text, a line each, in the order of time, then track, then position:
///
///     TIME CHANNEL on KEY VELOCITY        TIME CHANNEL off KEY VELOCITY
///     TIME CHANNEL control NUMBER VALUE   TIME CHANNEL program NUMBER
///     TIME CHANNEL bend VALUE             TIME CHANNEL pressure VALUE
///     TIME CHANNEL touch KEY VALUE        TIME - sysex BYTES
///
/// TIME is in whole microseconds from the start, with all changes of tempo followed. CHANNEL is 0
/// to 15, a bend 0 to 16383, BYTES two hexadecimal upper-case digits each without the leading F0.
/// Meta events have no line. Throws std::runtime_error for bytes that are no such file.
std::string list_midi(const std::string& bytes);

}  // namespace zoka
