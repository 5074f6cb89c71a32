// Putting the window application's engine together.
#include "app/app_engine.h"

#include <utility>

namespace zoka {

TAppEngine::TAppEngine(TSettingsPlace place, TLanguage language)
    : mPlace(std::move(place)),
      mSystemLanguage(language),
      mClock(make_real_clock()),
      mCatalogue(language),
      mPrefs(&mPlace),
      mExitStates(&mPlace),
      mInterAppPrefs(&mPlace) {
  mPrefs.LoadFromFile();
  mFirstStart = !mPrefs.HasFile();
  mNewUser = mFirstStart && !mExitStates.HasFile();
  mExitStates.LoadFromFile();
  mContext.clock = mClock.get();
  mContext.catalogue = &mCatalogue;
  mContext.prefs = &mPrefs;
  mContext.exitStates = &mExitStates;
  mContext.interAppPrefs = &mInterAppPrefs;
  mContext.alertHost = &mAlerts;
  ApplyLanguage();
}

void TAppEngine::ApplyLanguage() {
  std::string chosen;
  mInterAppPrefs.GetString(LANGUAGE_ITEM, &chosen);
  TLanguage language = mSystemLanguage;
  if (chosen == LANGUAGE_ENGLISH) language = TLanguage::English;
  if (chosen == LANGUAGE_JAPANESE) language = TLanguage::Japanese;
  mCatalogue.SetLanguage(language);
}

}  // namespace zoka
