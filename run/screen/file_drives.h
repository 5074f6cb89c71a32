// The folders that stand for floppy drives, and how a program's file name becomes a path. A program
// reaches the files of its drives' folders and of folders below them, and nothing else.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/mutex.h"

namespace zoka {

/// Drives 1 to DRIVE_COUNT of the language; an index is the number minus 1.
constexpr int32_t DRIVE_COUNT = 14;

/// The drive of a file name: the number that the name starts with if it has a colon anywhere, else
/// 1. Throws "@Runtime_Err_Bad_Drive_Number@" outside 1 to DRIVE_COUNT; so "A:X" is refused.
int32_t DriveNumber(std::string_view name);

/// The folders in the drives. Any thread: the host changes them while a program runs.
class TDriveFolders {
 public:
  TDriveFolders() : mLock(TLockRank::Leaf) {}

  /// Puts a folder into a drive; an empty path ejects. `drvIdx` is 0 to DRIVE_COUNT - 1.
  void SetFolder(int32_t drvIdx, std::string path);
  /// The folder's path, empty if there is no disk in the drive.
  std::string Folder(int32_t drvIdx) const;

  /// The path of a file name of the language, which ends at its first NUL: the drive's folder, a
  /// slash and the name behind the first colon, not otherwise changed. Throws
  /// - "@Runtime_Err_Bad_Drive_Number@" as DriveNumber does,
  /// - "@Runtime_Err_Disk_Offline@" if there is no folder in the drive,
  /// - "@Runtime_Err_Cannot_Open_File@" for a folder or a device, and for a name whose real path
  ///   (links and ".." followed) lies outside the drive's folder,
  /// - "@Runtime_Err_File_Not_Found@" if `mustExist` and there is nothing at that path.
  std::string FullPathFName(std::string_view name, bool mustExist) const;

 private:
  mutable TMutex mLock;
  std::array<std::string, DRIVE_COUNT> mFolders;
};

/// An entry of a folder as FILES lists it.
struct TFolderEntry {
  std::string name;
  int64_t size = 0;  // bytes; 0 for what is no regular file
};

/// The entries of a folder, hidden ones and sub-folders included, in the order of their names'
/// bytes; empty if it can't be read.
std::vector<TFolderEntry> list_folder(const std::string& path);

/// The size that FILES shows: 1 for 1 to 1,022 bytes, else whole KBytes rounded down. So 1,023
/// bytes show 0; that is meant.
int64_t size_in_kbytes(int64_t bytes);

}  // namespace zoka
