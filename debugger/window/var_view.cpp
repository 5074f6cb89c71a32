// Rows of variables: where they are, how they look, and editing their values.
#include "debugger/window/var_view.h"

#include <QKeyEvent>
#include <QStyleOption>
#include <algorithm>
#include <utility>

namespace zoka {
namespace {

/// Widths in pixels: of the expander, of the step to elements.
constexpr int EXPANDER_WIDTH = 18;
constexpr int INDENT = 16;
/// The least width of the field for a new value.
constexpr int MIN_EDITOR_WIDTH = 60;
constexpr int MAX_TIP_CHARACTERS = 1000;
/// A value of which at least so many bytes are shown may be longer than what is shown.
constexpr size_t CUT_BYTES = MAX_SHOWN_BYTES - 4;

}  // namespace

TVarView::TVarView(QWidget* parent, TDebugModel& model) : TRowView(parent), mModel(model) {
  setObjectName("VarView");
}

void TVarView::ItemsChanged() {
  CloseEditor();
  const TPlace selected = CurrentRow() == NO_ROW ? TPlace{} : PlaceOf(CurrentRow());
  mStarts.assign(1, 0);
  for (size_t item = 0; item < mModel.VarCount(); ++item) {
    const int64_t below = mModel.IsVarExpanded(item) ? mModel.VarChildCount(item) : 0;
    mStarts.push_back(mStarts.back() + 1 + below);
  }
  RowsChanged();
  if (CurrentRow() != NO_ROW) SelectPlace(selected);
}

/// Selects what was selected before other items got more or fewer elements; of an element that is
/// gone the array.
void TVarView::SelectPlace(const TPlace& place) {
  if (place.item + 1 >= mStarts.size()) return;
  const int64_t row = mStarts[place.item];
  const int64_t below = mStarts[place.item + 1] - row - 1;
  KeepCurrentRow(place.slot <= below ? row + place.slot : row);
}

void TVarView::ValuesChanged() {
  if (!CanEdit()) CloseEditor();
  viewport()->update();
}

TVarView::TPlace TVarView::PlaceOf(int64_t row) const {
  const auto next = std::upper_bound(mStarts.begin(), mStarts.end() - 1, row);
  const auto item = static_cast<size_t>(next - mStarts.begin()) - 1;
  return {item, static_cast<int32_t>(row - mStarts[item])};
}

int64_t TVarView::RowOf(size_t item) const {
  return mStarts[item];
}

TVarRow TVarView::Row(int64_t row) const {
  const TPlace place = PlaceOf(row);
  return place.slot == 0 ? mModel.VarRow(place.item)
                         : mModel.VarChildRow(place.item, place.slot - 1);
}

QString TVarView::RowText(int64_t row) const {
  const TVarRow shown = Row(row);
  return QString::fromStdString(shown.label + shown.value);
}

QString TVarView::ReadText(int64_t row) const {
  const QString before = Row(row).changed ? mChangedText + ": " : QString();
  return before + RowText(row);
}

QAccessible::State TVarView::RowState(int64_t row) const {
  const TPlace place = PlaceOf(row);
  QAccessible::State state;
  if (place.slot != 0 || !IsArray(place.item)) return state;
  state.expandable = true;
  state.expanded = mModel.IsVarExpanded(place.item);
  state.collapsed = !state.expanded;
  return state;
}

int TVarView::TextX(int64_t row) const {
  return EXPANDER_WIDTH + (PlaceOf(row).slot == 0 ? 0 : INDENT);
}

int TVarView::PaintRow(QPainter& painter, int64_t row, const QRect& place) {
  const TPlace at = PlaceOf(row);
  const TVarRow shown = Row(row);
  if (shown.isDummy) return 0;
  const TRowColours colours = row_colours(palette());
  if (at.slot == 0 && IsArray(at.item)) {
    QStyleOption option;
    option.initFrom(this);
    option.rect = QRect(place.left(), place.top(), EXPANDER_WIDTH, place.height());
    option.state = QStyle::State_Children | QStyle::State_Enabled;
    if (mModel.IsVarExpanded(at.item)) option.state |= QStyle::State_Open;
    style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, &painter, this);
  }
  const QFontMetrics metrics = painter.fontMetrics();
  const QString label = QString::fromStdString(shown.label);
  const QString value = QString::fromStdString(shown.value);
  const int base = place.top() + metrics.ascent();
  const int valueX = TextX(row) + metrics.horizontalAdvance(label);
  painter.setPen(colours.text);
  painter.drawText(place.left() + TextX(row), base, label);
  if (shown.changed) {
    QFont bold = painter.font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(colours.changed);
  }
  painter.drawText(place.left() + valueX, base, value);
  const int width = valueX + text_width(value, painter.font()) + INDENT;
  painter.setFont(font());
  PaintSelection(painter, row, place);
  return width;
}

void TVarView::ExpandOrCollapse(size_t item, bool expand) {
  mModel.ExpandOrCollapseVar(item, expand);
  ItemsChanged();
}

void TVarView::RowPressed(int64_t row, int x) {
  CloseEditor();
  const TPlace place = PlaceOf(row);
  if (place.slot != 0 || x >= EXPANDER_WIDTH || !IsArray(place.item)) return;
  ExpandOrCollapse(place.item, !mModel.IsVarExpanded(place.item));
}

void TVarView::RowDoubleClicked(int64_t row, int x) {
  if (x < EXPANDER_WIDTH) return RowPressed(row, x);
  EditValue();
}

bool TVarView::ArrowKey(int64_t row, int key) {
  const TPlace place = PlaceOf(row);
  const bool expanded = mModel.IsVarExpanded(place.item);
  if (key == Qt::Key_Right) {
    if (place.slot == 0 && IsArray(place.item) && !expanded) {
      ExpandOrCollapse(place.item, true);
    } else if (expanded && place.slot == 0) {
      SetCurrentRow(row + 1);
    }
    return true;
  }
  if (key != Qt::Key_Left) return false;
  if (place.slot != 0) {
    SetCurrentRow(RowOf(place.item));
  } else if (expanded) {
    ExpandOrCollapse(place.item, false);
  }
  return true;
}

bool TVarView::RowKey(int64_t row, QKeyEvent& event) {
  if (event.key() == Qt::Key_F2) {
    EditValue();
    return true;
  }
  if (event.key() != Qt::Key_Space) return ArrowKey(row, event.key());
  const TPlace place = PlaceOf(row);
  if (place.slot == 0 && IsArray(place.item)) {
    ExpandOrCollapse(place.item, !mModel.IsVarExpanded(place.item));
  }
  return true;
}

QString TVarView::HoverText(int64_t row, int) const {
  // Only what does not fit needs a tip.
  if (text_width(RowText(row), font()) + TextX(row) < viewport()->width()) return {};
  return RowText(row).left(MAX_TIP_CHARACTERS).toHtmlEscaped();
}

void TVarView::RowMenu(int64_t, QPoint place) {
  if (mMenu) mMenu(place);
}

bool TVarView::CanEdit() const {
  return CurrentRow() != NO_ROW && mModel.RunMode() == TDebugRunMode::Breaked;
}

void TVarView::EditValue() {
  CloseEditor();
  if (!CanEdit()) return;
  const TVarRow shown = Row(CurrentRow());
  if (shown.isDummy) return;
  // It may have been scrolled away.
  SetCurrentRow(CurrentRow());
  mEdited = PlaceOf(CurrentRow());
  QRect place = RowRect(CurrentRow());
  const int valueX =
      TextX(CurrentRow()) + fontMetrics().horizontalAdvance(QString::fromStdString(shown.label));
  place.setLeft(std::max(place.left() + valueX, 0));
  place.setRight(std::max(viewport()->width() - 1, place.left() + MIN_EDITOR_WIDTH));
  mEditor = new QLineEdit(viewport());
  mEditor->setObjectName("EditValue");
  mEditor->setAccessibleName(QString::fromStdString(shown.label).trimmed());
  mEditor->setFrame(false);
  mEditor->setFont(font());
  mEditor->setGeometry(place);
  // Of a text that is shown in part, or cannot be, nothing must get lost unseen.
  const QString value = QString::fromStdString(shown.value);
  if (shown.value.size() < CUT_BYTES && value.toStdString() == shown.value) mEditor->setText(value);
  mTextBefore = mEditor->text();
  mEditor->selectAll();
  mEditor->installEventFilter(this);
  mEditor->show();
  mEditor->setFocus();
}

void TVarView::CommitEdit() {
  const QString text = mEditor->text();
  if (text != mTextBefore) {
    if (!mModel.EditVar(mEdited.item, mEdited.slot, text.toStdString())) {
      // Not a value of its kind: it stays to be mended.
      mEditor->selectAll();
      QPalette wrong = palette();
      wrong.setColor(QPalette::Base, row_colours(palette()).breaking);
      mEditor->setPalette(wrong);
      return;
    }
  }
  CloseEditor();
  setFocus();
}

void TVarView::CloseEditor() {
  if (mEditor == nullptr) return;
  QLineEdit* const editor = std::exchange(mEditor, nullptr);
  editor->removeEventFilter(this);
  editor->hide();
  editor->deleteLater();
}

void TVarView::scrollContentsBy(int dx, int dy) {
  CloseEditor();
  TRowView::scrollContentsBy(dx, dy);
  viewport()->update();
}

bool TVarView::eventFilter(QObject* object, QEvent* event) {
  if (object != mEditor) return TRowView::eventFilter(object, event);
  if (event->type() == QEvent::FocusOut) {
    CloseEditor();
    return false;
  }
  if (event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    CommitEdit();
    return true;
  }
  if (key != Qt::Key_Escape) return false;
  CloseEditor();
  setFocus();
  return true;
}

}  // namespace zoka
