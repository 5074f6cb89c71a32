// What the statements on a file number share: finding the open file, and the access lamp.
#pragma once

#include <cstdint>

#include "run/screen/file.h"

namespace zoka {

class TVMachine;

/// The open file of `number`, its lamp lit. Raises "@Runtime_Err_File_Not_Open@" for a closed file
/// and for a number that no file can have.
TZokaFile& open_file(TVMachine& m, int32_t number);

/// The same, but a number that no file can have raises "@Runtime_Err_Bad_File_Number@".
TZokaFile& open_numbered_file(TVMachine& m, int32_t number);

}  // namespace zoka
