// Compares the underlines that a line has with those that it should have.
#include "editor/window/jump_marks.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace zoka {
namespace {

using S = QsciScintillaBase;
/// Bytes [first, second) of the text.
using TRange = std::pair<int64_t, int64_t>;

/// The underlined ranges between two bytes.
std::vector<TRange> marked_ranges(const TEditTxtView& edit, int64_t begin, int64_t end) {
  std::vector<TRange> ranges;
  for (int64_t at = begin; at < end;) {
    const int64_t next = edit_call(edit, S::SCI_INDICATOREND, UNDEFINED_INDICATOR, at);
    const int64_t stop = next > at ? std::min(next, end) : end;
    if (edit_call(edit, S::SCI_INDICATORVALUEAT, UNDEFINED_INDICATOR, at) != 0) {
      ranges.emplace_back(at, stop);
    }
    at = stop;
  }
  return ranges;
}

}  // namespace

TJumpMarks::TJumpMarks(TEditTxtView& edit, const TListWatch& watch) : mEdit(edit), mWatch(watch) {
  connect(&mEdit, &QsciScintillaBase::SCN_UPDATEUI, this, [this] { Update(); });
}

void TJumpMarks::Update() {
  const auto [first, last] = visible_lines(mEdit);
  const auto count = static_cast<int64_t>(mWatch.Index().LineCount());
  for (int64_t line = first; line < std::min(last + 1, count); ++line) {
    UpdateLine(line);
  }
}

void TJumpMarks::UpdateLine(int64_t line) {
  const int64_t begin = edit_call(mEdit, S::SCI_POSITIONFROMLINE, line);
  const int64_t end = edit_call(mEdit, S::SCI_GETLINEENDPOSITION, line);
  std::vector<TRange> wanted;
  for (const TPlaceName& jump : mWatch.Index().Facts(static_cast<size_t>(line)).jumps) {
    if (!jump.live || mWatch.Index().IsDefined(jump)) continue;
    wanted.emplace_back(begin + static_cast<int64_t>(jump.begin),
                        begin + static_cast<int64_t>(jump.end));
  }
  // A change paints again, and painting comes back here.
  if (marked_ranges(mEdit, begin, end) == wanted) return;
  edit_call(mEdit, S::SCI_SETINDICATORCURRENT, UNDEFINED_INDICATOR);
  edit_call(mEdit, S::SCI_INDICATORCLEARRANGE, begin, end - begin);
  for (const auto& [from, to] : wanted) {
    edit_call(mEdit, S::SCI_INDICATORFILLRANGE, from, to - from);
  }
}

}  // namespace zoka
