// TBasicApp: the process: it creates the windows, routes the messages that concern more than one of
// them, and ends them in order.
#pragma once

#include <QObject>
#include <QPointer>
#include <string>

#include "app/about_window.h"
#include "app/app_engine.h"
#include "app/app_preferences.h"
#include "app/first_start_page.h"
#include "app/splash_window.h"
#include "app/zoka_basic_window.h"
#include "common/window/dialog_window.h"
#include "common/window/message_queue.h"
#include "debugger/window/debug_window.h"
#include "editor/window/renum_window.h"
#include "run/window/run_window.h"

namespace zoka {

/// Window thread, but for PostMessage.
class TBasicApp final : public THandler, private QObject {
 public:
  /// `splash` may be null; it is taken over, and goes when the main window appears.
  explicit TBasicApp(TAppEngine& engine, TSplashWindow* splash = nullptr);
  ~TBasicApp() override;

  void PostMessage(const TMessage& message) override { mQueue.PostMessage(message); }
  /// The application is up: asks about what an abnormal end left behind, opens `path` if there is
  /// one, and then shows the main window.
  void ReadyToRun(const std::string& path);
  /// Welcomes a user who is here for the first time, unless there is a text to work on already.
  void ShowFirstStartPage();
  /// Asks the main window; ends the application unless the user wants to stay.
  bool QuitRequested();
  /// The host wants the application to end: it asks nothing and ends as soon as the event loop can;
  /// unsaved text is kept for the next start.
  void EndWithoutAsking();
  /// For an exit() that nobody here has asked for, as when the display goes away: keeps unsaved
  /// text, silences instruments and ends the process at once, since threads of the engine may not
  /// outlive what exit() takes down. Window thread.
  [[noreturn]] void EndAtExit();
  /// The user's choice from now on; all texts follow at once.
  void SetLanguage(TLanguage language);

  TAppPreferences& Preferences() { return *mPreferences; }
  TRunWindow& RunWindow() { return *mRunWindow; }
  TDebugWindow& DebugWindow() { return *mDebugWindow; }
  TZokaBasicWindow& MainWindow() { return *mMainWindow; }
  TSimpleInputWindow& GoToLineWindow() { return *mGoToLine; }
  TSimpleInputWindow& RunLineWindow() { return *mRunLine; }
  TRenumWindow& RenumWindow() { return *mRenumber; }
  /// Null where there is none, or none any more.
  TSplashWindow* SplashWindow() { return mSplash; }
  TFirstStartPage* FirstStartPage() { return mFirstStart; }
  TAboutWindow* AboutWindow() { return mAbout; }

 private:
  void MessageReceived(const TMessage& message);
  void Broadcast(const TMessage& message);
  void ConnectDebugger();
  void CreateDialogs();
  void SetLabels();
  void CreateWindows();
  void SetSplashStr(const char* key);
  void CloseSplash();
  void MItemRegisterMimeClicked();
  void MItemHelpClicked();
  void MItemAuthorWebClicked();
  void MItemAboutClicked();
  bool eventFilter(QObject* object, QEvent* event) override;
  void Quit();

  TAppEngine& mEngine;
  TMessageQueue mQueue;
  TWindowContext mWindowContext;
  QPointer<TSplashWindow> mSplash;
  // Runs report to the debug window's model, which must outlive them.
  std::unique_ptr<TDebugWindow> mDebugWindow;
  std::unique_ptr<TRunWindow> mRunWindow;
  std::unique_ptr<TAppPreferences> mPreferences;
  std::unique_ptr<TZokaBasicWindow> mMainWindow;
  // Of the main window, which deletes them.
  TSimpleInputWindow* mGoToLine = nullptr;
  TSimpleInputWindow* mRunLine = nullptr;
  TRenumWindow* mRenumber = nullptr;
  QPointer<TAboutWindow> mAbout;
  QPointer<TFirstStartPage> mFirstStart;
};

}  // namespace zoka
