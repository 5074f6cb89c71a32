// Saving and loading records.
#include "app/settings/archivable.h"

#include <unistd.h>

#include "common/file_save.h"

namespace zoka {

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
  return Load(path);
}

}  // namespace zoka
