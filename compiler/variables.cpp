// Variables: names, types, subscripts. A name without a suffix gets its type where it is met in the
// text, by the DEFINT and its kin that stand before it there.
#include <algorithm>

#include "common/text/ascii.h"
#include "compiler/compiler.h"
#include "compiler/error_keys.h"

namespace zoka {
namespace {

bool is_suffix(char c) {
  return c == '!' || c == '#' || c == '$' || c == '%';
}

char suffix_of(TTokenKind kind) {
  switch (kind) {
    case ttInt:
      return '%';
    case ttDbl:
      return '#';
    case ttStr:
      return '$';
    default:
      return '!';
  }
}

bool is_number_char(char c) {
  return is_digit(c) || c == '.';
}

size_t table_index(char c) {
  return static_cast<unsigned char>(c);
}

TTokenKind merged_kind(TTokenKind a, TTokenKind b) {
  if (a == b) return a;
  if (a == ttVoid) return b;
  if (b == ttVoid) return a;
  if (a == ttStr || b == ttStr) return ttMismatch;
  return std::max(a, b);
}

}  // namespace

void TCompiler::InitVarTypeTables() {
  std::fill(std::begin(mDefVarType), std::end(mDefVarType), ttSng);
  std::fill(std::begin(mSufVarType), std::end(mSufVarType), ttSng);
  for (TTokenKind kind : {ttInt, ttSng, ttDbl, ttStr}) {
    mSufVarType[table_index(suffix_of(kind))] = kind;
  }
  for (auto& row : mSelVarType) std::fill(std::begin(row), std::end(row), ttMismatch);
  for (uint32_t a = ttVoid; a <= ttStr; ++a) {
    for (uint32_t b = ttVoid; b <= ttStr; ++b) {
      mSelVarType[a][b] = merged_kind(static_cast<TTokenKind>(a), static_cast<TTokenKind>(b));
    }
  }
}

TTokenKind TCompiler::SelectVarType(TTokenKind a, TTokenKind b, bool force) const {
  return force ? b : mSelVarType[a][b];
}

TTokenKind TCompiler::DistinctVarType(std::string_view name) const {
  const char first = name.front();
  const char last = name.back();
  if (is_number_char(first) && is_number_char(last)) {
    return name.find('.') == std::string_view::npos ? ttInt : ttSng;
  }
  if (is_suffix(last)) return mSufVarType[table_index(last)];
  return mDefVarType[table_index(first)];
}

TVarInfo* TCompiler::FindVarInfo(const std::string& name) {
  if (TVarInfo* var = mMidCode->FindVar(name)) return var;
  std::string suffixed = name;
  if (!is_suffix(name.back())) {
    suffixed += suffix_of(DistinctVarType(name));
    if (TVarInfo* var = mMidCode->FindVar(suffixed)) return var;
  }
  // The word may be a keyword (DEFSTR T: TIME), which stays one.
  if (mMidCode->FindTokenKind(suffixed) == ttNone) mMidCode->InsertTokenKind(suffixed, ttIdent);
  return mMidCode->InsertVar(suffixed, DistinctVarType(suffixed));
}

TToken TCompiler::GenSubscripts(const TToken& first) {
  if (first.kind != ttLpar && first.kind != ttLbracket) return first;
  int32_t count = 0;
  const TToken token = GenMultiExpr(Token(), &count, nullptr);
  if (token.kind != ttRpar && token.kind != ttRbracket) {
    throw CompileException("@Compile_Err_No_RPar@");
  }
  return Token();
}

TToken TCompiler::GenVar(TToken* token, bool* lvalue, bool* forceType, bool assign,
                         bool asReference, TTokenKind* kind) {
  TVarInfo* var = FindVarInfo(token->text);
  *token = Token();
  if (mInUserFuncDef) {
    const auto& params = mUserFunc->params;
    const auto found = std::find(params.begin(), params.end(), var->name);
    if (found != params.end()) {
      const auto index = static_cast<int32_t>(found - params.begin());
      AddCodeLong(TVMCodeCmd::BLoadUserFuncParam, index);
      *kind = SelectVarType(*kind, mUserFunc->paramKinds[static_cast<size_t>(index)], *forceType);
      return *token;
    }
  }
  AddCodeLong(TVMCodeCmd::BPushInt, SUBSCRIPT_END);
  *token = GenSubscripts(*token);
  const bool isTarget = asReference || (token->kind == ttEqual && *lvalue && assign);
  AddCodeVar(isTarget ? TVMCodeCmd::BPushVar : TVMCodeCmd::BLoadArray, var);
  *kind = SelectVarType(*kind, var->kind, *forceType);
  return *token;
}

TToken TCompiler::GenMultiVar(const TToken& first, int32_t* count) {
  TToken token = first;
  *count = 0;
  while (!IsMultiExprEndToken(token) && token.kind != ttRpar) {
    TTokenKind kind;
    token = GenReference(token, &kind);
    ++*count;
    if (token.kind == ttComma) token = Token();
  }
  return token;
}

TToken TCompiler::SetDefVarType(TTokenKind type) {
  TToken token;
  do {
    const char first = ReadDefVarLetter();
    char last = first;
    token = Token();
    if (token.kind == ttSub) {
      last = ReadDefVarLetter();
      token = Token();
    }
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
      if (letter >= first && letter <= last) mDefVarType[table_index(letter)] = type;
    }
  } while (token.kind == ttComma);
  return token;
}

// Only the first letter of a word counts: DEFINT ABC is DEFINT A.
char TCompiler::ReadDefVarLetter() {
  const TToken token = Token();
  if (token.kind != ttIdent) throw CompileException("@Compile_Err_Ill_Def_Var_Type@");
  return token.text.front();
}

}  // namespace zoka
