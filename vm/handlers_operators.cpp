// The operators: 20 of them by four operand types. The compiler has chosen the type; a handler
// converts whatever it finds to its own and never looks further.
#include <cmath>

#include "vm/arithmetic.h"
#include "vm/handlers.h"
#include "vm/plain_values.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

template <typename T, typename TOperator>
[[gnu::noinline, gnu::cold]] void binary_slow(TVMachine& m, TOperator op) {
  const T right = pop_as<T>(m);
  const T left = pop_as<T>(m);
  m.mStack.Push(TStackData::Of(op(left, right)));
}

/// Replaces the two top values by the operator's result.
template <typename T, typename TOperator>
void binary(TVMachine& m, TOperator op) {
  TValueStack& stack = m.mStack;
  if (stack.HasPlain(2) && is_number(stack.Top(0).kind) && is_number(stack.Top(1).kind))
      [[likely]] {
    const T right = value_as<T>(stack.Top(0));
    const T left = value_as<T>(stack.Top(1));
    stack.Top(1).SetNumber(op(left, right));
    stack.Shrink(1);
    return;
  }
  binary_slow<T>(m, op);
}

template <typename T, typename TOperator>
[[gnu::noinline, gnu::cold]] void unary_slow(TVMachine& m, TOperator op) {
  m.mStack.Push(TStackData::Of(op(pop_as<T>(m))));
}

template <typename T, typename TOperator>
void unary(TVMachine& m, TOperator op) {
  TValueStack& stack = m.mStack;
  if (stack.HasPlain() && is_number(stack.Top().kind)) [[likely]] {
    stack.Top().SetNumber(op(value_as<T>(stack.Top())));
    return;
  }
  unary_slow<T>(m, op);
}

int32_t truth(bool value) {
  return value ? -1 : 0;
}

template <typename T, typename TRelation>
void compare(TVMachine& m, TRelation relation) {
  binary<T>(m, [relation](T left, T right) { return truth(relation(left, right)); });
}

/// Compares as unsigned bytes, without any collation.
template <typename TRelation>
void compare_texts(TVMachine& m, TRelation relation) {
  const TText right = m.PopText();
  const TText left = m.PopText();
  m.PushInt(truth(relation(left.View().compare(right.View()), 0)));
}

/// The logical operators alone work on the low 16 bits; this is meant.
int32_t low_word(int32_t value) {
  return static_cast<int16_t>(static_cast<uint16_t>(value));
}

template <typename TOperator>
void logical(TVMachine& m, TOperator op) {
  binary<int32_t>(
      m, [op](int32_t left, int32_t right) { return op(low_word(left), low_word(right)); });
}

[[noreturn, gnu::noinline, gnu::cold]] void raise_division(TVMachine& m) {
  throw m.RuntimeException2("@Runtime_Err_Div_By_Zero@");
}

/// Rounds both operands to integers first, so that 7\0.4 divides by zero.
template <typename TOperator>
void integer_division(TVMachine& m, TOperator op) {
  binary<int32_t>(m, [&m, op](int32_t left, int32_t right) {
    if (right == 0) raise_division(m);
    return op(left, right);
  });
}

/// Divisions by -1 are negations: the machine's own division has no result for the lowest integer.
int32_t quotient(int32_t left, int32_t right) {
  return right == -1 ? wrap(0u - raw(left)) : left / right;
}
int32_t remainder_of(int32_t left, int32_t right) {
  return right == -1 ? 0 : left % right;
}

template <typename T>
void division(TVMachine& m) {
  binary<T>(m, [&m](T left, T right) {
    if (right == T{0}) raise_division(m);
    return left / right;
  });
}

}  // namespace

// Shapes of the handlers below: an arithmetic operator by type, a relation for all types, a logical
// operator for all types.
#define ZOKA_ARITHMETIC(name, type, expression)                 \
  void ExeBasicB##name(TVMachine& m, const TVMCode*) {          \
    binary<type>(m, [](type a, type b) { return expression; }); \
  }
#define ZOKA_RELATION_ON(name, type, op)                     \
  void ExeBasicB##name(TVMachine& m, const TVMCode*) {       \
    compare<type>(m, [](type a, type b) { return a op b; }); \
  }
#define ZOKA_RELATION(name, op)                                          \
  ZOKA_RELATION_ON(name##Int, int32_t, op)                               \
  ZOKA_RELATION_ON(name##Float, float, op)                               \
  ZOKA_RELATION_ON(name##Double, double, op)                             \
  void ExeBasicB##name##String(TVMachine& m, const TVMCode*) {           \
    compare_texts(m, [](int order, int zero) { return order op zero; }); \
  }
#define ZOKA_LOGICAL_ON(name, expression)                        \
  void ExeBasicB##name(TVMachine& m, const TVMCode*) {           \
    logical(m, [](int32_t a, int32_t b) { return expression; }); \
  }
#define ZOKA_LOGICAL(name, expression)     \
  ZOKA_LOGICAL_ON(name##Int, expression)   \
  ZOKA_LOGICAL_ON(name##Float, expression) \
  ZOKA_LOGICAL_ON(name##Double, expression)
#define ZOKA_INTEGER_DIVISION(name, function)          \
  void ExeBasicB##name(TVMachine& m, const TVMCode*) { \
    integer_division(m, function);                     \
  }

ZOKA_ARITHMETIC(AddInt, int32_t, TAddition::Of(a, b))
ZOKA_ARITHMETIC(AddFloat, float, TAddition::Of(a, b))
ZOKA_ARITHMETIC(AddDouble, double, TAddition::Of(a, b))
ZOKA_ARITHMETIC(SubInt, int32_t, TSubtraction::Of(a, b))
ZOKA_ARITHMETIC(SubFloat, float, TSubtraction::Of(a, b))
ZOKA_ARITHMETIC(SubDouble, double, TSubtraction::Of(a, b))
ZOKA_ARITHMETIC(MulInt, int32_t, TMultiplication::Of(a, b))
ZOKA_ARITHMETIC(MulFloat, float, TMultiplication::Of(a, b))
ZOKA_ARITHMETIC(MulDouble, double, TMultiplication::Of(a, b))
ZOKA_ARITHMETIC(PowFloat, float,
                static_cast<float>(std::pow(static_cast<double>(a), static_cast<double>(b))))
ZOKA_ARITHMETIC(PowDouble, double, std::pow(a, b))

ZOKA_INTEGER_DIVISION(IdivInt, quotient)
ZOKA_INTEGER_DIVISION(IdivFloat, quotient)
ZOKA_INTEGER_DIVISION(IdivDouble, quotient)
ZOKA_INTEGER_DIVISION(ModInt, remainder_of)
ZOKA_INTEGER_DIVISION(ModFloat, remainder_of)
ZOKA_INTEGER_DIVISION(ModDouble, remainder_of)

ZOKA_RELATION(Equal, ==)
ZOKA_RELATION(Noteq, !=)
ZOKA_RELATION(Lt, <)
ZOKA_RELATION(Le, <=)
ZOKA_RELATION(Gt, >)
ZOKA_RELATION(Ge, >=)

ZOKA_LOGICAL(And, a& b)
ZOKA_LOGICAL(Or, a | b)
ZOKA_LOGICAL(Xor, a ^ b)
ZOKA_LOGICAL(Imp, ~a | b)
ZOKA_LOGICAL(Eqv, ~(a ^ b))

void ExeBasicBDivFloat(TVMachine& m, const TVMCode*) {
  division<float>(m);
}
void ExeBasicBDivDouble(TVMachine& m, const TVMCode*) {
  division<double>(m);
}

void ExeBasicBNegaInt(TVMachine& m, const TVMCode*) {
  unary<int32_t>(m, [](int32_t a) { return wrap(0u - raw(a)); });
}
void ExeBasicBNegaFloat(TVMachine& m, const TVMCode*) {
  unary<float>(m, [](float a) { return -a; });
}
void ExeBasicBNegaDouble(TVMachine& m, const TVMCode*) {
  unary<double>(m, [](double a) { return -a; });
}

void ExeBasicBNotInt(TVMachine& m, const TVMCode*) {
  unary<int32_t>(m, [](int32_t a) { return ~low_word(a); });
}
void ExeBasicBNotFloat(TVMachine& m, const TVMCode* code) {
  ExeBasicBNotInt(m, code);
}
void ExeBasicBNotDouble(TVMachine& m, const TVMCode* code) {
  ExeBasicBNotInt(m, code);
}

void ExeBasicBAddString(TVMachine& m, const TVMCode*) {
  const TText right = m.PopText();
  TText left = m.PopText();
  m.PushText(TText::Concatenate(std::move(left), right.View()));
}

}  // namespace zoka
