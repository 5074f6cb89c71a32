// CALL MOUSE, and the statement and the function MOUSE.
#include <algorithm>
#include <array>
#include <optional>
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

/// What can be asked about one kind of click.
struct TClickReads {
  TMouseRead count, x, y;
};
constexpr TClickReads LEFT_DOWNS = {TMouseRead::LeftDowns, TMouseRead::LeftDownX,
                                    TMouseRead::LeftDownY};
constexpr TClickReads LEFT_UPS = {TMouseRead::LeftUps, TMouseRead::LeftUpX, TMouseRead::LeftUpY};
constexpr TClickReads RIGHT_DOWNS = {TMouseRead::RightDowns, TMouseRead::RightDownX,
                                     TMouseRead::RightDownY};
constexpr TClickReads RIGHT_UPS = {TMouseRead::RightUps, TMouseRead::RightUpX,
                                   TMouseRead::RightUpY};

TInts click_results(TVMachine& m, TMouseRead state, const TClickReads& clicks) {
  return {m.ReadMouse(state), m.ReadMouse(clicks.count), m.ReadMouse(clicks.x),
          m.ReadMouse(clicks.y)};
}

TInts ExeBasicCallMouseDisk03(TVMachine& m) {
  return {m.ReadMouse(TMouseRead::LeftState), m.ReadMouse(TMouseRead::RightState),
          m.ReadMouse(TMouseRead::PosX), m.ReadMouse(TMouseRead::PosY)};
}

TInts call_mouse(TVMachine& m, const TInts& in) {
  switch (in[0]) {
    case 0:
      return {-1};
    case 3:
      return ExeBasicCallMouseDisk03(m);
    case 5:
      return click_results(m, TMouseRead::LeftState, LEFT_DOWNS);
    case 6:
      return click_results(m, TMouseRead::LeftState, LEFT_UPS);
    case 7:
      return click_results(m, TMouseRead::RightState, RIGHT_DOWNS);
    case 8:
      return click_results(m, TMouseRead::RightState, RIGHT_UPS);
    case 10:
    case 13:
    case 14:
      return in;
    case 11:
      return {in[0], in[1], m.ReadMouse(TMouseRead::DistanceX), m.ReadMouse(TMouseRead::DistanceY)};
    case 16:
      m.Mouse().SetMouseRangeX(in[2], in[3]);
      return {};
    case 17:
      m.Mouse().SetMouseRangeY(in[2], in[3]);
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

/// MOUSE(2,b) to MOUSE(8,b): a button's state, counters and places.
int32_t button_value(TVMachine& m, int32_t n, int32_t button) {
  const bool isLeft = button == LEFT;
  const TClickReads& downs = isLeft ? LEFT_DOWNS : RIGHT_DOWNS;
  const TClickReads& ups = isLeft ? LEFT_UPS : RIGHT_UPS;
  const TClickReads& clicks = n <= 5 ? downs : ups;
  switch (n) {
    case 2:
      return -m.ReadMouse(isLeft ? TMouseRead::LeftState : TMouseRead::RightState);
    case 3:
    case 6:
      return m.ReadMouse(clicks.count);
    case 4:
    case 7:
      return m.ReadMouse(clicks.x);
    default:
      return m.ReadMouse(clicks.y);
  }
}

int32_t place_value(TVMachine& m, int32_t n) {
  switch (n) {
    case 0:
      return m.ReadMouse(TMouseRead::PosX);
    case 1:
      return m.ReadMouse(TMouseRead::PosY);
    case 9:
      return m.ReadMouse(TMouseRead::DistanceX);
    case 10:
      return m.ReadMouse(TMouseRead::DistanceY);
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
constexpr std::array<TOperandCount, 7> STATEMENT_OPERANDS = {
    {{1, 1}, {4, 4}, {4, 5}, {3, 3}, {5, 5}, {2, 2}, {1, 1}}};
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
  TOperandCount count = STATEMENT_OPERANDS[static_cast<size_t>(form)];
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
  std::optional<int32_t> button;
  if (code->bval()) button = m.PopInt();
  int32_t n = m.PopInt();
  bool wantsButton = n >= 2 && n <= 8;
  if (button.has_value() != wantsButton) throw bad_call(m);
  if (!button) return m.PushInt(place_value(m, n));
  if (*button != LEFT && *button != RIGHT) throw bad_call(m);
  m.PushInt(button_value(m, n, *button));
}

void ExeBasicMouseProc(TVMachine& m, const TVMCode* code) {
  std::vector<TStackData> operands(static_cast<size_t>(code->lval()));
  for (auto operand = operands.rbegin(); operand != operands.rend(); ++operand) {
    *operand = m.Pop();
    // Texts are only told from numbers here.
    operand->Release();
  }
  mouse_statement(m, operands);
}

}  // namespace zoka
