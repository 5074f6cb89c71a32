// The alert's text of a fault.
#include "common/exception.h"

#include "common/catalogue.h"

namespace zoka {

namespace {

constexpr const char LINE_KEY[] = "Line: %Num%";
constexpr const char LINE_PLACEHOLDER[] = "%Num%";

std::string message_text(const TException& fault, const TCatalogue& catalogue) {
  std::string text = catalogue.GetString(fault.key);
  for (const auto& [placeholder, value] : fault.arguments) {
    text = replace_placeholder(std::move(text), placeholder, value);
  }
  return text;
}

std::string line_text(const std::string& line, const TCatalogue& catalogue) {
  return replace_placeholder(catalogue.GetString(LINE_KEY), LINE_PLACEHOLDER, line) + "\n";
}

}  // namespace

std::string exception_text(const TException& fault, const TCatalogue& catalogue) {
  const std::string message = message_text(fault, catalogue);
  if (fault.fault == TFault::Compile) {
    return catalogue.GetString("Compile Error") + "\n\n" + message + "\n\n" +
           line_text(fault.lineText, catalogue);
  }
  std::string text = catalogue.GetString("Runtime Error") + "\n\n" + message + ".\n\n";
  if (fault.ID != 0) text += line_text(std::to_string(fault.ID), catalogue);
  return text;
}

}  // namespace zoka
