// TInterAppPrefs: the preferences that all applications of the family share, each an item with a
// file of its own in the shared folder. Their window and how they travel between applications are
// elsewhere.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/settings/iap_item.h"
#include "app/settings/settings_place.h"
#include "common/handler.h"
#include "common/message.h"
#include "common/mutex.h"

namespace zoka {

/// The items with their files. Any thread.
class TInterAppPrefs {
 public:
  /// With the items of this system, as their files have them. Without a place they have their
  /// defaults and are not stored.
  explicit TInterAppPrefs(const TSettingsPlace* place = nullptr);
  TInterAppPrefs(const TInterAppPrefs&) = delete;
  TInterAppPrefs& operator=(const TInterAppPrefs&) = delete;

  /// Adds an item and reads its file.
  void AddItem(std::unique_ptr<TIAPItem> item);

  /// Each finds the item by name; false if there is none, or by the item's own rule. Setting also
  /// saves; that this may fail is not reported.
  bool GetString(std::string_view item, std::string* value) const;
  bool SetString(std::string_view item, std::string_view value);
  bool GetBool(std::string_view item, bool* value) const;
  bool SetBool(std::string_view item, bool value);
  /// The item that the message names under "IAP:SrcIAPItem" takes the message's value.
  bool SetValue(const TMessage& message);

  /// The names of the items in their order.
  std::vector<std::string> ItemNames() const;
  /// The control of an item, and its value and its default as messages; false if there is none.
  bool Describe(std::string_view item, TIAPConfiguration* configuration, TMessage* value,
                TMessage* standard) const;
  /// Takes over what other applications have written into the files; the names of the items that
  /// have changed by it.
  std::vector<std::string> Reload();

  /// The accelerator format for merge_accelerator_key.
  std::string AccKeyFormat() const;

  /// Observers get each message in the order in which they were added.
  void AddObserver(THandlerRegistry* registry, THandlerId observer);
  void NotifyToObservers(const TMessage& message) const;

 private:
  struct TObserver {
    THandlerRegistry* registry = nullptr;
    THandlerId id;
  };

  TIAPItem* Find(std::string_view name) const;
  bool LoadItem(const std::string& name, TMessage* message) const;
  void SaveItem(std::string_view name) const;
  bool Change(std::string_view name, const std::function<bool(TIAPItem&)>& change);

  const TSettingsPlace* mPlace;
  mutable TMutex mMutex{TLockRank::Leaf};
  std::vector<std::unique_ptr<TIAPItem>> mItems;
  std::vector<TObserver> mObservers;
};

}  // namespace zoka
