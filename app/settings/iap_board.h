// TIAPBoard: what the window of the common preferences holds: each item's control and three values
// of it. The window's widgets, and how values reach applications, are elsewhere.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "app/settings/inter_app_prefs.h"

namespace zoka {

/// A message to all applications of the family: an item has the value that is in it.
constexpr const char IAP_VALUE_CODE[] = "_ipc";
/// An application's item, for the window: what TIAPComponent holds.
constexpr const char IAP_COMPONENT_CODE[] = "IAcp";

/// More items than fit on a screen are of no use to anybody, nor are more choices, nor labels, in
/// bytes, that are wider than a window.
constexpr size_t MAX_IAP_COMPONENTS = 16;
constexpr size_t MAX_IAP_CHOICES = 64;
constexpr size_t MAX_IAP_LABEL = 100;

/// Which value of an item.
enum class TIAPValue : uint8_t { Opened, Current, Default };

/// An item in the window.
struct TIAPComponent {
  std::string name;
  TIAPConfiguration configuration;
  /// As messages that carry the value; by TIAPValue.
  std::array<TMessage, 3> values;

  const TMessage& Value(TIAPValue which) const { return values[static_cast<size_t>(which)]; }
  TMessage& Value(TIAPValue which) { return values[static_cast<size_t>(which)]; }
};

/// The component as a message, and the other way round; false if the message holds none.
TMessage message_of_component(const TIAPComponent& component);
bool component_of_message(const TMessage& message, TIAPComponent* component);

/// The items of a window. One thread.
class TIAPBoard {
 public:
  /// Adds an item; one that is there already stays. True if it was added.
  bool AddComponent(const TIAPComponent& component);
  /// Adds the items of this application.
  void AddItems(const TInterAppPrefs& prefs);

  const std::vector<TIAPComponent>& Components() const { return mComponents; }

  /// A control, or another application, has set an item: the current value follows. Returns false,
  /// with nothing changed, for an unknown item and for a value that it has already or cannot have.
  bool Change(const TMessage& value);
  /// All items get that value of theirs. Returns the messages of those that change by it.
  std::vector<TMessage> SetComponents(TIAPValue which);
  /// What is set now is what Cancel goes back to.
  void Keep();

 private:
  TIAPComponent* Find(const std::string& name);

  std::vector<TIAPComponent> mComponents;
};

}  // namespace zoka
