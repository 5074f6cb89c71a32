// The driver: program, blocks, lines, labels, and the appending of records. What single statements
// compile to is elsewhere.
#include "compiler/compiler.h"

#include <new>
#include <stdexcept>

#include "app/settings/prefs.h"
#include "app/settings/show_alert.h"
#include "common/text/ascii.h"
#include "common/text/number.h"
#include "compiler/error_keys.h"

namespace zoka {
namespace {

/// A program of fewer records (sentinel, one line begin, exit) has no statement in it.
constexpr size_t MIN_RUNNABLE_CODES = 4;

/// How often a compilation that cannot end looks at its cancel flag, in microseconds.
constexpr bigtime_t CANCEL_POLL_INTERVAL = 20'000;

}  // namespace

TCompiler::TCompiler(TEngineContext& context, TMidCode* code, const std::atomic<bool>* cancel)
    : mMidCode(code), mContext(context), mCancel(cancel) {
  InitVarTypeTables();
}

TCompileResult TCompiler::Compile(const char* text, int32_t* mode) {
  mSource = text;
  mPos = 0;
  mLineText.clear();
  const TCompileResult result = CompileText();
  *mode = CompatiMode();
  return result;
}

TCompileResult TCompiler::CompileText() {
  try {
    CompileProgram();
  } catch (const TException& fault) {
    return Failed(fault);
  } catch (const TCancelled&) {
    return TCompileResult::Cancelled;
  } catch (const std::bad_alloc&) {
    return Failed(CompileException(KEY_ILL_FUNC_CALL));
  } catch (const std::length_error&) {
    return Failed(CompileException(KEY_ILL_FUNC_CALL));
  }
  return mMidCode->mCodes.size() >= MIN_RUNNABLE_CODES ? TCompileResult::Runnable
                                                       : TCompileResult::Empty;
}

TCompileResult TCompiler::Failed(const TException& fault) {
  mFault = fault;
  show_fault_alert(mContext, exception_text(mFault, *mContext.catalogue), nullptr);
  return TCompileResult::Failed;
}

int32_t TCompiler::CompatiMode() const {
  const int32_t preferred = mContext.prefs->CmpM;
  if (preferred != COMPAT_AUTO) return preferred;
  return mDosFeatureCount != 0 ? COMPAT_DOS : COMPAT_DISK;
}

void TCompiler::CompileProgram() {
  AddCode(TVMCodeCmd::Sentinel);
  const TToken end = CompileBlock(ParseLineNum(Token()));
  if (end.kind == ttNext) throw CompileException("@Compile_Err_Next_Without_For@");
  if (end.kind == ttWend) throw CompileException("@Compile_Err_Wend_Without_While@");
  AddCode(TVMCodeCmd::BExit);
}

// An ELSE that no IF has taken arrives where a line number is expected and is refused there.
TToken TCompiler::CompileBlock(const TToken& first) {
  TToken token = first;
  for (;;) {
    do {
      token = CompileLine(token, false);
    } while (token.kind == ttEol);
    if (token.kind == ttNext || token.kind == ttWend || token.kind == ttEof) return token;
    token = ParseLineNum(token);
  }
}

TToken TCompiler::ParseLineNum(const TToken& first) {
  const bool isBlank = first.kind == ttEol || first.kind == ttEof;
  const int32_t line = parse_long(first.text);
  if (!isBlank) {
    // A line feed is no white space here: a line needs more than its number.
    const char behind = mSource[mPos];
    if (line == 0 || !is_space(behind) || behind == '\n') {
      throw CompileException("@Compile_Err_Direct_Statement@");
    }
  }
  mMidCode->InsertLine(line, CodeIndex());
  mMidCode->mLineMarks.push_back({CodeIndex(), mPhysicalLine - (first.kind == ttEol ? 1 : 0)});
  AddCodeLong(TVMCodeCmd::BLineBegin, line);
  if (isBlank) return first;
  mLineText = first.text;
  return Token();
}

TToken TCompiler::CompileLine(const TToken& first, bool afterThenElse) {
  TToken token = first;
  for (;; afterThenElse = false) {
    switch (token.kind) {
      case ttColon:
        token = Token();
        break;
      case ttEol:
        return Token();
      case ttElse:
      case ttNext:
      case ttWend:
      case ttEof:
        return token;
      case ttProc:
      case ttFuncProc:
        token = GenProc(token);
        break;
      case ttIf:
        return GenIf(token);
      case ttFor:
        token = GenFor(token);
        break;
      case ttWhile:
        token = GenWhile(token);
        break;
      case ttMul:
        token = CompileStar(token, afterThenElse);
        break;
      case ttInt:
      case ttSng:
      case ttDbl:
        if (!afterThenElse) throw CompileException(KEY_SYNTAX_ERR);
        [[fallthrough]];
      case ttIdent:
        token = CompileExprStatement(token, afterThenElse);
        break;
      default:
        throw CompileException(KEY_SYNTAX_ERR);
    }
  }
}

// "*NAME" is a jump behind THEN and ELSE, and a definition anywhere else.
TToken TCompiler::CompileStar(const TToken& star, bool afterThenElse) {
  if (!afterThenElse) return ParseLabel(star);
  TToken token = GenLabel(star);
  AddCode(TVMCodeCmd::BJmp);
  return token;
}

// Behind THEN and ELSE any expression that assigns nothing is a line number to jump to.
TToken TCompiler::CompileExprStatement(const TToken& first, bool afterThenElse) {
  AddStatementBegin();
  TTokenKind kind = ttVoid;
  TToken token = GenExpr(first, true, &kind);
  if (afterThenElse && mMidCode->mCodes.back().Cmd() != TVMCodeCmd::BAssignArray) {
    AddCode(TVMCodeCmd::BJmp);
  }
  return token;
}

TToken TCompiler::ParseLabel(const TToken&) {
  const TToken name = Token();
  mMidCode->InsertLabel(name.text, CodeIndex());
  return Token();
}

TToken TCompiler::GenLabel(const TToken&) {
  const TToken name = Token();
  AddCodeStr(TVMCodeCmd::BPushString, name.text);
  return Token();
}

TToken TCompiler::GenProc(const TToken& first) {
  AddStatementBegin();
  const auto number = static_cast<uint32_t>(mMidCode->FindFuncProc(first.text));
  const TProc generator = ProcTable()[number];
  if (generator == nullptr) throw CompileException(KEY_SYNTAX_ERR);
  return (this->*generator)(first);
}

TToken TCompiler::GenFunc(const TToken& first, TTokenKind* kind) {
  const auto number = static_cast<uint32_t>(mMidCode->FindFuncProc(first.text));
  const TFunc generator = FuncTable()[number];
  if (generator == nullptr) throw CompileException(KEY_SYNTAX_ERR);
  return (this->*generator)(first, kind);
}

std::string TCompiler::NextInternalLabel() {
  return "@L" + std::to_string(mContext.labelCounter.fetch_add(1));
}

void TCompiler::RegistInternalLabel(const std::string& name) {
  mMidCode->InsertLabel(name, CodeIndex());
}

void TCompiler::AddCode(TVMCodeCmd cmd) {
  mMidCode->mCodes.emplace_back(cmd);
}

void TCompiler::AddCodeBool(TVMCodeCmd cmd, bool value) {
  mMidCode->mCodes.push_back(TVMCode(cmd).SetBool(value));
}

void TCompiler::AddCodeLong(TVMCodeCmd cmd, int32_t value) {
  mMidCode->mCodes.push_back(TVMCode(cmd).SetLong(value));
}

void TCompiler::AddCodeFloat(TVMCodeCmd cmd, float value) {
  mMidCode->mCodes.push_back(TVMCode(cmd).SetFloat(value));
}

void TCompiler::AddCodeDouble(TVMCodeCmd cmd, double value) {
  mMidCode->mCodes.push_back(TVMCode(cmd).SetDouble(value));
}

void TCompiler::AddCodeStr(TVMCodeCmd cmd, std::string_view text) {
  mMidCode->mCodes.push_back(TVMCode(cmd).SetStr(mMidCode->AddText(text)));
}

void TCompiler::AddCodeVar(TVMCodeCmd cmd, TVarInfo* var) {
  mMidCode->mCodes.push_back(TVMCode(cmd).SetVar(var));
}

void TCompiler::AddStatementBegin() {
  mMidCode->AddStatementBegin(CodeIndex());
}

TVMCodeCmd TCompiler::AddOffsetToCode(TVMCodeCmd base, TTokenKind kind) {
  const uint32_t offset = kind == ttVoid ? 0 : kind - ttInt;
  return static_cast<TVMCodeCmd>(static_cast<uint32_t>(base) + offset);
}

// The machine's own clock may be a simulated one, and this wait is no part of its time.
void TCompiler::WaitForCancel() const {
  const std::unique_ptr<TClock> clock = make_real_clock();
  TWake wake(*clock);
  while (!IsCancelled()) clock->snooze(CANCEL_POLL_INTERVAL, wake);
  throw TCancelled{};
}

}  // namespace zoka
