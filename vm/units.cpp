// Finding the units of a program.
#include "vm/units.h"

#include "vm/plain_values.h"

namespace zoka {
namespace {

using enum TVMCodeCmd;

constexpr uint32_t FIRST_ARITHMETIC = static_cast<uint32_t>(BAddInt);
constexpr uint32_t FIRST_RELATION = static_cast<uint32_t>(BEqualInt);

/// The instructions from one index on, as far as the code goes.
class TWindow {
 public:
  TWindow(const TMidCode& program, size_t index) : mProgram(program), mIndex(index) {}

  TVMCodeCmd Cmd(size_t offset) const { return At(offset).Cmd(); }
  const TVMCode& At(size_t offset) const {
    const size_t place = mIndex + offset;
    return mProgram.mCodes[place < mProgram.mCodes.size() ? place : 0];
  }
  bool IsInt(size_t offset) const { return Cmd(offset) == BPushInt; }
  bool IsEndMark(size_t offset) const {
    return IsInt(offset) && At(offset).lval() == SUBSCRIPT_END;
  }
  /// -1 and the load, or the reference, of a numeric variable.
  bool IsPlain(size_t offset, TVMCodeCmd cmd) const {
    return IsEndMark(offset) && Cmd(offset + 1) == cmd && At(offset + 1).varInfo() != nullptr &&
           is_numeric(At(offset + 1).varInfo());
  }
  /// -1 and the load of a text variable.
  bool IsPlainText() const {
    return IsEndMark(0) && Cmd(1) == BLoadArray && At(1).varInfo() != nullptr &&
           At(1).varInfo()->kind == ttStr;
  }
  /// True if no statement begins inside: there the speed control and the user look.
  bool IsOneStatement(size_t length) const {
    for (size_t i = 1; i < length; ++i) {
      if (mProgram.IsStatementBegin(static_cast<int32_t>(mIndex + i))) return false;
    }
    return true;
  }

 private:
  const TMidCode& mProgram;
  size_t mIndex;
};

/// A unit that stands at a place; length 0: none.
struct TFound {
  uint32_t number = 0;
  size_t length = 0;
};

TFound found(TUnit unit, size_t length, uint32_t operation = 0) {
  return {static_cast<uint32_t>(unit) + operation, length};
}

/// Which of the operators' rows of four types it is, from `first` on, without that of texts.
bool is_numeric_row(TVMCodeCmd cmd, uint32_t first, uint32_t count) {
  constexpr uint32_t TYPES = 4;
  const uint32_t row = static_cast<uint32_t>(cmd) - first;
  return row < count * TYPES && row % TYPES != TYPES - 1;
}

bool is_addition(TVMCodeCmd cmd) {
  return is_numeric_row(cmd, FIRST_ARITHMETIC, 1);
}
bool is_simple_arithmetic(TVMCodeCmd cmd) {
  return is_numeric_row(cmd, FIRST_ARITHMETIC, 3);
}
bool is_relation(TVMCodeCmd cmd) {
  return is_numeric_row(cmd, FIRST_RELATION, 6);
}

TFound find_at_constant(const TWindow& w) {
  if (w.Cmd(1) == BJmp) return found(TUnit::Jump, 2);
  if (w.Cmd(1) == BCall) return found(TUnit::Call, 2);
  if (w.IsInt(0) && is_simple_arithmetic(w.Cmd(1))) {
    return found(TUnit::ConstantOperand, 2, static_cast<uint32_t>(w.Cmd(1)) - FIRST_ARITHMETIC);
  }
  return {};
}

TFound find_at_end_mark(const TWindow& w) {
  if (w.IsPlain(0, BPushVar)) {
    if (w.IsPlain(2, BLoadArray) && w.IsInt(4) && is_addition(w.Cmd(5)) &&
        w.Cmd(6) == BAssignArray) {
      return found(TUnit::AddConstant, 7, static_cast<uint32_t>(w.Cmd(5)) - FIRST_ARITHMETIC);
    }
    return found(TUnit::PlaceOfPlain, 2);
  }
  if (w.IsPlainText()) return found(TUnit::LoadText, 2);
  if (!w.IsPlain(0, BLoadArray)) return find_at_constant(w);
  if (!is_simple_arithmetic(w.Cmd(2))) return found(TUnit::LoadPlain, 2);
  return found(TUnit::VariableOperand, 3, static_cast<uint32_t>(w.Cmd(2)) - FIRST_ARITHMETIC);
}

/// `limitEnd`: where FOR's limit ends.
bool is_for_test(const TWindow& w, size_t limitEnd) {
  return w.IsInt(limitEnd) && w.Cmd(limitEnd + 1) == BCmpFor && w.Cmd(limitEnd + 2) == BFJmp;
}

TFound find_at_text(const TWindow& w) {
  if (w.IsPlain(1, BLoadArray)) {
    if (w.IsInt(3) && is_for_test(w, 4)) return found(TUnit::ForToConstant, 7);
    if (w.IsPlain(3, BLoadArray) && is_for_test(w, 5)) return found(TUnit::ForToVariable, 8);
  }
  return find_at_constant(w);
}

TFound find_unit(const TWindow& w) {
  const TVMCodeCmd cmd = w.Cmd(0);
  if (cmd == BPushInt) return w.IsEndMark(0) ? find_at_end_mark(w) : find_at_constant(w);
  if (cmd == BPushString) return find_at_text(w);
  if (w.Cmd(1) != BFJmp) return {};
  if (cmd == BCmpFor) return found(TUnit::TestFor, 2);
  if (!is_relation(cmd)) return {};
  return found(TUnit::Branch, 2, static_cast<uint32_t>(cmd) - FIRST_RELATION);
}

/// The instruction under another number; its operand stays.
TVMCode renumbered(const TVMCode& code, uint32_t number) {
  TVMCode unit(static_cast<TVMCodeCmd>(number));
  unit.SetVar(code.varInfo());  // all of the operand's bytes, whatever they mean
  return unit;
}

}  // namespace

std::vector<TVMCode> code_with_units(const TMidCode& program) {
  std::vector<TVMCode> codes = program.mCodes;
  for (size_t i = 1; i + 1 < codes.size(); ++i) {
    const TWindow window(program, i);
    const TFound unit = find_unit(window);
    if (unit.length != 0 && window.IsOneStatement(unit.length))
      codes[i] = renumbered(codes[i], unit.number);
  }
  return codes;
}

}  // namespace zoka
