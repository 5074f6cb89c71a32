// TFindBar: find and replace, in a bar below the editor.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <vector>

#include "common/context.h"
#include "editor/window/edit_txt_view.h"
#include "editor/window/found_marks.h"
#include "editor/window/text_search.h"

namespace zoka {

/// Hidden until it is asked for; as long as it is there, what is looked for is lit up in the list.
/// Window thread.
class TFindBar final : public QWidget {
 public:
  /// `edit` is not owned, and outlives the bar's use.
  TFindBar(QWidget* parent, const TEngineContext& context, TEditTxtView& edit);

  /// Shows the bar with the selected text, and takes the keyboard.
  void Appear();
  /// The same, ready for the text that takes the place of the one that is looked for.
  void AppearToReplace();
  void SetLabels();
  /// Selects the next or the previous occurrence, from the other end again behind the last. False
  /// if there is none.
  bool FindNext() { return Find(true); }
  bool FindPrevious() { return Find(false); }
  /// Replaces the selected occurrence and finds the next one.
  void ReplaceOne();
  /// Replaces all; returns how many.
  int ReplaceAll();
  /// Occurrences in the whole text.
  int Count() const;

  QLineEdit* FindText() { return mFind; }
  QLineEdit* ReplaceText() { return mReplace; }
  QCheckBox* CaseBox() { return mCase; }
  QCheckBox* WordBox() { return mWord; }
  QCheckBox* RegexBox() { return mRegex; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  bool Find(bool forward);
  /// The text that is looked for is being typed: selects its first occurrence from where the search
  /// began.
  void FindTyped();
  void Select(const TFound& found);
  /// Where the selection begins and ends.
  int64_t SelectionBegin() const;
  int64_t SelectionEnd() const;
  /// All occurrences in the list as it is.
  std::vector<TFound> All() const;
  void Replace(int64_t begin, int64_t end, const std::string& with);
  void ShowFound(const std::vector<TFound>& all);
  void ShowCount() { ShowFound(All()); }

  const TEngineContext& mContext;
  TEditTxtView& mEdit;
  QLineEdit* mFind;
  QLineEdit* mReplace;
  QCheckBox* mCase;
  QCheckBox* mWord;
  QCheckBox* mRegex;
  QPushButton* mNext;
  QPushButton* mPrevious;
  QPushButton* mReplaceOne;
  QPushButton* mReplaceAll;
  QPushButton* mClose;
  QLabel* mCount;
  QTimer mCountTimer;  // from a change of the list to the count
  TFoundMarks mMarks;
  int64_t mOrigin = 0;  // where the selection began when the bar came, or a search led to
};

}  // namespace zoka
