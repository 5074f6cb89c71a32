// The shared preferences, their items and their files.
#include "app/settings/inter_app_prefs.h"

#include <unistd.h>

#include "app/settings/archivable.h"
#include "common/file_save.h"

namespace zoka {

namespace {

constexpr const char ITEM_FILE_EXT[] = ".arc";

}  // namespace

TInterAppPrefs::TInterAppPrefs(const TSettingsPlace* place) : mPlace(place) {
  AddItem(std::make_unique<TIAPItemAccKeyFormat>());
  AddItem(std::make_unique<TIAPItemFlatToolBar>());
  AddItem(make_language_item());
  AddItem(make_theme_item());
}

void TInterAppPrefs::AddItem(std::unique_ptr<TIAPItem> item) {
  TMessage message;
  if (LoadItem(item->Name(), &message)) item->SetValue(message);
  TLock lock(mMutex);
  mItems.push_back(std::move(item));
}

bool TInterAppPrefs::LoadItem(const std::string& name, TMessage* message) const {
  std::string path;
  std::string bytes;
  if (!mPlace ||
      get_settings_entry(*mPlace, SHARED_FOLDER, name + ITEM_FILE_EXT, false, &path) != 0) {
    return false;
  }
  if (read_file_whole(path, MAX_SETTINGS_BYTES, &bytes) && message->Unflatten(bytes)) return true;
  set_aside_if_damaged(*mPlace, path);
  return false;
}

TIAPItem* TInterAppPrefs::Find(std::string_view name) const {
  for (const auto& item : mItems) {
    if (item->Name() == name) return item.get();
  }
  return nullptr;
}

void TInterAppPrefs::SaveItem(std::string_view name) const {
  const std::string item(name);
  TMessage message;
  std::string path;
  // What other versions have put there stays.
  LoadItem(item, &message);
  {
    TLock lock(mMutex);
    Find(name)->GetValue(&message);
  }
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

bool TInterAppPrefs::Change(std::string_view name, const std::function<bool(TIAPItem&)>& change) {
  TMessage before;
  TMessage after;
  {
    TLock lock(mMutex);
    TIAPItem* found = Find(name);
    if (!found) return false;
    found->GetValue(&before);
    if (!change(*found)) return false;
    found->GetValue(&after);
  }
  std::string path;
  const std::string file = std::string(name) + ITEM_FILE_EXT;
  // What is the same and stored already need not be written again, however often it is said.
  const bool stored = mPlace &&
                      get_settings_entry(*mPlace, SHARED_FOLDER, file, false, &path) == 0 &&
                      access(path.c_str(), F_OK) == 0;
  if (!stored || !same_iap_value(before, after)) SaveItem(name);
  return true;
}

bool TInterAppPrefs::SetString(std::string_view item, std::string_view value) {
  return Change(item, [value](TIAPItem& found) { return found.SetString(value); });
}

bool TInterAppPrefs::SetBool(std::string_view item, bool value) {
  return Change(item, [value](TIAPItem& found) { return found.SetBool(value); });
}

bool TInterAppPrefs::SetValue(const TMessage& message) {
  return Change(source_item(message),
                [&message](TIAPItem& found) { return found.SetValue(message); });
}

std::vector<std::string> TInterAppPrefs::ItemNames() const {
  TLock lock(mMutex);
  std::vector<std::string> names;
  for (const auto& item : mItems) names.push_back(item->Name());
  return names;
}

bool TInterAppPrefs::Describe(std::string_view item, TIAPConfiguration* configuration,
                              TMessage* value, TMessage* standard) const {
  TLock lock(mMutex);
  const TIAPItem* found = Find(item);
  if (!found) return false;
  *configuration = found->Configuration();
  found->GetValue(value);
  found->GetDefault(standard);
  return true;
}

std::vector<std::string> TInterAppPrefs::Reload() {
  std::vector<std::string> changed;
  for (const std::string& name : ItemNames()) {
    TMessage stored;
    if (!LoadItem(name, &stored)) continue;
    TLock lock(mMutex);
    TMessage before;
    TMessage after;
    TIAPItem* found = Find(name);
    found->GetValue(&before);
    if (!found->SetValue(stored)) continue;
    found->GetValue(&after);
    if (!same_iap_value(before, after)) changed.push_back(name);
  }
  return changed;
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
