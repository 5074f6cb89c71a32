// Texts of the tool tip.
#include "editor/window/hover_help.h"

#include <QHelpEvent>
#include <QToolTip>

#include "editor/keyword_help.h"

namespace zoka {
namespace {

using S = QsciScintillaBase;

/// Characters of a line that a tip shows.
constexpr qsizetype MAX_TIP_LENGTH = 120;

/// A line of a tip, which is not broken.
QString tip_line(std::string_view text, bool isHeading = false) {
  const QString line = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  const QString escaped = line.left(MAX_TIP_LENGTH).toHtmlEscaped();
  return "<p style='white-space:pre;margin:0'>" + (isHeading ? "<b>" + escaped + "</b>" : escaped) +
         "</p>";
}

}  // namespace

std::string undefined_text(const TEngineContext& context, const TPlaceName& target) {
  if (target.IsLabel()) {
    return replace_placeholder(context.catalogue->GetString("There is no label *%Label%."),
                               "%Label%", target.label);
  }
  return replace_placeholder(context.catalogue->GetString("There is no line %Line%."), "%Line%",
                             std::to_string(target.line));
}

THoverHelp::THoverHelp(TEditTxtView& edit, const TListWatch& watch, const TDefinitionJump& jump,
                       const TEngineContext& context)
    : mEdit(edit), mWatch(watch), mJump(jump), mContext(context) {
  mEdit.viewport()->installEventFilter(this);
  mEdit.installEventFilter(this);
}

QString THoverHelp::TargetText(const TPlaceName& target) const {
  const int64_t line = mWatch.Index().DefinitionOf(target);
  if (line >= 0) return tip_line(mWatch.Line(line));
  return target.live ? tip_line(undefined_text(mContext, target)) : QString();
}

QString THoverHelp::TextAt(const TListPlace& place) const {
  if (const TPlaceName* const target = mJump.TargetAt(place)) return TargetText(*target);
  const TKeywordHelp* const help =
      find_keyword_help(keyword_at(mWatch.Line(place.line), static_cast<size_t>(place.column)));
  if (help == nullptr) return {};
  const TLanguage language = mContext.catalogue->Language();
  const std::string syntax = help->Syntax(language);
  QString text;
  for (std::string_view form : syntax_forms(syntax)) text += tip_line(form, true);
  return text + tip_line(first_sentence(help->Text(language)));
}

bool THoverHelp::eventFilter(QObject* object, QEvent* event) {
  // Who types wants to see the text, wherever the pointer has been left.
  if (event->type() == QEvent::KeyPress) QToolTip::hideText();
  if (event->type() != QEvent::ToolTip) return QObject::eventFilter(object, event);
  const auto& hover = static_cast<const QHelpEvent&>(*event);
  const long position =
      edit_call(mEdit, S::SCI_POSITIONFROMPOINTCLOSE, hover.pos().x(), hover.pos().y());
  const QString text = position < 0 ? QString() : TextAt(place_of(mEdit, position));
  if (text.isEmpty()) {
    QToolTip::hideText();
  } else {
    QToolTip::showText(hover.globalPos(), text, mEdit.viewport());
  }
  return true;
}

}  // namespace zoka
