// Walks over the words of a line.
#include "editor/line_facts.h"

#include <algorithm>
#include <initializer_list>

#include "common/text/ascii.h"
#include "common/text/number.h"
#include "editor/format_source.h"
#include "editor/highlight.h"
#include "editor/renumber.h"

namespace zoka {
namespace {

/// How many targets may stand at the present place.
enum class TExpected : uint8_t { Nothing, One, List };

bool is_one_of(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// The walk over one line of the program.
class TFactReader {
 public:
  /// `start` is the offset of `line` in the editor's line.
  TFactReader(std::string_view line, size_t start, TLineFacts* facts)
      : mLine(line), mStart(start), mFacts(*facts) {}

  void Read() {
    ReadLineNumber();
    while (mPos < mLine.size()) ReadToken();
  }

 private:
  char At(size_t pos) const { return pos < mLine.size() ? mLine[pos] : '\0'; }
  std::string_view Rest() const { return mLine.substr(mPos); }

  void SkipSpace() {
    while (mPos < mLine.size() && is_space(mLine[mPos])) ++mPos;
  }

  void ReadLineNumber() {
    SkipSpace();
    const int32_t number = is_digit(At(mPos)) ? parse_long(Rest()) : 0;
    if (number > 0) mFacts.numbers.push_back(number);
    while (is_digit(At(mPos))) ++mPos;
  }

  void ReadToken() {
    const char c = mLine[mPos];
    if (is_space(c)) return SkipSpace();
    if (is_letter(c) || c == '_') return ReadWord();
    if (is_digit(c)) return ReadNumber();
    if (c == '*') return ReadStar();
    if (c == '\'') return EndLine();
    if (c == '"') return ReadString();
    ++mPos;
    if (c == ':') return BeginStatement();
    ReadSymbol(c);
  }

  void EndLine() { mPos = mLine.size(); }

  void BeginStatement() {
    mAtStatement = true;
    mOn = false;
    mDead = false;
    mExpected = TExpected::Nothing;
    mDepth = 0;
  }

  void ReadSymbol(char c) {
    mAtStatement = false;
    if (c == '(') ++mDepth;
    if (c == ')' && mDepth > 0) --mDepth;
    mAtTarget = c == ',' && mDepth == 0 && mExpected == TExpected::List;
  }

  void ReadString() {
    const size_t end = mLine.find('"', mPos + 1);
    mPos = end == std::string_view::npos ? mLine.size() : end + 1;
    mAtStatement = mAtTarget = false;
  }

  /// A number that stands alone at the place of a target; else it is part of a computed one.
  void ReadNumber() {
    const size_t begin = mPos;
    while (is_digit(At(mPos))) ++mPos;
    const size_t end = mPos;
    while (is_one_of_bytes(At(mPos), "0123456789.%!#")) ++mPos;
    const bool whole = mPos == end || (mPos == end + 1 && At(end) != '.');
    if (mAtTarget && whole && TargetEnds()) {
      mFacts.jumps.push_back(
          {mStart + begin, mStart + end, parse_long(mLine.substr(begin)), "", !mDead});
    }
    mAtStatement = mAtTarget = false;
  }

  static bool is_one_of_bytes(char c, std::string_view bytes) {
    return c != '\0' && bytes.find(c) != std::string_view::npos;
  }

  /// True if nothing follows that would make an expression of what has been read.
  bool TargetEnds() const {
    size_t pos = mPos;
    while (is_space(At(pos))) ++pos;
    if (pos >= mLine.size() || is_one_of_bytes(mLine[pos], ":,'")) return true;
    const std::string_view rest = mLine.substr(pos);
    return to_upper(rest.substr(0, word_length(rest))) == "ELSE";
  }

  /// A label, at the place of a target or of a statement; anywhere else a product.
  void ReadStar() {
    const size_t begin = mPos++;
    if (!mAtTarget && !mAtStatement) return ReadSymbol('*');
    SkipSpace();
    const std::string name = to_upper(Rest().substr(0, word_length(Rest())));
    mPos += name.size();
    const TPlaceName place{mStart + begin, mStart + mPos, 0, name, !mDead};
    const bool isJump = mAtTarget;
    mAtTarget = false;
    if (name.empty()) return;
    if (isJump) {
      mFacts.jumps.push_back(place);
      mAtStatement = false;
    } else {
      // A label ends no statement: another may follow it.
      mFacts.labels.push_back(place);
    }
  }

  void ReadWord() {
    size_t length = word_length(Rest());
    if (length == 2 && to_upper(Rest().substr(0, 2)) == "GO" && At(mPos + 2) == ' ' &&
        to_upper(Rest().substr(3, 2)) == "TO") {
      length = 5;
    } else if (length == 2 && to_upper(Rest().substr(0, 2)) == "FN" && At(mPos + 2) == ' ') {
      // A function's name may have a blank in it; then it is one with that blank.
      const size_t behind = word_length(Rest().substr(3));
      if (behind > 0) length = 3 + behind;
    }
    const std::string word = to_upper(Rest().substr(0, length));
    mPos += length;
    const bool atStatement = mAtStatement;
    mAtStatement = mAtTarget = false;
    if (style_of_word(word) == TTextStyle::Plain) return ReadName(word);
    ReadKeyword(word, atStatement);
  }

  void ReadName(const std::string& word) {
    if (std::find(mFacts.names.begin(), mFacts.names.end(), word) == mFacts.names.end()) {
      mFacts.names.push_back(word);
    }
  }

  void ReadKeyword(const std::string& word, bool atStatement) {
    if (word == "REM") return EndLine();
    if (word == "DATA") {
      mPos += data_length(Rest());
      return;
    }
    if (word == "ON" && atStatement) {
      mOn = true;
    } else if (is_one_of(word, {"ERROR", "COM", "PEN"}) && mOn) {
      mDead = true;
    } else if (is_one_of(word, {"THEN", "ELSE"})) {
      BeginStatement();
      Expect(TExpected::One);
    } else if (is_one_of(word, {"GOTO", "GO TO", "GOSUB"})) {
      Expect(mOn ? TExpected::List : TExpected::One);
    } else if (is_one_of(word, {"RETURN", "RESTORE", "RUN"})) {
      Expect(TExpected::One);
    } else if (word == "RESUME") {
      mDead = true;
      Expect(TExpected::One);
    }
  }

  void Expect(TExpected expected) {
    mExpected = expected;
    mAtTarget = true;
    mDepth = 0;
  }

  std::string_view mLine;
  size_t mStart;
  TLineFacts& mFacts;
  size_t mPos = 0;
  bool mAtStatement = true;  // a statement, or a label, may begin here
  bool mAtTarget = false;    // a target may begin here
  bool mOn = false;          // the statement began with ON
  bool mDead = false;        // the compiler reads past the statement's targets
  TExpected mExpected = TExpected::Nothing;
  int mDepth = 0;  // of open parentheses
};

}  // namespace

TLineFacts read_line_facts(std::string_view line) {
  TLineFacts facts;
  line = line.substr(0, MAX_LINE_BYTES);
  facts.beginsWithDigit = !line.empty() && is_digit(line[0]);
  for (size_t at = 0; at < line.size();) {
    const size_t end = std::min(line.find(END_MARK, at), line.size());
    if (end > at) {
      ++facts.filled;
      TFactReader(line.substr(at, end - at), at, &facts).Read();
    }
    at = end + 1;
  }
  return facts;
}

}  // namespace zoka
