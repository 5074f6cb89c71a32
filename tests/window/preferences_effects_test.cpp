// What the preferences dialog does to the rest of the application while it is open, how the
// keyboard works it, and what happens when a font or an output that was chosen is gone.
#include <QFontDatabase>
#include <QMenu>
#include <QTabWidget>
#include <algorithm>
#include <stdexcept>

#include "app/font_families.h"
#include "app/held_modifiers.h"
#include "tests/window/preferences_rig.h"

namespace zoka {
namespace {

class PreferencesEffects : public TPreferencesRig {
 protected:
  /// The page with that control is in front.
  void ShowPageOf(const char* name) {
    auto& tabs = Find<QTabWidget>("TabView");
    for (int i = 0; i < tabs.count(); ++i) {
      if (tabs.widget(i)->findChild<QWidget*>(name)) tabs.setCurrentIndex(i);
    }
  }
  QFont EditorFont() { return mApp->MainWindow().View().Edit().lexer()->font(0); }
  /// A family that is offered and is not the one in use.
  QString OtherFamily() {
    for (const QString& family : fixed_pitch_families()) {
      if (family.toStdString() != Prefs().MWFF && family.toStdString() != Prefs().RWFF) {
        return family;
      }
    }
    throw std::runtime_error("the system has too few fonts for this test");
  }
};

TEST_F(PreferencesEffects, CancelAfterChangingTheFontRestoresItInAllWindows) {
  const QFont before = EditorFont();
  const QString other = OtherFamily();
  Find<QComboBox>("MFieldMainWinFontFamily").setCurrentText(other);
  EXPECT_TRUE(Until([&] { return EditorFont().family() == other; }));
  Find<QComboBox>("MFieldRunWinFontFamily").setCurrentText(other);
  Find<QComboBox>("MFieldDebugWinFontFamily").setCurrentText(other);
  EXPECT_EQ(Prefs().RWFF, other.toStdString());
  EXPECT_EQ(Prefs().DWFF, other.toStdString());
  Press("ButtonCancel");
  EXPECT_TRUE(Until([&] { return EditorFont().family() == before.family(); }));
  EXPECT_EQ(Prefs().RWFF, DEFAULT_RUN_FONT);
  EXPECT_EQ(Prefs().DWFF, DEFAULT_EDIT_FONT);
}

TEST_F(PreferencesEffects, ATypedSizeIsDrawnOnceTheTypingHasEnded) {
  const qreal before = EditorFont().pointSizeF();
  TClock& clock = *mEngine->Context().clock;
  const bigtime_t typed = clock.system_time();
  Type("tmfc", "20");
  EXPECT_EQ(Prefs().MWFS, 20);
  EXPECT_TRUE(Until([&] { return EditorFont().pointSizeF() != before; }));
  EXPECT_GE(clock.system_time() - typed, PREFS_DELAY);
  EXPECT_EQ(EditorFont().pointSizeF(), 20);
  Press("ButtonCancel");
  EXPECT_TRUE(Until([&] { return EditorFont().pointSizeF() == before; }));
}

TEST_F(PreferencesEffects, OkIsSaidInTheStatusBar) {
  Press("ButtonOK");
  EXPECT_TRUE(Until(
      [this] { return mApp->MainWindow().StatusText().trimmed() == "Preferences changed."; }));
}

TEST_F(PreferencesEffects, WordWrapFollowsAtOnce) {
  const auto wraps = [this] {
    return mApp->MainWindow().View().Edit().wrapMode() != QsciScintilla::WrapNone;
  };
  EXPECT_FALSE(wraps());
  Find<QCheckBox>("cwwc").click();
  EXPECT_TRUE(Until(wraps));
  Press("ButtonCancel");
  EXPECT_TRUE(Until([&] { return !wraps(); }));
}

TEST_F(PreferencesEffects, TheEncodingOfTheOpenPanelFollows) {
  mApp->MainWindow().MessageReceived(TMessage("_opn"));
  QComboBox* const encoding = mApp->MainWindow().OpenPanel()->Encoding();
  EXPECT_EQ(encoding->currentIndex(), 0);
  Find<QComboBox>("MFieldDefaultEncoding").setCurrentIndex(3);
  EXPECT_TRUE(Until([&] { return encoding->currentIndex() == 3; }));
  Press("ButtonCancel");
  EXPECT_TRUE(Until([&] { return encoding->currentIndex() == 0; }));
}

TEST_F(PreferencesEffects, EachControlStandsOnItsTabInOrder) {
  const std::pair<int, std::vector<const char*>> pages[] = {
      {0,
       {"MFieldMainWinFontFamily", "tmfc", "MFieldRunWinFontFamily", "trfc",
        "MFieldDebugWinFontFamily", "tdfc"}},
      {1,
       {"MFieldDefaultEncoding", "cc9c", "cwwc", "CBoxAutoSaveRegular", "TxtCtrlAutoSaveInterval",
        "CBoxAutoSaveBeforeRun"}},
      {2, {"MFieldMidiOut", "tmlc", "tsvc"}},
      {3, {"cssc", "cbsc", "cscc", "sscc", "tscc", "MFieldCompatiMode"}}};
  auto& tabs = Find<QTabWidget>("TabView");
  for (const auto& [page, names] : pages) {
    tabs.setCurrentIndex(page);
    run_event_rounds();
    QPoint last(-1, -1);
    for (const char* name : names) {
      ASSERT_TRUE(Find<QWidget>(name).isVisibleTo(&Dialog())) << name;
      const QPoint place = Find<QWidget>(name).mapTo(&Dialog(), QPoint(0, 0));
      // Rows from above, and in a row from the left.
      EXPECT_TRUE(place.y() > last.y() + 8 || place.x() > last.x()) << name;
      last = place;
    }
  }
  const QWidget* const buttons = &Find<QWidget>("ButtonContainer");
  for (const char* name : {"ButtonHelp", "ButtonDefaults", "ButtonCancel", "ButtonOK"}) {
    EXPECT_EQ(Find<QPushButton>(name).parentWidget(), buttons);
  }
}

TEST_F(PreferencesEffects, LettersLeadToTheirControls) {
  const std::pair<const char*, const char*> rows[] = {
      {"MFieldMainWinFontFamily", "Main Window(&M): "},
      {"MFieldRunWinFontFamily", "Run Window(&R): "},
      {"MFieldDebugWinFontFamily", "Debug Window(&B): "},
      {"tmfc", "Size(&1): "},
      {"trfc", "Size(&2): "},
      {"tdfc", "Size(&3): "},
      {"MFieldDefaultEncoding", "Default Encoding(&N): "},
      {"MFieldMidiOut", "MIDI OUT(&O): "},
      {"tmlc", "MIDI Latency (&L)[ms]: "},
      {"tsvc", "SSG Volume (&S)[%]: "},
      {"MFieldCompatiMode", "Compatibility Mode(&C): "}};
  for (const auto& [name, text] : rows) {
    const QWidget* const control = &Find<QWidget>(name);
    const auto labels = Dialog().findChildren<QLabel*>();
    const auto label = std::find_if(labels.begin(), labels.end(),
                                    [&](const QLabel* l) { return l->buddy() == control; });
    ASSERT_NE(label, labels.end()) << name;
    EXPECT_EQ((*label)->text().toStdString(), text);
  }
  const std::pair<const char*, const char*> boxes[] = {
      {"cc9c", "Convert PC-98 peculiar characters to standbies (JIS only)(&9)"},
      {"cwwc", "Word wrap in edit window(&W)"},
      {"CBoxAutoSaveRegular", "Save every (&I)"},
      {"CBoxAutoSaveBeforeRun", "Save before run"},
      {"cssc", "Show splash window(&P)"},
      {"cbsc", "Break at start (using debugger)"},
      {"cscc", "Control running speed"}};
  for (const auto& [name, text] : boxes) {
    EXPECT_EQ(Find<QCheckBox>(name).text().toStdString(), text);
  }
  ShowPageOf("tsvc");
  QTest::keyClick(&Dialog(), Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(Find<QLineEdit>("tsvc").hasFocus());
  QTest::keyClick(&Dialog(), Qt::Key_L, Qt::AltModifier);
  EXPECT_TRUE(Find<QLineEdit>("tmlc").hasFocus());
  Type("tmlc", "7");
  QTest::keyClick(&Dialog(), Qt::Key_D, Qt::AltModifier);
  // A button that is pressed by its letter is shown pressed for a moment.
  EXPECT_TRUE(Until([this] { return Find<QLineEdit>("tmlc").text() == "50"; }));
}

TEST_F(PreferencesEffects, ReturnPressesTheButtonWithTheFocusAndElsewhereOk) {
  Type("tsvc", "7");
  Find<QPushButton>("ButtonDefaults").setFocus();
  QTest::keyClick(&Find<QPushButton>("ButtonDefaults"), Qt::Key_Return);
  EXPECT_TRUE(Dialog().isVisible());
  EXPECT_EQ(Prefs().SVol, 80);
  Type("tsvc", "8");
  QTest::keyClick(&Find<QPushButton>("ButtonCancel"), Qt::Key_Enter);
  EXPECT_FALSE(Dialog().isVisible());
  EXPECT_EQ(Prefs().SVol, 80);
  Dialog().Open();
  Type("tsvc", "9");
  QTest::keyClick(&Find<QLineEdit>("tsvc"), Qt::Key_Return);
  EXPECT_FALSE(Dialog().isVisible());
  EXPECT_EQ(Prefs().SVol, 9);
}

TEST_F(PreferencesEffects, AnyTextInAnyFieldIsBroughtIntoItsRange) {
  struct TField {
    const char* name;
    double least;
    double greatest;
    std::function<double()> value;
  };
  const TField fields[] = {
      {"tmfc", 5, 50, [this] { return Prefs().MWFS.load(); }},
      {"trfc", 5, 50, [this] { return Prefs().RWFS.load(); }},
      {"tdfc", 5, 50, [this] { return Prefs().DWFS.load(); }},
      {"TxtCtrlAutoSaveInterval", 1, 99, [this] { return Prefs().ASvI.load(); }},
      {"tmlc", 0, 3'000'000, [this] { return Prefs().MDly.load(); }},
      {"tsvc", 0, 200, [this] { return Prefs().SVol.load(); }},
      {"tscc", 100, 10'000'000, [this] { return Prefs().SpCI.load(); }}};
  const QString nonsense[] = {
      "",     "abc",    "-1",   "1e400", "-1e400", "nan", "inf",
      "0x10", "１２３", "\x01", "9,5",   "+7",     "  8", QString(70'000, '9'),
      "1e-9", "あ 12",  "--3",  ".5.5"};
  for (const TField& field : fields) {
    for (const QString& text : nonsense) {
      Find<QLineEdit>(field.name).setText(text);
      EXPECT_GE(field.value(), field.least) << field.name << " " << text.left(20).toStdString();
      EXPECT_LE(field.value(), field.greatest) << field.name << " " << text.left(20).toStdString();
    }
    Find<QLineEdit>(field.name).setText(QString::number(field.greatest + 1, 'f', 0) + "0000");
    EXPECT_EQ(field.value(), field.greatest) << field.name;
  }
}

TEST_F(PreferencesEffects, AnOutputThatGoesWhileItsMenuIsOpenIsNotConnected) {
  TMidiRoster& roster = mApp->Preferences().MidiOutputs().Roster();
  QMenu* const menu = Find<QPushButton>("MFieldMidiOut").menu();
  const auto before = menu->actions().size();
  const int32_t id = roster.Register(std::make_shared<TNullConsumer>("Going"));
  ASSERT_TRUE(Until([&] { return menu->actions().size() == before + 1; }));
  ShowPageOf("MFieldMidiOut");
  menu->popup(QPoint(0, 0));
  QAction* const item = menu->actions().back();
  const std::vector<std::string> wanted = Prefs().CoMO;
  // The choice comes before the news that it is gone.
  roster.Unregister(id);
  item->trigger();
  EXPECT_EQ(Prefs().CoMO, wanted);
  EXPECT_TRUE(Until([&] { return menu->actions().size() == before; }));
  menu->hide();
  EXPECT_EQ(View().Producer().CountConnections(), 1);
}

/// An application with preferences that were stored before it started.
class StoredPreferences : public testing::Test {
 protected:
  StoredPreferences() { mPlace.root = mFolder.Path("settings"); }
  void Start() {
    mEngine = std::make_unique<TAppEngine>(mPlace, TLanguage::English);
    mApp = std::make_unique<TBasicApp>(*mEngine);
    mApp->ReadyToRun("");
  }
  TTempFolder mFolder;
  TSettingsPlace mPlace;
  std::unique_ptr<TAppEngine> mEngine;
  std::unique_ptr<TBasicApp> mApp;
};

TEST_F(StoredPreferences, AFontAndAnOutputThatAreGoneDoNoHarm) {
  TPrefs stored(&mPlace);
  stored.MWFF = stored.RWFF = stored.DWFF = "No Such Family";
  stored.CoMO = {"No Such Output"};
  ASSERT_EQ(stored.SaveToFile(), 0);
  Start();
  // Columns still stand under each other.
  const QFont font = mApp->MainWindow().View().Edit().lexer()->font(0);
  EXPECT_TRUE(QFontDatabase::hasFamily(font.family())) << font.family().toStdString();
  const QFontMetrics metrics(font);
  EXPECT_EQ(metrics.horizontalAdvance("iiii"), metrics.horizontalAdvance("WWWW"));
  mApp->RunWindow().Appear();
  mApp->MainWindow().View().Edit().Set("PRINT \"HELLO\":PLAY \"C\"");
  mApp->MainWindow().Run();
  EXPECT_TRUE(until([&] {
    return mApp->RunWindow().RunView()->Rsrc().ScreenText().find("HELLO") != std::string::npos;
  }));
  mApp->MainWindow().Kill();
  // What was chosen is kept for when it is there again.
  EXPECT_EQ(mEngine->Context().prefs->MWFF, "No Such Family");
  EXPECT_EQ(mEngine->Context().prefs->CoMO, std::vector<std::string>{"No Such Output"});
}

TEST_F(StoredPreferences, FourKeysHeldAtTheStartGiveTheDefaults) {
  TPrefs stored(&mPlace);
  stored.SVol = 7;
  ASSERT_EQ(stored.SaveToFile(), 0);
  mPlace.modifiers = [] {
    return settings_modifiers(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier |
                              Qt::MetaModifier);
  };
  Start();
  EXPECT_EQ(mEngine->Context().prefs->SVol, 80);
  EXPECT_FALSE(mEngine->Context().prefs->HasFile());
}

TEST(HeldModifiers, AreOneKeyEach) {
  EXPECT_EQ(settings_modifiers(Qt::NoModifier), 0U);
  EXPECT_EQ(settings_modifiers(Qt::ShiftModifier), 1U);
  EXPECT_EQ(settings_modifiers(Qt::ControlModifier), 2U);
  EXPECT_EQ(settings_modifiers(Qt::MetaModifier), 4U);
  EXPECT_EQ(settings_modifiers(Qt::AltModifier), 0x40U);
  EXPECT_EQ(settings_modifiers(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier |
                               Qt::MetaModifier | Qt::KeypadModifier),
            71U);
  EXPECT_EQ(held_modifiers(), 0U);
}

TEST_F(StoredPreferences, ADamagedHistoryIsSetAside) {
  mFolder.MakeFolder("settings");
  mFolder.MakeFolder("settings/ZokaBASIC");
  mFolder.Write("settings/ZokaBASIC/ZokaBASIC_MRUF.arc", "nonsense");
  Start();
  EXPECT_EQ(mFolder.Read("settings/ZokaBASIC/ZokaBASIC_MRUF.arc.damaged"), "nonsense");
  EXPECT_EQ(mApp->MainWindow().History().CountMRUFs(), 0);
  EXPECT_EQ(*mEngine->Place().damaged, 1);
}

}  // namespace
}  // namespace zoka
