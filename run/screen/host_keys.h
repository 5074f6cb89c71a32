// The bytes by which the host's platform codes the keys that type no character, as the key buffer
// and the run view take them. The simulated keyboard's own codes are the key buffer's business.
#pragma once

#include <cstdint>

namespace zoka {

constexpr char HOST_KEY_HOME = 0x01;
constexpr char HOST_KEY_END = 0x04;
constexpr char HOST_KEY_INSERT = 0x05;
constexpr char HOST_KEY_BACKSPACE = 0x08;
constexpr char HOST_KEY_TAB = 0x09;
constexpr char HOST_KEY_ENTER = 0x0A;
constexpr char HOST_KEY_PAGE_UP = 0x0B;
constexpr char HOST_KEY_PAGE_DOWN = 0x0C;
/// Any function key; a key code says which.
constexpr char HOST_KEY_FUNCTION = 0x10;
constexpr char HOST_KEY_ESCAPE = 0x1B;
constexpr char HOST_KEY_LEFT = 0x1C;
constexpr char HOST_KEY_RIGHT = 0x1D;
constexpr char HOST_KEY_UP = 0x1E;
constexpr char HOST_KEY_DOWN = 0x1F;
constexpr char HOST_KEY_DELETE = 0x7F;

/// The key code of F1; the others follow.
constexpr int32_t FIRST_FUNCTION_KEY_CODE = 2;
/// Function keys that the host has and that can be trapped; FUNC_KEY_COUNT of them have a text.
constexpr int32_t HOST_FUNCTION_KEYS = 12;

}  // namespace zoka
