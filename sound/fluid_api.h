// The functions of the FluidSynth library that we use, found at run time.
#pragma once

#include <fluidsynth.h>

namespace zoka {

/// One row a function: its name, without the library's prefix where it has one.
#define ZOKA_FLUID_FUNCTIONS(ROW)         \
  ROW(new_fluid_settings)                 \
  ROW(delete_fluid_settings)              \
  ROW(fluid_settings_setstr)              \
  ROW(fluid_settings_setnum)              \
  ROW(fluid_settings_setint)              \
  ROW(new_fluid_synth)                    \
  ROW(delete_fluid_synth)                 \
  ROW(fluid_synth_sfload)                 \
  ROW(fluid_synth_noteon)                 \
  ROW(fluid_synth_noteoff)                \
  ROW(fluid_synth_cc)                     \
  ROW(fluid_synth_program_change)         \
  ROW(fluid_synth_sysex)                  \
  ROW(fluid_synth_write_float)            \
  ROW(fluid_synth_get_active_voice_count) \
  ROW(fluid_set_log_function)             \
  ROW(new_fluid_audio_driver2)            \
  ROW(delete_fluid_audio_driver)

/// The library's functions under their own names.
struct TFluidApi {
#define ZOKA_MEMBER(name) decltype(&::name) name = nullptr;
  ZOKA_FLUID_FUNCTIONS(ZOKA_MEMBER)
#undef ZOKA_MEMBER
};

/// The library, loaded by the first call and made silent; null if this machine has none. Any
/// thread.
const TFluidApi* fluid_api();

}  // namespace zoka
