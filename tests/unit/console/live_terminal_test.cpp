// The console tool in a terminal: what it shows, the keys that it takes, and that the terminal is
// as it was after each kind of end. Its parts are tested by themselves in terminal_*_test.cpp.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <cstring>

#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

/// The tool in a new terminal, below a process that stands for the shell: a stopped process needs
/// one that could continue it. A call that the tool does not answer fails by the tool's time limit.
class TTerminalRun {
 public:
  TTerminalRun(const std::string& folder, const std::string& file) {
    mMaster = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    EXPECT_EQ(::grantpt(mMaster) | ::unlockpt(mMaster), 0);
    std::string name = ::ptsname(mMaster);
    mSlave = ::open(name.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    winsize size{30, 100, 0, 0};
    ::ioctl(mMaster, TIOCSWINSZ, &size);
    ::tcgetattr(mSlave, &mBefore);
    int states[2];
    EXPECT_EQ(::pipe2(states, O_CLOEXEC), 0);
    mShell = ::fork();
    if (mShell == 0) BeShell(name, folder, file, states[1]);
    ::close(states[1]);
    mStates = states[0];
    mTool = NextState();
  }
  ~TTerminalRun() {
    ::kill(mTool, SIGKILL);
    ::waitpid(mShell, nullptr, 0);
    for (int fd : {mMaster, mSlave, mStates}) ::close(fd);
  }
  TTerminalRun(const TTerminalRun&) = delete;
  TTerminalRun& operator=(const TTerminalRun&) = delete;

  void Type(std::string_view bytes) {
    EXPECT_EQ(::write(mMaster, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  void Signal(int number) const { ::kill(mTool, number); }
  /// Reads what is shown until `text` comes, and forgets it.
  void Await(std::string_view text) {
    while (mShown.find(text) == std::string::npos) {
      char buffer[4096];
      ssize_t size = ::read(mMaster, buffer, sizeof buffer);
      ASSERT_GT(size, 0) << "the terminal closed without " << text << " after " << mShown;
      mShown.append(buffer, static_cast<size_t>(size));
    }
    mShown.erase(0, mShown.find(text) + text.size());
  }
  /// The next status of the tool as waitpid gives it: stopped or ended.
  int NextState() {
    int state = -1;
    EXPECT_EQ(::read(mStates, &state, sizeof state), static_cast<ssize_t>(sizeof state));
    return state;
  }
  /// True if the terminal is in the mode that it had before the tool started.
  bool IsRestored() const {
    termios now{};
    ::tcgetattr(mSlave, &now);
    return now.c_iflag == mBefore.c_iflag && now.c_oflag == mBefore.c_oflag &&
           now.c_cflag == mBefore.c_cflag && now.c_lflag == mBefore.c_lflag &&
           std::memcmp(now.c_cc, mBefore.c_cc, sizeof now.c_cc) == 0;
  }

 private:
  static constexpr unsigned LIMIT_SECONDS = 60;

  [[noreturn]] static void BeTool(const std::string& folder, const std::string& file) {
    ::setpgid(0, 0);
    ::signal(SIGTTOU, SIG_IGN);
    ::tcsetpgrp(0, ::getpid());
    ::signal(SIGTTOU, SIG_DFL);
    ::alarm(LIMIT_SECONDS);
    if (::chdir(folder.c_str()) == 0) {
      ::execl(ZOKA_TOOL, ZOKA_TOOL, "run", file.c_str(), "--lang", "keys", "--config", "none",
              nullptr);
    }
    ::_exit(127);
  }
  [[noreturn]] static void BeShell(const std::string& terminal, const std::string& folder,
                                   const std::string& file, int states) {
    ::setsid();
    int fd = ::open(terminal.c_str(), O_RDWR);
    ::ioctl(fd, TIOCSCTTY, 0);
    for (int standard : {0, 1, 2}) ::dup2(fd, standard);
    int state = ::fork();
    if (state == 0) BeTool(folder, file);
    pid_t tool = state;
    do {
      if (::write(states, &state, sizeof state) < 0) break;
    } while (::waitpid(tool, &state, WUNTRACED) > 0);
    ::_exit(0);
  }

  int mMaster = -1, mSlave = -1, mStates = -1;
  pid_t mShell = -1, mTool = -1;
  termios mBefore{};
  std::string mShown;
};

class LiveTerminal : public ::testing::Test {
 protected:
  void SetUp() override {
    folder.Write("square.bas", "10 INPUT \"N\";A\n20 PRINT A*A\n");
    folder.Write("endless.bas", "10 PRINT \"go\"\n20 GOTO 20\n");
  }

  TTempFolder folder;
};

TEST_F(LiveTerminal, KeysReachInputAndItsAnswerTheScreen) {
  TTerminalRun run(folder.Path(), "square.bas");
  run.Await("N? ");
  EXPECT_FALSE(run.IsRestored());
  run.Type("5\r");
  run.Await(" 25");
  int state = run.NextState();
  EXPECT_TRUE(WIFEXITED(state) && WEXITSTATUS(state) == 0);
  EXPECT_TRUE(run.IsRestored());
}

TEST_F(LiveTerminal, CursorKeysEditTheLine) {
  TTerminalRun run(folder.Path(), "square.bas");
  run.Await("N? ");
  run.Type("19\x1b[D\x1b[D\x1b[3~\r");
  run.Await(" 81");
  EXPECT_EQ(WEXITSTATUS(run.NextState()), 0);
}

TEST_F(LiveTerminal, ControlCIsTheBreakKey) {
  TTerminalRun run(folder.Path(), "endless.bas");
  run.Await("go");
  run.Type("\x03");
  run.Await("@Runtime_Err_Stop_Break@ in 20");
  EXPECT_EQ(WEXITSTATUS(run.NextState()), 1);
  EXPECT_TRUE(run.IsRestored());
}

TEST_F(LiveTerminal, ASignalThatEndsTheRunGivesTheTerminalBack) {
  for (int number : {SIGINT, SIGTERM, SIGHUP}) {
    TTerminalRun run(folder.Path(), "endless.bas");
    run.Await("go");
    run.Signal(number);
    EXPECT_EQ(WEXITSTATUS(run.NextState()), 128 + number);
    EXPECT_TRUE(run.IsRestored()) << number;
  }
}

TEST_F(LiveTerminal, ACrashGivesTheTerminalBack) {
  TTerminalRun run(folder.Path(), "endless.bas");
  run.Await("go");
  run.Signal(SIGABRT);
  int state = run.NextState();
  EXPECT_TRUE(WIFSIGNALED(state) && WTERMSIG(state) == SIGABRT);
  EXPECT_TRUE(run.IsRestored());
}

TEST_F(LiveTerminal, SuspendedTheTerminalIsFreeAndContinuedTheScreenComesBack) {
  TTerminalRun run(folder.Path(), "square.bas");
  run.Await("N? ");
  for (bool byKey : {true, false, true}) {
    byKey ? run.Type("\x1a") : run.Signal(SIGTSTP);
    EXPECT_TRUE(WIFSTOPPED(run.NextState()));
    EXPECT_TRUE(run.IsRestored());
    run.Signal(SIGCONT);
    run.Await("N? ");
    EXPECT_FALSE(run.IsRestored());
  }
  run.Type("7\r");
  run.Await(" 49");
  EXPECT_EQ(WEXITSTATUS(run.NextState()), 0);
  EXPECT_TRUE(run.IsRestored());
}

}  // namespace
}  // namespace zoka
