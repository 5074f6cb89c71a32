// The internal operations: constants, variables, the test of FOR, lines and the screen.
#include "vm/handlers.h"
#include "vm/plain_values.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

/// Reads an element over its subscripts; false if that is no matter of the quick way.
bool load_element(TVMachine& m, const TVarInfo* var) {
  int32_t size = 0;
  const int32_t slot = is_numeric(var) ? element_slot(m, var, 0, &size) : 0;
  if (slot == 0) return false;
  m.mStack.Top(size) = number_of(var, slot);
  m.mStack.Shrink(size);
  return true;
}

/// Stores the top, a text, in a plain text variable whose form lies below; false for others.
bool store_text(TVMachine& m, TVarInfo* var) {
  TValueStack& stack = m.mStack;
  if (var->kind != ttStr || !is_end_mark(stack.Top(2))) return false;
  var->texts[0] = TText(stack.Top().text, stack.Top().length);
  stack.Shrink(3);
  return true;
}

/// Stores the top in an element whose form lies below; false if that is no matter of the quick way.
bool store_element(TVMachine& m, TVarInfo* var) {
  int32_t size = 0;
  const int32_t slot = element_slot(m, var, 2, &size);
  if (slot == 0) return false;
  set_number(var, slot, m.mStack.Top());
  m.mStack.Shrink(size + 3);
  return true;
}

}  // namespace

void ExeBasicBPushInt(TVMachine& m, const TVMCode* code) {
  m.PushInt(code->lval());
}

void ExeBasicBPushFloat(TVMachine& m, const TVMCode* code) {
  m.PushFloat(code->fval());
}

void ExeBasicBPushDouble(TVMachine& m, const TVMCode* code) {
  m.PushDouble(code->dval());
}

void ExeBasicBPushString(TVMachine& m, const TVMCode* code) {
  TTextBlock* literal = code->str();
  m.mStack.Push(TStackData::OfText(literal, literal->Used()));
}

void ExeBasicBPushBool(TVMachine& m, const TVMCode* code) {
  m.PushBool(code->bval());
}

void ExeBasicBPushVar(TVMachine& m, const TVMCode* code) {
  m.mStack.Push(TStackData::OfVar(code->varInfo()));
}

void ExeBasicBPushSpecial(TVMachine& m, const TVMCode* code) {
  m.mStack.Push(TStackData::Of(code->lval(), TStackKind::Special));
}

void ExeBasicBPushAbbrev(TVMachine& m, const TVMCode*) {
  m.mStack.Push(TStackData::Of(TStackKind::Abbrev));
}

void ExeBasicBLoadArray(TVMachine& m, const TVMCode* code) {
  TValueStack& stack = m.mStack;
  TVarInfo* var = code->varInfo();
  if (stack.HasPlain() && is_end_mark(stack.Top()) && is_numeric(var)) [[likely]] {
    stack.Top() = number_of(var, 0);
    return;
  }
  if (!load_element(m, var)) m.VarToVal(var);
}

void ExeBasicBAssignArray(TVMachine& m, const TVMCode*) {
  TValueStack& stack = m.mStack;
  if (stack.HasPlain(3) && stack.Top(1).kind == TStackKind::Var && stack.Top(1).var != nullptr &&
      !m.mWatched) [[likely]] {
    TVarInfo* var = stack.Top(1).var;
    if (stack.Top().kind == TStackKind::String) {
      if (store_text(m, var)) return;
    } else if (is_numeric(var)) {
      if (is_end_mark(stack.Top(2))) {
        set_number(var, 0, stack.Top());
        stack.Shrink(3);
        return;
      }
      if (store_element(m, var)) return;
    }
  }
  m.AssignArray();
}

void ExeBasicBCmpFor(TVMachine& m, const TVMCode*) {
  TValueStack& stack = m.mStack;
  if (stack.HasPlain(3) && is_number(stack.Top(0).kind) && is_number(stack.Top(1).kind) &&
      is_number(stack.Top(2).kind)) [[likely]] {
    const int32_t flag = for_flag(stack_double(stack.Top(2)), stack_double(stack.Top(1)),
                                  stack_double(stack.Top(0)));
    stack.Shrink(2);
    stack.Top() = TStackData::Of(flag);
    return;
  }
  const double step = m.PopDouble();
  const double limit = m.PopDouble();
  const double current = m.PopDouble();
  m.PushInt(for_flag(current, limit, step));
}

void ExeBasicBLineBegin(TVMachine& m, const TVMCode* code) {
  m.mCurLine = code->lval();
}

void ExeBasicBUpdateScreen(TVMachine& m, const TVMCode*) {
  m.mRsrc->UpdateScreen();
}

}  // namespace zoka
