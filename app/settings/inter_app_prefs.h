// TInterAppPrefs: the preferences that all applications of the family share, each an item with a
// file of its own in the shared folder. Their window and how they travel between applications are
// elsewhere.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/settings/settings_place.h"
#include "common/handler.h"
#include "common/message.h"
#include "common/mutex.h"

namespace zoka {

/// Names of the items.
constexpr const char ACC_KEY_FORMAT_ITEM[] = "AccKeyFormat2";
constexpr const char FLAT_TOOL_BAR_ITEM[] = "FlatToolBar";

/// The accelerator format where none is stored: behind the label, in parentheses.
constexpr std::string_view DEFAULT_ACC_KEY_FORMAT = "\x02(a)";

/// Tells this application from the others of the family.
constexpr const char APP_SIGNATURE[] = "application/x-vnd.KORUNE-ZokaBASIC";

/// One shared preference. Not locked: its owner does that.
class TIAPItem {
 public:
  explicit TIAPItem(const char* name) : mName(name) {}
  virtual ~TIAPItem() = default;

  const std::string& Name() const { return mName; }
  /// Each returns false, and changes nothing, if the item's value is of another type or is none
  /// that the item can have.
  virtual bool GetString(std::string*) const { return false; }
  virtual bool SetString(std::string_view) { return false; }
  virtual bool GetBool(bool*) const { return false; }
  virtual bool SetBool(bool) { return false; }
  /// Takes the value that a message carries, and puts it into one.
  virtual bool SetValue(const TMessage& message) = 0;
  virtual void GetValue(TMessage* message) const = 0;

 private:
  std::string mName;
};

/// How a label shows its key: see merge_accelerator_key. The empty format shows none.
class TIAPItemAccKeyFormat : public TIAPItem {
 public:
  TIAPItemAccKeyFormat() : TIAPItem(ACC_KEY_FORMAT_ITEM) {}
  bool GetString(std::string* value) const override;
  bool SetString(std::string_view value) override;
  bool SetValue(const TMessage& message) override;
  void GetValue(TMessage* message) const override;

 private:
  std::string mFormat{DEFAULT_ACC_KEY_FORMAT};
};

/// Whether tool bars are flat.
class TIAPItemFlatToolBar : public TIAPItem {
 public:
  TIAPItemFlatToolBar() : TIAPItem(FLAT_TOOL_BAR_ITEM) {}
  bool GetBool(bool* value) const override;
  bool SetBool(bool value) override;
  bool SetValue(const TMessage& message) override;
  void GetValue(TMessage* message) const override;

 private:
  bool mFlat = true;
};

/// The items with their files. Any thread.
class TInterAppPrefs {
 public:
  /// With the two items of this system, as their files have them. Without a place they have their
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
  void SaveItem(std::string_view name) const;

  const TSettingsPlace* mPlace;
  mutable TMutex mMutex{TLockRank::Leaf};
  std::vector<std::unique_ptr<TIAPItem>> mItems;
  std::vector<TObserver> mObservers;
};

/// Puts the application and the item into a message, as all messages of the items have them.
void add_default_info(TMessage* message, const std::string& item);

}  // namespace zoka
