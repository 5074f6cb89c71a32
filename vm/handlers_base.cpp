// The internal operations: constants, variables, the test of FOR, lines and the screen.
#include "vm/handlers.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

constexpr int32_t END_MARK = -1;

bool is_end_mark(const TStackData& value) {
  return value.kind == TStackKind::Int && value.lval == END_MARK;
}

/// The slot of a reference without or with one subscript whose form's values begin `depth` below
/// the top, if all is plain and in order; else -1. `*used` is the number of the form's values.
int32_t plain_slot(const TVMachine& m, const TVarInfo* var, int64_t depth, int64_t* used) {
  const TValueStack& stack = m.mStack;
  if (!stack.HasPlain(depth + 1)) return -1;
  const TStackData& first = stack.Top(depth);
  if (is_end_mark(first)) {
    *used = 1;
    return 0;
  }
  if (var->dimCount != 1 || !is_number(first.kind) || !stack.HasPlain(depth + 2) ||
      !is_end_mark(stack.Top(depth + 1))) {
    return -1;
  }
  const int32_t subscript = stack_int(first);
  if (subscript < m.mRsrc->OptionBase() || subscript >= var->strides[1]) return -1;
  *used = 2;
  return subscript + 1;
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
  TVarInfo* var = code->varInfo();
  int64_t used = 0;
  const int32_t slot = plain_slot(m, var, 0, &used);
  if (slot < 0) [[unlikely]] {
    m.VarToVal(var);
    return;
  }
  m.mStack.Shrink(used - 1);
  m.mStack.Top() = m.LoadSlot(var, slot);
}

void ExeBasicBAssignArray(TVMachine& m, const TVMCode*) {
  TValueStack& stack = m.mStack;
  if (stack.HasPlain(3) && stack.Top(1).kind == TStackKind::Var && !m.mWatched) [[likely]] {
    TVarInfo* var = stack.Top(1).var;
    int64_t used = 0;
    const int32_t slot = var != nullptr ? plain_slot(m, var, 2, &used) : -1;
    if (slot >= 0) [[likely]] {
      const TStackData value = stack.Top();
      stack.Shrink(used + 2);
      m.StoreSlot(var, slot, value);
      return;
    }
  }
  m.AssignArray();
}

void ExeBasicBCmpFor(TVMachine& m, const TVMCode*) {
  TValueStack& stack = m.mStack;
  if (!stack.HasPlain(3)) [[unlikely]] {
    const double step = m.PopDouble();
    const double limit = m.PopDouble();
    const double current = m.PopDouble();
    m.PushInt((step >= 0 ? current <= limit : current >= limit) ? -1 : 0);
    return;
  }
  const double step = stack_double(stack.Top(0));
  const double limit = stack_double(stack.Top(1));
  const double current = stack_double(stack.Top(2));
  for (int64_t i = 0; i < 3; ++i) stack.Top(i).Release();
  stack.Shrink(2);
  stack.Top() = TStackData::Of((step >= 0 ? current <= limit : current >= limit) ? -1 : 0);
}

void ExeBasicBLineBegin(TVMachine& m, const TVMCode* code) {
  m.mCurLine = code->lval();
}

void ExeBasicBUpdateScreen(TVMachine& m, const TVMCode*) {
  m.mRsrc->UpdateScreen();
}

}  // namespace zoka
