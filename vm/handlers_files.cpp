// OPEN, CLOSE, EOF, FILES, and the statements that leave the program for another list.
#include <algorithm>

#include "common/file_path.h"
#include "common/text/utf8.h"
#include "vm/file_access.h"
#include "vm/handler_args.h"
#include "vm/handlers.h"
#include "vm/jis_position.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

constexpr const char ERR_FILE_NOT_FOUND[] = "@Runtime_Err_File_Not_Found@";

/// Columns of an entry of FILES.
constexpr int32_t NAME_COLUMNS = 6;
constexpr int32_t EXTENSION_COLUMNS = 3;
constexpr size_t SIZE_COLUMNS = 6;
/// An entry is begun only if this many columns are left behind the cursor.
constexpr int32_t ENTRY_COLUMNS = 15;

/// Calls `fn`, whose faults know their key only, and raises them as faults of the present line.
template <typename TFn>
auto with_line(TVMachine& m, TFn fn) {
  try {
    return fn();
  } catch (const TException& fault) {
    throw m.RuntimeException2(fault.key);
  }
}

int32_t column_width(std::string_view text) {
  int32_t width = 0;
  for (size_t pos = 0; pos < text.size(); pos += char_length(text.substr(pos))) {
    width += is_kanji(text.substr(pos)) ? 2 : 1;
  }
  return width;
}

/// A name as LEFT$ would cut it, then padded to its columns.
std::string name_field(const TVMachine& m, std::string_view name, int32_t columns) {
  int64_t bytes = JisPosToUtf8PosKernel(name, columns, {m.mRuntimeCompatiMode, 2});
  std::string field(name.substr(0, static_cast<size_t>(bytes)));
  int32_t missing = columns - column_width(field);
  field.append(static_cast<size_t>(std::max(missing, 0)), ' ');
  return field;
}

std::string size_field(int64_t bytes) {
  std::string field = " " + std::to_string(size_in_kbytes(bytes));
  field.resize(std::max(field.size(), SIZE_COLUMNS), ' ');
  return field;
}

void print_entry(TVMachine& m, const TFolderEntry& entry) {
  TBasicRsrc& rsrc = *m.mRsrc;
  if (rsrc.CursorPos() % rsrc.TxtCols() + ENTRY_COLUMNS >= rsrc.TxtCols()) rsrc.DoCRLF();
  rsrc.Print(name_field(m, extract_file_body(entry.name), NAME_COLUMNS) + "." +
             name_field(m, extract_file_ext(entry.name), EXTENSION_COLUMNS) +
             size_field(entry.size));
}

/// The path of a list that a program names.
std::string list_path(TVMachine& m, const TText& name, bool mustExist) {
  if (name.Length() == 0) throw m.RuntimeException2(ERR_FILE_NOT_FOUND);
  return with_line(
      m, [&] { return m.mInputs->FilePath(m.mRsrc->DrvFolderRefs(), name.View(), mustExist); });
}

}  // namespace

void ExeBasicOpen(TVMachine& m, const TVMCode* code) {
  int32_t number = m.PopInt();
  TText name = m.PopText();
  with_line(m, [&] {
    m.mInputs->OpenFile(m.mRsrc->Files(), m.mRsrc->DrvFolderRefs(), name.View(), number,
                        code->lval());
  });
  open_file(m, number);
}

void ExeBasicClose(TVMachine& m, const TVMCode* code) {
  if (code->lval() == 0) m.mRsrc->Files().CloseAll();
  for (int32_t i = 0; i < code->lval(); ++i) {
    // A number that was left out reads as 0, which is none.
    int32_t number = m.PopInt();
    with_line(m, [&] { m.mRsrc->Files().Close(number); });
  }
}

void ExeBasicEof(TVMachine& m, const TVMCode*) {
  TZokaFile& file = open_numbered_file(m, m.PopInt());
  m.PushInt(m.mInputs->IsAtEnd(file) ? -1 : 0);
}

void ExeBasicFiles(TVMachine& m, const TVMCode* code) {
  int32_t drive = code->bval() ? m.PopInt() : 1;
  if (drive < 1 || drive > DRIVE_COUNT) {
    throw m.RuntimeException2("@Runtime_Err_Bad_Drive_Number@");
  }
  std::string folder = m.mInputs->DriveFolder(m.mRsrc->DrvFolderRefs(), drive - 1);
  if (folder.empty()) throw m.RuntimeException2("@Runtime_Err_Disk_Offline@");
  m.mRsrc->SetFDDAccessLampByDriveIndex(drive - 1);
  for (const TFolderEntry& entry : m.mInputs->ListFolder(folder)) print_entry(m, entry);
  m.mRsrc->DoCRLF();
  m.mRsrc->UpdateScreen();
}

void ExeBasicChain(TVMachine& m, const TVMCode* code) {
  m.JumpToEnd();
  if (m.mContext.privacy.quitting.load()) return;
  TMessage message(RUN_REQUEST_CODE);
  if (code->lval() > 3) m.Drop();
  if (code->lval() > 2) pop_start(m, &message);
  message.AddString("FileName", list_path(m, m.PopText(), true));
  message.AddBool("Merge", m.PopBool());
  m.RequestRun(message);
}

void ExeBasicRunSpecify(TVMachine& m, const TVMCode* code) {
  m.JumpToEnd();
  if (m.mContext.privacy.quitting.load()) return;
  TMessage message(RUN_REQUEST_CODE);
  // A missing file is found out by who loads it.
  message.AddString("FileName", list_path(m, m.PopText(), false));
  message.AddBool("ROpt", code->bval());
  m.RequestRun(message);
}

}  // namespace zoka
