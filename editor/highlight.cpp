// Reads a line from left to right.
#include "editor/highlight.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "common/text/ascii.h"

namespace zoka {
namespace {

bool is_word_byte(char c) {
  return is_letter(c) || is_digit(c) || std::string_view("_.@%!#$").find(c) != std::string::npos;
}

struct TWord {
  std::string_view spelling;
  TTextStyle style;
};

constexpr TWord WORDS[] = {
    {"REM", TTextStyle::Comment},
#define ZOKA_CONTROL_WORD(spelling, kind) {spelling, TTextStyle::Keyword},
#define ZOKA_BOTH(spelling, ...) {spelling, TTextStyle::Keyword},
#define ZOKA_FUNCTION(spelling, ...) {spelling, TTextStyle::Function},
#define ZOKA_STATEMENT(spelling, ...) {spelling, TTextStyle::Keyword},
#include "core/keywords.def"
};

const std::unordered_map<std::string_view, TTextStyle>& word_table() {
  static const auto TABLE = [] {
    std::unordered_map<std::string_view, TTextStyle> table;
    for (const TWord& word : WORDS) {
      if (!word.spelling.empty()) table.emplace(word.spelling, word.style);
    }
    return table;
  }();
  return TABLE;
}

/// The walk over one line.
class TLineReader {
 public:
  TLineReader(std::string_view line, std::vector<TTextStyle>* styles)
      : mLine(line), mStyles(*styles) {
    mStyles.assign(line.size(), TTextStyle::Plain);
  }

  void Read() {
    ReadLineNumber();
    while (mPos < mLine.size()) ReadToken();
  }

 private:
  std::string_view Rest() const { return mLine.substr(mPos); }

  void Mark(size_t length, TTextStyle style) {
    const auto begin = mStyles.begin() + static_cast<std::ptrdiff_t>(mPos);
    std::fill(begin, begin + static_cast<std::ptrdiff_t>(length), style);
    mPos += length;
  }

  void ReadLineNumber() {
    size_t length = 0;
    while (length < mLine.size() && is_digit(mLine[length])) ++length;
    Mark(length, TTextStyle::LineNumber);
  }

  void ReadToken() {
    const char c = mLine[mPos];
    if (c == ' ' || c == '\t') return Mark(1, TTextStyle::Plain);
    if (c == '\'') return Mark(Rest().size(), TTextStyle::Comment);
    if (c == '"') return ReadString();
    if (is_letter(c) || c == '_') return ReadWord();
    if (c == '*' && mLabelMayFollow && word_length(Rest().substr(1)) > 0) {
      Mark(1 + word_length(Rest().substr(1)), TTextStyle::Label);
    } else if (is_digit(c) || c == '.' || c == '&') {
      ReadNumber();
      mLabelMayFollow = false;
    } else {
      Mark(1, static_cast<unsigned char>(c) < 0x80 ? TTextStyle::Operator : TTextStyle::Plain);
      // A list of targets goes on behind a comma, which a list of factors does too.
      mLabelMayFollow = c == ':' || (c == ',' && mLabelMayFollow);
      return;
    }
  }

  void ReadString() {
    const size_t end = Rest().find('"', 1);
    Mark(end == std::string_view::npos ? Rest().size() : end + 1, TTextStyle::String);
    mLabelMayFollow = false;
  }

  void ReadNumber() {
    size_t length = 1;
    const bool hex = Rest().size() > 1 && Rest()[0] == '&' && to_upper(Rest()[1]) == 'H';
    while (length < Rest().size()) {
      const char c = Rest()[length];
      const bool belongs = is_digit(c) || c == '.' || c == '%' || c == '!' || c == '#' ||
                           (hex && (length == 1 || (to_upper(c) >= 'A' && to_upper(c) <= 'F')));
      if (!belongs) break;
      ++length;
    }
    Mark(length, TTextStyle::Number);
  }

  void ReadWord() {
    size_t length = word_length(Rest());
    std::string word = to_upper(Rest().substr(0, length));
    if (word == "GO" && to_upper(Rest().substr(0, 5)) == "GO TO") {
      word = "GOTO";
      length = 5;
    }
    const TTextStyle style = style_of_word(word);
    if (style == TTextStyle::Comment) return Mark(Rest().size(), style);
    Mark(length, style);
    mLabelMayFollow = style == TTextStyle::Keyword;
    if (word == "DATA") Mark(data_length(Rest()), TTextStyle::String);
  }

  std::string_view mLine;
  std::vector<TTextStyle>& mStyles;
  size_t mPos = 0;
  bool mLabelMayFollow = true;  // an asterisk begins a label here, and is no product
};

}  // namespace

size_t data_length(std::string_view text) {
  bool quoted = false;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') quoted = !quoted;
    if (text[i] == ':' && !quoted) return i;
  }
  return text.size();
}

size_t word_length(std::string_view text) {
  if (text.empty() || (!is_letter(text[0]) && text[0] != '_')) return 0;
  size_t length = 0;
  while (length < text.size() && is_word_byte(text[length])) ++length;
  return length;
}

TTextStyle style_of_word(std::string_view word) {
  const auto found = word_table().find(to_upper(word));
  return found != word_table().end() ? found->second : TTextStyle::Plain;
}

const std::vector<std::string_view>& language_words() {
  static const auto SORTED = [] {
    std::vector<std::string_view> words;
    for (const auto& [spelling, style] : word_table()) words.push_back(spelling);
    std::sort(words.begin(), words.end());
    return words;
  }();
  return SORTED;
}

void style_line(std::string_view line, std::vector<TTextStyle>* styles) {
  TLineReader(line, styles).Read();
}

}  // namespace zoka
