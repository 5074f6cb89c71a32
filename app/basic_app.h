// TBasicApp: the process: it creates the windows, routes the messages that concern more than one of
// them, and ends them in order.
#pragma once

#include <QObject>
#include <string>

#include "app/app_engine.h"
#include "app/app_preferences.h"
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
  explicit TBasicApp(TAppEngine& engine);
  ~TBasicApp() override;

  void PostMessage(const TMessage& message) override { mQueue.PostMessage(message); }
  /// The application is up: shows the main window, asks about what an abnormal end left behind, and
  /// opens `path` if there is one.
  void ReadyToRun(const std::string& path);
  /// Asks the main window; ends the application unless the user wants to stay.
  bool QuitRequested();
  /// The host wants the application to end: it asks nothing and ends as soon as the event loop can;
  /// unsaved text is kept for the next start.
  void EndWithoutAsking();
  /// The user's choice from now on; all texts follow at once.
  void SetLanguage(TLanguage language);

  TAppPreferences& Preferences() { return *mPreferences; }
  TRunWindow& RunWindow() { return *mRunWindow; }
  TDebugWindow& DebugWindow() { return *mDebugWindow; }
  TZokaBasicWindow& MainWindow() { return *mMainWindow; }
  TSimpleInputWindow& GoToLineWindow() { return *mGoToLine; }
  TSimpleInputWindow& RunLineWindow() { return *mRunLine; }
  TRenumWindow& RenumWindow() { return *mRenumber; }

 private:
  void MessageReceived(const TMessage& message);
  void Broadcast(const TMessage& message);
  void ConnectDebugger();
  void CreateDialogs();
  void SetLabels();
  void MItemHelpClicked();
  void MItemAboutClicked();
  bool eventFilter(QObject* object, QEvent* event) override;
  void Quit();

  TAppEngine& mEngine;
  TMessageQueue mQueue;
  TWindowContext mWindowContext;
  // Runs report to the debug window's model, which must outlive them.
  std::unique_ptr<TDebugWindow> mDebugWindow;
  std::unique_ptr<TRunWindow> mRunWindow;
  std::unique_ptr<TAppPreferences> mPreferences;
  std::unique_ptr<TZokaBasicWindow> mMainWindow;
  // Of the main window, which deletes them.
  TSimpleInputWindow* mGoToLine = nullptr;
  TSimpleInputWindow* mRunLine = nullptr;
  TRenumWindow* mRenumber = nullptr;
};

}  // namespace zoka
