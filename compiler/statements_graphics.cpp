// Statements of the picture that are read by hand: COLOR, LINE, CIRCLE, GET@, PUT@, ROLL; and
// WIDTH. The others are rows of statements_table.cpp.
#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {
namespace {

/// The words of PUT@ by their number.
constexpr const char* PUT_AT_WORDS[] = {"PSET", "PRESET", "OR", "AND", "XOR"};
constexpr int32_t PUT_AT_XOR = 4;
/// Foreground and background of PUT@ KANJI.
constexpr int32_t MAX_KANJI_COLORS = 2;
constexpr int32_t MAX_COLOR_ARGS = 5;

}  // namespace

TToken TCompiler::GenProcColor(const TToken&) {
  const TToken token = Token();
  if (token.kind == ttEqual || IsMultiExprEndToken(token)) return GenProcColor2(token);
  return GenProcColor1(token);
}

TToken TCompiler::GenProcColor1(const TToken& first) {
  int32_t count = 0;
  TToken token = GenMultiExpr(first, &count, nullptr);
  if (count > MAX_COLOR_ARGS) throw CompileException(KEY_ILL_FUNC_CALL);
  AddCodeLong(TVMCodeCmd::ColorProc1, count);
  return token;
}

TToken TCompiler::GenProcColor2(const TToken& first) {
  if (first.kind != ttEqual) {
    AddCode(TVMCodeCmd::InitColorPalette);
    return first;
  }
  TToken token = GenPoint(Token());
  AddCode(TVMCodeCmd::ColorProc2);
  return token;
}

TToken TCompiler::GenProcLine(const TToken&) {
  TToken token = Token();
  if (IsWord(token, "INPUT")) return GenProcLineInput(token);
  if (token.kind == ttSub) {
    AddAbbrevs(1);
  } else {
    token = GenStepPoint(token);
  }
  CheckMinus(token);
  token = GenStepPoint(Token());
  TVMCodeCmd cmd = TVMCodeCmd::Line;
  int32_t count = 0;
  if (token.kind == ttComma) token = GenLineOptions(Token(), &cmd, &count);
  AddCodeLong(cmd, count);
  return token;
}

// "[STEP](x,y)", whether there was a STEP going ahead on the stack.
TToken TCompiler::GenStepPoint(const TToken& first) {
  TToken token = first;
  const bool step = SkipStep(&token);
  CheckLpar(token);
  AddCodeBool(TVMCodeCmd::BPushBool, step);
  return GenPoint(token);
}

// "[colour][,[B or BF][,fill]]"
TToken TCompiler::GenLineOptions(const TToken& first, TVMCodeCmd* cmd, int32_t* count) {
  TToken token = first;
  if (IsMultiExprEndToken(token)) return token;
  if (token.kind == ttComma) {
    AddAbbrevs(1);
  } else {
    token = GenNumber(token);
  }
  ++*count;
  if (token.kind != ttComma) return token;
  token = Token();
  if (IsMultiExprEndToken(token)) return token;
  if (token.kind != ttComma) {
    if (token.kind != ttIdent || token.text[0] != 'B') throw CompileException(KEY_SYNTAX_ERR);
    const bool filled = token.text[1] == 'F';
    *cmd = filled ? TVMCodeCmd::FillRect : TVMCodeCmd::StrokeRect;
    token = Token();
  }
  return token.kind == ttComma ? GenFillOperand(Token(), count) : token;
}

// The colour or tile of a filled form: at most one.
TToken TCompiler::GenFillOperand(const TToken& first, int32_t* count) {
  int32_t further = 0;
  TToken token = GenMultiExpr(first, &further, nullptr);
  if (further > 1) throw CompileException(KEY_ILL_FUNC_CALL);
  *count += further;
  return token;
}

TToken TCompiler::GenProcCircle(const TToken&) {
  TToken token = CheckComma(GenStepPoint(Token()));
  token = GenPlace(Token());
  bool arc = false;
  bool fill = false;
  int32_t count = 0;
  if (token.kind == ttComma) token = GenCircleOptions(Token(), &arc, &fill, &count);
  if (arc) {
    AddCodeLong(fill ? TVMCodeCmd::FillArc : TVMCodeCmd::StrokeArc, count);
  } else {
    AddCodeLong(fill ? TVMCodeCmd::FillEllipse : TVMCodeCmd::StrokeEllipse, count);
  }
  return token;
}

// One place of a list: an expression, or the mark of one left out.
TToken TCompiler::GenPlace(const TToken& first) {
  TTokenKind kind;
  if (!IsExprEndToken(first)) return GenExpr(first, false, &kind);
  AddAbbrevs(1);
  return first;
}

// "[colour][,[start][,[end][,[ratio][,[F][,fill]]]]]"
TToken TCompiler::GenCircleOptions(const TToken& first, bool* arc, bool* fill, int32_t* count) {
  constexpr int32_t PLACES = 4;
  TToken token = first;
  for (int32_t place = 0; place < PLACES; ++place) {
    if (IsMultiExprEndToken(token)) return token;
    if (token.kind != ttComma && (place == 1 || place == 2)) *arc = true;
    token = GenPlace(token);
    ++*count;
    if (token.kind != ttComma) return token;
    token = Token();
  }
  if (IsMultiExprEndToken(token)) return token;
  if (token.kind != ttComma) {
    if (!IsWord(token, "F")) throw CompileException(KEY_SYNTAX_ERR);
    *fill = true;
    token = Token();
  }
  return token.kind == ttComma ? GenFillOperand(Token(), count) : token;
}

TToken TCompiler::GenProcGet(const TToken&) {
  const TToken token = Token();
  if (IsWord(token, "@")) return GenProcGetAtKernel(Token());
  return token.kind == ttLpar ? GenProcGetAtKernel(token) : GenProcGetKernel(token);
}

TToken TCompiler::GenProcPut(const TToken&) {
  const TToken token = Token();
  if (IsWord(token, "@")) return GenProcPutAtKernel(Token());
  return token.kind == ttLpar ? GenProcPutAtKernel(token) : GenProcPutKernel(token);
}

// Random files do not exist.
TToken TCompiler::GenProcGetKernel(const TToken& first) {
  return SkipMultiExpr(first);
}

TToken TCompiler::GenProcPutKernel(const TToken& first) {
  return SkipMultiExpr(first);
}

TToken TCompiler::GenProcGetAt(const TToken&) {
  return GenProcGetAtKernel(Token());
}

TToken TCompiler::GenProcPutAt(const TToken&) {
  return GenProcPutAtKernel(Token());
}

// A STEP in front of the first point is accepted without effect.
TToken TCompiler::GenProcGetAtKernel(const TToken& first) {
  TToken token = first;
  SkipStep(&token);
  CheckMinus(GenPoint(token));
  token = Token();
  const bool step = SkipStep(&token);
  CheckComma(GenPoint(token));
  TTokenKind kind;
  token = GenReference(Token(), &kind);
  AddCodeBool(TVMCodeCmd::GetAt, step);
  return token;
}

TToken TCompiler::GenProcPutAtKernel(const TToken& first) {
  CheckComma(GenPoint(first));
  TToken token = Token();
  const bool kanji = IsWord(token, "KANJI");
  if (kanji) {
    CheckLpar(Token());
    CheckRpar(GenNumber(Token()));
    token = Token();
  } else {
    TTokenKind kind;
    token = GenReference(token, &kind);
  }
  int32_t count = 0;
  if (token.kind == ttComma) token = GenPutAtOptions(Token(), kanji, &count);
  AddCodeLong(kanji ? TVMCodeCmd::PutAtProc2 : TVMCodeCmd::PutAtProc1, count);
  return token;
}

// "[word][,colours]"
TToken TCompiler::GenPutAtOptions(const TToken& first, bool kanji, int32_t* count) {
  TToken token = first;
  if (IsMultiExprEndToken(token)) return token;
  int32_t mode = PUT_AT_XOR;
  if (token.kind != ttComma) {
    mode = 0;
    while (mode <= PUT_AT_XOR && !IsWord(token, PUT_AT_WORDS[mode])) ++mode;
    if (mode > PUT_AT_XOR) throw CompileException(KEY_SYNTAX_ERR);
    token = Token();
  }
  AddCodeLong(TVMCodeCmd::BPushInt, mode);
  ++*count;
  if (token.kind != ttComma) return token;
  int32_t colors = 0;
  token = GenMultiExpr(Token(), &colors, nullptr);
  if (kanji && colors > MAX_KANJI_COLORS) throw CompileException(KEY_ILL_FUNC_CALL);
  *count += colors;
  return token;
}

// "[vertical][,[horizontal][,Y or N]]"
TToken TCompiler::GenProcRoll(const TToken&) {
  TToken token = Token();
  if (IsMultiExprEndToken(token)) throw CompileException(KEY_ILL_FUNC_CALL);
  int32_t count = 0;
  for (; count < 2 && !IsMultiExprEndToken(token); ++count) {
    if (token.kind == ttComma) {
      AddAbbrevs(1);
    } else {
      token = GenNumber(token);
    }
    if (IsMultiExprEndToken(token)) continue;
    CheckComma(token);
    token = Token();
  }
  if (!IsMultiExprEndToken(token)) {
    if (!IsWord(token, "Y") && !IsWord(token, "N")) throw CompileException(KEY_ILL_FUNC_CALL);
    AddCodeLong(TVMCodeCmd::BPushInt, token.text[0]);
    ++count;
    token = Token();
    if (!IsMultiExprEndToken(token)) throw CompileException(KEY_ILL_FUNC_CALL);
  }
  AddCodeLong(TVMCodeCmd::Roll, count);
  return token;
}

TToken TCompiler::GenProcWidth(const TToken&) {
  const TToken token = Token();
  if (IsExprEndToken(token)) throw CompileException(KEY_MISSING_OPERAND);
  if (token.kind == ttSharpInt) return GenProcWidth3(token);
  const bool isText = token.kind == ttIdent && DistinctVarType(token.text) == ttStr;
  return isText || token.kind == ttStr ? GenProcWidth2(token) : GenProcWidth1(token);
}

TToken TCompiler::GenProcWidth1(const TToken& first) {
  int32_t count = 0;
  TToken token = GenMultiExpr(first, &count, nullptr);
  if (count > 2) throw CompileException(KEY_ILL_FUNC_CALL);
  AddCodeBool(TVMCodeCmd::WidthProc1, count == 2);
  return token;
}

// The width of a device or a file: there is none here.
TToken TCompiler::GenProcWidth2(const TToken& first) {
  return SkipMultiExpr(first);
}

TToken TCompiler::GenProcWidth3(const TToken& first) {
  return SkipMultiExpr(first);
}

}  // namespace zoka
