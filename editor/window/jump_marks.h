// TJumpMarks: underlines jumps to lines and labels that do not exist.
#pragma once

#include <QObject>

#include "editor/window/list_watch.h"

namespace zoka {

/// Only the lines on the screen are underlined, when they are about to be painted: what a key costs
/// does not depend on the length of the list. Window thread.
class TJumpMarks final : public QObject {
 public:
  /// Both outlive it.
  TJumpMarks(TEditTxtView& edit, const TListWatch& watch);

  /// Underlines what is on the screen now; tests need not wait for a painting.
  void Update();

 private:
  void UpdateLine(int64_t line);

  TEditTxtView& mEdit;
  const TListWatch& mWatch;
};

}  // namespace zoka
