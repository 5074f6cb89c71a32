// Clicks and drags.
#include "common/window/basic_view.h"

#include <QApplication>
#include <QMouseEvent>

namespace zoka {

void TBasicView::mousePressEvent(QMouseEvent* event) {
  mPressed = event->position().toPoint();
  mButton = event->button();
  mDragging = false;
  if (mButton == Qt::LeftButton) MouseDownLeft(mPressed);
  if (mButton == Qt::RightButton) MouseDownRight(mPressed);
}

void TBasicView::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const bool isClick = event->button() == mButton && !mDragging && rect().contains(place);
  mButton = Qt::NoButton;
  if (!isClick) return;
  if (event->button() == Qt::LeftButton) MouseClickLeftSingle(place);
  if (event->button() == Qt::RightButton) MouseClickRightSingle(place);
}

void TBasicView::mouseDoubleClickEvent(QMouseEvent* event) {
  mButton = Qt::NoButton;
  if (event->button() == Qt::LeftButton) MouseClickLeftDouble(event->position().toPoint());
  if (event->button() == Qt::RightButton) MouseClickRightDouble(event->position().toPoint());
}

void TBasicView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  if (mButton == Qt::NoButton) return;
  if ((place - mPressed).manhattanLength() >= QApplication::startDragDistance()) mDragging = true;
  if (!mDragging) return;
  if (mButton == Qt::LeftButton) MouseDragLeft(place);
  if (mButton == Qt::RightButton) MouseDragRight(place);
}

}  // namespace zoka
