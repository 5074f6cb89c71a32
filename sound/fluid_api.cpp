// Loads FluidSynth.
#include "sound/fluid_api.h"

#include <optional>

#include "sound/alsa_api.h"
#include "sound/dynamic_library.h"

namespace zoka {

namespace {

constexpr char LIBRARY[] = "libfluidsynth.so.3";

// What goes wrong in the library is no news for a person who plays music: there is silence.
void log_nothing(int, const char*, void*) {}

std::optional<TFluidApi> load() {
  const TDynamicLibrary library(LIBRARY);
  TFluidApi api;
#define ZOKA_FIND(name) \
  if (!library.Find(#name, &api.name)) return std::nullopt;
  ZOKA_FLUID_FUNCTIONS(ZOKA_FIND)
#undef ZOKA_FIND
  for (int level = 0; level < LAST_LOG_LEVEL; ++level) {
    api.fluid_set_log_function(level, log_nothing, nullptr);
  }
  return api;
}

}  // namespace

const TFluidApi* fluid_api() {
  static const std::optional<TFluidApi> sApi = load();
  return sApi ? &*sApi : nullptr;
}

}  // namespace zoka
