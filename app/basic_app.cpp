// The application's windows, messages and end.
#include "app/basic_app.h"

#include <QApplication>
#include <QEvent>

namespace zoka {

TBasicApp::TBasicApp(TAppEngine& engine)
    : mEngine(engine),
      mQueue([this](const TMessage& message) { MessageReceived(message); }),
      mWindowContext{engine.Context(), engine.Registry(), engine.Registry().Register(this)},
      mRunWindow(std::make_unique<TRunWindow>(mWindowContext, &engine.Place())),
      mSound(std::make_unique<TPlayOutputs>(
          *engine.Context().clock, mRunWindow->RunView()->Producer(), TPlayOutputOptions{})),
      mMainWindow(std::make_unique<TPlainWindow>(mWindowContext, *mRunWindow)) {
  QApplication::setQuitOnLastWindowClosed(false);
  qApp->installEventFilter(this);
}

TBasicApp::~TBasicApp() {
  Quit();
  mEngine.Registry().Unregister(mWindowContext.app);
}

void TBasicApp::ReadyToRun(const std::string& path) {
  mMainWindow->Appear();
  if (!path.empty() && mMainWindow->OpenFile(path)) mMainWindow->Run();
}

void TBasicApp::MessageReceived(const TMessage& message) {
  switch (message.what) {
    case message_code("smwn"):
      return mMainWindow->Appear();
    case message_code("srwn"):
      return mRunWindow->Appear();
    case message_code("_QRQ"):
      QuitRequested();
      return;
    case message_code("sdfr"):
    case message_code("prfc"):
    case message_code("pusc"):
      return mRunWindow->PostMessage(message);
    case message_code(LANGUAGE_CHANGED_CODE):
    case message_code(IAP_CHANGED_CODE):
      return Broadcast(message);
    default:
      return;
  }
}

void TBasicApp::Broadcast(const TMessage& message) {
  mMainWindow->PostMessage(message);
  mRunWindow->PostMessage(message);
}

void TBasicApp::SetLanguage(TLanguage language) {
  mEngine.Context().catalogue->SetLanguage(language);
  PostMessage(TMessage(LANGUAGE_CHANGED_CODE));
}

bool TBasicApp::eventFilter(QObject* object, QEvent* event) {
  if (object == qApp && event->type() == QEvent::LocaleChange) {
    SetLanguage(TCatalogue::FromEnvironment());
  }
  return QObject::eventFilter(object, event);
}

bool TBasicApp::QuitRequested() {
  Quit();
  QApplication::quit();
  return true;
}

void TBasicApp::Quit() {
  if (!mMainWindow) return;
  mEngine.Context().privacy.quitting.store(true);
  mRunWindow->RunView()->CancelCompile();
  mRunWindow->RunView()->QuitBasic();
  mRunWindow->hide();
  mMainWindow->hide();
  mRunWindow->Quit();
  mMainWindow->Quit();
  // The main window's document uses the run window's view.
  mMainWindow.reset();
  mSound.reset();
  mRunWindow.reset();
  mEngine.Context().exitStates->SaveToFile();
}

}  // namespace zoka
