// How the file layer reports a fault of the running program.
#pragma once

#include "common/exception.h"

namespace zoka {

/// Throws a run-time fault with a catalogue key; the machine adds the line.
[[noreturn]] inline void fail_file(const char* key) {
  TException fault;
  fault.key = key;
  throw fault;
}

}  // namespace zoka
