// Preferences between the application, its windows and the other applications.
#include "app/app_preferences.h"

#include <utility>

#include "app/theme.h"

namespace zoka {
namespace {

/// Between the main window and one that appears beside it, in pixels.
constexpr int BESIDE = 8;

std::string shared_folder(const TSettingsPlace& place) {
  std::string folder;
  return get_settings_entry(place, SHARED_FOLDER, "", true, &folder) == 0 ? folder : "";
}

}  // namespace

TAppPreferences::TAppPreferences(TAppEngine& engine, TWindowContext& context,
                                 TMidiLocalProducer& producer)
    : mEngine(engine),
      mContext(context),
      mToolkitTexts(*engine.Context().catalogue),
      mMidiOutputs(std::make_unique<TMidiOutputs>(engine.Context(), engine.Registry(), context.app,
                                                  producer, engine.IsFirstStart())),
      mCommonPrefs(std::make_unique<TCommonPrefs>(mContext, *engine.Context().interAppPrefs,
                                                  TIAPPortManager::RuntimeFolder(),
                                                  shared_folder(engine.Place()))) {
  TInterAppPrefs& shared = *engine.Context().interAppPrefs;
  shared.AddObserver(&engine.Registry(), context.app);
  std::string theme;
  if (shared.GetString(THEME_ITEM, &theme) && theme != FOLLOW_SYSTEM) apply_theme(theme);
}

void TAppPreferences::SetMainWindow(QWidget* mainWindow,
                                    std::function<void(const std::string&)> say) {
  mMainWindow = mainWindow;
  mSay = std::move(say);
  if (mEngine.Place().damaged->load() > 0) mSay(GetString("@Settings_Set_Aside@"));
}

std::string TAppPreferences::GetString(const char* key) const {
  return mEngine.Context().catalogue->GetString(key);
}

bool TAppPreferences::MessageReceived(const TMessage& message) {
  switch (message.what) {
    case message_code("_prf"):
      MItemPrefsClicked();
      return true;
    case message_code("_Ssp"):
      MItemKORUNECommonPrefsClicked();
      return true;
    case message_code("pmoc"):
      mMidiOutputs->PrefMidiOutChanged(message);
      return true;
    case message_code("rmmc"):
    case message_code("ummr"):
      if (mPrefsWindow) mPrefsWindow->PostMessage(message);
      return true;
    case message_code(IAP_CHANGED_CODE):
      IAPChanged(message);
      PostToWindows(message);
      return false;
    case message_code(LANGUAGE_CHANGED_CODE):
      PostToWindows(message);
      return false;
    default:
      return false;
  }
}

void TAppPreferences::PostToWindows(const TMessage& message) {
  if (mPrefsWindow) mPrefsWindow->PostMessage(message);
  if (mCommonPrefs->Window()) mCommonPrefs->Window()->PostMessage(message);
}

void TAppPreferences::IAPChanged(const TMessage& message) {
  const std::string item = source_item(message);
  if (item == LANGUAGE_ITEM) ApplyLanguage();
  std::string theme;
  if (item == THEME_ITEM && mEngine.Context().interAppPrefs->GetString(THEME_ITEM, &theme)) {
    apply_theme(theme);
  }
}

void TAppPreferences::ApplyLanguage() {
  const TLanguage before = mEngine.Context().catalogue->Language();
  mEngine.ApplyLanguage();
  if (mEngine.Context().catalogue->Language() == before) return;
  mToolkitTexts.LanguageChanged();
  mContext.registry.Post(mContext.app, TMessage(LANGUAGE_CHANGED_CODE));
}

void TAppPreferences::SetLanguage(TLanguage language) {
  TInterAppPrefs& shared = *mEngine.Context().interAppPrefs;
  shared.SetString(LANGUAGE_ITEM,
                   language == TLanguage::Japanese ? LANGUAGE_JAPANESE : LANGUAGE_ENGLISH);
  TMessage message(IAP_CHANGED_CODE);
  add_default_info(&message, LANGUAGE_ITEM);
  shared.NotifyToObservers(message);
}

void TAppPreferences::CloseWindows() {
  mPrefsWindow.reset();
  mCommonPrefs->CloseWindow();
}

void TAppPreferences::LocaleChanged() {
  mEngine.SetSystemLanguage(TCatalogue::FromEnvironment());
  ApplyLanguage();
}

void TAppPreferences::MoveBesideMainWindow(TBasicWindow& window) const {
  if (mMainWindow == nullptr) return;
  const QRect frame = mMainWindow->frameGeometry();
  window.adjustSize();
  window.IntelligentMoveTo(QPoint(frame.right() + BESIDE, frame.top()));
}

void TAppPreferences::MItemPrefsClicked() {
  if (!mPrefsWindow) {
    mSay(GetString("Just a moment"));
    mPrefsWindow = std::make_unique<TPrefsWindow>(mContext, mMidiOutputs->Roster());
    mSay("");
  }
  const bool appears = mPrefsWindow->isHidden();
  mPrefsWindow->Open();
  if (appears) MoveBesideMainWindow(*mPrefsWindow);
}

void TAppPreferences::MItemKORUNECommonPrefsClicked() {
  mCommonPrefs->ShowWindow();
}

}  // namespace zoka
