// Following lines through edits.
#include "editor/line_drift.h"

namespace zoka {

void TLineDrift::Reset() {
  mEdits.clear();
  mLost = false;
}

void TLineDrift::Note(int32_t first, int32_t removed, int32_t added) {
  if (removed == added) return;
  mEdits.push_back({first, removed, added});
}

int32_t TLineDrift::Now(int32_t line) const {
  if (mLost) return -1;
  for (const TEdit& edit : mEdits) {
    if (line < edit.first) continue;
    if (line < edit.first + edit.removed) return -1;
    line += edit.added - edit.removed;
  }
  return line;
}

int32_t TLineDrift::Then(int32_t line) const {
  if (mLost) return -1;
  for (auto edit = mEdits.rbegin(); edit != mEdits.rend(); ++edit) {
    if (line < edit->first) continue;
    if (line < edit->first + edit->added) return -1;
    line += edit->removed - edit->added;
  }
  return line;
}

}  // namespace zoka
