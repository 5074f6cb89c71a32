// What the units do. Each leaves the machine as its instructions would, one by one; what is not the
// ordinary case is left to them.
#include <functional>

#include "common/immortal.h"
#include "vm/arithmetic.h"
#include "vm/plain_values.h"
#include "vm/units.h"

namespace zoka {
namespace {

/// The last instruction of the unit becomes the current one.
void end_unit(TVMachine& m, const TVMCode* code, int length) {
  m.mPC = code + length - 1;
}

/// Runs the first instruction of a unit itself; the machine goes on with the others as with any.
[[gnu::noinline, gnu::cold]] void run_singly(TVMachine& m, const TVMCode* code) {
  const TVMCode& original = m.mMidCode->mCodes[static_cast<size_t>(m.PCIndex())];
  vm_handler_table()[static_cast<uint16_t>(original.Number())](m, code);
}

void load_plain(TVMachine& m, const TVMCode* code) {
  end_unit(m, code, 2);
  m.mStack.Push(number_of(code[1].varInfo(), 0));
}

void load_text(TVMachine& m, const TVMCode* code) {
  const TText& text = code[1].varInfo()->texts[0];
  const TStackData value = TStackData::OfText(text.Block(), text.Length());
  m.mStack.Push(value);
  value.text->Retain();  // only now, as the push may throw
  end_unit(m, code, 2);
}

void place_of_plain(TVMachine& m, const TVMCode* code) {
  end_unit(m, code, 2);
  m.PushInt(SUBSCRIPT_END);
  m.mStack.Push(TStackData::OfVar(code[1].varInfo()));
}

void jump(TVMachine& m, const TVMCode* code) {
  m.JumpToConstant(code);
}

void call(TVMachine& m, const TVMCode* code) {
  m.PushReturnRecord(m.PCIndex() + 2);
  m.JumpToConstant(code);
}

/// The conditional jump behind a test that has left `isTrue`: `below` values and the target lie on
/// the stack.
[[gnu::always_inline]] inline void branch_on(TVMachine& m, const TVMCode* code, bool isTrue,
                                             int64_t below) {
  TValueStack& stack = m.mStack;
  end_unit(m, code, 2);
  if (isTrue) {
    stack.Top(below).Release();
    stack.Shrink(below + 1);
  } else {
    stack.Shrink(below);
    m.JumpToPopped(code);
  }
}

void test_for(TVMachine& m, const TVMCode* code) {
  const TValueStack& stack = m.mStack;
  if (!stack.HasPlain(4) || !is_number(stack.Top(0).kind) || !is_number(stack.Top(1).kind) ||
      !is_number(stack.Top(2).kind)) [[unlikely]]
    return run_singly(m, code);
  const int32_t flag =
      for_flag(stack_double(stack.Top(2)), stack_double(stack.Top(1)), stack_double(stack.Top(0)));
  branch_on(m, code, flag != 0, 3);
}

template <typename T, typename TRelation>
void branch(TVMachine& m, const TVMCode* code) {
  const TValueStack& stack = m.mStack;
  if (!stack.HasPlain(3) || !is_number(stack.Top(0).kind) || !is_number(stack.Top(1).kind))
      [[unlikely]]
    return run_singly(m, code);
  const T right = value_as<T>(stack.Top(0));
  const T left = value_as<T>(stack.Top(1));
  branch_on(m, code, TRelation{}(left, right), 2);
}

/// The whole test of FOR: `length` instructions, of which the first is the target behind the loop.
[[gnu::always_inline]] inline void whole_for(TVMachine& m, const TVMCode* code, double limit,
                                             int length) {
  const double step = code[length - 3].lval();
  if (for_flag(plain_as<double>(code[2].varInfo()), limit, step) != 0) {
    end_unit(m, code, length);
  } else {
    m.JumpToConstant(code);
  }
}

void for_to_constant(TVMachine& m, const TVMCode* code) {
  whole_for(m, code, code[3].lval(), 7);
}

void for_to_variable(TVMachine& m, const TVMCode* code) {
  whole_for(m, code, plain_as<double>(code[4].varInfo()), 8);
}

template <typename T>
void add_constant(TVMachine& m, const TVMCode* code) {
  const T sum = TAddition::Of(plain_as<T>(code[3].varInfo()), static_cast<T>(code[4].lval()));
  set_number(code[1].varInfo(), 0, TStackData::Of(sum));
  end_unit(m, code, 7);
}

template <typename T, typename TOperator>
void constant_operand(TVMachine& m, const TVMCode* code) {
  TValueStack& stack = m.mStack;
  if (!stack.HasPlain() || !is_number(stack.Top().kind)) [[unlikely]]
    return run_singly(m, code);
  const T left = value_as<T>(stack.Top());
  stack.Top().SetNumber(TOperator::Of(left, static_cast<T>(code->lval())));
  end_unit(m, code, 2);
}

template <typename T, typename TOperator>
void variable_operand(TVMachine& m, const TVMCode* code) {
  TValueStack& stack = m.mStack;
  if (!stack.HasPlain() || !is_number(stack.Top().kind)) [[unlikely]]
    return run_singly(m, code);
  const T left = value_as<T>(stack.Top());
  stack.Top().SetNumber(TOperator::Of(left, plain_as<T>(code[1].varInfo())));
  end_unit(m, code, 3);
}

/// The operations of a row of the operators: integer, single, double, text.
uint32_t operation(uint32_t row, uint32_t type) {
  return row * 4 + type;
}

void add(std::vector<TUnitRow>* rows, TUnit unit, TVMHandler handler, uint32_t operation) {
  rows->push_back({static_cast<uint32_t>(unit) + operation, handler});
}

template <typename TOperator>
void add_operands(std::vector<TUnitRow>* rows, uint32_t row) {
  using enum TUnit;
  add(rows, ConstantOperand, constant_operand<int32_t, TOperator>, operation(row, 0));
  add(rows, ConstantOperand, constant_operand<float, TOperator>, operation(row, 1));
  add(rows, ConstantOperand, constant_operand<double, TOperator>, operation(row, 2));
  add(rows, VariableOperand, variable_operand<int32_t, TOperator>, operation(row, 0));
  add(rows, VariableOperand, variable_operand<float, TOperator>, operation(row, 1));
  add(rows, VariableOperand, variable_operand<double, TOperator>, operation(row, 2));
}

template <template <typename> typename TRelation>
void add_branches(std::vector<TUnitRow>* rows, uint32_t row) {
  add(rows, TUnit::Branch, branch<int32_t, TRelation<int32_t>>, operation(row, 0));
  add(rows, TUnit::Branch, branch<float, TRelation<float>>, operation(row, 1));
  add(rows, TUnit::Branch, branch<double, TRelation<double>>, operation(row, 2));
}

std::vector<TUnitRow> make_rows() {
  std::vector<TUnitRow> rows = {
      {static_cast<uint32_t>(TUnit::LoadPlain), load_plain},
      {static_cast<uint32_t>(TUnit::LoadText), load_text},
      {static_cast<uint32_t>(TUnit::PlaceOfPlain), place_of_plain},
      {static_cast<uint32_t>(TUnit::Jump), jump},
      {static_cast<uint32_t>(TUnit::Call), call},
      {static_cast<uint32_t>(TUnit::TestFor), test_for},
      {static_cast<uint32_t>(TUnit::ForToConstant), for_to_constant},
      {static_cast<uint32_t>(TUnit::ForToVariable), for_to_variable},
  };
  add(&rows, TUnit::AddConstant, add_constant<int32_t>, 0);
  add(&rows, TUnit::AddConstant, add_constant<float>, 1);
  add(&rows, TUnit::AddConstant, add_constant<double>, 2);
  // In the order of the operations' numbers.
  add_operands<TAddition>(&rows, 0);
  add_operands<TSubtraction>(&rows, 1);
  add_operands<TMultiplication>(&rows, 2);
  add_branches<std::equal_to>(&rows, 0);
  add_branches<std::not_equal_to>(&rows, 1);
  add_branches<std::less>(&rows, 2);
  add_branches<std::less_equal>(&rows, 3);
  add_branches<std::greater>(&rows, 4);
  add_branches<std::greater_equal>(&rows, 5);
  return rows;
}

}  // namespace

const std::vector<TUnitRow>& unit_rows() {
  static const auto& rows = immortal<std::vector<TUnitRow>>(make_rows());
  return rows;
}

}  // namespace zoka
