// The fixed tables of the MML compiler: note letters, lengths, and the GM programs behind the voice
// numbers of the FM and SSG channels. Numbers here are 0-based GM programs.
#pragma once

#include <array>
#include <cstdint>

namespace zoka {

/// Semitones of the letters A to G above the octave's C.
constexpr std::array<int16_t, 7> PITCH_TABLE = {9, 11, 0, 2, 4, 5, 7};

/// Ticks of a quarter note; length n has (TICKS_PER_QUARTER / n) * 4 ticks.
constexpr int32_t TICKS_PER_QUARTER = 4608;

/// `S` number to GM program: square leads, with two sawtooth leads among them.
constexpr std::array<uint8_t, 15> SSG_TABLE = {80, 80, 80, 80, 80, 80, 80, 80,
                                               81, 80, 80, 80, 81, 80, 80};

/// `@` number to GM program.
constexpr std::array<uint8_t, 82> VOICE_TABLE = {
    6,  58,  40,  5,  39, 16,  19, 73, 68, 71,  11,  6,  112, 0,   120, 90, 97, 70, 99, 103, 93,
    61, 58,  56,  43, 40, 5,   4,  5,  26, 39,  32,  16, 17,  19,  20,  73, 72, 68, 71, 9,   11,
    13, 107, 104, 7,  6,  112, 46, 10, 22, 114, 47,  76, 99,  123, 96,  60, 94, 28, 37, 12,  14,
    10, 42,  58,  79, 24, 63,  29, 38, 69, 94,  104, 88, 85,  32,  109, 98, 70, 91, 45};

/// The program and the note of the beep.
constexpr uint8_t BEEP_PROGRAM = 81;
constexpr int16_t BEEP_NOTE = 81;

}  // namespace zoka
