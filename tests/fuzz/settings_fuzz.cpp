// Fuzz target: any bytes at the port of the common preferences. What comes through is put on the
// window's board, set, stored and read again. The records themselves are the target `message`.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "app/settings/iap_board.h"
#include "app/settings/iap_wire.h"
#include "app/settings/inter_app_prefs.h"

namespace {

/// A component that was accepted must survive the way to another application.
void check_component(const zoka::TIAPComponent& component) {
  zoka::TIAPComponent read;
  if (!zoka::component_of_message(zoka::message_of_component(component), &read)) std::abort();
  if (read.name != component.name || read.configuration != component.configuration) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  zoka::TInterAppPrefs prefs;
  zoka::TIAPBoard board;
  board.AddItems(prefs);
  zoka::TIAPFrameReader reader;
  reader.Add(std::string_view(reinterpret_cast<const char*>(data), size));
  zoka::TMessage message;
  while (reader.Next(&message)) {
    zoka::TIAPComponent component;
    if (zoka::component_of_message(message, &component)) {
      check_component(component);
      board.AddComponent(component);
    }
    board.Change(message);
    prefs.SetValue(message);
  }
  const std::string format = prefs.AccKeyFormat();
  if (!format.empty() && format[0] != '\x01' && format[0] != '\x02') std::abort();
  board.SetComponents(zoka::TIAPValue::Default);
  return 0;
}
