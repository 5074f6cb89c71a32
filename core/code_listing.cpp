// The listing of compiled code: numbers and texts of the records in a form that people and tests
// read. It depends on no locale.
#include "core/code_listing.h"

#include <charconv>
#include <string_view>

namespace zoka {
namespace {

constexpr char HEX_DIGITS[] = "0123456789ABCDEF";

/// Digits that tell any double apart.
constexpr int REAL_DIGITS = 17;

void append_number(std::string* out, uint32_t number) {
  *out += "0x";
  for (int shift = 12; shift >= 0; shift -= 4) *out += HEX_DIGITS[number >> shift & 0xF];
}

void append_real(std::string* out, double value) {
  char buffer[64];
  const auto result =
      std::to_chars(buffer, std::end(buffer), value, std::chars_format::general, REAL_DIGITS);
  out->append(buffer, result.ptr);
}

/// Control characters that have a short escape, and its letter.
constexpr std::string_view ESCAPED_CONTROLS = "\a\b\t\n\v\f\r";
constexpr std::string_view ESCAPE_LETTERS = "abtnvfr";

/// The letter of a control character's short escape, 0 if it has none.
char escape_letter(char c) {
  const size_t place = ESCAPED_CONTROLS.find(c);
  return place == std::string_view::npos ? '\0' : ESCAPE_LETTERS[place];
}

void append_escaped(std::string* out, char c) {
  const auto byte = static_cast<unsigned char>(c);
  if (c == '"' || c == '\\') {
    *out += {'\\', c};
  } else if (byte >= 0x20 && byte != 0x7F) {
    *out += c;
  } else if (const char letter = escape_letter(c); letter != '\0') {
    *out += {'\\', letter};
  } else {
    // Three octal digits end by themselves, whatever follows.
    for (char digit :
         {'\\', HEX_DIGITS[byte >> 6], HEX_DIGITS[byte >> 3 & 7], HEX_DIGITS[byte & 7]}) {
      *out += digit;
    }
  }
}

void append_text(std::string* out, std::string_view text) {
  *out += '"';
  for (char c : text) append_escaped(out, c);
  *out += '"';
}

void append_operand(std::string* out, TOperandKind kind, const TVMCode& code) {
  if (kind == TOperandKind::None) return;
  *out += ' ';
  switch (kind) {
    case TOperandKind::Long:
      *out += std::to_string(code.lval());
      break;
    case TOperandKind::Bool:
      *out += code.bval() ? '1' : '0';
      break;
    case TOperandKind::Float:
      append_real(out, static_cast<double>(code.fval()));
      break;
    case TOperandKind::Double:
      append_real(out, code.dval());
      break;
    case TOperandKind::Str:
      append_text(out, code.str()->View());
      break;
    case TOperandKind::Var:
      *out += "var:" + code.varInfo()->name;
      break;
    case TOperandKind::None:
      break;
  }
}

}  // namespace

std::string code_record_text(int32_t index, const TVMCode& code) {
  std::string line = std::to_string(index) + ' ';
  append_number(&line, code.Number());
  const TOperationRow* row = find_operation(code.Cmd());
  line += ' ';
  line += row == nullptr ? "-" : row->name;
  if (row != nullptr) append_operand(&line, row->operand, code);
  return line;
}

std::string code_listing(const TMidCode& program) {
  std::string listing;
  for (size_t i = 0; i < program.mCodes.size(); ++i) {
    listing += code_record_text(static_cast<int32_t>(i), program.mCodes[i]) + '\n';
  }
  return listing;
}

}  // namespace zoka
