// What the window tests share: the whole application with settings of its own, and waits for what
// is to become true.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QProcess>
#include <functional>

#include "app/basic_app.h"
#include "tests/support/temp_folder.h"
#include "tests/window/waiting.h"

namespace zoka {

/// The application, its windows shown, in English, with settings in a folder that goes with it.
class TWindowRig : public testing::Test {
 protected:
  TWindowRig() {
    mPlace.root = mFolder.Path("settings");
    mEngine = std::make_unique<TAppEngine>(mPlace, TLanguage::English);
    mApp = std::make_unique<TBasicApp>(*mEngine);
    mApp->ReadyToRun("");
    mApp->RunWindow().Appear();
    Widget().setFocus();
  }

  TRunView& View() { return *mApp->RunWindow().RunView(); }
  TRunWidget& Widget() { return *mApp->RunWindow().Widget(); }
  TListDocument& Document() { return mApp->MainWindow().Document(); }
  std::string Screen() { return View().Rsrc().ScreenText(); }

  /// Waits on the event loop; a failed wait fails the test.
  static testing::AssertionResult Until(const std::function<bool()>& condition) {
    return testing::AssertionResult(until(condition));
  }
  bool IsIdle() { return Document().State() == TDocumentState::Idle; }
  bool Shows(const std::string& text) { return Screen().find(text) != std::string::npos; }

  std::string WriteProgram(const std::string& text) {
    mFolder.Write("test.bas", text);
    return mFolder.Path("test.bas");
  }
  /// Starts a program and returns at once.
  void Start(const std::string& text) {
    ASSERT_TRUE(mApp->MainWindow().OpenFile(WriteProgram(text)));
    mApp->MainWindow().Run();
  }
  /// Starts a program and waits until it shows `text`.
  void StartUntil(const std::string& text, const std::string& shown) {
    Start(text);
    ASSERT_TRUE(Until([&] { return Shows(shown); })) << Screen();
  }
  void RunToEnd(const std::string& text) {
    Start(text);
    ASSERT_TRUE(Until([&] { return IsIdle(); })) << Screen();
  }

  /// A key event as the host sends it, with the number of the key.
  void SendKey(QEvent::Type type, int key, uint32_t nativeScanCode, bool repeat = false) {
    QKeyEvent event(type, key, Qt::NoModifier, nativeScanCode, 0, 0, QString(), repeat);
    QApplication::sendEvent(&Widget(), &event);
  }

  TTempFolder mFolder;
  TSettingsPlace mPlace;
  std::unique_ptr<TAppEngine> mEngine;
  std::unique_ptr<TBasicApp> mApp;
};

}  // namespace zoka
