// The dialog of a breakpoint's rule.
#include "debugger/window/break_rule_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <limits>
#include <utility>

#include "common/window/menu_label.h"

namespace zoka {
namespace {

constexpr int MIN_WIDTH = 380;

}  // namespace

TBreakRuleDialog::TBreakRuleDialog(QWidget* parent, const TEngineContext& context)
    : QDialog(parent),
      mContext(context),
      mLine(new QLabel(this)),
      mConditionLabel(new QLabel(this)),
      mCondition(new QLineEdit(this)),
      mHint(new QLabel(this)),
      mCountLabel(new QLabel(this)),
      mCount(new QSpinBox(this)),
      mCancel(new QPushButton(this)),
      mOk(new QPushButton(this)) {
  setObjectName("BreakRuleDialog");
  setMinimumWidth(MIN_WIDTH);
  mLine->setTextFormat(Qt::PlainText);
  // A long line must not widen the dialog.
  mLine->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  mHint->setWordWrap(true);
  mCount->setRange(1, std::numeric_limits<int32_t>::max());
  mConditionLabel->setBuddy(mCondition);
  mCountLabel->setBuddy(mCount);
  auto* grid = new QGridLayout(this);
  grid->addWidget(mLine, 0, 0, 1, 2);
  grid->addWidget(mConditionLabel, 1, 0);
  grid->addWidget(mCondition, 1, 1);
  grid->addWidget(mCountLabel, 2, 0);
  grid->addWidget(mCount, 2, 1);
  grid->addWidget(mHint, 3, 0, 1, 2);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(mCancel);
  buttons->addWidget(mOk);
  grid->addLayout(buttons, 4, 0, 1, 2);
  mOk->setDefault(true);
  connect(mCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(mOk, &QPushButton::clicked, this, [this] { Confirm(); });
  SetLabels();
}

void TBreakRuleDialog::SetLabels() {
  const auto label = [this](const char* text, const char* key) {
    return menu_label(mContext, mContext.catalogue->GetString(text), key);
  };
  setWindowTitle(localized(mContext, "Breakpoint Condition"));
  mConditionLabel->setText(label("Condition: ", "N"));
  mCondition->setAccessibleName(localized(mContext, "Condition: ").trimmed());
  mHint->setText(localized(mContext, "@Hint_Break_Condition@"));
  mCountLabel->setText(label("Stop from pass: ", "S"));
  const QString count = localized(mContext, "Stop from pass: ").trimmed();
  mCount->setAccessibleName(count);
  // The field within it is met on its own, too.
  for (QLineEdit* field : mCount->findChildren<QLineEdit*>()) field->setAccessibleName(count);
  mCancel->setText(localized(mContext, "Cancel"));
  mOk->setText(localized(mContext, "OK"));
}

void TBreakRuleDialog::Ask(const QString& line, const TBreakRule& rule,
                           std::function<void(const TBreakRule&)> confirmed) {
  mConfirmed = std::move(confirmed);
  mLine->setText(line);
  mCondition->setText(QString::fromStdString(rule.condition));
  mCount->setValue(rule.count);
  show();
  raise();
  activateWindow();
  mCondition->setFocus();
  mCondition->selectAll();
}

void TBreakRuleDialog::Confirm() {
  accept();
  TBreakRule rule;
  rule.condition = mCondition->text().trimmed().toStdString();
  rule.count = mCount->value();
  if (mConfirmed) mConfirmed(rule);
}

}  // namespace zoka
