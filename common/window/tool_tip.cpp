// Tips and their times.
#include "common/window/tool_tip.h"

#include <QEvent>
#include <QScreen>
#include <algorithm>
#include <chrono>

namespace zoka {
namespace {

constexpr QRgb PALE_YELLOW = 0xFFFFFFE1;
constexpr int MARGIN = 3;
/// Between the widget and its tip.
constexpr int BELOW = 2;

int64_t host_now() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace

QPointer<QLabel> TToolTip::gOpen;
std::function<int64_t()> TToolTip::gNow = host_now;
std::optional<int64_t> TToolTip::gLastHideTime;

TToolTip::TToolTip(QWidget* owner)
    : QObject(owner), mOwner(owner), mShow(new QTimer(this)), mHide(new QTimer(this)) {
  for (QTimer* timer : {mShow, mHide}) timer->setSingleShot(true);
  connect(mShow, &QTimer::timeout, this, [this] { Show(); });
  connect(mHide, &QTimer::timeout, this, [this] { Hide(); });
  owner->installEventFilter(this);
}

TToolTip::~TToolTip() {
  delete mWindow;
}

QLabel* TToolTip::OpenWindow() {
  return gOpen;
}

void TToolTip::SetNow(std::function<int64_t()> now) {
  gNow = now ? std::move(now) : host_now;
  gLastHideTime.reset();
}

bool TToolTip::eventFilter(QObject* object, QEvent* event) {
  switch (event->type()) {
    case QEvent::Enter:
      MouseEntered();
      break;
    case QEvent::Leave:
    case QEvent::MouseButtonPress:
    case QEvent::Hide:
      MouseExited();
      break;
    case QEvent::ToolTip:
      return true;  // the toolkit would show its own
    default:
      break;
  }
  return QObject::eventFilter(object, event);
}

void TToolTip::MouseEntered() {
  const bool again = gLastHideTime && gNow() - *gLastHideTime < TOOL_TIP_AGAIN_MS;
  if (gOpen || again) return Show();
  mShow->start(TOOL_TIP_SHOW_MS);
}

void TToolTip::MouseExited() {
  mShow->stop();
  Hide();
}

void TToolTip::Show() {
  mShow->stop();
  if (mOwner->toolTip().isEmpty() || mWindow) return;
  delete gOpen;
  mWindow = new QLabel(mOwner->toolTip(), mOwner, Qt::ToolTip);
  gOpen = mWindow;
  mWindow->setObjectName(TOOL_TIP_WINDOW + mOwner->objectName());
  mWindow->setTextFormat(Qt::PlainText);
  mWindow->setMargin(MARGIN);
  mWindow->setFrameShape(QFrame::Box);
  QPalette colours(Qt::black, QColor(PALE_YELLOW));
  colours.setColor(QPalette::WindowText, Qt::black);
  mWindow->setPalette(colours);
  mWindow->adjustSize();
  const QRect screen = mOwner->screen()->availableGeometry();
  const QPoint place = mOwner->mapToGlobal(QPoint(0, mOwner->height() + BELOW));
  const int right = screen.right() + 1 - mWindow->width();
  const int bottom = screen.bottom() + 1 - mWindow->height();
  mWindow->move(std::min(place.x(), right), std::min(place.y(), bottom));
  mWindow->show();
  mHide->start(TOOL_TIP_HIDE_MS);
}

void TToolTip::Hide() {
  mHide->stop();
  if (!mWindow) return;
  delete mWindow;
  gLastHideTime = gNow();
}

}  // namespace zoka
