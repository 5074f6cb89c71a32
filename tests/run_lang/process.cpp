// Starts a child process with its standard files redirected and waits for it.
#include "tests/run_lang/process.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "tests/run_lang/lang_case.h"

namespace zoka {

namespace {

/// A program that prints without end must not fill the disk before its time is over.
constexpr rlim_t MAX_FILE_BYTES = 256u << 20;
constexpr int STATUS_NOT_STARTED = 127;
constexpr int SIGNAL_STATUS = 128;

/// Variables of the caller that must not reach a test.
const char* const HIDDEN_VARIABLES[] = {"LC_", "LANG", "HOME=", "XDG_", "TZ=", "DISPLAY="};

bool is_hidden(const char* variable) {
  for (const char* prefix : HIDDEN_VARIABLES) {
    if (std::strncmp(variable, prefix, std::strlen(prefix)) == 0) {
      return true;
    }
  }
  return false;
}

std::vector<std::string> make_environment(const std::filesystem::path& home) {
  std::vector<std::string> variables = {"LC_ALL=C.UTF-8", "TZ=UTC", "HOME=" + home.string()};
  for (char** variable = environ; *variable != nullptr; ++variable) {
    if (!is_hidden(*variable)) {
      variables.emplace_back(*variable);
    }
  }
  return variables;
}

std::vector<char*> pointers_to(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) {
    pointers.push_back(text.data());
  }
  pointers.push_back(nullptr);
  return pointers;
}

/// What the child needs; made before the fork, since nothing may be allocated after it.
struct TChild {
  std::vector<char*> arguments;
  std::vector<char*> variables;
  std::string folder;
  std::string out;
  std::string err;
  unsigned seconds;
};

void redirect(const char* path, int flags, int descriptor) {
  const int file = open(path, flags, 0600);
  if (file < 0 || dup2(file, descriptor) < 0) {
    _exit(STATUS_NOT_STARTED);
  }
}

[[noreturn]] void become(const TChild& child) {
  redirect("/dev/null", O_RDONLY, STDIN_FILENO);
  redirect(child.out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
  redirect(child.err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
  const rlimit limit = {MAX_FILE_BYTES, MAX_FILE_BYTES};
  setrlimit(RLIMIT_FSIZE, &limit);
  if (chdir(child.folder.c_str()) == 0) {
    alarm(child.seconds);
    execve(child.arguments[0], child.arguments.data(), child.variables.data());
  }
  _exit(STATUS_NOT_STARTED);
}

int wait_for(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) {
      throw std::runtime_error("waitpid failed");
    }
  }
  return WIFSIGNALED(status) ? SIGNAL_STATUS + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace

TProcessResult run_process(const std::vector<std::string>& command,
                           const std::filesystem::path& folder,
                           const std::filesystem::path& scratch, unsigned seconds) {
  std::vector<std::string> arguments = command;
  std::vector<std::string> variables = make_environment(scratch);
  const TChild child = {
      pointers_to(arguments),        pointers_to(variables),        folder.string(),
      (scratch / "stdout").string(), (scratch / "stderr").string(), seconds};
  const pid_t process = fork();
  if (process < 0) {
    throw std::runtime_error("fork failed");
  }
  if (process == 0) {
    become(child);
  }
  const int status = wait_for(process);
  if (status == STATUS_NOT_STARTED) {
    throw std::runtime_error("cannot start " + command[0]);
  }
  return {status, read_file(child.out), read_file(child.err)};
}

}  // namespace zoka
