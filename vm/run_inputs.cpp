// Inputs as the engine itself holds them.
#include "vm/run_inputs.h"

#include "vm/file_input.h"
#include "vm/interrupt_port.h"

namespace zoka {

uint32_t TRunInputs::PendingEvents(const TInterruptPort& port, const TRunPosition&) {
  return port.mIrFlags.load();
}

int32_t TRunInputs::ReadMouse(TMouseRead what, TMouseState& mouse) {
  return mouse.Read(what);
}

std::string TRunInputs::DriveFolder(const TDriveFolders& drives, int32_t index) {
  return drives.Folder(index);
}

std::string TRunInputs::FilePath(const TDriveFolders& drives, std::string_view name,
                                 bool mustExist) {
  return drives.FullPathFName(name, mustExist);
}

std::vector<TFolderEntry> TRunInputs::ListFolder(const std::string& path) {
  return list_folder(path);
}

void TRunInputs::OpenFile(TFileTable& files, const TDriveFolders& drives, std::string_view name,
                          int32_t number, int32_t mode) {
  files.Open(drives, name, number, mode);
}

bool TRunInputs::IsAtEnd(TZokaFile& file) {
  return file.Eof();
}

std::list<std::string> TRunInputs::ReadItems(TZokaFile& file, int32_t count, bool asLine,
                                             const TFileInputBounds& bounds) {
  std::list<std::string> items;
  InputFromFile(file, count, &items, asLine, bounds);
  return items;
}

bool TRunInputs::ReadCharacters(TZokaFile& file, int32_t count, int32_t mode, std::string* text,
                                const TFileInputBounds& bounds) {
  return InputDlFromFile(file, count, mode, text, bounds);
}

}  // namespace zoka
