// The colours of the editor, one set a theme of the windows.
#pragma once

#include <QColor>
#include <QPalette>
#include <array>
#include <cstdint>

#include "editor/highlight.h"

namespace zoka {

/// The themes that the editor has colours for.
enum class TEditTheme : uint8_t { Light, Dark, Contrast };

/// All texts have a contrast of 4.5 to 1 or more against every paper they may stand on, marks one
/// of 3 to 1; in the theme of high contrast 7 to 1 and 4.5 to 1.
struct TEditColours {
  std::array<QColor, TEXT_STYLE_COUNT> text;
  QColor paper;
  QColor currentLine;  // behind the line of the cursor
  QColor fault;        // behind a line with a fault
  QColor faultMark;
  QColor margin;
  QColor marginText;
  QColor selection;
  QColor selectedText;
  QColor brace;      // behind matching parentheses, which are plain text there
  QColor undefined;  // underlines jumps that lead nowhere
};

const TEditColours& edit_colours(TEditTheme theme);

/// The theme whose windows have that palette. White on black, or nearly so, is high contrast,
/// whether it was chosen here or is the system's.
TEditTheme edit_theme(const QPalette& palette);

/// The contrast of two colours as the guidelines for accessible pages define it, 1 to 21.
double contrast_ratio(const QColor& a, const QColor& b);

}  // namespace zoka
