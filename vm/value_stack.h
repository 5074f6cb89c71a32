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

/// Depth means the virtual depth: what is there plus what was forgotten.
class TValueStack {
 public:
  TValueStack();
  ~TValueStack();
  TValueStack(const TValueStack&) = delete;
  TValueStack& operator=(const TValueStack&) = delete;

  bool IsEmpty() const { return mTop == mBase && mElided == 0; }
  int64_t Depth() const { return (mTop - mBase) + mElided; }

  void Push(const TStackData& value) {
    if (mTop == mLimit) Grow();
    *mTop++ = value;
  }
  /// Pushes a return record.
  void PushReturn(int32_t codeIndex);
  int64_t ReturnRecordCount() const { return static_cast<int64_t>(mRecords.size()); }

  /// True if a value can be taken without PopSlow.
  bool HasPlain() const { return mTop != mFloor; }
  /// The topmost value; only if HasPlain.
  TStackData& Top() { return mTop[-1]; }
  const TStackData& Top() const { return mTop[-1]; }
  /// The value `depth` places below the top, only if it is above the floor; else null.
  const TStackData* Peek(int64_t depth) const;
  /// Takes the top without looking at its kind; only if HasPlain and it is no return record.
  TStackData PopPlain() { return *--mTop; }
  /// Takes the top, whatever it is; *empty is set if there is none. A forgotten value yields Gap.
  TStackData PopSlow(bool* empty);
  /// Takes everything down to the topmost return record, and it; false if there is none (the stack
  /// is then empty). Texts are released.
  bool PopToReturn(int32_t* codeIndex);
  /// Releases everything.
  void Clear();

 private:
  struct TRecord {
    int64_t position;  // index in the array
    int64_t elided;    // mElided when it was pushed
  };
  void Grow();
  void SetBounds();

  TStackData* mBase = nullptr;
  TStackData* mTop = nullptr;
  TStackData* mLimit = nullptr;  // where the next push is slow
  TStackData* mFloor = nullptr;  // where the next pop is slow: the base, a gap, or above a record
  int64_t mCapacity = 0;
  int64_t mElided = 0;
  std::vector<TRecord> mRecords;
};

}  // namespace zoka
