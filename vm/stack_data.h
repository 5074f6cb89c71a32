// TStackData: one value of the machine's stack, and TValueStack, the stack itself. Knows nothing of
// the operations.
#pragma once

#include <cstdint>
#include <vector>

#include "core/text.h"
#include "core/var_info.h"

namespace zoka {

/// What a stack value is. The numbers are part of the design (Gap is what a pop of an elided or
/// missing value yields).
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
  uint32_t length = 0;  // of a string's text, in bytes
  union {
    int64_t bits = 0;
    int32_t lval;  // Int, Special, Return (a code index)
    float fval;
    double dval;
    bool bval;
    TTextBlock* text;
    TVarInfo* var;
  };

  void Release() {
    if (kind == TStackKind::String) text->Release();
  }
  std::string_view View() const { return text->View(length); }
};
static_assert(sizeof(TStackData) == 16);

/// Rounds as the language does: floor(x + 0.5); what lies outside the 32-bit range, and what is not
/// a number, gives -2147483648.
int32_t round_off(double value);

/// Conversions of a value without taking it; a kind that does not fit reads as 0.
int32_t stack_int(const TStackData& value);
float stack_float(const TStackData& value);
double stack_double(const TStackData& value);

}  // namespace zoka
