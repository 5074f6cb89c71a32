// The operands of expressions: parentheses, literals, calls. Where no operand stands, nothing is
// compiled and nothing refused: statements that need one look for it, and what an operator lacks is
// found when the program runs.
#include "common/text/number.h"
#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {
namespace {

constexpr char KEY_MISMATCH_CALC[] = "@Compile_Err_Type_Mismatch_Calc@";

}  // namespace

// Whatever stands at the place of the closing parenthesis is dropped, also the end of the line: the
// number of the next line is then read as an operand. This leniency is meant.
void TCompiler::GenExpr1(TToken* token, bool* lvalue, bool* forceType, bool, TTokenKind* kind) {
  if (token->kind != ttLpar) return;
  TTokenKind innerKind = ttVoid;
  *token = GenExpr(Token(), false, &innerKind);
  *kind = SelectVarType(*kind, innerKind, false);
  if (*kind == ttMismatch) {
    if (!*forceType) throw CompileException(KEY_MISMATCH_CALC);
    *kind = innerKind;
  }
  *lvalue = false;
  *token = Token();
}

void TCompiler::GenExpr2(TToken* token, bool* lvalue, bool* forceType, bool assign,
                         TTokenKind* kind) {
  GenExpr1(token, lvalue, forceType, assign, kind);
  switch (token->kind) {
    case ttProc:
      // ON X GOTO: the selector ends here.
      if (!IsWord(*token, "GOTO") && !IsWord(*token, "GO TO") && !IsWord(*token, "GOSUB")) {
        throw CompileException(KEY_SYNTAX_ERR);
      }
      return;
    case ttFunc:
    case ttFuncProc:
    case ttUserFunc:
    case ttInt:
    case ttSharpInt:
    case ttSng:
    case ttDbl:
    case ttStr:
    case ttIdent:
      GenValue(token, lvalue, forceType, assign, kind);
      if (*kind == ttMismatch) throw CompileException(KEY_MISMATCH_CALC);
      *forceType = false;
      return;
    default:
      return;
  }
}

void TCompiler::GenValue(TToken* token, bool* lvalue, bool* forceType, bool assign,
                         TTokenKind* kind) {
  TTokenKind funcKind = ttVoid;
  switch (token->kind) {
    case ttIdent:
      GenVar(token, lvalue, forceType, assign, false, kind);
      return;
    case ttFunc:
    case ttFuncProc:
      *token = GenFunc(*token, &funcKind);
      break;
    case ttUserFunc:
      *token = GenFuncUserFuncCall(*token, &funcKind);
      break;
    default:
      GenLiteral(token, lvalue, forceType, assign, kind);
      return;
  }
  GenExpr1(token, lvalue, forceType, assign, kind);
  *kind = SelectVarType(*kind, funcKind, *forceType);
  *lvalue = false;
}

// A parenthesis directly behind a literal is compiled before it: 5(2) leaves 2 and then 5.
void TCompiler::GenLiteral(TToken* token, bool* lvalue, bool* forceType, bool assign,
                           TTokenKind* kind) {
  const TToken literal = *token;
  *token = Token();
  GenExpr1(token, lvalue, forceType, assign, kind);
  const TTokenKind literalKind = literal.kind == ttSharpInt ? ttInt : literal.kind;
  *kind = SelectVarType(*kind, literalKind, *forceType);
  AddLiteral(literal);
  *lvalue = false;
}

void TCompiler::AddLiteral(const TToken& literal) {
  switch (literal.kind) {
    case ttSng:
      AddCodeFloat(TVMCodeCmd::BPushFloat, static_cast<float>(parse_double(literal.text)));
      break;
    case ttDbl:
      AddCodeDouble(TVMCodeCmd::BPushDouble, parse_double(literal.text));
      break;
    case ttStr:
      AddCodeStr(TVMCodeCmd::BPushString, literal.text);
      break;
    default:
      AddCodeLong(TVMCodeCmd::BPushInt, parse_long(literal.text));
      break;
  }
}

TToken TCompiler::GenMultiExpr(const TToken& first, int32_t* count, TTokenKind* lastDelim) {
  TToken token = first;
  TTokenKind previous = ttComma;
  TTokenKind trailing = ttNone;
  *count = 0;
  while (!IsMultiExprEndToken(token) && token.kind != ttRpar && token.kind != ttRbracket) {
    if (token.kind == ttComma || token.kind == ttSemiColon) {
      if (previous != ttNone) {
        AddCode(TVMCodeCmd::BPushAbbrev);
        ++*count;
      }
      previous = trailing = token.kind;
      token = Token();
      continue;
    }
    previous = trailing = ttNone;
    TTokenKind kind = ttVoid;
    token = GenListExpr(token, &kind);
    ++*count;
  }
  if (lastDelim != nullptr) *lastDelim = trailing;
  return token;
}

}  // namespace zoka
