// What of keys and mouse belongs to one run only.
#include "run/screen/basic_rsrc.h"
#include "tests/unit/run/run_rig.h"

namespace zoka {
namespace {

TEST(RunViewKeys, KeysTypedBetweenRunsAreKeptUpToSixteenAndGoneWithTheNextRun) {
  TRunRig rig;
  rig.Run("10 PRINT 1\n");
  for (int i = 0; i < 17; ++i) rig.view->KeyDown("A");
  EXPECT_EQ(rig.view->Rsrc().KeyBufCount(), 16);
  rig.view->QuitBasic();
  rig.view->ReadyBasic();
  EXPECT_EQ(rig.view->Rsrc().KeyBufCount(), 0);
}

TEST(RunViewKeys, TheRangeOfTheMouseGoesWithItsRun) {
  TRunRig rig;
  rig.Run("10 MOUSE 4,100,50,200,80\n");
  // Two looks: what moves the pointer is seen with the second.
  rig.Run("10 CLS:A=MOUSE(0):B=MOUSE(1):SLEEP 200:PRINT MOUSE(0);MOUSE(1)\n");
  EXPECT_EQ(rig.Screen()[0], " 0  0");
}

TEST(RunViewKeys, EventsWithoutAMachineDoNoHarm) {
  TRunRig rig;
  rig.view->CtrlKeyDown('c');
  rig.view->KeyDown("\x10", 12);
  rig.view->MouseDown({10, 10}, TRunView::LEFT_BUTTON);
  rig.view->MouseMoved({20, 20});
  rig.view->MouseUp({20, 20}, TRunView::LEFT_BUTTON);
  EXPECT_EQ(rig.Run("10 PRINT 1\n"), 0);
}

}  // namespace
}  // namespace zoka
