// Units: short runs of instructions that one handler executes in one go, with the same effect and
// nothing left out. Each machine runs a copy of the code in which the first instruction of a unit
// bears the unit's number; indices, operands and all others stay, so that jumps may lead anywhere.
#pragma once

#include <cstdint>
#include <vector>

#include "vm/vmachine.h"

namespace zoka {

/// Numbers of the units: beyond those of all operations.
constexpr uint32_t FIRST_UNIT = 0x2000;

enum class TUnit : uint32_t {
  /// -1, load: the plain value of a numeric variable.
  LoadPlain = FIRST_UNIT,
  /// The same of a text variable.
  LoadText,
  /// -1, reference: the form of a plain variable.
  PlaceOfPlain,
  /// A constant line or label, jump.
  Jump,
  /// A constant line or label, call.
  Call,
  /// FOR's test, conditional jump.
  TestFor,
  /// The whole test of FOR: label, -1, load, limit (integer), step (integer), test, jump; and with
  /// a plain variable (-1, load) as the limit.
  ForToConstant,
  ForToVariable,
  /// V = V' + integer: -1, reference, -1, load, integer, addition, assignment; by the addition's
  /// operation: integer, single, double.
  AddConstant = 0x2010,
  /// Arithmetic with an integer constant, and with a plain variable, on its right; then a relation
  /// and a conditional jump. The operation is added.
  ConstantOperand = 0x2100,
  VariableOperand = 0x2200,
  Branch = 0x2300,
};

/// A unit's number and handler.
struct TUnitRow {
  uint32_t number;
  TVMHandler handler;
};

/// All units.
const std::vector<TUnitRow>& unit_rows();

/// The program's code with its units put in.
std::vector<TVMCode> code_with_units(const TMidCode& program);

}  // namespace zoka
