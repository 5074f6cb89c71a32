// Messages, place and closing of windows.
#include "common/window/basic_window.h"

#include <QCloseEvent>
#include <QScreen>
#include <algorithm>

#include "common/window/screen_place.h"

namespace zoka {

TBasicWindow::TBasicWindow(TWindowContext& context)
    : mWindowContext(context),
      mQueue([this](const TMessage& message) { MessageReceived(message); }) {
  mId = mWindowContext.registry.Register(this);
}

TBasicWindow::~TBasicWindow() {
  mWindowContext.registry.Unregister(mId);
}

void TBasicWindow::Appear() {
  if (isMinimized()) showNormal();
  show();
  raise();
  activateWindow();
}

void TBasicWindow::IntelligentCentering() {
  const QRect free = screen()->availableGeometry();
  const QSize size = frameGeometry().size();
  IntelligentMoveTo(free.center() - QPoint(size.width() / 2, size.height() / 2));
}

void TBasicWindow::IntelligentMoveTo(QPoint place) {
  const QSize size = frameGeometry().size();
  const QRect free = screen_area_of(QRect(place, size));
  // The upper left corner, with what moves the window, wins where it does not fit.
  const int x = std::max(std::min(place.x(), free.right() + 1 - size.width()), free.left());
  const int y = std::max(std::min(place.y(), free.bottom() + 1 - size.height()), free.top());
  move(x, y);
}

TFrame TBasicWindow::Frame() const {
  const QPoint place = pos();
  return {static_cast<float>(place.x()), static_cast<float>(place.y()),
          static_cast<float>(place.x() + width()), static_cast<float>(place.y() + height())};
}

void TBasicWindow::MoveToFrame(const TFrame& frame) {
  IntelligentMoveTo(corner_of(frame));
}

void TBasicWindow::MessageReceived(const TMessage& message) {
  if (message.what == message_code(LANGUAGE_CHANGED_CODE)) LanguageChanged();
  if (message.what == message_code(IAP_CHANGED_CODE)) IAPChanged(message);
}

bool TBasicWindow::QuitRequested() {
  if (mWindowContext.engine.privacy.quitting.load()) return true;
  hide();
  return false;
}

void TBasicWindow::closeEvent(QCloseEvent* event) {
  if (QuitRequested()) {
    event->accept();
  } else {
    event->ignore();
  }
}

void TBasicWindow::PostToApp(const TMessage& message) const {
  mWindowContext.registry.Post(mWindowContext.app, message);
}

}  // namespace zoka
