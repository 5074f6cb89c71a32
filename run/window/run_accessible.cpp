// Text of the screen for its readers.
#include "run/window/run_accessible.h"

#include "run/window/run_widget.h"

namespace zoka {
namespace {

QAccessibleInterface* make_run_accessible(const QString&, QObject* object) {
  auto* widget = dynamic_cast<TRunWidget*>(object);
  return widget != nullptr ? new TRunAccessible(*widget) : nullptr;
}

}  // namespace

void install_run_accessible() {
  static const bool once = [] {
    QAccessible::installFactory(make_run_accessible);
    return true;
  }();
  static_cast<void>(once);
}

TRunAccessible::TRunAccessible(TRunWidget& widget)
    : QAccessibleWidget(&widget, QAccessible::Terminal), mRunWidget(widget) {}

void* TRunAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

TScreenReading TRunAccessible::Reading() const {
  return TScreenReading(mRunWidget.View().Rsrc().TxtSnapshot());
}

QString TRunAccessible::text(QAccessible::Text kind) const {
  if (kind == QAccessible::Value) return Reading().Text();
  if (kind == QAccessible::Name) return mRunWidget.window()->windowTitle();
  return QAccessibleWidget::text(kind);
}

QAccessible::State TRunAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.readOnly = true;
  state.multiLine = true;
  return state;
}

void TRunAccessible::selection(int, int* start, int* end) const {
  *start = *end = 0;
}

int TRunAccessible::cursorPosition() const {
  return Reading().Cursor();
}

QString TRunAccessible::text(int start, int end) const {
  return Reading().Text().mid(start, end - start);
}

int TRunAccessible::characterCount() const {
  return static_cast<int>(Reading().Text().size());
}

QRect TRunAccessible::characterRect(int offset) const {
  const TReadPlace place = Reading().PlaceOf(offset);
  const QRect rect = mRunWidget.CellRect(place.cell, place.cells);
  return {mRunWidget.mapToGlobal(rect.topLeft()), rect.size()};
}

int TRunAccessible::offsetAtPoint(const QPoint& point) const {
  const std::optional<int32_t> cell = mRunWidget.CellAt(mRunWidget.mapFromGlobal(point));
  return cell ? Reading().OffsetOf(*cell) : -1;
}

QString TRunAccessible::attributes(int offset, int* start, int* end) const {
  *start = offset;
  *end = characterCount();
  return {};
}

}  // namespace zoka
