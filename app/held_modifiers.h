// Which modifier keys the user holds down, in the terms of the settings. What follows from them is
// the settings' business.
#pragma once

#include <QtCore/qnamespace.h>
#include <cstdint>

namespace zoka {

/// The toolkit's modifiers as TSettingsPlace::modifiers gives them: the keys Shift, Ctrl, Alt and
/// Super are one each.
uint32_t settings_modifiers(Qt::KeyboardModifiers held);

/// The modifiers that are down at this moment, even before there is a window. After the
/// QApplication is made; window thread.
uint32_t held_modifiers();

}  // namespace zoka
