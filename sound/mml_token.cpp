// The scanner of the music macro language.
#include "sound/mml_token.h"

#include <limits>
#include <utility>

#include "common/text/ascii.h"
#include "sound/mml_tables.h"

namespace zoka {

namespace {

bool is_upper(char c) {
  return c >= 'A' && c <= 'Z';
}

TMmlToken one_character(TMmlTokenKind kind, char c) {
  return {kind, std::string(1, c)};
}

}  // namespace

int32_t TMmlToken::Number() const {
  constexpr int64_t MAX = std::numeric_limits<int32_t>::max();
  const bool negative = text.starts_with('-');
  int64_t value = 0;
  for (char c : std::string_view(text).substr(negative ? 1 : 0)) {
    if (!is_digit(c)) return 0;
    value = value * 10 + (c - '0');
    if (value > MAX) value = MAX;
  }
  return static_cast<int32_t>(negative ? -value : value);
}

TMmlToken TMmlScanner::Token() {
  SkipSpace();
  if (mmlPos >= mml.size()) return {TMmlTokenKind::End, ""};
  if (is_upper(Peek())) return TokenAlpha();
  if (is_digit(Peek())) return TokenNum();
  return TokenMisc();
}

void TMmlScanner::SkipSpace() {
  while (is_space(Peek())) ++mmlPos;
}

TMmlToken TMmlScanner::TokenAlpha() {
  const char letter = mml[mmlPos++];
  if (letter <= 'G') return TokenPitch(letter);
  switch (letter) {
    case 'K':
      return one_character(TMmlTokenKind::K, letter);
    case 'L':
      return one_character(TMmlTokenKind::L, letter);
    case 'M':
      if (Peek() == 'B') return ++mmlPos, TMmlToken{TMmlTokenKind::Mb, "MB"};
      if (Peek() == 'F') return ++mmlPos, TMmlToken{TMmlTokenKind::Mf, "MF"};
      return one_character(TMmlTokenKind::M, letter);
    case 'O':
      return one_character(TMmlTokenKind::O, letter);
    case 'P':
    case 'R':
      return one_character(TMmlTokenKind::R, letter);
    case 'Q':
      return one_character(TMmlTokenKind::Q, letter);
    case 'S':
      return one_character(TMmlTokenKind::S, letter);
    case 'T':
      return one_character(TMmlTokenKind::T, letter);
    case 'V':
      return one_character(TMmlTokenKind::V, letter);
    case 'Y':
      return one_character(TMmlTokenKind::Y, letter);
    case 'Z':
      return one_character(TMmlTokenKind::Z, letter);
    default:
      throw TMmlError{};
  }
}

TMmlToken TMmlScanner::TokenPitch(char letter) {
  int pitch = PITCH_TABLE[static_cast<size_t>(letter - 'A')];
  const char sign = Peek();
  if (sign == '+' || sign == '#') {
    ++pitch;
    ++mmlPos;
  } else if (sign == '-') {
    --pitch;
    ++mmlPos;
  }
  return {TMmlTokenKind::Pitch, std::to_string(pitch)};
}

TMmlToken TMmlScanner::TokenNum() {
  const size_t begin = mmlPos;
  while (is_digit(Peek())) ++mmlPos;
  return {TMmlTokenKind::Number, std::string(mml.substr(begin, mmlPos - begin))};
}

TMmlToken TMmlScanner::TokenMisc() {
  const char c = mml[mmlPos++];
  switch (c) {
    case '<':
      return one_character(TMmlTokenKind::Lt, c);
    case '>':
      return one_character(TMmlTokenKind::Gt, c);
    case '+':
    case '#':
      return one_character(TMmlTokenKind::Plus, c);
    case '-':
      return one_character(TMmlTokenKind::Minus, c);
    case '.':
      return one_character(TMmlTokenKind::Period, c);
    case ',':
      return one_character(TMmlTokenKind::Comma, c);
    case '^':
      return one_character(TMmlTokenKind::Hat, c);
    case '{':
      return one_character(TMmlTokenKind::Lseq, c);
    case '}':
      return one_character(TMmlTokenKind::Rseq, c);
    case '@':
      if (Peek() == 'V') return ++mmlPos, TMmlToken{TMmlTokenKind::AtV, "@V"};
      if (Peek() == 'W') return ++mmlPos, TMmlToken{TMmlTokenKind::AtW, "@W"};
      return one_character(TMmlTokenKind::At, c);
    case '_':
      return one_character(TMmlTokenKind::Trans, c);
    case '!':
      return one_character(TMmlTokenKind::Lfo, c);
    case '"':
      return one_character(TMmlTokenKind::Beep, c);
    case '*':
      return one_character(TMmlTokenKind::Star, c);
    default:
      throw TMmlError{};
  }
}

}  // namespace zoka
