// Doing something as a user without rights, where the test itself may read and write everything.
#pragma once

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace zoka {

/// Calls the function in a child process; true if it returned true. What it changes in memory, and
/// the checks that it makes, are lost: it answers by its result alone.
inline bool as_ordinary_user(const std::function<bool()>& body) {
  if (geteuid() != 0) return body();
  constexpr uid_t NOBODY = 65534;
  const pid_t child = fork();
  if (child == 0) {
    const bool changed = setgroups(0, nullptr) == 0 && setgid(NOBODY) == 0 && setuid(NOBODY) == 0;
    _exit(changed && body() ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace zoka
