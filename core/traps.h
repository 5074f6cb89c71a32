// The numbers of the events that a program can trap, as compiled into its code. Keys and mouse
// events count on from theirs: KEY(n) is TRAP_KEY + n, MOUSE(n) TRAP_MOUSE + n.
#pragma once

#include <cstdint>

namespace zoka {

constexpr int32_t TRAP_STOP = 8;
constexpr int32_t TRAP_HELP = 0x10;
constexpr int32_t TRAP_TIME = 0x20;
constexpr int32_t TRAP_KEY = 0x40;
constexpr int32_t TRAP_PLAY = 0x40000;
constexpr int32_t TRAP_MOUSE = 0x200000;

constexpr int32_t TRAP_KEY_COUNT = 10;
constexpr int32_t TRAP_MOUSE_COUNT = 5;

}  // namespace zoka
