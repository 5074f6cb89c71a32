// The slow paths of the stack: growth, forgetting, return records, and pops that reach their edge.
#include "vm/value_stack.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include "vm/memory_budget.h"

namespace zoka {
namespace {

constexpr int64_t FIRST_CAPACITY = 256;
constexpr auto VALUE_BYTES = static_cast<int64_t>(sizeof(TStackData));

}  // namespace

TValueStack::TValueStack(TMemoryBudget* budget) : mBudget(budget) {}

TValueStack::~TValueStack() {
  Clear();
  std::free(mBase);
}

void TValueStack::Grow() {
  if (mTop - mFloor >= STACK_SEGMENT_LIMIT) {
    Forget();
  } else {
    Enlarge();
  }
}

void TValueStack::PushSlow(TStackData value) {
  Grow();
  *mTop++ = value;
}

void TValueStack::Enlarge() {
  const int64_t capacity = std::max(mCapacity * 2, FIRST_CAPACITY);
  charge_memory(mBudget, (capacity - mCapacity) * VALUE_BYTES);
  const int64_t size = mTop - mBase;
  auto* memory = static_cast<TStackData*>(
      std::realloc(static_cast<void*>(mBase), static_cast<size_t>(capacity * VALUE_BYTES)));
  if (memory == nullptr) throw std::bad_alloc();
  mBase = memory;
  mTop = memory + size;
  mCapacity = capacity;
  SetBounds();
}

void TValueStack::Forget() {
  TStackData* kept = mTop - STACK_SEGMENT_KEPT;
  std::for_each(mFloor, kept, [](TStackData& value) { value.Release(); });
  mElided += kept - mFloor;
  mTop = std::copy(kept, mTop, mFloor);
}

void TValueStack::SetBounds() {
  mFloor = mRecords.empty() ? mBase : mBase + mRecords.back().position + 1;
  mLimit = mBase + std::min(mCapacity, (mFloor - mBase) + STACK_SEGMENT_LIMIT);
}

void TValueStack::PushReturn(int32_t codeIndex) {
  reserve_counted(&mRecords, mBudget);
  Push(TStackData::Of(codeIndex, TStackKind::Return));
  mRecords.push_back({(mTop - mBase) - 1, mElided});
  SetBounds();
}

TStackKind TValueStack::TopKind() const {
  if (mTop != mFloor) return Top().kind;
  if (mElided > ElidedBelowSegment()) return TStackKind::Gap;
  return mRecords.empty() ? TStackKind::Gap : TStackKind::Return;
}

TStackData TValueStack::PopSlow(bool* empty) {
  if (mTop != mFloor) return *--mTop;
  if (mElided > ElidedBelowSegment()) {
    --mElided;
    return {};
  }
  if (mRecords.empty()) {
    *empty = true;
    return {};
  }
  const TStackData record = *--mTop;
  mRecords.pop_back();
  SetBounds();
  return record;
}

void TValueStack::ReleaseDownTo(TStackData* end) {
  std::for_each(end, mTop, [](TStackData& value) { value.Release(); });
  mTop = end;
}

bool TValueStack::PopToReturn(int32_t* codeIndex) {
  ReleaseDownTo(mFloor);
  mElided = ElidedBelowSegment();
  if (mRecords.empty()) return false;
  *codeIndex = (--mTop)->lval;
  mRecords.pop_back();
  SetBounds();
  return true;
}

void TValueStack::Clear() {
  ReleaseDownTo(mBase);
  mRecords.clear();
  mElided = 0;
  SetBounds();
}

}  // namespace zoka
