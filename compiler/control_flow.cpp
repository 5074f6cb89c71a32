// IF, the jumps, and the ends of a program. Targets are values that the running program looks up,
// so nothing here knows whether a line or label exists.
#include "compiler/compiler.h"
#include "compiler/depth.h"
#include "compiler/error_keys.h"
#include "core/traps.h"

namespace zoka {

TToken TCompiler::GenIf(const TToken&) {
  const TDepth depth(this);
  AddStatementBegin();
  const std::string otherwise = NextInternalLabel();
  AddCodeStr(TVMCodeCmd::BPushString, otherwise);
  TTokenKind kind;
  TToken token = GenExpr(Token(), false, &kind);
  if (token.kind != ttThen && !IsWord(token, "GOTO")) {
    throw CompileException("@Compile_Err_If_Without_Then@");
  }
  AddCode(TVMCodeCmd::BFJmp);
  token = CompileLine(Token(), true);
  if (token.kind != ttElse) {
    RegistInternalLabel(otherwise);
    return token;
  }
  AddStatementBegin();
  const std::string end = NextInternalLabel();
  AddCodeStr(TVMCodeCmd::BPushString, end);
  AddCode(TVMCodeCmd::BJmp);
  RegistInternalLabel(otherwise);
  token = CompileLine(Token(), true);
  RegistInternalLabel(end);
  return token;
}

TToken TCompiler::GenProcGoto(const TToken&) {
  TToken token = GenTarget(CheckNotMultiExprEnd(Token()));
  AddCode(TVMCodeCmd::BJmp);
  return token;
}

TToken TCompiler::GenProcGosub(const TToken&) {
  TToken token = GenTarget(Token());
  AddCode(TVMCodeCmd::BCall);
  return token;
}

TToken TCompiler::GenProcReturn(const TToken&) {
  TToken token = Token();
  const bool toCaller = IsMultiExprEndToken(token);
  if (!toCaller) token = GenTarget(token);
  AddCodeBool(TVMCodeCmd::BRet, toCaller);
  return token;
}

TToken TCompiler::GenProcEnd(const TToken&) {
  AddCode(TVMCodeCmd::BExit);
  return Token();
}

TToken TCompiler::GenProcStop(const TToken&) {
  TToken token = Token();
  if (!IsExprEndToken(token)) return GenProcSetIrState(token, TRAP_STOP);
  AddCode(TVMCodeCmd::Stop);
  return token;
}

TToken TCompiler::GenProcOnGosubGoto(const TToken& first) {
  TTokenKind kind;
  TToken token = GenExpr(first, false, &kind);
  TVMCodeCmd cmd;
  if (IsWord(token, "GOTO") || IsWord(token, "GO TO")) {
    cmd = TVMCodeCmd::OnGoto;
  } else if (IsWord(token, "GOSUB")) {
    cmd = TVMCodeCmd::OnGosub;
  } else {
    throw CompileException(KEY_SYNTAX_ERR);
  }
  int32_t count = 0;
  token = GenTargets(Token(), &count);
  if (count == 0) throw CompileException(KEY_SYNTAX_ERR);
  AddCodeLong(cmd, count);
  return token;
}

TToken TCompiler::GenProcRestore(const TToken&) {
  TToken token = Token();
  const bool hasTarget = !IsMultiExprEndToken(token);
  if (hasTarget) token = GenTarget(token);
  AddCodeBool(TVMCodeCmd::Restore, hasTarget);
  return token;
}

TToken TCompiler::GenProcRun(const TToken&) {
  TToken token = Token();
  if (IsMultiExprEndToken(token)) {
    AddCodeBool(TVMCodeCmd::RunCur, false);
    return token;
  }
  TTokenKind kind = ttVoid;
  token = token.kind == ttMul ? GenLabel(token) : GenExpr(token, false, &kind);
  if (kind != ttStr) {
    AddCodeBool(TVMCodeCmd::RunCur, true);
    return token;
  }
  const bool keepFiles = token.kind == ttComma;
  if (keepFiles) {
    token = Token();
    if (!IsWord(token, "R")) throw CompileException(KEY_SYNTAX_ERR);
    token = Token();
  }
  AddCodeBool(TVMCodeCmd::RunSpecify, keepFiles);
  return token;
}

TToken TCompiler::GenProcChain(const TToken&) {
  TToken token = Token();
  const bool merge = IsWord(token, "MERGE");
  if (merge) token = Token();
  AddCodeBool(TVMCodeCmd::BPushBool, merge);
  token = GenString(token, KEY_MISMATCH_ARG);
  int32_t count = 2;  // the flag and the name
  if (!IsMultiExprEndToken(token)) {
    CheckComma(token);
    token = GenChainOptions(Token(), &count);
  }
  AddCodeLong(TVMCodeCmd::Chain, count);
  return token;
}

// "[start][,[ALL][,DELETE ...]]"
TToken TCompiler::GenChainOptions(const TToken& first, int32_t* count) {
  TToken token = first;
  if (IsMultiExprEndToken(token)) return token;
  ++*count;
  if (token.kind == ttComma) {
    AddAbbrevs(1);
  } else {
    token = GenTarget(token);
    if (token.kind != ttComma) return token;
  }
  token = Token();
  ++*count;
  const bool all = IsWord(token, "ALL");
  AddCodeBool(TVMCodeCmd::BPushBool, all);
  if (all) token = Token();
  if (token.kind == ttComma) token = Token();
  if (IsMultiExprEndToken(token)) return token;
  if (!IsWord(token, "DELETE")) throw CompileException(KEY_ILL_FUNC_CALL);
  return SkipMultiExpr(token);
}

}  // namespace zoka
