// The handlers of all operations, declared from the operation table. They are free functions, so
// that one static table of plain pointers serves every machine.
#pragma once

#include "core/vm_code.h"

namespace zoka {

class TVMachine;

#define ZOKA_DECLARE_Handler(handler) void ExeBasic##handler(TVMachine& m, const TVMCode* code);
#define ZOKA_DECLARE_Empty(handler)
#define ZOKA_DECLARE_Nothing(handler)
#define ZOKA_OPERATION(number, name, handler, kind, operand, stack, meaning) \
  ZOKA_DECLARE_##kind(handler)
#include "core/operations.def"
#undef ZOKA_DECLARE_Handler
#undef ZOKA_DECLARE_Empty
#undef ZOKA_DECLARE_Nothing

}  // namespace zoka
