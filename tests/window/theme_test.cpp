// The themes: texts stand out from what is behind them, and a change reaches all windows at once.
#include "app/theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTabWidget>
#include <cmath>

#include "app/settings/iap_item.h"
#include "tests/window/walk_rig.h"

namespace zoka {
namespace {

/// Contrast of two colours: 1 (none) to 21, by the rules for accessible web pages.
double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const double la = luminance(a);
  const double lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

TEST(Contrast, IsMeasuredByTheRules) {
  EXPECT_NEAR(contrast(Qt::black, Qt::white), 21.0, 0.001);
  EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
  EXPECT_NEAR(contrast(Qt::red, Qt::red), 1.0, 0.001);
}

struct TPair {
  QPalette::ColorRole front;
  QPalette::ColorRole back;
};

constexpr TPair TEXTS[] = {{QPalette::WindowText, QPalette::Window},
                           {QPalette::Text, QPalette::Base},
                           {QPalette::Text, QPalette::AlternateBase},
                           {QPalette::ButtonText, QPalette::Button},
                           {QPalette::ToolTipText, QPalette::ToolTipBase},
                           {QPalette::HighlightedText, QPalette::Highlight},
                           {QPalette::PlaceholderText, QPalette::Base},
                           {QPalette::Link, QPalette::Base},
                           {QPalette::Link, QPalette::Window},
                           {QPalette::LinkVisited, QPalette::Base},
                           {QPalette::BrightText, QPalette::Window}};

TEST(Themes, TextsCanBeRead) {
  constexpr double READABLE = 4.5;
  constexpr double WELL_READABLE = 7.0;
  for (const char* theme : {THEME_LIGHT, THEME_DARK, THEME_CONTRAST}) {
    const QPalette palette = theme_palette(theme);
    const bool high = std::string_view(theme) == THEME_CONTRAST;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
      for (const TPair& pair : TEXTS) {
        EXPECT_GE(contrast(palette.color(group, pair.front), palette.color(group, pair.back)),
                  high ? WELL_READABLE : READABLE)
            << theme << " " << group << " " << pair.front << " on " << pair.back;
      }
    }
  }
}

TEST(Themes, WhatCannotBeUsedIsPalerAndStillToBeSeen) {
  constexpr double VISIBLE = 3.0;
  for (const char* theme : {THEME_LIGHT, THEME_DARK, THEME_CONTRAST}) {
    const QPalette palette = theme_palette(theme);
    for (const TPair& pair : {TEXTS[0], TEXTS[1], TEXTS[3]}) {
      const double off = contrast(palette.color(QPalette::Disabled, pair.front),
                                  palette.color(QPalette::Disabled, pair.back));
      const double on = contrast(palette.color(QPalette::Active, pair.front),
                                 palette.color(QPalette::Active, pair.back));
      EXPECT_GE(off, VISIBLE) << theme << " " << pair.front;
      EXPECT_LT(off, on) << theme << " " << pair.front;
    }
  }
}

/// True if some pixel of the control stands out from the window behind it.
bool is_seen(QWidget& control, const QColor& window) {
  constexpr double VISIBLE = 3.0;
  control.resize(control.sizeHint().expandedTo(QSize(40, 40)));
  const QImage picture = control.grab().toImage();
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (contrast(picture.pixelColor(x, y), window) >= VISIBLE) return true;
    }
  }
  return false;
}

TEST(Themes, ControlsAreSeenWithoutATextInThem) {
  for (const char* theme : {THEME_LIGHT, THEME_DARK, THEME_CONTRAST}) {
    apply_theme(theme);
    QLineEdit text;
    QPushButton button;
    QCheckBox box;
    QRadioButton choice;
    QSpinBox number;
    number.setSpecialValueText(" ");
    number.setButtonSymbols(QSpinBox::NoButtons);
    QComboBox menu;
    QTabWidget pages;
    pages.addTab(new QWidget, QString());
    QGroupBox group;
    QScrollBar bar;
    bar.setRange(0, 10);
    bar.setFixedSize(16, 100);
    for (QWidget* control : std::initializer_list<QWidget*>{&text, &button, &box, &choice, &number,
                                                            &menu, &pages, &group, &bar}) {
      EXPECT_TRUE(is_seen(*control, theme_palette(theme).color(QPalette::Window)))
          << theme << " " << control->metaObject()->className();
    }
  }
  apply_theme(FOLLOW_SYSTEM);
}

class ThemeChange : public TWalkRig {
 protected:
  ~ThemeChange() override { apply_theme(FOLLOW_SYSTEM); }
  void Choose(const char* theme) {
    TInterAppPrefs& shared = *mEngine->Context().interAppPrefs;
    ASSERT_TRUE(shared.SetString(THEME_ITEM, theme));
    TMessage message(IAP_CHANGED_CODE);
    add_default_info(&message, THEME_ITEM);
    shared.NotifyToObservers(message);
    run_event_rounds();
  }
};

TEST_F(ThemeChange, ReachesEveryWindowAndGoesBackToTheSystems) {
  ForEachWindow([](const TWalkedWindow&, QWidget&) {});
  const QPalette system = QApplication::palette();
  for (const char* theme : {THEME_DARK, THEME_CONTRAST, THEME_LIGHT}) {
    Choose(theme);
    const QPalette wanted = theme_palette(theme);
    ForEachWindow([&](const TWalkedWindow&, QWidget& window) {
      for (const auto role : {QPalette::Window, QPalette::WindowText, QPalette::Highlight}) {
        EXPECT_EQ(window.palette().color(role), wanted.color(role)) << theme << " " << role;
      }
    });
  }
  Choose(FOLLOW_SYSTEM);
  ForEachWindow([&](const TWalkedWindow&, QWidget& window) {
    EXPECT_EQ(window.palette().color(QPalette::Window), system.color(QPalette::Window));
    EXPECT_EQ(window.palette().color(QPalette::WindowText), system.color(QPalette::WindowText));
  });
}

}  // namespace
}  // namespace zoka
