// The simulated screen as readers of the screen find it: a terminal with the text of its rows.
#pragma once

#include <QAccessibleWidget>

#include "run/window/screen_reading.h"

namespace zoka {

class TRunWidget;

/// Read-only text, a line feed after each row. Window thread.
class TRunAccessible final : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit TRunAccessible(TRunWidget& widget);

  void* interface_cast(QAccessible::InterfaceType type) override;
  QString text(QAccessible::Text kind) const override;
  QAccessible::State state() const override;

  void selection(int index, int* start, int* end) const override;
  int selectionCount() const override { return 0; }
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  int cursorPosition() const override;
  void setCursorPosition(int) override {}
  QString text(int start, int end) const override;
  int characterCount() const override;
  QRect characterRect(int offset) const override;
  int offsetAtPoint(const QPoint& point) const override;
  void scrollToSubstring(int, int) override {}
  QString attributes(int offset, int* start, int* end) const override;

 private:
  TScreenReading Reading() const;

  TRunWidget& mRunWidget;
};

/// Makes the toolkit find it; once is enough, more does no harm.
void install_run_accessible();

}  // namespace zoka
