// The application's windows, messages and end.
#include "app/basic_app.h"

#include <QApplication>
#include <QEvent>
#include <QUrl>
#include <cstdlib>

#include "app/data_folder.h"
#include "app/list_mime.h"
#include "app/settings/show_alert.h"
#include "common/window/menu_label.h"
#include "sound/alsa_client.h"

namespace zoka {
namespace {

constexpr int32_t OK_BUTTON = 1;

}  // namespace

TBasicApp::TBasicApp(TAppEngine& engine, TSplashWindow* splash)
    : mEngine(engine),
      mQueue([this](const TMessage& message) { MessageReceived(message); }),
      mWindowContext{engine.Context(), engine.Registry(), engine.Registry().Register(this)},
      mSplash(splash) {
  QApplication::setQuitOnLastWindowClosed(false);
  qApp->installEventFilter(this);
  SetSplashStr("Creating windows");
  TBasicListMime(engine.Desktop()).InstallBasicListMime();
  CreateWindows();
  ConnectDebugger();
  mEngine.Alerts().SetShown(
      [this](const TThread* waiter) { mMainWindow->View().AlertShown(waiter); });
  SetSplashStr("Adjusting sub windows");
  CreateDialogs();
}

void TBasicApp::CreateWindows() {
  mDebugWindow = std::make_unique<TDebugWindow>(mWindowContext);
  mRunWindow = std::make_unique<TRunWindow>(mWindowContext, &mEngine.Place());
  mPreferences =
      std::make_unique<TAppPreferences>(mEngine, mWindowContext, mRunWindow->RunView()->Producer());
  mMainWindow = std::make_unique<TZokaBasicWindow>(mWindowContext, *mRunWindow, mEngine.Place());
  mMainWindow->SetHasAuthorPage(!mEngine.Desktop().authorPage.isEmpty());
}

TBasicApp::~TBasicApp() {
  Quit();
  mEngine.Registry().Unregister(mWindowContext.app);
}

void TBasicApp::SetSplashStr(const char* key) {
  if (mSplash) mSplash->SetSplashStr(mEngine.Context().catalogue->GetString(key));
}

void TBasicApp::CloseSplash() {
  if (!mSplash) return;
  mSplash->hide();
  // Its own timer may have called us.
  mSplash->deleteLater();
  mSplash.clear();
}

void TBasicApp::ReadyToRun(const std::string& path) {
  // The question comes up over the splash.
  mMainWindow->View().CheckAndLoadAutoSave();
  if (!path.empty()) {
    SetSplashStr("Opening");
    mMainWindow->OpenFile(path);
  }
  CloseSplash();
  mMainWindow->Appear();
  mPreferences->SetMainWindow(mMainWindow.get(), [this](const std::string& text) {
    mMainWindow->View().SetStatBarStr(text);
  });
}

void TBasicApp::ShowFirstStartPage() {
  if (mMainWindow->Document().IsModified()) return;
  const auto send = [this](const TMessage& message) { mMainWindow->PostMessage(message); };
  mFirstStart = new TFirstStartPage(&mMainWindow->View().Edit(), mEngine.Context(),
                                    {[this](TLanguage language) { SetLanguage(language); },
                                     [send](const std::string& path) {
                                       TMessage message("_smp");
                                       message.AddRef("refs", TPathRef{path});
                                       send(message);
                                     },
                                     [this] { mMainWindow->UncoverEditor(); }});
  mMainWindow->CoverEditor(mFirstStart);
  mFirstStart->Appear();
}

void TBasicApp::ConnectDebugger() {
  TDebugView& view = mDebugWindow->DebugView();
  mRunWindow->RunView()->SetDebugModel(&view.Model());
  mMainWindow->View().SetDebugView(view);
  TDebugLink& link = *mMainWindow->View().DebugLink();
  view.SetCalls({[this] { mRunWindow->Appear(); }, [this] { mMainWindow->Run(); },
                 [this] { mMainWindow->Kill(); },
                 [&link](size_t item) { link.BreakPointChanged(item); },
                 [&link] { link.ViewChanged(); }});
}

void TBasicApp::CreateDialogs() {
  constexpr TSimpleInputTexts GO_TO_LINE{"Go to Line", "Go to Line: ", "L", "Go", "G"};
  constexpr TSimpleInputTexts RUN_LINE{"Run with Line Number", "Line Number or Label: ", "L", "Run",
                                       "R"};
  TZokaBasicWindow* const window = mMainWindow.get();
  THandlerRegistry& registry = mEngine.Registry();
  mGoToLine = new TSimpleInputWindow(window, mEngine.Context(), registry, GO_TO_LINE, "gtlr");
  mRunLine = new TSimpleInputWindow(window, mEngine.Context(), registry, RUN_LINE, "rnlr");
  mRenumber = new TRenumWindow(window, mEngine.Context(), registry);
  for (TDialogWindow* dialog :
       {static_cast<TDialogWindow*>(mGoToLine), static_cast<TDialogWindow*>(mRunLine),
        static_cast<TDialogWindow*>(mRenumber)}) {
    dialog->SetTarget(window->HandlerId());
  }
}

void TBasicApp::SetLabels() {
  mGoToLine->SetLabels();
  mRunLine->SetLabels();
  mRenumber->SetLabels();
  if (mAbout) mAbout->SetLabels();
  if (mFirstStart) mFirstStart->SetLabels();
}

void TBasicApp::MItemRegisterMimeClicked() {
  const TCatalogue& texts = *mEngine.Context().catalogue;
  const std::string question =
      replace_placeholder(texts.GetString("@Ask_Register_Mime %AppName%@"), "%AppName%", APP_NAME);
  if (show_alert(mEngine.Context(), question, {{"Cancel", ""}, {"OK", ""}}, 0, nullptr) !=
      OK_BUTTON) {
    return;
  }
  const bool done = TBasicListMime(mEngine.Desktop()).RegistBasicListMime();
  mMainWindow->View().SetStatBarStr(
      texts.GetString(done ? "@Mime_Registered@" : "@Mime_Not_Registered@"));
}

void TBasicApp::MItemHelpClicked() {
  const TEngineContext& context = mEngine.Context();
  const QString path = find_data_entry("docs/help/" + localized(context, "ReadMe_Eng.txt"));
  if (!path.isEmpty() && mEngine.Desktop().openUrl(QUrl::fromLocalFile(path))) return;
  show_fault_alert(context, context.catalogue->GetString("@Err_Cannot_Show_Help@"), nullptr);
}

void TBasicApp::MItemAuthorWebClicked() {
  const QString& page = mEngine.Desktop().authorPage;
  if (!page.isEmpty()) mEngine.Desktop().openUrl(QUrl(page));
}

void TBasicApp::MItemAboutClicked() {
  if (!mAbout) mAbout = new TAboutWindow(mMainWindow.get(), mEngine.Context());
  mAbout->Appear();
}

void TBasicApp::MessageReceived(const TMessage& message) {
  // What still comes while the windows go concerns nobody.
  if (!mMainWindow || mPreferences->MessageReceived(message)) return;
  switch (message.what) {
    case message_code("smwn"):
      return mMainWindow->Appear();
    case message_code("srwn"):
      return mRunWindow->Appear();
    case message_code("sdwn"):
      return mDebugWindow->Appear();
    case message_code("_QRQ"):
      QuitRequested();
      return;
    case message_code("gtln"):
      return mGoToLine->Appear();
    case message_code("runl"):
      return mRunLine->Appear();
    case message_code("rnmb"):
      return mRenumber->Appear();
    case message_code("rmim"):
      return MItemRegisterMimeClicked();
    case message_code("_hlp"):
      return MItemHelpClicked();
    case message_code("_jaw"):
      return MItemAuthorWebClicked();
    case message_code("_ABR"):
      return MItemAboutClicked();
    case message_code("prcd"):
      return mMainWindow->View().SetStatBarStr(
          mEngine.Context().catalogue->GetString("Preferences changed."));
    case message_code("pmfc"):
    case message_code("pwwc"):
    case message_code("parc"):
    case message_code("pdec"):
      return mMainWindow->PostMessage(message);
    case message_code("pdfc"):
      return mDebugWindow->PostMessage(message);
    case message_code("sdfr"):
    case message_code("prfc"):
    case message_code("pusc"):
      return mRunWindow->PostMessage(message);
    case message_code(LANGUAGE_CHANGED_CODE):
    case message_code(IAP_CHANGED_CODE):
      SetLabels();
      return Broadcast(message);
    default:
      return;
  }
}

void TBasicApp::Broadcast(const TMessage& message) {
  mMainWindow->PostMessage(message);
  mRunWindow->PostMessage(message);
  mDebugWindow->PostMessage(message);
}

void TBasicApp::SetLanguage(TLanguage language) {
  mPreferences->SetLanguage(language);
}

bool TBasicApp::eventFilter(QObject* object, QEvent* event) {
  if (object == qApp && event->type() == QEvent::LocaleChange && mPreferences) {
    mPreferences->LocaleChanged();
  }
  return QObject::eventFilter(object, event);
}

bool TBasicApp::QuitRequested() {
  if (mMainWindow->Queue().IsStanding()) {
    // It stands in an alert, and cannot be asked before that has been answered.
    mMainWindow->PostMessage(TMessage("_QRQ"));
    return false;
  }
  if (!mMainWindow->AskQuit()) return false;
  Quit();
  QApplication::quit();
  return true;
}

// The windows go when the event loops have come to their ends, and not inside one of a dialog.
void TBasicApp::EndWithoutAsking() {
  if (mMainWindow) mMainWindow->View().KeepUnsaved();
  QApplication::exit(0);
}

void TBasicApp::EndAtExit() {
  if (mMainWindow) mMainWindow->View().KeepUnsaved();
  silence_alsa_in_crash();
  std::_Exit(EXIT_FAILURE);
}

void TBasicApp::Quit() {
  if (!mMainWindow) return;
  mEngine.Context().privacy.quitting.store(true);
  mEngine.Alerts().SetShown({});
  mPreferences->CloseWindows();
  mRunWindow->RunView()->CancelCompile();
  mRunWindow->RunView()->QuitBasic();
  mDebugWindow->DebugView().SetCalls({});
  mDebugWindow->hide();
  mRunWindow->hide();
  mMainWindow->hide();
  mDebugWindow->Quit();
  mRunWindow->Quit();
  mMainWindow->Quit();
  // The main window's document uses the run window's view.
  mMainWindow.reset();
  mPreferences.reset();
  mRunWindow.reset();
  mDebugWindow.reset();
  mEngine.Context().exitStates->SaveToFile();
}

}  // namespace zoka
