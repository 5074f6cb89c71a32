// TException: the one exception of compiler and machine. It carries the message's key and
// arguments, not its text: the text is made where it is shown.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zoka {

/// What kind of failure an exception reports; decides the alert's heading.
enum class TFault : uint8_t { Compile, Runtime };

/// Thrown by value, caught by reference.
struct TException {
  /// Placeholder and replacement, such as {"%Symbol%", "\\"}.
  using TArgument = std::pair<std::string, std::string>;

  TFault fault = TFault::Runtime;
  /// By convention the failing BASIC line; 0 where there is none.
  uint32_t ID = 0;
  /// Catalogue key, such as "@Compile_Err_Syntax_Err@".
  std::string key;
  std::vector<TArgument> arguments;
  /// The line number as the list spells it (compile errors; may be empty).
  std::string lineText;
  /// Byte range in the compiled text where the fault was noticed; -1 if unknown.
  int64_t beginPos = -1;
  int64_t endPos = -1;
};

class TCatalogue;

/// The alert's text of a fault: heading, two newlines, message, and the line where there is one,
/// ended by a newline, all in the catalogue's language.
std::string exception_text(const TException& fault, const TCatalogue& catalogue);

}  // namespace zoka
