// Gives bytes their styles.
#include "editor/window/list_lexer.h"

#include <Qsci/qsciscintilla.h>

#include <array>
#include <string>
#include <vector>

namespace zoka {
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
  const TEditColours& colours = edit_colours(mTheme);
  return colours.text[at < colours.text.size() ? at : 0];
}

QColor TListLexer::defaultPaper(int) const {
  return edit_colours(mTheme).paper;
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
