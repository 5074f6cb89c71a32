// THoverHelp: what is below the pointer: a word of the language, or the target of a jump.
#pragma once

#include <QObject>

#include "common/context.h"
#include "editor/window/definition_jump.h"
#include "editor/window/list_watch.h"

namespace zoka {

/// Shows a tool tip where there is something to tell. Window thread.
class THoverHelp final : public QObject {
 public:
  /// All outlive it.
  THoverHelp(TEditTxtView& edit, const TListWatch& watch, const TDefinitionJump& jump,
             const TEngineContext& context);

  /// What is told of a place: rich text, empty if nothing is.
  QString TextAt(const TListPlace& place) const;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QString TargetText(const TPlaceName& target) const;

  TEditTxtView& mEdit;
  const TListWatch& mWatch;
  const TDefinitionJump& mJump;
  const TEngineContext& mContext;
};

/// The sentence that a line or label does not exist, in the user's language.
std::string undefined_text(const TEngineContext& context, const TPlaceName& target);

}  // namespace zoka
