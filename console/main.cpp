// The console tool `zoka`: from arguments to exit status.
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include "common/context.h"
#include "common/last_acts.h"
#include "console/commands.h"
#include "console/console_host.h"
#include "console/terminal.h"
#include "sound/alsa_client.h"

namespace {

int dispatch(const zoka::TOptions& options) {
  using zoka::TCommand;
  switch (options.command) {
    case TCommand::Help:
      return zoka::write_output(zoka::help_text(options.helpFor));
    case TCommand::Version:
      return zoka::write_output(std::string("zoka ") + zoka::APP_VERSION + "\n");
    case TCommand::Run:
      return zoka::run_command(options);
    case TCommand::Check:
      return zoka::check_command(options);
    case TCommand::Code:
      return zoka::code_command(options);
    case TCommand::List:
      return zoka::list_command(options);
    case TCommand::Renumber:
      return zoka::renumber_command(options);
    case TCommand::Play:
      return zoka::play_command(options);
  }
  return zoka::EXIT_USAGE;
}

/// Keeps the numbers of closed standard files from files that are opened later, which would then
/// be taken for them. They stay files on which each read or write fails.
void hold_standard_files() {
  for (int fd : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(fd, F_GETFD) >= 0) continue;
    // The lowest free number is this one.
    [[maybe_unused]] int held = ::open("/dev/null", fd == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace

int main(int argc, char** argv) {
  hold_standard_files();
  // A reader that goes away is noticed where the output is written.
  ::signal(SIGPIPE, SIG_IGN);
  // So is a file that grows beyond its limit: the write fails as on a full disk.
  ::signal(SIGXFSZ, SIG_IGN);
  zoka::do_in_crash({zoka::TTerminal::Restore, zoka::silence_alsa_in_crash});
  zoka::TOptions options;
  std::string error;
  if (!zoka::parse_options(std::vector<std::string>(argv + 1, argv + argc), &options, &error)) {
    zoka::write_all(STDERR_FILENO, error + "\n");
    return zoka::EXIT_USAGE;
  }
  return dispatch(options);
}
