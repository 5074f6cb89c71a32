// SCREEN, COLOR, CLS, CONSOLE, WIDTH and LOCATE: modes, palettes and the text screen.
#include <algorithm>
#include <optional>

#include "vm/handler_args.h"
#include "vm/handlers.h"
#include "vm/vmachine.h"

namespace zoka {
namespace {

constexpr int32_t MAX_COLOR_CODE = 0xFFF;
constexpr int32_t DIGITAL_COLORS = 8;
constexpr int8_t ANALOG_16_MODE = 2;
constexpr int8_t DIGITAL_MODE = 0;
/// Largest row of the mouse in the modes of 200 and of 400 lines.
constexpr int32_t MAX_ROW_200 = SCREEN_HEIGHT / 2 - 1;
constexpr int32_t MAX_ROW_400 = SCREEN_HEIGHT - 1;

/// Pops operand number `index` if the count covers it.
std::optional<int32_t> pop_counted(TVMachine& m, int32_t count, int32_t index) {
  return count > index ? pop_optional(m) : std::nullopt;
}

void set_switch(TVMachine& m, int32_t value) {
  check_range(m, value, 0, 3);
  m.mRsrc->SetGrphVisible(value < 2);
}

void set_mode(TVMachine& m, int32_t mode) {
  check_range(m, mode, 0, 3);
  bool isFine = mode >= 2;
  m.mRsrc->SetGrphYScale(isFine ? 1 : 2);
  m.Mouse().SetMouseMaxY(isFine ? MAX_ROW_400 : MAX_ROW_200);
}

void set_active_page(TVMachine& m, int32_t page) {
  check_range(m, page, 0, m.mRsrc->GrphYScale() == 1 ? 1 : 3);
  m.mRsrc->SetActivePage(static_cast<int8_t>(page));
}

/// The page of a display code: NO_PAGE for the codes of none, -1 for a code that means nothing.
int8_t display_page_of(int32_t code, bool isFine) {
  switch (code) {
    case 0:
    case 8:
    case 16:
    case 24:
    case 32:
    case 48:
      return NO_PAGE;
    case 1:
      return 0;
    case 2:
      return isFine ? -1 : 1;
    case 17:
    case 33:
      return isFine ? 1 : 2;
    case 18:
    case 34:
      return isFine ? -1 : 3;
    default:
      return -1;
  }
}

void set_display_page(TVMachine& m, int32_t code) {
  int8_t page = display_page_of(code, m.mRsrc->GrphYScale() == 1);
  if (page < 0) throw bad_call(m);
  m.mRsrc->SetDisplayPage(page);
}

}  // namespace

void ExeBasicScreen(TVMachine& m, const TVMCode* code) {
  int32_t count = code->lval();
  std::optional<int32_t> display = pop_counted(m, count, 3);
  std::optional<int32_t> active = pop_counted(m, count, 2);
  std::optional<int32_t> visible = pop_counted(m, count, 1);
  std::optional<int32_t> mode = pop_counted(m, count, 0);
  // What comes before an operand that is refused stays applied.
  if (visible) set_switch(m, *visible);
  if (mode) set_mode(m, *mode);
  if (active) set_active_page(m, *active);
  if (display) set_display_page(m, *display);
  m.mRsrc->UpdateScreen();
}

void ExeBasicColorProc1(TVMachine& m, const TVMCode* code) {
  int32_t count = code->lval();
  if (auto mode = pop_counted(m, count, 4)) {
    check_range(m, *mode, 0, ANALOG_16_MODE);
    m.mRsrc->SetColorMode(static_cast<int8_t>(*mode));
  }
  if (auto fore = pop_counted(m, count, 3)) {
    check_range(m, *fore, 0, GRPH_PAL_COLORS - 1);
    m.mRsrc->SetGrphForeColor(static_cast<int8_t>(*fore));
  }
  pop_counted(m, count, 2);  // the border: there is none
  if (auto back = pop_counted(m, count, 1)) {
    check_range(m, *back, 0, GRPH_PAL_COLORS - 1);
    m.mRsrc->SetGrphBackColor(static_cast<int8_t>(*back));
  }
  if (auto text = pop_counted(m, count, 0)) {
    check_range(m, *text, 0, TXT_PAL_COLORS - 1);
    m.mRsrc->SetTxtColor(static_cast<int8_t>(*text));
  }
}

void ExeBasicColorProc2(TVMachine& m, const TVMCode*) {
  TBasicRsrc& rsrc = *m.mRsrc;
  int32_t color = m.PopInt();
  int32_t index = m.PopInt();
  int32_t colors = rsrc.ColorMode() == ANALOG_16_MODE ? GRPH_PAL_COLORS : DIGITAL_COLORS;
  bool isDigital = rsrc.ColorMode() == DIGITAL_MODE;
  check_range(m, index, 0, colors - 1);
  check_range(m, color, 0, isDigital ? DIGITAL_COLORS - 1 : MAX_COLOR_CODE);
  rsrc.SetGrphPal(index, isDigital ? rsrc.BasePal(color) : TBasicRsrc::BasColCodeToBeRGB(color));
  rsrc.UpdateScreen();
}

void ExeBasicInitColorPalette(TVMachine& m, const TVMCode*) {
  m.mRsrc->InitColorPalette();
  m.mRsrc->UpdateScreen();
}

void ExeBasicColorAt(TVMachine& m, const TVMCode* code) {
  TBasicRsrc& rsrc = *m.mRsrc;
  std::optional<int32_t> color = code->bval() ? pop_optional(m) : std::nullopt;
  int32_t y2 = m.PopInt();
  int32_t x2 = m.PopInt();
  int32_t y1 = m.PopInt();
  int32_t x1 = m.PopInt();
  for (int32_t y : {y1, y2}) check_range(m, y, 0, rsrc.TxtRows() - 1);
  for (int32_t x : {x1, x2}) check_range(m, x, 0, rsrc.TxtCols() - 1);
  rsrc.SetTxtAttr(x1, y1, x2, y2, color.value_or(TXT_PAL_COLORS - 1));
  rsrc.UpdateScreen();
}

void ExeBasicCls(TVMachine& m, const TVMCode* code) {
  int32_t what = pop_counted(m, code->lval(), 0).value_or(1);
  if (what == 1 || what == 3) {
    m.mRsrc->ClearTxtBuf(m.mRsrc->ConsoleTop(), m.mRsrc->ConsoleBottom());
  }
  if (what == 2 || what == 3) m.mRsrc->ClearGrphBuf();
  m.mRsrc->UpdateScreen();
}

void ExeBasicConsole(TVMachine& m, const TVMCode* code) {
  int32_t count = code->lval();
  for (int32_t index : {4, 3, 2}) pop_counted(m, count, index);
  int32_t rows = pop_counted(m, count, 1).value_or(-1);
  int32_t start = pop_counted(m, count, 0).value_or(-1);
  check_range(m, start, -1, MAX_TXT_ROWS - 1);
  check_range(m, rows, -1, MAX_TXT_ROWS);
  m.mRsrc->SetConsole(start, rows);
}

void ExeBasicWidthProc1(TVMachine& m, const TVMCode* code) {
  TBasicRsrc& rsrc = *m.mRsrc;
  int32_t rows = code->bval() ? pop_optional(m).value_or(rsrc.TxtRows()) : rsrc.TxtRows();
  int32_t cols = pop_optional(m).value_or(rsrc.TxtCols());
  if ((rows != 20 && rows != 25) || (cols != 40 && cols != 80)) throw bad_call(m);
  rsrc.SetTxtSize(cols, rows);
  rsrc.UpdateScreen();
}

void ExeBasicLocate(TVMachine& m, const TVMCode* code) {
  TBasicRsrc& rsrc = *m.mRsrc;
  int32_t count = code->lval();
  pop_counted(m, count, 2);  // the cursor's switch: it shows itself where INPUT waits
  std::optional<int32_t> y = pop_counted(m, count, 1);
  std::optional<int32_t> x = pop_counted(m, count, 0);
  int32_t cols = rsrc.TxtCols();
  int32_t column = std::clamp(x.value_or(cursor_column(m)), 0, cols - 1);
  int32_t row = std::clamp(y.value_or(cursor_row(m)), 0, rsrc.TxtRows() - 1);
  rsrc.SetCursorPos(cols * row + column);
}

}  // namespace zoka
