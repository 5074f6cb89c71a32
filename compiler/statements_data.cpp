// Statements of variables and data: LET, DIM, SWAP, READ, DATA, the DEF family, OPTION BASE.
#include "common/text/ascii.h"
#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {

TToken TCompiler::GenProcLet(const TToken&) {
  TTokenKind kind;
  return GenExpr(CheckNotMultiExprEnd(Token()), true, &kind);
}

TToken TCompiler::GenVariables(TVMCodeCmd cmd) {
  int32_t count = 0;
  TToken token = GenMultiVar(Token(), &count);
  if (count == 0) throw CompileException(KEY_SYNTAX_ERR);
  AddCodeLong(cmd, count);
  return token;
}

TToken TCompiler::GenProcDim(const TToken&) {
  return GenVariables(TVMCodeCmd::Dim);
}

TToken TCompiler::GenProcRead(const TToken&) {
  return GenVariables(TVMCodeCmd::Read);
}

TToken TCompiler::GenProcKinput(const TToken&) {
  return GenVariables(TVMCodeCmd::Kinput);
}

TToken TCompiler::GenProcSwap(const TToken&) {
  int32_t count = 0;
  TToken token = GenMultiVar(CheckNotMultiExprEnd(Token()), &count);
  if (count != 2) throw CompileException(KEY_SYNTAX_ERR);
  AddCodeLong(TVMCodeCmd::Swap, count);
  return token;
}

TToken TCompiler::GenProcData(const TToken& first) {
  mDataMode = true;
  TToken token = GenProcDataComma(first);
  while (token.kind == ttComma) token = GenProcDataComma(token);
  mDataMode = false;
  return token;
}

// One item, behind DATA or a comma: a string literal, or the text as it stands. Only a colon or the
// end of the line ends the statement: THEN, ELSE and AS are text here. Tokens are read only to find
// where the item ends.
TToken TCompiler::GenProcDataComma(const TToken&) {
  SkipSpace();
  const int64_t begin = mPos;
  TToken token = Token();
  if (token.kind == ttStr) {
    AddCodeStr(TVMCodeCmd::Data, token.text);
    return Token();
  }
  const auto ends = [](TTokenKind kind) {
    return kind == ttComma || kind == ttColon || kind == ttEol || kind == ttEof;
  };
  while (!ends(token.kind)) token = Token();
  std::string_view item(mSource + begin, static_cast<size_t>(mTokenBegin - begin));
  while (!item.empty() && is_space(item.back())) item.remove_suffix(1);
  AddCodeStr(TVMCodeCmd::Data, item);
  return token;
}

TToken TCompiler::GenProcDef(const TToken&) {
  const TToken token = Token();
  if (token.kind == ttUserFunc) return GenProcUserFuncDef(token);
  if (IsWord(token, "SEG")) return GenProcDefSeg(token);
  if (IsWord(token, "USR")) return GenProcDefUsr(token);
  throw CompileException(KEY_SYNTAX_ERR);
}

TToken TCompiler::GenProcDefSeg(const TToken&) {
  CheckEqual(Token());
  TToken token = GenNumber(Token());
  AddCode(TVMCodeCmd::DefSeg);
  return token;
}

TToken TCompiler::GenProcDefUsr(const TToken&) {
  return SkipMultiExpr(Token());
}

// The body stands in place and is jumped over.
TToken TCompiler::GenProcUserFuncDef(const TToken& first) {
  const TTokenKind type = DistinctVarType(first.text);
  mUserFunc = mMidCode->InsertUserFunc(first.text);
  const std::string skip = NextInternalLabel();
  AddCodeStr(TVMCodeCmd::BPushString, skip);
  AddCode(TVMCodeCmd::BJmp);
  mUserFunc->label = NextInternalLabel();
  RegistInternalLabel(mUserFunc->label);
  TToken token = Token();
  if (token.kind == ttLpar) token = GenUserFuncParams(token);
  CheckEqual(token);
  token = GenUserFuncBody(Token(), type);
  RegistInternalLabel(skip);
  return token;
}

TToken TCompiler::GenUserFuncParams(const TToken&) {
  TToken token = Token();
  while (token.kind != ttRpar) {
    if (token.kind != ttIdent) throw CompileException(KEY_SYNTAX_ERR);
    const TVarInfo* var = FindVarInfo(token.text);
    mUserFunc->params.push_back(var->name);
    mUserFunc->paramKinds.push_back(var->kind);
    token = Token();
    if (token.kind == ttRpar) break;
    CheckComma(token);
    token = Token();
    if (token.kind == ttRpar) throw CompileException(KEY_SYNTAX_ERR);
  }
  return Token();
}

TToken TCompiler::GenUserFuncBody(const TToken& first, TTokenKind type) {
  TTokenKind kind;
  mInUserFuncDef = true;
  TToken token = GenExpr(first, false, &kind);
  mInUserFuncDef = false;
  if (SelectVarType(type, kind, false) == ttMismatch) throw CompileException(KEY_MISMATCH_ASSIGN);
  if (type == ttInt) AddCode(TVMCodeCmd::Cint);
  if (type == ttSng) AddCode(TVMCodeCmd::Csng);
  if (type == ttDbl) AddCode(TVMCodeCmd::Cdbl);
  AddCode(TVMCodeCmd::BRetFromUserFunc);
  return token;
}

TToken TCompiler::GenProcOption(const TToken&) {
  const TToken token = Token();
  if (!IsWord(token, "BASE")) throw CompileException(KEY_SYNTAX_ERR);
  return GenProcOptionBase(token);
}

TToken TCompiler::GenProcOptionBase(const TToken&) {
  TToken token = GenNumber(Token());
  AddCode(TVMCodeCmd::OptionBase);
  return token;
}

TToken TCompiler::GenProcDefInt(const TToken&) {
  return SetDefVarType(ttInt);
}

TToken TCompiler::GenProcDefSng(const TToken&) {
  return SetDefVarType(ttSng);
}

TToken TCompiler::GenProcDefDbl(const TToken&) {
  return SetDefVarType(ttDbl);
}

TToken TCompiler::GenProcDefStr(const TToken&) {
  return SetDefVarType(ttStr);
}

TToken TCompiler::GenProcMidDl(const TToken&) {
  CheckLpar(Token());
  TTokenKind kind;
  TToken token = GenReference(Token(), &kind);
  if (kind != ttStr) throw CompileException(KEY_MISMATCH_ARG);
  CheckComma(token);
  int32_t count = 0;
  token = GenMultiExpr(Token(), &count, nullptr);
  if (count < 1 || count > 2) throw CompileException(KEY_ILL_FUNC_CALL);
  CheckRpar(token);
  CheckEqual(Token());
  token = GenString(Token(), KEY_MISMATCH_ASSIGN);
  AddCodeBool(TVMCodeCmd::MidDlProc, count == 2);
  return token;
}

}  // namespace zoka
