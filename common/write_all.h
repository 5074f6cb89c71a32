// Writing to a file descriptor, however much it takes at a time.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <string_view>

namespace zoka {

/// Writes all bytes to a file descriptor; false with errno set if it cannot. Any thread.
inline bool write_all(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return true;
}

}  // namespace zoka
