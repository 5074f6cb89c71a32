// The items of the common preferences' window and their values.
#include "app/settings/iap_board.h"

#include <algorithm>

namespace zoka {
namespace {

constexpr const char LABEL_KEY[] = "Label";
constexpr const char LETTER_KEY[] = "Key";
constexpr const char CHOICE_VALUE_KEY[] = "ChoiceValue";
constexpr const char CHOICE_LABEL_KEY[] = "ChoiceLabel";
constexpr const char DEFAULT_KEY[] = "Default";

/// A box takes a bool, a menu one of its values.
bool is_possible(const TIAPConfiguration& configuration, const TMessage& message) {
  bool flag = false;
  if (configuration.choices.empty()) return message.FindBool(IAP_VALUE_KEY, &flag);
  std::string value;
  return message.FindString(IAP_VALUE_KEY, &value);
}

TMessage value_message(const std::string& item, const TMessage& value) {
  TMessage message(IAP_VALUE_CODE);
  add_default_info(&message, item);
  copy_iap_value(value, &message);
  return message;
}

}  // namespace

TMessage message_of_component(const TIAPComponent& component) {
  TMessage message(IAP_COMPONENT_CODE);
  add_default_info(&message, component.name);
  message.AddString(LABEL_KEY, component.configuration.label);
  message.AddString(LETTER_KEY, component.configuration.key);
  for (const TIAPChoice& choice : component.configuration.choices) {
    message.AddString(CHOICE_VALUE_KEY, choice.value);
    message.AddString(CHOICE_LABEL_KEY, choice.label);
  }
  copy_iap_value(component.Value(TIAPValue::Current), &message);
  message.AddMessage(DEFAULT_KEY, component.Value(TIAPValue::Default));
  return message;
}

bool component_of_message(const TMessage& message, TIAPComponent* component) {
  TIAPComponent read;
  TMessage standard;
  read.name = source_item(message);
  if (read.name.empty() || !message.FindString(LABEL_KEY, &read.configuration.label) ||
      !message.FindMessage(DEFAULT_KEY, &standard)) {
    return false;
  }
  message.FindString(LETTER_KEY, &read.configuration.key);
  if (read.configuration.label.size() > MAX_IAP_LABEL ||
      read.configuration.key.size() > MAX_IAP_LABEL) {
    return false;
  }
  TIAPChoice choice;
  auto& choices = read.configuration.choices;
  while (message.FindString(CHOICE_VALUE_KEY, &choice.value, choices.size()) &&
         message.FindString(CHOICE_LABEL_KEY, &choice.label, choices.size())) {
    if (choices.size() == MAX_IAP_CHOICES || choice.label.size() > MAX_IAP_LABEL) return false;
    choices.push_back(choice);
  }
  if (!is_possible(read.configuration, message) || !is_possible(read.configuration, standard)) {
    return false;
  }
  read.Value(TIAPValue::Current) = value_message(read.name, message);
  read.Value(TIAPValue::Default) = value_message(read.name, standard);
  read.Value(TIAPValue::Opened) = read.Value(TIAPValue::Current);
  *component = std::move(read);
  return true;
}

TIAPComponent* TIAPBoard::Find(const std::string& name) {
  const auto found =
      std::find_if(mComponents.begin(), mComponents.end(),
                   [&name](const TIAPComponent& component) { return component.name == name; });
  return found == mComponents.end() ? nullptr : &*found;
}

bool TIAPBoard::AddComponent(const TIAPComponent& component) {
  if (mComponents.size() >= MAX_IAP_COMPONENTS || Find(component.name)) return false;
  mComponents.push_back(component);
  return true;
}

void TIAPBoard::AddItems(const TInterAppPrefs& prefs) {
  for (const std::string& name : prefs.ItemNames()) {
    TIAPComponent component;
    TMessage value;
    TMessage standard;
    component.name = name;
    prefs.Describe(name, &component.configuration, &value, &standard);
    component.Value(TIAPValue::Opened) = value_message(name, value);
    component.Value(TIAPValue::Current) = value_message(name, value);
    component.Value(TIAPValue::Default) = value_message(name, standard);
    AddComponent(component);
  }
}

bool TIAPBoard::Change(const TMessage& value) {
  TIAPComponent* component = Find(source_item(value));
  if (!component || !is_possible(component->configuration, value)) return false;
  TMessage& current = component->Value(TIAPValue::Current);
  if (same_iap_value(current, value)) return false;
  current = value_message(component->name, value);
  return true;
}

std::vector<TMessage> TIAPBoard::SetComponents(TIAPValue which) {
  std::vector<TMessage> changed;
  for (TIAPComponent& component : mComponents) {
    const TMessage& wanted = component.Value(which);
    if (same_iap_value(wanted, component.Value(TIAPValue::Current))) continue;
    component.Value(TIAPValue::Current) = wanted;
    changed.push_back(wanted);
  }
  return changed;
}

void TIAPBoard::Keep() {
  for (TIAPComponent& component : mComponents) {
    component.Value(TIAPValue::Opened) = component.Value(TIAPValue::Current);
  }
}

}  // namespace zoka
