// TPanelColumns: lets a file panel show the names, sizes, types and dates of its files in full.
#pragma once

#include <QFileDialog>

namespace zoka {

/// Belongs to the panel that it is given, one of the toolkit's own. Whenever the panel comes up the
/// columns beside the names are as wide as what they usually hold, and the names have the rest; the
/// places at the side are as wide as their names.
class TPanelColumns final : public QObject {
 public:
  explicit TPanelColumns(QFileDialog* panel);

 private:
  bool eventFilter(QObject* object, QEvent* event) override;
  void Fit();

  QFileDialog* mPanel;
};

}  // namespace zoka
