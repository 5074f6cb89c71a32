// Finding the settings folders.
#include "app/settings/settings_place.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>

namespace zoka {

namespace {

/// The folder of this family of applications in the user's settings.
constexpr const char FAMILY_FOLDER[] = "/KORUNE";
constexpr mode_t FOLDER_MODE = 0777;

/// Makes a folder and all those above it that are missing.
bool make_folders(const std::string& path) {
  for (size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
    const std::string folder = path.substr(0, end);
    if (mkdir(folder.c_str(), FOLDER_MODE) != 0 && errno != EEXIST) {
      struct stat info {};
      // A folder above may exist and yet not be ours to touch.
      if (stat(folder.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) return false;
    }
    if (end == std::string::npos) return true;
  }
}

std::string absolute_variable(const char* name) {
  const char* value = std::getenv(name);
  return value && *value == '/' ? value : "";
}

}  // namespace

TSettingsPlace TSettingsPlace::OfUser() {
  TSettingsPlace place;
  std::string base = absolute_variable("XDG_CONFIG_HOME");
  if (base.empty()) {
    base = absolute_variable("HOME");
    if (!base.empty()) base += "/.config";
  }
  if (!base.empty()) place.root = base + FAMILY_FOLDER;
  return place;
}

int32_t get_settings_entry(const TSettingsPlace& place, const std::string& folder,
                           const std::string& file, bool create, std::string* path) {
  if (place.root.empty() || (create && place.readOnly)) return -1;
  const std::string whole = place.root + "/" + folder;
  if (create && !make_folders(whole)) return -1;
  *path = whole + "/" + file;
  return 0;
}

}  // namespace zoka
