// TSrcCodeView: the source of the debugged program: a margin with breakpoints and the place where
// it stands, and the lines.
#pragma once

#include <functional>

#include "debugger/debug_model.h"
#include "debugger/window/row_view.h"

namespace zoka {

/// What the view tells; all are set before it is used.
struct TSrcCodeCalls {
  /// The breakpoint of an item was clicked or set by a key: toggle it.
  std::function<void(size_t item, int x)> clicked;
  /// An item's menu is wanted, at a place of the screen.
  std::function<void(size_t item, QPoint place)> menu;
};

/// Window thread.
class TSrcCodeView final : public TRowView {
 public:
  /// The model outlives the view.
  TSrcCodeView(QWidget* parent, TDebugModel& model);

  void SetCalls(TSrcCodeCalls calls) { mCalls = std::move(calls); }
  /// There are other lines.
  void SetSrcCode();

  /// What is read out before a line with a breakpoint, and before that of the stop.
  void SetReadTexts(const QString& breakPoint, const QString& stop) {
    mBreakPointText = breakPoint;
    mStopText = stop;
  }

  QString RowText(int64_t row) const override;
  QString ReadText(int64_t row) const override;

 protected:
  int64_t CountRows() const override { return static_cast<int64_t>(mModel.SrcLineCount()); }
  int PaintRow(QPainter& painter, int64_t row, const QRect& place) override;
  void RowPressed(int64_t row, int x) override;
  /// The second of two quick clicks is a click like any other.
  void RowDoubleClicked(int64_t row, int x) override { RowPressed(row, x); }
  bool RowKey(int64_t row, QKeyEvent& event) override;
  QString HoverText(int64_t row, int x) const override;
  void RowMenu(int64_t row, QPoint place) override;

 private:
  TDebugModel& mModel;
  TSrcCodeCalls mCalls;
  QString mBreakPointText;
  QString mStopText;
};

/// The value of what the pointer is at in a line of the source, as it is shown: "A(1) = 5"; empty
/// if there is none.
QString hover_value(TDebugModel& model, std::string_view line, size_t column);

}  // namespace zoka
