// The internal operations: constants, variables, the test of FOR, lines and the screen.
#include "vm/handlers.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

constexpr int32_t END_MARK = -1;

bool is_end_mark(const TStackData& value) {
  return value.kind == TStackKind::Int && value.lval == END_MARK;
}

/// -1 to go on, 0 to leave the loop.
int32_t for_flag(double current, double limit, double step) {
  return (step >= 0 ? current <= limit : current >= limit) ? -1 : 0;
}

/// The slot of a reference with one subscript, whose form's values begin `depth` below the top, if
/// all is plain and in order; else -1.
int32_t element_slot(const TVMachine& m, const TVarInfo* var, int64_t depth) {
  const TValueStack& stack = m.mStack;
  if (var->dimCount != 1 || !stack.HasPlain(depth + 2)) return -1;
  if (!is_number(stack.Top(depth).kind) || !is_end_mark(stack.Top(depth + 1))) return -1;
  const int32_t subscript = stack_int(stack.Top(depth));
  if (subscript < m.mRsrc->OptionBase() || subscript >= var->strides[1]) return -1;
  return subscript + 1;
}

/// Puts a numeric slot's value over the value at `place`; false for other variables.
bool load_number(const TVarInfo* var, int32_t slot, TStackData& place) {
  if (var->kind == ttSng) {
    place = TStackData::Of(var->floats[slot]);
  } else if (var->kind == ttInt) {
    place = TStackData::Of(var->ints[slot]);
  } else if (var->kind == ttDbl) {
    place = TStackData::Of(var->doubles[slot]);
  } else {
    return false;
  }
  return true;
}

/// Stores in a numeric slot; false for other variables, and for values that hold a text.
bool store_number(TVarInfo* var, int32_t slot, const TStackData& value) {
  if (value.kind == TStackKind::String) return false;
  if (var->kind == ttSng) {
    var->floats[slot] = stack_float(value);
  } else if (var->kind == ttInt) {
    var->ints[slot] = stack_int(value);
  } else if (var->kind == ttDbl) {
    var->doubles[slot] = stack_double(value);
  } else {
    return false;
  }
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
  if (stack.HasPlain() && is_end_mark(stack.Top())) [[likely]] {
    if (load_number(var, 0, stack.Top())) return;
  } else if (const int32_t slot = element_slot(m, var, 0); slot >= 0) {
    if (load_number(var, slot, stack.Top(1))) {
      stack.Shrink(1);
      return;
    }
  }
  m.VarToVal(var);
}

void ExeBasicBAssignArray(TVMachine& m, const TVMCode*) {
  TValueStack& stack = m.mStack;
  if (stack.HasPlain(3) && stack.Top(1).kind == TStackKind::Var && !m.mWatched) [[likely]] {
    TVarInfo* var = stack.Top(1).var;
    if (var == nullptr) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
    if (is_end_mark(stack.Top(2))) [[likely]] {
      if (store_number(var, 0, stack.Top())) {
        stack.Shrink(3);
        return;
      }
    } else if (const int32_t slot = element_slot(m, var, 2); slot >= 0) {
      if (store_number(var, slot, stack.Top())) {
        stack.Shrink(4);
        return;
      }
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
