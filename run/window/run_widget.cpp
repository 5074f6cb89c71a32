// Painting, keys, input method and mouse of the run view's widget.
#include "run/window/run_widget.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <mutex>
#include <utility>

#include "run/window/key_translate.h"
#include "run/window/run_accessible.h"

namespace zoka {
namespace {

/// Milliseconds for which a key counts as down after its release: some hosts report a release in
/// the midst of a repeat.
constexpr int RELEASE_MS = 5;

/// A rectangle without the parts of the host's units at its edges: on fine screens the machine's
/// picture may begin and end within one.
QRect whole_units_inside(const QRectF& r) {
  return {QPoint(static_cast<int>(std::ceil(r.left())), static_cast<int>(std::ceil(r.top()))),
          QPoint(static_cast<int>(std::floor(r.right())) - 1,
                 static_cast<int>(std::floor(r.bottom())) - 1)};
}

}  // namespace

TRunWidget::TRunWidget(TRunView& view, TRunWindowHost& host, QWidget* parent)
    : TBasicView(parent), mView(view), mHost(host) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_InputMethodEnabled);
  setMouseTracking(true);
  mReleaseTimer.setSingleShot(true);
  mReleaseTimer.setInterval(RELEASE_MS);
  connect(&mReleaseTimer, &QTimer::timeout, this, [this] { ReleaseKeys(); });
  install_run_accessible();
  UpdateSize();
}

void TRunWidget::SetStep(int step) {
  mStep = std::clamp(step, 1, MAX_STEP);
  UpdateSize();
}

void TRunWidget::SetFilling(bool filling) {
  mFilling = filling;
  UpdateSize();
}

QSize TRunWidget::WantedSize() const {
  const qreal ratio = devicePixelRatioF();
  // On a finer screen one pixel of the machine is still a whole number of the screen's.
  const qreal scale = std::max(1.0, std::round(mStep * ratio));
  return {static_cast<int>(std::ceil(SCREEN_WIDTH * scale / ratio)),
          static_cast<int>(std::ceil(SCREEN_HEIGHT * scale / ratio))};
}

QSize TRunWidget::sizeHint() const {
  return WantedSize();
}

void TRunWidget::UpdateSize() {
  if (mFilling) {
    setMinimumSize(SCREEN_WIDTH / 4, SCREEN_HEIGHT / 4);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  } else {
    setFixedSize(WantedSize());
  }
  updateGeometry();
  update();
}

int TRunWidget::Scale() const {
  const qreal ratio = devicePixelRatioF();
  const int across = static_cast<int>(std::floor(width() * ratio / SCREEN_WIDTH));
  const int down = static_cast<int>(std::floor(height() * ratio / SCREEN_HEIGHT));
  return std::max(1, std::min(across, down));
}

QPoint TRunWidget::Origin() const {
  const qreal ratio = devicePixelRatioF();
  const int freeX = static_cast<int>(width() * ratio) - SCREEN_WIDTH * Scale();
  const int freeY = static_cast<int>(height() * ratio) - SCREEN_HEIGHT * Scale();
  return {std::max(0, freeX / 2), std::max(0, freeY / 2)};
}

QRectF TRunWidget::FromMachine(const TRect& r) const {
  const qreal ratio = devicePixelRatioF();
  const int scale = Scale();
  const QPoint origin = Origin();
  return {(origin.x() + r.left * scale) / ratio, (origin.y() + r.top * scale) / ratio,
          (r.right - r.left + 1) * scale / ratio, (r.bottom - r.top + 1) * scale / ratio};
}

TPoint TRunWidget::PointAt(QPointF place) const {
  const qreal ratio = devicePixelRatioF();
  const QPoint origin = Origin();
  return {static_cast<float>(std::floor((place.x() * ratio - origin.x()) / Scale())),
          static_cast<float>(std::floor((place.y() * ratio - origin.y()) / Scale()))};
}

void TRunWidget::Present(const TRect& changed) {
  update(FromMachine(changed).toAlignedRect());
  if (hasFocus()) TellInputMethod();
  if (QAccessible::isActive()) TellReaders();
}

void TRunWidget::TellInputMethod() {
  const QRect cell = CursorCell();
  if (std::exchange(mToldCursorCell, cell) == cell) return;
  // Its list of candidates stands beside the cursor.
  QGuiApplication::inputMethod()->update(Qt::ImCursorRectangle);
}

void TRunWidget::TellReaders() {
  TScreenReading now(mView.Rsrc().TxtSnapshot());
  const TTextChange change = text_change(mToldReading.Text(), now.Text());
  const bool hasMoved = now.Cursor() != mToldReading.Cursor();
  mToldReading = std::move(now);
  if (!change.removed.isEmpty() || !change.added.isEmpty()) {
    QAccessibleTextUpdateEvent event(this, change.start, change.removed, change.added);
    QAccessible::updateAccessibility(&event);
  }
  if (hasMoved) {
    QAccessibleTextCursorEvent event(this, mToldReading.Cursor());
    QAccessible::updateAccessibility(&event);
  }
}

void TRunWidget::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRectF picture = FromMachine({0, 0, SCREEN_WIDTH - 1, SCREEN_HEIGHT - 1});
  for (const QRect& border : event->region().subtracted(whole_units_inside(picture))) {
    painter.fillRect(border, Qt::black);
  }
  {
    const std::lock_guard lock(mView.Lock());
    const auto* pixels = reinterpret_cast<const uchar*>(mView.Frame().Row(0));
    const QImage frame(pixels, SCREEN_WIDTH, SCREEN_HEIGHT, QImage::Format_RGB32);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(picture, frame);
  }
  if (!mPreedit.isEmpty()) PaintPreedit(painter);
}

QRect TRunWidget::CursorCell() const {
  return CellRect(mView.Rsrc().TxtSnapshot().cursorPos);
}

QRect TRunWidget::CellRect(int32_t wanted, int32_t cells) const {
  const TTxtSnapshot text = mView.Rsrc().TxtSnapshot();
  const int cell = std::clamp(wanted, 0, text.cols * text.rows - 1);
  const int width = SCREEN_WIDTH / text.cols;
  const int height = SCREEN_HEIGHT / text.rows;
  const int left = cell % text.cols * width;
  const int top = cell / text.cols * height;
  return FromMachine({left, top, left + cells * width - 1, top + height - 1}).toAlignedRect();
}

std::optional<int32_t> TRunWidget::CellAt(QPointF place) const {
  const TPoint point = PointAt(place);
  const bool isInside =
      point.x >= 0 && point.x < SCREEN_WIDTH && point.y >= 0 && point.y < SCREEN_HEIGHT;
  if (!isInside) return std::nullopt;
  const TTxtSnapshot text = mView.Rsrc().TxtSnapshot();
  const int column = static_cast<int>(point.x) / (SCREEN_WIDTH / text.cols);
  const int row = static_cast<int>(point.y) / (SCREEN_HEIGHT / text.rows);
  return row * text.cols + column;
}

void TRunWidget::PaintPreedit(QPainter& painter) const {
  const QRect cell = CursorCell();
  QFont font = this->font();
  font.setPixelSize(std::max(8, cell.height() * 7 / 8));
  font.setUnderline(true);
  painter.setFont(font);
  QRect box(cell.topLeft(),
            QSize(painter.fontMetrics().horizontalAdvance(mPreedit) + 2, cell.height()));
  if (box.right() > rect().right()) box.moveRight(std::max(rect().right(), box.width() - 1));
  painter.fillRect(box, palette().base());
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(box, Qt::AlignCenter, mPreedit);
}

bool TRunWidget::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    // Keys with Ctrl go to the program and are nobody's shortcut. So are all without modifiers.
    const auto* key = static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers held = key->modifiers();
    if (held.testFlag(Qt::ControlModifier) || !held.testFlag(Qt::AltModifier)) {
      event->accept();
      return true;
    }
  }
  if (event->type() == QEvent::KeyPress) {
    // Tab is a key like any other here.
    keyPressEvent(static_cast<QKeyEvent*>(event));
    return true;
  }
  // The other screen may be finer or coarser.
  if (event->type() == QEvent::ScreenChangeInternal) UpdateSize();
  return TBasicView::event(event);
}

void TRunWidget::keyPressEvent(QKeyEvent* event) {
  const auto code = matrix_code(event->nativeScanCode());
  if (code) {
    mReleased.erase(event->nativeScanCode());
    mHost.SetKeyState(*code, true);
  }
  for (const TKeyPress& press : translate_key(event->key(), event->modifiers(), event->text())) {
    const bool isFunctionKey = press.key != 0;
    if (press.isCommand && !isFunctionKey) {
      mView.CtrlKeyDown(press.bytes[0]);
    } else {
      mView.KeyDown(press.bytes, press.key);
    }
  }
  event->accept();
}

void TRunWidget::keyReleaseEvent(QKeyEvent* event) {
  const auto code = matrix_code(event->nativeScanCode());
  if (code && !event->isAutoRepeat()) {
    mReleased[event->nativeScanCode()] = *code;
    mReleaseTimer.start();
  }
  event->accept();
}

void TRunWidget::ReleaseKeys() {
  for (const auto& [scanCode, code] : mReleased) mHost.SetKeyState(code, false);
  mReleased.clear();
}

void TRunWidget::focusOutEvent(QFocusEvent* event) {
  // Whatever is released elsewhere is not seen here.
  mReleased.clear();
  mHost.ClearKeyStates();
  TBasicView::focusOutEvent(event);
}

void TRunWidget::inputMethodEvent(QInputMethodEvent* event) {
  for (const TKeyPress& press : translate_text(event->commitString())) {
    mView.KeyDown(press.bytes, press.key);
  }
  mPreedit = event->preeditString();
  update();
  event->accept();
}

QVariant TRunWidget::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImEnabled) return true;
  if (query == Qt::ImCursorRectangle) return CursorCell();
  return TBasicView::inputMethodQuery(query);
}

namespace {

uint32_t button_bit(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return TRunView::LEFT_BUTTON;
  if (button == Qt::RightButton) return TRunView::RIGHT_BUTTON;
  return 0;
}

}  // namespace

void TRunWidget::mousePressEvent(QMouseEvent* event) {
  mView.MouseDown(PointAt(event->position()), button_bit(event->button()));
}

void TRunWidget::mouseReleaseEvent(QMouseEvent* event) {
  mView.MouseUp(PointAt(event->position()), button_bit(event->button()));
}

void TRunWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  // The machine knows presses only.
  mousePressEvent(event);
}

// With a button held down the toolkit goes on telling of moves beyond the widget.
void TRunWidget::mouseMoveEvent(QMouseEvent* event) {
  mView.MouseMoved(PointAt(event->position()));
}

}  // namespace zoka
