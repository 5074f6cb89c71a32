// Asking the toolkit for modifier keys.
#include "app/held_modifiers.h"

#include <QGuiApplication>
#include <utility>

#include "app/settings/settings_place.h"

namespace zoka {

uint32_t settings_modifiers(Qt::KeyboardModifiers held) {
  constexpr std::pair<Qt::KeyboardModifier, uint32_t> ROWS[] = {
      {Qt::ShiftModifier, MODIFIER_SHIFT},
      {Qt::ControlModifier, MODIFIER_COMMAND},
      {Qt::MetaModifier, MODIFIER_CONTROL},
      {Qt::AltModifier, MODIFIER_OPTION}};
  uint32_t result = 0;
  for (const auto& [key, modifier] : ROWS) {
    if (held.testFlag(key)) result |= modifier;
  }
  return result;
}

uint32_t held_modifiers() {
  return settings_modifiers(QGuiApplication::queryKeyboardModifiers());
}

}  // namespace zoka
