// TDebugView: the debug window's content: tool bar, source, call stack and variables, painted from
// the model that it owns, and the commands. Menus and the window's place are the window's.
#pragma once

#include <QAction>
#include <QLabel>
#include <QTimer>
#include <QToolBar>
#include <array>
#include <functional>

#include "common/message.h"
#include "common/window/basic_view.h"
#include "common/window/basic_window.h"
#include "debugger/debug_model.h"
#include "debugger/window/break_rule_dialog.h"
#include "debugger/window/call_stack_view.h"
#include "debugger/window/src_code_view.h"
#include "debugger/window/var_view.h"

namespace zoka {

/// What the view asks and tells. Those that are not set do nothing.
struct TDebugCalls {
  /// The run window comes to the front.
  std::function<void()> showRunWindow;
  /// The list is run from its start.
  std::function<void()> run;
  std::function<void()> kill;
  /// A breakpoint was set, changed or taken away during a run.
  std::function<void(size_t item)> breakPointChanged;
  /// The view shows what has changed.
  std::function<void()> changed;
};

/// Window thread, but for DebugModelChanged.
class TDebugView final : public TBasicView, private TDebugModelHost {
 public:
  /// `window` holds the view and hands it its messages.
  TDebugView(TBasicWindow& window, TEngineContext& context);

  void SetCalls(TDebugCalls calls) { mCalls = std::move(calls); }
  /// Handles a message; false if it is none of the view's.
  bool MessageReceived(const TMessage& message);
  /// What debugged runs report to.
  TDebugModel& Model() { return mModel; }

  void SetViewLabel();
  /// Flat or raised buttons, as the shared preferences say.
  void SetToolBarStyle();
  void SetFontFamilyAndSize();
  /// Shows the window, or brings it to the front.
  void Appear() { mWindow.Appear(); }
  /// Shows at once what else the next frame would show.
  void Refresh();

  TSrcCodeView& SrcCode() { return *mSrcCode; }
  TCallStackView& CallStack() { return *mCallStack; }
  TVarView& Vars() { return *mVars; }
  TBreakRuleDialog& RuleDialog() { return *mRuleDialog; }
  /// The tool bar's button of that name ("TBRun"), or null.
  QWidget* Button(const char* name) const;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  static constexpr size_t BUTTON_COUNT = 6;

  void DebugModelChanged() override;
  void RefreshSoon();
  void LayoutCompos();
  void CreateToolBar();
  void SetImages();
  void UpdateButtons();

  void MItemRunClicked();
  void MItemRunOrGoOnClicked();
  void MItemStepOverClicked() { mModel.StepOver(); }
  void MItemStepInClicked() { mModel.StepIn(); }
  void MItemStepOutClicked() { mModel.StepOut(); }
  void MItemStopClicked() { mModel.Stop(); }
  void MItemKillClicked();
  void RunToCursor();
  void ClickSrcLine(size_t item, int x);
  void ToggleBreakPoint();
  void AskBreakRule();
  void SrcCodeMenu(QPoint place);
  void VarMenu(QPoint place);
  void TellBreakPoint(size_t item);

  TBasicWindow& mWindow;
  TEngineContext& mContext;
  TDebugModel mModel;
  TDebugCalls mCalls;
  QToolBar* mToolBar;
  std::array<QAction*, BUTTON_COUNT> mButtons{};
  TSrcCodeView* mSrcCode;
  QLabel* mCallStackLabel;
  TCallStackView* mCallStack;
  QLabel* mVarsLabel;
  TVarView* mVars;
  TBreakRuleDialog* mRuleDialog;
  QTimer mFrame;  // runs from one painting to the earliest time of the next
  bool mRefreshWanted = false;
};

}  // namespace zoka
