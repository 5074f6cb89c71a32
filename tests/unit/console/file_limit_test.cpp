// Files that may grow no further: a limit on their size says so by a signal, which must not kill.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <optional>

#include "tests/support/temp_folder.h"
#include "tests/unit/console/tool.h"

namespace zoka {
namespace {

/// Processes that are started meanwhile may write files up to `bytes`; they ignore no signal yet.
class TFileLimit {
 public:
  explicit TFileLimit(rlim_t bytes) : mHandler(std::signal(SIGXFSZ, SIG_DFL)) {
    getrlimit(RLIMIT_FSIZE, &mBefore);
    rlimit limit = mBefore;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~TFileLimit() {
    setrlimit(RLIMIT_FSIZE, &mBefore);
    std::signal(SIGXFSZ, mHandler);
  }
  TFileLimit(const TFileLimit&) = delete;
  TFileLimit& operator=(const TFileLimit&) = delete;

 private:
  void (*mHandler)(int);
  rlimit mBefore{};
};

TEST(ToolFileLimit, APrintThatFindsNoRoomIsAFaultOfTheProgram) {
  const TTempFolder folder;
  folder.Write("a.bas",
               "10 OPEN \"OUT\" FOR OUTPUT AS #1\n"
               "20 FOR I=1 TO 100:PRINT #1,\"12345678\":PRINT I;:NEXT\n");
  std::optional<TFileLimit> limit(25);
  TTool tool({"run", "a.bas", "--lang", "keys", "--config", "none"}, folder.Path());
  limit.reset();
  tool.EndInput();
  EXPECT_EQ(tool.End(), 1);
  // Two items of ten bytes go in whole; of the third as much as there is room for.
  EXPECT_EQ(tool.out, " 1  2 @Runtime_Err_Cannot_Open_File@ in 20\nOk\n");
  EXPECT_EQ(folder.Read("OUT"), "12345678\r\n12345678\r\n12345");
}

TEST(ToolFileLimit, OutputThatFindsNoRoomIsTold) {
  const TTempFolder folder;
  folder.Write("a.bas", "10 REM 1234567890\n20 REM 1234567890\n");
  folder.Write("out", "");
  std::optional<TFileLimit> limit(20);
  TTool tool({"list", "a.bas", "--config", "none"}, folder.Path(), folder.Path("out").c_str());
  limit.reset();
  EXPECT_EQ(tool.End(), 74);
  EXPECT_EQ(tool.err, "zoka: cannot write standard output\n");
  EXPECT_EQ(folder.Read("out"), "10 REM 1234567890\n20");
}

}  // namespace
}  // namespace zoka
