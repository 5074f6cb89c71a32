// Pieces of syntax that several statements share: typed expressions, references, targets, points.
#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {

TToken TCompiler::GenListExpr(const TToken& first, TTokenKind* kind) {
  const int64_t begin = mTokenBegin;
  TToken token = GenExpr(first, false, kind);
  if (mTokenBegin == begin) throw CompileException(KEY_SYNTAX_ERR);
  return token;
}

TToken TCompiler::GenNumber(const TToken& first) {
  TTokenKind kind;
  TToken token = GenExpr(first, false, &kind);
  if (kind == ttStr) throw CompileException(KEY_MISMATCH_ARG);
  return token;
}

TToken TCompiler::GenString(const TToken& first, const char* key) {
  TTokenKind kind;
  TToken token = GenExpr(first, false, &kind);
  if (kind != ttStr) throw CompileException(key);
  return token;
}

TToken TCompiler::GenReference(const TToken& first, TTokenKind* kind) {
  if (first.kind != ttIdent) throw CompileException(KEY_SYNTAX_ERR);
  TToken token = first;
  bool forceType = false;
  *kind = ttVoid;
  return GenVar(&token, nullptr, &forceType, false, true, kind);
}

TToken TCompiler::GenTarget(const TToken& first) {
  if (first.kind == ttMul) return GenLabel(first);
  TTokenKind kind;
  return GenExpr(first, false, &kind);
}

TToken TCompiler::GenTargets(const TToken& first, int32_t* count) {
  TToken token = first;
  *count = 0;
  while (!IsMultiExprEndToken(token)) {
    if (token.kind == ttComma) {
      AddAbbrevs(1);
      token = Token();
    } else {
      TTokenKind kind;
      token = token.kind == ttMul ? GenLabel(token) : GenListExpr(token, &kind);
      if (token.kind == ttComma) token = Token();
    }
    ++*count;
  }
  return token;
}

TToken TCompiler::GenPoint(const TToken& first) {
  CheckLpar(first);
  int32_t count = 0;
  TToken token = GenMultiExpr(Token(), &count, nullptr);
  if (count != 2) throw CompileException(KEY_ILL_FUNC_CALL);
  CheckRpar(token);
  return Token();
}

bool TCompiler::SkipStep(TToken* token) {
  if (token->kind != ttStep) return false;
  *token = Token();
  return true;
}

void TCompiler::AddAbbrevs(int32_t count) {
  for (int32_t i = 0; i < count; ++i) AddCode(TVMCodeCmd::BPushAbbrev);
}

}  // namespace zoka
