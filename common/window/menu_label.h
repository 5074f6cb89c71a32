// Labels of the system as the toolkit wants them: the merged letter becomes the mnemonic.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "common/context.h"

namespace zoka {

/// A text as a label that has no mnemonic.
QString plain_label(const std::string& text);

/// `text` (already in the user's language) with `key` merged into it by the user's format, and
/// marked as the mnemonic if it is one character: "File" and "F" give "File(&F)".
QString menu_label(const TEngineContext& context, const std::string& text, std::string_view key);

/// A merged label as buttons of alerts have it: its own letter is marked.
QString marked_label(const std::string& merged);

/// A text of the catalogue.
QString localized(const TEngineContext& context, const char* key);

}  // namespace zoka
