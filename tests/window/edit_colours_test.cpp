// The editor's colours: contrast in every theme, and that the editor follows the theme.
#include "editor/window/edit_colours.h"

#include "app/settings/iap_item.h"
#include "app/theme.h"
#include "tests/window/window_rig.h"

namespace zoka {
namespace {

/// What the guidelines for accessible pages ask of texts, and of marks.
constexpr double TEXT_CONTRAST = 4.5;
constexpr double MARK_CONTRAST = 3.0;
/// What high contrast asks of texts, and of marks.
constexpr double HIGH_TEXT_CONTRAST = 7.0;
constexpr double HIGH_MARK_CONTRAST = 4.5;

class TEditColoursTest : public testing::TestWithParam<TEditTheme> {
 protected:
  const TEditColours& mColours = edit_colours(GetParam());
  bool mHigh = GetParam() == TEditTheme::Contrast;
  double mText = mHigh ? HIGH_TEXT_CONTRAST : TEXT_CONTRAST;
  double mMark = mHigh ? HIGH_MARK_CONTRAST : MARK_CONTRAST;
};

TEST(ContrastRatio, IsThatOfTheGuidelines) {
  EXPECT_NEAR(contrast_ratio(Qt::black, Qt::white), 21.0, 0.001);
  EXPECT_NEAR(contrast_ratio(Qt::white, Qt::white), 1.0, 0.001);
  // The lightest grey that passes on white.
  EXPECT_NEAR(contrast_ratio(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
  EXPECT_NEAR(contrast_ratio(Qt::red, Qt::white), 4.0, 0.01);
}

TEST_P(TEditColoursTest, TextStandsOutFromEveryPaper) {
  for (const QColor& text : mColours.text) {
    for (const QColor& paper : {mColours.paper, mColours.currentLine, mColours.fault}) {
      EXPECT_GE(contrast_ratio(text, paper), TEXT_CONTRAST)
          << text.name().toStdString() << " on " << paper.name().toStdString();
    }
    EXPECT_GE(contrast_ratio(text, mColours.paper), mText) << text.name().toStdString();
    EXPECT_GE(contrast_ratio(text, mColours.currentLine), mText) << text.name().toStdString();
  }
}

TEST_P(TEditColoursTest, MarginAndSelectionCanBeRead) {
  EXPECT_GE(contrast_ratio(mColours.marginText, mColours.margin), mText);
  EXPECT_GE(contrast_ratio(mColours.selectedText, mColours.selection), mText);
}

TEST_P(TEditColoursTest, MatchingParenthesesAreSeenAndRead) {
  EXPECT_GE(contrast_ratio(mColours.text[0], mColours.brace), TEXT_CONTRAST);
  EXPECT_GE(contrast_ratio(mColours.brace, mColours.currentLine), 1.5);
}

TEST_P(TEditColoursTest, MarksStandOut) {
  EXPECT_GE(contrast_ratio(mColours.faultMark, mColours.margin), mMark);
  for (const QColor& paper : {mColours.paper, mColours.currentLine, mColours.fault}) {
    EXPECT_GE(contrast_ratio(mColours.undefined, paper), mMark) << paper.name().toStdString();
  }
  EXPECT_GE(contrast_ratio(mColours.selection, mColours.paper), mMark);
}

TEST_P(TEditColoursTest, StylesDiffer) {
  // Words, functions, numbers, texts, comments and labels are told apart by their colours.
  for (size_t a = static_cast<size_t>(TTextStyle::Keyword);
       a <= static_cast<size_t>(TTextStyle::Label); ++a) {
    for (size_t b = static_cast<size_t>(TTextStyle::Keyword); b < a; ++b) {
      EXPECT_NE(mColours.text[a], mColours.text[b]) << a << " and " << b;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Themes, TEditColoursTest,
                         testing::Values(TEditTheme::Light, TEditTheme::Dark,
                                         TEditTheme::Contrast));

TEST(EditTheme, FollowsThePalette) {
  EXPECT_EQ(edit_theme(theme_palette(THEME_LIGHT)), TEditTheme::Light);
  EXPECT_EQ(edit_theme(theme_palette(THEME_DARK)), TEditTheme::Dark);
  EXPECT_EQ(edit_theme(theme_palette(THEME_CONTRAST)), TEditTheme::Contrast);
}

using S = QsciScintillaBase;

class TEditThemeTest : public TWindowRig {
 protected:
  ~TEditThemeTest() override { QApplication::setPalette(QPalette()); }

  TEditTxtView& Edit() { return mApp->MainWindow().View().Edit(); }
  /// A colour of the component, which has its parts in the other order.
  QColor Colour(unsigned int message, int style) {
    const long bgr = Edit().SendScintilla(message, static_cast<unsigned long>(style));
    return {static_cast<int>(bgr & 0xFF), static_cast<int>(bgr >> 8 & 0xFF),
            static_cast<int>(bgr >> 16 & 0xFF)};
  }
};

TEST_F(TEditThemeTest, TheEditorTakesTheColoursOfEachThemeAtOnce) {
  const std::pair<const char*, TEditTheme> themes[] = {{THEME_DARK, TEditTheme::Dark},
                                                       {THEME_CONTRAST, TEditTheme::Contrast},
                                                       {THEME_LIGHT, TEditTheme::Light}};
  for (const auto& [name, theme] : themes) {
    apply_theme(name);
    QApplication::processEvents();
    const TEditColours& colours = edit_colours(theme);
    for (const TTextStyle style : {TTextStyle::Plain, TTextStyle::Keyword, TTextStyle::Comment}) {
      EXPECT_EQ(Colour(S::SCI_STYLEGETFORE, static_cast<int>(style)),
                colours.text[static_cast<size_t>(style)])
          << name;
      EXPECT_EQ(Colour(S::SCI_STYLEGETBACK, static_cast<int>(style)), colours.paper) << name;
    }
    // The empty part of the view.
    EXPECT_EQ(Colour(S::SCI_STYLEGETBACK, S::STYLE_DEFAULT), colours.paper) << name;
  }
}

}  // namespace
}  // namespace zoka
