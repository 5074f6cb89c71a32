// Values and controls of the shared preferences.
#include "app/settings/iap_item.h"

#include <algorithm>

#include "common/label.h"

namespace zoka {
namespace {

/// Longer formats, in bytes, would leave the labels no room.
constexpr size_t MAX_ACC_KEY_FORMAT = 32;

constexpr const char SOURCE_APP_KEY[] = "IAP:SrcApp";
constexpr const char SOURCE_ITEM_KEY[] = "IAP:SrcIAPItem";

constexpr const char IN_FRONT_PARENTHESIS[] =
    "\x01"
    "a) ";
constexpr const char IN_FRONT_DOT[] =
    "\x01"
    "a・";
constexpr const char IN_FRONT_DASH[] =
    "\x01"
    "a - ";

/// A format's entry in the menu shows its pattern without the byte of the place.
TIAPChoice format_choice(std::string_view format) {
  return {std::string(format), std::string(format.substr(1))};
}

}  // namespace

void add_default_info(TMessage* message, const std::string& item) {
  message->ReplaceString(SOURCE_APP_KEY, APP_SIGNATURE);
  message->ReplaceString(SOURCE_ITEM_KEY, item);
}

std::string source_item(const TMessage& message) {
  std::string item;
  message.FindString(SOURCE_ITEM_KEY, &item);
  return item;
}

bool same_iap_value(const TMessage& a, const TMessage& b) {
  TMessage left;
  TMessage right;
  copy_iap_value(a, &left);
  copy_iap_value(b, &right);
  return left.Flatten() == right.Flatten();
}

void copy_iap_value(const TMessage& from, TMessage* to) {
  to->RemoveName(IAP_VALUE_KEY);
  for (const TMessage::TField& field : from.Fields()) {
    if (field.name == IAP_VALUE_KEY) to->AddField(field);
  }
}

bool TIAPStringItem::GetString(std::string* value) const {
  *value = mValue;
  return true;
}

bool TIAPStringItem::SetString(std::string_view value) {
  if (!IsPossible(value)) return false;
  mValue = value;
  return true;
}

bool TIAPStringItem::SetValue(const TMessage& message) {
  std::string value;
  return message.FindString(IAP_VALUE_KEY, &value) && SetString(value);
}

void TIAPStringItem::GetValue(TMessage* message) const {
  message->ReplaceString(IAP_VALUE_KEY, mValue);
}

void TIAPStringItem::GetDefault(TMessage* message) const {
  message->ReplaceString(IAP_VALUE_KEY, mDefault);
}

bool TIAPItemAccKeyFormat::IsPossible(std::string_view value) const {
  if (value.empty()) return true;
  return value.size() <= MAX_ACC_KEY_FORMAT &&
         (value[0] == ACC_KEY_IN_FRONT || value[0] == ACC_KEY_BEHIND);
}

TIAPConfiguration TIAPItemAccKeyFormat::Configuration() const {
  return {"Accelerator Format: ",
          "A",
          {{"", "(None)"},
           format_choice(DEFAULT_ACC_KEY_FORMAT),
           format_choice(IN_FRONT_PARENTHESIS),
           format_choice(IN_FRONT_DOT),
           format_choice(IN_FRONT_DASH)}};
}

bool TIAPItemFlatToolBar::GetBool(bool* value) const {
  *value = mFlat;
  return true;
}

bool TIAPItemFlatToolBar::SetBool(bool value) {
  mFlat = value;
  return true;
}

bool TIAPItemFlatToolBar::SetValue(const TMessage& message) {
  return message.FindBool(IAP_VALUE_KEY, &mFlat);
}

void TIAPItemFlatToolBar::GetValue(TMessage* message) const {
  message->RemoveName(IAP_VALUE_KEY);
  message->AddBool(IAP_VALUE_KEY, mFlat);
}

void TIAPItemFlatToolBar::GetDefault(TMessage* message) const {
  TIAPItemFlatToolBar().GetValue(message);
}

TIAPConfiguration TIAPItemFlatToolBar::Configuration() const {
  return {"Flat tool bars", "F", {}};
}

TIAPChoiceItem::TIAPChoiceItem(const char* name, TIAPConfiguration configuration)
    : TIAPStringItem(name, configuration.choices.at(0).value),
      mConfiguration(std::move(configuration)) {}

bool TIAPChoiceItem::IsPossible(std::string_view value) const {
  return std::any_of(mConfiguration.choices.begin(), mConfiguration.choices.end(),
                     [value](const TIAPChoice& choice) { return choice.value == value; });
}

std::unique_ptr<TIAPItem> make_language_item() {
  // Each language is named in itself, so that it is found again from any other.
  const TIAPConfiguration configuration{
      "Language: ",
      "L",
      {{FOLLOW_SYSTEM, "System"}, {LANGUAGE_ENGLISH, "English"}, {LANGUAGE_JAPANESE, "日本語"}}};
  return std::make_unique<TIAPChoiceItem>(LANGUAGE_ITEM, configuration);
}

std::unique_ptr<TIAPItem> make_theme_item() {
  const TIAPConfiguration configuration{"Theme: ",
                                        "T",
                                        {{FOLLOW_SYSTEM, "System"},
                                         {THEME_LIGHT, "Light"},
                                         {THEME_DARK, "Dark"},
                                         {THEME_CONTRAST, "High Contrast"}}};
  return std::make_unique<TIAPChoiceItem>(THEME_ITEM, configuration);
}

}  // namespace zoka
