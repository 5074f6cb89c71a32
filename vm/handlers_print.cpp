// PRINT, WRITE, PRINT USING, their file forms, and the functions about columns.
#include <algorithm>

#include "vm/file_access.h"
#include "vm/handler_args.h"
#include "vm/handlers.h"
#include "vm/plain_values.h"
#include "vm/print_text.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

/// Pops an item and makes its text.
template <typename TFormat>
std::string pop_item(TVMachine& m, TFormat format) {
  TStackData item = m.Pop();
  std::string text = format(item);
  item.Release();
  return text;
}

/// True if constants and variables alone stand between this instruction and the next item of
/// its statement: then nothing can look at the file before that is written.
bool item_follows(const TVMachine& m) {
  // The code's end is none of these.
  for (int32_t i = m.PCIndex() + 1; !m.mMidCode->IsStatementBegin(i); ++i) {
    switch (m.mMidCode->mCodes[static_cast<size_t>(i)].Cmd()) {
      case TVMCodeCmd::BPushInt:
      case TVMCodeCmd::BPushFloat:
      case TVMCodeCmd::BPushDouble:
      case TVMCodeCmd::BPushString:
      case TVMCodeCmd::BPushSpecial:
      case TVMCodeCmd::BLoadArray:
        break;
      case TVMCodeCmd::PrintSh:
      case TVMCodeCmd::WriteSh:
        return true;
      default:
        return false;
    }
  }
  return false;
}

/// The common half of PRINT# and WRITE#: writes `text`, or a line end, to the file whose number is
/// on the stack. The items of a statement go out together where that makes no difference.
void write_to_file(TVMachine& m, std::string_view text) {
  TZokaFile& file = open_file(m, m.PopInt());
  THeldOutput& held = m.mHeldOutput;
  bool isWritten = held.Add(&file, text);
  const bool atOnce = held.IsFull() || m.IsPlain();
  if (atOnce || !item_follows(m)) isWritten &= held.Flush();
  if (!isWritten) throw m.RuntimeException2(ERR_CANNOT_WRITE);
}

constexpr std::string_view FILE_LINE_END = "\r\n";
/// In a file a comma is one blank; there are no zones.
constexpr int32_t FILE_PAD = 1;

}  // namespace

void ExeBasicPrint(TVMachine& m, const TVMCode* code) {
  if (code->bval()) {
    m.mRsrc->DoCRLF();
    return;
  }
  int32_t pad = PRINT_ZONE_COLUMNS - cursor_column(m) % PRINT_ZONE_COLUMNS;
  if (m.TopKind() == TStackKind::String) {
    TText text = m.PopText();
    m.mRsrc->Print(text.View());
    return;
  }
  m.mRsrc->Print(pop_item(m, [pad](const TStackData& item) { return GetPrintStr(item, pad); }));
}

void ExeBasicWrite(TVMachine& m, const TVMCode* code) {
  if (code->bval()) {
    m.mRsrc->DoCRLF();
  } else {
    m.mRsrc->Print(pop_item(m, GetWriteStr));
  }
}

void ExeBasicPrintSh(TVMachine& m, const TVMCode* code) {
  if (code->bval()) return write_to_file(m, FILE_LINE_END);
  write_to_file(m, pop_item(m, [](const TStackData& item) { return GetPrintStr(item, FILE_PAD); }));
}

void ExeBasicWriteSh(TVMachine& m, const TVMCode* code) {
  if (code->bval()) return write_to_file(m, FILE_LINE_END);
  write_to_file(m, pop_item(m, GetWriteStr));
}

void ExeBasicPrintUsing(TVMachine& m, const TVMCode* code) {
  bool lineEnd = m.PopBool();
  std::vector<int32_t> values(static_cast<size_t>(code->lval()));
  for (auto value = values.rbegin(); value != values.rend(); ++value) *value = m.PopInt();
  TText format = m.PopText();
  m.mRsrc->Print(fill_using_format(format.View(), values));
  if (lineEnd) m.mRsrc->DoCRLF();
  m.mRsrc->UpdateScreen();
}

void ExeBasicSpc(TVMachine& m, const TVMCode*) {
  int32_t count = std::max(m.PopInt(), 0) % m.mRsrc->TxtCols();
  m.PushString(std::string(static_cast<size_t>(count), ' '));
}

void ExeBasicTab(TVMachine& m, const TVMCode*) {
  int32_t column = std::max(m.PopInt(), 0) % m.mRsrc->TxtCols();
  int32_t count = std::max(column - cursor_column(m), 0);
  m.PushString(std::string(static_cast<size_t>(count), ' '));
}

void ExeBasicPos(TVMachine& m, const TVMCode*) {
  m.Drop();
  m.PushInt(cursor_column(m));
}

void ExeBasicCsrlin(TVMachine& m, const TVMCode*) {
  m.PushInt(cursor_row(m));
}

void ExeBasicStrDl(TVMachine& m, const TVMCode*) {
  m.PushString(str_dl_text(m.PopDouble()));
}

}  // namespace zoka
