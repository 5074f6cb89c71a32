// TEditComforts: wires what helps with typing and reading a list to its editor: completion, marks
// of jumps that lead nowhere and of brackets, hover, help on words, and the way to definitions.
// Each is a class of its own; the engine's part lies in editor/.
#pragma once

#include <functional>
#include <string>

#include "common/context.h"
#include "editor/window/bracket_marks.h"
#include "editor/window/completion_popup.h"
#include "editor/window/definition_jump.h"
#include "editor/window/hover_help.h"
#include "editor/window/jump_marks.h"
#include "editor/window/keyword_window.h"
#include "editor/window/list_watch.h"

namespace zoka {

/// Window thread.
class TEditComforts final {
 public:
  using TShowStatus = std::function<void(const std::string& text)>;

  /// All outlive it. `showStatus` shows a sentence in the status line.
  TEditComforts(TEditTxtView& edit, const TEngineContext& context, TShowStatus showStatus);

  void GoToDefinition();
  void GoBack();
  void CompleteWord() { mCompletion->Complete(); }
  /// The help on the word under the cursor, or all words.
  void ShowKeywordHelp();
  void SetLabels();

  TListWatch& Watch() { return mWatch; }
  TJumpMarks& Marks() { return mMarks; }
  THoverHelp& Hover() { return mHover; }
  TCompletionPopup& Completion() { return *mCompletion; }
  TKeywordWindow& KeywordWindow() { return *mKeywords; }

 private:
  TListPlace Cursor() const;
  /// `target` is where it was to go, or null.
  void ShowOutcome(TJumpOutcome outcome, const TPlaceName* target);

  TEditTxtView& mEdit;
  const TEngineContext& mContext;
  TShowStatus mShowStatus;
  TListWatch mWatch;
  TJumpMarks mMarks;
  TBracketMarks mBrackets;
  TDefinitionJump mJump;
  THoverHelp mHover;
  // Of the editor, which deletes them.
  TCompletionPopup* mCompletion;
  TKeywordWindow* mKeywords;
};

}  // namespace zoka
