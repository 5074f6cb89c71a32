// The preferences dialog's frame.
#include "app/preferences_window.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLayout>

#include "common/window/menu_label.h"

namespace zoka {

TPrefsWindow::TPrefsWindow(TWindowContext& context, TMidiRoster& roster)
    : TBasicWindow(context),
      mView(new TPrefsView(
          WindowContext(), roster, [this] { hide(); }, this)) {
  setObjectName("TPrefsWindow");
  setWindowFlags(Qt::Dialog);
  setCentralWidget(mView);
  // It is as large as its texts need, in each language.
  layout()->setSizeConstraint(QLayout::SetFixedSize);
  SetWinTitle();
}

void TPrefsWindow::SetWinTitle() {
  setWindowTitle(localized(Engine(), "Preferences"));
}

void TPrefsWindow::Open() {
  if (isHidden()) mView->Open();
  FitTexts();
  Appear();
}

void TPrefsWindow::MessageReceived(const TMessage& message) {
  switch (message.what) {
    case message_code("rmmc"):
      return mView->RecreateMenuMidiOut();
    case message_code("ummr"):
      return mView->UpdateMenuMidiOut();
    default:
      return TBasicWindow::MessageReceived(message);
  }
}

void TPrefsWindow::LanguageChanged() {
  SetWinTitle();
  mView->SetViewLabel();
  FitTexts();
}

void TPrefsWindow::FitTexts() {
  // The menus of families measure themselves only once they are asked.
  for (QComboBox* menu : mView->findChildren<QComboBox*>()) {
    menu->setMinimumWidth(menu->minimumSizeHint().width());
  }
  layout()->activate();
}

void TPrefsWindow::IAPChanged(const TMessage&) {
  mView->SetViewLabel();
}

bool TPrefsWindow::QuitRequested() {
  if (!isHidden() && !Engine().privacy.quitting.load()) mView->ButtonCancelClicked();
  return TBasicWindow::QuitRequested();
}

void TPrefsWindow::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      return mView->ButtonCancelClicked();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return mView->ButtonOKClicked();
    case Qt::Key_F1:
      return mView->ButtonHelpClicked();
    default:
      return TBasicWindow::keyPressEvent(event);
  }
}

}  // namespace zoka
