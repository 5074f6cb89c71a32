// The machine's access to variables: subscripts, elements, storage, and the forms that READ and
// INPUT set aside.
#include <algorithm>
#include <array>
#include <mutex>
#include <span>

#include "common/text/number.h"
#include "vm/handler_args.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

constexpr const char ERR_OUT_OF_RANGE[] = "@Runtime_Err_Subscript_Out_Of_Range@";

/// Holds the variables' lock if the variables are watched.
class TStoreLock {
 public:
  explicit TStoreLock(TVMachine& m) : mLock(m.mMidCode->VariablesLock(), std::defer_lock) {
    if (m.mWatched) mLock.lock();
  }

 private:
  std::unique_lock<TMutex> mLock;
};

/// Sums of products of 126 subscripts and strides do not fit into 64 bits.
__extension__ using TWide = __int128;

}  // namespace

int32_t TVMachine::PopSubscripts(int32_t* subscripts) {
  int32_t count = 0;
  for (int32_t value = PopInt(); value != SUBSCRIPT_END; value = PopInt()) {
    if (count == MAX_DIMENSIONS) throw RuntimeException2(ERR_BAD_DIMENSION);
    subscripts[count++] = value;
  }
  return count;
}

int32_t TVMachine::DimSuf(TVarInfo* var) {
  int32_t subscripts[MAX_DIMENSIONS];
  const int32_t count = PopSubscripts(subscripts);
  if (count == 0) return 0;
  if (var->dimCount == 0) {
    int32_t sizes[MAX_DIMENSIONS];
    std::fill_n(sizes, count, DEFAULT_DIMENSION);
    LayOut(var, sizes, count);
    SendResetVarRqtd(var);
  }
  return FlatSlot(var, subscripts, count);
}

int32_t TVMachine::FlatSlot(const TVarInfo* var, const int32_t* subscripts, int32_t count) {
  if (var->dimCount != count) throw RuntimeException2(ERR_BAD_DIMENSION);
  TWide offset = 0;
  for (int32_t i = 0; i < count; ++i) {
    offset += static_cast<int64_t>(subscripts[i]) * var->strides[i];
  }
  // Only the sum is tested, not each subscript: A(0,5) may be A(1,2).
  if (offset < mRsrc->OptionBase() || offset >= var->strides[count]) {
    throw RuntimeException2(ERR_OUT_OF_RANGE);
  }
  return static_cast<int32_t>(offset) + 1;
}

void TVMachine::LayOut(TVarInfo* var, const int32_t* sizes, int32_t count) {
  const TStoreLock lock(*this);
  const auto oldDims = std::to_array(var->dims);
  const int32_t oldCount = var->dimCount;
  std::copy_n(sizes, count, var->dims);
  var->dims[count] = 0;
  var->dimCount = count;
  if (var->Create(true, &mBudget)) return;
  std::copy(oldDims.begin(), oldDims.end(), var->dims);
  var->dimCount = oldCount;
  throw RuntimeException2(ERR_BAD_DIMENSION);
}

TVarInfo* TVMachine::DimOneVar() {
  TVarInfo* var = PopVar();
  int32_t sizes[MAX_DIMENSIONS];
  const int32_t count = PopSubscripts(sizes);
  for (int32_t& size : std::span(sizes, static_cast<size_t>(count))) {
    if (size == INT32_MAX) throw RuntimeException2(ERR_BAD_DIMENSION);
    ++size;
  }
  LayOut(var, sizes, count);
  return var;
}

TStackData TVMachine::LoadSlot(const TVarInfo* var, int32_t slot) const {
  switch (var->kind) {
    case ttInt:
      return TStackData::Of(var->ints[slot]);
    case ttSng:
      return TStackData::Of(var->floats[slot]);
    case ttDbl:
      return TStackData::Of(var->doubles[slot]);
    default: {
      const TText& text = var->texts[slot];
      text.Block()->Retain();
      return TStackData::OfText(text.Block(), text.Length());
    }
  }
}

int32_t TVMachine::VarToVal(TVarInfo* var) {
  const int32_t slot = DimSuf(var);
  // The subscripts have made room: this push cannot fail.
  mStack.Push(LoadSlot(var, slot));
  return slot;
}

void TVMachine::StoreSlot(TVarInfo* var, int32_t slot, TStackData value) {
  const TStoreLock lock(*this);
  switch (var->kind) {
    case ttInt:
      var->ints[slot] = stack_int(value);
      break;
    case ttSng:
      var->floats[slot] = stack_float(value);
      break;
    case ttDbl:
      var->doubles[slot] = stack_double(value);
      break;
    case ttStr:
      var->texts[slot] =
          value.kind == TStackKind::String ? TText(value.text, value.length) : TText();
      return;
    default:
      break;
  }
  value.Release();
}

void TVMachine::AssignArray() {
  TOwnedData value(Pop());
  TVarInfo* var = PopVar();
  const int32_t slot = DimSuf(var);
  RegisterVarAccess(0, var, slot);
  StoreSlot(var, slot, value->Share());
}

TShelter TVMachine::SheltVar(int32_t count) {
  TShelter saved;
  for (int32_t i = 0; i < count; ++i) {
    TStackData value = Pop();
    saved.Add(value);
    while (stack_int(value) != SUBSCRIPT_END) {
      value = Pop();
      saved.Add(value);
    }
    saved.EndForm();
  }
  return saved;
}

TVarInfo* TVMachine::TakeForm(TShelter* saved) {
  if (saved->FormCount() == 0) throw RuntimeException2(ERR_ILL_FUNC_CALL);
  saved->TakeForm([this](const TStackData& value) { mStack.Push(value); });
  if (TopKind() != TStackKind::Var) throw RuntimeException2(ERR_ILL_FUNC_CALL);
  return mStack.Top().var;
}

void TVMachine::AssignInputDatas(const std::list<std::string>& items, TShelter* saved) {
  for (const std::string& item : items) AssignInputData(item, saved);
}

void TVMachine::AssignInputData(std::string_view item, TShelter* saved) {
  const TVarInfo* var = TakeForm(saved);
  if (var->kind == ttStr) {
    PushString(item);
  } else {
    PushInputNumber(var, item);
  }
  AssignArray();
}

void TVMachine::PushInputNumber(const TVarInfo* var, std::string_view item) {
  if (item.starts_with('&')) {
    PushInt(ParsePrefixedInt(item));
  } else if (var->kind == ttInt) {
    PushInt(parse_long(item));
  } else {
    PushDouble(parse_double(item));
  }
}

int32_t TVMachine::ParsePrefixedInt(std::string_view item) {
  const char form = item.size() > 1 ? item[1] : '\0';
  if (form == 'H' || form == 'h') return parse_hex(item.substr(2));
  if (form != 'O' && form != 'o') return 0;
  return parse_strict_octal(*this, item.substr(2));
}

const TVMCode* TVMachine::NextData() {
  if (mDataIndices.empty()) {
    const std::vector<TVMCode>& codes = mMidCode->mCodes;
    for (size_t i = 1; i < codes.size(); ++i) {
      if (codes[i].Cmd() == TVMCodeCmd::Data) mDataIndices.push_back(static_cast<int32_t>(i));
    }
  }
  const auto index = static_cast<int32_t>(mDataPos - mCodeBase);
  const auto next = std::lower_bound(mDataIndices.begin(), mDataIndices.end(), index);
  return next != mDataIndices.end() ? mCodeBase + *next : nullptr;
}

}  // namespace zoka
