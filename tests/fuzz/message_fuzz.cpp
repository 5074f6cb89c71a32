// Fuzz target: any bytes as the flat form of a message, and as the records that are kept so. What
// is accepted must come back the same.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "app/settings/exit_states.h"
#include "app/settings/mruf.h"
#include "app/settings/prefs.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  zoka::TMessage message;
  if (!message.Unflatten(bytes)) return 0;
  if (message.Flatten() != bytes) std::abort();
  zoka::TPrefs().Unarchive(message);
  zoka::TExitStates().Unarchive(message);
  zoka::TMRUF().Unarchive(message);
  return 0;
}
