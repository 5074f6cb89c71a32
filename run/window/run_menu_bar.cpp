// Painting the lamps.
#include "run/window/run_menu_bar.h"

#include <QPainter>

namespace zoka {
namespace {

constexpr QRgb LAMP_COLOR = qRgb(0x66, 0xFF, 0x66);
/// Pixels from the title's left to its label while it is lit.
constexpr int LABEL_INSET = 8;

}  // namespace

TRunMenuBar::TRunMenuBar(QWidget* parent) : QMenuBar(parent) {
  setNativeMenuBar(false);
  setStyle(&mStyle);
}

void TRunMenuBar::SetAccessing(QAction* title, bool accessing) {
  if (accessing) {
    mAccessing.insert(title);
  } else {
    mAccessing.erase(title);
  }
  update(actionGeometry(title));
}

void TRunMenuBar::paintEvent(QPaintEvent* event) {
  QMenuBar::paintEvent(event);
  QPainter painter(this);
  for (QAction* title : actions()) {
    if (!mAccessing.contains(title)) continue;
    const QRect frame = actionGeometry(title);
    painter.fillRect(frame.adjusted(1, 1, 0, -2), QColor(LAMP_COLOR));
    painter.setPen(Qt::black);
    painter.drawText(frame.adjusted(LABEL_INSET, 0, 0, 0),
                     Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, title->text());
  }
}

int TRunMenuBar::TQuietStyle::styleHint(StyleHint hint, const QStyleOption* option,
                                        const QWidget* widget, QStyleHintReturn* returned) const {
  if (hint == SH_MenuBar_AltKeyNavigation) return 0;
  return QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace zoka
