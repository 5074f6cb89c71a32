// Lists thrown together at random from pieces of the language: each ends in code or in a fault.
#include <iterator>
#include <random>

#include "compile_rows.h"

namespace zoka {
namespace {

constexpr const char* PIECES[] = {
    "10 ",      "\n20 ",  "\n30 ",  ":",       " ",      ",",        ";",       "(",
    ")",        "[",      "]",      "-",       "+",      "*",        "*L",      "/",
    "^",        "=",      "<>",     "@",       "?",      "#1",       "#",       "'",
    "1",        "2.5",    "3#",     "&HFF",    "\"A\"",  "\"",       "A",       "A$",
    "A%(",      "FNA(",   "FN ",    "THEN ",   "ELSE ",  "IF ",      "FOR I=1", " TO ",
    " STEP ",   "NEXT ",  "WHILE ", "WEND ",   "GOTO ",  "GOSUB ",   "ON ",     "KEY ",
    "MOUSE(",   "TIME$ ", "PLAY ",  "PRINT ",  "USING ", "INPUT ",   "WAIT ",   "LINE ",
    "CIRCLE ",  "PUT@(",  "KANJI(", "GET@(",   "PSET ",  "PAINT ",   "COLOR ",  "DATA ",
    "READ ",    "DEF ",   "SEG ",   "DEFINT ", "OPEN ",  " AS ",     "CHAIN ",  "MERGE ",
    "RUN ",     "ROLL ",  "WIDTH ", "CALL ",   "MID$(",  "LEN(",     "INSTR(",  "SEARCH(",
    "RND",      "INKEY$", "NOT ",   " AND ",   " MOD ",  "CLOSE ",   "POKE ",   "NAME ",
    "RESTORE ", "DIM ",   "SWAP ",  "OPTION ", "BASE ",  "\xE3\x81", "REM ",    "COLOR@(",
};

TEST(HostileLists, EndInCodeOrAFault) {
  constexpr int LISTS = 4000;
  constexpr uint32_t MAX_PIECES = 16;
  std::minstd_rand random(1);
  for (int i = 0; i < LISTS; ++i) {
    std::string text = "10 ";
    const auto count = 1 + random() % MAX_PIECES;
    for (uint32_t piece = 0; piece < count; ++piece) text += PIECES[random() % std::size(PIECES)];
    const TCompilation compilation(text);
    if (compilation.result == TCompileResult::Failed) {
      EXPECT_TRUE(compilation.key.starts_with("@Compile_Err_")) << text;
    } else {
      ASSERT_FALSE(compilation.code.mCodes.empty()) << text;
      EXPECT_EQ(compilation.code.mCodes.back().Cmd(), TVMCodeCmd::BExit) << text;
    }
  }
}

}  // namespace
}  // namespace zoka
