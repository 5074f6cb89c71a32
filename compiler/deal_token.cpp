// The table-driven reader of argument lists. Statements and functions whose syntax a list of
// elements can express are read here; the others read theirs by hand.
#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {

/// A list being read.
struct TCompiler::TDeal {
  const TArgSpec& spec;
  std::vector<TToken>* args;
  TToken token;
  int32_t index = 0;
  int32_t depth = 0;
  bool afterSeparator = true;
};

TCompiler::TArgSpec TCompiler::ArgSpec(std::string_view pattern) {
  static constexpr std::pair<char, TTokenKind> LETTERS[] = {
      {'n', ttInt},  {'s', ttStr},  {'a', ttAnyValue}, {'S', ttStep},
      {'(', ttLpar}, {')', ttRpar}, {'-', ttSub},
  };
  TArgSpec spec;
  for (const char c : pattern) {
    if (c == '?') spec.back().second = true;
    for (const auto& [letter, kind] : LETTERS) {
      if (c == letter) spec.emplace_back(kind, false);
    }
  }
  return spec;
}

bool TCompiler::CheckArg(const TArgSpec& spec, int32_t* index, TTokenKind kind) const {
  const auto isValue = [](TTokenKind k) { return k >= ttInt && k <= ttStr; };
  const auto fits = [&](TTokenKind element) {
    if (isValue(element) && isValue(kind)) return SelectVarType(element, kind, false) != ttMismatch;
    return element == kind || (element == ttAnyValue && isValue(kind));
  };
  for (; *index < static_cast<int32_t>(spec.size()); ++*index) {
    if (fits(spec[*index].first)) return true;
    if (!spec[*index].second) return false;
  }
  return false;
}

TToken TCompiler::DealToken(const TToken& first, int32_t min, int32_t max, const TArgSpec& spec,
                            std::vector<TToken>* args) {
  int32_t used = 0;
  return DealTokenCounted(first, min, max, spec, args, &used);
}

TToken TCompiler::DealTokenCounted(const TToken& first, int32_t min, int32_t max,
                                   const TArgSpec& spec, std::vector<TToken>* args, int32_t* used) {
  TDeal deal{spec, args, first};
  // The ")" that ends a function's list takes the depth below zero.
  while (deal.depth >= 0 && !IsMultiExprEndToken(deal.token)) DealStep(&deal);
  if (deal.index < min) throw CompileException(KEY_MISSING_OPERAND);
  if (deal.index > max) throw CompileException(KEY_TOO_MANY_OPERAND);
  *used = deal.index;
  return deal.token;
}

void TCompiler::DealStep(TDeal* deal) {
  if (deal->index >= static_cast<int32_t>(deal->spec.size())) {
    throw CompileException(KEY_TOO_MANY_OPERAND);
  }
  const auto [element, optional] = deal->spec[deal->index];
  const TTokenKind kind = deal->token.kind;
  if (optional && element == ttStep && kind != ttStep) {
    deal->args->push_back({ttOmitted, ""});
    ++deal->index;
  } else if (kind == ttComma || kind == ttSemiColon) {
    DealSeparator(deal);
  } else if (kind == ttRpar || kind == ttStep) {
    if (!CheckArg(deal->spec, &deal->index, kind)) throw CompileException(KEY_SYNTAX_ERR);
    DealWord(deal, kind);
  } else if (element == kind && (kind == ttLpar || kind == ttSub)) {
    DealWord(deal, kind);
  } else {
    DealExpr(deal);
  }
}

void TCompiler::DealSeparator(TDeal* deal) {
  if (deal->afterSeparator) {
    if (!deal->spec[deal->index].second) throw CompileException(KEY_MISSING_OPERAND);
    deal->args->push_back({ttOmitted, ""});
    AddAbbrevs(1);
    ++deal->index;
  }
  deal->token = Token();
  deal->afterSeparator = true;
}

void TCompiler::DealExpr(TDeal* deal) {
  deal->args->push_back(deal->token);
  TTokenKind kind;
  deal->token = GenListExpr(deal->token, &kind);
  if (!CheckArg(deal->spec, &deal->index, kind)) throw CompileException(KEY_MISMATCH_ARG);
  ++deal->index;
  deal->afterSeparator = false;
}

void TCompiler::DealWord(TDeal* deal, TTokenKind kind) {
  if (kind == ttLpar) ++deal->depth;
  if (kind == ttRpar) --deal->depth;
  deal->afterSeparator = false;
  ++deal->index;
  deal->args->push_back(deal->token);
  deal->token = Token();
}

TToken TCompiler::GenProcDealToken(const TToken&, int32_t min, int32_t max, const TArgSpec& spec,
                                   std::vector<TToken>* args) {
  TToken token = DealToken(Token(), min, max, spec, args);
  if (!IsMultiExprEndToken(token)) throw CompileException(KEY_SYNTAX_ERR);
  return token;
}

}  // namespace zoka
