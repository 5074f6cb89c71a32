// TDialogWindow: the base of the small dialogs that send one message when they are confirmed, and
// TSimpleInputWindow, the dialog of one line of text. They know nothing of what the message means.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <string>

#include "common/context.h"
#include "common/handler.h"

namespace zoka {

/// Made once and shown again and again; not modal. Window thread.
class TDialogWindow : public QDialog {
 public:
  /// The registry outlives the dialog.
  TDialogWindow(QWidget* parent, const TEngineContext& context, THandlerRegistry& registry);

  /// Where the message goes.
  void SetTarget(THandlerId target) { mTarget = target; }
  /// Sends `message` to the target; without a target nothing happens.
  void Invoke(const TMessage& message) { mRegistry.Post(mTarget, message); }
  /// Shows the dialog and brings it to the front.
  virtual void Appear();
  /// All texts again, in the language of the catalogue.
  virtual void SetLabels() = 0;

 protected:
  const TEngineContext& Engine() const { return mContext; }
  /// A text of the catalogue with its key merged in and marked.
  QString Label(const char* text, const char* key) const;

 private:
  const TEngineContext& mContext;
  THandlerRegistry& mRegistry;
  THandlerId mTarget;
};

/// Texts of a TSimpleInputWindow: keys of the catalogue, and of the keyboard.
struct TSimpleInputTexts {
  const char* title;
  const char* label;
  const char* labelKey;
  const char* button;
  const char* buttonKey;
};

/// Its message gets the text as the string "SISmplIptTxt".
class TSimpleInputWindow final : public TDialogWindow {
 public:
  /// `code` is that of the message.
  TSimpleInputWindow(QWidget* parent, const TEngineContext& context, THandlerRegistry& registry,
                     const TSimpleInputTexts& texts, const char* code);

  /// The text is shown selected.
  void Appear() override;
  void SetLabels() override;
  QLineEdit* Input() { return mInput; }

 private:
  void Confirm();

  TSimpleInputTexts mTexts;
  const char* mCode;
  QLabel* mLabel;
  QLineEdit* mInput;
  QPushButton* mCancel;
  QPushButton* mConfirm;
};

}  // namespace zoka
