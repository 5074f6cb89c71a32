// Fuzz target: programs of graphic statements with any operands. Where the palette never changed,
// each page's real plane must show its index plane.
#include <string>

#include "run/screen/compose.h"
#include "tests/fuzz/fuzz_engine.h"

namespace {

using namespace zoka;

/// Statements that draw; "#" stands for a coordinate, "%" for a small number.
constexpr const char* DRAWINGS[] = {
    "LINE (#,#)-(#,#),%",
    "LINE -STEP(#,#),%,B",
    "LINE (#,#)-(#,#),%,BF,%",
    "LINE STEP(#,#)-(#,#),%,BF",
    "PSET (#,#),%",
    "PRESET STEP(#,#)",
    "CIRCLE (#,#),#",
    "CIRCLE (#,#),#,%,,,%",
    "CIRCLE (#,#),#,%,-%,%",
    "CIRCLE (#,#),#,%,%,-%,%,F,%",
    "CIRCLE STEP(#,#),#,%,%,%,%",
    "CIRCLE (#,#),#,%,,,,F",
    "PAINT (#,#),%,%",
    "PAINT STEP(#,#),%",
    "GET@(#,#)-(#,#),A%",
    "GET@(#,#)-STEP(#,#),A%,%",
    "PUT@(#,#),A%,PSET",
    "PUT@(#,#),A%,XOR",
    "PUT@(#,#),A%,OR",
    "PUT@(#,#),A%,AND",
    "PUT@(#,#),A%(%),NOT",
    "PUT@(#,#),KANJI(&H3021+%),PSET,%,%",
    "ROLL #,#",
    "ROLL #,#,N",
    "A%(%)=#",
    "CLS %",
    "SCREEN %,%,%,%",
    "SCREEN ,,%,%",
    "COLOR %,%,%",
    "PRINT POINT(#,#)",
    "LOCATE %,%:PRINT \"\xE6\xBC\xA2\"",
    "WIDTH 40,20",
    "COLOR@(%,%)-(%,%),%",
};
constexpr const char* PALETTE_CHANGES[] = {"COLOR=(%,%)", "COLOR ,,,,%", "INIT COLOR",
                                           "COLOR=(%,&HF0F)", "SCREEN %,%,%,%"};

std::string coordinate(TFuzzInput& input) {
  const uint8_t high = input.Byte();
  if (high < 0x20) return input.Number();
  return std::to_string((high - 0x40) * 8 + input.Byte() % 8);
}

std::string statement_of(const char* form, TFuzzInput& input) {
  std::string text;
  for (; *form != '\0'; ++form) {
    if (*form == '#') {
      text += coordinate(input);
    } else if (*form == '%' && (form[-1] != 'A')) {
      text += std::to_string(input.Byte() % 20 - 2);
    } else {
      text += *form;
    }
  }
  return text;
}

void check_page(const TBasicRsrc& rsrc, const TGrphPage& page) {
  for (int32_t y = 0; y < SCREEN_HEIGHT; ++y) {
    for (int32_t x = 0; x < SCREEN_WIDTH; ++x) {
      require(page.RealRow(y)[x] == pixel_of(rsrc.GrphPal(page.IndexRow(y)[x])));
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  TFuzzInput input(data, size);
  TFuzzEngine engine;
  const bool changesPalette = input.Byte() % 4 == 0;
  std::string list = "10 DIM A%(2000)\n";
  for (int line = 20; line < 400 && !input.IsEmpty(); line += 10) {
    const char* form = changesPalette && input.Byte() % 4 == 0 ? input.OneOf(PALETTE_CHANGES)
                                                               : input.OneOf(DRAWINGS);
    list += std::to_string(line) + " " + statement_of(form, input) + "\n";
  }
  engine.Type({});
  engine.RunBytes(list);
  TBasicRsrc& rsrc = engine.View().Rsrc();
  for (int8_t page = 0; page < PAGE_COUNT && !changesPalette; ++page) {
    if (!rsrc.GrphBmp(page).IsPristine()) check_page(rsrc, rsrc.GrphBmp(page));
  }
  TFrameBuffer picture;
  TScreenPainter(rsrc).DrawBasic(picture, true);
  return 0;
}
