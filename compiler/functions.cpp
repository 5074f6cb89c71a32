// Generators of the functions: arguments, the operation, the type of the result. Most are rows of
// functions.def; those with a syntax of their own follow below.
#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {

TToken TCompiler::GenFuncDealToken(const TToken&, int32_t min, int32_t max, TArgSpec spec,
                                   std::vector<TToken>* args) {
  spec.emplace_back(ttRpar, false);
  CheckLpar(Token());
  TToken token = DealToken(Token(), min + 1, max + 1, spec, args);
  if (args->back().kind != ttRpar) throw CompileException("@Compile_Err_No_RPar@");
  args->pop_back();
  return token;
}

TToken TCompiler::GenFuncMath(const TToken&, TVMCodeCmd cmd, TTokenKind* kind) {
  CheckLpar(Token());
  TTokenKind argKind;
  const TToken token = GenExpr(CheckNotRpar(Token()), false, &argKind);
  if (argKind == ttStr) throw CompileException(KEY_MISMATCH_ARG);
  CheckRpar(token);
  AddCode(cmd);
  *kind = argKind == ttDbl ? ttDbl : ttSng;
  return Token();
}

TToken TCompiler::GenFuncSpecifyArgAndRet(const TToken& first, TVMCodeCmd cmd, TTokenKind argKind,
                                          TTokenKind retKind, TTokenKind* kind) {
  std::vector<TToken> args;
  TToken token = GenFuncDealToken(first, 1, 1, {{argKind, false}}, &args);
  AddCode(cmd);
  *kind = retKind;
  return token;
}

TToken TCompiler::GenFuncNoArgSpecifyRet(const TToken&, TVMCodeCmd cmd, TTokenKind retKind,
                                         TTokenKind* kind) {
  TToken token = CheckNotLpar(Token());
  AddCode(cmd);
  *kind = retKind;
  return token;
}

TToken TCompiler::GenFuncInstrFamily(const TToken& first, TVMCodeCmd cmd, TTokenKind* kind) {
  std::vector<TToken> args;
  TToken token = GenFuncDealToken(first, 2, 3, ArgSpec("n?ss"), &args);
  AddCodeBool(cmd, args.size() == 3);
  *kind = ttInt;
  return token;
}

TToken TCompiler::GenFuncMidDlFamily(const TToken& first, TVMCodeCmd cmd, TTokenKind* kind) {
  std::vector<TToken> args;
  TToken token = GenFuncDealToken(first, 2, 3, ArgSpec("snn?"), &args);
  AddCodeBool(cmd, args.size() == 3);
  *kind = ttStr;
  return token;
}

TToken TCompiler::GenFuncTwoArgs(TVMCodeCmd cmd, std::string_view pattern, TTokenKind retKind,
                                 TTokenKind* kind) {
  std::vector<TToken> args;
  TToken token = GenFuncDealToken({}, 2, 2, ArgSpec(pattern), &args);
  AddCode(cmd);
  *kind = retKind;
  return token;
}

TToken TCompiler::GenFuncOptionalArg(TVMCodeCmd cmd, std::string_view pattern, TTokenKind retKind,
                                     TTokenKind* kind) {
  std::vector<TToken> args;
  TToken token = GenFuncDealToken({}, 1, 2, ArgSpec(pattern), &args);
  AddCodeBool(cmd, args.size() == 2);
  *kind = retKind;
  return token;
}

void TCompiler::AddConstant(TTokenKind kind) {
  if (kind == ttStr) {
    AddCodeStr(TVMCodeCmd::BPushString, "");
  } else {
    AddCodeLong(TVMCodeCmd::BPushInt, 0);
  }
}

TToken TCompiler::GenFuncConstant(const TToken& first, TTokenKind retKind, TTokenKind* kind) {
  TToken token = SkipFuncOption(first);
  AddConstant(retKind);
  *kind = retKind;
  return token;
}

#define ZOKA_MATH(name)                                                    \
  TToken TCompiler::GenFunc##name(const TToken& first, TTokenKind* kind) { \
    return GenFuncMath(first, TVMCodeCmd::name, kind);                     \
  }
#define ZOKA_ONE_ARG(name, argument, result)                                         \
  TToken TCompiler::GenFunc##name(const TToken& first, TTokenKind* kind) {           \
    return GenFuncSpecifyArgAndRet(first, TVMCodeCmd::name, argument, result, kind); \
  }
#define ZOKA_NO_ARG(name, result)                                          \
  TToken TCompiler::GenFunc##name(const TToken& first, TTokenKind* kind) { \
    return GenFuncNoArgSpecifyRet(first, TVMCodeCmd::name, result, kind);  \
  }
#define ZOKA_INSTR(name)                                                   \
  TToken TCompiler::GenFunc##name(const TToken& first, TTokenKind* kind) { \
    return GenFuncInstrFamily(first, TVMCodeCmd::name, kind);              \
  }
#define ZOKA_MID(name, operation)                                          \
  TToken TCompiler::GenFunc##name(const TToken& first, TTokenKind* kind) { \
    return GenFuncMidDlFamily(first, TVMCodeCmd::operation, kind);         \
  }
#define ZOKA_TWO_ARGS(name, arguments, result)                        \
  TToken TCompiler::GenFunc##name(const TToken&, TTokenKind* kind) {  \
    return GenFuncTwoArgs(TVMCodeCmd::name, arguments, result, kind); \
  }
#define ZOKA_OPTIONAL_ARG(name, operation, arguments, result)                  \
  TToken TCompiler::GenFunc##name(const TToken&, TTokenKind* kind) {           \
    return GenFuncOptionalArg(TVMCodeCmd::operation, arguments, result, kind); \
  }
#define ZOKA_ZERO(name)                                                    \
  TToken TCompiler::GenFunc##name(const TToken& first, TTokenKind* kind) { \
    return GenFuncConstant(first, ttInt, kind);                            \
  }
#define ZOKA_EMPTY(name)                                                   \
  TToken TCompiler::GenFunc##name(const TToken& first, TTokenKind* kind) { \
    return GenFuncConstant(first, ttStr, kind);                            \
  }
#include "compiler/functions.def"

// There is no trapping of errors, so that the last error is none.
TToken TCompiler::GenFuncErl(const TToken&, TTokenKind* kind) {
  TToken token = Token();
  AddConstant(ttInt);
  *kind = ttInt;
  return token;
}

TToken TCompiler::GenFuncErr(const TToken& first, TTokenKind* kind) {
  return GenFuncErl(first, kind);
}

TToken TCompiler::GenFuncMouse(const TToken&, TTokenKind* kind) {
  ++mDosFeatureCount;
  return GenFuncOptionalArg(TVMCodeCmd::MouseFunc, "nn?", ttInt, kind);
}

TToken TCompiler::GenFuncPoint(const TToken& first, TTokenKind* kind) {
  std::vector<TToken> args;
  TToken token = GenFuncDealToken(first, 1, 2, ArgSpec("nn?"), &args);
  AddCode(args.size() == 1 ? TVMCodeCmd::PointFunc1 : TVMCodeCmd::PointFunc2);
  *kind = ttInt;
  return token;
}

TToken TCompiler::GenFuncRnd(const TToken&, TTokenKind* kind) {
  TToken token = Token();
  if (token.kind == ttLpar) {
    CheckRpar(GenNumber(Token()));
    token = Token();
  } else {
    AddCodeLong(TVMCodeCmd::BPushInt, 1);
  }
  AddCode(TVMCodeCmd::Rnd);
  *kind = ttSng;
  return token;
}

TToken TCompiler::GenFuncSearch(const TToken&, TTokenKind* kind) {
  constexpr int32_t MAX_FURTHER = 3;  // value, start, step
  CheckLpar(Token());
  TTokenKind arrayKind;
  const TToken token = GenReference(Token(), &arrayKind);
  if (arrayKind == ttStr) throw CompileException(KEY_MISMATCH_ARG);
  CheckComma(token);
  int32_t count = 0;
  const TToken end = GenMultiExpr(Token(), &count, nullptr);
  if (count < 1 || count > MAX_FURTHER) throw CompileException(KEY_ILL_FUNC_CALL);
  AddAbbrevs(MAX_FURTHER - count);
  CheckRpar(end);
  AddCode(TVMCodeCmd::Search);
  *kind = ttInt;
  return Token();
}

// The function's name is looked up when the call runs: nothing is compared here.
TToken TCompiler::GenFuncUserFuncCall(const TToken& first, TTokenKind* kind) {
  constexpr int32_t ARGUMENTS_MARK = 0x11;
  AddCodeLong(TVMCodeCmd::BPushSpecial, ARGUMENTS_MARK);
  const std::string name = first.text;
  TToken token = Token();
  if (token.kind == ttLpar) {
    int32_t count = 0;
    CheckRpar(GenMultiExpr(Token(), &count, nullptr));
    token = Token();
  }
  AddCodeStr(TVMCodeCmd::BCallUserFunc, name);
  *kind = DistinctVarType(name);
  return token;
}

}  // namespace zoka
