// Finding open files.
#include "vm/file_access.h"

#include "vm/vmachine.h"

namespace zoka {

TZokaFile& open_file(TVMachine& m, int32_t number) {
  TZokaFile* file = m.mRsrc->Files().Find(number);
  if (file == nullptr) throw m.RuntimeException2("@Runtime_Err_File_Not_Open@");
  m.mRsrc->SetFDDAccessLampByFileDesc(number);
  return *file;
}

TZokaFile& open_numbered_file(TVMachine& m, int32_t number) {
  if (number < 1 || number > FILE_COUNT) {
    throw m.RuntimeException2("@Runtime_Err_Bad_File_Number@");
  }
  return open_file(m, number);
}

}  // namespace zoka
