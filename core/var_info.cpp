// The storage of a variable: how many slots its dimensions ask for, and their allocation.
#include "core/var_info.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

namespace zoka {
namespace {

/// Most elements of an array: with slot 0 the slots are counted in 31 bits.
constexpr int64_t MAX_ELEMENTS = INT32_MAX - 1;

size_t slot_bytes(TTokenKind kind) {
  switch (kind) {
    case ttInt:
      return sizeof(int32_t);
    case ttSng:
      return sizeof(float);
    case ttDbl:
      return sizeof(double);
    case ttStr:
      return sizeof(TText);
    default:
      return 0;
  }
}

/// Writes the strides; false if one is beyond what an array can have.
bool lay_out(const int32_t* dims, int32_t dimCount, int32_t* strides) {
  int64_t stride = 1;
  strides[0] = 1;
  for (int32_t i = 0; i < dimCount; ++i) {
    stride *= dims[i];
    if (stride > MAX_ELEMENTS || stride < -MAX_ELEMENTS) return false;
    strides[i + 1] = static_cast<int32_t>(stride);
  }
  return true;
}

}  // namespace

TVarInfo::~TVarInfo() {
  FreeStorage(data, slotCount);
}

void TVarInfo::FreeStorage(void* storage, int32_t slots) const {
  if (kind == ttStr && storage != nullptr) {
    auto* first = static_cast<TText*>(storage);
    std::for_each(first, first + slots, [](TText& text) { text.~TText(); });
  }
  std::free(storage);
}

bool TVarInfo::Create(bool keepFirst, TMemoryBudget* budget) {
  if (dimCount < 0 || dimCount > MAX_DIMENSIONS) return false;
  int32_t newStrides[MAX_DIMENSIONS + 2] = {};
  if (!lay_out(dims, dimCount, newStrides)) return false;
  // Sizes that leave no element (DIM A(-5)) keep their strides: every access is then out of range.
  const int32_t slots = std::max(newStrides[dimCount], 0) + 1;

  const size_t width = slot_bytes(kind);
  const int64_t bytes = budget != nullptr ? int64_t{slots} * static_cast<int64_t>(width) : 0;
  if (budget != nullptr && budget->used - mBytes > budget->limit - bytes) return false;
  void* storage = nullptr;
  if (width != 0) {
    storage = std::calloc(static_cast<size_t>(slots), width);
    if (storage == nullptr) return false;
  }

  if (keepFirst && data != nullptr) KeepFirst(storage);
  FreeStorage(data, slotCount);
  if (budget != nullptr) budget->used += bytes - mBytes;
  mBytes = bytes;
  data = storage;
  slotCount = slots;
  std::copy(std::begin(newStrides), std::end(newStrides), strides);
  bitmaps.clear();
  return true;
}

void TVarInfo::KeepFirst(void* storage) const {
  switch (kind) {
    case ttInt:
      *static_cast<int32_t*>(storage) = *ints;
      break;
    case ttSng:
      *static_cast<float*>(storage) = *floats;
      break;
    case ttDbl:
      *static_cast<double*>(storage) = *doubles;
      break;
    case ttStr:
      *static_cast<TText*>(storage) = *texts;
      break;
    default:
      break;
  }
}

void TVarInfo::CreateDefaultNonArray(TTokenKind kindWanted) {
  FreeStorage(data, slotCount);
  data = nullptr;
  slotCount = 0;
  kind = kindWanted;
  dimCount = 0;
  dims[0] = 0;
  if (!Create(false)) throw std::bad_alloc();
}

bool TVarInfo::CreateDefaultArray(int32_t count, TMemoryBudget* budget) {
  if (count < 0 || count > MAX_DIMENSIONS) return false;
  dimCount = count;
  std::fill_n(dims, count, DEFAULT_DIMENSION);
  dims[count] = 0;
  return Create(true, budget);
}

}  // namespace zoka
