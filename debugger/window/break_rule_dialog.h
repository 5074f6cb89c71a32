// TBreakRuleDialog: asks when a breakpoint is to stop: on which condition, and from which pass on.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <functional>

#include "common/context.h"
#include "debugger/break_points.h"

namespace zoka {

/// Window thread. Made once, and shown again and again; it does not block its window's program.
class TBreakRuleDialog final : public QDialog {
 public:
  TBreakRuleDialog(QWidget* parent, const TEngineContext& context);

  /// Asks for the rule of a line; `confirmed` gets it unless the user cancels.
  void Ask(const QString& line, const TBreakRule& rule,
           std::function<void(const TBreakRule&)> confirmed);
  void SetLabels();

  QLineEdit* Condition() { return mCondition; }
  QSpinBox* Count() { return mCount; }

 private:
  void Confirm();

  const TEngineContext& mContext;
  std::function<void(const TBreakRule&)> mConfirmed;
  QLabel* mLine;
  QLabel* mConditionLabel;
  QLineEdit* mCondition;
  QLabel* mHint;
  QLabel* mCountLabel;
  QSpinBox* mCount;
  QPushButton* mCancel;
  QPushButton* mOk;
};

}  // namespace zoka
