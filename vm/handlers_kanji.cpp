// Kanji functions, SEARCH, DATE$ and TIME$.
#include "vm/handler_args.h"
#include "vm/handlers.h"
#include "vm/kana_convert.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

/// Pops a text, converts it, and pushes the result; none is an illegal function call.
template <typename TConvert>
void push_converted(TVMachine& m, TConvert convert) {
  TText text = m.PopText();
  std::optional<std::string> result = convert(text.View());
  if (!result) throw bad_call(m);
  m.PushString(*result);
}

std::string two_digits(int value) {
  std::string text = std::to_string(value);
  return text.size() < 2 ? "0" + text : text;
}

/// Of a numeric variable.
bool slot_equals(const TVarInfo& var, int64_t slot, int32_t wanted) {
  switch (var.kind) {
    case ttInt:
      return var.ints[slot] == wanted;
    case ttSng:
      return var.floats[slot] == static_cast<float>(wanted);
    default:
      return var.doubles[slot] == static_cast<double>(wanted);
  }
}

/// Slot of the first match minus 1, or -1. A step of 0 without a match never ends by itself.
int32_t search(TVMachine& m, const TVarInfo& var, int32_t wanted, int32_t start, int32_t step) {
  if (var.kind == ttStr) return -1;
  for (int64_t slot = int64_t{start} + 1; slot >= 0 && slot < var.slotCount; slot += step) {
    if (slot_equals(var, slot, wanted)) return static_cast<int32_t>(slot - 1);
    if (step != 0) continue;
    if (m.IsTerminated()) return -1;
    m.Snooze(POLL_INTERVAL);
  }
  return -1;
}

}  // namespace

void ExeBasicSearch(TVMachine& m, const TVMCode*) {
  int32_t step = pop_optional(m).value_or(1);
  int32_t start = pop_optional(m).value_or(0);
  // Left out, the value reads as 0.
  int32_t wanted = m.PopInt();
  TVarInfo* var = m.PopVar();
  // Subscripts mean nothing here, but the form is to be used up to its end mark.
  while (m.PopInt() != SUBSCRIPT_END) {
  }
  if (var->dimCount != 1) throw bad_call(m);
  m.PushInt(search(m, *var, wanted, start, step));
}

void ExeBasicJisDl(TVMachine& m, const TVMCode*) {
  push_converted(m, jis_dl);
}

void ExeBasicKnjDl(TVMachine& m, const TVMCode*) {
  push_converted(m, knj_dl);
}

void ExeBasicAkcnvDl(TVMachine& m, const TVMCode*) {
  TText text = m.PopText();
  m.PushString(AkcnvDl(text.View()));
}

void ExeBasicKacnvDl(TVMachine& m, const TVMCode*) {
  push_converted(m, KacnvDl);
}

void ExeBasicDateDl(TVMachine& m, const TVMCode*) {
  TLocalTime now = m.LocalTime();
  // Years since 1900, of which one century is dropped.
  int year = now.year - 1900 > 99 ? now.year - 2000 : now.year - 1900;
  m.PushString(two_digits(year) + "/" + two_digits(now.month) + "/" + two_digits(now.day));
}

void ExeBasicTimeDl(TVMachine& m, const TVMCode*) {
  TLocalTime now = m.LocalTime();
  m.PushString(two_digits(now.hour) + ":" + two_digits(now.minute) + ":" + two_digits(now.second));
}

}  // namespace zoka
