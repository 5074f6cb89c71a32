// A list that is loaded while something is under way: a program runs on, a compilation ends.
#include <gtest/gtest.h>

#include <atomic>

#include "editor/list_document.h"
#include "tests/support/temp_folder.h"
#include "tests/unit/run/run_rig.h"

namespace zoka {
namespace {

using S = TDocumentState;

/// Counts the compilations that have ended.
class TCompileCount final : public TDocumentHost {
 public:
  void CompileEnded(int64_t) override { ++ended; }
  std::atomic<int> ended{0};
};

class ListLoad : public ::testing::Test {
 protected:
  ListLoad() : document(rig.context, *rig.view, text, host) {
    folder.Write("b.bas", "10 PRINT \"B\"\n");
  }
  void StartEndlessRun() {
    text.Set("10 GOTO 10\n");
    ASSERT_EQ(document.RunBasic(TMessage("run")), TRunOutcome::Started);
  }
  /// The compiler never comes to the end of this.
  void StartEndlessCompilation() {
    text.Set("10 PRINT &O7\n");
    ASSERT_EQ(document.StartRun(TMessage("run")), TRunOutcome::Compiling);
  }

  TTempFolder folder;
  TRunRig rig{make_real_clock()};
  TStringText text;
  TCompileCount host;
  TListDocument document;
};

TEST_F(ListLoad, ARunningProgramGoesOnAndCanBeKilled) {
  StartEndlessRun();
  EXPECT_TRUE(document.OpenList(folder.Path("b.bas"), ENCODING_AUTO));
  EXPECT_EQ(document.State(), S::Running);
  EXPECT_TRUE(document.AddList(folder.Path("b.bas"), ENCODING_AUTO));
  EXPECT_TRUE(document.MergeList(folder.Path("b.bas"), ENCODING_AUTO));
  EXPECT_FALSE(document.OpenList(folder.Path("none"), ENCODING_AUTO));
  EXPECT_EQ(document.State(), S::Running);
  EXPECT_TRUE(rig.host.ended.empty());
  document.Kill();
  EXPECT_EQ(document.State(), S::Idle);
  EXPECT_EQ(rig.view->VMachine(), nullptr);
}

TEST_F(ListLoad, ACompilationEndsAndDoesNotRun) {
  StartEndlessCompilation();
  EXPECT_TRUE(document.OpenList(folder.Path("b.bas"), ENCODING_AUTO));
  EXPECT_EQ(host.ended.load(), 1);
  EXPECT_EQ(document.State(), S::Idle);
  EXPECT_EQ(text.Get(), "10 PRINT \"B\"\n");
  // What the host hears of the old one counts no more.
  EXPECT_EQ(document.FinishRun(1), TRunOutcome::Cancelled);
  EXPECT_EQ(rig.view->VMachine(), nullptr);
  EXPECT_TRUE(rig.host.alerts.empty());
}

TEST_F(ListLoad, ALoadThatFailsEndsACompilationToo) {
  StartEndlessCompilation();
  EXPECT_FALSE(document.OpenList(folder.Path("none"), ENCODING_AUTO));
  EXPECT_EQ(host.ended.load(), 1);
  EXPECT_EQ(document.State(), S::Idle);
}

}  // namespace
}  // namespace zoka
