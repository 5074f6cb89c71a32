// Searching by the toolkit's regular expressions, whose work is bounded.
#include "editor/window/text_search.h"

#include <QStringDecoder>

namespace zoka {
namespace {

/// What belongs to a word of the language.
constexpr const char WORD[] = R"([\w.@%!#$])";
/// Lines end at LF, at CR and at the pair of both.
constexpr const char LINE_ENDS[] = "(*ANYCRLF)";

/// The text; `*isUtf8` false: a character a byte.
QString decoded(std::string_view text, bool* isUtf8) {
  QStringDecoder decoder(QStringDecoder::Utf8,
                         QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
  const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
  const QString utf8 = decoder(bytes);
  *isUtf8 = !decoder.hasError();
  return *isUtf8 ? utf8 : QString::fromLatin1(bytes);
}

std::string encoded(QStringView text, bool isUtf8) {
  return (isUtf8 ? text.toUtf8() : text.toLatin1()).toStdString();
}

/// Bytes of a part of a decoded text.
int64_t bytes_of(QStringView text, bool isUtf8) {
  if (!isUtf8) return text.size();
  int64_t bytes = 0;
  for (const QChar c : text) {
    // Each half of a pair stands for two of its four bytes.
    bytes += c.unicode() < 0x80 ? 1 : c.unicode() < 0x800 || c.isSurrogate() ? 2 : 3;
  }
  return bytes;
}

}  // namespace

TTextSearch::TTextSearch(const TSearchWish& wish) : mIsRegex(wish.regex) {
  mPattern = wish.regex ? wish.text : QRegularExpression::escape(wish.text);
  if (wish.wholeWords && !mPattern.isEmpty()) {
    mPattern = QString("(?<!%1)(?:%2)(?!%1)").arg(WORD, mPattern);
  }
  mOptions = QRegularExpression::MultilineOption;
  if (!wish.matchCase) mOptions |= QRegularExpression::CaseInsensitiveOption;
}

std::string TTextSearch::Replacement(const QRegularExpressionMatch& match,
                                     const QString& replacement, bool isUtf8) const {
  if (!mIsRegex) return replacement.toStdString();
  std::string text;
  const QStringView all(replacement);
  for (qsizetype at = 0; at < all.size();) {
    const qsizetype found = all.indexOf('\\', at);
    const qsizetype escape = found < 0 ? all.size() : found;
    text += all.mid(at, escape - at).toUtf8().toStdString();
    at = escape + 2;
    if (escape + 1 >= all.size()) break;
    const char16_t code = all[escape + 1].unicode();
    if (code >= '0' && code <= '9') text += encoded(match.capturedView(code - '0'), isUtf8);
    if (code == 'n') text += '\n';
    if (code == 't') text += '\t';
    if (code == '\\') text += '\\';
  }
  return text;
}

std::vector<TFound> TTextSearch::All(std::string_view text, const QString& replacement) const {
  std::vector<TFound> found;
  if (mPattern.isEmpty()) return found;
  bool isUtf8 = true;
  const QString subject = decoded(text, &isUtf8);
  // The bytes of a text that is no UTF-8 are compared with those of the pattern.
  const QString pattern = isUtf8 ? mPattern : QString::fromLatin1(mPattern.toUtf8());
  const QRegularExpression expression(LINE_ENDS + pattern, mOptions);
  if (!expression.isValid()) return found;
  QRegularExpressionMatchIterator matches = expression.globalMatch(subject);
  qsizetype at = 0;
  int64_t byte = 0;
  while (matches.hasNext()) {
    const QRegularExpressionMatch match = matches.next();
    if (!match.hasMatch()) break;
    const QStringView all(subject);
    byte += bytes_of(all.mid(at, match.capturedStart() - at), isUtf8);
    const int64_t length = bytes_of(match.capturedView(), isUtf8);
    found.push_back({byte, byte + length, Replacement(match, replacement, isUtf8)});
    byte += length;
    at = match.capturedEnd();
  }
  return found;
}

std::string replaced_range(std::string_view text, const std::vector<TFound>& found) {
  std::string result;
  for (size_t i = 0; i < found.size(); ++i) {
    if (i > 0) {
      const auto from = static_cast<size_t>(found[i - 1].end);
      result += text.substr(from, static_cast<size_t>(found[i].begin) - from);
    }
    result += found[i].with;
  }
  return result;
}

}  // namespace zoka
