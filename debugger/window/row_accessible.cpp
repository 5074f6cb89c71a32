// Lists and their rows for readers of the screen.
#include "debugger/window/row_accessible.h"

#include <QPointer>
#include <QWindow>
#include <algorithm>
#include <limits>

#include "debugger/window/row_view.h"

namespace zoka {
namespace {

/// One row, as long as the list has it. It outlives the list at most as an invalid one.
class TRowItem final : public QAccessibleInterface {
 public:
  TRowItem(TRowView& view, int row) : mView(&view), mRow(row) {}

  const TRowView* View() const { return mView; }
  int Row() const { return mRow; }

  bool isValid() const override { return mView && mRow < mView->Rows(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return mView ? mView->window()->windowHandle() : nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(mView.data());
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name && isValid() ? mView->ReadText(mRow) : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override {
    return mView && mView->RowsRole() == QAccessible::Tree ? QAccessible::TreeItem
                                                           : QAccessible::ListItem;
  }
  QAccessible::State state() const override;

 private:
  QPointer<TRowView> mView;
  const int mRow;
};

QRect TRowItem::rect() const {
  if (!isValid()) return {};
  QRect place = mView->RowRect(mRow);
  place.setLeft(0);
  place.setWidth(mView->viewport()->width());
  return {mView->viewport()->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::State TRowItem::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  state = mView->RowState(mRow);
  state.selectable = state.focusable = true;
  state.selected = mRow == mView->CurrentRow();
  state.focused = state.selected && mView->hasFocus();
  state.invisible = state.offscreen = !mView->viewport()->rect().intersects(mView->RowRect(mRow));
  return state;
}

QAccessibleInterface* make_row_accessible(const QString&, QObject* object) {
  auto* view = dynamic_cast<TRowView*>(object);
  return view != nullptr ? new TRowAccessible(*view) : nullptr;
}

}  // namespace

void install_row_accessible() {
  static const bool once = [] {
    QAccessible::installFactory(make_row_accessible);
    return true;
  }();
  static_cast<void>(once);
}

TRowAccessible::TRowAccessible(TRowView& view) : QAccessibleWidget(&view), mView(view) {}

TRowAccessible::~TRowAccessible() {
  for (const auto& [row, id] : mHeld) QAccessible::deleteAccessibleInterface(id);
}

QAccessible::Role TRowAccessible::role() const {
  return mView.RowsRole();
}

int TRowAccessible::RowCount() const {
  return static_cast<int>(std::min<int64_t>(mView.Rows(), std::numeric_limits<int>::max() / 2));
}

int TRowAccessible::childCount() const {
  return RowCount() + QAccessibleWidget::childCount();
}

QAccessibleInterface* TRowAccessible::child(int index) const {
  if (index < 0) return nullptr;
  if (index >= RowCount()) return QAccessibleWidget::child(index - RowCount());
  if (const auto held = mHeld.find(index); held != mHeld.end()) {
    return QAccessible::accessibleInterface(held->second);
  }
  if (mHeld.size() >= MAX_HELD_ROWS) {
    const auto oldest = mHeld.find(mOldest.front());
    mOldest.pop_front();
    QAccessible::deleteAccessibleInterface(oldest->second);
    mHeld.erase(oldest);
  }
  auto* const item = new TRowItem(mView, index);
  mHeld[index] = QAccessible::registerAccessibleInterface(item);
  mOldest.push_back(index);
  return item;
}

int TRowAccessible::indexOfChild(const QAccessibleInterface* child) const {
  if (const auto* item = dynamic_cast<const TRowItem*>(child)) {
    return item->View() == &mView && item->isValid() ? item->Row() : -1;
  }
  const int part = QAccessibleWidget::indexOfChild(child);
  return part < 0 ? -1 : RowCount() + part;
}

QAccessibleInterface* TRowAccessible::childAt(int x, int y) const {
  const QWidget& viewport = *mView.viewport();
  const QPoint place = viewport.mapFromGlobal(QPoint(x, y));
  // A field for a new value lies above its row.
  if (!viewport.rect().contains(place) || viewport.childAt(place) != nullptr) {
    return QAccessibleWidget::childAt(x, y);
  }
  const int64_t row = mView.RowAt(place);
  return row == TRowView::NO_ROW ? nullptr : child(static_cast<int>(row));
}

QAccessibleInterface* TRowAccessible::focusChild() const {
  if (!mView.hasFocus() || mView.CurrentRow() == TRowView::NO_ROW) {
    return QAccessibleWidget::focusChild();
  }
  return child(static_cast<int>(mView.CurrentRow()));
}

}  // namespace zoka
