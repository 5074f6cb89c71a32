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

QString TRunAccessible::ScreenText() const {
  return QString::fromStdString(mRunWidget.View().Rsrc().ScreenText());
}

QString TRunAccessible::text(QAccessible::Text kind) const {
  if (kind == QAccessible::Value) return ScreenText();
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
  const TTxtSnapshot screen = mRunWidget.View().Rsrc().TxtSnapshot();
  const QString all = ScreenText();
  // Rows lose their trailing blanks, so the cursor may stand behind its row's end.
  qsizetype start = 0;
  for (int row = screen.cursorPos / screen.cols; row > 0; --row) {
    const qsizetype end = all.indexOf('\n', start);
    if (end < 0) break;
    start = end + 1;
  }
  const qsizetype end = all.indexOf('\n', start);
  const qsizetype column = screen.cursorPos % screen.cols;
  return static_cast<int>(std::min(start + column, end < 0 ? all.size() : end));
}

QString TRunAccessible::text(int start, int end) const {
  return ScreenText().mid(start, end - start);
}

int TRunAccessible::characterCount() const {
  return static_cast<int>(ScreenText().size());
}

QRect TRunAccessible::characterRect(int offset) const {
  const QString before = ScreenText().left(offset);
  const qsizetype row = before.count('\n');
  const qsizetype column = before.size() - 1 - before.lastIndexOf('\n');
  const int cols = mRunWidget.View().Rsrc().TxtSnapshot().cols;
  const QRect cell = mRunWidget.CellRect(static_cast<int32_t>(row * cols + column));
  return {mRunWidget.mapToGlobal(cell.topLeft()), cell.size()};
}

int TRunAccessible::offsetAtPoint(const QPoint& point) const {
  const int count = characterCount();
  for (int offset = 0; offset < count; ++offset) {
    if (characterRect(offset).contains(point)) return offset;
  }
  return -1;
}

QString TRunAccessible::attributes(int offset, int* start, int* end) const {
  *start = offset;
  *end = characterCount();
  return {};
}

}  // namespace zoka
