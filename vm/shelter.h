// TShelter: variable forms (end mark, subscripts, reference) that a statement has set aside from
// the stack, so that the first variable is served first although it lies deepest.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "vm/stack_data.h"

namespace zoka {

/// Owns its values. Moved, not copied.
class TShelter {
 public:
  TShelter() = default;
  ~TShelter() {
    for (TStackData& value : mValues) value.Release();
  }
  TShelter(TShelter&& other) noexcept = default;
  TShelter& operator=(TShelter&&) = delete;

  /// Values come in from the stack's top downward; EndForm follows the end mark.
  void Add(TStackData value) { mValues.push_back(value); }
  void EndForm() { mEnds.push_back(mValues.size()); }

  int32_t FormCount() const { return static_cast<int32_t>(mEnds.size()); }
  /// Hands the last form that was added over, in the order in which it lay on the stack.
  template <typename TPush>
  void TakeForm(TPush push) {
    mEnds.pop_back();
    const size_t begin = mEnds.empty() ? 0 : mEnds.back();
    while (mValues.size() > begin) {
      const TStackData value = mValues.back();
      mValues.pop_back();
      push(value);
    }
  }

 private:
  std::vector<TStackData> mValues;
  std::vector<size_t> mEnds;
};

}  // namespace zoka
