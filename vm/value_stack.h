// TValueStack: the machine's stack of values and return records in one contiguous array. Programs
// of the language leave values behind by design (a NEXT with names, expression statements); the
// stack forgets the oldest of them, but counts as if they were there.
#pragma once

#include <cstdint>
#include <vector>

#include "vm/stack_data.h"

namespace zoka {

/// Values above the topmost return record at which the oldest are forgotten, and how many stay:
/// more than any statement's live operands.
constexpr int64_t STACK_SEGMENT_LIMIT = 32768;
constexpr int64_t STACK_SEGMENT_KEPT = 16384;

/// Depth means the virtual depth: what is there plus what was forgotten. Values above the topmost
/// return record and above what was forgotten there are "plain": reached without a closer look.
class TValueStack {
 public:
  /// The array's growth counts against `budget`, which outlives the stack.
  explicit TValueStack(TMemoryBudget* budget);
  ~TValueStack();
  TValueStack(const TValueStack&) = delete;
  TValueStack& operator=(const TValueStack&) = delete;

  bool IsEmpty() const { return mTop == mBase && mElided == 0; }
  int64_t Depth() const { return (mTop - mBase) + mElided; }

  /// Takes over the value's text. Throws std::bad_alloc beyond the budget.
  void Push(const TStackData& value) {
    if (mTop == mLimit) [[unlikely]]
      return PushSlow(value);
    *mTop++ = value;
  }
  /// Pushes a return record.
  void PushReturn(int32_t codeIndex);
  int64_t ReturnRecordCount() const { return static_cast<int64_t>(mRecords.size()); }

  /// True if `count` plain values are there.
  bool HasPlain(int64_t count = 1) const { return mTop - mFloor >= count; }
  /// The plain value `depth` places below the top one.
  TStackData& Top(int64_t depth = 0) { return mTop[-1 - depth]; }
  const TStackData& Top(int64_t depth = 0) const { return mTop[-1 - depth]; }
  /// Takes plain values off without releasing them.
  void Shrink(int64_t count) { mTop -= count; }
  /// Kind of the top, whatever it is; Gap also for an empty stack.
  TStackKind TopKind() const;
  /// Takes the top, whatever it is; *empty is set if there is none. A forgotten value yields Gap.
  TStackData PopSlow(bool* empty);
  /// Takes everything down to the topmost return record, and it; false if there is none (the stack
  /// is then empty). Texts are released.
  bool PopToReturn(int32_t* codeIndex);
  /// Releases everything.
  void Clear();

  /// Values that the array can hold without growing.
  int64_t Capacity() const { return mCapacity; }

 private:
  struct TRecord {
    int64_t position;  // index in the array
    int64_t elided;    // mElided when it was pushed
  };
  [[gnu::noinline, gnu::cold]] void PushSlow(TStackData value);
  void Grow();
  void Enlarge();
  void Forget();
  void SetBounds();
  void ReleaseDownTo(TStackData* end);
  int64_t ElidedBelowSegment() const { return mRecords.empty() ? 0 : mRecords.back().elided; }

  TStackData* mTop = nullptr;
  TStackData* mLimit = nullptr;  // where the next push is slow
  TStackData* mFloor = nullptr;  // where the next pop is slow: the base, or above a record
  TStackData* mBase = nullptr;
  int64_t mCapacity = 0;
  int64_t mElided = 0;
  std::vector<TRecord> mRecords;
  TMemoryBudget* mBudget;
};

}  // namespace zoka
