// TListLexer: gives the editor the colours of the language, by the engine's own reader of lines.
#pragma once

#include <Qsci/qscilexercustom.h>

#include "editor/window/edit_colours.h"

namespace zoka {

/// Owned by the editor that it is given to.
class TListLexer final : public QsciLexerCustom {
 public:
  explicit TListLexer(QsciScintilla* parent);

  const char* language() const override { return "BASIC"; }
  QString description(int style) const override;
  QColor defaultColor(int style) const override;
  QColor defaultPaper(int style) const override;
  void styleText(int start, int end) override;
  /// Word wrapping and completion need no characters of their own.
  const char* wordCharacters() const override;

  void SetTheme(TEditTheme theme) { mTheme = theme; }

 private:
  TEditTheme mTheme = TEditTheme::Light;
};

}  // namespace zoka
