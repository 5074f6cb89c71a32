// TDebugWindow: the window of the debug view, with its menus and its place on the screen.
#pragma once

#include <functional>

#include "common/window/basic_window.h"
#include "debugger/window/debug_view.h"

namespace zoka {

/// Window thread, but for PostMessage. Made hidden; it lives as long as the application, and longer
/// than the run view that reports to its model.
class TDebugWindow final : public TBasicWindow {
 public:
  explicit TDebugWindow(TWindowContext& context);

  TDebugView& DebugView() { return *mView; }
  /// The item whose message has that code, or null.
  QAction* FindItem(const char* code) const;

  void MessageReceived(const TMessage& message) override;
  void LanguageChanged() override;
  void IAPChanged(const TMessage& message) override;
  void Quit() override;

 private:
  void SetWinTitle();
  void CreateMenu();
  QMenu* AddMenu(const char* label, const char* key);

  TDebugView* mView;
};

}  // namespace zoka
