// The shared preferences, and the alerts that take their labels from them.
#include <gtest/gtest.h>

#include "app/settings/inter_app_prefs.h"
#include "app/settings/show_alert.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

class InterAppPrefs : public testing::Test {
 protected:
  InterAppPrefs() { place.root = folder.Path(); }
  TTempFolder folder;
  TSettingsPlace place;
};

TEST_F(InterAppPrefs, Defaults) {
  TInterAppPrefs prefs;
  EXPECT_EQ(prefs.AccKeyFormat(), "\x02(a)");
  bool flat = false;
  EXPECT_TRUE(prefs.GetBool("FlatToolBar", &flat));
  EXPECT_TRUE(flat);
  std::string text = "kept";
  EXPECT_FALSE(prefs.GetString("FlatToolBar", &text));
  EXPECT_FALSE(prefs.GetString("None", &text));
  EXPECT_FALSE(prefs.GetBool("AccKeyFormat2", &flat));
  EXPECT_FALSE(prefs.SetBool("AccKeyFormat2", false));
  EXPECT_FALSE(prefs.SetString("FlatToolBar", ""));
  EXPECT_FALSE(prefs.SetString("None", ""));
  EXPECT_EQ(text, "kept");
}

TEST_F(InterAppPrefs, EachItemHasItsFile) {
  TInterAppPrefs prefs(&place);
  EXPECT_TRUE(prefs.SetString("AccKeyFormat2", ""));
  EXPECT_TRUE(prefs.SetBool("FlatToolBar", false));
  TMessage message;
  ASSERT_TRUE(message.Unflatten(folder.Read("Shared/AccKeyFormat2.arc")));
  std::string text;
  EXPECT_TRUE(message.FindString("IAP:SrcApp", &text));
  EXPECT_EQ(text, "application/x-vnd.KORUNE-ZokaBASIC");
  EXPECT_TRUE(message.FindString("IAP:SrcIAPItem", &text));
  EXPECT_EQ(text, "AccKeyFormat2");
  TInterAppPrefs loaded(&place);
  EXPECT_EQ(loaded.AccKeyFormat(), "");
  bool flat = true;
  EXPECT_TRUE(loaded.GetBool("FlatToolBar", &flat));
  EXPECT_FALSE(flat);
}

TEST_F(InterAppPrefs, WhatOtherVersionsHaveStoredInItsFileStays) {
  TMessage message;
  message.AddString("Value", "");
  message.AddInt32("Futr", 7);
  folder.MakeFolder("Shared");
  folder.Write("Shared/AccKeyFormat2.arc", message.Flatten());
  TInterAppPrefs prefs(&place);
  EXPECT_TRUE(prefs.SetString("AccKeyFormat2", "\x02[a]"));
  TMessage saved;
  ASSERT_TRUE(saved.Unflatten(folder.Read("Shared/AccKeyFormat2.arc")));
  std::string text;
  EXPECT_TRUE(saved.FindString("Value", &text));
  EXPECT_EQ(text, "\x02[a]");
  EXPECT_FALSE(saved.FindString("Value", &text, 1));
  int32_t number = 0;
  EXPECT_TRUE(saved.FindInt32("Futr", &number));
  EXPECT_EQ(number, 7);
}

TEST_F(InterAppPrefs, ImpossibleValuesAreRefused) {
  TInterAppPrefs prefs(&place);
  EXPECT_FALSE(prefs.SetString("AccKeyFormat2", "\x03(a)"));
  const std::string longest = "\x02" + std::string(31, 'a');
  EXPECT_TRUE(prefs.SetString("AccKeyFormat2", longest));
  EXPECT_FALSE(prefs.SetString("AccKeyFormat2", longest + "a"));
  EXPECT_EQ(prefs.AccKeyFormat(), longest);
  folder.MakeFolder("Shared");
  folder.Write("Shared/AccKeyFormat2.arc", "no message");
  EXPECT_EQ(TInterAppPrefs(&place).AccKeyFormat(), "\x02(a)");
  TMessage message;
  message.AddString("Value", "(a)");
  folder.Write("Shared/AccKeyFormat2.arc", message.Flatten());
  EXPECT_EQ(TInterAppPrefs(&place).AccKeyFormat(), "\x02(a)");
}

TEST_F(InterAppPrefs, MessageSetsItsItem) {
  TInterAppPrefs prefs;
  TMessage message;
  EXPECT_FALSE(prefs.SetValue(message));
  add_default_info(&message, "AccKeyFormat2");
  EXPECT_FALSE(prefs.SetValue(message));
  message.AddString("Value",
                    "\x01"
                    "a) ");
  EXPECT_TRUE(prefs.SetValue(message));
  EXPECT_EQ(prefs.AccKeyFormat(),
            "\x01"
            "a) ");
}

class TObserverLog : public THandler {
 public:
  TObserverLog(std::string* log, const char* name) : mLog(log), mName(name) {}
  void PostMessage(const TMessage&) override { *mLog += mName; }

 private:
  std::string* mLog;
  const char* mName;
};

TEST_F(InterAppPrefs, ObserversAreToldInOrder) {
  THandlerRegistry registry;
  std::string log;
  TObserverLog first(&log, "1");
  TObserverLog second(&log, "2");
  TInterAppPrefs prefs;
  const THandlerId two = registry.Register(&second);
  prefs.AddObserver(&registry, two);
  prefs.AddObserver(&registry, registry.Register(&first));
  prefs.NotifyToObservers(TMessage("_ipc"));
  registry.Unregister(two);
  prefs.NotifyToObservers(TMessage("_ipc"));
  EXPECT_EQ(log, "211");
}

/// Keeps the alert and answers with its Escape button.
class TAlertLog : public TAlertHost {
 public:
  int ShowAlert(const TAlert& shown, TThread*) override {
    alert = shown;
    return shown.escapeIndex;
  }
  TAlert alert;
};

TEST_F(InterAppPrefs, AlertsTakeTheirLabelsFromThem) {
  TCatalogue catalogue;
  TAlertLog host;
  TInterAppPrefs prefs;
  TEngineContext context;
  context.catalogue = &catalogue;
  EXPECT_EQ(show_alert(context, "text", {{"Understand", "U"}}, 0, nullptr), -1);
  context.alertHost = &host;
  show_fault_alert(context, "text\n", nullptr);
  EXPECT_EQ(alert_bytes(host.alert), "text\n\n\n* Zoka-BASIC *\n");
  EXPECT_EQ(host.alert.buttons, (std::vector<std::string>{"Understand(U)"}));
  context.interAppPrefs = &prefs;
  prefs.SetString("AccKeyFormat2", "");
  EXPECT_EQ(show_alert(context, "text", {{"Line: %Num%", ""}, {"Understand", "U"}}, 1, nullptr), 1);
  EXPECT_EQ(host.alert.buttons, (std::vector<std::string>{"Line: %Num%", "Understand"}));
  prefs.SetString("AccKeyFormat2",
                  "\x01"
                  "a - ");
  EXPECT_EQ(merged_label(context, "Understand", "U"), "U - Understand");
}

}  // namespace
}  // namespace zoka
