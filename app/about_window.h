// TAboutWindow: what the application is, who made it, and under which licence.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "common/context.h"

namespace zoka {

/// Window thread. Made once and shown again and again; not modal.
class TAboutWindow final : public QDialog {
 public:
  TAboutWindow(QWidget* parent, const TEngineContext& context);

  void Appear();
  /// All texts again, in the language of the catalogue.
  void SetLabels();

 private:
  const TEngineContext& mContext;
  QLabel* mPicture;
  QLabel* mText;
  QPushButton* mClose;
};

}  // namespace zoka
