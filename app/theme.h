// The colours of windows as the common preferences have them.
#pragma once

#include <QPalette>
#include <string>

namespace zoka {

/// Gives all windows the colours of a value of the theme item; FOLLOW_SYSTEM, like any unknown
/// value, the system's. Window thread.
void apply_theme(const std::string& theme);

/// The colours of a theme that does not follow the system.
QPalette theme_palette(const std::string& theme);

}  // namespace zoka
