// What the walks over all windows share: an application with a list in its editor, whose windows
// open one after the other in both languages.
#pragma once

#include "tests/window/waiting.h"
#include "tests/window/walked_windows.h"
#include "tests/window/window_rig.h"

namespace zoka {

/// A base that goes before the application: no port of the common preferences, which other tests
/// that run at the same time might own.
struct TWithoutPort {
  TWithoutPort() { qputenv("XDG_RUNTIME_DIR", ""); }
};

class TWalkRig : private TWithoutPort, public TWindowRig {
 protected:
  using TLook = std::function<void(const TWalkedWindow& walked, QWidget& window)>;

  TWalkRig() : mWalked{*mApp, *mEngine, WriteProgram("10 PRINT \"HELLO\"\n20 GOTO 10\n")} {}

  void Speak(TLanguage language) {
    mApp->SetLanguage(language);
    // The message of the change goes through the application to each window.
    run_event_rounds();
    ASSERT_EQ(mEngine->Context().catalogue->Language(), language);
  }
  /// Opens each window in the language of now and looks at it.
  void ForEachWindow(const TLook& look) {
    for (const TWalkedWindow& walked : walked_windows()) {
      SCOPED_TRACE(walked.name);
      QWidget* const window = open_walked_window(walked, mWalked);
      ASSERT_NE(window, nullptr);
      look(walked, *window);
      close_walked_window(*window, mWalked);
    }
  }
  void ForEachWindowInBothLanguages(const TLook& look) {
    for (const TLanguage language : {TLanguage::English, TLanguage::Japanese}) {
      SCOPED_TRACE(language == TLanguage::English ? "English" : "Japanese");
      Speak(language);
      ForEachWindow(look);
    }
  }

  TWalkedApp mWalked;
};

/// What the user sees of the window at this moment, children of children too; inner parts that a
/// control of the toolkit is made of are left out.
QList<QWidget*> visible_controls(QWidget& window);

/// Something to tell a control by in a message.
std::string name_of(const QWidget& widget);

}  // namespace zoka
