// INPUT, LINE INPUT, KINPUT, INKEY$, INPUT$ and their file forms.
#include "vm/file_access.h"
#include "vm/file_input.h"
#include "vm/handlers.h"
#include "vm/jis_position.h"
#include "vm/kana_convert.h"
#include "vm/line_editor.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

using TItems = std::list<std::string>;

/// INPUT in its forms with a keyboard: asks again until the number of items is right.
void input_items(TVMachine& m, int32_t count, TShelter saved, const int32_t* timeout) {
  for (;;) {
    TItems items;
    if (!InputFromUser(m, &items, false, timeout) || m.IsTerminated()) return;
    if (static_cast<int32_t>(items.size()) == count) {
      m.AssignInputDatas(items, &saved);
      return;
    }
    m.mRsrc->Print("?Redo from start");
    m.mRsrc->DoCRLF();
    m.mRsrc->Print("? ");
    m.mRsrc->UpdateScreen();
  }
}

/// LINE INPUT in its forms with a keyboard.
void input_line(TVMachine& m, TShelter saved, const int32_t* timeout) {
  TItems items;
  if (!InputFromUser(m, &items, true, timeout) || m.IsTerminated()) return;
  m.AssignInputDatas(items, &saved);
}

/// Bytes and values made of them share what is left of the run's memory.
TFileInputBounds bounds_of(const TVMachine& m) {
  return {(m.mBudget.limit - m.mBudget.used) / 2, &m};
}

void input_from_file(TVMachine& m, int32_t count, bool asLine) {
  TShelter saved = m.SheltVar(count);
  TZokaFile& file = open_numbered_file(m, m.PopInt());
  const TItems items = m.mInputs->ReadItems(file, count, asLine, bounds_of(m));
  if (m.IsTerminated()) return;
  if (static_cast<int32_t>(items.size()) < count) {
    throw m.RuntimeException2("@Runtime_Err_Input_Past_End@");
  }
  m.AssignInputDatas(items, &saved);
}

}  // namespace

void ExeBasicInput(TVMachine& m, const TVMCode* code) {
  input_items(m, code->lval(), m.SheltVar(code->lval()), nullptr);
}

void ExeBasicInputWait(TVMachine& m, const TVMCode* code) {
  TShelter saved = m.SheltVar(code->lval());
  int32_t timeout = m.PopInt();
  input_items(m, code->lval(), std::move(saved), &timeout);
}

void ExeBasicLineInput(TVMachine& m, const TVMCode* code) {
  input_line(m, m.SheltVar(code->lval()), nullptr);
}

void ExeBasicLineInputWait(TVMachine& m, const TVMCode* code) {
  TShelter saved = m.SheltVar(code->lval());
  int32_t timeout = m.PopInt();
  input_line(m, std::move(saved), &timeout);
}

void ExeBasicInputSh(TVMachine& m, const TVMCode* code) {
  input_from_file(m, code->lval(), false);
}

void ExeBasicLineInputSh(TVMachine& m, const TVMCode* code) {
  input_from_file(m, code->lval(), true);
}

void ExeBasicKinput(TVMachine& m, const TVMCode* code) {
  TShelter saved = m.SheltVar(code->lval());
  // The field starts on an even column, where double-byte characters lie.
  if (m.mRsrc->CursorPos() % 2 != 0) m.mRsrc->Print(" ");
  if (m.mRuntimeCompatiMode == COMPAT_DISK) m.mRsrc->Print("？　");
  TItems items;
  InputFromUser(m, &items, true, nullptr);
  if (m.IsTerminated()) return;
  items.front() = AkcnvDl(items.front());
  m.AssignInputDatas(items, &saved);
}

void ExeBasicInkeyDl(TVMachine& m, const TVMCode*) {
  m.PushString(m.PopKeyWithTimeout(0));
}

void ExeBasicInputDl(TVMachine& m, const TVMCode* code) {
  if (!code->bval()) {
    m.PushString(InputDlFromUser(m, m.PopInt()));
    return;
  }
  TZokaFile& file = open_numbered_file(m, m.PopInt());
  std::string text;
  const TFileInputBounds bounds = bounds_of(m);
  if (!m.mInputs->ReadCharacters(file, m.PopInt(), m.mRuntimeCompatiMode, &text, bounds) &&
      !m.IsTerminated()) {
    throw m.RuntimeException2("@Runtime_Err_Input_Past_End@");
  }
  m.PushString(text);
}

}  // namespace zoka
