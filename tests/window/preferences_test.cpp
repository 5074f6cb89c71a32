// The preferences dialog: every control, what follows a change at once, and the way back.
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QTabWidget>

#include "tests/window/preferences_rig.h"

namespace zoka {
namespace {

class TPreferencesTest : public TPreferencesRig {
 protected:
  std::string TextOf(const char* name) { return Find<QLineEdit>(name).text().toStdString(); }
};

TEST_F(TPreferencesTest, ShowsTheTabsInOrder) {
  auto& tabs = Find<QTabWidget>("TabView");
  ASSERT_EQ(tabs.count(), 4);
  EXPECT_EQ(tabs.tabText(0), "Font");
  EXPECT_EQ(tabs.tabText(1), "Edit");
  EXPECT_EQ(tabs.tabText(2), "Sound");
  EXPECT_EQ(tabs.tabText(3), "Etc.");
  EXPECT_EQ(Dialog().windowTitle(), "Preferences");
}

TEST_F(TPreferencesTest, TypedNumbersAreClampedButStayAsTyped) {
  Type("TxtCtrlAutoSaveInterval", "0");
  EXPECT_EQ(Prefs().ASvI, 1);
  EXPECT_EQ(TextOf("TxtCtrlAutoSaveInterval"), "0");
  Type("TxtCtrlAutoSaveInterval", "100");
  EXPECT_EQ(Prefs().ASvI, 99);
  Type("tsvc", "250");
  EXPECT_EQ(Prefs().SVol, 200);
  Type("tmfc", "4");
  EXPECT_EQ(Prefs().MWFS, 5);
  Type("tmlc", "40");
  EXPECT_EQ(Prefs().MDly, 40'000);
  Dialog().View().UpdateCompos();
  EXPECT_EQ(TextOf("TxtCtrlAutoSaveInterval"), "99");
  EXPECT_EQ(TextOf("tsvc"), "200");
  EXPECT_EQ(TextOf("tmfc"), "5");
}

TEST_F(TPreferencesTest, BoxesSetTheirFields) {
  const std::pair<const char*, std::atomic<bool>*> rows[] = {
      {"cc9c", &Prefs().Cv98},
      {"cwwc", &Prefs().WdWp},
      {"CBoxAutoSaveRegular", &Prefs().ASvR},
      {"CBoxAutoSaveBeforeRun", &Prefs().ASBR},
      {"cssc", &Prefs().SSls},
      {"cbsc", &Prefs().BrkS},
      {"cscc", &Prefs().USpC}};
  for (const auto& [name, field] : rows) {
    const bool before = field->load();
    EXPECT_EQ(Find<QCheckBox>(name).isChecked(), before) << name;
    Find<QCheckBox>(name).click();
    EXPECT_EQ(field->load(), !before) << name;
  }
}

TEST_F(TPreferencesTest, BoxesEnableWhatBelongsToThem) {
  EXPECT_TRUE(Find<QLineEdit>("TxtCtrlAutoSaveInterval").isEnabled());
  Find<QCheckBox>("CBoxAutoSaveRegular").click();
  EXPECT_FALSE(Find<QLineEdit>("TxtCtrlAutoSaveInterval").isEnabled());
  EXPECT_FALSE(Find<QSlider>("sscc").isEnabled());
  EXPECT_FALSE(Find<QLineEdit>("tscc").isEnabled());
  Find<QCheckBox>("cscc").click();
  EXPECT_TRUE(Find<QSlider>("sscc").isEnabled());
  EXPECT_TRUE(Find<QLineEdit>("tscc").isEnabled());
}

TEST_F(TPreferencesTest, EncodingsThatHaveNoPc98CharactersDisableTheBox) {
  auto& menu = Find<QComboBox>("MFieldDefaultEncoding");
  auto& box = Find<QCheckBox>("cc9c");
  const std::pair<int, bool> rows[] = {{2, false}, {3, false}, {4, true}, {0, true}};
  for (const auto& [place, enabled] : rows) {
    menu.setCurrentIndex(place);
    EXPECT_EQ(Prefs().DEnc, place);
    EXPECT_EQ(box.isEnabled(), enabled) << place;
    EXPECT_TRUE(box.isChecked());
    EXPECT_TRUE(Prefs().Cv98);
  }
}

TEST_F(TPreferencesTest, CompatibilityModesAreStoredByTheirPlaces) {
  auto& menu = Find<QComboBox>("MFieldCompatiMode");
  ASSERT_EQ(menu.count(), 4);
  EXPECT_EQ(menu.itemText(0), "Auto Detect");
  EXPECT_EQ(menu.itemText(2), "DISK-BASIC");
  EXPECT_EQ(menu.itemText(3), "DOS-BASIC");
  for (int place : {2, 3, 0}) {
    menu.setCurrentIndex(place);
    EXPECT_EQ(Prefs().CmpM, place);
  }
}

TEST_F(TPreferencesTest, SliderAndTextFollowEachOther) {
  Find<QCheckBox>("cscc").click();
  auto& slider = Find<QSlider>("sscc");
  EXPECT_EQ(slider.value(), 20);
  EXPECT_EQ(slider.minimum(), 1);
  EXPECT_EQ(slider.maximum(), 37);
  slider.setValue(10);
  EXPECT_EQ(Prefs().SpCI, 1000);
  EXPECT_EQ(TextOf("tscc"), "1000");
  Type("tscc", "25000");
  EXPECT_EQ(slider.value(), 20);
  EXPECT_EQ(Prefs().SpCI, 25'000);
  Type("tscc", "9000000");
  EXPECT_EQ(slider.value(), 37);
  EXPECT_EQ(Prefs().SpCI, 9'000'000);
  Dialog().View().UpdateCompos();
  EXPECT_EQ(TextOf("tscc"), "9000000");
  EXPECT_EQ(Prefs().SpCI, 9'000'000);
}

TEST_F(TPreferencesTest, AFamilyThatIsGoneLeavesTheFieldToBeChosen) {
  Prefs().MWFF = "No Such Family";
  Dialog().View().UpdateCompos();
  auto& menu = Find<QComboBox>("MFieldMainWinFontFamily");
  EXPECT_EQ(menu.currentIndex(), -1);
  EXPECT_EQ(menu.placeholderText(), "Select...");
  EXPECT_EQ(Prefs().MWFF, "No Such Family");
  ASSERT_GT(menu.count(), 0);
  menu.setCurrentIndex(0);
  EXPECT_EQ(Prefs().MWFF, menu.itemText(0).toStdString());
}

TEST_F(TPreferencesTest, CancelGoesBackFromDefaultsToo) {
  Type("tsvc", "7");
  Find<QComboBox>("MFieldRunWinFontFamily").setCurrentIndex(0);
  Press("ButtonDefaults");
  EXPECT_EQ(TextOf("tsvc"), "80");
  Prefs().ASvI = 44;
  Press("ButtonCancel");
  EXPECT_TRUE(Dialog().isHidden());
  EXPECT_EQ(Prefs().SVol, 80);
  EXPECT_EQ(Prefs().ASvI, 5);
  EXPECT_EQ(Prefs().RWFF, DEFAULT_RUN_FONT);
  EXPECT_EQ(TextOf("TxtCtrlAutoSaveInterval"), "5");
}

TEST_F(TPreferencesTest, OkSavesAndHides) {
  Type("tsvc", "7");
  Press("ButtonOK");
  EXPECT_TRUE(Dialog().isHidden());
  TPrefs loaded(&mPlace);
  ASSERT_EQ(loaded.LoadFromFile(), 0);
  EXPECT_EQ(loaded.SVol, 7);
}

TEST_F(TPreferencesTest, ClosingAndEscapeCancel) {
  Type("tsvc", "7");
  Dialog().close();
  EXPECT_TRUE(Dialog().isHidden());
  EXPECT_EQ(Prefs().SVol, 80);
  Dialog().Open();
  Type("tsvc", "8");
  QTest::keyClick(&Find<QLineEdit>("tsvc"), Qt::Key_Escape);
  EXPECT_TRUE(Dialog().isHidden());
  EXPECT_EQ(Prefs().SVol, 80);
}

TEST_F(TPreferencesTest, FirstStartConnectsTheSynthesiser) {
  EXPECT_EQ(Prefs().CoMO, std::vector<std::string>{BUILT_IN_SYNTH_NAME});
  EXPECT_EQ(View().Producer().CountConnections(), 1);
  TPrefs loaded(&mPlace);
  ASSERT_EQ(loaded.LoadFromFile(), 0);
  EXPECT_EQ(loaded.CoMO, Prefs().CoMO);
}

TEST_F(TPreferencesTest, MidiOutputsAreToggledAtOnceAndTakenBack) {
  auto& field = Find<QPushButton>("MFieldMidiOut");
  ASSERT_FALSE(field.menu()->actions().isEmpty());
  EXPECT_EQ(field.text(), BUILT_IN_SYNTH_NAME);
  field.menu()->actions()[0]->trigger();
  EXPECT_EQ(field.text(), "Ports...");
  EXPECT_TRUE(Until([this] { return View().Producer().CountConnections() == 0; }));
  // The change of the connection was saved; Cancel puts that right as well.
  EXPECT_TRUE(Until([this] {
    TPrefs saved(&mPlace);
    return saved.LoadFromFile() == 0 && saved.CoMO.empty();
  }));
  Press("ButtonCancel");
  EXPECT_TRUE(Until([this] { return View().Producer().CountConnections() == 1; }));
  TPrefs loaded(&mPlace);
  ASSERT_EQ(loaded.LoadFromFile(), 0);
  EXPECT_EQ(loaded.CoMO, std::vector<std::string>{BUILT_IN_SYNTH_NAME});
}

TEST_F(TPreferencesTest, OutputsThatComeAndGoAreInTheMenu) {
  TMidiRoster& roster = mApp->Preferences().MidiOutputs().Roster();
  QMenu* const menu = Find<QPushButton>("MFieldMidiOut").menu();
  const auto before = menu->actions().size();
  const int32_t id = roster.Register(std::make_shared<TNullConsumer>("A & B"));
  EXPECT_TRUE(Until([&] { return menu->actions().size() == before + 1; }));
  EXPECT_EQ(menu->actions().back()->text(), "A && B");
  menu->actions().back()->trigger();
  EXPECT_TRUE(Until([this] { return View().Producer().CountConnections() == 2; }));
  roster.Unregister(id);
  EXPECT_TRUE(Until([&] { return menu->actions().size() == before; }));
  // Its name is kept for when it comes back.
  EXPECT_EQ(Prefs().CoMO.size(), 2U);
}

TEST_F(TPreferencesTest, MidiOutputsSetElsewhereAreMarked) {
  TMidiRoster& roster = mApp->Preferences().MidiOutputs().Roster();
  auto& field = Find<QPushButton>("MFieldMidiOut");
  roster.Disconnect(View().Producer(), roster.Consumers()[0]->ID());
  EXPECT_TRUE(Until([&] { return field.text() == "Ports..."; }));
  EXPECT_FALSE(field.menu()->actions()[0]->isChecked());
}

TEST_F(TPreferencesTest, LanguageReachesTheOpenDialog) {
  mApp->SetLanguage(TLanguage::Japanese);
  EXPECT_TRUE(Until([this] { return Dialog().windowTitle() == "環境設定"; }));
  EXPECT_EQ(Find<QTabWidget>("TabView").tabText(0), "フォント");
  EXPECT_EQ(Find<QCheckBox>("cwwc").text(), "編集ウィンドウで行を折り返す(&W)");
  EXPECT_EQ(Find<QComboBox>("MFieldCompatiMode").itemText(0), "自動判別");
  const auto& outputs = Find<QPushButton>("MFieldMidiOut");
  EXPECT_EQ(outputs.text(), "内蔵シンセサイザー");
  EXPECT_EQ(outputs.menu()->actions()[0]->text(), "内蔵シンセサイザー");
  mApp->SetLanguage(TLanguage::English);
  EXPECT_TRUE(Until([this] { return Dialog().windowTitle() == "Preferences"; }));
}

TEST_F(TPreferencesTest, LabelsFollowTheAcceleratorFormat) {
  EXPECT_EQ(Find<QPushButton>("ButtonDefaults").text(), "Defaults(&D)");
  EXPECT_EQ(Find<QPushButton>("ButtonHelp").text(), "Help(F1)");
  mEngine->Context().interAppPrefs->SetString(ACC_KEY_FORMAT_ITEM, "");
  mApp->PostMessage(TMessage(IAP_CHANGED_CODE));
  EXPECT_TRUE(Until([this] { return Find<QPushButton>("ButtonDefaults").text() == "Defaults"; }));
  mApp->SetLanguage(TLanguage::Japanese);
  EXPECT_TRUE(Until([this] { return Find<QPushButton>("ButtonDefaults").text() == "初期設定"; }));
}

/// True if the label, button or box has room for its text.
bool has_room(const QWidget& widget) {
  return widget.width() >= widget.minimumSizeHint().width() &&
         widget.height() >= widget.minimumSizeHint().height();
}

TEST_F(TPreferencesTest, NoTextIsCutOffAndEveryControlHasAName) {
  auto& tabs = Find<QTabWidget>("TabView");
  for (TLanguage language : {TLanguage::English, TLanguage::Japanese}) {
    mApp->SetLanguage(language);
    ASSERT_TRUE(Until([this, language] {
      return (Dialog().windowTitle() == "Preferences") == (language == TLanguage::English);
    }));
    for (int page = 0; page < tabs.count(); ++page) {
      tabs.setCurrentIndex(page);
      QCoreApplication::processEvents();
      for (QWidget* widget : Dialog().findChildren<QWidget*>()) {
        if (!widget->isVisible()) continue;
        const auto* label = qobject_cast<QLabel*>(widget);
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        const auto* menu = qobject_cast<QComboBox*>(widget);
        if (label || button || menu) {
          EXPECT_TRUE(has_room(*widget))
              << widget->objectName().toStdString() << page << " " << widget->width() << " of "
              << widget->minimumSizeHint().width() << ", " << widget->height() << " of "
              << widget->minimumSizeHint().height();
        }
        const bool control =
            menu || qobject_cast<QLineEdit*>(widget) || qobject_cast<QSlider*>(widget);
        const bool inner =
            widget->parentWidget() && qobject_cast<QComboBox*>(widget->parentWidget());
        if (control && !inner) {
          EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
        }
      }
    }
  }
}

}  // namespace
}  // namespace zoka
