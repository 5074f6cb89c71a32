// Painting source lines, and clicks on them.
#include "debugger/window/src_code_view.h"

#include <QKeyEvent>

#include "debugger/expression_at.h"
#include "debugger/window/debug_images.h"

namespace zoka {
namespace {

constexpr int MARK_X = 5;
constexpr int TEXT_X = BREAK_POINT_CLICK_WIDTH;
constexpr int MARGIN_LINE_X = TEXT_X - 3;
/// Characters of a value that a tip shows.
constexpr int MAX_TIP_CHARACTERS = 200;

QColor arrow_colour(const QPalette& palette) {
  return row_colours(palette).changed;
}

}  // namespace

QString hover_value(TDebugModel& model, std::string_view line, size_t column) {
  const std::string_view expression = expression_at(line, column);
  if (expression.empty()) return {};
  const std::optional<std::string> value = model.ValueOf(expression);
  if (!value) return {};
  QString shown = QString::fromStdString(*value);
  if (shown.size() > MAX_TIP_CHARACTERS) shown = shown.left(MAX_TIP_CHARACTERS) + "…";
  const QString text = QString::fromUtf8(expression.data(), static_cast<int>(expression.size()));
  // A value may look like mark-up.
  return (text + " = " + shown).toHtmlEscaped();
}

TSrcCodeView::TSrcCodeView(QWidget* parent, TDebugModel& model) : TRowView(parent), mModel(model) {
  setObjectName("SrcCodeView");
}

void TSrcCodeView::SetSrcCode() {
  ForgetWidth();
  RowsChanged();
}

QString TSrcCodeView::RowText(int64_t row) const {
  return QString::fromStdString(mModel.SrcLine(static_cast<size_t>(row)).text);
}

QString TSrcCodeView::ReadText(int64_t row) const {
  const TSrcCodeItem item = mModel.SrcLine(static_cast<size_t>(row));
  QString text;
  if (item.breaking) text += mStopText + ": ";
  if (item.breakPoint) text += mBreakPointText + ": ";
  return text + QString::fromStdString(item.text);
}

int TSrcCodeView::PaintRow(QPainter& painter, int64_t row, const QRect& place) {
  const TSrcCodeItem item = mModel.SrcLine(static_cast<size_t>(row));
  const TRowColours colours = row_colours(palette());
  painter.fillRect(place, item.breaking ? colours.breaking : colours.paper);
  painter.fillRect(place.left() + MARGIN_LINE_X, place.top(), 1, place.height(), colours.frame);
  const int side = std::min(place.height() - 2, MARGIN_LINE_X - MARK_X - 2);
  const QRectF mark(place.left() + MARK_X, place.top() + (place.height() - side) / 2.0, side, side);
  if (item.breakPoint) {
    draw_break_point(painter, mark, colours.breakPoint, item.rule != TBreakRule());
  }
  if (item.breaking) {
    const QRectF inner =
        item.breakPoint ? mark.adjusted(side / 4.0, side / 4.0, -1, -side / 4.0) : mark;
    draw_break_arrow(painter, inner, item.breakPoint ? colours.paper : arrow_colour(palette()));
  }
  const QString text = QString::fromStdString(item.text);
  painter.setPen(colours.text);
  painter.drawText(place.left() + TEXT_X, place.top() + painter.fontMetrics().ascent(), text);
  PaintSelection(painter, row, place);
  return TEXT_X + text_width(text, painter.font()) + TEXT_X;
}

void TSrcCodeView::RowPressed(int64_t row, int x) {
  mCalls.clicked(static_cast<size_t>(row), x);
}

bool TSrcCodeView::RowKey(int64_t row, QKeyEvent& event) {
  if (event.key() != Qt::Key_Space) return false;
  mCalls.clicked(static_cast<size_t>(row), 0);
  return true;
}

QString TSrcCodeView::HoverText(int64_t row, int x) const {
  const std::string line = mModel.SrcLine(static_cast<size_t>(row)).text;
  const QString text = QString::fromStdString(line);
  QTextLayout layout(text, font());
  const QTextLine shown = lay_out_row(layout);
  const int along = x - TEXT_X;
  if (!shown.isValid() || along < 0 || along >= shown.naturalTextWidth()) return {};
  const int at = shown.xToCursor(along, QTextLine::CursorOnCharacter);
  return hover_value(mModel, line, static_cast<size_t>(text.left(at).toUtf8().size()));
}

void TSrcCodeView::RowMenu(int64_t row, QPoint place) {
  mCalls.menu(static_cast<size_t>(row), place);
}

}  // namespace zoka
