// Texts of the tool tip.
#include "editor/window/hover_help.h"

#include <QHelpEvent>
#include <QToolTip>

#include "editor/keyword_help.h"

namespace zoka {
namespace {

using S = QsciScintillaBase;

/// Bytes of a line that a tip shows.
constexpr size_t MAX_TIP_BYTES = 200;

QString escaped(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toHtmlEscaped();
}

/// A syntax, and below it a sentence; rich text, which is wrapped.
QString tip(std::string_view heading, std::string_view text) {
  return "<p style='margin:0'><b>" + escaped(heading) + "</b></p><p style='margin:0'>" +
         escaped(text) + "</p>";
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
}

QString THoverHelp::TargetText(const TPlaceName& target) const {
  const int64_t line = mWatch.Index().DefinitionOf(target);
  if (line >= 0) return "<p>" + escaped(mWatch.Line(line).substr(0, MAX_TIP_BYTES)) + "</p>";
  return target.live ? "<p>" + escaped(undefined_text(mContext, target)) + "</p>" : QString();
}

QString THoverHelp::TextAt(const TListPlace& place) const {
  if (const TPlaceName* const target = mJump.TargetAt(place)) return TargetText(*target);
  const TKeywordHelp* const help =
      find_keyword_help(keyword_at(mWatch.Line(place.line), static_cast<size_t>(place.column)));
  if (help == nullptr) return {};
  return tip(help->syntax, first_sentence(help->Text(mContext.catalogue->Language())));
}

bool THoverHelp::eventFilter(QObject* object, QEvent* event) {
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
