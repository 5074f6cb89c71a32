// The shared preferences, their items and their files.
#include "app/settings/inter_app_prefs.h"

#include "app/settings/archivable.h"
#include "common/file_save.h"
#include "common/label.h"

namespace zoka {

namespace {

constexpr const char VALUE_KEY[] = "Value";
constexpr const char SOURCE_APP_KEY[] = "IAP:SrcApp";
constexpr const char SOURCE_ITEM_KEY[] = "IAP:SrcIAPItem";
constexpr const char ITEM_FILE_EXT[] = ".arc";

bool is_acc_key_format(std::string_view format) {
  return format.empty() || format[0] == ACC_KEY_IN_FRONT || format[0] == ACC_KEY_BEHIND;
}

}  // namespace

void add_default_info(TMessage* message, const std::string& item) {
  message->ReplaceString(SOURCE_APP_KEY, APP_SIGNATURE);
  message->ReplaceString(SOURCE_ITEM_KEY, item);
}

bool TIAPItemAccKeyFormat::GetString(std::string* value) const {
  *value = mFormat;
  return true;
}

bool TIAPItemAccKeyFormat::SetString(std::string_view value) {
  if (!is_acc_key_format(value)) return false;
  mFormat = value;
  return true;
}

bool TIAPItemAccKeyFormat::SetValue(const TMessage& message) {
  std::string format;
  return message.FindString(VALUE_KEY, &format) && SetString(format);
}

void TIAPItemAccKeyFormat::GetValue(TMessage* message) const {
  message->ReplaceString(VALUE_KEY, mFormat);
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
  return message.FindBool(VALUE_KEY, &mFlat);
}

void TIAPItemFlatToolBar::GetValue(TMessage* message) const {
  message->RemoveName(VALUE_KEY);
  message->AddBool(VALUE_KEY, mFlat);
}

TInterAppPrefs::TInterAppPrefs(const TSettingsPlace* place) : mPlace(place) {
  AddItem(std::make_unique<TIAPItemAccKeyFormat>());
  AddItem(std::make_unique<TIAPItemFlatToolBar>());
}

void TInterAppPrefs::AddItem(std::unique_ptr<TIAPItem> item) {
  std::string path;
  std::string bytes;
  TMessage message;
  if (mPlace &&
      get_settings_entry(*mPlace, SHARED_FOLDER, item->Name() + ITEM_FILE_EXT, false, &path) == 0 &&
      read_file_whole(path, MAX_SETTINGS_BYTES, &bytes) && message.Unflatten(bytes)) {
    item->SetValue(message);
  }
  TLock lock(mMutex);
  mItems.push_back(std::move(item));
}

TIAPItem* TInterAppPrefs::Find(std::string_view name) const {
  for (const auto& item : mItems) {
    if (item->Name() == name) return item.get();
  }
  return nullptr;
}

void TInterAppPrefs::SaveItem(std::string_view name) const {
  TMessage message;
  std::string path;
  {
    TLock lock(mMutex);
    Find(name)->GetValue(&message);
  }
  const std::string item(name);
  const std::string file = item + ITEM_FILE_EXT;
  add_default_info(&message, item);
  if (mPlace && get_settings_entry(*mPlace, SHARED_FOLDER, file, true, &path) == 0) {
    save_file_atomically(path, message.Flatten());
  }
}

bool TInterAppPrefs::GetString(std::string_view item, std::string* value) const {
  TLock lock(mMutex);
  const TIAPItem* found = Find(item);
  return found && found->GetString(value);
}

bool TInterAppPrefs::GetBool(std::string_view item, bool* value) const {
  TLock lock(mMutex);
  const TIAPItem* found = Find(item);
  return found && found->GetBool(value);
}

bool TInterAppPrefs::SetString(std::string_view item, std::string_view value) {
  {
    TLock lock(mMutex);
    TIAPItem* found = Find(item);
    if (!found || !found->SetString(value)) return false;
  }
  SaveItem(item);
  return true;
}

bool TInterAppPrefs::SetBool(std::string_view item, bool value) {
  {
    TLock lock(mMutex);
    TIAPItem* found = Find(item);
    if (!found || !found->SetBool(value)) return false;
  }
  SaveItem(item);
  return true;
}

bool TInterAppPrefs::SetValue(const TMessage& message) {
  std::string item;
  if (!message.FindString(SOURCE_ITEM_KEY, &item)) return false;
  {
    TLock lock(mMutex);
    TIAPItem* found = Find(item);
    if (!found || !found->SetValue(message)) return false;
  }
  SaveItem(item);
  return true;
}

std::string TInterAppPrefs::AccKeyFormat() const {
  std::string format;
  GetString(ACC_KEY_FORMAT_ITEM, &format);
  return format;
}

void TInterAppPrefs::AddObserver(THandlerRegistry* registry, THandlerId observer) {
  TLock lock(mMutex);
  mObservers.push_back({registry, observer});
}

void TInterAppPrefs::NotifyToObservers(const TMessage& message) const {
  std::vector<TObserver> observers;
  {
    TLock lock(mMutex);
    observers = mObservers;
  }
  for (const TObserver& observer : observers) observer.registry->Post(observer.id, message);
}

}  // namespace zoka
