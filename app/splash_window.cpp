// What the splash window draws, and when the start goes on.
#include "app/splash_window.h"

#include <QEvent>
#include <QPainter>
#include <QTimer>
#include <utility>

#include "app/logo.h"

namespace zoka {
namespace {

constexpr int WIDTH = 460;
constexpr int HEIGHT = 250;
constexpr int MARGIN = 24;
constexpr int PICTURE = 150;
constexpr int NAME_PIXELS = 32;
constexpr int TEXT_PIXELS = 14;
/// A screen that shows nothing within this many milliseconds is not waited for.
constexpr int LONGEST_WAIT_MS = 150;

constexpr QRgb BACK_TOP = 0xFF23415C;
constexpr QRgb BACK_BOTTOM = 0xFF12202E;
constexpr QRgb NAME = 0xFFFFFFFF;
constexpr QRgb TEXT = 0xFFD5E2EE;

}  // namespace

/// The picture, the name and the line of text.
class TSplashView final : public QWidget {
 public:
  explicit TSplashView(QWidget* parent) : QWidget(parent) {
    setObjectName("SplashView");
    setAttribute(Qt::WA_OpaquePaintEvent);
  }

  void SetText(const QString& text) {
    mText = text;
    setAccessibleName(QString(APP_NAME) + " " + APP_VERSION + " " + text);
    repaint();
  }
  const QString& Text() const { return mText; }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    QLinearGradient back(0, 0, 0, height());
    back.setColorAt(0, QColor(BACK_TOP));
    back.setColorAt(1, QColor(BACK_BOTTOM));
    painter.fillRect(rect(), back);
    draw_logo(painter, QRectF(MARGIN, MARGIN, PICTURE, PICTURE));
    const QRect texts = rect().adjusted(MARGIN * 2 + PICTURE, MARGIN, -MARGIN, -MARGIN);
    DrawText(painter, texts.adjusted(0, PICTURE / 4, 0, 0), NAME_PIXELS, true, NAME, APP_NAME);
    DrawText(painter, texts.adjusted(0, PICTURE / 4 + NAME_PIXELS + MARGIN / 2, 0, 0), TEXT_PIXELS,
             false, TEXT, APP_VERSION);
    DrawText(painter, rect().adjusted(MARGIN, HEIGHT - MARGIN * 2, -MARGIN, 0), TEXT_PIXELS, false,
             TEXT, mText);
  }

 private:
  void DrawText(QPainter& painter, const QRect& place, int pixels, bool bold, QRgb colour,
                const QString& text) const {
    QFont letters = font();
    letters.setPixelSize(pixels);
    letters.setBold(bold);
    painter.setFont(letters);
    painter.setPen(QColor(colour));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignTop, text);
  }

  QString mText;
};

TSplashWindow::TSplashWindow(TWindowContext& context)
    : TBasicWindow(context), mView(new TSplashView(this)) {
  setObjectName("SplashWindow");
  setWindowTitle(APP_NAME);
  setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
  setCentralWidget(mView);
  setFixedSize(WIDTH, HEIGHT);
}

void TSplashWindow::ShowThen(std::function<void()> start) {
  mStart = std::move(start);
  mView->installEventFilter(this);
  IntelligentCentering();
  show();
  QTimer::singleShot(LONGEST_WAIT_MS, this, [this] { Start(); });
}

bool TSplashWindow::eventFilter(QObject* object, QEvent* event) {
  if (object == mView && event->type() == QEvent::Paint) {
    // Behind this event the picture is on the screen.
    QTimer::singleShot(0, this, [this] { Start(); });
  }
  return TBasicWindow::eventFilter(object, event);
}

void TSplashWindow::Start() {
  if (const auto start = std::exchange(mStart, {})) start();
}

void TSplashWindow::SetSplashStr(const std::string& text) {
  mView->SetText(QString::fromStdString(text));
}

QString TSplashWindow::SplashStr() const {
  return mView->Text();
}

}  // namespace zoka
