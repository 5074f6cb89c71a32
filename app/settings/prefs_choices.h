// The menus of the preferences whose items are known by their places: each separator takes a place
// of its own, so that the place is the stored value.
#pragma once

#include <array>

#include "app/settings/prefs.h"

namespace zoka {

/// Labels of the menus, keys of the catalogue; a null is a separator.
constexpr std::array<const char*, ENCODING_JIS + 1> ENCODING_ITEMS{
    "Auto Detect", nullptr, "UTF-8 (BeOS)", "Shift-JIS (DOS-BASIC)", "JIS / NEC JIS (DISK-BASIC)"};
constexpr std::array<const char*, COMPAT_DOS + 1> COMPAT_ITEMS{"Auto Detect", nullptr, "DISK-BASIC",
                                                               "DOS-BASIC"};

/// True if lists of that encoding may hold characters that only the PC-98 has: the conversion of
/// these can be chosen only then.
constexpr bool may_have_pc98_characters(int32_t encoding) {
  return encoding == ENCODING_AUTO || encoding == ENCODING_JIS;
}

}  // namespace zoka
