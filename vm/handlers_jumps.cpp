// Jumps, GOSUB and RETURN, ON ... GOTO and GOSUB, the end of the program.
#include <algorithm>
#include <vector>

#include "vm/handlers.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

/// Ends the innermost event trap if the stack is as deep as it was when the trap was entered.
void end_trap(TVMachine& m) {
  if (m.mIrStack.empty() || m.mIrStack.back().stackDepth != m.mStack.Depth()) return;
  m.mPort->TurnOnInterrupt(m.mIrStack.back().mask);
  m.mIrStack.pop_back();
}

/// The targets of ON ... GOTO in source order, taken from the stack; owns them.
class TTargets {
 public:
  TTargets(TVMachine& m, int32_t count) {
    mTargets.reserve(static_cast<size_t>(count));
    for (int32_t i = 0; i < count; ++i) mTargets.push_back(m.Pop());
    std::reverse(mTargets.begin(), mTargets.end());
  }
  ~TTargets() {
    for (TStackData& target : mTargets) target.Release();
  }
  TTargets(const TTargets&) = delete;
  TTargets& operator=(const TTargets&) = delete;

  /// Number `number` from 1 on; null if there is none or it was left out.
  const TStackData* Find(int32_t number) const {
    if (number < 1 || static_cast<size_t>(number) > mTargets.size()) return nullptr;
    const TStackData& target = mTargets[static_cast<size_t>(number) - 1];
    return target.kind == TStackKind::Abbrev ? nullptr : &target;
  }

 private:
  std::vector<TStackData> mTargets;
};

}  // namespace

void ExeBasicBJmp(TVMachine& m, const TVMCode* code) {
  m.JumpToPopped(code);
}

void ExeBasicBFJmp(TVMachine& m, const TVMCode* code) {
  // Any value that rounds to a non-zero integer is true; what is no number is false.
  if (m.PopInt() != 0) {
    m.Drop();
  } else {
    m.JumpToPopped(code);
  }
}

void ExeBasicBCall(TVMachine& m, const TVMCode* code) {
  const TStackData target = m.Pop();
  m.PushReturnRecord(m.PCIndex() + 1);
  m.mStack.Push(target);
  m.JumpToPopped(code);
}

void ExeBasicBRet(TVMachine& m, const TVMCode* code) {
  if (code->bval()) {
    int32_t index = 0;
    if (!m.mStack.PopToReturn(&index)) {
      throw m.RuntimeException2("@Runtime_Err_Return_Without_Gosub@");
    }
    m.JumpTo(index);
  } else {
    // The return record of the call stays; this is meant.
    m.JumpToPopped(code);
  }
  end_trap(m);
}

void ExeBasicBExit(TVMachine& m, const TVMCode*) {
  m.JumpToEnd();
}

void ExeBasicOnGosubGoto(TVMachine& m, const TVMCode* code) {
  const TTargets targets(m, code->lval());
  const int32_t selector = m.PopInt();
  if (selector < 0) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  const TStackData* target = targets.Find(selector);
  if (target == nullptr) return;
  m.mStack.Push(target->Share());
  if (code->Cmd() == TVMCodeCmd::OnGosub) {
    ExeBasicBCall(m, code);
    m.ExeBasicOnGosubGotoGosubInvoked();
  } else {
    m.JumpToPopped(code);
  }
}

}  // namespace zoka
