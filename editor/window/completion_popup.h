// TCompletionPopup: the list of words below the cursor while one is typed. Which words is the
// engine's business (editor/completion.h).
#pragma once

#include <QListWidget>

#include "editor/completion.h"
#include "editor/window/list_watch.h"

namespace zoka {

/// A child of the editor that never takes the keyboard. It comes by itself while a word is typed,
/// and stays away from a word for which Escape was pressed. Tab takes the marked word; Return does
/// so only if the user has moved in the list, and else begins a line as ever. Window thread.
class TCompletionPopup final : public QListWidget {
 public:
  /// Both outlive it.
  TCompletionPopup(TEditTxtView& edit, const TListWatch& watch);

  /// Shows the words for the word at the cursor, however few letters it has.
  void Complete() { Update(true); }
  /// The words that are shown; none while it is hidden.
  QStringList Words() const;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Typed(int character);
  void Update(bool asked);
  void Show(const TCompletion& completion);
  void Place();
  void Move(int rows);
  void Accept();
  /// True if the key was the list's.
  bool KeyPressed(const QKeyEvent& event);
  void Moved(int updated);

  TEditTxtView& mEdit;
  const TListWatch& mWatch;
  int64_t mBegin = 0;       // where the word begins in the text
  int64_t mEnd = 0;         // where the cursor was when the list was made
  int64_t mDismissed = -1;  // the beginning of a word that wants no list
  bool mMoved = false;      // the user has moved in the list
};

}  // namespace zoka
