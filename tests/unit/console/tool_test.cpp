// The console tool from outside: standard input's keys, signals, readers that go away, disks that
// are full, help. What needs no live process is tested by the programs of tests/lang.
#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"
#include "tests/unit/console/tool.h"

namespace zoka {
namespace {

using TWords = std::vector<std::string>;

class Tool : public ::testing::Test {
 protected:
  /// Arguments for a run of this program, with messages as keys.
  TWords RunOf(const std::string& program, const TWords& more = {}) {
    folder.Write("a.bas", program);
    TWords words = {"run", "a.bas", "--lang", "keys", "--config", "none"};
    words.insert(words.end(), more.begin(), more.end());
    return words;
  }
  /// Runs with all of standard input there at once.
  std::string OutputOf(const TWords& words, std::string_view input, int status) {
    TTool tool(words, folder.Path());
    tool.Type(input);
    tool.EndInput();
    EXPECT_EQ(tool.End(), status) << tool.err;
    EXPECT_EQ(tool.err, "");
    return tool.out;
  }

  TTempFolder folder;
};

const TWords SIMULATED = {"--no-wait"};

TEST_F(Tool, LinesOfStandardInputAreTyped) {
  const TWords words = RunOf("10 INPUT A,B\n20 LINE INPUT A$\n30 PRINT A+B;A$\n");
  for (const char* input : {"1,2\nあ x\n", "1,2\nあ x", "1,2\r\nあ x\r\n"}) {
    EXPECT_EQ(OutputOf(words, input, 0), "? 1,2\nあ x\n 3 あ x\nOk\n");
  }
}

TEST_F(Tool, LinesAreTypedInSimulatedTimeToo) {
  EXPECT_EQ(OutputOf(RunOf("10 INPUT A\n20 S=S+A:IF A>0 THEN 10\n30 PRINT S\n", SIMULATED),
                     "1\n2\n3\n0\n", 0),
            "? 1\n? 2\n? 3\n? 0\n 6\nOk\n");
}

TEST_F(Tool, ManyKeysOfStandardInputAreAllTyped) {
  std::string input, output;
  for (int i = 0; i < 500; ++i) {
    input += "abcdefghijklmnopqrstuvwxyz0123456789\n";
    output += "abcdefghijklmnopqrstuvwxyz0123456789\n";
  }
  EXPECT_EQ(
      OutputOf(RunOf("10 FOR I=1 TO 500:LINE INPUT A$\n20 IF LEN(A$)<>36 THEN STOP\n30 NEXT\n"),
               input, 0),
      output + "Ok\n");
}

TEST_F(Tool, AnUnfinishedCharacterIsTypedAsItIs) {
  EXPECT_EQ(OutputOf(RunOf("10 LINE INPUT A$\n20 PRINT ASC(MID$(A$,2))\n"), "A\xE3\x81", 0),
            "A\xEF\xBF\xBD\n 227\nOk\n");
}

TEST_F(Tool, TheRunIsStoppedWhenStandardInputIsUsedUp) {
  EXPECT_EQ(OutputOf(RunOf("10 INPUT A\n20 GOTO 10\n"), "1\n", 1),
            "? 1\n?\n@Runtime_Err_Stop_Break@ in 10\nOk\n");
}

TEST_F(Tool, WithTypedTextStandardInputIsLeftAlone) {
  EXPECT_EQ(
      OutputOf(RunOf("10 LINE INPUT A$\n20 PRINT A$\n", {"--type", "typed\\r"}), "piped\n", 0),
      "typed\ntyped\nOk\n");
}

TEST_F(Tool, TheListMayComeFromStandardInput) {
  folder.Write("x", "data\n");
  const TWords words = {"run", "-", "--lang", "keys", "--config", "none"};
  // Its drive is the current folder, and no keys come.
  EXPECT_EQ(OutputOf(words, "10 OPEN \"x\" FOR INPUT AS #1:INPUT #1,A$:PRINT A$\n", 0),
            "data\nOk\n");
  EXPECT_EQ(OutputOf(words, "10 INPUT A\n", 1), "?\n@Runtime_Err_Stop_Break@ in 10\nOk\n");
  EXPECT_EQ(OutputOf({"list", "-", "--config", "none"}, "10 A\n", 0), "10 A\n");
  EXPECT_EQ(OutputOf({"renumber", "-", "--config", "none"}, "5 A\n", 0), "10 A\n");
}

TEST_F(Tool, OutputIsThereBeforeAWait) {
  TTool tool(RunOf("10 FOR I=1 TO 30:PRINT I:NEXT\n20 INPUT A\n30 PRINT A\n"), folder.Path());
  tool.Await(" 5\n");  // rows that have scrolled off; the others are still on the screen
  tool.Type("7\n");
  EXPECT_EQ(tool.End(), 0);
  EXPECT_NE(tool.out.find("? 7\n 7\nOk\n"), std::string::npos);
}

TEST_F(Tool, SignalsEndARunAndCloseItsFiles) {
  for (int number : {SIGINT, SIGTERM, SIGHUP}) {
    for (const char* waiting : {"INPUT A", "SLEEP 1000000", "GOTO 40"}) {
      const std::string program =
          "10 OPEN \"out\" FOR OUTPUT AS #1:PRINT #1,\"kept\"\n"
          "20 FOR I=1 TO 30:PRINT I:NEXT\n30 A=INP(0):INPUT WAIT 1,A\n40 ";
      TTool tool(RunOf(program + waiting + "\n"), folder.Path());
      tool.Await(" 5\n");
      tool.Signal(number);
      EXPECT_EQ(tool.End(), 128 + number) << waiting;
      EXPECT_EQ(tool.err, "");
      EXPECT_EQ(tool.out.substr(tool.out.size() - 3), "Ok\n");
      EXPECT_EQ(folder.Read("out"), "kept\r\n");
    }
  }
}

TEST_F(Tool, ABreakBetweenTwoRunsIsNotLost) {
  // Of each twenty milliseconds the program runs but a fraction of one.
  TTool tool(RunOf("10 PRINT \"A\":RUN\n", {"--timeout", "20", "--type", "{WAIT 100}{BREAK}"}),
             folder.Path());
  EXPECT_EQ(tool.End(), 1);
}

TEST_F(Tool, OutputIsThereBeforeTheNextRun) {
  TTool tool(RunOf("10 FOR I=1 TO 30:PRINT I:NEXT:RUN\n"), folder.Path());
  tool.Await(" 5\n");
  tool.Signal(SIGTERM);
  EXPECT_EQ(tool.End(), 128 + SIGTERM);
}

TEST_F(Tool, SignalsEndASimulatedRun) {
  TTool tool(RunOf("10 FOR I=1 TO 30:PRINT I:NEXT\n20 INPUT A\n", SIMULATED), folder.Path());
  tool.Await(" 5\n");
  tool.Signal(SIGTERM);
  EXPECT_EQ(tool.End(), 128 + SIGTERM);
}

TEST_F(Tool, TheTimeLimitEndsAWaitForStandardInput) {
  for (const TWords& more : {TWords{"--timeout", "0.2"}, TWords{"--timeout", "0.2", "--no-wait"}}) {
    for (const char* program :
         {"10 INPUT A\n", "10 IF INKEY$=\"\" THEN 10\n", "10 A$=INPUT$(1)\n"}) {
      TTool tool(RunOf(program, more), folder.Path());
      EXPECT_EQ(tool.End(), 124) << program;
      EXPECT_EQ(tool.err, "");
      EXPECT_NE(tool.out.find("@Runtime_Err_Stop_Break@ in 10\nOk\n"), std::string::npos)
          << tool.out;
    }
  }
}

TEST_F(Tool, AReaderThatGoesAwayEndsTheRunQuietly) {
  for (const TWords& more : {TWords{}, SIMULATED}) {
    TTool tool(RunOf("10 PRINT \"A\":GOTO 10\n", more), folder.Path());
    tool.Await("A\n");
    tool.CloseOutput();
    EXPECT_EQ(tool.End(), 141);
    EXPECT_EQ(tool.err, "");
  }
}

TEST_F(Tool, OutputThatCannotBeWrittenIsTold) {
  folder.Write("a.bas", "10 PRINT \"A\"\n");
  for (const char* command : {"run", "list", "code", "renumber"}) {
    TTool tool({command, "a.bas", "--config", "none"}, folder.Path(), "/dev/full");
    EXPECT_EQ(tool.End(), 74) << command;
    EXPECT_EQ(tool.err, "zoka: cannot write standard output\n");
  }
}

TEST_F(Tool, OutputThatCannotBeWrittenEndsAnEndlessRun) {
  TTool tool(RunOf("10 PRINT \"A\":GOTO 10\n"), folder.Path(), "/dev/full");
  EXPECT_EQ(tool.End(), 74);
  EXPECT_EQ(tool.err, "zoka: cannot write standard output\n");
}

TEST_F(Tool, MusicThatCannotBeWrittenIsTold) {
  TTool tool(RunOf("10 PLAY \"C\"\n", {"--no-wait", "--midi", "no/such.mid"}), folder.Path());
  EXPECT_EQ(tool.End(), 74);
  EXPECT_EQ(tool.err, "zoka: cannot write no/such.mid\n");
}

TEST_F(Tool, AlertsHaveTheWindowsBytes) {
  TTool tool(RunOf("10 PRINT \"A\"\n20 STOP\n"), folder.Path());
  EXPECT_EQ(tool.End(), 1);
  EXPECT_EQ(tool.err,
            "Runtime Error\n\n@Runtime_Err_Stop_Break@.\n\nLine: 20\n\n\n* Zoka-BASIC *\n");
  EXPECT_EQ(tool.out, "A\n@Runtime_Err_Stop_Break@ in 20\nOk\n");
}

TEST_F(Tool, HelpAndVersionAreAnswers) {
  for (const TWords& words :
       {TWords{"--help"}, TWords{"--version"}, TWords{"run", "--help"}, TWords{"check", "--help"},
        TWords{"code", "--help"}, TWords{"list", "--help"}, TWords{"renumber", "--help"},
        TWords{"play", "--help"}}) {
    TTool tool(words);
    EXPECT_EQ(tool.End(), 0) << words[0];
    EXPECT_EQ(tool.err, "");
    EXPECT_FALSE(tool.out.empty());
  }
}

TEST_F(Tool, AWrongCommandLineIsOneLine) {
  TTool tool({"run", "a.bas", "--bogus"});
  EXPECT_EQ(tool.End(), 64);
  EXPECT_EQ(tool.out, "");
  EXPECT_EQ(tool.err.substr(0, 20), "usage: zoka run FILE");
  EXPECT_EQ(tool.err.find('\n'), tool.err.size() - 1);
}

TEST_F(Tool, TheBootTextComesFirst) {
  TTool tool(RunOf("10 PRINT \"A\"\n", {"--boot"}), folder.Path());
  EXPECT_EQ(tool.End(), 0);
  EXPECT_EQ(tool.out.substr(0, 39), "BeOS Version\nHow many files (0-15)? 15\n");
  EXPECT_EQ(tool.out.substr(tool.out.size() - 8), "Ok\nA\nOk\n");
}

TEST_F(Tool, SettingsAreReadButNeverWritten) {
  const std::string settings = folder.Path("settings");
  folder.MakeFolder("settings");
  TTool tool({"run", "a.bas", "--config", settings}, folder.Path());
  tool.End();
  EXPECT_TRUE(std::filesystem::is_empty(settings));
}

}  // namespace
}  // namespace zoka
