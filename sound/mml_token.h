// The tokens of the music macro language and the scanner that cuts a text into them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zoka {

/// The key of every failure of MML: a bad character, a number out of range, a missing "}".
constexpr const char ERR_BAD_MML[] = "@Runtime_Err_Bad_MML@";

/// Thrown when a text is no MML. It carries the message's key only: where the program stands is the
/// business of whoever executes the statement.
struct TMmlError {
  const char* key = ERR_BAD_MML;
};

/// Kinds of tokens; also the index of the handler's table.
enum class TMmlTokenKind : int32_t {
  Number = 0,
  Pitch = 1,
  M = 2,
  S = 3,
  V = 4,
  L = 5,
  Q = 6,
  O = 7,
  Lt = 8,
  Gt = 9,
  K = 10,
  T = 11,
  R = 12,
  Plus = 13,
  Minus = 14,
  Period = 15,
  Comma = 16,
  Hat = 17,
  Lseq = 18,
  Rseq = 19,
  At = 20,
  Y = 21,
  AtV = 22,
  AtW = 23,
  Trans = 24,
  Lfo = 25,
  Beep = 26,
  Star = 27,
  Z = 28,
  Mf = 29,
  Mb = 30,
  End = 31
};
constexpr size_t MML_TOKEN_KINDS = 32;

/// A token. Of a number `text` is its digits, of a pitch the decimal semitone (-1 to 12), else what
/// stands in the source.
struct TMmlToken {
  TMmlTokenKind kind = TMmlTokenKind::End;
  std::string text;

  /// The value of `text`, saturated to 32 bits; 0 if it is no number.
  int32_t Number() const;
};

/// Cuts an upper-case text into tokens. The text must outlive it. A zero byte ends the text.
class TMmlScanner {
 public:
  TMmlScanner() = default;
  explicit TMmlScanner(std::string_view text) : mml(text.substr(0, text.find('\0'))) {}

  /// The next token. At the end of the text it is End, however often it is asked for. Throws
  /// TMmlError on a character that begins no token.
  TMmlToken Token();

 private:
  void SkipSpace();
  TMmlToken TokenAlpha();
  TMmlToken TokenPitch(char letter);
  TMmlToken TokenNum();
  TMmlToken TokenMisc();
  char Peek() const { return mmlPos < mml.size() ? mml[mmlPos] : '\0'; }

  std::string_view mml;
  size_t mmlPos = 0;
};

}  // namespace zoka
