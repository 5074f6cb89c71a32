// TPrefsWindow: the frame around the preferences dialog. Its tabs and buttons are TPrefsView.
#pragma once

#include "app/preferences_view.h"
#include "common/window/basic_window.h"

namespace zoka {

/// Made on demand and kept. Window thread, but for PostMessage. It tells the application what has
/// changed: pmfc, prfc, pdfc (fonts), pdec, pwwc, parc, pmoc, pusc, and prcd when all is confirmed.
class TPrefsWindow final : public TBasicWindow {
 public:
  /// `roster` (of the MIDI outputs) outlives it.
  TPrefsWindow(TWindowContext& context, TMidiRoster& roster);

  TPrefsView& View() { return *mView; }
  /// Shows it; what holds at that moment is what Cancel goes back to.
  void Open();

  /// rmmc: there are other MIDI outputs; ummr: one is connected or cut off.
  void MessageReceived(const TMessage& message) override;
  void LanguageChanged() override;
  void IAPChanged(const TMessage& message) override;
  /// Closing is cancelling.
  bool QuitRequested() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void FitTexts();
  void SetWinTitle();

  TPrefsView* mView;
};

}  // namespace zoka
