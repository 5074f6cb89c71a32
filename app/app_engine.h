// TAppEngine: the engine's context as the window application has it: the host's clock, the user's
// settings, the language of the environment, alerts as dialogs.
#pragma once

#include "app/desktop.h"
#include "app/settings/exit_states.h"
#include "app/settings/inter_app_prefs.h"
#include "app/settings/prefs.h"
#include "app/settings/settings_place.h"
#include "common/context.h"
#include "common/handler.h"
#include "common/window/alert_dialogs.h"

namespace zoka {

/// Made after the QApplication, before all windows; gone after them. Loads the settings.
class TAppEngine {
 public:
  /// `language` is the system's.
  explicit TAppEngine(TSettingsPlace place, TLanguage language);
  TAppEngine(const TAppEngine&) = delete;
  TAppEngine& operator=(const TAppEngine&) = delete;

  TEngineContext& Context() { return mContext; }
  THandlerRegistry& Registry() { return mRegistry; }
  const TSettingsPlace& Place() const { return mPlace; }
  TAlertDialogs& Alerts() { return mAlerts; }
  /// True if the user had no preferences when the application started.
  bool IsFirstStart() const { return mFirstStart; }
  /// True if neither preferences nor an earlier session of the user had left anything behind.
  bool IsNewUser() const { return mNewUser; }
  /// The user's desktop: nothing of it until it is set.
  TDesktop& Desktop() { return mDesktop; }

  /// What the texts follow as long as the user has not chosen a language.
  void SetSystemLanguage(TLanguage language) { mSystemLanguage = language; }
  /// The language of the common preferences becomes that of the texts yet to come.
  void ApplyLanguage();

 private:
  TSettingsPlace mPlace;
  TLanguage mSystemLanguage;
  bool mFirstStart = false;
  bool mNewUser = false;
  TDesktop mDesktop;
  std::unique_ptr<TClock> mClock;
  TCatalogue mCatalogue;
  TPrefs mPrefs;
  TExitStates mExitStates;
  TInterAppPrefs mInterAppPrefs;
  TAlertDialogs mAlerts;
  THandlerRegistry mRegistry;
  TEngineContext mContext;
};

}  // namespace zoka
