// TPrefsView: the tabs and buttons of the preferences dialog. What a change means is TPrefsEdit's.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>
#include <array>
#include <functional>
#include <span>
#include <vector>

#include "app/settings/prefs_edit.h"
#include "common/delay_sender.h"
#include "common/window/basic_window.h"
#include "sound/midi.h"

namespace zoka {

/// How long after the last key in a size field the window with that font is drawn anew.
constexpr bigtime_t PREFS_DELAY = 1'500'000;

/// Window thread. Controls are found by their object names, those without a name of their own by
/// the code of their change.
class TPrefsView final : public QWidget {
 public:
  /// `closed` is called after OK and Cancel.
  TPrefsView(const TWindowContext& context, TMidiRoster& roster, std::function<void()> closed,
             QWidget* parent);

  /// The dialog opens.
  void Open();
  /// All values into the controls, all texts into them.
  void UpdateCompos();
  void SetViewLabel();
  /// The outputs anew, or their marks.
  void RecreateMenuMidiOut();
  void UpdateMenuMidiOut();

  void ButtonOKClicked();
  void ButtonCancelClicked();
  void ButtonDefaultsClicked();
  void ButtonHelpClicked();

 private:
  void CreateControls();
  QGridLayout* AddTab(const char* title);
  void CreateFontTab();
  void CreateEditTab();
  QWidget* CreateBoxAutoSave();
  void CreateSoundTab();
  void CreateEtcTab();
  QWidget* CreateSpeedRow();
  QWidget* CreateButtons();

  QLabel* NewLabel(const char* text, const char* key, QWidget* buddy);
  QLabel* NewUnit(const char* text);
  QCheckBox* NewBox(TPrefsFlag flag, const char* text, const char* key, const char* name);
  QLineEdit* NewText(TPrefsNumber number, const char* name);
  QComboBox* NewMenu(const char* name);
  QPushButton* NewButton(const char* text, const char* key, const char* name,
                         void (TPrefsView::*clicked)());
  /// A menu whose items are known by their places.
  void FillPlaces(QComboBox* menu, std::span<const char* const> items);
  void FillFonts();
  void UpdateEnabled();
  void SliderMoved(int position);
  void NumberTyped(TPrefsNumber number, const QString& text);
  void MFieldMidiOutChanged(int32_t id);

  void NotifyPrefChange(const TMessage& message, bool delayed);
  QString Text(const char* key) const;

  TWindowContext mContext;
  TMidiRoster& mRoster;
  std::function<void()> mClosed;
  TDelaySender mDelaySender;
  TPrefsEdit mEdit;
  std::vector<std::function<void()>> mLabels;  // each sets a text in the language of now
  QTabWidget* mTabs = nullptr;
  std::array<QComboBox*, PREFS_FONT_COUNT> mFonts{};
  std::array<QLineEdit*, PREFS_NUMBER_COUNT> mTexts{};
  std::array<QCheckBox*, PREFS_FLAG_COUNT> mBoxes{};
  QComboBox* mEncoding = nullptr;
  QComboBox* mCompat = nullptr;
  QPushButton* mMidiOut = nullptr;
  QMenu* mMidiMenu = nullptr;
  QSlider* mSlider = nullptr;
};

}  // namespace zoka
