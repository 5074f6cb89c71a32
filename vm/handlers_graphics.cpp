// PSET, PRESET, POINT, LINE, CIRCLE, PAINT, GET@, PUT@ and ROLL: operands from the stack to the
// drawing operations of the active page.
#include "run/screen/graphics.h"

#include <algorithm>
#include <cmath>

#include "vm/handler_args.h"
#include "vm/handlers.h"
#include "vm/kana_convert.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

constexpr int32_t MAX_FILL_COLOR = 15;
constexpr int32_t POINT_FUNCTIONS = 4;
/// The constants of CIRCLE's angles, as single as the language has them.
constexpr float PI = 3.1415927f;
constexpr float WHOLE_TURN = 6.2831855f;
constexpr float HALF_TURN_DEGREES = 180;

/// Pops a colour; a colour that was left out is `standard`. Only the low byte counts.
int8_t pop_color(TVMachine& m, int8_t standard) {
  return drop_if_omitted(m) ? standard : static_cast<int8_t>(m.PopInt());
}

/// Pops y and x.
TPoint pop_point(TVMachine& m) {
  int32_t y = m.PopInt();
  int32_t x = m.PopInt();
  return {static_cast<float>(x), static_cast<float>(y)};
}

TPoint relative(const TPoint& origin, const TPoint& p) {
  return {origin.x + p.x, origin.y + p.y};
}

/// Pops y and x, relative to the last point under STEP.
TPoint pop_step_point(TVMachine& m, bool step) {
  TPoint p = pop_point(m);
  return step ? relative(m.mRsrc->LastPoint(), p) : p;
}

/// Pops the fill operand: a tile or a number above 15 means no fill colour.
int32_t pop_fill(TVMachine& m) {
  TOwnedData fill(m.Pop());
  if (!is_number(fill->kind)) return NO_FILL;
  int32_t color = stack_int(*fill);
  return color < 0 || color > MAX_FILL_COLOR ? NO_FILL : color;
}

// --- LINE

struct TLineOption {
  TPoint p1;
  TPoint p2;
  int8_t color = 0;
  int32_t fill = NO_FILL;
};

TLineOption GetLineOption(TVMachine& m, int32_t count) {
  TLineOption option;
  option.color = m.mRsrc->GrphForeColor();
  if (count >= 2) option.fill = pop_fill(m);
  if (count >= 1) option.color = pop_color(m, option.color);
  option.p2 = pop_point(m);
  bool step2 = m.PopBool();
  if (drop_if_omitted(m)) {
    option.p1 = m.mRsrc->LastPoint();
  } else {
    option.p1 = pop_point(m);
    if (m.PopBool()) option.p1 = relative(m.mRsrc->LastPoint(), option.p1);
  }
  if (step2) option.p2 = relative(option.p1, option.p2);
  return option;
}

// --- CIRCLE

struct TCircleOption {
  TPoint center;
  TPoint radius;
  int8_t color = 0;
  TArcOperands arc;
  int32_t fill = NO_FILL;
};

float pop_float(TVMachine& m, float standard) {
  return drop_if_omitted(m) ? standard : m.PopFloat();
}

float degrees(float radians) {
  return std::fabs(radians) * HALF_TURN_DEGREES / PI;
}

TArcOperands arc_operands(float start, float end) {
  TArcOperands arc;
  arc.start = degrees(start);
  arc.span = degrees(end) - arc.start;
  if (std::fabs(end) < std::fabs(start)) arc.span += 2 * HALF_TURN_DEGREES;
  arc.startRadius = start < 0;
  arc.endRadius = end < 0;
  return arc;
}

TCircleOption GetCircleOption(TVMachine& m, int32_t count) {
  TCircleOption option;
  if (count >= 5) option.fill = pop_fill(m);
  // So that a circle looks round where rows are twice as high.
  float ratio = 1.0f / static_cast<float>(m.mRsrc->GrphYScale());
  if (count >= 4) ratio = pop_float(m, ratio);
  float end = count >= 3 ? pop_float(m, WHOLE_TURN) : WHOLE_TURN;
  float start = count >= 2 ? pop_float(m, 0) : 0;
  float foreground = m.mRsrc->GrphForeColor();
  float color = count >= 1 ? pop_float(m, foreground) : foreground;
  option.color = static_cast<int8_t>(round_off(static_cast<double>(color)));
  // What was left out of these reads as 0.
  float radius = m.PopFloat();
  option.center.y = m.PopFloat();
  option.center.x = m.PopFloat();
  option.radius = {radius / std::max(1.0f, ratio), radius * std::min(ratio, 1.0f)};
  option.arc = arc_operands(start, end);
  if (m.PopBool()) option.center = relative(m.mRsrc->LastPoint(), option.center);
  return option;
}

// --- GET@ and PUT@

/// A picture under index 0 is also under 1, and the other way about: an array named without a
/// subscript means its first element.
void keep_picture(TVarInfo* var, int32_t index, std::shared_ptr<const TGrphBlock> picture) {
  var->bitmaps[index] = picture;
  if (index == 0 || index == 1) var->bitmaps[1 - index] = std::move(picture);
}

/// The picture that a program has stored in an integer array itself.
std::shared_ptr<const TGrphBlock> read_planar_picture(TVMachine& m, const TVarInfo& var,
                                                      int32_t index) {
  if (var.kind != ttInt || var.dimCount > 2) {
    throw m.RuntimeException2("@Runtime_Err_PutAt_Before_GetAt@");
  }
  int64_t first = index == 0 ? 1 : index;
  int64_t stride = var.dimCount == 2 ? var.dims[0] : 1;
  auto element = [&](int64_t number) {
    int64_t slot = first + number * stride;
    if (slot >= var.slotCount) {
      throw m.RuntimeException2("@Runtime_Err_Subscript_Out_Of_Range@");
    }
    return var.ints[slot];
  };
  int32_t planes = m.mRsrc->ColorMode() == 2 ? 4 : 3;
  int64_t width = element(0);
  int64_t height = element(1);
  int64_t bytes = planar_bytes(width, height, planes);
  auto byteAt = [&](int64_t number) {
    auto word = static_cast<uint32_t>(element(2 + number / 2));
    return static_cast<uint8_t>(number % 2 == 0 ? word : word >> 8);
  };
  // The last one first: no room is made for a picture that is not all there.
  if (bytes > 0) byteAt(bytes - 1);
  return std::make_shared<TGrphBlock>(planar_block(width, height, planes, byteAt));
}

/// Pops the operands behind PUT@'s array; all but the first, the mode, mean nothing.
TPutMode pop_put_mode(TVMachine& m, int32_t count) {
  auto mode = static_cast<int32_t>(TPutMode::Xor);
  for (int32_t i = count; i > 1; --i) m.Drop();
  if (count > 0 && !drop_if_omitted(m)) mode = m.PopInt();
  return static_cast<TPutMode>(mode);
}

/// Pops a colour of PUT@ KANJI; one that was left out is `standard`.
int8_t pop_kanji_color(TVMachine& m, int8_t standard) {
  if (drop_if_omitted(m)) return standard;
  int32_t color = m.PopInt();
  if (color < 0 || color >= GRPH_PAL_COLORS) throw bad_call(m);
  return static_cast<int8_t>(color);
}

}  // namespace

void ExeBasicPSet(TVMachine& m, const TVMCode* code) {
  int8_t color = pop_color(m, m.mRsrc->GrphForeColor());
  TGraphics(*m.mRsrc).Pset(pop_step_point(m, code->bval()), color);
  m.mRsrc->UpdateScreen();
}

void ExeBasicPReset(TVMachine& m, const TVMCode* code) {
  TGraphics(*m.mRsrc).Pset(pop_step_point(m, code->bval()), m.mRsrc->GrphBackColor());
  m.mRsrc->UpdateScreen();
}

void ExeBasicPointProc(TVMachine& m, const TVMCode* code) {
  m.mRsrc->SetLastPoint(pop_step_point(m, code->bval()));
}

void ExeBasicPointFunc1(TVMachine& m, const TVMCode*) {
  int32_t n = m.PopInt();
  if (n < 0 || n >= POINT_FUNCTIONS) throw bad_call(m);
  TPoint last = m.mRsrc->LastPoint();
  double value = static_cast<double>(n % 2 == 0 ? last.x : last.y);
  m.PushInt(floor_to_int(std::trunc(value)));
}

void ExeBasicPointFunc2(TVMachine& m, const TVMCode*) {
  int32_t y = m.PopInt();
  int32_t x = m.PopInt();
  m.PushInt(TGraphics(*m.mRsrc).Point(x, y));
}

void ExeBasicLine(TVMachine& m, const TVMCode* code) {
  TLineOption option = GetLineOption(m, code->lval());
  TGraphics(*m.mRsrc).Line(option.p1, option.p2, option.color);
  m.mRsrc->UpdateScreen();
}

void ExeBasicStrokeRect(TVMachine& m, const TVMCode* code) {
  TLineOption option = GetLineOption(m, code->lval());
  TGraphics(*m.mRsrc).StrokeRect(option.p1, option.p2, option.color);
  m.mRsrc->UpdateScreen();
}

void ExeBasicFillRect(TVMachine& m, const TVMCode* code) {
  TLineOption option = GetLineOption(m, code->lval());
  TGraphics(*m.mRsrc).FillRect(option.p1, option.p2, option.color, option.fill);
  m.mRsrc->UpdateScreen();
}

void ExeBasicStrokeEllipse(TVMachine& m, const TVMCode* code) {
  TCircleOption option = GetCircleOption(m, code->lval());
  TGraphics(*m.mRsrc).StrokeEllipse(option.center, option.radius, option.color);
  m.mRsrc->UpdateScreen();
}

void ExeBasicFillEllipse(TVMachine& m, const TVMCode* code) {
  TCircleOption option = GetCircleOption(m, code->lval());
  TGraphics(*m.mRsrc).FillEllipse(option.center, option.radius, option.color, option.fill);
  m.mRsrc->UpdateScreen();
}

void ExeBasicStrokeArc(TVMachine& m, const TVMCode* code) {
  TCircleOption option = GetCircleOption(m, code->lval());
  TGraphics(*m.mRsrc).StrokeArc(option.center, option.radius, option.color, option.arc);
  m.mRsrc->UpdateScreen();
}

void ExeBasicFillArc(TVMachine& m, const TVMCode* code) {
  TCircleOption option = GetCircleOption(m, code->lval());
  TGraphics(*m.mRsrc).FillArc(option.center, option.radius, option.color, option.arc, option.fill);
  m.mRsrc->UpdateScreen();
}

void ExeBasicPaint(TVMachine& m, const TVMCode* code) {
  TOwnedData border(m.Pop());
  TOwnedData paint(m.Pop());
  // A tile is ignored.
  int8_t color = m.mRsrc->GrphForeColor();
  if (is_number(paint->kind)) color = static_cast<int8_t>(stack_int(*paint));
  int8_t stop =
      border->kind == TStackKind::Abbrev ? color : static_cast<int8_t>(stack_int(*border));
  TGraphics(*m.mRsrc).Paint(pop_step_point(m, code->bval()), color, stop);
  m.mRsrc->UpdateScreen();
}

void ExeBasicGetAt(TVMachine& m, const TVMCode* code) {
  TVarInfo* var = m.PopVar();
  int32_t index = m.DimSuf(var);
  TPoint p2 = pop_point(m);
  TPoint p1 = pop_point(m);
  if (code->bval()) p2 = relative(p1, p2);
  if (!(p2.x > p1.x && p2.y > p1.y)) throw bad_call(m);
  keep_picture(var, index, std::make_shared<TGrphBlock>(TGraphics(*m.mRsrc).GetBlock(p1, p2)));
}

void ExeBasicPutAtProc1(TVMachine& m, const TVMCode* code) {
  TPutMode mode = pop_put_mode(m, code->lval());
  TVarInfo* var = m.PopVar();
  int32_t index = m.DimSuf(var);
  auto found = var->bitmaps.find(index);
  std::shared_ptr<const TGrphBlock> picture;
  if (found != var->bitmaps.end()) {
    picture = found->second;
  } else {
    picture = read_planar_picture(m, *var, index);
    keep_picture(var, index, picture);
  }
  TGraphics(*m.mRsrc).PutBlock(pop_point(m), *picture, mode);
  m.mRsrc->UpdateScreen();
}

void ExeBasicPutAtProc2(TVMachine& m, const TVMCode* code) {
  int32_t count = code->lval();
  int8_t back = count > 2 ? pop_kanji_color(m, m.mRsrc->GrphBackColor()) : m.mRsrc->GrphBackColor();
  int8_t fore = count > 1 ? pop_kanji_color(m, m.mRsrc->GrphForeColor()) : m.mRsrc->GrphForeColor();
  TPutMode mode = pop_put_mode(m, std::min(count, 1));
  int32_t kanji = m.PopInt();
  TPoint p = pop_point(m);
  std::string character = JisCodeToUtf8Char(static_cast<uint32_t>(kanji));
  TGraphics(*m.mRsrc).PutKanji(p, character, mode, fore, back);
  m.mRsrc->UpdateScreen();
}

void ExeBasicRoll(TVMachine& m, const TVMCode* code) {
  int32_t count = code->lval();
  bool fillsBack = count > 2 && m.PopInt() == 'Y';
  int32_t h = count > 1 && !drop_if_omitted(m) ? m.PopInt() : 0;
  int32_t v = drop_if_omitted(m) ? 0 : m.PopInt();
  TGraphics(*m.mRsrc).Roll(v, h, fillsBack ? m.mRsrc->GrphBackColor() : int8_t{0});
  m.mRsrc->UpdateScreen();
}

}  // namespace zoka
