// TCompiler: turns the text of one program list into the code of a TMidCode, in one pass and by
// recursive descent. It reads tokens on demand, keeps no tree, and leaves every jump target to be
// looked up when the program runs.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/context.h"
#include "common/exception.h"
#include "core/mid_code.h"
#include "core/token.h"

namespace zoka {

/// Deepest nesting of expressions and blocks; beyond it the list is refused with a syntax error
/// rather than the compiler's stack overrun.
constexpr int32_t MAX_COMPILER_DEPTH = 2000;

/// How a compilation ended. An empty list is no failure, but there is nothing to run.
enum class TCompileResult : uint8_t { Runnable, Empty, Failed, Cancelled };

/// Compiles once. Runs on the caller's thread, whose stack has to be of ENGINE_STACK_BYTES for
/// lists that nest deeply; nothing else touches the image meanwhile, but any thread may set the
/// cancel flag.
class TCompiler {
 public:
  /// `code` is empty (TMidCode::Clear) and not owned. `cancel` may be null; it is looked at with
  /// each token, and ends also the reading of an octal number that never ends.
  TCompiler(TEngineContext& context, TMidCode* code, const std::atomic<bool>* cancel = nullptr);

  /// Compiles `text` (NUL-terminated, lines ended by LF; not owned, kept only for the call). Writes
  /// the compatibility mode (2 DISK-BASIC, 3 DOS-BASIC) to `*mode` whether it succeeds or not.
  /// Never lets an exception out: a fault is shown as an alert through the context's alert host and
  /// kept in Fault().
  TCompileResult Compile(const char* text, int32_t* mode);

  /// The fault of a failed compilation.
  const TException& Fault() const { return mFault; }

 private:
  using TProc = TToken (TCompiler::*)(const TToken&);
  using TFunc = TToken (TCompiler::*)(const TToken&, TTokenKind*);
  using TOperandGen = void (TCompiler::*)(TToken*, bool*, bool*, bool, TTokenKind*);
  /// An element of an argument list, and whether it may be left out.
  using TArgSpec = std::vector<std::pair<TTokenKind, bool>>;

  /// Thrown where the cancel flag is seen.
  struct TCancelled {};
  /// Operators of one level of precedence, and the level that compiles their operands.
  struct TLevel;

  // --- driver (compiler.cpp)
  TCompileResult CompileText();
  void CompileProgram();
  TCompileResult Failed(const TException& fault);
  int32_t CompatiMode() const;
  bool IsCancelled() const {
    return mCancel != nullptr && mCancel->load(std::memory_order_relaxed);
  }
  void CheckCancel() const {
    if (IsCancelled()) throw TCancelled{};
  }
  [[noreturn]] void WaitForCancel() const;
  TToken CompileBlock(const TToken& first);
  TToken CompileLine(const TToken& first, bool afterThenElse);
  TToken CompileStar(const TToken& star, bool afterThenElse);
  TToken CompileExprStatement(const TToken& first, bool afterThenElse);
  TToken ParseLineNum(const TToken& first);
  TToken ParseLabel(const TToken& star);
  TToken GenLabel(const TToken& star);
  TToken GenProc(const TToken& first);
  TToken GenFunc(const TToken& first, TTokenKind* kind);
  std::string NextInternalLabel();
  void RegistInternalLabel(const std::string& name);
  int32_t CodeIndex() const { return static_cast<int32_t>(mMidCode->mCodes.size()); }
  void AddCode(TVMCodeCmd cmd);
  void AddCodeBool(TVMCodeCmd cmd, bool value);
  void AddCodeLong(TVMCodeCmd cmd, int32_t value);
  void AddCodeFloat(TVMCodeCmd cmd, float value);
  void AddCodeDouble(TVMCodeCmd cmd, double value);
  void AddCodeStr(TVMCodeCmd cmd, std::string_view text);
  void AddCodeVar(TVMCodeCmd cmd, TVarInfo* var);
  void AddStatementBegin();
  static TVMCodeCmd AddOffsetToCode(TVMCodeCmd base, TTokenKind kind);

  // --- checks: each raises its error unless the token is what it expects (checks.cpp)
  TToken CheckComma(const TToken& token);
  TToken CheckEqual(const TToken& token);
  TToken CheckLpar(const TToken& token);
  TToken CheckMinus(const TToken& token);
  TToken CheckRpar(const TToken& token);
  TToken CheckSemiColon(const TToken& token);
  TToken CheckNotLpar(const TToken& token);
  TToken CheckNotRpar(const TToken& token);
  TToken CheckNotMultiExprEnd(const TToken& token);
  /// A word test: the token's text is `word`. A string literal never matches.
  static bool IsWord(const TToken& token, std::string_view word);
  /// The exception of a compile fault, to be thrown: `throw CompileException("@...@");`
  TException CompileException(std::string_view key,
                              std::vector<TException::TArgument> arguments = {}) const;
  /// Raises a syntax error beyond MAX_COMPILER_DEPTH; lives as long as the nested construct.
  class TDepth;

  // --- tokeniser (tokenizer.cpp)
  TToken Token();
  TToken TokenIdent();
  TToken TokenNum();
  TToken TokenString();
  TToken TokenHexOct();
  TToken TokenSharpInt();
  TToken TokenMisc();
  TToken TokenComment();
  int64_t TokenIdentKernel(std::string* buffer, int64_t start);
  int32_t ReadHex();
  int32_t ReadOctal();
  void SkipSpace();
  TToken SkipComment();
  static bool IsMultiExprEndToken(const TToken& token);
  static bool IsExprEndToken(const TToken& token);
  TToken SkipMultiExpr(const TToken& first);
  TToken SkipFuncOption(const TToken& first);

  // --- expressions (expression.cpp, operand.cpp, variables.cpp)
  TToken GenExpr(const TToken& first, bool assign, TTokenKind* kind);
  TToken GenMultiExpr(const TToken& first, int32_t* count, TTokenKind* lastDelim);
  TToken GenMultiVar(const TToken& first, int32_t* count);
  TToken GenVar(TToken* token, bool* lvalue, bool* forceType, bool assign, bool asReference,
                TTokenKind* kind);
  TVarInfo* FindVarInfo(const std::string& name);
  TTokenKind DistinctVarType(std::string_view name) const;
  TToken GenSubscripts(const TToken& first);
  TToken SetDefVarType(TTokenKind type);
  char ReadDefVarLetter();
  void InitVarTypeTables();
  TTokenKind SelectVarType(TTokenKind a, TTokenKind b, bool force) const;
  void GenExpr1(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr2(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr2b(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr3(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr4(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr5(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr6(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr7(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr8(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr9(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr10(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr11(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr12(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr13(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr14(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExpr15(TToken* token, bool* lvalue, bool assign, TTokenKind* kind);
  void GenExpr16(TToken* token, bool* lvalue, bool assign, TTokenKind* kind);
  void GenLevel(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind,
                const TLevel& level);
  void GenLiteral(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void AddLiteral(const TToken& literal);
  void GenValue(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind);
  void GenExprNot(TToken* token, bool* lvalue, bool* forceType, bool assign, TTokenKind* kind,
                  TOperandGen next, TOperandGen recurse);

  // --- control flow (control_flow.cpp, loops.cpp, traps.cpp)
  TToken GenIf(const TToken& first);
  TToken GenWhile(const TToken& first);
  TToken GenFor(const TToken& first);
  TToken GenProcOnGosubGoto(const TToken& first);
  TToken GenProcOnIrGeneral(const TToken& first, int32_t number);
  TToken GenProcSetIrState(const TToken& first, int32_t number);
  TToken GenProcSetIrStateKey(const TToken& first);
  TToken GenProcSetIrStateMouse(const TToken& first);

  // --- argument reader (deal_token.cpp)
  bool CheckArg(const TArgSpec& spec, int32_t* index, TTokenKind kind) const;
  TToken DealToken(const TToken& first, int32_t min, int32_t max, const TArgSpec& spec,
                   std::vector<TToken>* args);
  TToken GenProcDealToken(const TToken& keyword, int32_t min, int32_t max, const TArgSpec& spec,
                          std::vector<TToken>* args);

  // The members' includes have an order of their own.
  // clang-format off
  // --- statements: one generator a keyword row (statements_*.cpp)
  TToken GenProcMissing(const TToken& first);
#define ZOKA_STATEMENT_GENERATOR(generator) TToken GenProc##generator(const TToken& first);
#include "compiler/generators.def"
#include "compiler/statement_helpers.h"  // private helpers of single statements

  // --- functions: one generator a keyword row (functions.cpp)
#define ZOKA_FUNCTION_GENERATOR(generator) \
  TToken GenFunc##generator(const TToken& first, TTokenKind* kind);
#include "compiler/generators.def"
#include "compiler/function_helpers.h"  // those that hold the work
  // clang-format on

  static const TProc* ProcTable();
  static const TFunc* FuncTable();

  bool mDataMode = false;
  bool mInUserFuncDef = false;
  const char* mSource = nullptr;
  int32_t mDosFeatureCount = 0;
  int64_t mPos = 0;
  int64_t mTokenBegin = 0;  // where the last token began, for the fault's byte range
  int32_t mPhysicalLine = 0;
  std::string mLineText;
  TMidCode* mMidCode;
  TTokenKind mDefVarType[256];
  TTokenKind mSelVarType[12][12];
  TTokenKind mSufVarType[256];
  TUserFuncInfo* mUserFunc = nullptr;
  int32_t mDepth = 0;
  TEngineContext& mContext;
  const std::atomic<bool>* mCancel;
  TException mFault;
};

}  // namespace zoka
