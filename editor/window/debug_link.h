// TDebugLink: what the editor and the debug window have in common: breakpoints of the margin that
// go into a run, those of a run that come back, the line at which a program stands, and values for
// the pointer. It knows where the lines of a running program have gone in the editor.
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <string>

#include "debugger/window/break_rule_dialog.h"
#include "debugger/window/debug_view.h"
#include "editor/list_document.h"
#include "editor/window/break_marks.h"
#include "editor/window/edit_txt_view.h"

namespace zoka {

/// What the link asks for; all are set.
struct TDebugLinkCalls {
  /// A text for the status bar.
  std::function<void(const std::string&)> say;
  /// The list is run from its start.
  std::function<void()> run;
};

/// Window thread.
class TDebugLink final : public QObject {
 public:
  /// Nothing is owned but the dialog; all outlives it. `window` holds the editor.
  TDebugLink(QWidget* window, TEngineContext& context, TListDocument& document, TEditTxtView& edit,
             TDebugView& view, TDebugLinkCalls calls);

  /// The text to be compiled was taken from the editor just now.
  void SourceTaken();
  /// The debug window is to be seen.
  void ShowDebug() { mView.Appear(); }
  /// A debugged run is about to start; its model and machine are there.
  void DebuggerReady();
  /// The debug window has changed a breakpoint of the run.
  void BreakPointChanged(size_t item);
  /// The debug view has been painted anew.
  void ViewChanged();
  void SetLabels() { mDialog->SetLabels(); }

  /// Handles a command for the line of the cursor; false if it is none of these.
  bool MessageReceived(const TMessage& message);
  TBreakRuleDialog& Dialog() { return *mDialog; }

 private:
  int CursorLine() const;
  /// The source item of an editor's line in the present run; nothing if it has none.
  std::optional<size_t> ItemOf(int line) const;
  /// The editor's line of a source item, or -1.
  int LineOf(size_t item) const;
  void Toggle(int line);
  void AskRule(int line);
  void HintOption();
  void RunToCursor();
  void Menu(int line, QPoint place);
  bool ShowValue(QPoint place, QPoint global);
  bool eventFilter(QObject* object, QEvent* event) override;

  QWidget* mWindow;
  TEngineContext& mContext;
  TListDocument& mDocument;
  TEditTxtView& mEdit;
  TBreakMarks& mMarks;
  TDebugView& mView;
  TDebugModel& mModel;
  TDebugLinkCalls mCalls;
  bool mStands = false;  // as it was shown last
  // The editor's line to which a run is to go: one that is asked for just now, and the one whose
  // list is being compiled.
  int mAskedRunTo = -1;
  int mRunTo = -1;
  TBreakRuleDialog* mDialog;
};

}  // namespace zoka
