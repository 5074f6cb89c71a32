// TAppPreferences: all that the application does about preferences: both windows of them, the MIDI
// outputs, the language and the colours. What a changed preference means to a window is the
// window's.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "app/app_engine.h"
#include "app/common_prefs.h"
#include "app/midi_outputs.h"
#include "app/preferences_window.h"
#include "app/toolkit_texts.h"

namespace zoka {

/// Window thread. Made after the run view, whose music it connects, and gone before it.
class TAppPreferences {
 public:
  TAppPreferences(TAppEngine& engine, TWindowContext& context, TMidiLocalProducer& producer);

  /// The windows appear beside this one, and `say` shows a text in its status bar. To be called
  /// once it is shown.
  void SetMainWindow(QWidget* mainWindow, std::function<void(const std::string&)> say);
  /// Handles a message of the application; false if others may want it, too.
  bool MessageReceived(const TMessage& message);
  /// The user chooses English or Japanese.
  void SetLanguage(TLanguage language);
  /// The application goes away.
  void CloseWindows();
  /// The system's language has changed.
  void LocaleChanged();

  /// Null as long as it was not asked for.
  TPrefsWindow* PrefsWindow() { return mPrefsWindow.get(); }
  TCommonPrefs& CommonPrefs() { return *mCommonPrefs; }
  TMidiOutputs& MidiOutputs() { return *mMidiOutputs; }

 private:
  void MItemPrefsClicked();
  void MItemKORUNECommonPrefsClicked();
  void IAPChanged(const TMessage& message);
  void ApplyLanguage();
  std::string GetString(const char* key) const;
  void MoveBesideMainWindow(TBasicWindow& window) const;
  void PostToWindows(const TMessage& message);

  TAppEngine& mEngine;
  TWindowContext mContext;
  TToolkitTexts mToolkitTexts;
  QWidget* mMainWindow = nullptr;
  std::function<void(const std::string&)> mSay = [](const std::string&) {};
  std::unique_ptr<TMidiOutputs> mMidiOutputs;
  std::unique_ptr<TPrefsWindow> mPrefsWindow;
  std::unique_ptr<TCommonPrefs> mCommonPrefs;
};

}  // namespace zoka
