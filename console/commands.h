// The commands of `zoka`, each a function from a parsed command line to an exit status.
#pragma once

#include "console/options.h"

namespace zoka {

int run_command(const TOptions& options);
int check_command(const TOptions& options);
int code_command(const TOptions& options);
int list_command(const TOptions& options);
int renumber_command(const TOptions& options);
int play_command(const TOptions& options);

/// Writes `text` to standard output; EXIT_OK, EXIT_PIPE if its reader is gone, or EXIT_OUTPUT after
/// a line that says so.
int write_output(std::string_view text);

/// Says on standard error that `what` could not be written; EXIT_OUTPUT.
int report_unwritten(const std::string& what);

}  // namespace zoka
