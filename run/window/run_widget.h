// TRunWidget: the picture of the run view in a window, and the host's keyboard, mouse and input
// method on their way to it. What they mean is the run view's business.
#pragma once

#include <QString>
#include <QTimer>
#include <map>
#include <optional>

#include "common/types.h"
#include "common/window/basic_view.h"
#include "run/run_view.h"
#include "run/window/run_window_host.h"
#include "run/window/screen_reading.h"

namespace zoka {

/// Shows 640 by 400 pixels, each as a square of whole pixels of the host's screen, in the middle of
/// itself. Nothing is owned. Window thread.
class TRunWidget final : public TBasicView {
 public:
  TRunWidget(TRunView& view, TRunWindowHost& host, QWidget* parent);

  /// Pixels of the host at an ordinary resolution for one of the machine's, from 1 on: the size
  /// that the widget wants.
  static constexpr int MAX_STEP = 4;
  void SetStep(int step);
  int Step() const { return mStep; }
  /// As large as whole pixels allow, whatever its size is to be: for the whole screen.
  void SetFilling(bool filling);

  /// Pixels of the host's screen for one of the machine's, now.
  int Scale() const;
  /// The part of the machine's screen that has changed.
  void Present(const TRect& changed);

  QSize sizeHint() const override;
  /// The machine's pixel at a place of the widget.
  TPoint PointAt(QPointF place) const;
  /// What the input method has not committed yet.
  const QString& Preedit() const { return mPreedit; }
  TRunView& View() const { return mView; }
  /// The part of the widget that a text cell, or several side by side, takes; cells outside the
  /// screen give its first or last one.
  QRect CellRect(int32_t cell, int32_t cells = 1) const;
  /// The text cell at a place of the widget; none outside the picture.
  std::optional<int32_t> CellAt(QPointF place) const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QSize WantedSize() const;
  void UpdateSize();
  QPoint Origin() const;
  QRectF FromMachine(const TRect& r) const;
  QRect CursorCell() const;
  void TellInputMethod();
  void TellReaders();
  void PaintPreedit(QPainter& painter) const;
  void ReleaseKeys();

  TRunView& mView;
  TRunWindowHost& mHost;
  int mStep = 1;
  bool mFilling = false;
  QString mPreedit;
  TScreenReading mToldReading;  // the screen as its readers know it
  QRect mToldCursorCell;        // the cursor as the input method knows it
  /// Matrix codes of keys whose release may yet prove to be one of the host's repeats.
  std::map<uint32_t, uint8_t> mReleased;
  QTimer mReleaseTimer;
};

}  // namespace zoka
