// The renumber dialog's controls.
#include "editor/window/renum_window.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <algorithm>

#include "common/text/number.h"
#include "common/window/menu_label.h"

namespace zoka {
namespace {

constexpr int32_t LEAST_NUMBER = 1;

struct TRenumField {
  const char* name;
  const char* label;
  const char* key;
  const char* messageField;
  int32_t whenEmpty;
};

constexpr std::array<TRenumField, 3> FIELDS{{
    {"TxtCtrlNewLineNum", "New Line: ", "N", "NewLine", DEFAULT_NEW_LINE},
    {"TxtCtrlOldLineNum", "Old Line: ", "L", "OldLine", DEFAULT_OLD_LINE},
    {"TxtCtrlStep", "Step: ", "S", "Step", DEFAULT_STEP},
}};

}  // namespace

TRenumWindow::TRenumWindow(QWidget* parent, const TEngineContext& context,
                           THandlerRegistry& registry)
    : TDialogWindow(parent, context, registry),
      mCancel(new QPushButton(this)),
      mOk(new QPushButton(this)) {
  setObjectName("RenumView");
  auto* grid = new QGridLayout(this);
  // Labels and fields have a half each.
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  for (int i = 0; i < static_cast<int>(FIELD_COUNT); ++i) {
    const size_t at = static_cast<size_t>(i);
    mLabels[at] = new QLabel(this);
    mFields[at] = new QLineEdit(this);
    mFields[at]->setObjectName(FIELDS[at].name);
    mFields[at]->setAlignment(Qt::AlignRight);
    // What an empty field comes to.
    mFields[at]->setPlaceholderText(QString::number(std::max(FIELDS[at].whenEmpty, LEAST_NUMBER)));
    mLabels[at]->setBuddy(mFields[at]);
    grid->addWidget(mLabels[at], i, 0);
    grid->addWidget(mFields[at], i, 1);
  }
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(mCancel);
  buttons->addWidget(mOk);
  grid->addLayout(buttons, static_cast<int>(FIELD_COUNT), 0, 1, 2);
  mCancel->setObjectName("ButtonCancel");
  mOk->setObjectName("ButtonOK");
  mOk->setDefault(true);
  connect(mCancel, &QPushButton::clicked, this, &QDialog::reject);
  connect(mOk, &QPushButton::clicked, this, [this] { ApplyRenum(); });
  SetLabels();
}

void TRenumWindow::SetLabels() {
  setWindowTitle(localized(Engine(), "Renumber"));
  for (size_t i = 0; i < FIELD_COUNT; ++i) {
    mLabels[i]->setText(Label(FIELDS[i].label, FIELDS[i].key));
    mFields[i]->setAccessibleName(localized(Engine(), FIELDS[i].label).trimmed());
  }
  mCancel->setText(localized(Engine(), "Cancel"));
  mOk->setText(localized(Engine(), "OK"));
}

void TRenumWindow::Appear() {
  TDialogWindow::Appear();
  mFields[0]->setFocus();
  mFields[0]->selectAll();
}

int32_t TRenumWindow::CompoToParam(QLineEdit& field, int32_t whenEmpty) {
  const std::string text = field.text().toStdString();
  const int32_t value = text.empty() ? whenEmpty : parse_long(text);
  if (value >= LEAST_NUMBER) return value;
  field.setText(QString::number(LEAST_NUMBER));
  return LEAST_NUMBER;
}

void TRenumWindow::ApplyRenum() {
  hide();
  TMessage message("rnmr");
  for (size_t i = 0; i < FIELD_COUNT; ++i) {
    message.AddInt32(FIELDS[i].messageField, CompoToParam(*mFields[i], FIELDS[i].whenEmpty));
  }
  Invoke(message);
}

}  // namespace zoka
