// TBreakMarks: the breakpoints of the editor's margin, which stay with their lines while the text
// is edited, and the mark of the line at which a program stands. What they do to a program is
// TDebugLink's.
#pragma once

#include <Qsci/qsciscintilla.h>

#include <QObject>
#include <QPoint>
#include <functional>
#include <map>
#include <vector>

#include "debugger/break_points.h"
#include "editor/line_drift.h"

namespace zoka {

/// What the marks tell; those that are not set do nothing. Lines are the editor's, from 0.
struct TBreakMarkCalls {
  /// The mark of a line was clicked: toggle it.
  std::function<void(int line)> clicked;
  /// The menu of a line's mark is wanted, at a place of the screen.
  std::function<void(int line, QPoint place)> menu;
};

/// Window thread.
class TBreakMarks final : public QObject {
 public:
  struct TMark {
    int line;
    TBreakRule rule;
  };

  /// `margin` is one of symbols.
  TBreakMarks(QsciScintilla& edit, int margin);

  void SetCalls(TBreakMarkCalls calls) { mCalls = std::move(calls); }
  bool Has(int line) const;
  /// The rule of a line's mark; none if it has no mark.
  TBreakRule RuleOf(int line) const;
  void Set(int line, const TBreakRule& rule);
  void Remove(int line);
  /// All go, and lines of before are no longer known: there is another text.
  void Clear();
  /// In ascending order.
  std::vector<TMark> All() const;

  /// Marks the line at which the program stands, and scrolls it into sight; -1 for none.
  void ShowStop(int line);
  /// The marked line, or -1.
  int StopLine() const;

  /// Where lines have gone since its last reset.
  TLineDrift& Drift() { return mDrift; }

 private:
  void SetColours();
  void Modified(int position, int type, const char* text, int length, int linesAdded);
  void LinesDeleted(int position, int length);
  bool eventFilter(QObject* object, QEvent* event) override;

  QsciScintilla& mEdit;
  TBreakMarkCalls mCalls;
  std::map<int, TBreakRule> mRules;  // by the marker's handle
  TLineDrift mDrift;
};

}  // namespace zoka
