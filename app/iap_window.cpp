// The controls of the common preferences.
#include "app/iap_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <utility>

#include "common/window/menu_label.h"

namespace zoka {
namespace {

constexpr const char TITLE[] = "KORUNE Common Preferences";
/// What a window's frame has beside the title: an icon, buttons, letters that may be bold.
constexpr int FRAME_ROOM = 140;
constexpr int LABEL_COLUMN = 0;
constexpr int MENU_COLUMN = 1;
constexpr int COLUMNS = 2;

}  // namespace

TIAPWindow::TIAPWindow(TWindowContext& context, TIAPBoard& board,
                       std::function<void(const TMessage&)> changed)
    : TBasicWindow(context), mBoard(board), mChanged(std::move(changed)) {
  setObjectName("TIAPWindow");
  setWindowFlags(Qt::Dialog);
  auto* view = new QWidget(this);
  view->setObjectName("IAPView");
  setCentralWidget(view);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
  auto* whole = new QVBoxLayout(view);
  mItems = new QGridLayout;
  mItems->setColumnStretch(MENU_COLUMN, 1);
  whole->addLayout(mItems);
  CreateButtons(whole);
  AddComponents();
}

QPushButton* TIAPWindow::NewButton(const char* name, void (TIAPWindow::*clicked)()) {
  auto* button = new QPushButton(this);
  button->setObjectName(name);
  // The Return key presses the button that has the focus, else OK.
  button->setAutoDefault(true);
  connect(button, &QPushButton::clicked, this, clicked);
  return button;
}

void TIAPWindow::CreateButtons(QVBoxLayout* whole) {
  auto* container = new QWidget(this);
  container->setObjectName("ButtonContainer");
  auto* row = new QHBoxLayout(container);
  row->setContentsMargins(0, 0, 0, 0);
  mDefaults = NewButton("ButtonDefaults", &TIAPWindow::ButtonDefaultsClicked);
  mCancel = NewButton("ButtonCancel", &TIAPWindow::ButtonCancelClicked);
  mOk = NewButton("ButtonOK", &TIAPWindow::ButtonOKClicked);
  mOk->setDefault(true);
  row->addWidget(mDefaults);
  row->addStretch();
  row->addWidget(mCancel);
  row->addWidget(mOk);
  whole->addWidget(container);
}

QString TIAPWindow::Label(const std::string& text, const std::string& key) const {
  return menu_label(Engine(), Engine().catalogue->GetString(text), key);
}

void TIAPWindow::AddComponents() {
  for (const TIAPComponent& component : mBoard.Components()) {
    if (!mControls.contains(component.name)) {
      mControls[component.name] = MakeConfigurationView(component);
    }
  }
  SetTabOrders();
  SetViewLabel();
  SetComponents();
}

TIAPWindow::TControl TIAPWindow::MakeConfigurationView(const TIAPComponent& component) {
  return component.configuration.choices.empty() ? MakeBox(component) : MakeMenu(component);
}

TIAPWindow::TControl TIAPWindow::MakeMenu(const TIAPComponent& component) {
  auto* label = new QLabel(this);
  auto* menu = new QComboBox(this);
  menu->setObjectName(QString::fromStdString(component.name));
  menu->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  label->setBuddy(menu);
  const int row = mItems->rowCount();
  mItems->addWidget(label, row, LABEL_COLUMN);
  mItems->addWidget(menu, row, MENU_COLUMN);
  const TIAPConfiguration configuration = component.configuration;
  for (const TIAPChoice& choice : configuration.choices) {
    menu->addItem(QString(), QByteArray::fromStdString(choice.value));
  }
  connect(menu, &QComboBox::currentIndexChanged, this, [this, menu, name = component.name](int at) {
    if (at < 0) return;
    TMessage value(IAP_VALUE_CODE);
    add_default_info(&value, name);
    value.AddString(IAP_VALUE_KEY, menu->itemData(at).toByteArray().toStdString());
    ControlChanged(value);
  });
  const auto setLabel = [this, label, menu, configuration] {
    label->setText(Label(configuration.label, configuration.key));
    menu->setAccessibleName(localized(Engine(), configuration.label.c_str()).trimmed());
    for (size_t i = 0; i < configuration.choices.size(); ++i) {
      menu->setItemText(static_cast<int>(i),
                        localized(Engine(), configuration.choices[i].label.c_str()));
    }
  };
  const auto setValue = [menu](const TMessage& value) {
    std::string text;
    value.FindString(IAP_VALUE_KEY, &text);
    const QSignalBlocker blocker(menu);
    menu->setCurrentIndex(menu->findData(QByteArray::fromStdString(text)));
  };
  return {menu, setLabel, setValue};
}

TIAPWindow::TControl TIAPWindow::MakeBox(const TIAPComponent& component) {
  auto* box = new QCheckBox(this);
  box->setObjectName(QString::fromStdString(component.name));
  mItems->addWidget(box, mItems->rowCount(), LABEL_COLUMN, 1, COLUMNS);
  connect(box, &QCheckBox::clicked, this, [this, name = component.name](bool on) {
    TMessage value(IAP_VALUE_CODE);
    add_default_info(&value, name);
    value.AddBool(IAP_VALUE_KEY, on);
    ControlChanged(value);
  });
  const auto setLabel = [this, box, configuration = component.configuration] {
    box->setText(Label(configuration.label, configuration.key));
  };
  const auto setValue = [box](const TMessage& value) {
    bool on = false;
    value.FindBool(IAP_VALUE_KEY, &on);
    box->setChecked(on);
  };
  return {box, setLabel, setValue};
}

void TIAPWindow::SetTabOrders() {
  QWidget* last = nullptr;
  const auto follow = [&last](QWidget* next) {
    if (last != nullptr) setTabOrder(last, next);
    last = next;
  };
  for (const TIAPComponent& component : mBoard.Components()) {
    follow(mControls.at(component.name).widget);
  }
  for (QWidget* button : {mDefaults, mCancel, mOk}) follow(button);
}

void TIAPWindow::SetViewLabel() {
  setWindowTitle(localized(Engine(), TITLE));
  centralWidget()->setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) + FRAME_ROOM);
  for (const auto& [name, control] : mControls) control.setLabel();
  mDefaults->setText(Label("Defaults", "D"));
  mCancel->setText(localized(Engine(), "Cancel"));
  mOk->setText(localized(Engine(), "OK"));
}

void TIAPWindow::SetComponents() {
  for (const TIAPComponent& component : mBoard.Components()) {
    mControls.at(component.name).setValue(component.Value(TIAPValue::Current));
  }
}

void TIAPWindow::Open() {
  AddComponents();
  if (isHidden()) {
    mBoard.Keep();
    if (!mBoard.Components().empty()) {
      mControls.at(mBoard.Components().front().name).widget->setFocus();
    }
  }
  Appear();
}

void TIAPWindow::ControlChanged(const TMessage& value) {
  if (mBoard.Change(value)) mChanged(value);
  SetViewLabel();
}

void TIAPWindow::Spread(const std::vector<TMessage>& values) {
  for (const TMessage& value : values) mChanged(value);
  SetComponents();
  SetViewLabel();
}

void TIAPWindow::ButtonOKClicked() {
  hide();
  mBoard.Keep();
}

void TIAPWindow::ButtonCancelClicked() {
  hide();
  Spread(mBoard.SetComponents(TIAPValue::Opened));
}

void TIAPWindow::ButtonDefaultsClicked() {
  Spread(mBoard.SetComponents(TIAPValue::Default));
}

bool TIAPWindow::QuitRequested() {
  if (!isHidden() && !Engine().privacy.quitting.load()) ButtonCancelClicked();
  return TBasicWindow::QuitRequested();
}

void TIAPWindow::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      return ButtonCancelClicked();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return ButtonOKClicked();
    default:
      return TBasicWindow::keyPressEvent(event);
  }
}

}  // namespace zoka
