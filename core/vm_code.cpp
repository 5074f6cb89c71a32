// The operation table: the rows of operations.def as data, and their look-up by number.
#include "core/vm_code.h"

#include <array>
#include <iterator>

namespace zoka {
namespace {

constexpr TOperationRow ROWS[] = {
#define ZOKA_OPERATION(number, name, handler, kind, operand, stack, meaning) \
  {TVMCodeCmd::name, #handler, THandlerKind::kind, TOperandKind::operand, stack, meaning},
#include "core/operations.def"
};
constexpr int ROW_COUNT = static_cast<int>(std::size(ROWS));

constexpr bool rows_ascend() {
  for (int i = 1; i < ROW_COUNT; ++i) {
    if (ROWS[i - 1].cmd >= ROWS[i].cmd) return false;
  }
  return static_cast<uint32_t>(ROWS[ROW_COUNT - 1].cmd) < OPERATION_COUNT;
}
static_assert(rows_ascend(), "the rows stand in the order of their numbers, each once");

constexpr std::array<uint16_t, OPERATION_COUNT> row_indices() {
  std::array<uint16_t, OPERATION_COUNT> indices{};
  for (int i = 0; i < ROW_COUNT; ++i) {
    indices[static_cast<uint32_t>(ROWS[i].cmd)] = static_cast<uint16_t>(i + 1);
  }
  return indices;
}

// Place of each number's row, counted from 1; 0 for a free number.
constexpr std::array<uint16_t, OPERATION_COUNT> ROW_INDICES = row_indices();

}  // namespace

const TOperationRow* find_operation(TVMCodeCmd cmd) {
  const auto number = static_cast<uint32_t>(cmd);
  if (number >= OPERATION_COUNT || ROW_INDICES[number] == 0) return nullptr;
  return &ROWS[ROW_INDICES[number] - 1];
}

const TOperationRow* operation_rows(int* count) {
  *count = ROW_COUNT;
  return ROWS;
}

}  // namespace zoka
