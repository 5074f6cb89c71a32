// FOR and WHILE. A loop is a block: its NEXT or WEND is the one that ends the block in the text.
#include "common/text/number.h"
#include "compiler/compiler.h"
#include "compiler/depth.h"
#include "compiler/error_keys.h"

namespace zoka {
namespace {

// Marks behind the count of a NEXT that is handed on to the next loop out: what its list ended at.
constexpr char MARK_LINE_END = 'L';
constexpr char MARK_ELSE = 'E';

TToken remaining_next(int32_t loops, TTokenKind end) {
  std::string text = std::to_string(loops);
  if (end == ttEol) text += MARK_LINE_END;
  if (end == ttElse) text += MARK_ELSE;
  return {ttNext, text};
}

// The token that goes on behind the list, once all of its loops are closed.
TToken end_of_next(const std::string& text) {
  if (text.back() == MARK_LINE_END) return {ttEol, "\n"};
  if (text.back() == MARK_ELSE) return {ttElse, "ELSE"};
  return {ttColon, ":"};
}

}  // namespace

/// The variable of a FOR as its assignment names it: the pushed constants (the end mark first) and
/// the variable.
struct TCompiler::TForVar {
  std::vector<int32_t> subscripts;
  TVarInfo* var;
};

TToken TCompiler::GenWhile(const TToken&) {
  const TDepth depth(this);
  AddStatementBegin();
  const std::string top = NextInternalLabel();
  RegistInternalLabel(top);
  const std::string end = NextInternalLabel();
  AddCodeStr(TVMCodeCmd::BPushString, end);
  TTokenKind kind;
  TToken token = GenExpr(Token(), false, &kind);
  AddCode(TVMCodeCmd::BFJmp);
  token = CompileBlock(token);
  if (token.kind != ttWend) throw CompileException("@Compile_Err_While_Without_Wend@");
  AddStatementBegin();
  AddCodeStr(TVMCodeCmd::BPushString, top);
  AddCode(TVMCodeCmd::BJmp);
  RegistInternalLabel(end);
  return Token();
}

TToken TCompiler::GenFor(const TToken&) {
  const TDepth depth(this);
  const std::string loop = NextInternalLabel();
  const std::string test = NextInternalLabel();
  const std::string end = NextInternalLabel();
  TToken token = CompileBlock(GenForHead(test, loop, end));
  if (token.kind != ttNext) throw CompileException("@Compile_Err_For_Without_Next@");
  token = GenNextList(token);
  AddStatementBegin();
  AddCodeStr(TVMCodeCmd::BPushString, loop);
  AddCode(TVMCodeCmd::BJmp);
  RegistInternalLabel(end);
  return token;
}

// Everything in front of the body. Limit and step are code and not values: they run again in each
// round, and the step's stands twice.
TToken TCompiler::GenForHead(const std::string& test, const std::string& loop,
                             const std::string& end) {
  AddStatementBegin();
  const int32_t start = CodeIndex();
  TTokenKind kind;
  TToken token = GenExpr(Token(), true, &kind);
  if (token.kind != ttTo) throw CompileException("@Compile_Err_For_Without_To@");
  const TForVar var = FindForVar(start);
  AddStatementBegin();
  AddCodeStr(TVMCodeCmd::BPushString, test);
  AddCode(TVMCodeCmd::BJmp);
  RegistInternalLabel(loop);
  const int32_t side = CodeIndex();
  token = GenExpr(Token(), false, &kind);
  const std::vector<TVMCode> limit = CutCodes(side);
  if (token.kind == ttStep) {
    token = GenExpr(Token(), false, &kind);
  } else {
    AddCodeLong(TVMCodeCmd::BPushInt, 1);
  }
  const std::vector<TVMCode> step = CutCodes(side);
  AddForIncrement(var, step);
  RegistInternalLabel(test);
  AddCodeStr(TVMCodeCmd::BPushString, end);
  AddForTest(var, limit, step);
  return token;
}

// The addition is always one of doubles; the assignment converts back.
void TCompiler::AddForIncrement(const TForVar& var, const std::vector<TVMCode>& step) {
  AddForSubscripts(var);
  AddCodeVar(TVMCodeCmd::BPushVar, var.var);
  AddForValue(var);
  AppendCodes(step);
  AddCode(TVMCodeCmd::BAddDouble);
  AddCode(TVMCodeCmd::BAssignArray);
}

void TCompiler::AddForTest(const TForVar& var, const std::vector<TVMCode>& limit,
                           const std::vector<TVMCode>& step) {
  AddForValue(var);
  AppendCodes(limit);
  AppendCodes(step);
  AddCode(TVMCodeCmd::BCmpFor);
  AddCode(TVMCodeCmd::BFJmp);
}

// Only constant subscripts are seen: FOR A(I)= takes I for the variable of the loop. This is meant.
TCompiler::TForVar TCompiler::FindForVar(int32_t start) const {
  TForVar found{{}, nullptr};
  auto code = mMidCode->mCodes.begin() + start;
  const auto end = mMidCode->mCodes.end();
  for (; code != end && code->Cmd() == TVMCodeCmd::BPushInt; ++code) {
    found.subscripts.push_back(code->lval());
  }
  for (; code != end; ++code) {
    if (code->Cmd() == TVMCodeCmd::BPushVar || code->Cmd() == TVMCodeCmd::BLoadArray) {
      found.var = code->varInfo();
      return found;
    }
  }
  throw CompileException(KEY_SYNTAX_ERR);
}

void TCompiler::AddForSubscripts(const TForVar& var) {
  for (const int32_t subscript : var.subscripts) AddCodeLong(TVMCodeCmd::BPushInt, subscript);
}

void TCompiler::AddForValue(const TForVar& var) {
  AddForSubscripts(var);
  AddCodeVar(TVMCodeCmd::BLoadArray, var.var);
}

std::vector<TVMCode> TCompiler::CutCodes(int32_t start) {
  std::vector<TVMCode>& codes = mMidCode->mCodes;
  std::vector<TVMCode> cut(codes.begin() + start, codes.end());
  codes.resize(static_cast<size_t>(start));
  return cut;
}

void TCompiler::AppendCodes(const std::vector<TVMCode>& codes) {
  mMidCode->mCodes.insert(mMidCode->mCodes.end(), codes.begin(), codes.end());
}

// NEXT J,I closes two loops: what is left of the list is handed to the next loop out as a NEXT with
// a number for its text. The names are never compared with the loops' variables, and their values
// stay on the machine's stack.
TToken TCompiler::GenNextList(const TToken& next) {
  if (IsWord(next, "NEXT")) {
    int32_t count = 0;
    TToken token = GenMultiExpr(Token(), &count, nullptr);
    return count > 1 ? remaining_next(count - 1, token.kind) : token;
  }
  const int32_t loops = parse_long(next.text);
  const TToken end = end_of_next(next.text);
  return loops > 1 ? remaining_next(loops - 1, end.kind) : end;
}

}  // namespace zoka
