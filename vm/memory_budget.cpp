// The limit of a run's memory, from what the host says is available.
#include "vm/memory_budget.h"

#include "common/host_memory.h"

namespace zoka {

namespace {

constexpr int64_t BYTES_PER_KBYTE = 1024;

}  // namespace

int64_t default_memory_limit() {
  const std::optional<int64_t> kbytes = available_memory_kbytes();
  return kbytes ? *kbytes * BYTES_PER_KBYTE / 2 : INT64_MAX;
}

}  // namespace zoka
