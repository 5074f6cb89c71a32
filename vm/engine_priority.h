// The priority of the threads of a run. No behaviour.
#pragma once

#include <cstdint>

namespace zoka {

/// Of threads that do a program's work, be it compiled, run or heard to its end.
constexpr int32_t MACHINE_PRIORITY = 15;

}  // namespace zoka
