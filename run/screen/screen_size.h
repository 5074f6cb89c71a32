// The fixed measures of the simulated screen. No behaviour.
#pragma once

#include <cstdint>

#include "common/types.h"

namespace zoka {

/// The surface that every mode is a scaling of, in device pixels.
constexpr int32_t SCREEN_WIDTH = 640;
constexpr int32_t SCREEN_HEIGHT = 400;
/// All of it, and of a graphic page, with inclusive corners.
constexpr TRect WHOLE_PAGE{0, 0, SCREEN_WIDTH - 1, SCREEN_HEIGHT - 1};

/// Graphic pages, and the value of `displayPage` that shows none of them.
constexpr int32_t PAGE_COUNT = 4;
constexpr int8_t NO_PAGE = 4;

/// Room in the text arrays; a mode uses rows times columns of it, 2,000 at most.
constexpr int32_t MAX_TXT_CELLS = 2500;
/// ClearTxtBuf counts its rows in this many cells, also on a screen of 40 columns.
constexpr int32_t CLEAR_ROW_CELLS = 80;
constexpr int32_t MAX_TXT_ROWS = 25;

constexpr int32_t GRPH_PAL_COLORS = 16;
constexpr int32_t TXT_PAL_COLORS = 8;

/// Drives 1 and 2 have a lamp.
constexpr int32_t LAMP_COUNT = 2;

constexpr int32_t FUNC_KEY_COUNT = 10;
/// Key presses that wait at most; further ones are lost.
constexpr int32_t KEY_BUF_SIZE = 16;

}  // namespace zoka
