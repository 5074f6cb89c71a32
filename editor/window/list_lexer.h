// TListLexer: gives the editor the colours of the language, by the engine's own reader of lines.
#pragma once

#include <Qsci/qscilexercustom.h>

#include <QColor>
#include <array>

#include "editor/highlight.h"

namespace zoka {

/// The colours of the editor under one palette. All texts have a contrast of 4.5 to 1 or more
/// against the paper, the current line and the selection.
struct TEditColours {
  std::array<QColor, TEXT_STYLE_COUNT> text;
  QColor paper;
  QColor currentLine;
  QColor margin;
  QColor marginText;
  QColor error;
};

const TEditColours& edit_colours(bool dark);

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

  void SetDark(bool dark) { mDark = dark; }

 private:
  bool mDark = false;
};

}  // namespace zoka
