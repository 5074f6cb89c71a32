// Character conversions, one character at a time.
#include "vm/kana_convert.h"

#include <array>
#include <charconv>

#include "common/text/jis.h"
#include "common/text/number.h"
#include "common/text/utf8.h"

namespace zoka {
namespace {

constexpr char32_t FULL_WIDTH_FIRST = 0xFF01;  // of "!"
constexpr char32_t FULL_WIDTH_LAST = 0xFF5E;   // of "~"
constexpr char32_t FULL_WIDTH_OFFSET = FULL_WIDTH_FIRST - 0x21;

/// ASCII characters whose double-byte form is not the full-width one.
struct TSpecialForm {
  char ascii;
  std::string_view full;
};
constexpr std::array<TSpecialForm, 4> SPECIAL_FORMS = {
    {{' ', "　"}, {'"', "”"}, {'\'', "’"}, {'\\', "￥"}}};

/// Codes that were shift sequences, not characters.
constexpr uint32_t KANJI_IN_CODE = 0x1B4B;
constexpr uint32_t KANJI_OUT_CODE = 0x1B48;
constexpr size_t JIS_CODE_DIGITS = 4;

void append_full_ascii(std::string* out, char c) {
  for (const TSpecialForm& form : SPECIAL_FORMS) {
    if (form.ascii == c) {
      out->append(form.full);
      return;
    }
  }
  if (c >= '!' && c <= '~') {
    append_utf8(out, FULL_WIDTH_OFFSET + static_cast<unsigned char>(c));
  } else {
    *out += c;
  }
}

/// The single-byte form of a double-byte character; empty if it has none.
std::string single_form(std::string_view character) {
  for (const TSpecialForm& form : SPECIAL_FORMS) {
    if (form.full == character) return std::string(1, form.ascii);
  }
  size_t length = 0;
  char32_t code = decode_utf8(character, &length);
  if (code >= FULL_WIDTH_FIRST && code <= FULL_WIDTH_LAST) {
    return std::string(1, static_cast<char>(code - FULL_WIDTH_OFFSET));
  }
  int32_t kana = full_kana_index(character);
  return kana < 0 ? std::string() : std::string(half_kana(kana));
}

}  // namespace

std::string AkcnvDl(std::string_view text) {
  std::string out;
  for (size_t pos = 0; pos < text.size();) {
    std::string_view rest = text.substr(pos);
    if ((static_cast<unsigned char>(rest[0]) & 0x80) == 0) {
      append_full_ascii(&out, rest[0]);
      ++pos;
      continue;
    }
    size_t length = char_length(rest);
    int32_t kana = half_kana_index(rest);
    out.append(kana >= 0 ? full_kana(kana) : rest.substr(0, length));
    pos += length;
  }
  return out;
}

std::optional<std::string> KacnvDl(std::string_view text) {
  std::string out;
  for (size_t pos = 0; pos < text.size();) {
    size_t length = char_length(text.substr(pos));
    std::string single = single_form(text.substr(pos, length));
    if (single.empty()) return std::nullopt;
    out += single;
    pos += length;
  }
  return out;
}

std::optional<std::string> jis_dl(std::string_view text) {
  if (text.size() < 2) return std::nullopt;
  uint32_t code = static_cast<uint32_t>(static_cast<unsigned char>(text[0])) << 8 |
                  static_cast<unsigned char>(text[1]);
  if (is_kanji(text)) {
    size_t length = 0;
    code = unicode_to_jis(decode_utf8(text, &length));
    if (code == 0) return std::nullopt;
  }
  return digits_in_base(code, 16);
}

std::optional<std::string> knj_dl(std::string_view text) {
  if (text.size() < JIS_CODE_DIGITS) return std::nullopt;
  uint32_t code = 0;
  const char* end = text.data() + JIS_CODE_DIGITS;
  if (std::from_chars(text.data(), end, code, 16).ptr != end) return std::nullopt;
  if (code == KANJI_IN_CODE || code == KANJI_OUT_CODE) return std::string();
  std::string character = JisCodeToUtf8Char(code);
  if (character.empty()) return std::nullopt;
  return character;
}

std::string JisCodeToUtf8Char(uint32_t code) {
  std::string character;
  if (char32_t unicode = jis_to_unicode(code)) append_utf8(&character, unicode);
  return character;
}

}  // namespace zoka
