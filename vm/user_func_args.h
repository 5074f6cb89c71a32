// TUserFuncArgs: the actual arguments of the active DEF FN calls, the innermost last.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "vm/memory_budget.h"
#include "vm/stack_data.h"

namespace zoka {

/// Owns its values; growth counts against the budget.
class TUserFuncArgs {
 public:
  explicit TUserFuncArgs(TMemoryBudget* budget) : mBudget(budget) {}
  ~TUserFuncArgs() { Truncate(0); }
  TUserFuncArgs(const TUserFuncArgs&) = delete;
  TUserFuncArgs& operator=(const TUserFuncArgs&) = delete;

  /// Begins a call; its arguments are added last one first.
  void OpenCall() {
    reserve_counted(&mBegins, mBudget);
    mBegins.push_back(mValues.size());
  }
  /// Room for one more value; to be called before Add, since it may throw.
  void Reserve() { reserve_counted(&mValues, mBudget); }
  void Add(TStackData value) { mValues.push_back(value); }
  /// All arguments are there: puts them into source order.
  void EndArgs() {
    std::reverse(mValues.begin() + static_cast<std::ptrdiff_t>(mBegins.back()), mValues.end());
  }
  /// Argument `index` of the innermost call, or null.
  const TStackData* Find(int32_t index) const {
    if (mBegins.empty() || index < 0) return nullptr;
    const size_t place = mBegins.back() + static_cast<size_t>(index);
    return place < mValues.size() ? &mValues[place] : nullptr;
  }
  /// Ends the innermost call.
  void CloseCall() {
    Truncate(mBegins.back());
    mBegins.pop_back();
  }

 private:
  void Truncate(size_t size) {
    for (; mValues.size() > size; mValues.pop_back()) mValues.back().Release();
  }

  std::vector<TStackData> mValues;
  std::vector<size_t> mBegins;
  TMemoryBudget* mBudget;
};

}  // namespace zoka
