// Breakpoints, stops and values between the editor and a debugged run.
#include "editor/window/debug_link.h"

#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>
#include <utility>

#include "app/settings/exit_states.h"
#include "debugger/window/debug_commands.h"
#include "editor/window/list_watch.h"

namespace zoka {

TDebugLink::TDebugLink(QWidget* window, TEngineContext& context, TListDocument& document,
                       TEditTxtView& edit, TDebugView& view, TDebugLinkCalls calls)
    : QObject(window),
      mWindow(window),
      mContext(context),
      mDocument(document),
      mEdit(edit),
      mMarks(edit.BreakMarks()),
      mView(view),
      mModel(view.Model()),
      mCalls(std::move(calls)),
      mDialog(new TBreakRuleDialog(window, context)) {
  mMarks.SetCalls(
      {[this](int line) { Toggle(line); }, [this](int line, QPoint place) { Menu(line, place); }});
  mEdit.viewport()->installEventFilter(this);
}

int TDebugLink::CursorLine() const {
  int line = 0;
  int column = 0;
  mEdit.getCursorPosition(&line, &column);
  return line;
}

std::optional<size_t> TDebugLink::ItemOf(int line) const {
  if (line < 0) return std::nullopt;
  const int32_t then = mMarks.Drift().Then(line);
  if (then < 0) return std::nullopt;
  const int32_t formatted = mDocument.FormattedSource().FormattedLine(then);
  if (formatted < 0 || static_cast<size_t>(formatted) >= mModel.SrcLineCount()) return std::nullopt;
  return static_cast<size_t>(formatted);
}

int TDebugLink::LineOf(size_t item) const {
  const int32_t then = mDocument.FormattedSource().EditorLine(static_cast<int32_t>(item));
  return mMarks.Drift().Now(then);
}

void TDebugLink::SourceTaken() {
  mMarks.Drift().Reset();
  // A run that was not started by the command, or never got so far, is not to be stopped by it.
  mRunTo = std::exchange(mAskedRunTo, -1);
}

void TDebugLink::DebuggerReady() {
  const std::optional<size_t> runTo = ItemOf(std::exchange(mRunTo, -1));
  if (runTo) mModel.RunToCursor(mModel.SrcLine(*runTo).line);
  // By the preference the first line has its mark already. Programs stop there at the start
  // whatever the rule of the margin's mark says, which counts from then on.
  const bool stopsAtStart = mModel.SrcLine(0).breakPoint;
  for (const TBreakMarks::TMark& mark : mMarks.All()) {
    const std::optional<size_t> item = ItemOf(mark.line);
    if (item) mModel.SetBreakRule(*item, mark.rule);
  }
  if (stopsAtStart) mModel.RunToCursor(mModel.SrcLine(0).line);
}

void TDebugLink::BreakPointChanged(size_t item) {
  const int line = LineOf(item);
  if (line < 0) return;
  const TSrcCodeItem source = mModel.SrcLine(item);
  if (source.breakPoint) {
    mMarks.Set(line, source.rule);
  } else {
    mMarks.Remove(line);
  }
}

void TDebugLink::ViewChanged() {
  const bool stands = mModel.RunMode() == TDebugRunMode::Breaked;
  const std::optional<size_t> item = stands ? mModel.FindSrcLine(mModel.CurLine()) : std::nullopt;
  const int line = item ? LineOf(*item) : -1;
  if (line != mMarks.StopLine()) mMarks.ShowStop(line);
  const bool stood = std::exchange(mStands, stands);
  if (stands == stood || !mModel.HasDebugger()) return;
  mCalls.say(mContext.catalogue->GetString(stands ? "Stopped by the debugger" : "Running"));
}

void TDebugLink::Toggle(int line) {
  const bool on = !mMarks.Has(line);
  if (on) {
    mMarks.Set(line, {});
    HintOption();
  } else {
    mMarks.Remove(line);
  }
  const std::optional<size_t> item = ItemOf(line);
  if (!item || !mModel.HasDebugger()) return;
  if (mModel.SrcLine(*item).breakPoint != on) mModel.ToggleBreakPoint(*item);
}

void TDebugLink::AskRule(int line) {
  const QString text = mEdit.text(line).trimmed();
  mDialog->Ask(text, mMarks.RuleOf(line), [this, line, text](const TBreakRule& rule) {
    // The text may have been edited meanwhile.
    if (mEdit.text(line).trimmed() != text) return;
    mMarks.Set(line, rule);
    const std::optional<size_t> item = ItemOf(line);
    if (item && mModel.HasDebugger()) mModel.SetBreakRule(*item, rule);
  });
}

/// Who sets a breakpoint in vain is told why.
void TDebugLink::HintOption() {
  if (mContext.exitStates->UDbg.load()) return;
  mCalls.say(mContext.catalogue->GetString("@Hint_Use_Debugger@"));
}

void TDebugLink::RunToCursor() {
  if (!mModel.HasDebugger()) {
    HintOption();
    if (!mContext.exitStates->UDbg.load()) return;
    mAskedRunTo = CursorLine();
    mCalls.run();
    mAskedRunTo = -1;
    return;
  }
  const std::optional<size_t> item = ItemOf(CursorLine());
  if (item) mModel.RunToCursor(mModel.SrcLine(*item).line);
}

bool TDebugLink::MessageReceived(const TMessage& message) {
  switch (message.what) {
    case message_code(DEBUG_TOGGLE_BREAK_POINT):
      Toggle(CursorLine());
      return true;
    case message_code(DEBUG_BREAK_RULE):
      AskRule(CursorLine());
      return true;
    case message_code(DEBUG_RUN_TO_CURSOR):
      RunToCursor();
      return true;
    case message_code(DEBUG_RUN_OR_GO_ON):
      if (mModel.RunMode() != TDebugRunMode::Breaked) return false;
      return mView.MessageReceived(message);
    case message_code(DEBUG_PAUSE):
    case message_code(DEBUG_STEP_OVER):
    case message_code(DEBUG_STEP_IN):
    case message_code(DEBUG_STEP_OUT):
      return mView.MessageReceived(message);
    default:
      return false;
  }
}

void TDebugLink::Menu(int line, QPoint place) {
  auto* menu = new QMenu(mWindow);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  add_debug_command(menu, mContext, debug_break_commands()[0],
                    [this, line](const char*) { Toggle(line); });
  add_debug_command(menu, mContext, debug_break_commands()[1],
                    [this, line](const char*) { AskRule(line); });
  menu->popup(place);
}

bool TDebugLink::ShowValue(QPoint place, QPoint global) {
  TListPlace below;
  if (!place_below(mEdit, place, &below)) return false;
  std::string text(static_cast<size_t>(edit_call(mEdit, QsciScintilla::SCI_LINELENGTH, below.line)),
                   '\0');
  mEdit.SendScintilla(QsciScintilla::SCI_GETLINE, static_cast<unsigned long>(below.line),
                      text.data());
  const QString value = hover_value(mModel, text, static_cast<size_t>(below.column));
  if (value.isEmpty()) return false;
  QToolTip::showText(global, value, &mEdit);
  return true;
}

bool TDebugLink::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    if (ShowValue(help->pos(), help->globalPos())) return true;
  }
  return QObject::eventFilter(object, event);
}

}  // namespace zoka
