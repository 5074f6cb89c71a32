// Guesses a text's character set and line ends.
#include "common/text/charset.h"

#include <algorithm>

#include "common/text/utf8.h"

namespace zoka {

namespace {

std::string_view up_to_nul(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

bool is_trail(std::string_view text, size_t at) {
  return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

}  // namespace

int32_t detect_charset(std::string_view text) {
  text = up_to_nul(text);
  bool hasEscape = false;
  bool hasFault = false;
  for (size_t at = 0; at < text.size();) {
    const unsigned char byte = static_cast<unsigned char>(text[at]);
    if (byte < 0x80) {
      hasEscape |= byte == 0x1B;
      ++at;
      continue;
    }
    hasFault |= byte < 0xC0;
    const size_t length = static_cast<size_t>(char_bytes(text[at]));
    for (size_t n = 1; n < length; ++n) hasFault |= !is_trail(text, at + n);
    at += length;
  }
  if (hasEscape) return CHARSET_JIS;
  return hasFault ? CHARSET_SJIS : CHARSET_UTF8;
}

int32_t detect_cr_type(std::string_view text) {
  text = up_to_nul(text);
  const auto returns = std::count(text.begin(), text.end(), '\r');
  const auto feeds = std::count(text.begin(), text.end(), '\n');
  if (returns > feeds) return 2;
  return returns == feeds && returns > 0 ? 1 : 0;
}

}  // namespace zoka
