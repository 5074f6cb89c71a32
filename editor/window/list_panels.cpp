// Panels of the toolkit with the list's own controls.
#include "editor/window/list_panels.h"

#include <QApplication>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>

#include "app/settings/prefs_choices.h"
#include "common/window/menu_label.h"
#include "common/window/panel_columns.h"
#include "common/window/panel_completer.h"
#include "editor/list_requests.h"

namespace zoka {
namespace {

/// Wide enough for names, types and dates of files.
constexpr QSize PANEL_SIZE(760, 480);

void set_name_filters(QFileDialog& panel, const TEngineContext& context) {
  const QString lists = localized(context, "BASIC Lists");
  const QString all = localized(context, "All Files");
  panel.setNameFilters({lists + " (*.bas *.BAS *.Bas)", all + " (*)"});
  panel.setSidebarUrls(panel.sidebarUrls());  // which names the places anew
}

}  // namespace

void add_held_modifiers(TMessage* message, bool isLocal) {
  const Qt::KeyboardModifiers held = QApplication::keyboardModifiers();
  if (isLocal && (held & Qt::ControlModifier)) message->AddBool(CONTROL_HELD, true);
  if (held & (Qt::AltModifier | Qt::MetaModifier)) message->AddBool(OPTION_HELD, true);
}

TZokaOpenPanel::TZokaOpenPanel(QWidget* parent, const TEngineContext& context)
    : QFileDialog(parent),
      mContext(context),
      mEncodingLabel(new QLabel(this)),
      mEncoding(new QComboBox(this)),
      mAdd(new QCheckBox(this)) {
  setOption(DontUseNativeDialog);
  setFileMode(ExistingFile);
  resize(PANEL_SIZE);
  new TPanelCompleter(this);
  new TPanelColumns(this);
  for (const char* encoding : ENCODING_ITEMS) {
    if (encoding != nullptr) {
      mEncoding->addItem(encoding);
    } else {
      mEncoding->insertSeparator(mEncoding->count());
    }
  }
  mEncodingLabel->setBuddy(mEncoding);
  auto* row = new QHBoxLayout;
  row->addWidget(mEncodingLabel);
  row->addWidget(mEncoding);
  row->addStretch();
  row->addWidget(mAdd);
  if (auto* grid = qobject_cast<QGridLayout*>(layout())) {
    grid->addLayout(row, grid->rowCount(), 0, 1, grid->columnCount());
  }
  SetLabels();
  SetDefaultEncoding();
}

void TZokaOpenPanel::SetLabels() {
  setWindowTitle(localized(mContext, "%AppName%: Open").replace("%AppName%", APP_NAME));
  set_name_filters(*this, mContext);
  setLabelText(Accept, localized(mContext, "&Open"));
  const QString marked = localized(mContext, "Encoding");
  mEncodingLabel->setText(marked);
  mEncoding->setAccessibleName(marked);
  for (size_t i = 0; i < ENCODING_ITEMS.size(); ++i) {
    if (ENCODING_ITEMS[i] == nullptr) continue;
    mEncoding->setItemText(static_cast<int>(i), localized(mContext, ENCODING_ITEMS[i]));
  }
  mAdd->setText(localized(mContext, "Insert to current position"));
}

void TZokaOpenPanel::SetDefaultEncoding() {
  mEncoding->setCurrentIndex(mContext.prefs->DEnc.load());
}

void TZokaOpenPanel::Appear() {
  ClearCBoxAdd();
  show();
  raise();
  activateWindow();
}

TMessage TZokaOpenPanel::Message(const QString& path) const {
  TMessage message("_RRC");
  message.AddRef("refs", TPathRef{QFile::encodeName(path).toStdString()});
  message.AddInt32("Encoding", mEncoding->currentIndex());
  message.AddBool("Add", mAdd->isChecked());
  add_held_modifiers(&message, true);
  return message;
}

TZokaSavePanel::TZokaSavePanel(QWidget* parent, const TEngineContext& context)
    : QFileDialog(parent), mContext(context) {
  setOption(DontUseNativeDialog);
  setAcceptMode(AcceptSave);
  setFileMode(AnyFile);
  resize(PANEL_SIZE);
  new TPanelCompleter(this);
  new TPanelColumns(this);
  // With the extension there before the question whether to replace a file, it asks for the right
  // one.
  setDefaultSuffix(LIST_EXT);
  SetLabels();
}

void TZokaSavePanel::SetLabels() {
  setWindowTitle(localized(mContext, "%AppName%: Save").replace("%AppName%", APP_NAME));
  setLabelText(Accept, localized(mContext, "&Save"));
  set_name_filters(*this, mContext);
}

}  // namespace zoka
