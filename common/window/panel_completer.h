// TPanelCompleter: keeps the list of names that a file panel offers inside its panel.
#pragma once

#include <QCompleter>
#include <QFileDialog>
#include <QPointer>

namespace zoka {

/// Belongs to the panel that it is given. The toolkit reads a folder in the background and would
/// show its names even over other windows, with the keyboard, when the panel has been closed.
class TPanelCompleter final : public QObject {
 public:
  explicit TPanelCompleter(QFileDialog* panel);

 private:
  bool eventFilter(QObject* object, QEvent* event) override;

  QFileDialog* mPanel;
  QPointer<QCompleter> mCompleter;
};

}  // namespace zoka
