// What the tests of the start share: the whole application whose surroundings a test prepares
// before it starts, questions answered by real keys, and a desktop that only takes notes.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <filesystem>

#include "app/basic_app.h"
#include "tests/support/temp_folder.h"
#include "tests/window/waiting.h"

namespace zoka {

/// Nothing is started until Start is called.
class TStartRig : public testing::Test {
 protected:
  TStartRig() {
    mPlace.root = mFolder.Path("settings");
    mDesktop.start = [this](const QString& program, const QStringList& arguments) {
      mStarted.append(program + " " + arguments.join(' '));
      return true;
    };
    mDesktop.openUrl = [this](const QUrl& url) {
      mOpened.append(url);
      return mOpens;
    };
  }

  ~TStartRig() override { End(); }

  void WriteSettings(const std::string& name, const std::string& bytes) {
    std::filesystem::create_directories(mFolder.Path("settings/ZokaBASIC"));
    mFolder.Write("settings/ZokaBASIC/" + name, bytes);
  }
  std::string ReadSettings(const std::string& name) {
    return mFolder.Read("settings/ZokaBASIC/" + name);
  }
  bool HasSettings(const std::string& name) {
    return std::filesystem::exists(mFolder.Path("settings/ZokaBASIC/" + name));
  }

  void MakeEngine(TLanguage language = TLanguage::English) {
    // As in a process of its own.
    mPlace.damaged->store(0);
    mEngine = std::make_unique<TAppEngine>(mPlace, language);
    mEngine->Desktop() = mDesktop;
  }
  /// Starts without a splash window.
  void Start(const std::string& path = "") {
    if (!mEngine) MakeEngine();
    mApp = std::make_unique<TBasicApp>(*mEngine);
    mApp->ReadyToRun(path);
    Window().activateWindow();
  }
  /// The regular end.
  void End() {
    mApp.reset();
    // A splash window that has closed goes with the event loop, and still needs the engine.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    mEngine.reset();
  }

  TZokaBasicWindow& Window() { return mApp->MainWindow(); }
  TListDocument& Document() { return Window().Document(); }
  TEditTxtView& Edit() { return Window().View().Edit(); }
  QMessageBox* Alert() { return mEngine->Alerts().OpenDialog(); }
  std::string Status() { return Window().StatusText().toStdString(); }
  std::string Title() { return Window().windowTitle().toStdString(); }

  static testing::AssertionResult Until(const std::function<bool()>& condition) {
    return testing::AssertionResult(until(condition));
  }
  void Post(const TMessage& message) {
    Window().PostMessage(message);
    QApplication::processEvents();
  }
  void Post(const char* code) { Post(TMessage(code)); }
  void PostRefs(const std::string& path) {
    TMessage message("_RRC");
    message.AddRef("refs", TPathRef{path});
    Post(message);
  }
  void Choose(const char* code) {
    QAction* const item = Window().FindItem(code);
    ASSERT_NE(item, nullptr) << code;
    ASSERT_TRUE(item->isEnabled()) << code;
    item->trigger();
    QApplication::processEvents();
  }
  /// Answers the next question that has no answer yet with a key, and notes what it says.
  /// `asked`, if there is one, is called before that.
  void AnswerNext(Qt::Key key, const std::function<void()>& asked = {}) {
    QTimer::singleShot(0, &mAnswers, [this, key, asked] {
      if (!mEngine || Alert() == nullptr || Alert() == mAnswered) return AnswerNext(key, asked);
      mAnswered = Alert();
      NoteAlert();
      if (asked) asked();
      QTest::keyClick(mAnswered, key);
    });
  }
  void NoteAlert() {
    mAsked = Alert()->text().toStdString();
    mButtons.clear();
    for (const QAbstractButton* button : Alert()->findChildren<QAbstractButton*>()) {
      const QVariant place = button->property("index");
      if (place.isValid()) mButtons[place.toInt()] = button->text().toStdString();
    }
  }
  /// The labels of the alert's buttons, from the left, with a blank between them.
  std::string Buttons() const {
    std::string all;
    for (const auto& [place, text] : mButtons) all += (all.empty() ? "" : " ") + text;
    return all;
  }

  TTempFolder mFolder;
  TSettingsPlace mPlace;
  TDesktop mDesktop;
  QStringList mStarted;
  QList<QUrl> mOpened;
  bool mOpens = true;
  QPointer<QMessageBox> mAnswered;
  QObject mAnswers;  // answers still to be given end with it
  std::string mAsked;
  std::map<int, std::string> mButtons;
  std::unique_ptr<TAppEngine> mEngine;
  std::unique_ptr<TBasicApp> mApp;
};

}  // namespace zoka
