// Reads a WAV file and looks for tones in it, for tests. It shares no code with the writer.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <string>
#include <vector>

namespace zoka_test {

/// The frequency of a MIDI note.
inline double note_frequency(int note) {
  return 440 * std::exp2((note - 69) / 12.0);
}

/// The sides of a WAV file, mixed.
struct TSound {
  int rate = 0;
  std::vector<double> samples;

  static int Number(const std::string& bytes, size_t at, int count) {
    int value = 0;
    for (int i = count - 1; i >= 0; --i) {
      value = value * 256 + static_cast<unsigned char>(bytes[at + static_cast<size_t>(i)]);
    }
    return value;
  }

  static TSound Read(const std::string& bytes) {
    TSound sound;
    EXPECT_EQ(bytes.substr(0, 4), "RIFF");
    EXPECT_EQ(bytes.substr(8, 8), "WAVEfmt ");
    EXPECT_EQ(Number(bytes, 4, 4), static_cast<int>(bytes.size()) - 8);
    EXPECT_EQ(Number(bytes, 20, 2), 1);
    EXPECT_EQ(Number(bytes, 22, 2), 2);
    EXPECT_EQ(Number(bytes, 34, 2), 16);
    EXPECT_EQ(Number(bytes, 40, 4), static_cast<int>(bytes.size()) - 44);
    sound.rate = Number(bytes, 24, 4);
    for (size_t at = 44; at + 4 <= bytes.size(); at += 4) {
      sound.samples.push_back(static_cast<int16_t>(Number(bytes, at, 2)) +
                              static_cast<int16_t>(Number(bytes, at + 2, 2)));
    }
    return sound;
  }

  /// The strength of a frequency between two times (the Goertzel algorithm).
  double Strength(double frequency, double from, double to) const {
    const double step = 2 * std::cos(2 * std::numbers::pi * frequency / rate);
    double last = 0;
    double before = 0;
    const auto end = std::min(samples.size(), static_cast<size_t>(to * rate));
    for (auto i = static_cast<size_t>(from * rate); i < end; ++i) {
      const double next = samples[i] + step * last - before;
      before = last;
      last = next;
    }
    return std::sqrt(std::max(0.0, last * last + before * before - step * last * before));
  }

  /// The semitone of an octave that is strongest between two times.
  int StrongestNote(int lowest, double from, double to) const {
    int best = 0;
    double most = -1;
    for (int note = lowest; note < lowest + 12; ++note) {
      const double strength = Strength(note_frequency(note), from, to);
      if (strength > most) {
        most = strength;
        best = note;
      }
    }
    return best;
  }

  double Loudest(double from, double to) const {
    double loudest = 0;
    const auto end = std::min(samples.size(), static_cast<size_t>(to * rate));
    for (auto i = static_cast<size_t>(from * rate); i < end; ++i) {
      loudest = std::max(loudest, std::abs(samples[i]));
    }
    return loudest;
  }
};

}  // namespace zoka_test
