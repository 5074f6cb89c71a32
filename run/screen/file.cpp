// Opening and closing by file number.
#include "run/screen/file.h"

#include <fcntl.h>

#include <cerrno>
#include <string>

#include "run/screen/file_fault.h"

namespace zoka {

namespace {

constexpr char DATA_FILE_TYPE[] = "text/plain";

bool is_file_number(int32_t number) {
  return number >= 1 && number <= FILE_COUNT;
}

int open_flags(int32_t mode) {
  switch (mode) {
    case OPEN_OUTPUT:
      return O_RDWR | O_CREAT | O_TRUNC;
    case OPEN_APPEND:
      return O_RDWR | O_APPEND;
    case OPEN_RANDOM:
      return O_RDWR | O_CREAT;
    default:
      return O_RDWR;
  }
}

}  // namespace

void TFileTable::Open(const TDriveFolders& drives, std::string_view name, int32_t number,
                      int32_t mode) {
  if (name.empty() || name[0] == '\0') fail_file("@Runtime_Err_File_Not_Found@");
  if (Find(number)) fail_file("@Runtime_Err_File_Already_Open@");
  if (!is_file_number(number)) fail_file("@Runtime_Err_Bad_File_Number@");
  const std::string path = drives.FullPathFName(name, false);
  TZokaFile& file = mFiles[static_cast<size_t>(number - 1)];
  const int error = file.SetTo(path, open_flags(mode));
  if (error == ENOENT) fail_file("@Runtime_Err_File_Not_Found@");
  if (error != 0) fail_file("@Runtime_Err_Cannot_Open_File@");
  file.SetDrvIdx(DriveNumber(name) - 1);
  file.SetTypeIfNone(DATA_FILE_TYPE);
}

TZokaFile* TFileTable::Find(int32_t number) {
  if (!is_file_number(number)) return nullptr;
  TZokaFile& file = mFiles[static_cast<size_t>(number - 1)];
  return file.IsOpen() ? &file : nullptr;
}

void TFileTable::Close(int32_t number) {
  if (!is_file_number(number)) fail_file("@Runtime_Err_Ill_Func_Call@");
  mFiles[static_cast<size_t>(number - 1)].Unset();
}

void TFileTable::CloseAll() {
  for (TZokaFile& file : mFiles) file.Unset();
}

}  // namespace zoka
