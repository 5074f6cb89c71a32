// Marks in the margin of the editor component. A mark is a marker of its own, known by its handle,
// which the component keeps with the line.
#include "editor/window/break_marks.h"

#include <QCursor>
#include <QEvent>
#include <algorithm>
#include <string_view>

#include "debugger/window/row_view.h"

namespace zoka {
namespace {

constexpr int BREAK_MARK = 8;
constexpr int RULE_MARK = 9;  // a breakpoint with a condition or a count
constexpr int STOP_LINE_MARK = 10;
constexpr int STOP_MARK = 11;
constexpr int MARGIN_MASK = 1 << BREAK_MARK | 1 << RULE_MARK | 1 << STOP_MARK;

}  // namespace

TBreakMarks::TBreakMarks(QsciScintilla& edit, int margin) : QObject(&edit), mEdit(edit) {
  edit.setMarginMarkerMask(margin, edit.marginMarkerMask(margin) | MARGIN_MASK);
  edit.setMarginSensitivity(margin, true);
  edit.markerDefine(QsciScintilla::Circle, BREAK_MARK);
  edit.markerDefine(QsciScintilla::Circle, RULE_MARK);
  edit.markerDefine(QsciScintilla::Background, STOP_LINE_MARK);
  edit.markerDefine(QsciScintilla::RightTriangle, STOP_MARK);
  SetColours();
  edit.installEventFilter(this);
  connect(&edit, &QsciScintilla::marginClicked, this, [this, margin](int clicked, int line) {
    if (clicked == margin && mCalls.clicked) mCalls.clicked(line);
  });
  connect(&edit, &QsciScintilla::marginRightClicked, this, [this, margin](int clicked, int line) {
    if (clicked == margin && mCalls.menu) mCalls.menu(line, QCursor::pos());
  });
  connect(&edit, &QsciScintilla::SCN_MODIFIED, this,
          [this](int position, int type, const char* text, int length, int linesAdded) {
            Modified(position, type, text, length, linesAdded);
          });
}

void TBreakMarks::SetColours() {
  const TRowColours colours = row_colours(mEdit.palette());
  mEdit.setMarkerForegroundColor(colours.breakPoint, BREAK_MARK);
  mEdit.setMarkerBackgroundColor(colours.breakPoint, BREAK_MARK);
  mEdit.setMarkerForegroundColor(colours.breakPoint, RULE_MARK);
  mEdit.setMarkerBackgroundColor(colours.paper, RULE_MARK);
  mEdit.setMarkerBackgroundColor(colours.breaking, STOP_LINE_MARK);
  mEdit.setMarkerForegroundColor(colours.changed, STOP_MARK);
  mEdit.setMarkerBackgroundColor(colours.changed, STOP_MARK);
}

bool TBreakMarks::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::PaletteChange) SetColours();
  return QObject::eventFilter(object, event);
}

bool TBreakMarks::Has(int line) const {
  return (mEdit.markersAtLine(line) & (1U << BREAK_MARK | 1U << RULE_MARK)) != 0;
}

TBreakRule TBreakMarks::RuleOf(int line) const {
  for (const auto& [handle, rule] : mRules) {
    if (mEdit.markerLine(handle) == line) return rule;
  }
  return {};
}

void TBreakMarks::Set(int line, const TBreakRule& rule) {
  Remove(line);
  const int handle = mEdit.markerAdd(line, rule == TBreakRule() ? BREAK_MARK : RULE_MARK);
  if (handle >= 0) mRules[handle] = rule;
}

void TBreakMarks::Remove(int line) {
  // Lines that were joined have brought their marks together.
  std::erase_if(mRules, [&](const auto& mark) {
    if (mEdit.markerLine(mark.first) != line) return false;
    mEdit.markerDeleteHandle(mark.first);
    return true;
  });
}

void TBreakMarks::Clear() {
  mEdit.markerDeleteAll(BREAK_MARK);
  mEdit.markerDeleteAll(RULE_MARK);
  mRules.clear();
  mDrift.LoseAll();
  ShowStop(-1);
}

std::vector<TBreakMarks::TMark> TBreakMarks::All() const {
  std::vector<TMark> marks;
  for (const auto& [handle, rule] : mRules) {
    const int line = mEdit.markerLine(handle);
    if (line >= 0) marks.push_back({line, rule});
  }
  std::stable_sort(marks.begin(), marks.end(),
                   [](const TMark& a, const TMark& b) { return a.line < b.line; });
  const auto same = [](const TMark& a, const TMark& b) { return a.line == b.line; };
  marks.erase(std::unique(marks.begin(), marks.end(), same), marks.end());
  return marks;
}

void TBreakMarks::ShowStop(int line) {
  mEdit.markerDeleteAll(STOP_MARK);
  mEdit.markerDeleteAll(STOP_LINE_MARK);
  // The cursor's line would hide the mark.
  mEdit.setCaretLineVisible(line < 0);
  if (line < 0) return;
  mEdit.markerAdd(line, STOP_MARK);
  mEdit.markerAdd(line, STOP_LINE_MARK);
  // The cursor stays where the user has put it.
  mEdit.ensureLineVisible(line);
}

int TBreakMarks::StopLine() const {
  return mEdit.markerFindNext(0, 1U << STOP_MARK);
}

void TBreakMarks::LinesDeleted(int position, int length) {
  // A line that goes takes its mark along, which would pass to its neighbour.
  const auto lineOf = [this](int at) {
    return static_cast<int>(
        mEdit.SendScintilla(QsciScintilla::SCI_LINEFROMPOSITION, static_cast<unsigned long>(at)));
  };
  const auto startOf = [this](int line) {
    return static_cast<int>(
        mEdit.SendScintilla(QsciScintilla::SCI_POSITIONFROMLINE, static_cast<unsigned long>(line)));
  };
  const int last = lineOf(position + length);
  int line = lineOf(position);
  if (startOf(line) != position) ++line;
  for (; line < last; ++line) {
    if (Has(line)) Remove(line);
  }
}

void TBreakMarks::Modified(int position, int type, const char* text, int length, int linesAdded) {
  if ((type & QsciScintilla::SC_MOD_BEFOREDELETE) != 0) return LinesDeleted(position, length);
  if (linesAdded == 0) return;
  const auto at = static_cast<unsigned long>(position);
  const auto line = static_cast<int>(mEdit.SendScintilla(QsciScintilla::SCI_LINEFROMPOSITION, at));
  const bool atStart = mEdit.SendScintilla(QsciScintilla::SCI_POSITIONFROMLINE,
                                           static_cast<unsigned long>(line)) == position;
  if (linesAdded > 0) {
    mDrift.Note(atStart ? line : line + 1, 0, linesAdded);
    return;
  }
  // Whole lines have gone, or those behind the first were joined to it.
  const bool whole = atStart && text != nullptr && std::string_view(text, length).ends_with('\n');
  mDrift.Note(whole ? line : line + 1, -linesAdded, 0);
}

}  // namespace zoka
