// What a statement answers that can be compiled but not yet be run.
#pragma once

#include "core/vm_code.h"
#include "vm/vmachine.h"

namespace zoka {

/// The exception of an operation that is not available yet, to be thrown; names the operation.
TException not_yet(TVMachine& m, const TVMCode* code);

}  // namespace zoka
