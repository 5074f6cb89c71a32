// Runs the console tool as its users do: as a process of its own, with pipes on its standard files.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <string_view>
#include <vector>

namespace zoka {

/// One process of the tool. A call that the tool does not answer fails the test by its time limit.
class TTool {
 public:
  /// `folder`: where it works. `outPath`: a file for its standard output in place of the pipe.
  explicit TTool(const std::vector<std::string>& arguments, const std::string& folder = ".",
                 const char* outPath = nullptr) {
    int keys[2], rows[2], alerts[2];
    EXPECT_EQ(::pipe2(keys, O_CLOEXEC) | ::pipe2(rows, O_CLOEXEC) | ::pipe2(alerts, O_CLOEXEC), 0);
    if (outPath != nullptr) {
      ::close(rows[1]);
      rows[1] = ::open(outPath, O_WRONLY | O_CLOEXEC);
    }
    std::vector<std::string> words = arguments;
    words.insert(words.begin(), ZOKA_TOOL);
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    mProcess = ::fork();
    if (mProcess == 0) {
      ::alarm(LIMIT_SECONDS);
      if (::dup2(keys[0], 0) == 0 && ::dup2(rows[1], 1) == 1 && ::dup2(alerts[1], 2) == 2 &&
          ::chdir(folder.c_str()) == 0) {
        ::execv(pointers[0], pointers.data());
      }
      ::_exit(127);
    }
    for (int fd : {keys[0], rows[1], alerts[1]}) ::close(fd);
    mIn = keys[1];
    mOut = rows[0];
    mErr = alerts[0];
  }
  ~TTool() {
    for (int* fd : {&mIn, &mOut, &mErr}) Close(*fd);
    if (mProcess > 0) ::waitpid(mProcess, nullptr, 0);
  }
  TTool(const TTool&) = delete;
  TTool& operator=(const TTool&) = delete;

  void Type(std::string_view bytes) {
    EXPECT_EQ(::write(mIn, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  /// No more keys come.
  void EndInput() { Close(mIn); }
  /// The reader of its output goes away.
  void CloseOutput() { Close(mOut); }
  void Signal(int number) const { ::kill(mProcess, number); }
  /// Reads its output until `text` has come.
  void Await(std::string_view text) {
    while (out.find(text) == std::string::npos) {
      char buffer[4096];
      ssize_t size = ::read(mOut, buffer, sizeof buffer);
      ASSERT_GT(size, 0) << "the output ended without " << text;
      out.append(buffer, static_cast<size_t>(size));
    }
  }
  /// Waits for its end and returns its exit status, or 1000 and the signal that it died of.
  int End() {
    ReadRest();
    int status = 0;
    ::waitpid(mProcess, &status, 0);
    mProcess = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
  }

  std::string out, err;

 private:
  static constexpr unsigned LIMIT_SECONDS = 60;

  static void Close(int& fd) {
    if (fd >= 0) ::close(fd);
    fd = -1;
  }
  static void Drain(pollfd* from, std::string* to) {
    if (from->revents == 0) return;
    char buffer[4096];
    ssize_t size = ::read(from->fd, buffer, sizeof buffer);
    if (size > 0) {
      to->append(buffer, static_cast<size_t>(size));
    } else {
      from->fd = -1;
    }
  }
  void ReadRest() {
    pollfd fds[2] = {{mOut, POLLIN, 0}, {mErr, POLLIN, 0}};
    while (fds[0].fd >= 0 || fds[1].fd >= 0) {
      if (::poll(fds, 2, -1) < 0) continue;
      Drain(&fds[0], &out);
      Drain(&fds[1], &err);
    }
  }

  pid_t mProcess = -1;
  int mIn = -1, mOut = -1, mErr = -1;
};

}  // namespace zoka
