// The kanji compatibility modes of a run.
#pragma once

#include <cstdint>

namespace zoka {

constexpr int32_t COMPATI_MODE_DISK = 2;
constexpr int32_t COMPATI_MODE_DOS = 3;

}  // namespace zoka
