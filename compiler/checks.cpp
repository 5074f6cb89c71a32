// The tests of single tokens, and the making of a compile fault.
#include "common/text/number.h"
#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {

TException TCompiler::CompileException(std::string_view key,
                                       std::vector<TException::TArgument> arguments) const {
  TException fault;
  fault.fault = TFault::Compile;
  fault.ID = static_cast<uint32_t>(parse_long(mLineText));
  fault.key = key;
  fault.arguments = std::move(arguments);
  fault.lineText = mLineText;
  fault.beginPos = mTokenBegin;
  fault.endPos = mPos;
  return fault;
}

TToken TCompiler::CheckComma(const TToken& token) {
  if (token.kind != ttComma) throw CompileException("@Compile_Err_No_Comma@");
  return token;
}

TToken TCompiler::CheckEqual(const TToken& token) {
  if (token.kind != ttEqual) throw CompileException("@Compile_Err_No_Equal@");
  return token;
}

TToken TCompiler::CheckLpar(const TToken& token) {
  if (token.kind != ttLpar) throw CompileException("@Compile_Err_No_LPar@");
  return token;
}

TToken TCompiler::CheckMinus(const TToken& token) {
  if (token.kind != ttSub) throw CompileException("@Compile_Err_No_Minus@");
  return token;
}

TToken TCompiler::CheckRpar(const TToken& token) {
  if (token.kind != ttRpar) throw CompileException("@Compile_Err_No_RPar@");
  return token;
}

TToken TCompiler::CheckSemiColon(const TToken& token) {
  if (token.kind != ttSemiColon) throw CompileException("@Compile_Err_No_Semi_Colon@");
  return token;
}

TToken TCompiler::CheckNotLpar(const TToken& token) {
  if (token.kind == ttLpar) throw CompileException(KEY_ILL_FUNC_CALL);
  return token;
}

TToken TCompiler::CheckNotRpar(const TToken& token) {
  if (token.kind == ttRpar) throw CompileException(KEY_ILL_FUNC_CALL);
  return token;
}

TToken TCompiler::CheckNotMultiExprEnd(const TToken& token) {
  if (IsMultiExprEndToken(token)) throw CompileException(KEY_SYNTAX_ERR);
  return token;
}

bool TCompiler::IsWord(const TToken& token, std::string_view word) {
  return token.kind != ttStr && token.text == word;
}

}  // namespace zoka
