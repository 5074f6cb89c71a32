// The editor's interface for readers, made in two ways.
#include "editor/window/edit_readers.h"

#include <QAccessibleWidget>

#include "editor/window/edit_txt_view.h"

namespace zoka {
namespace {

/// What the toolkit asks for, readers or not: a control with a name. With readers it is the
/// component's own, which has the text, too.
QAccessibleInterface* make_edit_accessible(const QString&, QObject* object) {
  auto* const edit = dynamic_cast<TEditTxtView*>(object);
  if (edit == nullptr || edit->Readers().ArePresent()) return nullptr;
  return new QAccessibleWidget(edit, QAccessible::EditableText);
}

void install_edit_accessible() {
  static const bool once = [] {
    QAccessible::installFactory(make_edit_accessible);
    return true;
  }();
  static_cast<void>(once);
}

}  // namespace

TEditReaders::TEditReaders(QsciScintilla& edit)
    : mEdit(edit), mArePresent(QAccessible::isActive()) {
  install_edit_accessible();
  QAccessible::installActivationObserver(this);
  // The component's constructor may have been asked already.
  AskAgain();
}

TEditReaders::~TEditReaders() {
  QAccessible::removeActivationObserver(this);
}

void TEditReaders::accessibilityActiveChanged(bool active) {
  mArePresent = active;
  AskAgain();
}

void TEditReaders::AskAgain() {
  QAccessibleInterface* const known = QAccessible::queryAccessibleInterface(&mEdit);
  if (known != nullptr) QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(known));
}

}  // namespace zoka
