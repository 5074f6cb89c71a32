// TBracketMarks: lights up the bracket at the cursor and its partner. The component's own search
// takes "<" and ">" for brackets and runs through the whole list for the partner of one.
#pragma once

#include <QObject>

#include "editor/window/list_watch.h"

namespace zoka {

/// Window thread.
class TBracketMarks final : public QObject {
 public:
  /// Both outlive it.
  TBracketMarks(TEditTxtView& edit, const TListWatch& watch);

 private:
  void Update();

  TEditTxtView& mEdit;
  const TListWatch& mWatch;
};

}  // namespace zoka
