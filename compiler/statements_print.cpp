// PRINT, WRITE, PRINT USING, and the INPUT family: what goes to and comes from the text screen and
// the files.
#include "common/text/number.h"
#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {
namespace {

constexpr char QUESTION[] = "? ";

bool starts_item(const TToken& token) {
  switch (token.kind) {
    case ttFunc:
    case ttFuncProc:
    case ttUserFunc:
    case ttIdent:
    case ttInt:
    case ttSng:
    case ttDbl:
    case ttStr:
    case ttLpar:
    case ttAdd:
    case ttSub:
    case ttNot:
      return true;
    default:
      return false;
  }
}

/// The operations of INPUT and LINE INPUT: from the keyboard, with a limit, from a file.
constexpr TVMCodeCmd INPUT_CMDS[2][3] = {
    {TVMCodeCmd::Input, TVMCodeCmd::InputWait, TVMCodeCmd::InputSh},
    {TVMCodeCmd::LineInput, TVMCodeCmd::LineInputWait, TVMCodeCmd::LineInputSh}};
enum TInputForm : int32_t { INPUT_KEYBOARD, INPUT_WAIT, INPUT_FILE };

}  // namespace

TToken TCompiler::GenProcPrint(const TToken& first) {
  return GenProcPrintWrite(first, TVMCodeCmd::Print);
}

TToken TCompiler::GenProcWrite(const TToken& first) {
  return GenProcPrintWrite(first, TVMCodeCmd::Write);
}

TToken TCompiler::GenProcPrintWrite(const TToken&, TVMCodeCmd cmd) {
  const bool print = cmd == TVMCodeCmd::Print;
  TToken token = Token();
  if (IsWord(token, "USING")) {
    if (!print) throw CompileException(KEY_SYNTAX_ERR);
    return GenProcPrintUsing(token);
  }
  const bool toFile = token.kind == ttSharpInt;
  const int32_t number = toFile ? parse_long(token.text) : 0;
  const int32_t* file = toFile ? &number : nullptr;
  if (toFile) {
    cmd = print ? TVMCodeCmd::PrintSh : TVMCodeCmd::WriteSh;
    CheckComma(Token());
    token = Token();
  }
  bool lineEnd = true;
  while (!IsMultiExprEndToken(token)) {
    lineEnd = token.kind != ttComma && token.kind != ttSemiColon;
    token = GenPrintItem(token, cmd, file);
  }
  if (lineEnd) {
    AddFileNumber(file);
    AddCodeBool(cmd, true);
  }
  if (!toFile) AddCode(TVMCodeCmd::BUpdateScreen);
  return token;
}

// One item or separator. Only a comma has an operation of its own.
TToken TCompiler::GenPrintItem(const TToken& first, TVMCodeCmd cmd, const int32_t* file) {
  if (first.kind == ttSemiColon) return Token();
  if (first.kind == ttComma) {
    AddFileNumber(file);
    AddCodeLong(TVMCodeCmd::BPushSpecial, ttComma);
    AddCodeBool(cmd, false);
    return Token();
  }
  if (!starts_item(first)) throw CompileException(KEY_SYNTAX_ERR);
  AddFileNumber(file);
  TTokenKind kind;
  TToken token = GenListExpr(first, &kind);
  AddCodeBool(cmd, false);
  return token;
}

void TCompiler::AddFileNumber(const int32_t* file) {
  if (file != nullptr) AddCodeLong(TVMCodeCmd::BPushInt, *file);
}

TToken TCompiler::GenProcPrintUsing(const TToken&) {
  CheckSemiColon(GenString(Token(), KEY_MISMATCH_ARG));
  int32_t count = 0;
  TTokenKind last = ttNone;
  TToken token = GenMultiExpr(Token(), &count, &last);
  if (count == 0) throw CompileException(KEY_ILL_FUNC_CALL);
  AddCodeBool(TVMCodeCmd::BPushBool, last != ttSemiColon);
  AddCodeLong(TVMCodeCmd::PrintUsing, count);
  return token;
}

TToken TCompiler::GenProcInput(const TToken& first) {
  return GenProcInputFamily(first, false);
}

TToken TCompiler::GenProcLineInput(const TToken& first) {
  return GenProcInputFamily(first, true);
}

TToken TCompiler::GenProcInputFamily(const TToken&, bool isLine) {
  TInputForm form = INPUT_KEYBOARD;
  TToken token = Token();
  if (IsWord(token, "WAIT")) {
    form = INPUT_WAIT;
    CheckComma(GenNumber(Token()));
    token = Token();
  }
  if (token.kind == ttSharpInt) {
    if (form == INPUT_WAIT) throw CompileException(KEY_SYNTAX_ERR);
    form = INPUT_FILE;
    AddCodeLong(TVMCodeCmd::BPushInt, parse_long(token.text));
    CheckComma(Token());
    token = Token();
  }
  token = GenInputPrompt(token, !isLine && form != INPUT_FILE);
  if (form != INPUT_FILE) AddCode(TVMCodeCmd::BUpdateScreen);
  int32_t count = 0;
  token = GenMultiVar(token, &count);
  if (count == 0) throw CompileException(KEY_MISSING_OPERAND);
  if (isLine && count > 1) throw CompileException(KEY_TOO_MANY_OPERAND);
  AddCodeLong(INPUT_CMDS[isLine ? 1 : 0][form], count);
  return token;
}

// A prompt and its question mark, which the forms without a question never print.
TToken TCompiler::GenInputPrompt(const TToken& first, bool question) {
  TToken token = first;
  bool mark = token.kind == ttIdent;
  if (token.kind == ttStr) {
    TTokenKind kind;
    token = GenExpr(token, false, &kind);
    AddCodeBool(TVMCodeCmd::Print, false);
    mark = token.kind == ttSemiColon;
    if (!mark && token.kind != ttComma) throw CompileException(KEY_SYNTAX_ERR);
    token = Token();
  }
  if (mark && question) {
    AddCodeStr(TVMCodeCmd::BPushString, QUESTION);
    AddCodeBool(TVMCodeCmd::Print, false);
  }
  return token;
}

}  // namespace zoka
