// What the debugger and the model of its view both speak of: run modes and variable accesses.
#pragma once

#include <cstdint>
#include <string>

#include "common/types.h"
#include "core/var_info.h"

namespace zoka {

/// How a debugged program runs on. The numbers are part of the design.
enum class TDebugRunMode : uint8_t {
  Run = 0,       // stops at breakpoints only
  StepOver = 1,  // at the next line start on this call level or above
  StepIn = 2,    // at the next line start
  StepOut = 3,   // when the current call level returns
  Breaked = 4,   // the model's own: the program stands; never given to a debugger
  Stop = 5,      // before the next instruction, wherever it lies in a line
};

/// One access to a variable: slot 0 is the plain value, elements count from 1.
struct TVarAccess {
  int32_t index = 0;
  TVarInfo* var = nullptr;
};

/// Accesses that one statement can register.
constexpr int MAX_VAR_ACCESSES = 3;

/// How long a report may wait for the model, microseconds of real time; then it is dropped.
constexpr bigtime_t REPORT_LIMIT = 300'000;

/// A new value for a slot: a number, or the bytes of a text.
struct TEditValue {
  double number = 0;
  std::string text;
};

}  // namespace zoka
