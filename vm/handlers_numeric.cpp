// The numeric functions, which look at their argument's kind, and the random numbers.
#include <cmath>

#include "common/text/number.h"
#include "vm/handlers.h"
#include "vm/line_editor.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

/// RND's scale: 2 to the power -31.
constexpr float RANDOM_SCALE = 4.656613e-10f;

/// Computes in double; an integer or a single gives a single. Pushes nothing for other kinds, which
/// the compiler refuses.
void real_function(TVMachine& m, double (*function)(double)) {
  const TOwnedData value(m.Pop());
  if (value->kind == TStackKind::Double) {
    m.PushDouble(function(value->dval));
  } else if (is_number(value->kind)) {
    m.PushFloat(static_cast<float>(function(static_cast<double>(stack_float(*value)))));
  }
}

/// Integers stay, reals are made whole by `function`; -2147483648 outside the range.
void whole_function(TVMachine& m, double (*function)(double)) {
  const TOwnedData value(m.Pop());
  if (value->kind == TStackKind::Int) {
    m.PushInt(value->lval);
  } else if (is_number(value->kind)) {
    m.PushInt(floor_to_int(function(stack_double(*value))));
  }
}

double floor_of(double value) {
  return std::floor(value);
}
double trunc_of(double value) {
  return std::trunc(value);
}

}  // namespace

#define ZOKA_REAL_FUNCTION(name, function)                  \
  void ExeBasic##name(TVMachine& m, const TVMCode*) {       \
    real_function(m, [](double a) { return function(a); }); \
  }
ZOKA_REAL_FUNCTION(Atn, std::atan)
ZOKA_REAL_FUNCTION(Cos, std::cos)
ZOKA_REAL_FUNCTION(Sin, std::sin)
ZOKA_REAL_FUNCTION(Tan, std::tan)
ZOKA_REAL_FUNCTION(Exp, std::exp)
ZOKA_REAL_FUNCTION(Log, std::log)
ZOKA_REAL_FUNCTION(Sqr, std::sqrt)
/// Of an integer a single, which loses the low bits of great ones; this is meant.
ZOKA_REAL_FUNCTION(Abs, std::fabs)

void ExeBasicFix(TVMachine& m, const TVMCode*) {
  whole_function(m, trunc_of);
}

void ExeBasicInt(TVMachine& m, const TVMCode*) {
  whole_function(m, floor_of);
}

void ExeBasicSgn(TVMachine& m, const TVMCode*) {
  const double value = m.PopDouble();
  m.PushInt((value > 0 ? 1 : 0) - (value < 0 ? 1 : 0));
}

void ExeBasicCint(TVMachine& m, const TVMCode*) {
  m.PushInt(m.PopInt());
}

void ExeBasicCsng(TVMachine& m, const TVMCode*) {
  m.PushFloat(m.PopFloat());
}

void ExeBasicCdbl(TVMachine& m, const TVMCode*) {
  m.PushDouble(m.PopDouble());
}

void ExeBasicRnd(TVMachine& m, const TVMCode*) {
  // 0 and negative arguments repeat the last value; they do not seed. The product may be 1.
  if (m.PopDouble() > 0) {
    m.mContext.sfRand = static_cast<float>(m.mInputs->Random()) * RANDOM_SCALE;
  }
  m.PushFloat(m.mContext.sfRand);
}

void ExeBasicRandomize(TVMachine& m, const TVMCode* code) {
  if (code->bval()) {
    m.mInputs->SeedRandom(m.PopInt());
    return;
  }
  m.mRsrc->Print("Random number seed (-32768 to 32767)? ");
  std::list<std::string> items;
  InputFromUser(m, &items, false, nullptr);
  // Stopped while it waited, there is no item.
  if (!items.empty()) m.mInputs->SeedRandom(parse_long(items.front()));
}

}  // namespace zoka
