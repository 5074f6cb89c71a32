// TCallStackView: the calling lines, and below them the line in execution.
#pragma once

#include "debugger/debug_model.h"
#include "debugger/window/row_view.h"

namespace zoka {

/// Window thread. A click on an entry scrolls the source to its line; no entry stays selected.
class TCallStackView final : public TRowView {
 public:
  /// The model outlives the view.
  TCallStackView(QWidget* parent, TDebugModel& model);

  /// Entries or the current line have changed: the current line comes into sight.
  void StackChanged();

  QString RowText(int64_t row) const override;

 protected:
  int64_t CountRows() const override { return static_cast<int64_t>(mModel.CallStackCount()); }
  int PaintRow(QPainter& painter, int64_t row, const QRect& place) override;
  void RowPressed(int64_t row, int x) override;
  void RowActivated(int64_t row) override;

 private:
  TDebugModel& mModel;
};

}  // namespace zoka
