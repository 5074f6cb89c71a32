// Putting the window application's engine together.
#include "app/app_engine.h"

#include <utility>

namespace zoka {

TAppEngine::TAppEngine(TSettingsPlace place, TLanguage language)
    : mPlace(std::move(place)),
      mClock(make_real_clock()),
      mCatalogue(language),
      mPrefs(&mPlace),
      mExitStates(&mPlace),
      mInterAppPrefs(&mPlace) {
  mPrefs.LoadFromFile();
  mExitStates.LoadFromFile();
  mContext.clock = mClock.get();
  mContext.catalogue = &mCatalogue;
  mContext.prefs = &mPrefs;
  mContext.exitStates = &mExitStates;
  mContext.interAppPrefs = &mInterAppPrefs;
  mContext.alertHost = &mAlerts;
}

}  // namespace zoka
