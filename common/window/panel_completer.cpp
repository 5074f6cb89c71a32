// Taking the completion from a panel that is closed.
#include "common/window/panel_completer.h"

#include <QEvent>
#include <QLineEdit>

namespace zoka {

TPanelCompleter::TPanelCompleter(QFileDialog* panel) : QObject(panel), mPanel(panel) {
  panel->installEventFilter(this);
}

bool TPanelCompleter::eventFilter(QObject* object, QEvent* event) {
  auto* const name = mPanel->findChild<QLineEdit*>("fileNameEdit");
  if (object == mPanel && name != nullptr) {
    if (event->type() == QEvent::Hide) {
      mCompleter = name->completer();
      name->setCompleter(nullptr);
    } else if (event->type() == QEvent::Show && mCompleter) {
      name->setCompleter(mCompleter);
    }
  }
  return QObject::eventFilter(object, event);
}

}  // namespace zoka
