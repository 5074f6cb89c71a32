// Moves the cursor, and remembers where it was.
#include "editor/window/definition_jump.h"

#include <QMouseEvent>
#include <algorithm>

namespace zoka {
namespace {

using S = QsciScintillaBase;

}  // namespace

TDefinitionJump::TDefinitionJump(TEditTxtView& edit, const TListWatch& watch)
    : mEdit(edit), mWatch(watch) {
  mEdit.viewport()->installEventFilter(this);
}

const TPlaceName* TDefinitionJump::TargetAt(const TListPlace& place) const {
  return mWatch.Index().TargetAt(static_cast<size_t>(place.line),
                                 static_cast<size_t>(place.column));
}

TJumpOutcome TDefinitionJump::GoToDefinition() {
  const TPlaceName* const target =
      TargetAt(place_of(mEdit, edit_call(mEdit, S::SCI_GETCURRENTPOS)));
  return target != nullptr ? GoToDefinitionOf(*target) : TJumpOutcome::NoTarget;
}

TJumpOutcome TDefinitionJump::GoToDefinitionOf(const TPlaceName& target) {
  const int64_t line = mWatch.Index().DefinitionOf(target);
  if (line < 0) return TJumpOutcome::Undefined;
  mHistory.Leave(edit_call(mEdit, S::SCI_GETCURRENTPOS));
  int64_t column = 0;
  for (const TPlaceName& label : mWatch.Index().Facts(static_cast<size_t>(line)).labels) {
    if (target.IsLabel() && label.label == target.label) {
      column = static_cast<int64_t>(label.begin);
    }
  }
  mEdit.GoToOffset(static_cast<size_t>(position_of(mEdit, {line, column})));
  return TJumpOutcome::Gone;
}

TJumpOutcome TDefinitionJump::GoBack() {
  const auto place = mHistory.Back();
  if (!place) return TJumpOutcome::NoWayBack;
  mEdit.GoToOffset(static_cast<size_t>(*place));
  return TJumpOutcome::Gone;
}

bool TDefinitionJump::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) {
    const auto& press = static_cast<const QMouseEvent&>(*event);
    TListPlace place;
    if (press.button() == Qt::LeftButton && press.modifiers() == Qt::ControlModifier &&
        place_below(mEdit, press.position().toPoint(), &place)) {
      if (const TPlaceName* const target = TargetAt(place)) {
        const TJumpOutcome outcome = GoToDefinitionOf(*target);
        if (mClicked) mClicked(outcome, *target);
        return true;
      }
    }
  }
  return QObject::eventFilter(object, event);
}

}  // namespace zoka
