// TVarInfo: a variable with its storage, plain and array under one name; and TUserFuncInfo, a
// DEF FN. Written by the machine's thread; a debug view reads under the variables' lock.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/text.h"
#include "core/token.h"

namespace zoka {

class TVMCode;
struct TGrphBlock;

/// Most dimensions of an array. (Its tables have room for 127 sizes, of which one is the end mark.)
constexpr int32_t MAX_DIMENSIONS = 126;
/// Elements of each dimension when an array comes into being without DIM: bounds 0 to 10.
constexpr int32_t DEFAULT_DIMENSION = 11;

/// One variable. Slot 0 holds the plain value, the elements start at slot 1, so one name can be
/// used both ways at once.
struct TVarInfo {
  TVarInfo() = default;
  TVarInfo(const TVarInfo&) = delete;
  TVarInfo& operator=(const TVarInfo&) = delete;
  ~TVarInfo();

  int32_t dimCount = 0;
  /// Size of each dimension (upper bound + 1), the last subscript of the source first; the entry
  /// behind the last is 0.
  int32_t dims[MAX_DIMENSIONS + 1] = {};
  /// strides[dimCount] is the number of elements.
  int32_t strides[MAX_DIMENSIONS + 2] = {1};
  int32_t slotCount = 0;
  std::string name;
  /// Pictures of GET@ and PUT@ by element index; 0 and 1 are one.
  std::map<int32_t, std::shared_ptr<const TGrphBlock>> bitmaps;
  TTokenKind kind = ttVoid;

  /// Storage of slotCount slots by kind; null until Create. Zeroed memory that the host hands out
  /// lazily.
  union {
    int32_t* ints;
    float* floats;
    double* doubles;
    TText* texts;
    void* data = nullptr;
  };

  /// Lays the storage out from dimCount and dims: all slots zero or empty; with `keepFirst` slot 0
  /// keeps its value. Pictures go. Returns false, with nothing changed, if the number of elements
  /// is beyond what a variable can have or memory is short. Counts against `budget` if given.
  bool Create(bool keepFirst, TMemoryBudget* budget = nullptr);
  /// A plain variable of that kind.
  void CreateDefaultNonArray(TTokenKind kindWanted);
  /// `count` dimensions of DEFAULT_DIMENSION elements each; keeps slot 0.
  bool CreateDefaultArray(int32_t count, TMemoryBudget* budget = nullptr);

 private:
  void FreeStorage(void* storage, int32_t slots) const;
  void KeepFirst(void* storage) const;
  int64_t mBytes = 0;  // what the storage counts in the budget
};

/// One DEF FN.
struct TUserFuncInfo {
  std::string name;
  /// Internal label at which the body begins.
  std::string label;
  /// Formal parameters with their suffixes, in source order.
  std::vector<std::string> params;
  std::vector<TTokenKind> paramKinds;
  /// Set by each call: the instruction behind it. A function that calls itself overwrites it, so
  /// that it cannot return properly; this is meant.
  const TVMCode* returnPC = nullptr;
};

}  // namespace zoka
