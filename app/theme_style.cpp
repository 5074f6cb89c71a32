// Drawing the frames.
#include "app/theme_style.h"

#include <QPainter>
#include <QStyleOption>

namespace zoka {
namespace {

constexpr const char PLAIN_STYLE[] = "fusion";
constexpr qreal CORNER = 2;
constexpr int TAB_MARK = 2;
constexpr int BELOW_TITLE = 3;

bool has_focus(const QStyleOption& option) {
  return option.state.testFlag(QStyle::State_HasFocus) &&
         option.state.testFlag(QStyle::State_Enabled);
}

/// The button that the Return key presses is framed like one with the focus.
bool is_default(const QStyleOption& option) {
  const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  return button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
}

bool is_separator(const QStyleOption& option) {
  const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(&option);
  return item != nullptr && item->menuItemType == QStyleOptionMenuItem::Separator;
}

}  // namespace

TThemeStyle::TThemeStyle(QColor frame) : QProxyStyle(PLAIN_STYLE), mFrame(frame) {}

void TThemeStyle::DrawFrame(QPainter* painter, const QRect& rect, QColor colour) const {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setBrush(Qt::NoBrush);
  painter->setPen(colour);
  painter->drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), CORNER, CORNER);
  painter->restore();
}

void TThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const QColor focus = option->palette.color(QPalette::Highlight);
  switch (element) {
    case PE_PanelButtonCommand: {
      const bool framed = has_focus(*option) || is_default(*option);
      return DrawFrame(painter, option->rect, framed ? focus : mFrame);
    }
    case PE_FrameLineEdit:
    case PE_IndicatorCheckBox:
      return DrawFrame(painter, option->rect, has_focus(*option) ? focus : mFrame);
    case PE_IndicatorRadioButton:
      painter->save();
      painter->setRenderHint(QPainter::Antialiasing);
      painter->setPen(has_focus(*option) ? focus : mFrame);
      painter->drawEllipse(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5));
      return painter->restore();
    case PE_Frame:
    case PE_FrameTabWidget:
    case PE_PanelMenu:
      return DrawFrame(painter, option->rect, mFrame);
    case PE_PanelButtonTool:
      if (option->state & (State_On | State_Sunken)) DrawFrame(painter, option->rect, mFrame);
      return;
    default:
      return;
  }
}

void TThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  QProxyStyle::drawControl(element, option, painter, widget);
  const QRect& rect = option->rect;
  switch (element) {
    case CE_TabBarTabShape: {
      const bool selected = option->state.testFlag(State_Selected);
      // The lower edge is the page's.
      const QRect tab = rect.adjusted(0, selected ? 0 : TAB_MARK, 0, TAB_MARK);
      painter->save();
      painter->setClipRect(rect.adjusted(0, 0, 0, -1));
      DrawFrame(painter, tab, mFrame);
      if (selected) {
        painter->fillRect(tab.x() + 1, tab.y(), tab.width() - 2, TAB_MARK,
                          option->palette.color(QPalette::Highlight));
      }
      return painter->restore();
    }
    case CE_MenuItem:
      if (is_separator(*option)) {
        painter->fillRect(rect.x(), rect.center().y(), rect.width(), 1, mFrame);
      }
      return;
    case CE_HeaderSection:
      painter->fillRect(rect.right(), rect.y(), 1, rect.height(), mFrame);
      painter->fillRect(rect.x(), rect.bottom(), rect.width(), 1, mFrame);
      return;
    default:
      return;
  }
}

void TThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  const auto frame = [&](SubControl part) {
    const QRect rect = proxy()->subControlRect(control, option, part, widget);
    if (rect.isValid()) DrawFrame(painter, rect, mFrame);
  };
  switch (control) {
    case CC_ComboBox:
    case CC_SpinBox:
      return DrawFrame(painter, option->rect,
                       has_focus(*option) ? option->palette.color(QPalette::Highlight) : mFrame);
    case CC_GroupBox: {
      QRect rect = option->rect;
      rect.setTop(proxy()->subControlRect(control, option, SC_GroupBoxLabel, widget).bottom() +
                  BELOW_TITLE);
      return DrawFrame(painter, rect, mFrame);
    }
    case CC_Slider: {
      // The way behind the handle; the way up to it is filled.
      const QRect handle = proxy()->subControlRect(control, option, SC_SliderHandle, widget);
      const QRect groove = proxy()->subControlRect(control, option, SC_SliderGroove, widget);
      painter->fillRect(handle.right(), groove.center().y(), groove.right() - handle.right(), 1,
                        mFrame);
      return frame(SC_SliderHandle);
    }
    case CC_ScrollBar:
      return frame(SC_ScrollBarSlider);
    default:
      return;
  }
}

}  // namespace zoka
