// The built-in synthesiser: MIDI bytes in, samples out. It knows nothing of time, devices or files.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "sound/fluid_api.h"

namespace zoka {

/// Samples a second of everything that the synthesiser makes.
constexpr int32_t SYNTH_RATE = 44100;
/// The room's echo is made for so long behind the last note.
constexpr int64_t SYNTH_TAIL_FRAMES = int64_t{SYNTH_RATE} * 3;

/// A software synthesiser with a General MIDI soundfont. One thread at a time.
class TSynthesizer {
 public:
  /// Null where the library or a soundfont is missing.
  static std::unique_ptr<TSynthesizer> Create();
  ~TSynthesizer();
  TSynthesizer(const TSynthesizer&) = delete;
  TSynthesizer& operator=(const TSynthesizer&) = delete;

  /// Takes one message; what is no channel or system exclusive message is ignored.
  void Apply(const std::string& bytes);

  /// Makes the next `frames` samples of each side.
  void Render(float* left, float* right, size_t frames);

  /// True while any note, or its end, is heard.
  bool IsSounding() const;

 private:
  explicit TSynthesizer(const TFluidApi& api) : mApi(api) {}
  bool Load();

  const TFluidApi& mApi;
  fluid_settings_t* mSettings = nullptr;
  fluid_synth_t* mSynth = nullptr;
};

}  // namespace zoka
