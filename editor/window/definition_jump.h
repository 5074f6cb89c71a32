// TDefinitionJump: from a line number or a label to its definition, and back.
#pragma once

#include <QObject>
#include <functional>
#include <utility>

#include "editor/jump_history.h"
#include "editor/window/list_watch.h"

namespace zoka {

/// How a wish to go somewhere ended.
enum class TJumpOutcome : uint8_t { Gone, NoTarget, Undefined, NoWayBack };

/// Ctrl+click on a target goes there, too. Window thread.
class TDefinitionJump final : public QObject {
 public:
  /// Both outlive it.
  TDefinitionJump(TEditTxtView& edit, const TListWatch& watch);

  /// Called with the outcome of a Ctrl+click on a target.
  void SetClicked(std::function<void(TJumpOutcome, const TPlaceName&)> clicked) {
    mClicked = std::move(clicked);
  }

  /// From the cursor to the definition of the target that it stands at.
  TJumpOutcome GoToDefinition();
  /// To where the cursor was before.
  TJumpOutcome GoBack();
  /// Keeps the way back up when text comes and goes.
  TJumpHistory& History() { return mHistory; }

  /// The target at a place, or null; it stands until the text changes.
  const TPlaceName* TargetAt(const TListPlace& place) const;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  TJumpOutcome GoToDefinitionOf(const TPlaceName& target);

  TEditTxtView& mEdit;
  const TListWatch& mWatch;
  TJumpHistory mHistory;
  std::function<void(TJumpOutcome, const TPlaceName&)> mClicked;
};

}  // namespace zoka
