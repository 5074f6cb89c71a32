// TAlertDialogs: shows the engine's alerts as dialogs, modal to the whole application.
#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "common/alert.h"
#include "common/thread.h"

namespace zoka {

/// Alerts of a machine are shown on the window thread while the machine waits; the wait ends with
/// the answer or when the machine is told to end, which takes the dialog down. An alert of the
/// window thread itself re-enters the event loop; the queue whose message has raised it waits with
/// it, other queues go on (see TMessageQueue). One of any other thread is shown and answered by
/// nobody.
class TAlertDialogs final : public TAlertHost {
 public:
  /// The application object is there already.
  TAlertDialogs();

  /// Any thread.
  int ShowAlert(const TAlert& alert, TThread* waiter) override;

  /// The dialog that is open, the last one of several, or null. Window thread.
  QMessageBox* OpenDialog() const { return mOpen.empty() ? nullptr : mOpen.back(); }
  /// `shown` hears of each dialog that has come up for another thread, with the machine that waits
  /// for its answer, or null if none does. Window thread; empty for nobody.
  void SetShown(std::function<void(const TThread* waiter)> shown) { mShown = std::move(shown); }

 private:
  struct TTicket;

  int ShowModal(const TAlert& alert);
  void Open(const TAlert& alert, const std::shared_ptr<TTicket>& ticket);
  QMessageBox* MakeBox(const TAlert& alert);
  /// The window that an alert belongs to: the one that the user is in, or was in last.
  QWidget* Parent() const;

  std::vector<QMessageBox*> mOpen;  // in the order of their coming; window thread
  std::function<void(const TThread*)> mShown;
  QPointer<QWidget> mLastActive;
  QObject mContext;  // calls posted to the window thread end with it
};

/// The button of `box` that was pressed: its place from the left, or -1.
int pressed_button(const QMessageBox& box);

}  // namespace zoka
