// Statements of files, sound and the mouse that are read by hand: OPEN, PLAY, CALL.
#include "compiler/compiler.h"
#include "compiler/error_keys.h"
#include "core/traps.h"

namespace zoka {
namespace {

constexpr int32_t MAX_CHANNELS = 6;
constexpr const char* OPEN_WORDS[] = {"INPUT", "OUTPUT", "APPEND"};  // modes 10, 11, 12
constexpr int32_t OPEN_MODE_FIRST = 10;
constexpr int32_t OPEN_MODE_PLAIN = 13;

}  // namespace

TToken TCompiler::GenProcOpen(const TToken&) {
  int32_t mode = OPEN_MODE_PLAIN;
  TToken token = GenOpenMode(GenString(Token(), KEY_MISMATCH_ARG), &mode);
  if (!IsWord(token, "AS")) throw CompileException(KEY_SYNTAX_ERR);
  token = GenNumber(Token());
  if (!IsMultiExprEndToken(token)) throw CompileException(KEY_SYNTAX_ERR);
  AddCodeLong(TVMCodeCmd::Open, mode);
  return token;
}

TToken TCompiler::GenOpenMode(const TToken& first, int32_t* mode) {
  if (!IsWord(first, "FOR")) return first;
  const TToken token = Token();
  *mode = OPEN_MODE_FIRST;
  for (const char* word : OPEN_WORDS) {
    if (IsWord(token, word)) return Token();
    ++*mode;
  }
  throw CompileException(KEY_SYNTAX_ERR);
}

TToken TCompiler::GenProcPlay(const TToken&) {
  TToken token = Token();
  if (IsWord(token, "ALLOC")) return GenProcPlayAlloc(Token());
  if (IsWord(token, "ON") || IsWord(token, "OFF") || IsWord(token, "STOP")) {
    return GenProcSetIrState(token, TRAP_PLAY);
  }
  if (token.kind == ttSharpInt) {
    token = Token();
    if (token.kind == ttComma || token.kind == ttSemiColon) token = Token();
  }
  int32_t count = 0;
  token = GenMultiExpr(token, &count, nullptr);
  if (count > MAX_CHANNELS) throw CompileException(KEY_ILL_FUNC_CALL);
  AddCodeLong(TVMCodeCmd::Play, count);
  return token;
}

TToken TCompiler::GenProcPlayAlloc(const TToken& first) {
  int32_t count = 0;
  TToken token = GenMultiExpr(first, &count, nullptr);
  if (count > MAX_CHANNELS) throw CompileException(KEY_ILL_FUNC_CALL);
  AddCodeLong(TVMCodeCmd::PlayAlloc, count);
  return token;
}

TToken TCompiler::GenProcCall(const TToken&) {
  const TToken token = Token();
  return IsWord(token, "MOUSE") ? GenProcCallMouse(token) : SkipMultiExpr(token);
}

TToken TCompiler::GenProcCallMouse(const TToken&) {
  CheckLpar(Token());
  int32_t count = 0;
  CheckRpar(GenMultiVar(Token(), &count));
  AddCodeLong(TVMCodeCmd::CallMouse, count);
  return Token();
}

}  // namespace zoka
