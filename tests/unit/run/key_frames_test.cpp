// A key press on its way to the picture, counted in frames of a host whose screen runs on the
// simulated clock.
#include "tests/unit/run/run_rig.h"

namespace zoka {
namespace {

constexpr bigtime_t FRAME = 16'667;
constexpr int FRAMES = 40;
constexpr int KEY_FRAME = 20;

/// A host with a screen: what was held back is composed with its next frame.
class TFrameHost final : public TRunHost, public TAlertHost {
 public:
  void ComposeSoon() override { composeAsked.store(true); }
  void Present(const TRect&) override { ++presented; }
  bool WantsPicture() const override { return true; }
  int ShowAlert(const TAlert&, TThread*) override { return 0; }

  std::atomic<bool> composeAsked{false};
  std::atomic<int> presented{0};
};

class KeyFrames : public TTestEngine, public testing::TestWithParam<const char*> {
 protected:
  KeyFrames() {
    context.alertHost = &host;
    view = std::make_unique<TRunView>(context, host);
  }

  /// True if the first cell of the picture holds anything.
  bool IsCellLit() const {
    for (int32_t y = 0; y < 16; ++y) {
      for (int32_t x = 0; x < 8; ++x) {
        if ((view->Frame().Row(y)[x] & 0xFFFFFF) != 0) return true;
      }
    }
    return false;
  }

  void NextFrame() {
    ++frame;
    if (host.composeAsked.exchange(false)) view->FlushScreen();
    if (shownAt == 0 && IsCellLit()) shownAt = frame;
    if (frame == KEY_FRAME) view->KeyDown("A");
    if (frame == FRAMES) view->ForceStop();
  }

  TFrameHost host;
  std::unique_ptr<TRunView> view;
  int frame = 0;
  int shownAt = 0;  // the frame whose picture shows the key first
};

// The key comes behind the picture of KEY_FRAME.
TEST_P(KeyFrames, AKeyIsSeenWithinTwoFrames) {
  ASSERT_EQ(view->CompileBasic(GetParam()), TCompileResult::Runnable);
  view->ReadyBasic();
  const TTimerId frames = clock->StartTimer(FRAME, true, [this] { NextFrame(); });
  view->RunBasic(TMessage("run"));
  view->WaitForEnd();
  clock->CancelTimer(frames);
  EXPECT_GE(frame, FRAMES);
  EXPECT_GT(shownAt, KEY_FRAME);
  EXPECT_LE(shownAt, KEY_FRAME + 2);
  EXPECT_GT(host.presented, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Programs, KeyFrames,
    testing::Values(
        // Nothing else is drawn.
        "10 CLS 3\n20 A$=INKEY$:IF A$=\"\" THEN 20\n30 PRINT A$;\n40 GOTO 40\n",
        // Much is drawn, elsewhere, so that pictures are held back.
        "10 CLS 3\n20 PSET(300,100),I MOD 8:I=I+1:A$=INKEY$:IF A$=\"\" THEN 20\n"
        "30 PRINT A$;\n40 PSET(300,100),I MOD 8:I=I+1:A$=INKEY$:GOTO 40\n",
        // The program waits for the key.
        "10 CLS 3:LOCATE 0,5\n20 A$=INPUT$(1):LOCATE 0,0:PRINT A$;\n30 GOTO 30\n"));

}  // namespace
}  // namespace zoka
