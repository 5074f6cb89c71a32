// Colours, and how far they stand apart.
#include "editor/window/edit_colours.h"

#include <algorithm>
#include <cmath>

namespace zoka {
namespace {

/// From so much contrast on a dark palette is one of high contrast.
constexpr double HIGH_CONTRAST = 18.0;

// The texts in the order of TTextStyle: plain, line number, keyword, function, number, string,
// comment, label, operator.
const TEditColours LIGHT{.text = {0xFF1A1A1A, 0xFF5F5F5F, 0xFF003EAA, 0xFF7A1F8C, 0xFF005F66,
                                  0xFF9A2A00, 0xFF2C662C, 0xFF8A4B00, 0xFF333333},
                         .paper = 0xFFFFFFFF,
                         .currentLine = 0xFFF2F5FA,
                         .fault = 0xFFFFD8D2,
                         .faultMark = 0xFFC02818,
                         .margin = 0xFFF0F0F0,
                         .marginText = 0xFF5F5F5F,
                         .selection = 0xFF1A5FB4,
                         .selectedText = 0xFFFFFFFF,
                         .brace = 0xFF9CC2F0,
                         .undefined = 0xFFC8102E};

const TEditColours DARK{.text = {0xFFE4E4E4, 0xFFA0A4AA, 0xFF82B4FF, 0xFFD6A4F0, 0xFF7AD8D0,
                                 0xFFF2A980, 0xFF8FC98F, 0xFFE6C06C, 0xFFCCCCCC},
                        .paper = 0xFF1E1F22,
                        .currentLine = 0xFF2A2D33,
                        .fault = 0xFF5A2424,
                        .faultMark = 0xFFE05A4A,
                        .margin = 0xFF27282C,
                        .marginText = 0xFFA0A4AA,
                        .selection = 0xFF3369C8,
                        .selectedText = 0xFFFFFFFF,
                        .brace = 0xFF4A6394,
                        .undefined = 0xFFFF6B6B};

const TEditColours CONTRAST{.text = {0xFFFFFFFF, 0xFFD8D8D8, 0xFF7FCBFF, 0xFFFFA8FF, 0xFF7FFFFF,
                                     0xFFFFC878, 0xFF90FF90, 0xFFFFFF66, 0xFFFFFFFF},
                            .paper = 0xFF000000,
                            .currentLine = 0xFF20203C,
                            .fault = 0xFF5C0000,
                            .faultMark = 0xFFFF7070,
                            .margin = 0xFF000000,
                            .marginText = 0xFFFFFFFF,
                            .selection = 0xFFFFFF00,
                            .selectedText = 0xFF000000,
                            .brace = 0xFF4444B8,
                            .undefined = 0xFFFF7070};

/// Relative luminance.
double luminance(const QColor& colour) {
  const auto part = [](float value) {
    const auto v = static_cast<double>(value);
    return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
         0.0722 * part(colour.blueF());
}

}  // namespace

const TEditColours& edit_colours(TEditTheme theme) {
  switch (theme) {
    case TEditTheme::Dark:
      return DARK;
    case TEditTheme::Contrast:
      return CONTRAST;
    case TEditTheme::Light:
      break;
  }
  return LIGHT;
}

TEditTheme edit_theme(const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  const QColor text = palette.color(QPalette::Text);
  if (luminance(base) > luminance(text)) return TEditTheme::Light;
  return contrast_ratio(base, text) >= HIGH_CONTRAST ? TEditTheme::Contrast : TEditTheme::Dark;
}

double contrast_ratio(const QColor& a, const QColor& b) {
  const double high = std::max(luminance(a), luminance(b));
  const double low = std::min(luminance(a), luminance(b));
  return (high + 0.05) / (low + 0.05);
}

}  // namespace zoka
