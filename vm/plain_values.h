// The quick ways to values: plain slots of variables, elements of arrays, numbers on the stack.
// What they do not cover, and every error, is left to the machine's general ways.
#pragma once

#include <cstdint>
#include <type_traits>

#include "vm/vmachine.h"

namespace zoka {

inline bool is_end_mark(const TStackData& value) {
  return value.kind == TStackKind::Int && value.lval == SUBSCRIPT_END;
}

/// A value as an operand of that type.
template <typename T>
inline T value_as(const TStackData& value) {
  if constexpr (std::is_same_v<T, int32_t>) return stack_int(value);
  if constexpr (std::is_same_v<T, float>) return stack_float(value);
  if constexpr (std::is_same_v<T, double>) return stack_double(value);
}

/// Takes the top as an operand of that type.
template <typename T>
T pop_as(TVMachine& m) {
  const TOwnedData value(m.Pop());
  return value_as<T>(*value);
}

/// True for a variable whose values are numbers.
inline bool is_numeric(const TVarInfo* var) {
  return var->kind == ttSng || var->kind == ttInt || var->kind == ttDbl;
}

/// The value of a numeric variable's slot.
[[gnu::always_inline]] inline TStackData number_of(const TVarInfo* var, int32_t slot) {
  if (var->kind == ttSng) return TStackData::Of(var->floats[slot]);
  if (var->kind == ttInt) return TStackData::Of(var->ints[slot]);
  return TStackData::Of(var->doubles[slot]);
}

/// The plain value of a numeric variable as an operand of that type.
template <typename T>
[[gnu::always_inline]] inline T plain_as(const TVarInfo* var) {
  if (var->kind == ttSng) return value_as<T>(TStackData::Of(var->floats[0]));
  if (var->kind == ttInt) return value_as<T>(TStackData::Of(var->ints[0]));
  return value_as<T>(TStackData::Of(var->doubles[0]));
}

/// Stores a number in a numeric variable's slot.
[[gnu::always_inline]] inline void set_number(TVarInfo* var, int32_t slot,
                                              const TStackData& value) {
  if (var->kind == ttSng) {
    var->floats[slot] = stack_float(value);
  } else if (var->kind == ttInt) {
    var->ints[slot] = stack_int(value);
  } else {
    var->doubles[slot] = stack_double(value);
  }
}

/// The slot of an element with one or two subscripts, whose form's values begin `depth` below the
/// top, if all is plain and in order; else 0. *size is the number of subscripts.
[[gnu::always_inline]] inline int32_t element_slot(const TVMachine& m, const TVarInfo* var,
                                                   int64_t depth, int32_t* size) {
  const TValueStack& stack = m.mStack;
  const int32_t count = var->dimCount;
  if (count < 1 || count > 2 || !stack.HasPlain(depth + count + 1)) return 0;
  if (!is_number(stack.Top(depth).kind) || !is_end_mark(stack.Top(depth + count))) return 0;
  const int32_t first = stack_int(stack.Top(depth));
  if (first == SUBSCRIPT_END) return 0;
  int64_t offset = first;
  if (count == 2) {
    const TStackData& other = stack.Top(depth + 1);
    const int32_t second = is_number(other.kind) ? stack_int(other) : SUBSCRIPT_END;
    if (second == SUBSCRIPT_END) return 0;
    offset += int64_t{second} * var->strides[1];
  }
  if (offset < m.mRsrc->OptionBase() || offset >= var->strides[count]) return 0;
  *size = count;
  return static_cast<int32_t>(offset) + 1;
}

/// FOR's test: -1 to go on, 0 to leave the loop.
inline int32_t for_flag(double current, double limit, double step) {
  return (step >= 0 ? current <= limit : current >= limit) ? -1 : 0;
}

}  // namespace zoka
