// Saving and loading records.
#include "app/settings/archivable.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

#include "common/file_save.h"

namespace zoka {

namespace {

/// More fields that a record does not know are not kept: no version ever wrote so many.
constexpr size_t MAX_UNKNOWN_FIELDS = 1000;

/// Where the next damaged file of that path goes.
std::string set_aside_path(const std::string& path) {
  std::string aside = path + SET_ASIDE_EXT;
  for (int32_t i = 2; i <= MAX_SET_ASIDE && access(aside.c_str(), F_OK) == 0; ++i) {
    aside = path + SET_ASIDE_EXT + std::to_string(i);
  }
  return aside;
}

}  // namespace

int32_t TArchivable::Save(const std::string& path) const {
  TMessage message;
  if (Archive(&message) != 0) {
    // Meant: what could not be put together leaves an empty file, which the next start ignores.
    save_file_atomically(path, "");
    return -1;
  }
  for (const TMessage::TField& field : mUnknown.Fields()) message.AddField(field);
  return save_file_atomically(path, message.Flatten()) ? 0 : -1;
}

int32_t TArchivable::Load(const std::string& path) {
  std::string bytes;
  TMessage message;
  if (!read_file_whole(path, MAX_SETTINGS_BYTES, &bytes) || !message.Unflatten(bytes)) return -1;
  Unarchive(message);
  mUnknown = TMessage();
  for (const TMessage::TField& field : message.Fields()) {
    if (mUnknown.Fields().size() == MAX_UNKNOWN_FIELDS) break;
    if (!KnowsField(field.name)) mUnknown.AddField(field);
  }
  return 0;
}

int32_t TKORUNEArchivable::SaveByName(const char* folder, const char* file) const {
  std::string path;
  if (!mPlace || mPlace->AreResetModifiersHeld()) return -1;
  if (get_settings_entry(*mPlace, folder, file, true, &path) != 0) return -1;
  return Save(path);
}

int32_t TKORUNEArchivable::LoadByName(const char* folder, const char* file) {
  std::string path;
  if (!mPlace || get_settings_entry(*mPlace, folder, file, false, &path) != 0) return -1;
  if (mPlace->AreResetModifiersHeld()) {
    if (!mPlace->readOnly) unlink(path.c_str());
    return -1;
  }
  const int32_t status = Load(path);
  if (status != 0) set_aside_if_damaged(*mPlace, path);
  return status;
}

bool TKORUNEArchivable::HasFileByName(const char* folder, const char* file) const {
  std::string path;
  return mPlace && get_settings_entry(*mPlace, folder, file, false, &path) == 0 &&
         access(path.c_str(), F_OK) == 0;
}

void set_aside_if_damaged(const TSettingsPlace& place, const std::string& path) {
  struct stat info {};
  if (place.readOnly || stat(path.c_str(), &info) != 0) return;
  if (!S_ISREG(info.st_mode) || info.st_size == 0) return;
  std::string bytes;
  TMessage message;
  const bool tooLarge = static_cast<uint64_t>(info.st_size) > MAX_SETTINGS_BYTES;
  if (!tooLarge && (!read_file_whole(path, MAX_SETTINGS_BYTES, &bytes) || message.Unflatten(bytes)))
    return;
  if (rename(path.c_str(), set_aside_path(path).c_str()) == 0) ++*place.damaged;
}

}  // namespace zoka
