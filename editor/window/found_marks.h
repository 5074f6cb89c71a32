// TFoundMarks: lights up what has been found, as long as somebody looks for it. It does not search.
#pragma once

#include <QObject>
#include <vector>

#include "editor/window/edit_txt_view.h"
#include "editor/window/text_search.h"

namespace zoka {

/// Only the occurrences on the screen are lit up, when they are about to be painted: what a key
/// costs does not depend on how many there are. Window thread.
class TFoundMarks final : public QObject {
 public:
  /// `edit` outlives it.
  explicit TFoundMarks(TEditTxtView& edit);

  /// Lights up these, in the order of the text, and no others.
  void Show(std::vector<TFound> found);
  void Clear() { Show({}); }

 private:
  void Update();

  TEditTxtView& mEdit;
  std::vector<TFound> mFound;
  int64_t mBegin = 0;  // the bytes on the screen when it was last painted
  int64_t mEnd = 0;
};

}  // namespace zoka
