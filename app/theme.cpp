// Colours of the themes.
#include "app/theme.h"

#include <QApplication>
#include <QStyle>
#include <QToolTip>

#include "app/settings/iap_item.h"
#include "app/theme_style.h"

namespace zoka {
namespace {

struct TThemeColours {
  QRgb window;  // behind controls
  QRgb base;    // behind texts that are edited
  QRgb button;
  QRgb text;
  QRgb disabled;  // texts of what cannot be used now
  QRgb highlight;
  QRgb highlighted;
  QRgb link;
  QRgb visited;
  QRgb frame;  // around controls
};

constexpr TThemeColours LIGHT{.window = 0xFFEFEFEF,
                              .base = 0xFFFFFFFF,
                              .button = 0xFFEFEFEF,
                              .text = 0xFF000000,
                              .disabled = 0xFF6E6E6E,
                              .highlight = 0xFF1A5FB4,
                              .highlighted = 0xFFFFFFFF,
                              .link = 0xFF0B57D0,
                              .visited = 0xFF7B1FA2,
                              .frame = 0xFF868686};
constexpr TThemeColours DARK{.window = 0xFF2B2B2B,
                             .base = 0xFF1E1E1E,
                             .button = 0xFF3A3A3A,
                             .text = 0xFFE6E6E6,
                             .disabled = 0xFF9A9A9A,
                             .highlight = 0xFF2F6CC8,
                             .highlighted = 0xFFFFFFFF,
                             .link = 0xFF8AB4F8,
                             .visited = 0xFFD7AEFB,
                             .frame = 0xFF828282};
constexpr TThemeColours CONTRAST{.window = 0xFF000000,
                                 .base = 0xFF000000,
                                 .button = 0xFF000000,
                                 .text = 0xFFFFFFFF,
                                 .disabled = 0xFFB0B0B0,
                                 .highlight = 0xFFFFFF00,
                                 .highlighted = 0xFF000000,
                                 .link = 0xFFFFFF00,
                                 .visited = 0xFFFF9CFF,
                                 .frame = 0xFFFFFFFF};

QPalette palette_of(const TThemeColours& colours) {
  QPalette palette{QColor(colours.button), QColor(colours.window)};
  palette.setColor(QPalette::Base, colours.base);
  palette.setColor(QPalette::AlternateBase, colours.window);
  palette.setColor(QPalette::ToolTipBase, colours.base);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                          QPalette::ToolTipText, QPalette::BrightText}) {
    palette.setColor(role, colours.text);
    palette.setColor(QPalette::Disabled, role, colours.disabled);
  }
  palette.setColor(QPalette::PlaceholderText, colours.disabled);
  palette.setColor(QPalette::Highlight, colours.highlight);
  palette.setColor(QPalette::HighlightedText, colours.highlighted);
  palette.setColor(QPalette::Link, colours.link);
  palette.setColor(QPalette::LinkVisited, colours.visited);
  return palette;
}

/// The colours of a theme; null for the system's.
const TThemeColours* colours_of(const std::string& theme) {
  if (theme == THEME_LIGHT) return &LIGHT;
  if (theme == THEME_DARK) return &DARK;
  return theme == THEME_CONTRAST ? &CONTRAST : nullptr;
}

}  // namespace

QPalette theme_palette(const std::string& theme) {
  const TThemeColours* const colours = colours_of(theme);
  return palette_of(colours != nullptr ? *colours : LIGHT);
}

void apply_theme(const std::string& theme) {
  static const QString SYSTEM_STYLE = QApplication::style()->name();
  const TThemeColours* const colours = colours_of(theme);
  if (colours != nullptr) {
    QApplication::setStyle(new TThemeStyle(QColor(colours->frame)));
    QApplication::setPalette(palette_of(*colours));
  } else {
    // Without colours of its own the application has the system's.
    QApplication::setStyle(SYSTEM_STYLE);
    QApplication::setPalette(QPalette());
  }
  QToolTip::setPalette(QApplication::palette());
}

}  // namespace zoka
