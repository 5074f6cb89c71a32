// TFindBar: find and replace, in a bar below the editor.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>

#include "common/context.h"
#include "editor/window/edit_txt_view.h"

namespace zoka {

/// Hidden until it is asked for. Window thread.
class TFindBar final : public QWidget {
 public:
  /// `edit` is not owned, and outlives the bar's use.
  TFindBar(QWidget* parent, const TEngineContext& context, TEditTxtView& edit);

  /// Shows the bar with the selected text, and takes the keyboard.
  void Appear();
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

 private:
  bool Find(bool forward);
  int SearchFlags() const;
  /// The first occurrence between two offsets, backwards if they are; false if there is none.
  bool Search(long from, long to, long* begin, long* end) const;
  void ReplaceTarget(long begin, long end, long* newEnd);
  void ShowCount();

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
};

}  // namespace zoka
