// The command line of `zoka`: what it accepts and what it means. Parsing only; nothing is opened.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "common/catalogue.h"
#include "common/clock.h"
#include "editor/renumber.h"

namespace zoka {

/// Exit statuses that are not a run's own.
enum TExitStatus : int {
  EXIT_OK = 0,
  EXIT_STOPPED = 1,
  EXIT_COMPILE_ERROR = 2,
  EXIT_NO_LIST = 3,
  EXIT_USAGE = 64,
  EXIT_OUTPUT = 74,
  EXIT_TIMEOUT = 124,
  EXIT_SIGNAL = 128,
  EXIT_PIPE = 141,
};

enum class TCommand : uint8_t { Help, Version, Run, Check, Code, List, Renumber, Play };

/// A parsed command line.
struct TOptions {
  TCommand command = TCommand::Help;
  /// The command whose help is wanted; empty for the general one.
  std::string helpFor;
  /// The list; "-" is standard input.
  std::string file;
  std::vector<std::string> mml;
  TLanguage language = TLanguage::English;
  /// A value of the Encoding menu; none: the stored preference.
  std::optional<int32_t> encoding;
  /// A COMPAT_ value; none: the stored preference.
  std::optional<int32_t> compat;
  bool noConfig = false;
  std::string configFolder;
  std::vector<std::string> typed;
  std::map<int32_t, std::string> drives;  // drive number to folder
  std::string start;
  std::optional<double> timeoutSeconds;
  std::string screenshot;
  std::string midi;
  std::string wav;
  bool noWait = false;
  std::optional<TLocalTime> clock;
  bool boot = false;
  bool plain = false;
  int32_t newLine = DEFAULT_NEW_LINE;
  int32_t oldLine = 1;
  int32_t step = DEFAULT_STEP;
};

/// Parses the arguments behind the program's name. On failure returns false with a line in `*error`
/// that says what is accepted.
bool parse_options(const std::vector<std::string>& arguments, TOptions* options,
                   std::string* error);

/// The help of a command, or the general one for an empty name.
std::string help_text(const std::string& command);

}  // namespace zoka
