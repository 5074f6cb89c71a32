// Words by code, in the order of the codes; an empty word is a code that is not assigned.
#include "editor/binary_save_words.h"

#include <array>

namespace zoka {

namespace {

constexpr int32_t FIRST_WORD = 0x80;
constexpr int32_t FIRST_FUNCTION = 0xFF80;

// clang-format off
constexpr std::string_view WORDS[] = {
    // 0x80
    "AUTO", "BSAVE", "BLOAD", "BEEP", "CONSOLE", "COPY", "CLOSE", "CONT",
    "CLEAR", "CALL", "COMMON", "CHAIN", "COM", "CIRCLE", "COLOR", "CLS",
    // 0x90
    "DELETE", "DATA", "DIM", "DEFSTR", "DEFINT", "DEFSNG", "DEFDBL", "DSKO$",
    "DEF", "ELSE", "END", "ERASE", "EDIT", "ERROR", "FOR", "FIELD",
    // 0xA0
    "FILES", "FN", "DRAW", "GOTO", "GOSUB", "GET", "HELP", "INPUT",
    "IF", "KEY", "KILL", "KANJI", "LOCATE", "LPRINT", "LLIST", "LET",
    // 0xB0
    "LINE", "LOAD", "LSET", "LFILES", "MOTOR", "MERGE", "MON", "NEXT",
    "NAME", "NEW", "NOT", "OPEN", "OUT", "ON", "OPTION", "OFF",
    // 0xC0
    "PRINT", "PUT", "POKE", "PSET", "PRESET", "PAINT", "RETURN", "READ",
    "RUN", "RESTORE", "", "RESUME", "RSET", "RENUM", "RANDOMIZE", "ROLL",
    // 0xD0
    "SCREEN", "STOP", "SWAP", "SAVE", "SPC", "STEP", "THEN", "TRON",
    "TROFF", "TAB", "TO", "TERM", "USING", "USR", "WIDTH", "WAIT",
    // 0xE0
    "WHILE", "WEND", "WRITE", "LIST", "SEG", "SET", "KINPUT", "SRQ",
    "CMD", "IRESET", "ISET", "POLL", "RBYTE", "WBYTE", "KPLOAD", "",
    // 0xF0
    ">", "=", "<", "+", "-", "*", "/", "^",
    "AND", "OR", "XOR", "EQV", "IMP", "MOD", "\\",
};

constexpr std::string_view FUNCTIONS[] = {
    // 0xFF80
    "DATE$", "MID$", "POINT", "PEN", "TIME$", "VIEW", "WINDOW", "",
    "", "", "", "", "", "", "", "",
    // 0xFF90
    "ABS", "ATN", "ASC", "ATTR$", "CSRLIN", "CINT", "CSNG", "CDBL",
    "CVI", "CVS", "CVD", "COS", "CHR$", "DSKF", "ERL", "ERR",
    // 0xFFA0
    "EXP", "EOF", "FIX", "FPOS", "HEX$", "INSTR", "INT", "INP",
    "INKEY$", "LPOS", "LOG", "LOC", "LEN", "LEFT$", "LOF", "MKI$",
    // 0xFFB0
    "MKS$", "MKD$", "MAP", "OCT$", "POS", "PEEK", "RIGHT$", "RND",
    "SEARCH", "SGN", "SQR", "SIN", "STR$", "STRING$", "SPACE$", "TAN",
    // 0xFFC0
    "VAL", "DSKI$", "FRE", "VARPTR", "INPUT$", "JIS$", "KNJ$", "KTYPE",
    "KLEN", "KMID$", "KEXT$", "KINSTR", "AKCNV$", "KACNV$", "IEEE", "STATUS",
};
// clang-format on

static_assert(std::size(WORDS) == 0xFE - FIRST_WORD + 1);
static_assert(std::size(FUNCTIONS) == 0xFFCF - FIRST_FUNCTION + 1);

/// Number `index` of a table, empty outside it.
template <size_t SIZE>
std::string_view word_at(const std::string_view (&table)[SIZE], int32_t index) {
  return index >= 0 && static_cast<size_t>(index) < SIZE ? table[index] : std::string_view();
}

}  // namespace

std::string_view bin_save_word(int32_t code) {
  if (code < FIRST_FUNCTION) return word_at(WORDS, code - FIRST_WORD);
  return word_at(FUNCTIONS, code - FIRST_FUNCTION);
}

}  // namespace zoka
