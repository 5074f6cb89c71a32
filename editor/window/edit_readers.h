// TEditReaders: whether readers of the screen follow the editor. The component's interface for them
// counts the characters up to the cursor at each painting, also when nobody listens: so it is made
// only where there are readers. For what is put in the component counts them in any case.
#pragma once

#include <Qsci/qsciscintilla.h>

#include <QAccessible>

namespace zoka {

/// One of each editor, and its member. Window thread.
class TEditReaders final : private QAccessible::ActivationObserver {
 public:
  /// `edit` is a TEditTxtView under construction.
  explicit TEditReaders(QsciScintilla& edit);
  ~TEditReaders() override;
  TEditReaders(const TEditReaders&) = delete;
  TEditReaders& operator=(const TEditReaders&) = delete;

  bool ArePresent() const { return mArePresent; }

 private:
  void accessibilityActiveChanged(bool active) override;
  void AskAgain();

  QsciScintilla& mEdit;
  bool mArePresent;
};

}  // namespace zoka
