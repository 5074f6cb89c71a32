// The whole application with a typist inside: it types at random into the editor until its keys
// are used up or it is killed, and logs each text with its time. For the tests of abnormal ends; no
// part of the product.
//
// ZOKA_FEED_LOG   file of the log, records of "<milliseconds> <kind> <bytes>\n<text>\n". Kinds:
//                 "up" when the editor is on the screen, "key" behind each key, "rest" behind the
//                 last one
// ZOKA_FEED_SEED  of the random keys; without it nothing is typed
// ZOKA_FEED_KEYS  keys until the rest; none for no rest
#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <chrono>
#include <random>
#include <string>

#include "app/start_up.h"

namespace {

constexpr int KEY_INTERVAL_MS = 4;

int64_t now_ms() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

/// Types, and tells what the editor then holds.
class TTypist : public QObject {
 public:
  explicit TTypist(zoka::TEditTxtView& edit)
      : mEdit(edit),
        mLog(open(qgetenv("ZOKA_FEED_LOG").constData(), O_WRONLY | O_CREAT | O_APPEND, 0600)),
        mLeft(qEnvironmentVariableIntValue("ZOKA_FEED_KEYS")),
        mRandom(static_cast<uint32_t>(qEnvironmentVariableIntValue("ZOKA_FEED_SEED"))) {
    mEdit.viewport()->installEventFilter(this);
    mTimer.setInterval(KEY_INTERVAL_MS);
    connect(&mTimer, &QTimer::timeout, this, [this] { TypeKey(); });
  }
  ~TTypist() override { close(mLog); }

 private:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint && !mIsUp) {
      mIsUp = true;
      QTimer::singleShot(0, this, [this] {
        Log("up");
        if (qEnvironmentVariableIsSet("ZOKA_FEED_SEED")) mTimer.start();
      });
    }
    return QObject::eventFilter(object, event);
  }

  void Log(const char* kind) {
    const std::string text = mEdit.Get();
    const std::string record = std::to_string(now_ms()) + " " + kind + " " +
                               std::to_string(text.size()) + "\n" + text + "\n";
    if (write(mLog, record.data(), record.size()) < 0) QApplication::exit(1);
  }

  void Send(int key, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&mEdit, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&mEdit, &release);
  }

  void TypeKey() {
    const uint32_t dice = mRandom() % 100;
    if (dice < 70) {
      const char c = static_cast<char>(' ' + mRandom() % 95);
      Send(Qt::Key_A, QString(QChar(c)));
    } else if (dice < 80) {
      Send(Qt::Key_Return, "\r");
    } else if (dice < 90) {
      Send(Qt::Key_Backspace, "\b");
    } else if (dice < 95) {
      Send(Qt::Key_Left, "");
    } else {
      Send(Qt::Key_Down, "");
    }
    Log("key");
    if (mLeft > 0 && --mLeft == 0) {
      mTimer.stop();
      Log("rest");
    }
  }

  zoka::TEditTxtView& mEdit;
  int mLog;
  int mLeft;
  std::mt19937 mRandom;
  QTimer mTimer;
  bool mIsUp = false;
};

}  // namespace

int main(int argc, char** argv) {
  std::unique_ptr<TTypist> typist;
  return zoka::run_application(argc, argv, [&](zoka::TBasicApp& app) {
    app.MainWindow().UncoverEditor();
    typist = std::make_unique<TTypist>(app.MainWindow().View().Edit());
    app.MainWindow().View().Edit().viewport()->update();
  });
}
