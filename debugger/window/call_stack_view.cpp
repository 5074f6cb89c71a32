// Painting the call stack, and clicks on it.
#include "debugger/window/call_stack_view.h"

namespace zoka {
namespace {

constexpr int TEXT_X = 4;

}  // namespace

TCallStackView::TCallStackView(QWidget* parent, TDebugModel& model)
    : TRowView(parent), mModel(model) {
  setObjectName("CallStackView");
}

void TCallStackView::StackChanged() {
  const int64_t before = Rows();
  RowsChanged();
  if (Rows() != before) ScrollToTop(Rows());
}

QString TCallStackView::RowText(int64_t row) const {
  return QString::fromStdString(mModel.CallStackText(static_cast<size_t>(row)));
}

int TCallStackView::PaintRow(QPainter& painter, int64_t row, const QRect& place) {
  const QString text = RowText(row);
  painter.setPen(row_colours(palette()).text);
  painter.drawText(place.left() + TEXT_X, place.top() + painter.fontMetrics().ascent(), text);
  PaintSelection(painter, row, place);
  return TEXT_X + text_width(text, painter.font()) + TEXT_X;
}

void TCallStackView::RowPressed(int64_t row, int) {
  RowActivated(row);
  SetCurrentRow(NO_ROW);
}

void TCallStackView::RowActivated(int64_t row) {
  mModel.ClickCallStack(static_cast<size_t>(row));
}

}  // namespace zoka
