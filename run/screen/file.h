// The files behind a program's file numbers. They outlive a run: what a program leaves open stays
// open until a CLOSE or the end of the window.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "common/file.h"
#include "run/screen/file_drives.h"

namespace zoka {

/// File numbers 1 to FILE_COUNT.
constexpr int32_t FILE_COUNT = 15;

/// How OPEN opens, by the numbers that the compiler generates.
constexpr int32_t OPEN_INPUT = 10;
constexpr int32_t OPEN_OUTPUT = 11;
constexpr int32_t OPEN_APPEND = 12;
constexpr int32_t OPEN_RANDOM = 13;

/// A file of a program, with the index of the drive whose lamp it lights.
class TZokaFile : public TBasicFile {
 public:
  void SetDrvIdx(int32_t index) { drvIdx = index; }
  int32_t DrvIdx() const { return drvIdx; }

 private:
  int32_t drvIdx = 0;
};

/// The table of open files. Used by the machine's thread only; closed by its destructor.
class TFileTable {
 public:
  /// OPEN, without the lamp. All modes want to read and write, so that a read-only file can't be
  /// opened at all, and only OUTPUT and RANDOM create one. Throws, in this order of tests,
  /// - "@Runtime_Err_File_Not_Found@" for an empty name,
  /// - "@Runtime_Err_File_Already_Open@" if the number is in use,
  /// - "@Runtime_Err_Bad_File_Number@" outside 1 to FILE_COUNT,
  /// - what TDriveFolders::FullPathFName throws,
  /// - "@Runtime_Err_File_Not_Found@" for a missing file or folder on the way,
  /// - "@Runtime_Err_Cannot_Open_File@" for anything else that goes wrong.
  void Open(const TDriveFolders& drives, std::string_view name, int32_t number, int32_t mode);

  /// The open file of that number; null if it is closed or there is no such number.
  TZokaFile* Find(int32_t number);

  /// CLOSE of one number; a closed file is no error. Throws "@Runtime_Err_Ill_Func_Call@" outside 1
  /// to FILE_COUNT, a key unlike that of OPEN.
  void Close(int32_t number);
  void CloseAll();

 private:
  std::array<TZokaFile, FILE_COUNT> mFiles;
};

}  // namespace zoka
