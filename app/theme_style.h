// TThemeStyle: the toolkit's plain style with frames that are seen in every theme. The colours are
// the theme's.
#pragma once

#include <QColor>
#include <QProxyStyle>

namespace zoka {

/// The plain style derives the lines around its controls from the colour of the window, so that
/// they vanish where that is dark. This one draws them once more in a colour of its own. Window
/// thread.
class TThemeStyle final : public QProxyStyle {
 public:
  explicit TThemeStyle(QColor frame);

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;

 private:
  void DrawFrame(QPainter* painter, const QRect& rect, QColor colour) const;

  QColor mFrame;
};

}  // namespace zoka
