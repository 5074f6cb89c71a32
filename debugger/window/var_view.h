// TVarView: the variables with their values, and below an array that is expanded its elements.
#pragma once

#include <QLineEdit>
#include <functional>
#include <vector>

#include "debugger/debug_model.h"
#include "debugger/window/row_view.h"

namespace zoka {

/// Window thread.
class TVarView final : public TRowView {
 public:
  /// The model outlives the view.
  TVarView(QWidget* parent, TDebugModel& model);

  /// A row's menu is wanted, at a place of the screen.
  void SetMenu(std::function<void(QPoint place)> menu) { mMenu = std::move(menu); }
  /// There are other items, or some have lost their elements.
  void ItemsChanged();
  /// Values or their marks have changed, or the program no longer stands.
  void ValuesChanged();

  /// What a row is: an item, and slot 0 or that of an element.
  struct TPlace {
    size_t item = 0;
    int32_t slot = 0;
  };
  TPlace PlaceOf(int64_t row) const;
  int64_t RowOf(size_t item) const;
  void ExpandOrCollapse(size_t item, bool expand);
  /// Opens a field for a new value of the selected row, if the program stands.
  void EditValue();
  bool CanEdit() const;
  /// The field, null when none is open.
  QLineEdit* Editor() { return mEditor; }

  /// What is read out before a value that has changed since the last stop.
  void SetReadText(const QString& changed) { mChangedText = changed; }

  QString RowText(int64_t row) const override;
  QString ReadText(int64_t row) const override;
  QAccessible::State RowState(int64_t row) const override;
  QAccessible::Role RowsRole() const override { return QAccessible::Tree; }

 protected:
  int64_t CountRows() const override { return mStarts.back(); }
  int PaintRow(QPainter& painter, int64_t row, const QRect& place) override;
  void RowPressed(int64_t row, int x) override;
  void RowDoubleClicked(int64_t row, int x) override;
  void RowActivated(int64_t) override { EditValue(); }
  bool RowKey(int64_t row, QKeyEvent& event) override;
  QString HoverText(int64_t row, int x) const override;
  void RowMenu(int64_t row, QPoint place) override;
  void scrollContentsBy(int dx, int dy) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  TVarRow Row(int64_t row) const;
  int TextX(int64_t row) const;
  bool IsArray(size_t item) const { return mModel.VarChildCount(item) > 0; }
  bool ArrowKey(int64_t row, int key);
  void SelectPlace(const TPlace& place);
  void CommitEdit();
  void CloseEditor();

  TDebugModel& mModel;
  std::function<void(QPoint)> mMenu;
  /// The row of each item, and behind the last one the number of rows.
  std::vector<int64_t> mStarts{0};
  QString mChangedText;
  QLineEdit* mEditor = nullptr;
  TPlace mEdited;       // what the field is for
  QString mTextBefore;  // what the field began with
};

}  // namespace zoka
