// The compatibility modes: which of the old machines' languages a list is compiled and run for.
#pragma once

#include <cstdint>

namespace zoka {

/// The compiler finds out; no mode of a run.
constexpr int32_t COMPAT_AUTO = 0;
constexpr int32_t COMPAT_DISK = 2;
constexpr int32_t COMPAT_DOS = 3;

}  // namespace zoka
