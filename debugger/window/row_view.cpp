// Scrolling, selecting and painting of rows.
#include "debugger/window/row_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <limits>

#include "common/window/fixed_font.h"
#include "debugger/window/row_accessible.h"

namespace zoka {
namespace {

constexpr int KEY_SCROLL_PIXELS = 24;
constexpr int FOCUS_BAR_PIXELS = 3;

}  // namespace

TRowColours row_colours(const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  if (!is_dark(base)) {
    return {.paper = Qt::white,
            .text = Qt::black,
            .breaking = QColor(0xFF, 0xCC, 0xCC),
            .frame = QColor(0xCC, 0xCC, 0xCC),
            .changed = QColor(0xB0, 0x20, 0x10),
            .breakPoint = QColor(0xD0, 0x30, 0x20)};
  }
  return {.paper = base,
          .text = palette.color(QPalette::Text),
          .breaking = QColor(0x6A, 0x28, 0x28),
          .frame = QColor(0x80, 0x80, 0x80),
          .changed = QColor(0xFF, 0xA8, 0x90),
          .breakPoint = QColor(0xFF, 0x5A, 0x4A)};
}

bool is_dark(const QColor& colour) {
  constexpr int HALF_LIGHTNESS = 128;
  return colour.lightness() < HALF_LIGHTNESS;
}

QTextLine lay_out_row(QTextLayout& layout) {
  layout.beginLayout();
  QTextLine line = layout.createLine();
  if (line.isValid()) line.setLineWidth(QWIDGETSIZE_MAX);
  layout.endLayout();
  return line;
}

int text_width(const QString& text, const QFont& font) {
  // The metrics do not know how far a tab goes.
  if (!text.contains('\t')) return QFontMetrics(font).horizontalAdvance(text);
  QTextLayout layout(text, font);
  return static_cast<int>(std::ceil(lay_out_row(layout).naturalTextWidth()));
}

TRowView::TRowView(QWidget* parent) : QAbstractScrollArea(parent) {
  install_row_accessible();
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(NoFrame);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  viewport()->setCursor(Qt::ArrowCursor);
  horizontalScrollBar()->setSingleStep(KEY_SCROLL_PIXELS);
}

void TRowView::SetFontFamilyAndSize(const std::string& family, float points) {
  QFont font(present_fixed_family(family));
  font.setPointSizeF(static_cast<qreal>(points));
  setFont(font);
  mRowHeight = std::max(QFontMetrics(font).height(), 1);
  ForgetWidth();
  UpdateBars();
  viewport()->update();
}

void TRowView::RowsChanged() {
  mRows = CountRows();
  if (mCurrent >= mRows) mCurrent = mRows - 1;
  UpdateBars();
  viewport()->update();
}

int64_t TRowView::RowsInSight() const {
  return std::max(viewport()->height() / mRowHeight, 1);
}

void TRowView::UpdateBars() {
  // The last row can be scrolled to no farther than the bottom.
  const int64_t hidden = std::max<int64_t>(mRows - RowsInSight(), 0);
  verticalScrollBar()->setRange(
      0, static_cast<int>(std::min<int64_t>(hidden, std::numeric_limits<int>::max())));
  verticalScrollBar()->setPageStep(static_cast<int>(RowsInSight()));
  horizontalScrollBar()->setRange(0, std::max(mWidest - viewport()->width(), 0));
  horizontalScrollBar()->setPageStep(viewport()->width());
}

QRect TRowView::RowRect(int64_t row) const {
  const int64_t below = row - verticalScrollBar()->value();
  const int64_t limit = std::numeric_limits<int>::max() / (2 * mRowHeight);
  const int64_t top = std::clamp(below, -limit, limit) * mRowHeight;
  return {-horizontalScrollBar()->value(), static_cast<int>(top),
          std::max(mWidest, viewport()->width()), mRowHeight};
}

int64_t TRowView::RowAt(QPoint place) const {
  if (place.y() < 0) return NO_ROW;
  const int64_t row = verticalScrollBar()->value() + place.y() / mRowHeight;
  return row < mRows ? row : NO_ROW;
}

int TRowView::ContentX(int x) const {
  return x + horizontalScrollBar()->value();
}

void TRowView::ScrollToTop(int64_t row) {
  const int64_t limit = verticalScrollBar()->maximum();
  verticalScrollBar()->setValue(static_cast<int>(std::clamp<int64_t>(row, 0, limit)));
}

void TRowView::SetCurrentRow(int64_t row) {
  mCurrent = std::clamp<int64_t>(row, NO_ROW, mRows - 1);
  if (mCurrent != NO_ROW) {
    const int64_t top = verticalScrollBar()->value();
    if (mCurrent < top) ScrollToTop(mCurrent);
    if (mCurrent >= top + RowsInSight()) ScrollToTop(mCurrent - RowsInSight() + 1);
  }
  viewport()->update();
  TellReaders(QAccessible::Focus);
}

void TRowView::KeepCurrentRow(int64_t row) {
  mCurrent = std::clamp<int64_t>(row, NO_ROW, mRows - 1);
  viewport()->update();
}

/// Tells of the selected row, while the list has the keyboard.
void TRowView::TellReaders(QAccessible::Event what) {
  if (mCurrent == NO_ROW || !hasFocus()) return;
  QAccessibleEvent event(this, what);
  event.setChild(static_cast<int>(mCurrent));
  QAccessible::updateAccessibility(&event);
}

void TRowView::PaintSelection(QPainter& painter, int64_t row, const QRect& place) const {
  if (row != mCurrent) return;
  const TRowColours colours = row_colours(palette());
  painter.setPen(colours.frame);
  painter.setBrush(Qt::NoBrush);
  const int left = horizontalScrollBar()->value() + place.left();
  painter.drawRect(left, place.top(), viewport()->width() - 1, place.height() - 1);
  // A bar in front tells that the list has the keyboard.
  if (!hasFocus()) return;
  painter.fillRect(left, place.top(), FOCUS_BAR_PIXELS, place.height(),
                   palette().color(QPalette::Highlight));
}

void TRowView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.setFont(font());
  painter.fillRect(event->rect(), row_colours(palette()).paper);
  const int64_t first = verticalScrollBar()->value() + event->rect().top() / mRowHeight;
  const int64_t last = verticalScrollBar()->value() + event->rect().bottom() / mRowHeight;
  int widest = mWidest;
  for (int64_t row = first; row <= std::min(last, mRows - 1); ++row) {
    widest = std::max(widest, PaintRow(painter, row, RowRect(row)));
  }
  if (widest == mWidest) return;
  mWidest = widest;
  // The range must not change in the midst of painting.
  QMetaObject::invokeMethod(
      this, [this] { UpdateBars(); }, Qt::QueuedConnection);
}

void TRowView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  UpdateBars();
}

void TRowView::mousePressEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const int64_t row = RowAt(place);
  if (row == NO_ROW) return;
  SetCurrentRow(row);
  if (event->button() == Qt::LeftButton) RowPressed(row, ContentX(place.x()));
}

void TRowView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const int64_t row = RowAt(place);
  if (row != NO_ROW && event->button() == Qt::LeftButton) {
    RowDoubleClicked(row, ContentX(place.x()));
  }
}

/// The row to which a key moves the selection; NO_ROW if it is no such key.
int64_t TRowView::MovedBy(int key) const {
  const int64_t last = mRows - 1;
  const auto moved = [&](int64_t by) { return std::clamp<int64_t>(mCurrent + by, 0, last); };
  switch (key) {
    case Qt::Key_Up:
      return moved(-1);
    case Qt::Key_Down:
      return moved(1);
    case Qt::Key_PageUp:
      return moved(-RowsInSight());
    case Qt::Key_PageDown:
      return moved(RowsInSight());
    case Qt::Key_Home:
      return 0;
    case Qt::Key_End:
      return last;
    default:
      return NO_ROW;
  }
}

void TRowView::keyPressEvent(QKeyEvent* event) {
  if (mRows == 0) return QAbstractScrollArea::keyPressEvent(event);
  if (mCurrent != NO_ROW && RowKey(mCurrent, *event)) {
    // It may read otherwise now: a breakpoint, an array that is open.
    TellReaders(QAccessible::NameChanged);
    return event->accept();
  }
  if (mCurrent != NO_ROW && event->matches(QKeySequence::Copy)) {
    QGuiApplication::clipboard()->setText(RowText(mCurrent));
    return event->accept();
  }
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (mCurrent != NO_ROW) RowActivated(mCurrent);
    return event->accept();
  }
  const int64_t row = MovedBy(event->key());
  if (row == NO_ROW) return QAbstractScrollArea::keyPressEvent(event);
  SetCurrentRow(row);
  event->accept();
}

void TRowView::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const int64_t row = byKey ? mCurrent : RowAt(event->pos());
  if (row == NO_ROW) return;
  SetCurrentRow(row);
  const QPoint place =
      byKey ? viewport()->mapToGlobal(RowRect(row).bottomLeft()) : event->globalPos();
  RowMenu(row, place);
  event->accept();
}

void TRowView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  const Qt::FocusReason reason = event->reason();
  const bool byKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
  if (byKey && mCurrent == NO_ROW && mRows > 0) {
    SetCurrentRow(verticalScrollBar()->value());
  } else {
    TellReaders(QAccessible::Focus);
  }
  viewport()->update();
}

void TRowView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

bool TRowView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int64_t row = RowAt(help->pos());
  const QString text = row == NO_ROW ? QString() : HoverText(row, ContentX(help->pos().x()));
  if (text.isEmpty()) {
    QToolTip::hideText();
    event->ignore();
  } else {
    QToolTip::showText(help->globalPos(), text, this, RowRect(row));
  }
  return true;
}

}  // namespace zoka
