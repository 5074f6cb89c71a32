// Reads the kernel's table of memory.
#include "common/host_memory.h"

#include <fstream>
#include <limits>
#include <string>

namespace zoka {

std::optional<int64_t> available_memory_kbytes() {
  std::ifstream table("/proc/meminfo");
  std::string name;
  int64_t kbytes = 0;
  while (table >> name >> kbytes) {
    if (name == "MemAvailable:") return kbytes;
    table.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
  }
  return std::nullopt;
}

}  // namespace zoka
