// TBasicView: the base of views that the mouse works on: presses and releases become clicks, double
// clicks and drags. It paints nothing.
#pragma once

#include <QWidget>

namespace zoka {

/// Each of the virtual functions gets the place in the view; they are empty unless overridden.
class TBasicView : public QWidget {
 public:
  explicit TBasicView(QWidget* parent = nullptr) : QWidget(parent) {}

  /// The button was pressed and released in the view, without a drag.
  virtual void MouseClickLeftSingle(QPoint) {}
  virtual void MouseClickRightSingle(QPoint) {}
  /// The second press of a double click; no single click follows it.
  virtual void MouseClickLeftDouble(QPoint) {}
  virtual void MouseClickRightDouble(QPoint) {}
  virtual void MouseDownLeft(QPoint) {}
  virtual void MouseDownRight(QPoint) {}
  /// The pointer moves with the button down, far enough for a drag or after one has begun.
  virtual void MouseDragLeft(QPoint) {}
  virtual void MouseDragRight(QPoint) {}

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QPoint mPressed;
  Qt::MouseButton mButton = Qt::NoButton;  // the one whose click may follow
  bool mDragging = false;
};

}  // namespace zoka
