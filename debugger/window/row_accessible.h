// The rows of a list of the debug window as readers of the screen find them. What a row says is the
// list's own.
#pragma once

#include <QAccessibleWidget>
#include <deque>
#include <map>

namespace zoka {

class TRowView;

/// Rows that readers can hold at a time; of a list of a million rows not all that were ever asked
/// for are kept.
constexpr size_t MAX_HELD_ROWS = 1024;

/// A list whose first children are its rows; behind them stand the parts of the widget. Window
/// thread. Rows are made when they are asked for, and known to the toolkit by numbers.
class TRowAccessible final : public QAccessibleWidget {
 public:
  explicit TRowAccessible(TRowView& view);
  ~TRowAccessible() override;

  QAccessible::Role role() const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;

 private:
  int RowCount() const;

  TRowView& mView;
  mutable std::map<int, QAccessible::Id> mHeld;  // by row
  mutable std::deque<int> mOldest;               // rows of mHeld, in the order of their making
};

/// Makes the toolkit find it; once is enough, more does no harm.
void install_row_accessible();

}  // namespace zoka
