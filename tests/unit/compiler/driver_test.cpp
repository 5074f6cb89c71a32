// The driver: lines, labels, statements, results, alerts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/code_listing.h"

namespace zoka {
namespace {

using test::code_of;
using test::fault_of;
using test::listing_of;
using test::records_in;
using test::TCompiling;
using testing::ElementsAre;
using testing::Pair;

constexpr char SYNTAX[] = "@Compile_Err_Syntax_Err@";

TEST(Driver, EmptyListIsThreeRecordsAndNoAlert) {
  TCompiling compiling;
  EXPECT_EQ(compiling.Compile(""), TCompileResult::Empty);
  EXPECT_EQ(code_listing(compiling.code),
            "0 0x0000 -\n"
            "1 0x1063 BLineBegin 0\n"
            "2 0x105D BExit\n");
  EXPECT_TRUE(compiling.recorder.alerts.empty());
}

TEST(Driver, BlankLinesAreAnEmptyList) {
  EXPECT_EQ(records_in(listing_of("\n\n  \n")), "-; BLineBegin 0; BExit");
  EXPECT_EQ(records_in(listing_of("' only a comment")), "-; BLineBegin 0; BExit");
}

TEST(Driver, BlankLineBeforeTheFirstLine) {
  EXPECT_EQ(records_in(listing_of("\n\n10 END\n\n\n20 END")),
            "-; BLineBegin 0; BLineBegin 10; BExit; BLineBegin 20; BExit; BExit");
}

TEST(Driver, AnAssignment) {
  EXPECT_EQ(listing_of("10 A=1"),
            "0 0x0000 -\n"
            "1 0x1063 BLineBegin 10\n"
            "2 0x1051 BPushInt -1\n"
            "3 0x1056 BPushVar var:A!\n"
            "4 0x1051 BPushInt 1\n"
            "5 0x1062 BAssignArray\n"
            "6 0x105D BExit\n");
}

TEST(Driver, ResultsOfListsWithoutStatements) {
  TCompiling compiling;
  EXPECT_EQ(compiling.Compile("10 REM"), TCompileResult::Empty);
  EXPECT_EQ(compiling.Compile("10 REM\n20 REM"), TCompileResult::Runnable);
  EXPECT_EQ(compiling.Compile("10 NEXT"), TCompileResult::Failed);
  EXPECT_EQ(compiling.Compile("10 A"), TCompileResult::Runnable);
}

struct TRefused {
  const char* source;
  const char* fault;
};

constexpr TRefused REFUSED[] = {
    {"10PRINT 1", "@Compile_Err_Syntax_Err@ in "},
    {"PRINT 1", "@Compile_Err_Direct_Statement@ in "},
    {"0 PRINT 1", "@Compile_Err_Direct_Statement@ in "},
    {"10 END\nPRINT 1", "@Compile_Err_Direct_Statement@ in 10"},
    {"10 END\n0 END", "@Compile_Err_Direct_Statement@ in 10"},
    {"10\n", "@Compile_Err_Direct_Statement@ in "},
    {"10", "@Compile_Err_Direct_Statement@ in "},
    {"10 END\n20\n30 END", "@Compile_Err_Direct_Statement@ in 10"},
    {"10:END", "@Compile_Err_Direct_Statement@ in "},
    {"10\"A\"", "@Compile_Err_Direct_Statement@ in "},
    {".5 END", "@Compile_Err_Direct_Statement@ in "},
    {"10 ELSE", "@Compile_Err_Direct_Statement@ in 10"},
    {"10 IF A THEN END ELSE END ELSE END", "@Compile_Err_Direct_Statement@ in 10"},
    {"10 NEXT", "@Compile_Err_Next_Without_For@ in 10"},
    {"10 END\n20 WEND", "@Compile_Err_Wend_Without_While@ in 20"},
    {"10 5", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 5.5", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 \"A\"", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 FNA", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 LEN=1", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 ? 1", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 )", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 -A=1", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 \xE3\x81\x82", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 PRINT#1,2", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 PRINT# 1,2", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 IF 1 GO TO 20", "@Compile_Err_If_Without_Then@ in 10"},
    {"10 IF A=1THEN 10", "@Compile_Err_Syntax_Err@ in 10"},
    {"10 IF 1 THEN 1=2", "@Compile_Err_Assign_Unlvalue@ in 10"},
};

TEST(Driver, RefusedListsNameKeyAndLine) {
  for (const TRefused& row : REFUSED) EXPECT_EQ(fault_of(row.source), row.fault) << row.source;
}

// A line begins with whatever reads as a number that is not 0.
TEST(Driver, OddLineNumbers) {
  EXPECT_EQ(records_in(listing_of("10% END")), "-; BLineBegin 10; BExit; BExit");
  EXPECT_EQ(records_in(listing_of("10.5 END")), "-; BLineBegin 10; BExit; BExit");
  EXPECT_EQ(records_in(listing_of("&H10 END")), "-; BLineBegin 16; BExit; BExit");
  EXPECT_EQ(records_in(listing_of("#7 END")), "-; BLineBegin 7; BExit; BExit");
  EXPECT_EQ(records_in(listing_of("99999999999 END")), "-; BLineBegin 2147483647; BExit; BExit");
  EXPECT_EQ(records_in(listing_of("\t10\tEND")), "-; BLineBegin 10; BExit; BExit");
}

TEST(Driver, LineMapPointsAtLineBegins) {
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile("20 END\n10 END\n20 A\n"), TCompileResult::Runnable);
  EXPECT_EQ(compiling.code.FindLine(20), 5);
  EXPECT_EQ(compiling.code.FindLine(10), 3);
  EXPECT_EQ(compiling.code.FindLine(30), 0);
}

TEST(Driver, LineMarksKnowPhysicalLines) {
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile("\n10 END\n\n20 A=(1\n30 +2' two lines\n40 END"),
            TCompileResult::Runnable);
  std::vector<std::pair<int32_t, int32_t>> marks;
  for (const auto& mark : compiling.code.mLineMarks) {
    EXPECT_EQ(compiling.code.mCodes[static_cast<size_t>(mark.codeIndex)].Cmd(),
              TVMCodeCmd::BLineBegin);
    marks.emplace_back(compiling.code.mCodes[static_cast<size_t>(mark.codeIndex)].lval(),
                       mark.physicalLine);
  }
  EXPECT_THAT(marks, ElementsAre(Pair(0, 0), Pair(10, 1), Pair(20, 3), Pair(40, 5)));
}

TEST(Driver, StatementsNeedNoColonBetweenThem) {
  EXPECT_EQ(code_of("A=1 B=2"), code_of("A=1:B=2"));
  EXPECT_EQ(code_of("A=1 END"), code_of("A=1::: END"));
}

TEST(Driver, StatementBeginsAreNoted) {
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile("10 A=1:B=2"), TCompileResult::Runnable);
  std::set<int32_t> begins;
  for (int32_t i = 0; i < 20; ++i) {
    if (compiling.code.IsStatementBegin(i)) begins.insert(i);
  }
  EXPECT_THAT(begins, ElementsAre(2, 6));
}

TEST(Driver, VariableAloneIsLoaded) {
  EXPECT_EQ(code_of("A"), "BPushInt -1; BLoadArray var:A!");
  EXPECT_EQ(code_of("PRINTA"), "BPushInt -1; BLoadArray var:PRINTA!");
  EXPECT_EQ(code_of("GOTO100"), "BPushInt -1; BLoadArray var:GOTO100!");
  EXPECT_EQ(code_of("PRINT#1"), "BPushInt -1; BLoadArray var:PRINT#1!");
  EXPECT_EQ(code_of("CLOSE#1"), "BPushInt -1; BLoadArray var:CLOSE#1!");
}

TEST(Driver, TargetsBehindThenAndElse) {
  const std::string jump = "BPushString \"@L0\"; BPushInt -1; BLoadArray var:X!; BFJmp; ";
  EXPECT_EQ(code_of("IF X THEN 100"), jump + "BPushInt 100; BJmp");
  EXPECT_EQ(code_of("IF X THEN A"), jump + "BPushInt -1; BLoadArray var:A!; BJmp");
  EXPECT_EQ(code_of("IF X THEN *L"), jump + "BPushString \"L\"; BJmp");
  EXPECT_EQ(code_of("IF X THEN 100.5"), jump + "BPushFloat 100.5; BJmp");
  EXPECT_EQ(code_of("IF X THEN A=1"),
            jump + "BPushInt -1; BPushVar var:A!; BPushInt 1; BAssignArray");
  // Only the first statement behind THEN is taken for a target.
  EXPECT_EQ(code_of("IF X THEN A=1:A"), jump +
                                            "BPushInt -1; BPushVar var:A!; BPushInt 1; "
                                            "BAssignArray; BPushInt -1; BLoadArray var:A!");
  EXPECT_EQ(code_of("IF X THEN A=1:100"), SYNTAX);
}

TEST(Driver, LabelsOfTheUser) {
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile("10 *a A=1:*B:*A\n20 *\"@L3\"\n"), TCompileResult::Runnable);
  EXPECT_EQ(compiling.code.FindLabel("B"), 6);
  EXPECT_EQ(compiling.code.FindLabel("A"), 6);  // the later one wins
  EXPECT_EQ(compiling.code.FindLabel("@L3"), 7);
  EXPECT_EQ(compiling.code.FindLabel("C"), 0);
}

TEST(Driver, LabelWithoutANameIsHarmless) {
  EXPECT_EQ(records_in(listing_of("10 *")), "-; BLineBegin 10; BExit");
  EXPECT_EQ(code_of("GOTO *"), "BPushString \"\\n\"; BJmp");
}

TEST(Driver, InternalLabelsAreNeverUsedTwice) {
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile("10 IF A THEN END"), TCompileResult::Runnable);
  const std::string first = code_listing(compiling.code);
  ASSERT_EQ(compiling.Compile("10 IF A THEN END"), TCompileResult::Runnable);
  const std::string second = code_listing(compiling.code);
  EXPECT_THAT(first, testing::HasSubstr("\"@L0\""));
  EXPECT_THAT(second, testing::HasSubstr("\"@L1\""));
}

TEST(Driver, UndefinedTargetsCompile) {
  EXPECT_EQ(code_of("GOTO 999"), "BPushInt 999; BJmp");
}

TEST(Driver, AlertOfAFault) {
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile("10 END\n20 NEXT"), TCompileResult::Failed);
  ASSERT_EQ(compiling.recorder.alerts.size(), 1u);
  const TAlert& alert = compiling.recorder.alerts[0];
  EXPECT_EQ(alert.text, "Compile Error\n\n@Compile_Err_Next_Without_For@\n\nLine: 20\n");
  EXPECT_EQ(alert.title, "* Zoka-BASIC *");
  EXPECT_THAT(alert.buttons, ElementsAre("Understand(U)"));
  EXPECT_EQ(compiling.fault.ID, 20u);
}

TEST(Driver, FaultWithoutAnAlertHost) {
  TCompiling compiling;
  compiling.context.alertHost = nullptr;
  EXPECT_EQ(compiling.Compile("10 NEXT"), TCompileResult::Failed);
  EXPECT_EQ(compiling.fault.key, "@Compile_Err_Next_Without_For@");
}

TEST(Driver, FaultKnowsItsPlace) {
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile("10 A=1:)"), TCompileResult::Failed);
  EXPECT_EQ(compiling.fault.beginPos, 7);
  EXPECT_EQ(compiling.fault.endPos, 8);
}

TEST(Driver, UnknownSymbolIsNamed) {
  TCompiling compiling;
  ASSERT_EQ(compiling.Compile("10 A=1\x01"), TCompileResult::Failed);
  EXPECT_EQ(compiling.fault.key, "@Compile_Err_Unknown_Symbol %Symbol%@");
  EXPECT_EQ(compiling.recorder.alerts[0].text,
            "Compile Error\n\n@Compile_Err_Unknown_Symbol \x01@\n\nLine: 10\n");
}

TEST(Driver, ModeFollowsPreferenceThenFeatures) {
  TCompiling compiling;
  compiling.Compile("10 END");
  EXPECT_EQ(compiling.mode, 2);
  compiling.Compile("10 A=MOUSE(0)");
  EXPECT_EQ(compiling.mode, 3);
  compiling.Compile("10 A=MOUSE(0):NEXT");  // also of a list that fails
  EXPECT_EQ(compiling.mode, 3);
  compiling.prefs.CmpM = COMPAT_DISK;
  compiling.Compile("10 A=MOUSE(0)");
  EXPECT_EQ(compiling.mode, 2);
  compiling.prefs.CmpM = COMPAT_DOS;
  compiling.Compile("");
  EXPECT_EQ(compiling.mode, 3);
}

TEST(Driver, CancelledAtAToken) {
  TCompiling compiling;
  compiling.cancel = true;
  EXPECT_EQ(compiling.Compile("10 NEXT"), TCompileResult::Cancelled);
  EXPECT_TRUE(compiling.recorder.alerts.empty());
}

/// Sets the flag while the compiler is inside a number that never ends.
TCompileResult compile_and_cancel(const char* source, bool* wasRunning) {
  TCompiling compiling;
  std::atomic<bool> ended{false};
  std::thread worker([&] {
    compiling.Compile(source);
    ended = true;
  });
  const std::unique_ptr<TClock> clock = make_real_clock();
  TWake wake(*clock);
  clock->snooze(5'000, wake);
  *wasRunning = !ended;
  compiling.cancel = true;
  worker.join();
  EXPECT_TRUE(compiling.recorder.alerts.empty());
  return compiling.result;
}

TEST(Driver, EndlessOctalNumbersEndByTheFlag) {
  for (const char* source : {"10 A=&O7", "10 A=&o0", "10 A=&17", "10 A=&077"}) {
    bool wasRunning = false;
    EXPECT_EQ(compile_and_cancel(source, &wasRunning), TCompileResult::Cancelled) << source;
    EXPECT_TRUE(wasRunning) << source;
  }
}

}  // namespace
}  // namespace zoka
