// The controls of the preferences dialog: where they stand, their texts and their keys.
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "app/preferences_view.h"
#include "app/settings/prefs_choices.h"
#include "app/settings/speed_slider.h"
#include "common/window/menu_label.h"

namespace zoka {
namespace {

/// Letters of a font family that its menu shows.
constexpr int FAMILY_LETTERS = 24;
/// A size field's width, in digits.
constexpr int TEXT_DIGITS = 9;

struct TFontRow {
  const char* label;
  const char* key;
  const char* name;
  TPrefsNumber size;
  const char* sizeKey;
  const char* sizeName;
};

constexpr std::array<TFontRow, PREFS_FONT_COUNT> FONT_ROWS{
    {{"Main Window: ", "M", "MFieldMainWinFontFamily", TPrefsNumber::MainFontSize, "1", "tmfc"},
     {"Run Window: ", "R", "MFieldRunWinFontFamily", TPrefsNumber::RunFontSize, "2", "trfc"},
     {"Debug Window: ", "B", "MFieldDebugWinFontFamily", TPrefsNumber::DebugFontSize, "3",
      "tdfc"}}};

}  // namespace

void TPrefsView::CreateControls() {
  mTabs = new QTabWidget(this);
  mTabs->setObjectName("TabView");
  CreateFontTab();
  CreateEditTab();
  CreateSoundTab();
  CreateEtcTab();
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(mTabs);
  whole->addWidget(CreateButtons());
}

QGridLayout* TPrefsView::AddTab(const char* title) {
  auto* page = new QWidget(mTabs);
  const int index = mTabs->addTab(page, QString());
  mLabels.emplace_back([this, index, title] {
    mTabs->setTabText(index, plain_label(mContext.engine.catalogue->GetString(title)));
  });
  auto* grid = new QGridLayout(page);
  grid->setAlignment(Qt::AlignTop);
  return grid;
}

QLabel* TPrefsView::NewLabel(const char* text, const char* key, QWidget* buddy) {
  auto* label = new QLabel(this);
  label->setBuddy(buddy);
  mLabels.emplace_back([this, label, buddy, text, key] {
    const std::string words = mContext.engine.catalogue->GetString(text);
    label->setText(menu_label(mContext.engine, words, key));
    buddy->setAccessibleName(QString::fromStdString(words).trimmed());
  });
  return label;
}

QLabel* TPrefsView::NewUnit(const char* text) {
  auto* label = new QLabel(this);
  mLabels.emplace_back([this, label, text] { label->setText(Text(text)); });
  return label;
}

QCheckBox* TPrefsView::NewBox(TPrefsFlag flag, const char* text, const char* key,
                              const char* name) {
  auto* box = new QCheckBox(this);
  box->setObjectName(name);
  mBoxes[static_cast<size_t>(flag)] = box;
  mLabels.emplace_back([this, box, text, key] {
    box->setText(menu_label(mContext.engine, mContext.engine.catalogue->GetString(text), key));
  });
  connect(box, &QCheckBox::clicked, this, [this, flag](bool on) {
    mEdit.SetFlag(flag, on);
    UpdateEnabled();
  });
  return box;
}

QLineEdit* TPrefsView::NewText(TPrefsNumber number, const char* name) {
  auto* text = new QLineEdit(this);
  text->setObjectName(name);
  text->setAlignment(Qt::AlignRight);
  text->setFixedWidth(text->fontMetrics().horizontalAdvance(QString(TEXT_DIGITS, '0')) +
                      text->sizeHint().height());
  mTexts[static_cast<size_t>(number)] = text;
  connect(text, &QLineEdit::textChanged, this,
          [this, number](const QString& typed) { NumberTyped(number, typed); });
  return text;
}

QComboBox* TPrefsView::NewMenu(const char* name) {
  auto* menu = new QComboBox(this);
  menu->setObjectName(name);
  menu->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  return menu;
}

void TPrefsView::FillPlaces(QComboBox* menu, std::span<const char* const> items) {
  for (size_t i = 0; i < items.size(); ++i) {
    if (items[i] == nullptr) {
      menu->insertSeparator(static_cast<int>(i));
      continue;
    }
    menu->addItem(QString());
    mLabels.emplace_back(
        [this, menu, i, text = items[i]] { menu->setItemText(static_cast<int>(i), Text(text)); });
  }
}

void TPrefsView::CreateFontTab() {
  QGridLayout* grid = AddTab("Font");
  for (size_t i = 0; i < PREFS_FONT_COUNT; ++i) {
    const TFontRow& row = FONT_ROWS[i];
    QComboBox* menu = mFonts[i] = NewMenu(row.name);
    // Families are many and some have long names: the menu is as wide as most need.
    menu->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    menu->setMinimumContentsLength(FAMILY_LETTERS);
    mLabels.emplace_back([this, menu] {
      menu->setPlaceholderText(Text("Select..."));
      menu->updateGeometry();  // the text takes part in the menu's size
    });
    connect(menu, &QComboBox::currentIndexChanged, this, [this, menu, i](int index) {
      if (index < 0) return;
      mEdit.SetFontFamily(static_cast<TPrefsFont>(i), menu->itemText(index).toStdString());
    });
    QLineEdit* size = NewText(row.size, row.sizeName);
    const int at = static_cast<int>(i);
    grid->addWidget(NewLabel(row.label, row.key, menu), at, 0);
    grid->addWidget(menu, at, 1);
    grid->addWidget(NewLabel("Size: ", row.sizeKey, size), at, 2);
    grid->addWidget(size, at, 3);
  }
  grid->setColumnStretch(1, 1);
}

void TPrefsView::CreateEditTab() {
  QGridLayout* grid = AddTab("Edit");
  mEncoding = NewMenu("MFieldDefaultEncoding");
  FillPlaces(mEncoding, ENCODING_ITEMS);
  connect(mEncoding, &QComboBox::currentIndexChanged, this, [this](int index) {
    mEdit.SetEncoding(index);
    UpdateEnabled();
  });
  grid->addWidget(NewLabel("Default Encoding: ", "N", mEncoding), 0, 0);
  grid->addWidget(mEncoding, 0, 1, Qt::AlignLeft);
  grid->addWidget(NewBox(TPrefsFlag::ConvertPc98,
                         "Convert PC-98 peculiar characters to standbies (JIS only)", "9", "cc9c"),
                  1, 0, 1, 2);
  grid->addWidget(NewBox(TPrefsFlag::WordWrap, "Word wrap in edit window", "W", "cwwc"), 2, 0, 1,
                  2);
  grid->addWidget(CreateBoxAutoSave(), 3, 0, 1, 2);
  grid->setColumnStretch(1, 1);
}

QWidget* TPrefsView::CreateBoxAutoSave() {
  auto* group = new QGroupBox(this);
  group->setObjectName("BoxAutoSave");
  mLabels.emplace_back([this, group] {
    group->setTitle(
        plain_label(mContext.engine.catalogue->GetString("Automatically Save Program List")));
  });
  auto* regular = new QHBoxLayout;
  regular->addWidget(
      NewBox(TPrefsFlag::AutoSaveRegular, "Save every ", "I", "CBoxAutoSaveRegular"));
  QLineEdit* interval = NewText(TPrefsNumber::AutoSaveInterval, "TxtCtrlAutoSaveInterval");
  mLabels.emplace_back([this, interval] { interval->setAccessibleName(Text("minutes")); });
  regular->addWidget(interval);
  QLabel* unit = NewUnit("minutes");
  unit->setObjectName("StrViewAutoSaveInterval");
  regular->addWidget(unit);
  regular->addStretch();
  auto* rows = new QVBoxLayout(group);
  rows->addLayout(regular);
  rows->addWidget(
      NewBox(TPrefsFlag::AutoSaveBeforeRun, "Save before run", "", "CBoxAutoSaveBeforeRun"));
  return group;
}

void TPrefsView::CreateSoundTab() {
  QGridLayout* grid = AddTab("Sound");
  mMidiOut = new QPushButton(this);
  mMidiOut->setObjectName("MFieldMidiOut");
  mMidiOut->setAutoDefault(true);
  mMidiMenu = new QMenu(mMidiOut);
  mMidiOut->setMenu(mMidiMenu);
  QLineEdit* latency = NewText(TPrefsNumber::MidiLatency, "tmlc");
  QLineEdit* volume = NewText(TPrefsNumber::SsgVolume, "tsvc");
  grid->addWidget(NewLabel("MIDI OUT: ", "O", mMidiOut), 0, 0);
  grid->addWidget(mMidiOut, 0, 1, Qt::AlignLeft);
  grid->addWidget(NewLabel("MIDI Latency [ms]: ", "L", latency), 1, 0);
  grid->addWidget(latency, 1, 1, Qt::AlignLeft);
  grid->addWidget(NewLabel("SSG Volume [%]: ", "S", volume), 2, 0);
  grid->addWidget(volume, 2, 1, Qt::AlignLeft);
  grid->setColumnStretch(1, 1);
}

void TPrefsView::CreateEtcTab() {
  QGridLayout* grid = AddTab("Etc.");
  grid->addWidget(NewBox(TPrefsFlag::SplashWindow, "Show splash window", "P", "cssc"), 0, 0, 1, 2);
  grid->addWidget(NewBox(TPrefsFlag::BreakAtStart, "Break at start (using debugger)", "", "cbsc"),
                  1, 0, 1, 2);
  grid->addWidget(NewBox(TPrefsFlag::SpeedControl, "Control running speed", "", "cscc"), 2, 0, 1,
                  2);
  grid->addWidget(CreateSpeedRow(), 3, 0, 1, 2);
  mCompat = NewMenu("MFieldCompatiMode");
  FillPlaces(mCompat, COMPAT_ITEMS);
  connect(mCompat, &QComboBox::currentIndexChanged, this,
          [this](int index) { mEdit.SetCompatMode(index); });
  grid->addWidget(NewLabel("Compatibility Mode: ", "C", mCompat), 4, 0);
  grid->addWidget(mCompat, 4, 1, Qt::AlignLeft);
  grid->setColumnStretch(1, 1);
}

QWidget* TPrefsView::CreateSpeedRow() {
  auto* whole = new QWidget(this);
  mSlider = new QSlider(Qt::Horizontal, this);
  mSlider->setObjectName("sscc");
  mSlider->setRange(MIN_SLIDER_POSITION, MAX_SLIDER_POSITION);
  mSlider->setPageStep(1);
  connect(mSlider, &QSlider::valueChanged, this, [this](int position) { SliderMoved(position); });
  QLineEdit* interval = NewText(TPrefsNumber::SpeedInterval, "tscc");
  QLabel* slowest = NewUnit("1 [s]");
  slowest->setAlignment(Qt::AlignRight);
  auto* grid = new QGridLayout(whole);
  grid->addWidget(NewLabel("Wait", "", mSlider), 0, 0);
  grid->addWidget(mSlider, 0, 1, 1, 2);
  grid->addWidget(NewUnit("100 [us]"), 1, 1);
  grid->addWidget(slowest, 1, 2);
  grid->addWidget(interval, 0, 3);
  grid->addWidget(NewLabel("[us]", "", interval), 0, 4);
  mLabels.emplace_back(
      [this, interval] { interval->setAccessibleName(Text("Wait") + " " + Text("[us]")); });
  return whole;
}

QPushButton* TPrefsView::NewButton(const char* text, const char* key, const char* name,
                                   void (TPrefsView::*clicked)()) {
  auto* button = new QPushButton(this);
  button->setObjectName(name);
  // The Return key presses the button that has the focus, else OK.
  button->setAutoDefault(true);
  mLabels.emplace_back([this, button, text, key] {
    button->setText(menu_label(mContext.engine, mContext.engine.catalogue->GetString(text), key));
  });
  connect(button, &QPushButton::clicked, this, clicked);
  return button;
}

QWidget* TPrefsView::CreateButtons() {
  auto* container = new QWidget(this);
  container->setObjectName("ButtonContainer");
  auto* row = new QHBoxLayout(container);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(NewButton("Help", "F1", "ButtonHelp", &TPrefsView::ButtonHelpClicked));
  row->addWidget(NewButton("Defaults", "D", "ButtonDefaults", &TPrefsView::ButtonDefaultsClicked));
  row->addStretch();
  row->addWidget(NewButton("Cancel", "", "ButtonCancel", &TPrefsView::ButtonCancelClicked));
  QPushButton* ok = NewButton("OK", "", "ButtonOK", &TPrefsView::ButtonOKClicked);
  ok->setDefault(true);
  row->addWidget(ok);
  return container;
}

}  // namespace zoka
