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
  mOpen.push_back(box);
  // Answered, or gone with the window that it belongs to.
  const auto forget = [this, box] { std::erase(mOpen, box); };
  QObject::connect(box, &QMessageBox::finished, &mContext, forget);
  QObject::connect(box, &QObject::destroyed, &mContext, forget);
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
  const QPointer<QMessageBox> box(MakeBox(alert));
  box->exec();
  if (box == nullptr) return -1;
  const int answer = pressed_button(*box);
  delete box;
  return answer;
}

void TAlertDialogs::Open(const TAlert& alert, const std::shared_ptr<TTicket>& ticket) {
  {
    std::lock_guard lock(ticket->mutex);
    if (ticket->cancelled) return;
  }
  QMessageBox* const box = MakeBox(alert);
  ticket->box = box;
  QObject::connect(box, &QMessageBox::finished, &mContext, [box, ticket] {
    ticket->box = nullptr;
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
  if (mShown) mShown(ticket->waiter);
}

}  // namespace zoka
