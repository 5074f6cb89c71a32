// The limit of a run's memory, from what the host says is available.
#include "vm/memory_budget.h"

#include <charconv>
#include <fstream>
#include <string>
#include <string_view>

namespace zoka {

int64_t default_memory_limit() {
  constexpr std::string_view FIELD = "MemAvailable:";
  std::ifstream file("/proc/meminfo");
  for (std::string line; std::getline(file, line);) {
    if (line.compare(0, FIELD.size(), FIELD) != 0) continue;
    const size_t begin = std::min(line.find_first_not_of(' ', FIELD.size()), line.size());
    int64_t kilobytes = 0;
    std::from_chars(line.data() + begin, line.data() + line.size(), kilobytes);
    return kilobytes * 1024 / 2;
  }
  return INT64_MAX;
}

}  // namespace zoka
