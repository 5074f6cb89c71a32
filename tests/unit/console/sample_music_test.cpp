// The samples that play, as they are heard: what `zoka run --wav` writes is searched for the notes
// that `--midi` says it plays. That these are the right ones is tested with the programs.
#include <gtest/gtest.h>

#include <map>

#include "sound/synthesizer.h"
#include "tests/support/smf_reader.h"
#include "tests/support/temp_folder.h"
#include "tests/support/wav_sound.h"
#include "tests/unit/console/tool.h"

namespace zoka {
namespace {

using zoka_test::note_frequency;
using zoka_test::TSound;

/// A note of a file, times in seconds.
struct THeard {
  int channel = 0;
  int note = 0;
  double begin = 0;
  double end = 0;
};

std::vector<THeard> notes_of(const zoka_test::TSmf& file) {
  constexpr double SECOND = 1e6;
  std::vector<THeard> notes;
  std::map<std::pair<int, int>, double> begins;
  for (const zoka_test::TSmfEvent& event : file.events) {
    const int kind = event.bytes[0] & 0xF0;
    if (kind != 0x80 && kind != 0x90) continue;
    const std::pair key(event.bytes[0] & 0x0F, event.bytes[1]);
    const double time = static_cast<double>(event.time) / SECOND;
    if (kind == 0x90) {
      begins[key] = time;
    } else if (begins.contains(key)) {
      notes.push_back({key.first, key.second, begins[key], time});
      begins.erase(key);
    }
  }
  return notes;
}

/// Half a semitone: what lies so near cannot be told from the tone itself in the time of a note.
constexpr double APART = 1.03;
constexpr int PARTIALS = 12;
/// A tone that is over still rings for a while.
constexpr double ECHO = 0.6;

/// True if a tone is near a partial of any note that sounds, or has just sounded, then.
bool is_covered(const std::vector<THeard>& notes, double frequency, double from, double to,
                const THeard* except) {
  for (const THeard& other : notes) {
    if (&other == except || other.begin >= to || other.end + ECHO <= from) continue;
    for (int partial = 1; partial <= PARTIALS; ++partial) {
      const double ratio = frequency / (note_frequency(other.note) * partial);
      if (ratio < APART && ratio > 1 / APART) return true;
    }
  }
  return false;
}

struct TSample {
  const char* name;
  /// Notes that are long enough to be looked for, at least.
  int looked;
};

class SampleMusic : public testing::TestWithParam<TSample> {
 protected:
  void SetUp() override {
    if (!TSynthesizer::Create()) GTEST_SKIP() << "no synthesiser on this machine";
  }
  std::string Record(const char* extension, const std::string& option) {
    const std::string path = folder.Path(std::string("music.") + extension);
    TTool tool({"run", std::string(ZOKA_SOURCE_DIR) + "/samples/" + GetParam().name + ".bas",
                "--config", "none", "--no-wait", option, path});
    tool.EndInput();
    EXPECT_EQ(tool.End(), 0) << tool.err;
    return folder.Read(std::string("music.") + extension);
  }

  TTempFolder folder;
};

// A tone is there if it is far stronger than its neighbours that nothing else explains.
TEST_P(SampleMusic, SoundsItsNotesAtTheirTimes) {
  constexpr double LONG_ENOUGH = 0.15;
  constexpr double ATTACK = 0.02;
  // Beyond these an instrument's tones are not clear.
  constexpr int LOWEST = 48;
  constexpr int HIGHEST = 91;
  const std::string wav = Record("wav", "--wav");
  const TSound sound = TSound::Read(wav);
  const std::vector<THeard> notes = notes_of(zoka_test::TSmfReader::Read(Record("mid", "--midi")));
  int looked = 0;
  for (const THeard& note : notes) {
    const double from = note.begin + ATTACK;
    if (note.end - from < LONG_ENOUGH || note.note < LOWEST || note.note > HIGHEST) {
      continue;
    }
    const double own = sound.Strength(note_frequency(note.note), from, note.end);
    for (const int step : {-2, -1, 1, 2}) {
      const double beside = note_frequency(note.note + step);
      if (is_covered(notes, beside, from, note.end, nullptr)) continue;
      EXPECT_GT(own, 2 * sound.Strength(beside, from, note.end))
          << "channel " << note.channel << ", note " << note.note << " at " << note.begin;
      ++looked;
    }
    // Before its begin the tone is not there yet.
    const double before = note.begin - LONG_ENOUGH;
    if (before > 0 && !is_covered(notes, note_frequency(note.note), before, note.begin, &note)) {
      EXPECT_GT(own, 3 * sound.Strength(note_frequency(note.note), before, note.begin))
          << "channel " << note.channel << ", note " << note.note << " at " << note.begin;
    }
  }
  EXPECT_GE(looked, GetParam().looked);
  // The same bytes each time.
  EXPECT_TRUE(Record("wav", "--wav") == wav);
}

INSTANTIATE_TEST_SUITE_P(Samples, SampleMusic,
                         testing::Values(TSample{"canon", 40}, TSample{"musicbox", 30},
                                         TSample{"effects", 5}),
                         [](const auto& sample) { return std::string(sample.param.name); });

}  // namespace
}  // namespace zoka
