// TToolTip: the text that appears beside a button on which the pointer rests. What the button does
// is elsewhere.
#pragma once

#include <QLabel>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>

namespace zoka {

/// How long the pointer rests before a tip comes, how long the tip stays, and within which time
/// after one has gone the next comes at once; in milliseconds.
constexpr int TOOL_TIP_SHOW_MS = 1000;
constexpr int TOOL_TIP_HIDE_MS = 5000;
constexpr int TOOL_TIP_AGAIN_MS = 200;
/// The names of the tips' windows begin so; the button's name follows.
constexpr const char TOOL_TIP_WINDOW[] = "TlTipWin_";

/// Shows the tool tip of one widget, in place of the toolkit. Belongs to the widget. Window thread.
class TToolTip final : public QObject {
 public:
  explicit TToolTip(QWidget* owner);
  ~TToolTip() override;

  /// The tip that is open now, of whichever widget; null if none is.
  static QLabel* OpenWindow();
  /// Replaces the time that the tips look at, in milliseconds since any moment; empty: the host's.
  static void SetNow(std::function<int64_t()> now);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void MouseEntered();
  void MouseExited();
  void Show();
  void Hide();

  static QPointer<QLabel> gOpen;
  static std::function<int64_t()> gNow;
  static std::optional<int64_t> gLastHideTime;

  QWidget* mOwner;
  QTimer* mShow;
  QTimer* mHide;
  QPointer<QLabel> mWindow;
};

}  // namespace zoka
