// Colours of the editor.
#include "editor/window/list_lexer.h"

#include <Qsci/qsciscintilla.h>

#include <string>

namespace zoka {
namespace {

const TEditColours LIGHT{
    {QColor(0x1A, 0x1A, 0x1A), QColor(0x5F, 0x5F, 0x5F), QColor(0x00, 0x3E, 0xAA),
     QColor(0x7A, 0x1F, 0x8C), QColor(0x00, 0x5F, 0x66), QColor(0x9A, 0x2A, 0x00),
     QColor(0x2C, 0x66, 0x2C), QColor(0x8A, 0x4B, 0x00), QColor(0x33, 0x33, 0x33)},
    QColor(0xFF, 0xFF, 0xFF),
    QColor(0xF2, 0xF5, 0xFA),
    QColor(0xF0, 0xF0, 0xF0),
    QColor(0x5F, 0x5F, 0x5F),
    QColor(0xFF, 0xD8, 0xD2)};

const TEditColours DARK{
    {QColor(0xE4, 0xE4, 0xE4), QColor(0xA0, 0xA4, 0xAA), QColor(0x82, 0xB4, 0xFF),
     QColor(0xD6, 0xA4, 0xF0), QColor(0x7A, 0xD8, 0xD0), QColor(0xF2, 0xA9, 0x80),
     QColor(0x8F, 0xC9, 0x8F), QColor(0xE6, 0xC0, 0x6C), QColor(0xCC, 0xCC, 0xCC)},
    QColor(0x1E, 0x1F, 0x22),
    QColor(0x2A, 0x2D, 0x33),
    QColor(0x27, 0x28, 0x2C),
    QColor(0xA0, 0xA4, 0xAA),
    QColor(0x5A, 0x24, 0x24)};

}  // namespace

const TEditColours& edit_colours(bool dark) {
  return dark ? DARK : LIGHT;
}

TListLexer::TListLexer(QsciScintilla* parent) : QsciLexerCustom(parent) {}

QString TListLexer::description(int style) const {
  static const std::array<const char*, TEXT_STYLE_COUNT> NAMES{
      "Plain",  "LineNumber", "Keyword", "Function", "Number",
      "String", "Comment",    "Label",   "Operator"};
  const auto at = static_cast<size_t>(style);
  return at < NAMES.size() ? NAMES[at] : "";
}

QColor TListLexer::defaultColor(int style) const {
  const auto at = static_cast<size_t>(style);
  const TEditColours& colours = edit_colours(mDark);
  return colours.text[at < colours.text.size() ? at : 0];
}

QColor TListLexer::defaultPaper(int) const {
  return edit_colours(mDark).paper;
}

const char* TListLexer::wordCharacters() const {
  return "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_.@%!#$";
}

void TListLexer::styleText(int start, int end) {
  if (editor() == nullptr || end <= start) return;
  // The component asks for whole lines from their starts on.
  std::string bytes(static_cast<size_t>(end - start) + 1, '\0');
  editor()->SendScintilla(QsciScintillaBase::SCI_GETTEXTRANGE, start, end, bytes.data());
  bytes.resize(static_cast<size_t>(end - start));
  startStyling(start);
  std::vector<TTextStyle> styles;
  std::vector<char> run;
  for (size_t at = 0; at < bytes.size();) {
    const size_t found = bytes.find_first_of("\r\n", at);
    const size_t lineEnd = found == std::string::npos ? bytes.size() : found;
    style_line(std::string_view(bytes).substr(at, lineEnd - at), &styles);
    run.assign(styles.size(), 0);
    for (size_t i = 0; i < styles.size(); ++i) run[i] = static_cast<char>(styles[i]);
    if (lineEnd < bytes.size()) run.push_back(0);
    editor()->SendScintilla(QsciScintillaBase::SCI_SETSTYLINGEX,
                            static_cast<unsigned long>(run.size()), run.data());
    at = lineEnd + 1;
  }
}

}  // namespace zoka
