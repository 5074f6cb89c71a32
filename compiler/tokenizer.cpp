// The tokeniser: one token at a time from the text at mPos. It reads plain bytes: one above 0x7F is
// part of no word and no number. The position is all its state, so that a generator can read the
// text by itself.
#include <string>
#include <string_view>

#include "common/text/ascii.h"
#include "compiler/compiler.h"
#include "compiler/depth.h"
#include "compiler/error_keys.h"

namespace zoka {
namespace {

/// What may stand in a word besides letters and digits, type suffixes at any place among them.
constexpr std::string_view WORD_SIGNS = "_.@%!#$";

bool is_word_char(char c) {
  return is_letter(c) || is_digit(c) || WORD_SIGNS.find(c) != std::string_view::npos;
}

bool is_kanji_byte(char c) {
  return static_cast<unsigned char>(c) > 0x7F;
}

/// The value of a hexadecimal digit, -1 for another character.
int hex_value(char c) {
  if (is_digit(c)) return c - '0';
  c = to_upper(c);
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

/// The token kind of a character that is a token by itself; ttNone for others.
TTokenKind symbol_kind(char c) {
  switch (c) {
    case '+':
      return ttAdd;
    case '-':
      return ttSub;
    case '*':
      return ttMul;
    case '/':
      return ttDiv;
    case '^':
      return ttHat;
    case '\\':
      return ttIdiv;
    case '(':
      return ttLpar;
    case ')':
      return ttRpar;
    case '[':
      return ttLbracket;
    case ']':
      return ttRbracket;
    case ',':
      return ttComma;
    case ';':
      return ttSemiColon;
    case ':':
      return ttColon;
    case '<':
      return ttLt;
    case '>':
      return ttGt;
    case '=':
      return ttEqual;
    case '!':
    case '$':
    case '%':
    case '?':
    case '@':
    case '`':
    case '{':
    case '|':
    case '}':
    case '~':
      return ttSymbol;
    default:
      return ttNone;
  }
}

/// The relation of two characters; ttNone if the second does not belong to the first.
TTokenKind relation_kind(char first, char second) {
  switch (first) {
    case '<':
      return second == '=' ? ttLe : second == '>' ? ttNoteq : ttNone;
    case '>':
      return second == '=' ? ttGe : second == '<' ? ttNoteq : ttNone;
    case '=':
      return second == '<' ? ttLe : second == '>' ? ttGe : ttNone;
    default:
      return ttNone;
  }
}

}  // namespace

TToken TCompiler::Token() {
  CheckCancel();
  SkipSpace();
  mTokenBegin = mPos;
  const char c = mSource[mPos];
  if (is_letter(c) || c == '_') return TokenIdent();
  if (is_digit(c) || c == '.') return TokenNum();
  switch (c) {
    case '\'':
      return TokenComment();
    case '"':
      return TokenString();
    case '&':
      return TokenHexOct();
    case '#':
      return TokenSharpInt();
    default:
      return TokenMisc();
  }
}

void TCompiler::SkipSpace() {
  while (is_space(mSource[mPos]) && mSource[mPos] != '\n') ++mPos;
}

int64_t TCompiler::TokenIdentKernel(std::string* buffer, int64_t start) {
  int64_t length = start;
  while (is_word_char(mSource[mPos + length])) {
    buffer->push_back(to_upper(mSource[mPos + length]));
    ++length;
  }
  return length;
}

TToken TCompiler::TokenIdent() {
  const char* text = mSource + mPos;
  TToken token;
  std::string& word = token.text;
  int64_t length = TokenIdentKernel(&word, 0);
  // "GO TO" is one word with exactly one blank; "FN A" is a name other than "FNA".
  if (word == "GO" && text[2] == ' ' && to_upper(text[3]) == 'T' && to_upper(text[4]) == 'O') {
    word = "GO TO";
    length = 5;
  } else if (word == "FN" && text[2] == ' ') {
    word += ' ';
    length = TokenIdentKernel(&word, 3);
  }
  token.kind = mMidCode->FindTokenKind(word);
  if (token.kind == ttNone) {
    token.kind = word.starts_with("FN") ? ttUserFunc : ttIdent;
    mMidCode->InsertTokenKind(word, token.kind);
  }
  if (token.kind == ttIdent && word.back() == '@' && !mDataMode) {
    throw CompileException(KEY_SYNTAX_ERR);
  }
  mPos += length;
  return token;
}

TToken TCompiler::TokenNum() {
  TToken token;
  std::string& digits = token.text;
  for (char c = mSource[mPos]; is_digit(c) || c == '.' || c == '%' || c == '!' || c == '#';
       c = mSource[++mPos]) {
    digits += c;
  }
  token.kind = ttInt;
  if (mDataMode) return token;
  const char last = digits.back();
  if (last == '.') throw CompileException(KEY_SYNTAX_ERR);
  token.kind = DistinctVarType(digits);
  // A number has no exponent, and no word follows it at once.
  if (is_letter(mSource[mPos])) throw CompileException(KEY_SYNTAX_ERR);
  return token;
}

TToken TCompiler::TokenString() {
  ++mPos;
  const int64_t begin = mPos;
  while (mSource[mPos] != '"' && mSource[mPos] != '\n' && mSource[mPos] != '\0') ++mPos;
  TToken token{ttStr, std::string(mSource + begin, static_cast<size_t>(mPos - begin))};
  if (mSource[mPos] == '"') ++mPos;  // a string left open ends with its line
  return token;
}

TToken TCompiler::TokenHexOct() {
  ++mPos;
  if (mDataMode) return {ttSymbol, "&"};
  const char letter = to_upper(mSource[mPos]);
  if (letter == 'H') {
    ++mPos;
    return {ttInt, std::to_string(ReadHex())};
  }
  if (letter == 'O' || is_digit(letter)) return {ttInt, std::to_string(ReadOctal())};
  throw CompileException(KEY_SYNTAX_ERR);
}

int32_t TCompiler::ReadHex() {
  uint32_t value = 0;
  for (int digit; (digit = hex_value(mSource[mPos])) >= 0; ++mPos) {
    value = value * 16 + static_cast<uint32_t>(digit);
  }
  return static_cast<int32_t>(value);
}

// After each digit the position goes to the place behind the character that follows "&", not on
// from where it stands: "&7" is read, but "&17" and "&O7" see the same digit for ever. Programs
// depend on neither, and this reader has always been so; only a cancelled compilation leaves it.
int32_t TCompiler::ReadOctal() {
  const int64_t behindFirst = mPos + 1;
  if (!is_digit(mSource[mPos])) ++mPos;  // the "O"
  int32_t value = 0;
  while (is_digit(mSource[mPos])) {
    if (mSource[mPos] > '7') throw CompileException(KEY_SYNTAX_ERR);
    if (mPos == behindFirst) WaitForCancel();
    value = mSource[mPos] - '0';
    mPos = behindFirst;
  }
  return value;
}

TToken TCompiler::TokenSharpInt() {
  ++mPos;
  TToken token{ttSharpInt, {}};
  for (; is_digit(mSource[mPos]) || mSource[mPos] == '.'; ++mPos) token.text += mSource[mPos];
  if (token.text.empty()) token = {ttSymbol, "#"};
  return token;
}

TToken TCompiler::TokenMisc() {
  const char c = mSource[mPos];
  if (c == '\0') return {ttEof, {}};
  ++mPos;
  if (c == '\n') {
    ++mPhysicalLine;
    return {ttEol, "\n"};
  }
  if (is_kanji_byte(c)) return {ttKanji, {}};
  if (const TTokenKind kind = relation_kind(c, mSource[mPos]); kind != ttNone) {
    return {kind, {c, mSource[mPos++]}};
  }
  if (const TTokenKind kind = symbol_kind(c); kind != ttNone) return {kind, std::string(1, c)};
  throw CompileException("@Compile_Err_Unknown_Symbol %Symbol%@",
                         {{"%Symbol%", std::string(1, c)}});
}

TToken TCompiler::TokenComment() {
  return SkipComment();
}

TToken TCompiler::SkipComment() {
  while (mSource[mPos] != '\n' && mSource[mPos] != '\0') ++mPos;
  if (mSource[mPos] == '\0') return {ttEof, {}};
  ++mPos;
  ++mPhysicalLine;
  return {ttEol, {}};
}

bool TCompiler::IsMultiExprEndToken(const TToken& token) {
  switch (token.kind) {
    case ttColon:
    case ttThen:
    case ttElse:
    case ttAs:
    case ttEol:
    case ttEof:
      return true;
    default:
      return false;
  }
}

bool TCompiler::IsExprEndToken(const TToken& token) {
  return token.kind == ttComma || IsMultiExprEndToken(token);
}

TToken TCompiler::SkipMultiExpr(const TToken& first) {
  const TDepth depth(this);
  TToken token = first;
  // AS ends other lists, but stands inside the arguments of NAME and FIELD.
  while (token.kind == ttAs || (!IsMultiExprEndToken(token) && token.kind != ttRpar)) {
    if (token.kind == ttLpar) CheckRpar(SkipMultiExpr(Token()));
    token = Token();
  }
  return token;
}

TToken TCompiler::SkipFuncOption(const TToken&) {
  TToken token = Token();
  if (token.kind != ttLpar) return token;
  for (int32_t open = 1; open > 0;) {
    token = Token();
    if (IsMultiExprEndToken(token)) throw CompileException("@Compile_Err_No_RPar@");
    if (token.kind == ttLpar) ++open;
    if (token.kind == ttRpar) --open;
  }
  return Token();
}

}  // namespace zoka
