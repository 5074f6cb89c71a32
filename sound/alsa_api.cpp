// Loads the ALSA library.
#include "sound/alsa_api.h"

#include <optional>

#include "sound/dynamic_library.h"

namespace zoka {

namespace {

constexpr char LIBRARY[] = "libasound.so.2";

void report_nothing(const char*, int, const char*, int, const char*, ...) {}

std::optional<TAlsaApi> load() {
  const TDynamicLibrary library(LIBRARY);
  TAlsaApi api;
#define ZOKA_FIND(name) \
  if (!library.Find(#name, &api.name)) return std::nullopt;
  ZOKA_ALSA_FUNCTIONS(ZOKA_FIND)
#undef ZOKA_FIND
  api.snd_lib_error_set_handler(report_nothing);
  return api;
}

}  // namespace

const TAlsaApi* alsa_api() {
  static const std::optional<TAlsaApi> sApi = load();
  return sApi ? &*sApi : nullptr;
}

}  // namespace zoka
