// TListWatch: keeps the index of the list equal to the editor's text, change by change, and tells
// of changed lines.
#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "editor/jump_history.h"
#include "editor/list_index.h"
#include "editor/window/edit_txt_view.h"

namespace zoka {

/// Window thread.
class TListWatch final : public QObject {
 public:
  /// `removed` lines from `first` on have become `added`.
  using TLinesReplaced = std::function<void(int64_t first, int64_t removed, int64_t added)>;

  /// `edit` outlives it.
  explicit TListWatch(TEditTxtView& edit);

  const TListIndex& Index() const { return mIndex; }
  void SetLinesReplaced(TLinesReplaced replaced) { mReplaced = std::move(replaced); }

  /// The bytes of a line without its end; they stand until the text changes.
  std::string_view Line(int64_t line) const;

 private:
  void Modified(int position, int type, int linesAdded);

  TEditTxtView& mEdit;
  TListIndex mIndex;
  TLinesReplaced mReplaced;
};

/// A call of the component with a place in the text, by its number.
long edit_call(const TEditTxtView& edit, unsigned int message, int64_t place = 0,
               int64_t second = 0);

/// The place of a byte of the text, and the byte of a place.
TListPlace place_of(const TEditTxtView& edit, int64_t position);
int64_t position_of(const TEditTxtView& edit, const TListPlace& place);

}  // namespace zoka
