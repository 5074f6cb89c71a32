// Pushes and pops beyond the quick ones, and jumps: what handlers share.
#include "vm/memory_budget.h"
#include "vm/vmachine.h"

namespace zoka {

void TVMachine::PushText(TText text) {
  const uint32_t length = text.Length();
  TTextBlock* block = text.Block();
  mStack.Push(TStackData::OfText(block, length));
  text.Detach();  // only now, as the push may throw
}

TStackData TVMachine::PopEdge() {
  bool empty = false;
  const TStackData value = mStack.PopSlow(&empty);
  if (empty) throw RuntimeException2(ERR_ILL_FUNC_CALL);
  return value;
}

int32_t TVMachine::PopIntSlow() {
  const TOwnedData value(Pop());
  return stack_int(*value);
}

float TVMachine::PopFloat() {
  const TOwnedData value(Pop());
  return stack_float(*value);
}

double TVMachine::PopDouble() {
  const TOwnedData value(Pop());
  return stack_double(*value);
}

bool TVMachine::PopBool() {
  const TOwnedData value(Pop());
  return stack_bool(*value);
}

TText TVMachine::PopText() {
  const TStackData value = Pop();
  return value.kind == TStackKind::String ? TText(value.text, value.length) : TText();
}

TVarInfo* TVMachine::PopVar() {
  const TOwnedData value(Pop());
  if (value->kind != TStackKind::Var || value->var == nullptr) {
    throw RuntimeException2(ERR_ILL_FUNC_CALL);
  }
  return value->var;
}

int32_t TVMachine::FindTarget(const TStackData& target) {
  int32_t index = 0;
  switch (target.kind) {
    case TStackKind::Int:
    case TStackKind::Float:
    case TStackKind::Double:
      index = mMidCode->FindLine(stack_int(target));
      if (index == 0) throw RuntimeException2(ERR_UNDEFINED_LINE);
      return index;
    case TStackKind::String:
      index = mMidCode->FindLabel(target.View());
      if (index == 0) throw RuntimeException2(ERR_UNDEFINED_LABEL);
      return index;
    default:
      return 0;
  }
}

void TVMachine::ChangePC(const TStackData& target) {
  const int32_t index = FindTarget(target);
  if (index != 0) JumpTo(index);
}

bool TVMachine::IsMemorable(const TStackData& target) {
  // A literal is shorter than a line, so its length fits into the tag.
  return target.kind == TStackKind::Int ||
         (target.kind == TStackKind::String && target.text->IsImmortal());
}

void TVMachine::JumpToPopped(const TVMCode* code) {
  TLookup& found = LookupOf(code);
  if (mStack.HasPlain() && found.index != 0 && found.bits == mStack.Top().bits &&
      found.tag == LookupTag(mStack.Top())) [[likely]] {
    // What is remembered is a number or a literal: there is nothing to release.
    mStack.Shrink(1);
    JumpTo(found.index);
    return;
  }
  const TOwnedData target(Pop());
  const int32_t index = FindTarget(*target);
  if (index == 0) return;
  if (IsMemorable(*target)) found = {target->bits, LookupTag(*target), index};
  JumpTo(index);
}

void TVMachine::JumpToConstantSlow(const TVMCode* code) {
  const TVMCode& push = mMidCode->mCodes[static_cast<size_t>(code - mCodeBase)];
  const bool isLine = push.Cmd() == TVMCodeCmd::BPushInt;
  const TStackData target =
      isLine ? TStackData::Of(push.lval()) : TStackData::OfText(push.str(), push.str()->Used());
  LookupOf(code).index = FindTarget(target);
  JumpTo(LookupOf(code).index);
}

TUserFuncInfo* TVMachine::FindUserFunc(const TVMCode* code, int32_t* bodyIndex) {
  TLookup& found = LookupOf(code);
  if (found.index == 0) {
    TUserFuncInfo* info = mMidCode->FindUserFunc(code->str()->View());
    if (info == nullptr) throw RuntimeException2("@Runtime_Err_Undefined_User_Func@");
    const int32_t index = mMidCode->FindLabel(info->label);
    if (index == 0) throw RuntimeException2(ERR_UNDEFINED_LABEL);
    found.bits = static_cast<int64_t>(reinterpret_cast<intptr_t>(info));
    found.index = index;
  }
  *bodyIndex = found.index;
  return reinterpret_cast<TUserFuncInfo*>(static_cast<intptr_t>(found.bits));
}

void TVMachine::JumpToEnd() {
  mPC = mCodeBase + mMidCode->mCodes.size() - 1;
}

void TVMachine::PushReturnRecord(int32_t codeIndex) {
  if (mStack.ReturnRecordCount() >= MAX_RETURN_RECORDS) throw RuntimeException2(ERR_ILL_FUNC_CALL);
  mStack.PushReturn(codeIndex);
}

}  // namespace zoka
