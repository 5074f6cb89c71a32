// TStackData: one value of the machine's stack, and the conversions of the language. Knows nothing
// of the stack itself (value_stack.h) and of the operations.
#pragma once

#include <bit>
#include <climits>
#include <cstdint>

#include "core/text.h"
#include "core/var_info.h"

namespace zoka {

/// What a stack value is. The numbers are part of the design (Gap is what a pop of a forgotten
/// value yields).
enum class TStackKind : uint8_t {
  Gap = 0,
  Int = 1,
  Float = 2,
  Double = 3,
  String = 4,
  Bool = 5,
  Var = 6,
  Special = 7,
  Abbrev = 8,
  Return = 9,
};

/// One value: 16 bytes. A string holds one count of its block (`owned`; literals are immortal, so
/// for them it costs nothing). It is plain data: whoever takes it from the stack must Release it or
/// hand it on; it is moved, never copied while owned.
struct TStackData {
  TStackKind kind = TStackKind::Gap;
  bool owned = false;
  uint16_t reserved = 0;  // so that all in front of the value is written as one word
  uint32_t length = 0;    // of a string's text, in bytes
  union {
    int64_t bits = 0;
    int32_t lval;  // Int, Special, Return (a code index)
    float fval;
    double dval;
    bool bval;
    TTextBlock* text;
    TVarInfo* var;
  };

  static TStackData Of(TStackKind kind) {
    TStackData value;
    value.kind = kind;
    return value;
  }
  static TStackData Of(int32_t number, TStackKind kind = TStackKind::Int) {
    TStackData value = Of(kind);
    value.bits = static_cast<uint32_t>(number);
    return value;
  }
  static TStackData Of(float number) {
    TStackData value = Of(TStackKind::Float);
    value.fval = number;
    return value;
  }
  static TStackData Of(double number) {
    TStackData value = Of(TStackKind::Double);
    value.dval = number;
    return value;
  }
  static TStackData OfBool(bool flag) {
    TStackData value = Of(TStackKind::Bool);
    value.bval = flag;
    return value;
  }
  static TStackData OfVar(TVarInfo* variable) {
    TStackData value = Of(TStackKind::Var);
    value.var = variable;
    return value;
  }
  /// Takes over a count of the block.
  static TStackData OfText(TTextBlock* block, uint32_t bytes) {
    TStackData value = Of(TStackKind::String);
    value.owned = true;
    value.length = bytes;
    value.text = block;
    return value;
  }

  /// Replaces a value that is a number by another: of such, kind and value alone differ.
  void SetNumber(int32_t number) {
    kind = TStackKind::Int;
    bits = static_cast<uint32_t>(number);
  }
  void SetNumber(float number) {
    kind = TStackKind::Float;
    bits = std::bit_cast<uint32_t>(number);
  }
  void SetNumber(double number) {
    kind = TStackKind::Double;
    dval = number;
  }

  void Release() {
    if (kind == TStackKind::String) text->Release();
  }
  /// A second value of the same text or number; both are to be released.
  TStackData Share() const {
    if (kind == TStackKind::String) text->Retain();
    return *this;
  }
  /// Only for a string.
  std::string_view View() const { return text->View(length); }
};
static_assert(sizeof(TStackData) == 16);

/// Releases a value at the end of its scope; for values that are only looked at.
class TOwnedData {
 public:
  explicit TOwnedData(TStackData value) : mValue(value) {}
  ~TOwnedData() { mValue.Release(); }
  TOwnedData(const TOwnedData&) = delete;
  TOwnedData& operator=(const TOwnedData&) = delete;

  const TStackData& operator*() const { return mValue; }
  const TStackData* operator->() const { return &mValue; }

 private:
  TStackData mValue;
};

/// Rounds down to a 32-bit integer; what lies outside its range, and what is not a number, gives
/// -2147483648.
inline int32_t floor_to_int(double value) {
  if (!(value >= -2147483648.0 && value < 2147483648.0)) return INT32_MIN;
  const auto truncated = static_cast<int32_t>(value);
  return truncated - (value < static_cast<double>(truncated) ? 1 : 0);
}

/// Rounds as the language does: floor(x + 0.5), halves upward.
inline int32_t round_off(double value) {
  return floor_to_int(value + 0.5);
}

/// True for the three kinds that calculations expect.
inline bool is_number(TStackKind kind) {
  return static_cast<unsigned>(kind) - static_cast<unsigned>(TStackKind::Int) <= 2;
}

/// Conversions of a value without taking it; a kind that is no number reads as 0.
inline int32_t stack_int(const TStackData& value) {
  switch (value.kind) {
    case TStackKind::Int:
      return value.lval;
    case TStackKind::Float:
      return round_off(static_cast<double>(value.fval));
    case TStackKind::Double:
      return round_off(value.dval);
    default:
      return 0;
  }
}

inline float stack_float(const TStackData& value) {
  switch (value.kind) {
    case TStackKind::Int:
      return static_cast<float>(value.lval);
    case TStackKind::Float:
      return value.fval;
    case TStackKind::Double:
      return static_cast<float>(value.dval);
    default:
      return 0;
  }
}

inline double stack_double(const TStackData& value) {
  switch (value.kind) {
    case TStackKind::Int:
      return value.lval;
    case TStackKind::Float:
      return static_cast<double>(value.fval);
    case TStackKind::Double:
      return value.dval;
    default:
      return 0;
  }
}

/// The value of a Bool; false for any other kind.
inline bool stack_bool(const TStackData& value) {
  return value.kind == TStackKind::Bool && value.bval;
}

}  // namespace zoka
