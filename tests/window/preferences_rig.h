// The preferences dialog of a running application, open, with its controls at hand.
#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QtTest/QTest>
#include <stdexcept>

#include "tests/window/window_rig.h"

namespace zoka {

/// Controls are named as in the dialog; an unknown name throws.
class TPreferencesRig : public TWindowRig {
 protected:
  TPreferencesRig() {
    mApp->PostMessage(TMessage("_prf"));
    EXPECT_TRUE(Until([this] {
      return mApp->Preferences().PrefsWindow() && mApp->Preferences().PrefsWindow()->isVisible();
    }));
  }
  TPrefsWindow& Dialog() { return *mApp->Preferences().PrefsWindow(); }
  TPrefs& Prefs() { return *mEngine->Context().prefs; }
  template <typename T>
  T& Find(const char* name) {
    T* found = Dialog().findChild<T*>(name);
    if (found == nullptr) throw std::runtime_error(name);
    return *found;
  }
  void Type(const char* name, const char* text) {
    Find<QLineEdit>(name).clear();
    QTest::keyClicks(&Find<QLineEdit>(name), text);
  }
  void Press(const char* name) { Find<QPushButton>(name).click(); }
};

}  // namespace zoka
