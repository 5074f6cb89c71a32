// Marks for the brackets at the cursor.
#include "editor/window/bracket_marks.h"

#include "editor/brackets.h"

namespace zoka {
namespace {

using S = QsciScintillaBase;

/// For the component: no bracket.
constexpr int64_t NOWHERE = -1;

}  // namespace

TBracketMarks::TBracketMarks(TEditTxtView& edit, const TListWatch& watch)
    : mEdit(edit), mWatch(watch) {
  connect(&mEdit, &QsciScintillaBase::SCN_UPDATEUI, this, [this] { Update(); });
}

void TBracketMarks::Update() {
  const int64_t position = edit_call(mEdit, S::SCI_GETCURRENTPOS);
  const TListPlace cursor = place_of(mEdit, position);
  const auto pair = bracket_pair(mWatch.Line(cursor.line), static_cast<size_t>(cursor.column));
  const auto place = [&](size_t column) {
    return position - cursor.column + static_cast<int64_t>(column);
  };
  // The component paints anew only where that is another pair than before.
  edit_call(mEdit, S::SCI_BRACEHIGHLIGHT, pair ? place(pair->first) : NOWHERE,
            pair ? place(pair->second) : NOWHERE);
}

}  // namespace zoka
