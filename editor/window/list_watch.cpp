// Follows the component's notes of what was put in and taken out.
#include "editor/window/list_watch.h"

#include <algorithm>

namespace zoka {

using S = QsciScintillaBase;

long edit_call(const TEditTxtView& edit, unsigned int message, int64_t place, int64_t second) {
  return edit.SendScintilla(message, static_cast<unsigned long>(place), static_cast<long>(second));
}

TListPlace place_of(const TEditTxtView& edit, int64_t position) {
  const long line = edit_call(edit, S::SCI_LINEFROMPOSITION, position);
  return {line, position - edit_call(edit, S::SCI_POSITIONFROMLINE, line)};
}

int64_t position_of(const TEditTxtView& edit, const TListPlace& place) {
  const int64_t last = edit_call(edit, S::SCI_GETLINECOUNT) - 1;
  const int64_t line = std::clamp<int64_t>(place.line, 0, last);
  return std::min<int64_t>(edit_call(edit, S::SCI_POSITIONFROMLINE, line) + place.column,
                           edit_call(edit, S::SCI_GETLINEENDPOSITION, line));
}

std::pair<int64_t, int64_t> visible_lines(const TEditTxtView& edit) {
  const long top = edit_call(edit, S::SCI_GETFIRSTVISIBLELINE);
  const long rows = edit_call(edit, S::SCI_LINESONSCREEN) + 1;
  return {edit_call(edit, S::SCI_DOCLINEFROMVISIBLE, top),
          edit_call(edit, S::SCI_DOCLINEFROMVISIBLE, top + rows)};
}

bool place_below(const TEditTxtView& edit, const QPoint& point, TListPlace* place) {
  const long position = edit_call(edit, S::SCI_POSITIONFROMPOINTCLOSE, point.x(), point.y());
  if (position < 0) return false;
  *place = place_of(edit, position);
  return true;
}

TListWatch::TListWatch(TEditTxtView& edit) : mEdit(edit) {
  mIndex.SetText(mEdit.Get());
  connect(&mEdit, &QsciScintillaBase::SCN_MODIFIED, this,
          [this](int position, int type, const char*, int length, int linesAdded) {
            Modified(position, type, length, linesAdded);
          });
}

std::string_view TListWatch::Line(int64_t line) const {
  const long begin = edit_call(mEdit, S::SCI_POSITIONFROMLINE, line);
  const long end = edit_call(mEdit, S::SCI_GETLINEENDPOSITION, line);
  if (begin < 0 || end <= begin) return {};
  const long bytes = edit_call(mEdit, S::SCI_GETRANGEPOINTER, begin, end - begin);
  // The component hands pointers out as numbers. NOLINTNEXTLINE(performance-no-int-to-ptr)
  return {reinterpret_cast<const char*>(bytes), static_cast<size_t>(end - begin)};
}

void TListWatch::Modified(int position, int type, int length, int linesAdded) {
  if ((type & (S::SC_MOD_INSERTTEXT | S::SC_MOD_DELETETEXT)) == 0) return;
  UpdateLines(position, linesAdded);
  if (mChanged) mChanged(position, (type & S::SC_MOD_INSERTTEXT) != 0 ? length : -length);
}

void TListWatch::UpdateLines(int position, int linesAdded) {
  const int64_t first = edit_call(mEdit, S::SCI_LINEFROMPOSITION, position);
  const int64_t added = std::max(linesAdded, 0) + 1;
  const int64_t removed = std::max(-linesAdded, 0) + 1;
  const int64_t count = edit_call(mEdit, S::SCI_GETLINECOUNT);
  if (static_cast<int64_t>(mIndex.LineCount()) + added - removed != count) {
    return mIndex.SetText(mEdit.Get());
  }
  // Copies: a look at the next line may move the bytes of this one.
  std::vector<std::string> texts;
  for (int64_t i = 0; i < added; ++i) texts.emplace_back(Line(first + i));
  mIndex.ReplaceLines(static_cast<size_t>(first), static_cast<size_t>(removed),
                      {texts.begin(), texts.end()});
}

}  // namespace zoka
