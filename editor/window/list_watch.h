// TListWatch: keeps the index of the list equal to the editor's text, change by change, and tells
// of the changes.
#pragma once

#include <QObject>
#include <functional>
#include <utility>
#include <vector>

#include "editor/list_index.h"
#include "editor/window/edit_txt_view.h"

namespace zoka {

/// Window thread.
class TListWatch final : public QObject {
 public:
  /// So many bytes at a place were put in, or, if negative, taken out; the index knows of it.
  using TChanged = std::function<void(int64_t place, int64_t length)>;

  /// `edit` outlives it.
  explicit TListWatch(TEditTxtView& edit);

  const TListIndex& Index() const { return mIndex; }
  void SetChanged(TChanged changed) { mChanged = std::move(changed); }

  /// The bytes of a line without its end; they stand until the text changes.
  std::string_view Line(int64_t line) const;

 private:
  void Modified(int position, int type, int length, int linesAdded);
  void UpdateLines(int position, int linesAdded);

  TEditTxtView& mEdit;
  TListIndex mIndex;
  TChanged mChanged;
};

/// A call of the component with a place in the text, by its number.
long edit_call(const TEditTxtView& edit, unsigned int message, int64_t place = 0,
               int64_t second = 0);

/// A place in the list: a line from 0, and a byte in it.
struct TListPlace {
  int64_t line = 0;
  int64_t column = 0;
  bool operator==(const TListPlace&) const = default;
};

/// The place of a byte of the text, and the byte of a place.
TListPlace place_of(const TEditTxtView& edit, int64_t position);
int64_t position_of(const TEditTxtView& edit, const TListPlace& place);
/// The first and the last line of the text of which something may be on the screen.
std::pair<int64_t, int64_t> visible_lines(const TEditTxtView& edit);
/// The place below a point of the view; false if there is no text.
bool place_below(const TEditTxtView& edit, const QPoint& point, TListPlace* place);

}  // namespace zoka
