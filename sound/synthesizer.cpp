// The synthesiser on top of FluidSynth.
#include "sound/synthesizer.h"

#include <unistd.h>

#include "sound/midi.h"

namespace zoka {

namespace {

// Loud enough for a single note, without clipping when all channels play.
constexpr double GAIN = 0.5;

constexpr const char* SOUNDFONTS[] = {
    "/usr/share/sounds/sf2/TimGM6mb.sf2",
    "/usr/share/sounds/sf2/default-GM.sf2",
    "/usr/share/soundfonts/default.sf2",
};

const char* find_soundfont() {
  for (const char* path : SOUNDFONTS) {
    if (access(path, R_OK) == 0) return path;
  }
  return nullptr;
}

}  // namespace

std::unique_ptr<TSynthesizer> TSynthesizer::Create() {
  const TFluidApi* api = fluid_api();
  if (!api) return nullptr;
  std::unique_ptr<TSynthesizer> synth(new TSynthesizer(*api));
  return synth->Load() ? std::move(synth) : nullptr;
}

bool TSynthesizer::Load() {
  const char* font = find_soundfont();
  if (!font) return false;
  mSettings = mApi.new_fluid_settings();
  if (!mSettings) return false;
  mApi.fluid_settings_setnum(mSettings, "synth.sample-rate", SYNTH_RATE);
  mApi.fluid_settings_setnum(mSettings, "synth.gain", GAIN);
  // More threads would make the samples depend on their order.
  mApi.fluid_settings_setint(mSettings, "synth.cpu-cores", 1);
  mApi.fluid_settings_setint(mSettings, "synth.lock-memory", 0);
  mSynth = mApi.new_fluid_synth(mSettings);
  return mSynth && mApi.fluid_synth_sfload(mSynth, font, 1) >= 0;
}

TSynthesizer::~TSynthesizer() {
  if (mSynth) mApi.delete_fluid_synth(mSynth);
  if (mSettings) mApi.delete_fluid_settings(mSettings);
}

void TSynthesizer::Apply(const std::string& bytes) {
  const int status = midi_byte(bytes, 0);
  const int channel = status & 0x0F;
  if (status == MIDI_SYSEX_START) {
    if (bytes.size() < 2) return;
    mApi.fluid_synth_sysex(mSynth, bytes.data() + 1, static_cast<int>(bytes.size()) - 2, nullptr,
                           nullptr, nullptr, 0);
    return;
  }
  switch (status & 0xF0) {
    case MIDI_NOTE_ON:
      mApi.fluid_synth_noteon(mSynth, channel, midi_byte(bytes, 1), midi_byte(bytes, 2));
      break;
    case MIDI_NOTE_OFF:
      mApi.fluid_synth_noteoff(mSynth, channel, midi_byte(bytes, 1));
      break;
    case MIDI_CONTROL_CHANGE:
      mApi.fluid_synth_cc(mSynth, channel, midi_byte(bytes, 1), midi_byte(bytes, 2));
      break;
    case MIDI_PROGRAM_CHANGE:
      mApi.fluid_synth_program_change(mSynth, channel, midi_byte(bytes, 1));
      break;
    default:
      break;
  }
}

void TSynthesizer::Render(float* left, float* right, size_t frames) {
  mApi.fluid_synth_write_float(mSynth, static_cast<int>(frames), left, 0, 1, right, 0, 1);
}

bool TSynthesizer::IsSounding() const {
  return mApi.fluid_synth_get_active_voice_count(mSynth) > 0;
}

}  // namespace zoka
