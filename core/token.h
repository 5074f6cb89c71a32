// TToken and TTokenKind: what the tokeniser yields. The kinds 6 to 11 are also the type tags of
// values, so their numbers are part of the design.
#pragma once

#include <cstdint>
#include <string>

namespace zoka {

/// What a token is. ttInt to ttStr are the kinds of literals and the types of expressions and
/// variables; ttVoid and ttMismatch are type tags only; ttAnyValue and ttOmitted occur in argument
/// lists only.
enum TTokenKind : uint32_t {
  ttNone = 0,
  ttFunc,
  ttProc,
  ttFuncProc,
  ttIdent,
  ttUserFunc,
  ttVoid,
  ttInt,
  ttSng,
  ttDbl,
  ttStr,
  ttMismatch,
  ttSharpInt,
  ttLpar,
  ttRpar,
  ttLbracket,
  ttRbracket,
  ttComma,
  ttSemiColon,
  ttColon,
  ttIf,
  ttThen,
  ttElse,
  ttFor,
  ttTo,
  ttStep,
  ttNext,
  ttWhile,
  ttWend,
  ttAs,
  ttHat,
  ttMul,
  ttDiv,
  ttAdd,
  ttSub,
  ttIdiv,
  ttMod,
  ttEqual,
  ttNoteq,
  ttLt,
  ttLe,
  ttGt,
  ttGe,
  ttNot,
  ttAnd,
  ttOr,
  ttXor,
  ttImp,
  ttEqv,
  ttAnyValue,
  ttOmitted,
  ttSymbol,
  ttKanji,
  ttEol,
  ttEof,
};
static_assert(ttInt == 7 && ttStr == 10 && ttEof == 54, "the values are part of the design");

/// A token: its kind, and its text as the tokeniser built it (words in upper case, literals without
/// quotes, hexadecimal and octal numbers in decimal).
struct TToken {
  TTokenKind kind = ttNone;
  std::string text;
};

}  // namespace zoka
