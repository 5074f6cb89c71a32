// Lights up the occurrences on the screen.
#include "editor/window/found_marks.h"

#include <algorithm>
#include <utility>

#include "editor/window/list_watch.h"

namespace zoka {
namespace {

using S = QsciScintillaBase;

}  // namespace

TFoundMarks::TFoundMarks(TEditTxtView& edit) : mEdit(edit) {
  connect(&mEdit, &QsciScintillaBase::SCN_UPDATEUI, this, [this] { Update(); });
}

void TFoundMarks::Show(std::vector<TFound> found) {
  if (found.empty() && mFound.empty()) return;
  mFound = std::move(found);
  mBegin = mEnd = -1;
  Update();
}

void TFoundMarks::Update() {
  if (mFound.empty() && mBegin >= 0) return;
  const auto [first, last] = visible_lines(mEdit);
  const int64_t begin = edit_call(mEdit, S::SCI_POSITIONFROMLINE, first);
  const int64_t end = edit_call(mEdit, S::SCI_GETLINEENDPOSITION, last);
  // A change paints again, and painting comes back here.
  if (begin == mBegin && end == mEnd) return;
  mBegin = begin;
  mEnd = end;
  edit_call(mEdit, S::SCI_SETINDICATORCURRENT, FOUND_INDICATOR);
  edit_call(mEdit, S::SCI_INDICATORCLEARRANGE, 0, edit_call(mEdit, S::SCI_GETLENGTH));
  const auto before = [](const TFound& found, int64_t place) { return found.end <= place; };
  for (auto found = std::lower_bound(mFound.begin(), mFound.end(), begin, before);
       found != mFound.end() && found->begin < end; ++found) {
    edit_call(mEdit, S::SCI_INDICATORFILLRANGE, found->begin, found->end - found->begin);
  }
}

}  // namespace zoka
