// Runs one program to its end with its output kept in files. It knows nothing of tests.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zoka {

/// How a program ended and what it wrote.
struct TProcessResult {
  /// The exit status; 128 + n if signal n killed it, as shells say it.
  int status = 0;
  std::string out;
  std::string err;
};

/// Runs `command` (a program's path, then its arguments) in `folder`, without input, in a fixed
/// locale and time zone and with `scratch` as home; its output passes through files in `scratch`.
/// After `seconds` a signal ends it. Throws std::runtime_error if it cannot be started at all.
TProcessResult run_process(const std::vector<std::string>& command,
                           const std::filesystem::path& folder,
                           const std::filesystem::path& scratch, unsigned seconds);

}  // namespace zoka
