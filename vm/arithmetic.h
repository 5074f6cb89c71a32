// The arithmetic of the operators on numbers, by operand type.
#pragma once

#include <bit>
#include <cstdint>
#include <type_traits>

namespace zoka {

/// Integers wrap, without an overflow error of any kind.
inline int32_t wrap(uint32_t value) {
  return std::bit_cast<int32_t>(value);
}
inline uint32_t raw(int32_t value) {
  return std::bit_cast<uint32_t>(value);
}

struct TAddition {
  template <typename T>
  static T Of(T a, T b) {
    if constexpr (std::is_same_v<T, int32_t>) {
      return wrap(raw(a) + raw(b));
    } else {
      return a + b;
    }
  }
};

struct TSubtraction {
  template <typename T>
  static T Of(T a, T b) {
    if constexpr (std::is_same_v<T, int32_t>) {
      return wrap(raw(a) - raw(b));
    } else {
      return a - b;
    }
  }
};

struct TMultiplication {
  template <typename T>
  static T Of(T a, T b) {
    if constexpr (std::is_same_v<T, int32_t>) {
      return wrap(raw(a) * raw(b));
    } else {
      return a * b;
    }
  }
};

}  // namespace zoka
