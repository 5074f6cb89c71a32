// Small dialogs.
#include "common/window/dialog_window.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "common/window/menu_label.h"

namespace zoka {

TDialogWindow::TDialogWindow(QWidget* parent, const TEngineContext& context,
                             THandlerRegistry& registry)
    : QDialog(parent), mContext(context), mRegistry(registry) {}

void TDialogWindow::Appear() {
  show();
  raise();
  activateWindow();
}

QString TDialogWindow::Label(const char* text, const char* key) const {
  return menu_label(mContext, mContext.catalogue->GetString(text), key);
}

TSimpleInputWindow::TSimpleInputWindow(QWidget* parent, const TEngineContext& context,
                                       THandlerRegistry& registry, const TSimpleInputTexts& texts,
                                       const char* code)
    : TDialogWindow(parent, context, registry),
      mTexts(texts),
      mCode(code),
      mLabel(new QLabel(this)),
      mInput(new QLineEdit(this)),
      mCancel(new QPushButton(this)),
      mConfirm(new QPushButton(this)) {
  mLabel->setBuddy(mInput);
  mConfirm->setDefault(true);
  auto* line = new QHBoxLayout;
  line->addWidget(mLabel);
  line->addWidget(mInput);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(mCancel);
  buttons->addWidget(mConfirm);
  auto* whole = new QVBoxLayout(this);
  whole->addLayout(line);
  whole->addLayout(buttons);
  connect(mCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(mConfirm, &QPushButton::clicked, this, [this] { Confirm(); });
  SetLabels();
}

void TSimpleInputWindow::SetLabels() {
  setWindowTitle(localized(Engine(), mTexts.title));
  mLabel->setText(Label(mTexts.label, mTexts.labelKey));
  mInput->setAccessibleName(localized(Engine(), mTexts.title));
  mCancel->setText(localized(Engine(), "Cancel"));
  mConfirm->setText(Label(mTexts.button, mTexts.buttonKey));
}

void TSimpleInputWindow::Appear() {
  TDialogWindow::Appear();
  mInput->selectAll();
  mInput->setFocus();
}

void TSimpleInputWindow::Confirm() {
  hide();
  TMessage message(mCode);
  message.AddString("SISmplIptTxt", mInput->text().toStdString());
  Invoke(message);
}

}  // namespace zoka
