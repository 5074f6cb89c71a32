// The break key between a program and the next one that it asks for.
#include <QTimer>

#include "tests/window/window_rig.h"

namespace zoka {
namespace {

/// Far behind the next run, which is due after 20 milliseconds.
constexpr int BEHIND_THE_NEXT_RUN_MS = 200;

using TBreakBetweenRunsTest = TWindowRig;

TEST_F(TBreakBetweenRunsTest, ABreakHoldsUpTheNextRun) {
  Start("10 CLS:PRINT \"go\":RUN\n");
  ASSERT_TRUE(Until([&] { return View().RunNumber() >= 3 && IsIdle(); }));
  View().CtrlKeyDown('C');
  const auto number = View().RunNumber();
  // Timers of one event loop ring in the order in which they are due.
  bool isOver = false;
  QTimer::singleShot(BEHIND_THE_NEXT_RUN_MS, &Widget(), [&] { isOver = true; });
  ASSERT_TRUE(Until([&] { return isOver; }));
  EXPECT_EQ(View().RunNumber(), number);
  EXPECT_TRUE(IsIdle());
}

TEST_F(TBreakBetweenRunsTest, TheListRunsAgainAfterwards) {
  Start("10 CLS:PRINT \"go\":RUN\n");
  ASSERT_TRUE(Until([&] { return View().RunNumber() >= 2 && IsIdle(); }));
  View().CtrlKeyDown('C');
  RunToEnd("10 CLS:PRINT \"end\"\n");
  EXPECT_TRUE(Shows("end"));
}

}  // namespace
}  // namespace zoka
