// What handlers share in reading their operands: the error of a bad one, ranges, and operands that
// were left out.
#pragma once

#include <cstdint>
#include <optional>

#include "vm/vmachine.h"

namespace zoka {

/// The exception of an operand that a statement does not take, to be thrown.
inline TException bad_call(TVMachine& m) {
  return m.RuntimeException2(ERR_ILL_FUNC_CALL);
}

/// Raises an illegal function call outside `low` to `high`.
inline void check_range(TVMachine& m, int32_t value, int32_t low, int32_t high) {
  if (value < low || value > high) throw bad_call(m);
}

/// Takes the mark of an operand that was left out; false if there is an operand.
inline bool drop_if_omitted(TVMachine& m) {
  if (m.TopKind() != TStackKind::Abbrev) return false;
  m.Drop();
  return true;
}

/// Pops an operand that may have been left out.
inline std::optional<int32_t> pop_optional(TVMachine& m) {
  if (drop_if_omitted(m)) return std::nullopt;
  return m.PopInt();
}

}  // namespace zoka
