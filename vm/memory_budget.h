// What a run may use of the host's memory: the limit, and counting against it. Hosts of this kind
// kill a process rather than refuse it memory, so a run is refused before.
#pragma once

#include <algorithm>
#include <cstdint>
#include <new>
#include <vector>

#include "core/text.h"

namespace zoka {

/// Half of the memory that the host has available now, in bytes; without a limit if it does not
/// say.
int64_t default_memory_limit();

/// Counts `bytes` more; throws std::bad_alloc, with nothing counted, if that is too much.
inline void charge_memory(TMemoryBudget* budget, int64_t bytes) {
  if (budget->used > budget->limit - bytes) throw std::bad_alloc();
  budget->used += bytes;
}

/// Makes room for one more element of a vector; its growth is counted.
template <typename T>
void reserve_counted(std::vector<T>* items, TMemoryBudget* budget) {
  if (items->size() < items->capacity()) return;
  const size_t more = std::max<size_t>(items->size(), 16);
  charge_memory(budget, static_cast<int64_t>(more * sizeof(T)));
  items->reserve(items->size() + more);
}

}  // namespace zoka
