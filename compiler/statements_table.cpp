// Statements whose whole syntax is a row: an argument list read by DealToken, and one operation.
#include <algorithm>

#include "common/immortal.h"
#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {
namespace {

/// What the operation's own operand says of the arguments.
enum class TDealOperand : uint8_t { None, Count, Given };

constexpr size_t MAX_CLOSE = 500;

}  // namespace

struct TCompiler::TDealRow {
  TVMCodeCmd cmd;
  const char* pattern;
  int32_t min;
  int32_t max;
  TDealOperand operand;
};

TToken TCompiler::GenProcDealRow(const TToken& keyword, const TDealRow& row) {
  std::vector<TToken> args;
  TToken token = GenProcDealToken(keyword, row.min, row.max, ArgSpec(row.pattern), &args);
  if (row.operand == TDealOperand::None) AddCode(row.cmd);
  if (row.operand == TDealOperand::Given) AddCodeBool(row.cmd, !args.empty());
  if (row.operand == TDealOperand::Count) {
    AddCodeLong(row.cmd, static_cast<int32_t>(args.size()));
  }
  return token;
}

#define ZOKA_DEAL_ROW(name, pattern, min, max, operand)                                         \
  TToken TCompiler::GenProc##name(const TToken& first) {                                        \
    return GenProcDealRow(first, {TVMCodeCmd::name, pattern, min, max, TDealOperand::operand}); \
  }
ZOKA_DEAL_ROW(Beep, "n?", 0, 1, Given)
ZOKA_DEAL_ROW(Cls, "n?", 0, 1, Count)
ZOKA_DEAL_ROW(Files, "n?", 0, 1, Given)
ZOKA_DEAL_ROW(Locate, "n?n?n?", 1, 3, Count)
ZOKA_DEAL_ROW(Randomize, "n?", 0, 1, Given)
ZOKA_DEAL_ROW(Screen, "n?n?n?n?", 1, 4, Count)
ZOKA_DEAL_ROW(XSleep, "n", 1, 1, None)
#undef ZOKA_DEAL_ROW

TToken TCompiler::GenProcClose(const TToken& first) {
  static const auto& SPEC = immortal<TArgSpec>(MAX_CLOSE, TArgSpec::value_type{ttInt, true});
  std::vector<TToken> args;
  TToken token = GenProcDealToken(first, 0, MAX_CLOSE, SPEC, &args);
  AddCodeLong(TVMCodeCmd::Close, static_cast<int32_t>(args.size()));
  return token;
}

TToken TCompiler::GenProcColorAt(const TToken& first) {
  constexpr int32_t AREA = 9;  // elements without the colour
  std::vector<TToken> args;
  TToken token = GenProcDealToken(first, AREA, AREA + 1, ArgSpec("(nn)-(nn)n?"), &args);
  AddCodeBool(TVMCodeCmd::ColorAt, args.size() > AREA);
  return token;
}

TToken TCompiler::GenProcConsole(const TToken& first) {
  constexpr int32_t MAX = 5;
  std::vector<TToken> args;
  TToken token = GenProcDealToken(first, 1, MAX, ArgSpec("n?n?n?n?n?"), &args);
  const auto written = [](const TToken& arg) { return arg.kind != ttOmitted; };
  // Only the one dialect has a fifth argument.
  if (std::count_if(args.begin(), args.end(), written) == MAX) ++mDosFeatureCount;
  AddCodeLong(TVMCodeCmd::Console, static_cast<int32_t>(args.size()));
  return token;
}

TToken TCompiler::GenProcMouse(const TToken&) {
  constexpr int32_t MAX = 5;
  ++mDosFeatureCount;
  TToken token = Token();
  if (token.kind == ttEqual) return SkipMultiExpr(token);
  const bool isSwitch = IsWord(token, "ON") || IsWord(token, "OFF") || IsWord(token, "STOP");
  if (isSwitch || token.kind == ttLpar) return GenProcSetIrStateMouse(token);
  std::vector<TToken> args;
  int32_t used = 0;
  token = DealTokenCounted(token, 0, MAX, ArgSpec("n?n?n?a?a?"), &args, &used);
  // A string that was passed on to a place for any value stood in a number's.
  if (used != static_cast<int32_t>(args.size())) throw CompileException(KEY_MISMATCH_ARG);
  if (!IsMultiExprEndToken(token)) throw CompileException(KEY_SYNTAX_ERR);
  AddCodeLong(TVMCodeCmd::MouseProc, used);
  return token;
}

// Statements of one point: a leading STEP makes the operand true.
TToken TCompiler::GenProcDealPoint(const TToken& keyword, std::string_view pattern, int32_t min,
                                   int32_t max, std::vector<TToken>* args, bool* step) {
  TToken token = GenProcDealToken(keyword, min, max, ArgSpec(pattern), args);
  *step = args->front().kind == ttStep;
  return token;
}

TToken TCompiler::GenProcPaint(const TToken& first) {
  constexpr int32_t MAX = 7;
  std::vector<TToken> args;
  bool step = false;
  TToken token = GenProcDealPoint(first, "S?(nn)a?n?", 5, MAX, &args, &step);
  AddAbbrevs(MAX - static_cast<int32_t>(args.size()));
  AddCodeBool(TVMCodeCmd::Paint, step);
  return token;
}

TToken TCompiler::GenProcPoint(const TToken& first) {
  std::vector<TToken> args;
  bool step = false;
  TToken token = GenProcDealPoint(first, "S?(nn)", 5, 5, &args, &step);
  AddCodeBool(TVMCodeCmd::PointProc, step);
  return token;
}

TToken TCompiler::GenProcPreset(const TToken& first) {
  constexpr int32_t MAX = 6;
  std::vector<TToken> args;
  bool step = false;
  TToken token = GenProcDealPoint(first, "S?(nn)n", 5, MAX, &args, &step);
  // With a colour it is the same as PSET.
  AddCodeBool(args.size() == MAX ? TVMCodeCmd::PSet : TVMCodeCmd::PReset, step);
  return token;
}

// At least four elements: the ")" may be missing. This is meant.
TToken TCompiler::GenProcPset(const TToken& first) {
  constexpr size_t MAX = 6;
  std::vector<TToken> args;
  bool step = false;
  TToken token = GenProcDealPoint(first, "S?(nn)n?", 4, MAX, &args, &step);
  if (args.size() < MAX) AddAbbrevs(1);
  AddCodeBool(TVMCodeCmd::PSet, step);
  return token;
}

}  // namespace zoka
