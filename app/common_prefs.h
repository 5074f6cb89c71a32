// TCommonPrefs: the common preferences of the family in the window application: who owns their
// window, and how a change reaches this application and all others.
#pragma once

#include <QFileSystemWatcher>
#include <QTimer>
#include <map>
#include <memory>
#include <string>

#include "app/iap_port.h"
#include "app/iap_window.h"
#include "app/settings/iap_board.h"
#include "app/settings/inter_app_prefs.h"
#include "common/window/basic_window.h"

namespace zoka {

/// A client's wish that the window appear, and the owner's answer.
constexpr const char IAP_ACTIVATE_CODE[] = "IAac";
constexpr const char IAP_ACTIVATED_CODE[] = "IAok";

/// Window thread. The application observes the items itself (_ipc).
class TCommonPrefs final : private QObject {
 public:
  /// `prefs` outlives it. `runtimeFolder` is where the port is; `sharedFolder` where the items'
  /// files are, to be watched, or empty.
  TCommonPrefs(TWindowContext& context, TInterAppPrefs& prefs, const std::string& runtimeFolder,
               const std::string& sharedFolder);

  /// The window appears: the own one, or that of the application which has it already.
  void ShowWindow();
  /// Null while this application has never had the window.
  TIAPWindow* Window() { return mWindow.get(); }
  TIAPRole Role() const { return mPort.Role(); }
  /// True from a wish for the window until its owner has answered or counts as silent.
  bool IsAwaitingAnswer() const { return mAnswer.isActive(); }
  /// The application goes away, and with it the port.
  void CloseWindow() { mWindow.reset(); }

 private:
  void Found(TIAPRole role);
  void CreateAndShowWindow();
  void AskOwner();
  void Received(TIAPPeer peer, const TMessage& message);
  void HandleWaiting();
  /// An application has told the owner of an item that it has.
  void AddComponent(TIAPPeer peer, const TIAPComponent& component);
  void ReloadFiles();
  /// The board follows what this application's items hold.
  void SyncBoard();
  TMessage ValueOf(const std::string& item) const;
  /// The item has a new value here; everybody else gets it, too.
  void IAPControlChanged(const TMessage& value, TIAPPeer source);
  void TakeValue(const TMessage& value);

  TWindowContext mContext;
  TInterAppPrefs& mPrefs;
  TIAPBoard mBoard;
  TIAPPortManager mPort;
  std::unique_ptr<TIAPWindow> mWindow;
  QTimer mAnswer;  // runs while an owner's answer is awaited
  // However many messages come, each item is changed once a tick.
  QTimer mTick;
  std::map<std::string, std::pair<TIAPPeer, TMessage>> mWaiting;
  bool mAppearWaiting = false;
  QFileSystemWatcher mWatcher;
  QTimer mReload;
};

}  // namespace zoka
