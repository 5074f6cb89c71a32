// TEditReaders: whether readers of the screen follow the editor. The component tells them of every
// change by the number of its character, which it counts from the start of the list each time, and
// also when nobody listens: so it gets to know of readers only where there are any.
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
