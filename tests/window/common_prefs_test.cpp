// The common preferences between applications of the family: one window for all of them, values
// that reach all at once, and owners of the window that do not answer.
#include "app/common_prefs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QtTest/QTest>

#include "app/app_engine.h"
#include "tests/support/temp_folder.h"
#include "tests/window/waiting.h"

namespace zoka {
namespace {

TSettingsPlace place_at(const std::string& root) {
  TSettingsPlace place;
  place.root = root;
  return place;
}

/// An application of the family: its items, and what it was told of them.
class TFamilyApp final : public THandler {
 public:
  TFamilyApp(const std::string& root, const std::string& runtime, bool watches)
      : mEngine(place_at(root), TLanguage::English),
        mId(mEngine.Registry().Register(this)),
        mContext{mEngine.Context(), mEngine.Registry(), mId} {
    std::string shared;
    get_settings_entry(mEngine.Place(), SHARED_FOLDER, "", true, &shared);
    Prefs().AddObserver(&mEngine.Registry(), mId);
    mCommon = std::make_unique<TCommonPrefs>(mContext, Prefs(), runtime,
                                             watches ? shared : std::string());
  }
  ~TFamilyApp() override {
    mCommon.reset();
    mEngine.Registry().Unregister(mId);
  }

  void PostMessage(const TMessage& message) override {
    ++told;
    if (mCommon->Window()) mCommon->Window()->PostMessage(message);
  }

  TInterAppPrefs& Prefs() { return *mEngine.Context().interAppPrefs; }
  TCommonPrefs& Common() { return *mCommon; }
  bool HasVisibleWindow() { return mCommon->Window() && mCommon->Window()->isVisible(); }
  std::string Value(const char* item) {
    std::string value;
    Prefs().GetString(item, &value);
    return value;
  }
  bool IsFlat() {
    bool flat = false;
    Prefs().GetBool(FLAT_TOOL_BAR_ITEM, &flat);
    return flat;
  }
  template <typename T>
  T* Find(const char* name) {
    return mCommon->Window() ? mCommon->Window()->findChild<T*>(name) : nullptr;
  }

  int told = 0;

 private:
  TAppEngine mEngine;
  THandlerId mId;
  TWindowContext mContext;
  std::unique_ptr<TCommonPrefs> mCommon;
};

class CommonPrefs : public testing::Test {
 protected:
  std::unique_ptr<TFamilyApp> App(const char* name) {
    return std::make_unique<TFamilyApp>(folder.Path(name), Runtime(), false);
  }
  std::string Runtime() {
    folder.MakeFolder("runtime");
    std::filesystem::permissions(folder.Path("runtime"), std::filesystem::perms::owner_all);
    return folder.Path("runtime");
  }
  QString Port() { return QString::fromStdString(Runtime() + "/" + IAP_PORT_NAME); }
  static void ShowWindowOf(TFamilyApp& app) {
    app.Common().ShowWindow();
    ASSERT_TRUE(until([&] { return app.HasVisibleWindow(); }));
  }
  /// Two applications, the first with the window, the second its client.
  void StartTwo() {
    first = App("first");
    second = App("second");
    ShowWindowOf(*first);
    second->Common().ShowWindow();
    ASSERT_TRUE(until([&] { return second->Common().Role() == TIAPRole::Client; }));
  }
  static void Choose(TFamilyApp& app, const char* item, const char* value) {
    auto* const menu = app.Find<QComboBox>(item);
    ASSERT_NE(menu, nullptr) << item;
    menu->setCurrentIndex(menu->findData(QByteArray(value)));
  }

  TTempFolder folder;
  std::unique_ptr<TFamilyApp> first;
  std::unique_ptr<TFamilyApp> second;
};

TEST_F(CommonPrefs, TheSecondApplicationActivatesTheWindowOfTheFirst) {
  StartTwo();
  EXPECT_EQ(first->Common().Role(), TIAPRole::Owner);
  first->Common().Window()->ButtonOKClicked();
  EXPECT_FALSE(first->HasVisibleWindow());
  second->Common().ShowWindow();
  EXPECT_TRUE(until([&] { return first->HasVisibleWindow(); }));
  // Once the owner has answered, the second never opens one of its own.
  EXPECT_TRUE(until([&] { return !second->Common().IsAwaitingAnswer(); }));
  EXPECT_EQ(second->Common().Window(), nullptr);
  EXPECT_EQ(second->Common().Role(), TIAPRole::Client);
}

TEST_F(CommonPrefs, ItsItemsJoinThoseOfTheFirst) {
  first = App("first");
  second = App("second");
  second->Prefs().AddItem(std::make_unique<TIAPChoiceItem>(
      "Colour", TIAPConfiguration{"Colour: ", "U", {{"red", "Red"}, {"blue", "Blue"}}}));
  ShowWindowOf(*first);
  EXPECT_EQ(first->Find<QComboBox>("Colour"), nullptr);
  second->Common().ShowWindow();
  ASSERT_TRUE(until([&] { return first->Find<QComboBox>("Colour") != nullptr; }));
  EXPECT_EQ(first->Find<QComboBox>("Colour")->currentText(), "Red");
  Choose(*first, "Colour", "blue");
  EXPECT_TRUE(until([&] { return second->Value("Colour") == "blue"; }));
  EXPECT_EQ(first->Value("Colour"), "");
  // Those that the first had already are there once.
  EXPECT_EQ(first->Common().Window()->findChildren<QComboBox*>("Theme").size(), 1);
}

TEST_F(CommonPrefs, AChangeReachesBothAtOnceAndCancelTakesItBack) {
  StartTwo();
  Choose(*first, THEME_ITEM, THEME_DARK);
  first->Find<QCheckBox>(FLAT_TOOL_BAR_ITEM)->click();
  EXPECT_EQ(first->Value(THEME_ITEM), THEME_DARK);
  EXPECT_FALSE(first->IsFlat());
  EXPECT_TRUE(until([&] { return second->Value(THEME_ITEM) == THEME_DARK && !second->IsFlat(); }));
  EXPECT_EQ(first->told, 2);
  EXPECT_EQ(second->told, 2);
  first->Common().Window()->ButtonCancelClicked();
  EXPECT_EQ(first->Value(THEME_ITEM), FOLLOW_SYSTEM);
  EXPECT_TRUE(
      until([&] { return second->Value(THEME_ITEM) == FOLLOW_SYSTEM && second->IsFlat(); }));
  EXPECT_EQ(second->told, 4);
}

TEST_F(CommonPrefs, DefaultsThenCancelThenOk) {
  first = App("first");
  ASSERT_TRUE(first->Prefs().SetString(THEME_ITEM, THEME_LIGHT));
  ShowWindowOf(*first);
  auto* const theme = first->Find<QComboBox>(THEME_ITEM);
  EXPECT_EQ(theme->currentText(), "Light");
  first->Common().Window()->ButtonDefaultsClicked();
  EXPECT_EQ(first->Value(THEME_ITEM), FOLLOW_SYSTEM);
  EXPECT_EQ(theme->currentText(), "System");
  EXPECT_TRUE(first->HasVisibleWindow());
  first->Common().Window()->ButtonCancelClicked();
  EXPECT_EQ(first->Value(THEME_ITEM), THEME_LIGHT);
  ShowWindowOf(*first);
  Choose(*first, THEME_ITEM, THEME_DARK);
  first->Common().Window()->ButtonOKClicked();
  ShowWindowOf(*first);
  first->Common().Window()->ButtonCancelClicked();
  EXPECT_EQ(first->Value(THEME_ITEM), THEME_DARK);
}

TEST_F(CommonPrefs, KeysPressTheButtons) {
  first = App("first");
  ShowWindowOf(*first);
  TIAPWindow* const window = first->Common().Window();
  window->activateWindow();
  Choose(*first, THEME_ITEM, THEME_DARK);
  // Return on a button is that button's; anywhere else it is OK.
  window->findChild<QPushButton*>("ButtonCancel")->setFocus();
  QTest::keyClick(window->findChild<QPushButton*>("ButtonCancel"), Qt::Key_Return);
  EXPECT_FALSE(first->HasVisibleWindow());
  EXPECT_EQ(first->Value(THEME_ITEM), FOLLOW_SYSTEM);
  ShowWindowOf(*first);
  Choose(*first, THEME_ITEM, THEME_DARK);
  QTest::keyClick(first->Find<QComboBox>(THEME_ITEM), Qt::Key_Return);
  EXPECT_FALSE(first->HasVisibleWindow());
  EXPECT_EQ(first->Value(THEME_ITEM), THEME_DARK);
  ShowWindowOf(*first);
  Choose(*first, THEME_ITEM, THEME_LIGHT);
  QTest::keyClick(first->Find<QComboBox>(THEME_ITEM), Qt::Key_Escape);
  EXPECT_FALSE(first->HasVisibleWindow());
  EXPECT_EQ(first->Value(THEME_ITEM), THEME_DARK);
}

TEST_F(CommonPrefs, TheKeyboardGoesThroughTheItemsAndThenTheButtons) {
  first = App("first");
  ShowWindowOf(*first);
  first->Common().Window()->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(first->Common().Window()));
  const char* names[] = {ACC_KEY_FORMAT_ITEM, FLAT_TOOL_BAR_ITEM, LANGUAGE_ITEM,
                         THEME_ITEM,          "ButtonDefaults",   "ButtonCancel",
                         "ButtonOK",          ACC_KEY_FORMAT_ITEM};
  for (const char* name : names) {
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), name);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
}

TEST_F(CommonPrefs, WhenTheOwnerEndsTheNextToAskHasTheWindow) {
  StartTwo();
  first.reset();
  ASSERT_TRUE(until([&] { return second->Common().Role() == TIAPRole::None; }));
  EXPECT_FALSE(second->HasVisibleWindow());
  ShowWindowOf(*second);
  EXPECT_EQ(second->Common().Role(), TIAPRole::Owner);
  first = App("first");
  first->Common().ShowWindow();
  EXPECT_TRUE(until([&] { return first->Common().Role() == TIAPRole::Client; }));
}

TEST_F(CommonPrefs, WithoutAPortTheWindowIsThisApplicationsAlone) {
  TFamilyApp app(folder.Path("alone"), folder.Path("no such folder"), false);
  ShowWindowOf(app);
  EXPECT_EQ(app.Common().Role(), TIAPRole::Alone);
  Choose(app, LANGUAGE_ITEM, LANGUAGE_JAPANESE);
  EXPECT_EQ(app.Value(LANGUAGE_ITEM), LANGUAGE_JAPANESE);
}

TEST_F(CommonPrefs, FilesOfOthersAreReadWhereThereIsNoPort) {
  TFamilyApp writer(folder.Path("same"), "", true);
  TFamilyApp reader(folder.Path("same"), "", true);
  ShowWindowOf(reader);
  ASSERT_TRUE(writer.Prefs().SetString(THEME_ITEM, THEME_CONTRAST));
  EXPECT_TRUE(until([&] { return reader.Value(THEME_ITEM) == THEME_CONTRAST; }));
  EXPECT_TRUE(until([&] { return reader.told == 1; }));
  EXPECT_EQ(reader.Find<QComboBox>(THEME_ITEM)->currentText(), "High Contrast");
}

TEST_F(CommonPrefs, AnOwnerThatIsSilentIsDoneWithout) {
  QLocalServer silent;
  ASSERT_TRUE(silent.listen(Port()));
  first = App("first");
  QElapsedTimer time;
  time.start();
  ShowWindowOf(*first);
  EXPECT_GE(time.elapsed(), IAP_ANSWER_MS - 50);
  EXPECT_EQ(first->Common().Role(), TIAPRole::Alone);
  Choose(*first, THEME_ITEM, THEME_DARK);
  EXPECT_EQ(first->Value(THEME_ITEM), THEME_DARK);
}

TEST_F(CommonPrefs, AnOwnerThatSpeaksNonsenseIsDoneWithout) {
  QLocalServer server;
  ASSERT_TRUE(server.listen(Port()));
  QObject::connect(&server, &QLocalServer::newConnection, &server,
                   [&server] { server.nextPendingConnection()->write("nonsense, all of it"); });
  first = App("first");
  ShowWindowOf(*first);
  EXPECT_EQ(first->Common().Role(), TIAPRole::Alone);
}

/// Sends values of the theme to the owner of the port, as a client might.
class TSender {
 public:
  explicit TSender(const QString& port) {
    mSocket.connectToServer(port);
    EXPECT_TRUE(until([this] { return mSocket.state() == QLocalSocket::ConnectedState; }));
  }
  void Send(const TMessage& message) {
    const std::string frame = iap_frame(message);
    mSocket.write(frame.data(), static_cast<qint64>(frame.size()));
  }
  void SendTheme(const char* theme) {
    TMessage message(IAP_VALUE_CODE);
    add_default_info(&message, THEME_ITEM);
    message.AddString(IAP_VALUE_KEY, theme);
    Send(message);
  }

 private:
  QLocalSocket mSocket;
};

TEST_F(CommonPrefs, AFloodOfMessagesIsAFewChanges) {
  constexpr int TICK_MS = 20;
  constexpr int MESSAGES = 2000;
  constexpr int AT_ONCE = 20;
  first = App("first");
  ShowWindowOf(*first);
  TSender sender(Port());
  int sent = 0;
  QElapsedTimer time;
  int rounds = 0;
  QTimer heart;
  QObject::connect(&heart, &QTimer::timeout, &heart, [&] { ++rounds; });
  QTimer source;
  QObject::connect(&source, &QTimer::timeout, &source, [&] {
    for (int i = 0; i < AT_ONCE; ++i) sender.SendTheme(++sent % 2 ? THEME_DARK : THEME_LIGHT);
  });
  time.start();
  heart.start(0);
  source.start(0);
  ASSERT_TRUE(until([&] { return sent >= MESSAGES; }));
  source.stop();
  sender.SendTheme(THEME_CONTRAST);
  EXPECT_TRUE(until([&] { return first->Value(THEME_ITEM) == THEME_CONTRAST; }));
  // Each change writes a file and tells all windows; between two of them there is a tick.
  EXPECT_LE(first->told, time.elapsed() / TICK_MS + 1);
  EXPECT_GE(first->told, 1);
  EXPECT_GE(rounds, first->told) << "the window did nothing else between two changes";
  EXPECT_EQ(first->Find<QComboBox>(THEME_ITEM)->currentText(), "High Contrast");
}

TEST_F(CommonPrefs, ImpossibleMessagesChangeNothing) {
  first = App("first");
  ShowWindowOf(*first);
  TSender sender(Port());
  sender.SendTheme("pink");
  TMessage wrong(IAP_VALUE_CODE);
  add_default_info(&wrong, FLAT_TOOL_BAR_ITEM);
  wrong.AddString(IAP_VALUE_KEY, "true");
  sender.Send(wrong);
  sender.Send(TMessage(IAP_VALUE_CODE));
  sender.Send(TMessage(IAP_COMPONENT_CODE));
  sender.Send(TMessage("_QRQ"));
  for (int i = 0; i < 200; ++i) {
    TMessage value(IAP_VALUE_CODE);
    add_default_info(&value, "Item " + std::to_string(i));
    value.AddString(IAP_VALUE_KEY, "x");
    sender.Send(value);
  }
  // What comes behind them is heard, as soon as not too many others wait.
  TMessage flat(IAP_VALUE_CODE);
  add_default_info(&flat, FLAT_TOOL_BAR_ITEM);
  flat.AddBool(IAP_VALUE_KEY, false);
  ASSERT_TRUE(until([&] {
    sender.Send(flat);
    return !first->IsFlat();
  }));
  EXPECT_EQ(first->Value(THEME_ITEM), FOLLOW_SYSTEM);
  EXPECT_EQ(first->Find<QComboBox>(THEME_ITEM)->currentText(), "System");
}

TEST_F(CommonPrefs, ManyAndStrangeItemsLeaveTheWindowOnTheScreen) {
  first = App("first");
  ShowWindowOf(*first);
  TSender sender(Port());
  for (int i = 0; i < 100; ++i) {
    TIAPComponent component;
    component.name = "Item " + std::to_string(i);
    component.configuration.label = i % 2 ? "Label \xFF\x01 &&: " : std::string(60'000, 'W');
    TMessage value;
    value.AddBool(IAP_VALUE_KEY, true);
    component.Value(TIAPValue::Current) = value;
    component.Value(TIAPValue::Default) = value;
    sender.Send(message_of_component(component));
  }
  ASSERT_TRUE(until([&] {
    return first->Common().Window()->findChildren<QCheckBox*>().size() +
               first->Common().Window()->findChildren<QComboBox*>().size() ==
           static_cast<qsizetype>(MAX_IAP_COMPONENTS);
  }));
  EXPECT_EQ(first->Find<QCheckBox>("Item 0"), nullptr);
  EXPECT_NE(first->Find<QCheckBox>("Item 1"), nullptr);
  QCoreApplication::processEvents();
  EXPECT_LT(first->Common().Window()->width(), 1000);
  EXPECT_LT(first->Common().Window()->height(), 700);
}

}  // namespace
}  // namespace zoka
