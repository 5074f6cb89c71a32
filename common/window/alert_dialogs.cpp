// Dialogs of alerts, and the wait for their answers.
#include "common/window/alert_dialogs.h"

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QThread>
#include <QWindow>
#include <mutex>

#include "common/window/basic_window.h"
#include "common/window/menu_label.h"

namespace zoka {
namespace {

/// Holds the messages of a window back while it stands in an alert.
class THeldQueue {
 public:
  explicit THeldQueue(QWidget* window) : mWindow(dynamic_cast<TBasicWindow*>(window)) {
    if (mWindow != nullptr) mWindow->Queue().Hold();
  }
  ~THeldQueue() {
    if (mWindow != nullptr) mWindow->Queue().Release();
  }
  THeldQueue(const THeldQueue&) = delete;
  THeldQueue& operator=(const THeldQueue&) = delete;

 private:
  TBasicWindow* mWindow;
};

/// The window of the system's that `widget` is, or belongs to; null if there is none.
TBasicWindow* basic_window_of(QWidget* widget) {
  while (widget != nullptr && dynamic_cast<TBasicWindow*>(widget) == nullptr) {
    widget = widget->parentWidget();
  }
  return dynamic_cast<TBasicWindow*>(widget);
}

}  // namespace

/// What the machine's thread and the window thread share of one alert.
struct TAlertDialogs::TTicket {
  std::mutex mutex;
  bool answered = false;   // under mutex
  int answer = -1;         // under mutex
  bool cancelled = false;  // under mutex: nobody waits any more
  TThread* waiter = nullptr;
  QPointer<QMessageBox> box;  // window thread
};

int pressed_button(const QMessageBox& box) {
  const QAbstractButton* const pressed = box.clickedButton();
  return pressed != nullptr ? pressed->property("index").toInt() : -1;
}

TAlertDialogs::TAlertDialogs() {
  QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &mContext, [this] {
    TBasicWindow* const window = basic_window_of(QApplication::activeWindow());
    if (window != nullptr) mLastActive = window;
  });
}

QWidget* TAlertDialogs::Parent() const {
  QWidget* const active = QApplication::activeWindow();
  if (active != nullptr) return active;
  // A dialog that has just gone leaves none active for a moment.
  if (mLastActive && mLastActive->isVisible()) return mLastActive;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && dynamic_cast<TBasicWindow*>(window) != nullptr) return window;
  }
  return nullptr;
}

QMessageBox* TAlertDialogs::MakeBox(const TAlert& alert) {
  auto* box = new QMessageBox(Parent());
  box->setIcon(QMessageBox::Warning);
  box->setTextFormat(Qt::PlainText);
  box->setWindowTitle(APP_NAME);
  box->setText(QString::fromStdString(alert_bytes(alert)).trimmed());
  for (size_t i = 0; i < alert.buttons.size(); ++i) {
    QPushButton* button = box->addButton(marked_label(alert.buttons[i]), QMessageBox::ActionRole);
    button->setProperty("index", static_cast<int>(i));
    if (static_cast<int>(i) == alert.escapeIndex) box->setEscapeButton(button);
    // The last one is the default, as everywhere in the system.
    if (i + 1 == alert.buttons.size()) box->setDefaultButton(button);
  }
  box->setWindowModality(Qt::ApplicationModal);
  return box;
}

int TAlertDialogs::ShowAlert(const TAlert& alert, TThread* waiter) {
  if (QThread::currentThread() == mContext.thread()) return ShowModal(alert);
  auto ticket = std::make_shared<TTicket>();
  ticket->waiter = waiter;
  QMetaObject::invokeMethod(
      &mContext, [this, alert, ticket] { Open(alert, ticket); }, Qt::QueuedConnection);
  if (waiter == nullptr) return -1;
  for (;;) {
    {
      std::lock_guard lock(ticket->mutex);
      if (ticket->answered) return ticket->answer;
      if (waiter->IsTerminated()) {
        ticket->cancelled = true;
        break;
      }
    }
    waiter->Clock().RealWait(waiter->Wake());
  }
  QMetaObject::invokeMethod(
      &mContext,
      [ticket] {
        if (ticket->box != nullptr) ticket->box->reject();
      },
      Qt::QueuedConnection);
  return -1;
}

int TAlertDialogs::ShowModal(const TAlert& alert) {
  const std::unique_ptr<QMessageBox> box(MakeBox(alert));
  const THeldQueue held(box->parentWidget() ? box->parentWidget()->window() : nullptr);
  QMessageBox* const outer = std::exchange(mOpen, box.get());
  box->exec();
  mOpen = outer;
  return pressed_button(*box);
}

void TAlertDialogs::Open(const TAlert& alert, const std::shared_ptr<TTicket>& ticket) {
  {
    std::lock_guard lock(ticket->mutex);
    if (ticket->cancelled) return;
  }
  QMessageBox* const box = MakeBox(alert);
  ticket->box = box;
  mOpen = box;
  QObject::connect(box, &QMessageBox::finished, &mContext, [this, box, ticket] {
    ticket->box = nullptr;
    if (mOpen == box) mOpen = nullptr;
    box->deleteLater();
    TThread* waiter = nullptr;
    {
      std::lock_guard lock(ticket->mutex);
      if (ticket->cancelled) return;
      ticket->answered = true;
      ticket->answer = pressed_button(*box);
      waiter = ticket->waiter;
    }
    // Threads that wait here are deleted by the window thread only, so this one is still there.
    if (waiter != nullptr) waiter->Wake().Signal();
  });
  box->show();
}

}  // namespace zoka
