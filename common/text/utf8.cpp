// Encoding and decoding of UTF-8 characters.
#include "common/text/utf8.h"

namespace zoka {

namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

/// What a lead byte promises: the bytes that follow, and the least code that needs so many.
struct TLead {
  size_t following;
  char32_t bits;
  char32_t least;
};

bool read_lead(unsigned char byte, TLead* lead) {
  if (byte >= 0xC2 && byte <= 0xDF) {
    *lead = {1, byte & 0x1Fu, 0x80};
  } else if (byte >= 0xE0 && byte <= 0xEF) {
    *lead = {2, byte & 0x0Fu, 0x800};
  } else if (byte >= 0xF0 && byte <= 0xF4) {
    *lead = {3, byte & 0x07u, 0x10000};
  } else {
    return false;
  }
  return true;
}

bool is_scalar(char32_t code) {
  return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

/// Decodes a well-formed multi-byte character; false if there is none.
bool decode_multi_byte(std::string_view text, char32_t* code, size_t* length) {
  TLead lead;
  if (!read_lead(static_cast<unsigned char>(text[0]), &lead)) return false;
  if (text.size() <= lead.following) return false;
  char32_t value = lead.bits;
  for (size_t i = 1; i <= lead.following; ++i) {
    const unsigned char byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0) != 0x80) return false;
    value = value << 6 | (byte & 0x3Fu);
  }
  if (value < lead.least || !is_scalar(value)) return false;
  *code = value;
  *length = lead.following + 1;
  return true;
}

}  // namespace

int32_t full_kana_index(std::string_view text) {
  for (int32_t i = 0; i < HALF_KANA_COUNT; ++i) {
    if (text.substr(0, KANA_BYTES) == full_kana(i)) return i;
  }
  return -1;
}

void append_utf8(std::string* text, char32_t code) {
  if (!is_scalar(code)) code = REPLACEMENT;
  if (code < 0x80) {
    text->push_back(static_cast<char>(code));
    return;
  }
  const int following = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
  const unsigned marks[] = {0xC0, 0xE0, 0xF0};
  text->push_back(static_cast<char>(marks[following - 1] | code >> (6 * following)));
  for (int i = following - 1; i >= 0; --i)
    text->push_back(static_cast<char>(0x80 | (code >> (6 * i) & 0x3F)));
}

char32_t decode_utf8(std::string_view text, size_t* length) {
  *length = text.empty() ? 0 : 1;
  if (text.empty()) return REPLACEMENT;
  const unsigned char first = static_cast<unsigned char>(text[0]);
  if (first < 0x80) return first;
  char32_t code = REPLACEMENT;
  decode_multi_byte(text, &code, length);
  return code;
}

bool is_utf8(std::string_view text) {
  char32_t code = 0;
  for (size_t at = 0; at < text.size();) {
    size_t length = 1;
    const bool ascii = static_cast<unsigned char>(text[at]) < 0x80;
    if (!ascii && !decode_multi_byte(text.substr(at), &code, &length)) return false;
    at += length;
  }
  return true;
}

}  // namespace zoka
