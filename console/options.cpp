// The option table of `zoka` and its parser. One row an option: help and checks are made from it.
#include "console/options.h"

#include <charconv>
#include <chrono>
#include <string_view>

#include "app/settings/prefs.h"
#include "common/context.h"
#include "common/text/ascii.h"
#include "common/text/number.h"
#include "run/screen/file_drives.h"

namespace zoka {
namespace {

/// Commands as bits, for the option rows.
enum TCommandBit : uint32_t {
  FOR_RUN = 1,
  FOR_CHECK = 2,
  FOR_CODE = 4,
  FOR_LIST = 8,
  FOR_RENUMBER = 16,
  FOR_PLAY = 32,
  FOR_FILES = FOR_RUN | FOR_CHECK | FOR_CODE | FOR_LIST | FOR_RENUMBER,
  FOR_ALL = FOR_FILES | FOR_PLAY,
};

struct TCommandRow {
  const char* name;
  TCommand command;
  uint32_t bit;
  const char* operand;
  const char* does;
};
constexpr TCommandRow COMMANDS[] = {
    {"run", TCommand::Run, FOR_RUN, "FILE", "loads, compiles and runs a program list"},
    {"check", TCommand::Check, FOR_CHECK, "FILE", "loads and compiles only"},
    {"code", TCommand::Code, FOR_CODE, "FILE", "compiles and prints the VM code, a record a line"},
    {"list", TCommand::List, FOR_LIST, "FILE",
     "prints a list in any encoding or tokenised form as UTF-8"},
    {"renumber", TCommand::Renumber, FOR_RENUMBER, "FILE", "prints the list with new line numbers"},
    {"play", TCommand::Play, FOR_PLAY, "MML...", "plays up to six MML strings, channel 1 first"},
};

constexpr size_t MAX_MML_STRINGS = 6;
constexpr double MAX_TIMEOUT_SECONDS = 1e9;

bool parse_int(const std::string& text, int32_t low, int32_t high, int32_t* value) {
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), *value);
  return error == std::errc() && end == text.data() + text.size() && *value >= low &&
         *value <= high;
}

/// A word that an option's value may be, and what it stands for.
template <typename T>
struct TChoice {
  std::string_view word;
  T meaning;
};

template <typename T, size_t N>
bool set_choice(const TChoice<T> (&choices)[N], std::string_view value, T* meaning) {
  for (const TChoice<T>& choice : choices) {
    if (choice.word != value) continue;
    *meaning = choice.meaning;
    return true;
  }
  return false;
}

bool set_language(TOptions* options, const std::string& value) {
  constexpr TChoice<TLanguage> LANGUAGES[] = {
      {"en", TLanguage::English}, {"ja", TLanguage::Japanese}, {"keys", TLanguage::Keys}};
  return set_choice(LANGUAGES, value, &options->language);
}

bool set_encoding(TOptions* options, const std::string& value) {
  constexpr TChoice<int32_t> ENCODINGS[] = {{"auto", ENCODING_AUTO},
                                            {"utf8", ENCODING_UTF8},
                                            {"sjis", ENCODING_SJIS},
                                            {"jis", ENCODING_JIS}};
  return set_choice(ENCODINGS, value, &options->encoding.emplace());
}

bool set_compat(TOptions* options, const std::string& value) {
  constexpr TChoice<int32_t> MODES[] = {
      {"auto", COMPAT_AUTO}, {"disk", COMPAT_DISK}, {"dos", COMPAT_DOS}};
  return set_choice(MODES, value, &options->compat.emplace());
}

bool set_config(TOptions* options, const std::string& value) {
  options->noConfig = value == "none";
  options->configFolder = options->noConfig ? "" : value;
  return !value.empty();
}

bool set_type(TOptions* options, const std::string& value) {
  options->typed.push_back(value);
  return true;
}

bool set_drive(TOptions* options, const std::string& value) {
  size_t equal = value.find('=');
  int32_t drive = 0;
  if (equal == value.npos || equal + 1 == value.size()) return false;
  if (!parse_int(value.substr(0, equal), 1, DRIVE_COUNT, &drive)) return false;
  options->drives[drive] = value.substr(equal + 1);
  return true;
}

bool set_start(TOptions* options, const std::string& value) {
  options->start = value;
  return !value.empty();
}

bool set_timeout(TOptions* options, const std::string& value) {
  double seconds = 0;
  auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), seconds);
  if (error != std::errc() || end != value.data() + value.size()) return false;
  if (!(seconds >= 0) || seconds > MAX_TIMEOUT_SECONDS) return false;
  options->timeoutSeconds = seconds;
  return true;
}

bool set_screenshot(TOptions* options, const std::string& value) {
  options->screenshot = value;
  return !value.empty();
}
bool set_midi(TOptions* options, const std::string& value) {
  options->midi = value;
  return !value.empty();
}
bool set_wav(TOptions* options, const std::string& value) {
  options->wav = value;
  return !value.empty();
}
bool set_no_wait(TOptions* options, const std::string&) {
  return options->noWait = true;
}
bool set_boot(TOptions* options, const std::string&) {
  return options->boot = true;
}
bool set_plain(TOptions* options, const std::string&) {
  return options->plain = true;
}

/// True if `value` has a digit for each 9 of `pattern` and is equal to it elsewhere.
bool has_pattern(std::string_view value, std::string_view pattern) {
  if (value.size() != pattern.size()) return false;
  for (size_t i = 0; i < value.size(); ++i) {
    if (pattern[i] == '9' ? !is_digit(value[i]) : value[i] != pattern[i]) return false;
  }
  return true;
}

bool set_clock(TOptions* options, const std::string& value) {
  if (!has_pattern(value, "9999-99-99T99:99:99")) return false;
  auto part = [&](size_t at, size_t digits) { return parse_long(value.substr(at, digits)); };
  TLocalTime time{part(0, 4), part(5, 2), part(8, 2), part(11, 2), part(14, 2), part(17, 2)};
  const std::chrono::year_month_day date{std::chrono::year(time.year),
                                         std::chrono::month(static_cast<unsigned>(time.month)),
                                         std::chrono::day(static_cast<unsigned>(time.day))};
  if (!date.ok() || time.hour > 23 || time.minute > 59 || time.second > 59) return false;
  options->clock = time;
  return true;
}

bool set_line(int32_t* target, const std::string& value) {
  return parse_int(value, 1, INT32_MAX, target);
}
bool set_new(TOptions* options, const std::string& value) {
  return set_line(&options->newLine, value);
}
bool set_old(TOptions* options, const std::string& value) {
  return set_line(&options->oldLine, value);
}
bool set_step(TOptions* options, const std::string& value) {
  return set_line(&options->step, value);
}

struct TOptionRow {
  const char* name;
  uint32_t commands;
  /// What its value is, as the help shows it; null for a switch.
  const char* value;
  const char* meaning;
  bool (*set)(TOptions*, const std::string&);
};
constexpr TOptionRow OPTIONS[] = {
    {"--lang", FOR_ALL, "en|ja|keys", "language of messages", set_language},
    {"--encoding", FOR_FILES, "auto|utf8|sjis|jis", "encoding of the list", set_encoding},
    {"--compat", FOR_RUN | FOR_CHECK | FOR_CODE, "auto|disk|dos", "compatibility mode", set_compat},
    {"--config", FOR_ALL, "DIR|none", "folder of the settings; none: built-in defaults",
     set_config},
    {"--type", FOR_RUN, "TEXT", "keys to type; may be repeated", set_type},
    {"--drive", FOR_RUN, "N=DIR", "folder of drive N (1 to 14)", set_drive},
    {"--start", FOR_RUN, "LINE|*LABEL", "start there", set_start},
    {"--timeout", FOR_RUN | FOR_CHECK | FOR_CODE, "SECONDS", "stop by force after that time",
     set_timeout},
    {"--screenshot", FOR_RUN, "FILE.png", "at the end, the screen as a picture", set_screenshot},
    {"--midi", FOR_RUN | FOR_PLAY, "FILE.mid", "the music as a Standard MIDI File", set_midi},
    {"--wav", FOR_RUN | FOR_PLAY, "FILE.wav", "the music as sound", set_wav},
    {"--no-wait", FOR_RUN | FOR_PLAY, nullptr, "simulated time: waits take none", set_no_wait},
    {"--clock", FOR_RUN, "YYYY-MM-DDTHH:MM:SS", "local time at the start of the run", set_clock},
    {"--boot", FOR_RUN, nullptr, "the boot text first", set_boot},
    {"--plain", FOR_RUN, nullptr, "execute single records, not the faster form", set_plain},
    {"--new", FOR_RENUMBER, "N", "first new line number (10)", set_new},
    {"--old", FOR_RENUMBER, "N", "first old line number that changes (1)", set_old},
    {"--step", FOR_RENUMBER, "N", "step between line numbers (10)", set_step},
};

const TCommandRow* find_command(const std::string& name) {
  for (const TCommandRow& row : COMMANDS) {
    if (name == row.name) return &row;
  }
  return nullptr;
}

std::string option_usage(const TOptionRow& row) {
  std::string usage = row.name;
  if (row.value != nullptr) usage += std::string(" ") + row.value;
  return usage;
}

std::string accepted_options(const TCommandRow& command) {
  std::string list;
  for (const TOptionRow& row : OPTIONS) {
    if (row.commands & command.bit) list += " [" + option_usage(row) + "]";
  }
  return std::string("usage: zoka ") + command.name + " " + command.operand + list;
}

std::string accepted_commands() {
  std::string list = "usage: zoka";
  for (const TCommandRow& row : COMMANDS) {
    list += std::string(&row == COMMANDS ? " " : "|") + row.name;
  }
  return list + " ..., zoka --help, zoka --version";
}

/// The option row named by an argument, for a command that takes it; null otherwise.
const TOptionRow* find_option(const std::string& name, const TCommandRow& command) {
  for (const TOptionRow& row : OPTIONS) {
    if (name == row.name && (row.commands & command.bit)) return &row;
  }
  return nullptr;
}

/// Takes one option, and its value from behind `=` or from the next argument.
bool take_option(const std::vector<std::string>& arguments, size_t* index,
                 const TCommandRow& command, TOptions* options) {
  std::string name = arguments[*index];
  std::optional<std::string> value;
  if (size_t equal = name.find('='); equal != name.npos) {
    value = name.substr(equal + 1);
    name.resize(equal);
  }
  const TOptionRow* row = find_option(name, command);
  if (row == nullptr) return false;
  if (row->value == nullptr) return !value && row->set(options, "");
  if (!value) {
    if (*index + 1 >= arguments.size()) return false;
    value = arguments[++*index];
  }
  return row->set(options, *value);
}

bool check_operands(const TCommandRow& command, const std::vector<std::string>& operands,
                    TOptions* options) {
  if (command.command == TCommand::Play) {
    options->mml = operands;
    return !operands.empty() && operands.size() <= MAX_MML_STRINGS;
  }
  if (operands.size() != 1) return false;
  options->file = operands[0];
  return true;
}

bool parse_command(const std::vector<std::string>& arguments, const TCommandRow& command,
                   TOptions* options) {
  std::vector<std::string> operands;
  bool onlyOperands = false;
  for (size_t i = 1; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (!onlyOperands && argument == "--") {
      onlyOperands = true;
    } else if (!onlyOperands && (argument == "--help" || argument == "-h")) {
      options->command = TCommand::Help;
      options->helpFor = command.name;
      return true;
    } else if (!onlyOperands && argument.size() > 1 && argument[0] == '-') {
      if (!take_option(arguments, &i, command, options)) return false;
    } else {
      operands.push_back(argument);
    }
  }
  options->command = command.command;
  return check_operands(command, operands, options);
}

}  // namespace

bool parse_options(const std::vector<std::string>& arguments, TOptions* options,
                   std::string* error) {
  options->language = TCatalogue::FromEnvironment();
  *error = accepted_commands();
  if (arguments.empty()) return false;
  if (arguments[0] == "--help" || arguments[0] == "-h" || arguments[0] == "help") return true;
  if (arguments[0] == "--version") {
    options->command = TCommand::Version;
    return true;
  }
  const TCommandRow* command = find_command(arguments[0]);
  if (command == nullptr) return false;
  *error = accepted_options(*command);
  return parse_command(arguments, *command, options);
}

std::string help_text(const std::string& commandName) {
  std::string text;
  const TCommandRow* command = find_command(commandName);
  if (command == nullptr) {
    text = std::string(APP_NAME) + " " + APP_VERSION + ": runs programs of a classic BASIC\n\n";
    for (const TCommandRow& row : COMMANDS) {
      text += std::string("  zoka ") + row.name + " " + row.operand + "\n      " + row.does + "\n";
    }
    return text + "\nFILE may be - for standard input. `zoka COMMAND --help` lists its options.\n";
  }
  text = std::string("zoka ") + command->name + " " + command->operand + "\n  " + command->does +
         "\n\n";
  for (const TOptionRow& row : OPTIONS) {
    if (row.commands & command->bit) {
      text += "  " + option_usage(row) + "\n      " + row.meaning + "\n";
    }
  }
  return text;
}

}  // namespace zoka
