// Connects the editor's helpers.
#include "editor/window/edit_comforts.h"

#include <utility>

#include "common/window/menu_label.h"
#include "editor/keyword_help.h"

namespace zoka {

TEditComforts::TEditComforts(TEditTxtView& edit, const TEngineContext& context,
                             TShowStatus showStatus)
    : mEdit(edit),
      mContext(context),
      mShowStatus(std::move(showStatus)),
      mWatch(edit),
      mMarks(edit, mWatch),
      mBrackets(edit, mWatch),
      mJump(edit, mWatch),
      mHover(edit, mWatch, mJump, context),
      mCompletion(new TCompletionPopup(edit, mWatch)),
      mKeywords(new TKeywordWindow(&edit, context)) {
  mWatch.SetChanged([this](int64_t place, int64_t length) {
    TJumpHistory& history = mJump.History();
    if (length > 0) history.Inserted(place, length);
    if (length < 0) history.Deleted(place, -length);
    // Another list begins with an empty one.
    if (mWatch.Index().LineCount() == 1 && mWatch.Line(0).empty()) history.Clear();
  });
  mJump.SetClicked(
      [this](TJumpOutcome outcome, const TPlaceName& target) { ShowOutcome(outcome, &target); });
  SetLabels();
}

TListPlace TEditComforts::Cursor() const {
  return place_of(mEdit, edit_call(mEdit, QsciScintillaBase::SCI_GETCURRENTPOS));
}

void TEditComforts::GoToDefinition() {
  const TPlaceName* const target = mJump.TargetAt(Cursor());
  ShowOutcome(mJump.GoToDefinition(), target);
}

void TEditComforts::GoBack() {
  ShowOutcome(mJump.GoBack(), nullptr);
}

void TEditComforts::ShowOutcome(TJumpOutcome outcome, const TPlaceName* target) {
  switch (outcome) {
    case TJumpOutcome::Gone:
      return mShowStatus("");
    case TJumpOutcome::NoTarget:
      return mShowStatus(
          mContext.catalogue->GetString("No line number or label of a jump is at the cursor."));
    case TJumpOutcome::NoWayBack:
      return mShowStatus(mContext.catalogue->GetString("There is no way back."));
    case TJumpOutcome::Undefined:
      return mShowStatus(target != nullptr ? undefined_text(mContext, *target) : "");
  }
}

void TEditComforts::ShowKeywordHelp() {
  const TListPlace cursor = Cursor();
  mKeywords->Appear(keyword_at(mWatch.Line(cursor.line), static_cast<size_t>(cursor.column)));
}

void TEditComforts::SetLabels() {
  mCompletion->setAccessibleName(localized(mContext, "Words That Fit"));
  mKeywords->SetLabels();
}

}  // namespace zoka
