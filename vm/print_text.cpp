// The formats of numbers and items.
#include "vm/print_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace zoka {
namespace {

constexpr int PRECISION = 6;
/// Below it a whole number has at most that many digits.
constexpr double WHOLE_LIMIT = 1e6;
/// Longest text of the general format with six digits: sign, digits, point, exponent.
constexpr size_t NUMBER_BUFFER = 32;

/// The number without its blanks, ElimZero applied.
std::string tidy_number(double value) {
  std::string text = general_format(value);
  ElimZero(&text);
  return text;
}

}  // namespace

std::string general_format(double value) {
  char buffer[NUMBER_BUFFER];
  // Most numbers of programs are whole; of those with up to six digits the format is the digits.
  if (std::fabs(value) < WHOLE_LIMIT && value != 0) {
    const auto whole = static_cast<int32_t>(value);
    if (static_cast<double>(whole) == value) {
      return {buffer, std::to_chars(buffer, buffer + sizeof buffer, whole).ptr};
    }
  }
  auto [end, error] =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, PRECISION);
  return {buffer, end};
}

void ElimZero(std::string* text) {
  if (text->find('.') == std::string::npos) return;
  while (!text->empty() && text->back() == '0') text->pop_back();
  if (!text->empty() && text->back() == '.') text->pop_back();
}

std::string GetPrintStrFromNum(double value) {
  std::string text = value >= 0 ? " " : "";
  return text + tidy_number(value) + " ";
}

std::string GetPrintStr(const TStackData& value, int32_t pad) {
  switch (value.kind) {
    case TStackKind::Int:
    case TStackKind::Float:
    case TStackKind::Double:
      return GetPrintStrFromNum(stack_double(value));
    case TStackKind::String:
      return std::string(value.View());
    case TStackKind::Special:
      return std::string(static_cast<size_t>(pad), ' ');
    default:
      return {};
  }
}

std::string GetWriteStr(const TStackData& value) {
  switch (value.kind) {
    case TStackKind::Int:
      return std::to_string(value.lval);
    case TStackKind::Float:
    case TStackKind::Double:
      return tidy_number(stack_double(value));
    case TStackKind::String:
      return '"' + std::string(value.View()) + '"';
    case TStackKind::Special:
      return ",";
    default:
      return {};
  }
}

std::string str_dl_text(double value) {
  return (value >= 0 ? " " : "-") + tidy_number(std::fabs(value));
}

std::string fill_using_format(std::string_view format, const std::vector<int32_t>& values) {
  std::string text;
  size_t next = 0;
  for (size_t pos = 0; pos < format.size();) {
    if (format[pos] != '#') {
      text += format[pos++];
      continue;
    }
    size_t end = format.find_first_not_of('#', pos);
    if (end == format.npos) end = format.size();
    std::string number = next < values.size() ? std::to_string(values[next++]) : "";
    size_t width = end - pos;
    text.append(std::max(width, number.size()) - number.size(), ' ');
    text += number;
    pos = end;
  }
  return text;
}

}  // namespace zoka
