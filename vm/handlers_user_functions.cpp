// DEF FN: calls, parameters, the way back.
#include "vm/handlers.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

bool is_text_name(const std::string& name) {
  return name.ends_with('$');
}

/// Takes one argument from the stack for the parameter of that name. Numeric types are not
/// converted: a function computes with what it was given.
void take_argument(TVMachine& m, const std::string& param) {
  const TStackKind kind = m.TopKind();
  if (kind == TStackKind::Special) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  if ((kind == TStackKind::String) != is_text_name(param)) {
    throw m.RuntimeException2(ERR_TYPE_MISMATCH);
  }
  m.mUserFuncArgs.Reserve();
  m.mUserFuncArgs.Add(m.Pop());
}

}  // namespace

void ExeBasicBCallUserFunc(TVMachine& m, const TVMCode* code) {
  int32_t body = 0;
  TUserFuncInfo* info = m.FindUserFunc(code, &body);
  if (m.mUserFuncStack.size() >= MAX_USER_FUNC_DEPTH) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  m.mUserFuncStack.push_back(info);
  m.mUserFuncArgs.OpenCall();
  for (size_t i = info->params.size(); i-- > 0;) take_argument(m, info->params[i]);
  m.mUserFuncArgs.EndArgs();
  if (m.TopKind() != TStackKind::Special) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  m.Drop();
  // A function that calls itself overwrites this, so that it cannot return properly; this is meant.
  info->returnPC = m.mPC + 1;
  m.JumpTo(body);
}

void ExeBasicBLoadUserFuncParam(TVMachine& m, const TVMCode* code) {
  const TStackData* argument = m.mUserFuncArgs.Find(code->lval());
  if (argument == nullptr) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  m.mStack.Push(argument->Share());
}

void ExeBasicBRetFromUserFunc(TVMachine& m, const TVMCode*) {
  if (m.mUserFuncStack.empty()) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  const TVMCode* returnPC = m.mUserFuncStack.back()->returnPC;
  m.JumpTo(static_cast<int32_t>(returnPC - m.CodeAt(0)));
  m.mUserFuncStack.pop_back();
  m.mUserFuncArgs.CloseCall();
}

}  // namespace zoka
