// CALL MOUSE, and the statement and the function MOUSE.
#include <algorithm>
#include <vector>

#include "vm/handler_args.h"
#include "vm/handlers.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

constexpr int32_t CALL_MOUSE_ARGUMENTS = 5;
constexpr int32_t LEFT = 1;
constexpr int32_t RIGHT = 2;

using TInts = std::vector<int32_t>;

// --- CALL MOUSE: the vector's length afterwards says how many variables are written.

TInts click_results(int32_t state, TMouseState::TClicks& clicks) {
  return {state, clicks.Take(), round_off(static_cast<double>(clicks.x.load())),
          round_off(static_cast<double>(clicks.y.load()))};
}

TInts ExeBasicCallMouseDisk03(TMouseState& mouse) {
  return {mouse.MouseButtonLeftState(), mouse.MouseButtonRightState(), mouse.MousePosCurrentX(),
          mouse.MousePosCurrentY()};
}

TInts call_mouse(TVMachine& m, const TInts& in) {
  TMouseState& mouse = m.Mouse();
  switch (in[0]) {
    case 0:
      return {-1};
    case 3:
      return ExeBasicCallMouseDisk03(mouse);
    case 5:
      return click_results(mouse.MouseButtonLeftState(), mouse.mLeftDowns);
    case 6:
      return click_results(mouse.MouseButtonLeftState(), mouse.mLeftUps);
    case 7:
      return click_results(mouse.MouseButtonRightState(), mouse.mRightDowns);
    case 8:
      return click_results(mouse.MouseButtonRightState(), mouse.mRightUps);
    case 10:
    case 13:
    case 14:
      return in;
    case 11:
      return {in[0], in[1], mouse.MouseDistanceX(), mouse.MouseDistanceY()};
    case 16:
      mouse.SetMouseRangeX(in[2], in[3]);
      return {};
    case 17:
      mouse.SetMouseRangeY(in[2], in[3]);
      return {};
    case 1:
    case 2:
    case 4:
    case 9:
    case 12:
    case 15:
    case 18:
      return {};  // accepted without effect
    default:
      throw bad_call(m);
  }
}

/// A variable with its slot.
struct TPlace {
  TVarInfo* var;
  int32_t slot;
};

std::vector<TPlace> take_places(TVMachine& m, int32_t count) {
  TShelter saved = m.SheltVar(count);
  std::vector<TPlace> places;
  for (int32_t i = 0; i < count; ++i) {
    TVarInfo* var = m.TakeForm(&saved);
    m.Drop();
    if (var->kind == ttStr) throw m.RuntimeException2(ERR_TYPE_MISMATCH);
    int32_t slot = m.DimSuf(var);
    places.push_back({var, slot});
  }
  return places;
}

// --- MOUSE(n[,button])

int32_t button_state(TMouseState& mouse, int32_t button) {
  return -(button == LEFT ? mouse.MouseButtonLeftState() : mouse.MouseButtonRightState());
}

/// MOUSE(2,b) to MOUSE(8,b): a button's state, counters and places.
int32_t button_value(TMouseState& mouse, int32_t n, int32_t button) {
  bool isLeft = button == LEFT;
  TMouseState::TClicks& downs = isLeft ? mouse.mLeftDowns : mouse.mRightDowns;
  TMouseState::TClicks& ups = isLeft ? mouse.mLeftUps : mouse.mRightUps;
  TMouseState::TClicks& clicks = n <= 5 ? downs : ups;
  switch (n) {
    case 2:
      return button_state(mouse, button);
    case 3:
    case 6:
      return clicks.Take();
    case 4:
    case 7:
      return round_off(static_cast<double>(clicks.x.load()));
    default:
      return round_off(static_cast<double>(clicks.y.load()));
  }
}

int32_t place_value(TVMachine& m, int32_t n) {
  TMouseState& mouse = m.Mouse();
  switch (n) {
    case 0:
      return mouse.MousePosCurrentX();
    case 1:
      return mouse.MousePosCurrentY();
    case 9:
      return mouse.MouseDistanceX();
    case 10:
      return mouse.MouseDistanceY();
    default:
      throw bad_call(m);
  }
}

// --- MOUSE op,...

/// How many operands each form of the statement has, itself included.
struct TOperandCount {
  size_t least;
  size_t most;
};
constexpr TOperandCount STATEMENT_OPERANDS[] = {{1, 1}, {4, 4}, {4, 5}, {3, 3},
                                                {5, 5}, {2, 2}, {1, 1}};
constexpr int32_t SET_RANGE = 4;

/// MOUSE 4,x1,y1,x2,y2: the range of the position.
void set_range(TVMachine& m, const std::vector<TStackData>& operands) {
  for (size_t i = 1; i <= 3; ++i) {
    if (operands[i].kind == TStackKind::Abbrev) throw bad_call(m);
  }
  for (size_t i = 3; i <= 4; ++i) {
    if (operands[i].kind == TStackKind::String) throw m.RuntimeException2(ERR_TYPE_MISMATCH);
  }
  m.Mouse().SetMouseRangeX(stack_int(operands[1]), stack_int(operands[3]));
  m.Mouse().SetMouseRangeY(stack_int(operands[2]), stack_int(operands[4]));
}

void mouse_statement(TVMachine& m, const std::vector<TStackData>& operands) {
  if (operands.empty()) throw bad_call(m);
  int32_t form = stack_int(operands[0]);
  if (form < 0 || form >= static_cast<int32_t>(std::size(STATEMENT_OPERANDS))) throw bad_call(m);
  TOperandCount count = STATEMENT_OPERANDS[form];
  if (operands.size() < count.least || operands.size() > count.most) throw bad_call(m);
  // The other forms are accepted without effect.
  if (form == SET_RANGE) set_range(m, operands);
}

}  // namespace

void ExeBasicCallMouse(TVMachine& m, const TVMCode* code) {
  std::vector<TPlace> places = take_places(m, code->lval());
  TInts values(CALL_MOUSE_ARGUMENTS, 0);
  size_t given = std::min(places.size(), values.size());
  for (size_t i = 0; i < given; ++i) {
    values[i] = stack_int(m.LoadSlot(places[i].var, places[i].slot));
  }
  TInts results = call_mouse(m, values);
  for (size_t i = 0; i < std::min(given, results.size()); ++i) {
    m.StoreSlot(places[i].var, places[i].slot, TStackData::Of(results[i]));
  }
}

void ExeBasicMouseFunc(TVMachine& m, const TVMCode* code) {
  int32_t button = code->bval() ? m.PopInt() : 0;
  int32_t n = m.PopInt();
  bool wantsButton = n >= 2 && n <= 8;
  if (code->bval() != wantsButton) throw bad_call(m);
  if (!wantsButton) return m.PushInt(place_value(m, n));
  if (button != LEFT && button != RIGHT) throw bad_call(m);
  m.PushInt(button_value(m.Mouse(), n, button));
}

void ExeBasicMouseProc(TVMachine& m, const TVMCode* code) {
  std::vector<TStackData> operands(static_cast<size_t>(std::max(code->lval(), 0)));
  for (auto operand = operands.rbegin(); operand != operands.rend(); ++operand) {
    *operand = m.Pop();
    // Texts are only told from numbers here.
    operand->Release();
  }
  mouse_statement(m, operands);
}

}  // namespace zoka
