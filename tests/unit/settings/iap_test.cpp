// The common preferences on their way: bytes of the port, the window's items, files of others.
#include <gtest/gtest.h>

#include "app/settings/iap_board.h"
#include "app/settings/iap_wire.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

TMessage value_of(const char* item, const std::string& value) {
  TMessage message(IAP_VALUE_CODE);
  add_default_info(&message, item);
  message.AddString("Value", value);
  return message;
}

std::string text_of(const TMessage& message) {
  std::string text = "none";
  message.FindString("Value", &text);
  return text;
}

TEST(IAPWire, MessagesArriveWholeByteByByte) {
  const std::string frame = iap_frame(value_of("A", "1")) + iap_frame(value_of("B", "2"));
  TIAPFrameReader reader;
  std::string seen;
  TMessage message;
  for (char c : frame) {
    EXPECT_TRUE(reader.Add(std::string(1, c)));
    while (reader.Next(&message)) seen += source_item(message) + text_of(message);
  }
  EXPECT_EQ(seen, "A1B2");
  EXPECT_FALSE(reader.IsBroken());
}

TEST(IAPWire, LengthComesLowestByteFirst) {
  TMessage message("_ipc");
  message.AddString("Value", std::string(300, 'x'));
  const std::string flat = message.Flatten();
  const std::string frame = iap_frame(message);
  ASSERT_EQ(frame.size(), flat.size() + 4);
  EXPECT_EQ(static_cast<unsigned char>(frame[0]), flat.size() & 0xFF);
  EXPECT_EQ(static_cast<unsigned char>(frame[1]), flat.size() >> 8);
  EXPECT_EQ(frame.substr(2, 2), std::string(2, '\0'));
}

TEST(IAPWire, LimitOfSize) {
  TMessage message("_ipc");
  message.AddString("Value", "");
  const size_t empty = message.Flatten().size();
  message.ReplaceString("Value", std::string(MAX_IAP_MESSAGE - empty, 'x'));
  ASSERT_EQ(message.Flatten().size(), MAX_IAP_MESSAGE);
  TIAPFrameReader reader;
  TMessage read;
  EXPECT_TRUE(reader.Add(iap_frame(message)));
  EXPECT_TRUE(reader.Next(&read));
  message.ReplaceString("Value", std::string(MAX_IAP_MESSAGE - empty + 1, 'x'));
  EXPECT_EQ(iap_frame(message), "");
}

TEST(IAPWire, NonsenseEndsTheReading) {
  TMessage message;
  TIAPFrameReader tooLong;
  EXPECT_FALSE(tooLong.Add(std::string("\x01\x00\x01\x00", 4)));
  EXPECT_FALSE(tooLong.Next(&message));
  EXPECT_FALSE(tooLong.Add(iap_frame(value_of("A", "1"))));
  TIAPFrameReader noMessage;
  EXPECT_TRUE(noMessage.Add(std::string("\x03\x00\x00\x00xyz", 7)));
  EXPECT_FALSE(noMessage.Next(&message));
  EXPECT_TRUE(noMessage.IsBroken());
  TIAPFrameReader secondTooLong;
  EXPECT_TRUE(secondTooLong.Add(iap_frame(value_of("A", "1")) + "GET / HTTP"));
  EXPECT_TRUE(secondTooLong.Next(&message));
  EXPECT_FALSE(secondTooLong.Next(&message));
  EXPECT_TRUE(secondTooLong.IsBroken());
}

TEST(IAPWire, WhatMeansNothingElsewhereStaysBehind) {
  TMessage message = value_of("A", "1");
  message.AddMessage("NextMsg", TMessage("_QRQ"));
  message.AddHandler("NextMsgTgt", {7});
  message.AddHandler("Other", {7});
  TIAPFrameReader reader;
  TMessage read;
  ASSERT_TRUE(reader.Add(iap_frame(message)));
  ASSERT_TRUE(reader.Next(&read));
  EXPECT_EQ(read.Fields().size(), 3U);
  EXPECT_EQ(text_of(read), "1");
}

TEST(IAPBoard, ValuesGoThroughTheirThreeStates) {
  TInterAppPrefs prefs;
  TIAPBoard board;
  board.AddItems(prefs);
  ASSERT_EQ(board.Components().size(), 4U);
  const auto current = [&] { return text_of(board.Components()[0].Value(TIAPValue::Current)); };
  EXPECT_EQ(current(), "\x02(a)");
  EXPECT_TRUE(board.Change(value_of("AccKeyFormat2", "")));
  EXPECT_FALSE(board.Change(value_of("AccKeyFormat2", "")));
  EXPECT_EQ(current(), "");
  std::vector<TMessage> changed = board.SetComponents(TIAPValue::Opened);
  ASSERT_EQ(changed.size(), 1U);
  EXPECT_EQ(source_item(changed[0]), "AccKeyFormat2");
  EXPECT_EQ(changed[0].what, message_code("_ipc"));
  EXPECT_EQ(current(), "\x02(a)");
  EXPECT_TRUE(board.Change(value_of("AccKeyFormat2", "")));
  board.Keep();
  EXPECT_TRUE(board.SetComponents(TIAPValue::Opened).empty());
  EXPECT_EQ(board.SetComponents(TIAPValue::Default).size(), 1U);
  EXPECT_EQ(current(), "\x02(a)");
  EXPECT_EQ(board.SetComponents(TIAPValue::Opened).size(), 1U);
  EXPECT_EQ(current(), "");
}

TEST(IAPBoard, UnknownItemsAndWrongTypesChangeNothing) {
  TInterAppPrefs prefs;
  TIAPBoard board;
  board.AddItems(prefs);
  EXPECT_FALSE(board.Change(value_of("Nobody", "x")));
  EXPECT_FALSE(board.Change(value_of("FlatToolBar", "x")));
  TMessage flag(IAP_VALUE_CODE);
  add_default_info(&flag, "AccKeyFormat2");
  flag.AddBool("Value", true);
  EXPECT_FALSE(board.Change(flag));
  EXPECT_FALSE(board.Change(TMessage(IAP_VALUE_CODE)));
}

TEST(IAPBoard, ComponentsTravel) {
  TInterAppPrefs prefs;
  TIAPBoard board;
  board.AddItems(prefs);
  TIAPBoard other;
  for (const TIAPComponent& component : board.Components()) {
    TIAPComponent read;
    ASSERT_TRUE(component_of_message(message_of_component(component), &read));
    EXPECT_EQ(read.name, component.name);
    EXPECT_EQ(read.configuration, component.configuration);
    for (size_t i = 0; i < read.values.size(); ++i) {
      EXPECT_TRUE(same_iap_value(read.values[i], component.values[i]));
    }
    EXPECT_TRUE(other.AddComponent(read));
    EXPECT_FALSE(other.AddComponent(read));
  }
}

TEST(IAPBoard, WhatIsNoComponentIsRefused) {
  TIAPComponent read;
  EXPECT_FALSE(component_of_message(TMessage(IAP_COMPONENT_CODE), &read));
  TInterAppPrefs prefs;
  TIAPBoard board;
  board.AddItems(prefs);
  for (const char* field : {"IAP:SrcIAPItem", "Label", "Default", "Value"}) {
    TMessage message = message_of_component(board.Components()[0]);
    message.RemoveName(field);
    EXPECT_FALSE(component_of_message(message, &read)) << field;
  }
  TMessage message = message_of_component(board.Components()[0]);
  for (size_t i = 0; i < MAX_IAP_CHOICES; ++i) {
    message.AddString("ChoiceValue", "x");
    message.AddString("ChoiceLabel", "x");
  }
  EXPECT_FALSE(component_of_message(message, &read));
}

TEST(IAPItems, LanguageAndThemeHaveTheirValuesOnly) {
  TInterAppPrefs prefs;
  std::string value;
  EXPECT_TRUE(prefs.GetString("Language", &value));
  EXPECT_EQ(value, "system");
  for (const char* language : {"en", "ja", "system"}) {
    EXPECT_TRUE(prefs.SetString("Language", language));
  }
  EXPECT_FALSE(prefs.SetString("Language", "fr"));
  EXPECT_FALSE(prefs.SetString("Language", ""));
  for (const char* theme : {"light", "dark", "contrast", "system"}) {
    EXPECT_TRUE(prefs.SetString("Theme", theme));
  }
  EXPECT_FALSE(prefs.SetString("Theme", "pink"));
}

TEST(IAPItems, WhatOthersHaveStoredIsTakenOver) {
  TTempFolder folder;
  TSettingsPlace place;
  place.root = folder.Path();
  TInterAppPrefs own(&place);
  TInterAppPrefs others(&place);
  EXPECT_TRUE(own.Reload().empty());
  ASSERT_TRUE(others.SetString("Language", "ja"));
  EXPECT_EQ(own.Reload(), std::vector<std::string>{"Language"});
  EXPECT_TRUE(own.Reload().empty());
  std::string value;
  EXPECT_TRUE(own.GetString("Language", &value));
  EXPECT_EQ(value, "ja");
}

TEST(IAPItems, DamagedFilesAreSetAside) {
  TTempFolder folder;
  TSettingsPlace place;
  place.root = folder.Path();
  folder.MakeFolder("Shared");
  folder.Write("Shared/Language.arc", "nonsense");
  folder.Write("Shared/Theme.arc", std::string(1000, '\xFF'));
  TInterAppPrefs prefs(&place);
  EXPECT_EQ(*place.damaged, 2);
  EXPECT_EQ(folder.Read("Shared/Language.arc.damaged"), "nonsense");
}

}  // namespace
}  // namespace zoka
