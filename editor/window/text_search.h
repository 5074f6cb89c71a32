// TTextSearch: finds a text, or what a regular expression describes, in a whole list. It knows no
// editor; offsets are bytes.
#pragma once

#include <QRegularExpression>
#include <QString>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zoka {

/// What is looked for, and how.
struct TSearchWish {
  QString text;
  bool matchCase = false;
  bool wholeWords = false;  // names and words of the language with their type characters
  bool regex = false;
};

/// An occurrence, and the text that is to take its place.
struct TFound {
  int64_t begin = 0;
  int64_t end = 0;
  std::string with;
};

/// No expression, however bad, makes it crash or search for ever: an expression that is none, or
/// takes too much work, finds no more. One thread.
class TTextSearch {
 public:
  explicit TTextSearch(const TSearchWish& wish);

  /// All occurrences in `text`, from its start on, none in another; `replacement` may name the
  /// parts of a regular expression's occurrence by \0 to \9, and has \\, \n and \t. Text that is no
  /// UTF-8 is searched by its bytes.
  std::vector<TFound> All(std::string_view text, const QString& replacement = {}) const;

 private:
  std::string Replacement(const QRegularExpressionMatch& match, const QString& replacement,
                          bool isUtf8) const;

  bool mIsRegex;
  QString mPattern;
  QRegularExpression::PatternOptions mOptions;
};

/// `text` with all occurrences replaced, from the first one's beginning to the last one's end.
std::string replaced_range(std::string_view text, const std::vector<TFound>& found);

}  // namespace zoka
