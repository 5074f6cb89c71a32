// TDebugModel: what the debug view shows and knows, without a toolkit: source with its marks, call
// stack, variables, and the commands. The debugger's reports are applied to it on the machine's
// thread; a view paints from it when it likes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/context.h"
#include "common/mutex.h"
#include "debugger/break_points.h"
#include "debugger/debug_types.h"
#include "debugger/src_code.h"
#include "debugger/var_tree.h"

namespace zoka {

class TDebugger;

/// A click on a source line up to this x (pixels) toggles its breakpoint, farther right it only
/// selects.
constexpr int32_t BREAK_POINT_CLICK_WIDTH = 25;
/// Redimensioned variables that are told one by one; of more, all count as changed.
constexpr size_t MAX_TOLD_RESETS = 64;

/// What has changed since it was last asked.
struct TDebugChanges {
  bool source = false;     // other lines
  bool marks = false;      // the stop or breakpoints
  bool callStack = false;  // entries or the current line
  bool values = false;     // values or their marks
  bool variables = false;  // other items
  bool breaked = false;    // the program has stopped: the debug window appears
  bool ended = false;
  /// The source item to be scrolled to the top.
  std::optional<size_t> scrollTo;
  /// Items that have lost their elements.
  std::vector<size_t> resetVars;
};

/// The view behind the model.
class TDebugModelHost {
 public:
  virtual ~TDebugModelHost() = default;
  /// Something has changed. Called once until TakeChanges is called. Any thread, no lock held; must
  /// not wait.
  virtual void DebugModelChanged() = 0;
};

/// Threads: reports come from the machine, everything else from the host's thread. One lock guards
/// all; nobody waits with it held.
class TDebugModel {
 public:
  /// Nothing is owned; both outlive the model.
  TDebugModel(TEngineContext& context, TDebugModelHost& host);
  TDebugModel(const TDebugModel&) = delete;
  TDebugModel& operator=(const TDebugModel&) = delete;

  // --- Before a run.
  /// The lines of the program; all marks go. With the preference BrkS the first line gets one.
  void SetSrcCode(std::string_view text);
  void ClearCallStack();
  void SetVar(TMidCode* program);
  /// Forgets the variables; to be called before the program goes.
  void ClearVar();
  /// The debugger of the run; null: none. Reports of other runs are ignored from now on.
  void SetVMachine(TDebugger* debugger);
  /// Forgets `debugger` if it is the present one; to be called before it goes.
  void ForgetVMachine(const TDebugger* debugger);
  /// With the preference BrkS the program stops at the first line.
  void SetFirstBreakPoint();

  // --- The debugger's reports. `run` is its number.
  void CurLineNumChanged(int64_t run, int32_t line);
  void AddCallStackRqtd(int64_t run, int32_t line);
  void RemoveCallStackRqtd(int64_t run);
  /// Accesses without a variable are left out.
  void UpdateVarInfoRqtd(int64_t run, const TVarAccess* accesses, int count);
  void ResetVarRqtd(int64_t run, TVarInfo* var);
  void DebuggerBreaked(int64_t run, int32_t line);
  void DebuggerDebugBasicEnded(int64_t run, bool killed);
  void ScrollToSpecifyLineNumRqtd(int64_t run, int32_t line);

  // --- Commands. Those that let the program go on do nothing unless it stands, and return false.
  bool Unbreak(TDebugRunMode mode);
  bool Run() { return Unbreak(TDebugRunMode::Run); }
  bool StepOver() { return Unbreak(TDebugRunMode::StepOver); }
  bool StepIn() { return Unbreak(TDebugRunMode::StepIn); }
  bool StepOut() { return Unbreak(TDebugRunMode::StepOut); }
  /// Stops once at the line, unless there is a stop before; goes on if the program stands. False
  /// without a debugger.
  bool RunToCursor(int32_t line);
  /// The pause button: stops before the next instruction. False without a debugger.
  bool Stop();
  bool HasDebugger() const;
  /// Breaked while the program stands, else the mode that was last set.
  TDebugRunMode RunMode() const;

  // --- Source.
  size_t SrcLineCount() const;
  /// An item without text for an index that does not exist.
  TSrcCodeItem SrcLine(size_t index) const;
  std::optional<size_t> FindSrcLine(int32_t line) const;
  /// Toggles the mark of an item if `x` lies within its margin, and tells the debugger; without a
  /// debugger the mark is for display only. True if it did.
  bool ClickSrcLine(size_t index, int32_t x);
  void ToggleBreakPoint(size_t index) { ClickSrcLine(index, 0); }
  /// Sets the mark of an item and its rule.
  void SetBreakRule(size_t index, const TBreakRule& rule);
  /// Indices of the items with a mark.
  std::vector<size_t> BreakPointItems() const;

  // --- Call stack: the calling lines, and as the last one the current line.
  size_t CallStackCount() const;
  std::string CallStackText(size_t index) const;
  /// The line of an entry; -1 for the last one of a program that has ended.
  int32_t CallStackLine(size_t index) const;
  /// A click on an entry: the source scrolls to its line. False if there is none.
  bool ClickCallStack(size_t index);
  int32_t CurLine() const;

  // --- Variables; see TVarTree. Indices that don't exist yield nothing.
  size_t VarCount() const;
  int32_t VarChildCount(size_t item) const;
  bool IsVarExpanded(size_t item) const;
  void ExpandOrCollapseVar(size_t item, bool expand);
  TVarRow VarRow(size_t item);
  TVarRow VarChildRow(size_t item, int32_t child);
  /// Gives a slot a new value while the program stands: 0 is the plain one, elements count from 1.
  /// It is stored by the machine, a moment later. False if it does not stand, there is no such
  /// slot, or the text is no number for a variable that needs one.
  bool EditVar(size_t item, int32_t slot, std::string_view text);
  /// The value of an expression, for the pointer that hovers over it; see evaluate_expression.
  std::optional<std::string> ValueOf(std::string_view expression);

  /// What has changed; the next change is told to the host again.
  TDebugChanges TakeChanges();

  /// Notes the reports that are applied from now on, in their order: "clnc 10", "acsr 10", "rcsr",
  /// "uvir A! 0", "rsvr A!", "dbbr 10", "dbed", "dbed Killed", "sslr 10".
  void KeepLog(bool keep);
  std::vector<std::string> Log() const;
  /// Held by whoever reads several things that must belong together; for tests too.
  TMutex& Lock() { return mLock; }

 private:
  /// The current line is none, since the program has ended.
  static constexpr int32_t NO_LINE = -1;
  enum class TEnd : uint8_t { Clear, Running, Done, Killed };

  template <typename TApply>
  bool Change(TApply apply);
  template <typename TApply>
  void Report(int64_t run, bigtime_t limit, TApply apply);
  template <typename TText>
  void Note(TText text) {
    if (mKeepLog) mLog.push_back(text());
  }
  bool ScrollTo(int32_t line);
  bool Stands() const { return fDebugger != nullptr && fRunMode == TDebugRunMode::Breaked; }
  bool Resume(TDebugRunMode mode);
  std::string CurLineText() const;

  TEngineContext& mContext;
  TDebugModelHost& mHost;
  mutable TMutex mLock{TLockRank::DebugModel};
  // All that follows is under mLock.
  TDebugger* fDebugger = nullptr;
  int64_t mRunNumber = 0;
  TDebugRunMode fRunMode = TDebugRunMode::Run;
  TSrcCode mSrcCode;
  std::vector<int32_t> mCalls;
  int32_t mCurLine = 0;
  TEnd mEnd = TEnd::Clear;
  TMidCode* mProgram = nullptr;
  TVarTree mVars;
  TDebugChanges mChanges;
  bool mTold = false;
  bool mKeepLog = false;
  std::vector<std::string> mLog;
};

}  // namespace zoka
