// TVMCode: one instruction of the machine, and TVMCodeCmd, the numbers of the operations. What the
// operations do is the machine's matter; what they are called and carry stands in operations.def.
#pragma once

#include <cstdint>
#include <cstring>

namespace zoka {

struct TVarInfo;
class TTextBlock;

/// Number of an operation. The values lie in 0 to 65535 and are fixed.
enum class TVMCodeCmd : uint32_t {
  Sentinel = 0,
#define ZOKA_OPERATION(number, name, handler, kind, operand, stack, meaning) name = number,
#include "core/operations.def"
};

/// Numbers that an operation may have, used or not.
constexpr uint32_t OPERATION_COUNT = 0x10000;

/// Pushed below the subscripts of a variable: ends their list, also where a program computes it.
constexpr int32_t SUBSCRIPT_END = -1;

/// Which member of the operand an operation uses.
enum class TOperandKind : uint8_t { None, Long, Bool, Float, Double, Str, Var };

/// What stands behind an operation number.
enum class THandlerKind : uint8_t { Handler, Empty, Nothing };

/// A row of the operation table.
struct TOperationRow {
  TVMCodeCmd cmd;
  const char* name;  // the handler's name without "ExeBasic"
  THandlerKind kind;
  TOperandKind operand;
  const char* stack;    // what it takes and leaves, the top last
  const char* meaning;  // one sentence
};

/// The row of an operation number, or null if the number is free. Constant time.
const TOperationRow* find_operation(TVMCodeCmd cmd);

/// All rows, ascending by number.
const TOperationRow* operation_rows(int* count);

/// One instruction: exactly three 32-bit words, copied by value. The operand carries no tag, the
/// operation alone tells which accessor is meant; a pointer or a double fills both operand words.
class TVMCode {
 public:
  TVMCode() = default;
  explicit TVMCode(TVMCodeCmd cmd) : mCmd(static_cast<uint32_t>(cmd)) {}

  TVMCodeCmd Cmd() const { return static_cast<TVMCodeCmd>(mCmd); }
  uint32_t Number() const { return mCmd; }

  int32_t lval() const { return Get<int32_t>(); }
  bool bval() const { return Get<int32_t>() != 0; }
  float fval() const { return Get<float>(); }
  double dval() const { return Get<double>(); }
  TTextBlock* str() const { return Get<TTextBlock*>(); }
  TVarInfo* varInfo() const { return Get<TVarInfo*>(); }

  TVMCode& SetLong(int32_t value) { return Set(value); }
  TVMCode& SetBool(bool value) { return Set<int32_t>(value ? 1 : 0); }
  TVMCode& SetFloat(float value) { return Set(value); }
  TVMCode& SetDouble(double value) { return Set(value); }
  TVMCode& SetStr(TTextBlock* value) { return Set(value); }
  TVMCode& SetVar(TVarInfo* value) { return Set(value); }

 private:
  template <typename T>
  T Get() const {
    T value;
    std::memcpy(&value, mOperand, sizeof(T));
    return value;
  }
  template <typename T>
  TVMCode& Set(T value) {
    std::memcpy(mOperand, &value, sizeof(T));
    return *this;
  }

  uint32_t mCmd = 0;
  uint32_t mOperand[2] = {0, 0};
};
static_assert(sizeof(TVMCode) == 12, "an instruction is three 32-bit words");

}  // namespace zoka
