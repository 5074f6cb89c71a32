// The console tool whose standard files were closed before it began.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <string>

#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

class ClosedFiles : public ::testing::Test {
 protected:
  /// Exit status of a run of `a.bas` by the shell, `redirection` behind it. A run that hangs is
  /// ended by its time limit, with status 124.
  int StatusOf(const std::string& redirection) {
    const std::string command =
        "cd '" + folder.Path() +
        "' && exec '" ZOKA_TOOL "' run a.bas --config none --lang keys --timeout 20 " + redirection;
    const int status = ::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  TTempFolder folder;
};

TEST_F(ClosedFiles, AWaitForKeysOfClosedInputIsStopped) {
  folder.Write("a.bas", "10 INPUT A\n20 GOTO 10\n");
  EXPECT_EQ(StatusOf("<&- >out 2>err"), 1);
  EXPECT_EQ(folder.Read("out"), "?\n@Runtime_Err_Stop_Break@ in 10\nOk\n");
  EXPECT_EQ(folder.Read("err"), "");
}

TEST_F(ClosedFiles, ClosedOutputCannotBeWritten) {
  folder.Write("a.bas",
               "10 OPEN \"F\" FOR OUTPUT AS #1\n20 PRINT \"A\":PRINT #1,\"B\"\n30 PRINT 1/0\n");
  EXPECT_EQ(StatusOf("</dev/null >&- 2>err"), 74);
  EXPECT_EQ(folder.Read("F"), "B\r\n");
}

TEST_F(ClosedFiles, AlertsGoIntoNoOtherFile) {
  folder.Write("a.bas", "10 OPEN \"F\" FOR OUTPUT AS #1\n20 PRINT #1,\"B\"\n30 PRINT 1/0\n");
  EXPECT_EQ(StatusOf("--type x <&- >out 2>&-"), 1);
  EXPECT_EQ(folder.Read("F"), "B\r\n");
  EXPECT_EQ(folder.Read("out"), "@Runtime_Err_Div_By_Zero@ in 30\nOk\n");
}

}  // namespace
}  // namespace zoka
