// DIM, OPTION BASE, SWAP, and DATA with READ and RESTORE.
#include "vm/handlers.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

/// One side of SWAP.
struct TPlace {
  TVarInfo* var;
  int32_t slot;
};

TPlace pop_place(TVMachine& m) {
  TVarInfo* var = m.PopVar();
  const int32_t slot = m.DimSuf(var);
  return {var, slot};
}

void store_place(TVMachine& m, const TPlace& place, const TStackData& value) {
  m.RegisterVarAccess(0, place.var, place.slot);
  m.StoreSlot(place.var, place.slot, value.Share());
}

}  // namespace

void ExeBasicDim(TVMachine& m, const TVMCode* code) {
  for (int32_t i = 0; i < code->lval(); ++i) m.DimOneVar();
}

void ExeBasicOptionBase(TVMachine& m, const TVMCode*) {
  const int32_t base = m.PopInt();
  if (base != 0 && base != 1) throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
  m.mRsrc->SetOptionBase(static_cast<int8_t>(base));
}

void ExeBasicSwap(TVMachine& m, const TVMCode*) {
  const TPlace second = pop_place(m);
  const TOwnedData secondValue(m.LoadSlot(second.var, second.slot));
  m.RegisterVarAccess(1, second.var, second.slot);
  const TPlace first = pop_place(m);
  const TOwnedData firstValue(m.LoadSlot(first.var, first.slot));
  m.RegisterVarAccess(2, first.var, first.slot);
  // The only type check of an assignment at run time.
  if (firstValue->kind != secondValue->kind) throw m.RuntimeException2(ERR_TYPE_MISMATCH);
  store_place(m, second, *firstValue);
  store_place(m, first, *secondValue);
}

void ExeBasicData(TVMachine& m, const TVMCode* code) {
  while (code[1].Cmd() == TVMCodeCmd::Data) ++code;  // the code's end is none
  m.mPC = code;  // the last item of the run; the main loop steps over it
}

void ExeBasicRead(TVMachine& m, const TVMCode* code) {
  TShelter saved = m.SheltVar(code->lval());
  for (int32_t i = 0; i < code->lval(); ++i) {
    const TVMCode* item = m.NextData();
    if (item == nullptr) throw m.RuntimeException2("@Runtime_Err_Out_Of_Data@");
    m.AssignInputData(item->str()->View(), &saved);
    m.mDataPos = item + 1;
  }
}

void ExeBasicRestore(TVMachine& m, const TVMCode* code) {
  int32_t index = 1;
  if (code->bval()) {
    const TOwnedData target(m.Pop());
    index = m.FindTarget(*target);
    if (index == 0) return;
  }
  m.mDataPos = m.CodeAt(index);
}

}  // namespace zoka
