// The run view without a window: runs, stops, drives, alarms, titles.
#include "run/run_view.h"

#include <gtest/gtest.h>

#include <utility>

#include "common/host_memory.h"
#include "tests/unit/run/run_rig.h"

namespace zoka {
namespace {

using TRows = std::vector<std::string>;

TEST(RunView, RunsAProgram) {
  TRunRig rig;
  EXPECT_EQ(rig.Run("10 PRINT \"A\"\n"), 0);
  EXPECT_EQ(rig.Screen(), (TRows{"A", "Ok"}));
  EXPECT_EQ(rig.host.ended, std::vector<int64_t>{1});
  EXPECT_FALSE(rig.host.hasRequest);
}

TEST(RunView, TheScreenStaysBetweenRuns) {
  TRunRig rig;
  rig.Run("10 PRINT \"A\"\n");
  rig.view->QuitBasic();
  rig.Run("10 PRINT \"B\"\n");
  EXPECT_EQ(rig.Screen(), (TRows{"A", "Ok", "B", "Ok"}));
  EXPECT_EQ(rig.host.ended, (std::vector<int64_t>{1, 2}));
}

TEST(RunView, CompileResults) {
  TRunRig rig;
  EXPECT_EQ(rig.view->CompileBasic("\n\n"), TCompileResult::Empty);
  rig.view->ClearBasic();
  EXPECT_EQ(rig.view->CompileBasic("10 PRINT\n"), TCompileResult::Runnable);
  rig.view->ClearBasic();
  EXPECT_EQ(rig.view->CompileBasic("10 NEXT\n"), TCompileResult::Failed);
  EXPECT_EQ(rig.host.alerts.size(), 1u);
}

TEST(RunView, AStartLineAndALabel) {
  TRunRig rig;
  TMessage line("run");
  line.AddInt32("LineNum", 20);
  EXPECT_EQ(rig.Run("10 PRINT \"A\"\n20 PRINT \"B\"\n", line), 0);
  rig.view->QuitBasic();
  TMessage label("run");
  label.AddString("Label", "L");
  EXPECT_EQ(rig.Run("10 PRINT \"C\"\n20 *L:PRINT \"D\"\n", label), 0);
  EXPECT_EQ(rig.Screen(), (TRows{"B", "Ok", "D", "Ok"}));
}

TEST(RunView, ARequestGoesToTheHost) {
  TRunRig rig;
  EXPECT_EQ(rig.Run("10 PRINT \"A\"\n20 RUN 10\n"), 0);
  ASSERT_TRUE(rig.host.hasRequest);
  int32_t line = 0;
  EXPECT_TRUE(rig.host.lastRequest.FindInt32("LineNum", &line));
  EXPECT_EQ(line, 10);
}

TEST(RunView, AForcedStopEndsAnyProgram) {
  for (const char* program :
       {"10 GOTO 10\n", "10 PRINT \"A\":GOTO 10\n", "10 DIM A%(3):A=SEARCH(A%,5,0,0)\n",
        "10 SLEEP 60000:GOTO 10\n", "10 INPUT A\n", "10 INPUT WAIT 600,A:GOTO 10\n",
        "10 A$=INPUT$(1)\n", "10 FOR I=1 TO 2:I=1:NEXT\n", "10 GOSUB 10\n"}) {
    for (bool simulated : {false, true}) {
      TRunRig rig(simulated ? make_simulated_clock() : make_real_clock());
      rig.Start(program);
      rig.view->ForceStop();
      EXPECT_EQ(rig.view->WaitForEnd(), 1) << program << simulated;
      EXPECT_EQ(rig.Screen().back(), "Ok");
    }
  }
}

TEST(RunView, QuitEndsAWaitingProgram) {
  for (bool simulated : {false, true}) {
    TRunRig rig(simulated ? make_simulated_clock() : make_real_clock());
    rig.Start("10 INPUT A\n20 GOTO 10\n");
    EXPECT_TRUE(rig.view->QuitBasic());
    EXPECT_EQ(rig.view->VMachine(), nullptr);
    EXPECT_FALSE(rig.view->QuitBasic());
  }
}

TEST(RunView, AStopByForceBeforeACompilationEndsItToo) {
  TRunRig rig;
  rig.view->ForceStop();
  EXPECT_EQ(rig.view->CompileBasic("10 A=&O7\n"), TCompileResult::Cancelled);
}

TEST(RunView, CancelEndsACompilation) {
  TRunRig rig;
  rig.view->CancelCompile();  // before it begins it means nothing
  EXPECT_EQ(rig.view->CompileBasic("10 PRINT\n"), TCompileResult::Runnable);
}

TEST(RunView, Drives) {
  TRunRig rig;
  EXPECT_EQ(rig.view->DriveFolder(0), "");
  rig.view->SetDriveFolder(0, "/tmp/a");
  rig.view->SetDriveFolder(1, "/tmp/b c");
  rig.view->SetDriveFolder(2, "/tmp/c");
  rig.view->SetDriveFolder(13, "/tmp/d");
  EXPECT_EQ(rig.view->DriveFolder(0), "/tmp/a");
  EXPECT_EQ(rig.view->DriveFolder(13), "/tmp/d");
  rig.view->SetDriveFolder(0, "");
  EXPECT_EQ(rig.view->DriveFolder(0), "");
  // Only the two drives with a menu are told to the host.
  EXPECT_EQ(rig.host.drives, (TRows{"0|/tmp/a|a", "1|/tmp/b c|b c", "0||(Empty)"}));
}

TEST(RunView, TitlesSayTheMode) {
  TRunRig rig;
  rig.Run("10 PRINT\n");
  rig.view->QuitBasic();
  rig.Run("10 A=MOUSE(0)\n");
  EXPECT_EQ(rig.host.titles,
            (TRows{"DISK-BASIC - Zoka-BASIC (Run Window)", "DOS-BASIC - Zoka-BASIC (Run Window)"}));
  EXPECT_EQ(rig.view->CompatiMode(), 3);
}

TEST(RunView, AlarmTimes) {
  TRunRig rig;
  for (const char* good : {"00:00:00", "23:59:59", "12:34:56"}) {
    EXPECT_EQ(rig.view->SetOnTimeDl(good), 0) << good;
  }
  for (const char* bad : {"", "24:00:00", "12:60:00", "12:00:60", "1:00:00", "12:00:0", "12-00-00",
                          "ab:cd:ef", "12:00:00 ", " 2:00:00", "+2:00:00", "12:-1:00", "120000",
                          "12-00:00", "12:00-00", "1x:00:00", "12:0/:00", "12:00:0:"}) {
    EXPECT_EQ(rig.view->SetOnTimeDl(bad), -1) << bad;
  }
}

TEST(RunView, TheAlarmComesAtItsTimeOfDay) {
  TRunRig rig(make_simulated_clock({2026, 1, 1, 23, 59, 58}));
  EXPECT_EQ(rig.Run("10 ON TIME$=\"00:00:03\" GOSUB 30:TIME$ ON\n20 SLEEP 10:GOTO 20\n"
                    "30 PRINT TIME$:END\n"),
            0);
  EXPECT_EQ(rig.Screen(), (TRows{"00:00:03", "Ok"}));
}

TEST(RunView, BootText) {
  TRunRig rig;
  rig.view->ShowBootStr();
  const TRows rows = rig.Screen();
  ASSERT_EQ(rows.size(), 6u);
  EXPECT_EQ(rows[0], "BeOS Version");
  EXPECT_EQ(rows[1], "How many files (0-15)? 15");
  EXPECT_EQ(rows[4], "12345 KBytes free");
  EXPECT_EQ(rows[5], "Ok");
  EXPECT_EQ(rig.view->Rsrc().CellAttr(0), 5);
  EXPECT_EQ(rig.view->Rsrc().CellAttr(1), 2);
  EXPECT_EQ(rig.view->Rsrc().CellAttr(2), 7);
  EXPECT_EQ(rig.view->Rsrc().CellAttr(160), 5);
}

TEST(RunView, AWindowIsToldItsTitleAndTheTwoDrivesWithALamp) {
  TRunRig rig;
  const TRows title{"DISK-BASIC - Zoka-BASIC (Run Window)"};
  const TRows drives{"0||(Empty)", "1||(Empty)"};
  rig.view->LanguageChanged();
  EXPECT_EQ(std::exchange(rig.host.titles, {}), title);
  EXPECT_EQ(std::exchange(rig.host.drives, {}), drives);
  EXPECT_TRUE(rig.Screen().empty());
  rig.view->AttachedToWindow();
  EXPECT_EQ(rig.host.titles, title);
  EXPECT_EQ(rig.host.drives, drives);
  EXPECT_EQ(rig.Screen().back(), "Ok");
}

TEST(RunHost, ShowsNothingByItselfAndHasTheMachinesMemoryInPages) {
  const TRunHost host;
  EXPECT_FALSE(host.WantsPicture());
  EXPECT_TRUE(host.KeyStates().none());
  const int64_t kilobytes = host.FreeMemoryKBytes();
  EXPECT_EQ(kilobytes % 4, 0);
  // Nobody takes or gives half of the memory meanwhile.
  const int64_t available = available_memory_kbytes().value_or(0);
  EXPECT_GT(kilobytes * 2, available);
  EXPECT_GT(available * 2, kilobytes);
}

TEST(RunView, TwoEnginesInOneProcess) {
  TRunRig first, second;
  first.Start("10 A=5:SLEEP 1000:PRINT A\n");
  second.Start("10 A=7:SLEEP 1000:PRINT A\n");
  EXPECT_EQ(first.view->WaitForEnd(), 0);
  EXPECT_EQ(second.view->WaitForEnd(), 0);
  EXPECT_EQ(first.Screen(), (TRows{" 5", "Ok"}));
  EXPECT_EQ(second.Screen(), (TRows{" 7", "Ok"}));
}

TEST(RunView, RowsThatScrollOffAreTold) {
  TRunRig rig;
  rig.Run("10 FOR I=1 TO 27:PRINT I:NEXT\n");
  EXPECT_EQ(rig.host.rows, (TRows{" 1", " 2", " 3", " 4"}));
}

}  // namespace
}  // namespace zoka
