// Path rules of the drives, and folder listings.
#include "run/screen/file_drives.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <utility>

#include "common/file_path.h"
#include "common/text/number.h"
#include "run/screen/file_fault.h"

namespace zoka {

namespace {

std::string_view up_to_nul(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

/// The path with all links followed, empty with errno set if it does not exist.
std::string real_path(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
  return real ? std::string(real.get()) : std::string();
}

/// The target of a link, empty if `path` is none.
std::string link_target(const std::string& path) {
  char target[PATH_MAX];
  const ssize_t length = readlink(path.c_str(), target, sizeof target);
  return std::string(target, static_cast<size_t>(std::max<ssize_t>(length, 0)));
}

/// Where a file would come to lie that is opened at `path`, which need not exist; empty with errno
/// set if it can't be told, to ENOENT if a folder on the way does not exist.
std::string place_of(std::string path) {
  // This ends: more links than the system follows have no real path, for another reason.
  for (;;) {
    std::string real = real_path(path);
    if (!real.empty() || errno != ENOENT) return real;
    const std::string folder = real_path(extract_file_folder_path_kernel(path));
    if (folder.empty()) return {};
    std::string place = folder + "/" + extract_file_name(path);
    const std::string target = link_target(place);
    if (target.empty()) return place;
    path = target[0] == '/' ? target : folder + "/" + target;
  }
}

bool lies_below(const std::string& place, const std::string& folder) {
  if (folder == "/") return true;
  return place.starts_with(folder + "/");
}

/// A missing folder on the way is left to the one that opens; what else has no place is refused.
bool is_within(const std::string& path, const std::string& folder) {
  const std::string place = place_of(path);
  if (place.empty()) return errno == ENOENT;
  const std::string root = real_path(folder);
  return !root.empty() && lies_below(place, root);
}

}  // namespace

int32_t DriveNumber(std::string_view name) {
  name = up_to_nul(name);
  if (name.find(':') == std::string_view::npos) return 1;
  const int32_t number = parse_long(name);
  if (number < 1 || number > DRIVE_COUNT) fail_file("@Runtime_Err_Bad_Drive_Number@");
  return number;
}

void TDriveFolders::SetFolder(int32_t drvIdx, std::string path) {
  TLock hold(mLock);
  mFolders[static_cast<size_t>(drvIdx)] = std::move(path);
}

std::string TDriveFolders::Folder(int32_t drvIdx) const {
  TLock hold(mLock);
  return mFolders[static_cast<size_t>(drvIdx)];
}

std::string TDriveFolders::FullPathFName(std::string_view name, bool mustExist) const {
  name = up_to_nul(name);
  const std::string folder = Folder(DriveNumber(name) - 1);
  const size_t colon = name.find(':');
  if (colon != std::string_view::npos) name.remove_prefix(colon + 1);
  if (folder.empty()) fail_file("@Runtime_Err_Disk_Offline@");
  std::string path = folder + "/" + std::string(name);
  if (!is_within(path, folder)) fail_file("@Runtime_Err_Cannot_Open_File@");
  struct stat status;
  const bool exists = stat(path.c_str(), &status) == 0;
  if (exists && !S_ISREG(status.st_mode)) fail_file("@Runtime_Err_Cannot_Open_File@");
  if (!exists && mustExist) fail_file("@Runtime_Err_File_Not_Found@");
  return path;
}

std::vector<TFolderEntry> list_folder(const std::string& path) {
  std::vector<TFolderEntry> entries;
  const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(path.c_str()), closedir);
  if (!folder) return entries;
  while (const dirent* entry = readdir(folder.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") entries.push_back({std::string(name), 0});
  }
  std::ranges::sort(entries, {}, &TFolderEntry::name);
  for (TFolderEntry& entry : entries) {
    struct stat status;
    const bool known = fstatat(dirfd(folder.get()), entry.name.c_str(), &status, 0) == 0;
    if (known && S_ISREG(status.st_mode)) entry.size = status.st_size;
  }
  return entries;
}

int64_t size_in_kbytes(int64_t bytes) {
  return bytes >= 1 && bytes <= 1022 ? 1 : bytes / 1024;
}

}  // namespace zoka
