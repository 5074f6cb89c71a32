// The table of all 65,536 operation numbers, made from the operation table, and of the units beside
// them.
#include <vector>

#include "common/immortal.h"
#include "vm/handlers.h"
#include "vm/units.h"
#include "vm/vmachine.h"

namespace zoka {

namespace {

/// A number that has no operation, or none that may stand in code.
void no_handler(TVMachine& m, const TVMCode*) {
  throw m.RuntimeException2(ERR_ILL_FUNC_CALL);
}

/// A row that must never do anything.
void empty_handler(TVMachine&, const TVMCode*) {}

struct TEntry {
  uint16_t number;
  TVMHandler handler;
};

#define ZOKA_ENTRY_Handler(handler) ExeBasic##handler
#define ZOKA_ENTRY_Empty(handler) empty_handler
#define ZOKA_ENTRY_Nothing(handler) no_handler
constexpr TEntry ENTRIES[] = {
#define ZOKA_OPERATION(number, name, handler, kind, operand, stack, meaning) \
  {number, ZOKA_ENTRY_##kind(handler)},
#include "core/operations.def"
};
#undef ZOKA_ENTRY_Handler
#undef ZOKA_ENTRY_Empty
#undef ZOKA_ENTRY_Nothing

std::vector<TVMHandler> make_table() {
  std::vector<TVMHandler> table(OPERATION_COUNT, no_handler);
  for (const TEntry& entry : ENTRIES) table[entry.number] = entry.handler;
  for (const TUnitRow& row : unit_rows()) table[row.number] = row.handler;
  return table;
}

}  // namespace

const TVMHandler* vm_handler_table() {
  static const auto& table = immortal<std::vector<TVMHandler>>(make_table());
  return table.data();
}

}  // namespace zoka
