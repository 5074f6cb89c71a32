// What reaches a run from outside: keys, the break key, the mouse, the alarm, the speed control,
// drives, the clipboard.
#include <gtest/gtest.h>

#include "run/run_view.h"
#include "tests/unit/run/run_rig.h"

namespace zoka {
namespace {

using TRows = std::vector<std::string>;

/// Lets the machine of the next run see an event: its trap is on and has a target.
void arm(TRunRig& rig, int slot) {
  TInterruptPort& port = *rig.view->VMachine()->Port();
  port.mIrStates[slot].store(TIrState::On);
  port.mHasTarget.fetch_or(1u << slot);
}

/// Compiles a program and makes its machine, which does not run yet.
void make_ready(TRunRig& rig, const char* program) {
  rig.view->ClearBasic();
  ASSERT_EQ(rig.view->CompileBasic(program), TCompileResult::Runnable);
  ASSERT_TRUE(rig.view->ReadyBasic());
}

uint32_t pending(TRunRig& rig) {
  return rig.view->VMachine()->Port()->mIrFlags.load();
}

TEST(RunKeys, KeysTypedBeforeARunAreForgotten) {
  TRunRig rig;
  rig.view->KeyDown("a");
  EXPECT_EQ(rig.Run("10 PRINT \"[\"+INKEY$+\"]\"\n"), 0);
  EXPECT_EQ(rig.Screen(), (TRows{"[]", "Ok"}));
}

TEST(RunKeys, SixteenKeysWaitForAProgramThatDoesNotRead) {
  TRunRig rig;
  make_ready(rig, "10 FOR I=1 TO 20:A$=A$+INKEY$:NEXT:PRINT A$\n");
  for (char key = 'a'; key <= 'q'; ++key) rig.view->KeyDown(std::string_view(&key, 1));
  EXPECT_TRUE(rig.view->RunBasic(TMessage("run")));
  EXPECT_EQ(rig.view->WaitForEnd(), 0);
  EXPECT_EQ(rig.Screen(), (TRows{"abcdefghijklmnop", "Ok"}));
}

TEST(RunKeys, NoMachineIsNeededForThem) {
  TRunRig rig;
  rig.view->KeyDown("\x04");
  rig.view->KeyDown("\x10", 2);
  rig.view->CtrlKeyDown('C');
  rig.view->CtrlKeyDown('a');
  rig.view->MouseDown({1, 2}, TRunView::LEFT_BUTTON | TRunView::RIGHT_BUTTON);
  rig.view->MouseUp({1, 2}, TRunView::LEFT_BUTTON | TRunView::RIGHT_BUTTON);
  rig.view->MouseMoved({1, 2});
  rig.view->SetUseSpeedControl();
  // End, the six bytes of the first function key's text, and a.
  EXPECT_EQ(rig.view->Rsrc().KeyBufCount(), 1 + 6 + 1);
}

TEST(RunKeys, TheEndKeyIsTypedAndRaisesHelp) {
  TRunRig rig;
  make_ready(rig, "10 PRINT\n");
  arm(rig, num_shifts(IR_HELP_KEY));
  rig.view->KeyDown("\x04");
  EXPECT_EQ(pending(rig), IR_HELP_KEY);
  EXPECT_EQ(rig.view->Rsrc().PopFromKeyBufWithTimeout(0, nullptr), "\x01");
  rig.view->KeyDown("\x01");
  EXPECT_EQ(rig.view->Rsrc().PopFromKeyBufWithTimeout(0, nullptr), "\x0C");
}

TEST(RunKeys, EachFunctionKeyHasItsBitAndTheFirstTenHaveTexts) {
  TRunRig rig;
  make_ready(rig, "10 PRINT\n");
  for (int32_t number = 1; number <= 12; ++number) {
    arm(rig, 5 + number);
    rig.view->KeyDown("\x10", number + 1);
    EXPECT_EQ(pending(rig), uint32_t{0x40} << (number - 1)) << number;
    EXPECT_EQ(rig.view->Rsrc().KeyBufCount() > 0, number <= 10) << number;
    rig.view->VMachine()->Port()->mIrFlags.store(0);
    rig.view->Rsrc().ClearKeyBuf();
  }
  // What the host counts on as function keys has no bit: the next one is that of ON PLAY.
  arm(rig, num_shifts(IR_PLAY));
  for (int32_t key : {-1, 0, 1, 14, 1000}) rig.view->KeyDown("\x10", key);
  EXPECT_EQ(pending(rig), 0u);
  EXPECT_EQ(rig.view->Rsrc().KeyBufCount(), 0);
}

TEST(RunKeys, CommandKeysAreTypedPlainButForTheBreakKey) {
  TRunRig rig;
  make_ready(rig, "10 PRINT\n");
  arm(rig, num_shifts(IR_STOP_KEY));
  rig.view->CtrlKeyDown('a');
  rig.view->CtrlKeyDown('A');
  EXPECT_EQ(pending(rig), 0u);
  EXPECT_EQ(rig.view->Rsrc().PopFromKeyBufWithTimeout(0, nullptr), "a");
  EXPECT_EQ(rig.view->Rsrc().PopFromKeyBufWithTimeout(0, nullptr), "A");
  for (char key : {'c', 'C'}) {
    rig.view->VMachine()->Port()->mIrFlags.store(0);
    rig.view->CtrlKeyDown(key);
    EXPECT_EQ(pending(rig), IR_STOP_KEY) << key;
  }
  EXPECT_EQ(rig.view->Rsrc().KeyBufCount(), 0);
}

TEST(RunMouse, ButtonsAndMovesRaiseTheirEvents) {
  TRunRig rig;
  make_ready(rig, "10 PRINT\n");
  for (int slot = 21; slot <= 25; ++slot) arm(rig, slot);
  const auto raised = [&] { return rig.view->VMachine()->Port()->mIrFlags.exchange(0); };
  rig.view->MouseMoved({1, 2});
  EXPECT_EQ(raised(), 0x200000u);
  rig.view->MouseDown({1, 2}, TRunView::LEFT_BUTTON);
  EXPECT_EQ(raised(), 0x400000u);
  rig.view->MouseDown({1, 2}, TRunView::RIGHT_BUTTON);
  EXPECT_EQ(raised(), 0x800000u);
  rig.view->MouseUp({1, 2}, TRunView::LEFT_BUTTON);
  EXPECT_EQ(raised(), 0x1000000u);
  rig.view->MouseUp({1, 2}, TRunView::RIGHT_BUTTON);
  EXPECT_EQ(raised(), 0x2000000u);
  rig.view->MouseDown({1, 2}, 0);  // a button that the machine lacks
  EXPECT_EQ(raised(), 0u);
}

TEST(RunMouse, ThePointerIsFollowedWhileAButtonIsDown) {
  TRunRig rig;
  make_ready(rig, "10 PRINT\n");
  rig.view->MouseDown({1, 2}, TRunView::LEFT_BUTTON);
  EXPECT_EQ(rig.host.captures, std::vector<bool>{true});
  rig.view->MouseUp({700, 2}, TRunView::LEFT_BUTTON);
  EXPECT_EQ(rig.host.captures, (std::vector<bool>{true, false}));
}

TEST(RunMouse, ARangeEndsWithItsRun) {
  TRunRig rig;
  rig.Run("10 M=16:B=100:C=50:CALL MOUSE(M,A,B,C):PRINT MOUSE(0)\n");
  rig.Run("10 PRINT MOUSE(0)\n");
  EXPECT_EQ(rig.Screen(), (TRows{" 50", "Ok", " 0", "Ok"}));
}

/// The seconds that pass until an alarm for `time` comes, at 23:59:58.
std::string alarm_comes_at(const std::string& time) {
  TRunRig rig(make_simulated_clock({2026, 1, 1, 23, 59, 58}));
  rig.Run(
      ("10 TIME$ ON:ON TIME$=\"" + time + "\" GOSUB 30\n20 SLEEP 10:GOTO 20\n30 PRINT TIME$:END\n")
          .c_str());
  return rig.Screen().front();
}

TEST(RunAlarm, ComesAtItsTimeAlsoAcrossMidnight) {
  EXPECT_EQ(alarm_comes_at("23:59:59"), "23:59:59");
  EXPECT_EQ(alarm_comes_at("00:00:00"), "00:00:00");
  EXPECT_EQ(alarm_comes_at("23:59:58"), "23:59:58");  // now: at once
}

TEST(RunAlarm, ANewOneReplacesIt) {
  TRunRig rig(make_simulated_clock({2026, 1, 1, 10, 0, 0}));
  EXPECT_EQ(rig.Run("10 TIME$ ON:ON TIME$=\"10:00:02\" GOSUB 40:ON TIME$=\"10:00:05\" GOSUB 40\n"
                    "20 SLEEP 10:GOTO 20\n40 PRINT TIME$:END\n"),
            0);
  EXPECT_EQ(rig.Screen(), (TRows{"10:00:05", "Ok"}));
}

TEST(RunAlarm, AMalformedOneLeavesItAlone) {
  TRunRig rig(make_simulated_clock({2026, 1, 1, 10, 0, 0}));
  make_ready(rig, "10 SLEEP 6000\n");
  arm(rig, num_shifts(IR_TIME));
  TInterruptPort& port = *rig.view->VMachine()->Port();
  port.mIrStates[num_shifts(IR_TIME)].store(TIrState::Stop);
  EXPECT_EQ(rig.view->SetOnTimeDl("10:00:05"), 0);
  EXPECT_EQ(rig.view->SetOnTimeDl("1:00:00"), -1);
  EXPECT_TRUE(rig.view->RunBasic(TMessage("run")));
  EXPECT_EQ(rig.view->WaitForEnd(), 0);
  EXPECT_EQ(port.mIrMask.load(), IR_TIME);
}

TEST(RunAlarm, EndsWithItsRun) {
  TRunRig rig(make_simulated_clock({2026, 1, 1, 10, 0, 0}));
  rig.Run("10 TIME$ ON:ON TIME$=\"10:00:02\" GOSUB 20\n20 END\n");
  rig.Run("10 TIME$ ON:ON TIME$=\"10:00:09\" GOSUB 30\n20 SLEEP 10:GOTO 20\n30 PRINT TIME$:END\n");
  EXPECT_EQ(rig.Screen(), (TRows{"Ok", "10:00:09", "Ok"}));
}

TEST(RunSpeed, ThePreferenceSlowsTheRunsToComeAndThePresentOne) {
  TRunRig rig;
  make_ready(rig, "10 PRINT\n");
  EXPECT_EQ(pending(rig), 0u);
  rig.prefs.USpC.store(true);
  EXPECT_EQ(pending(rig), 0u);  // not before it is told
  rig.view->SetUseSpeedControl();
  EXPECT_EQ(pending(rig), IR_SPEED_CONTROL);
  rig.prefs.USpC.store(false);
  rig.view->SetUseSpeedControl();
  EXPECT_EQ(pending(rig), 0u);
  rig.prefs.USpC.store(true);
  rig.view->QuitBasic();
  make_ready(rig, "10 PRINT\n");
  EXPECT_EQ(pending(rig), IR_SPEED_CONTROL);
}

TEST(RunSpeed, NoProgramIsFasterThanAStatementAnInterval) {
  TRunRig rig;
  rig.prefs.USpC.store(true);
  for (int64_t interval : {500, 20'000, 100'000}) {
    rig.prefs.SpCI.store(interval);
    const bigtime_t start = rig.clock->system_time();
    rig.Run("10 A=1:B=2\n20 C=3\n30 END\n");
    // Four statements.
    EXPECT_EQ(rig.clock->system_time() - start, 4 * interval) << interval;
  }
}

TEST(RunDrives, OtherNumbersThanTheDrivesAreIgnored) {
  TRunRig rig;
  for (int32_t index : {-1, 14, 1000, INT32_MIN, INT32_MAX}) {
    rig.view->SetDriveFolder(index, "/tmp");
  }
  EXPECT_TRUE(rig.host.drives.empty());
  for (int32_t index = 0; index < DRIVE_COUNT; ++index) {
    EXPECT_EQ(rig.view->DriveFolder(index), "") << index;
  }
}

/// A host with a clipboard.
class TClipboardHost final : public TRunHost {
 public:
  void SetClipboardText(const std::string& given) override { text = given; }
  void SetClipboardImage(const TFrameBuffer& image) override {
    pixels.clear();
    for (int32_t y : {0, 399}) pixels.push_back(image.Row(y)[0] & 0xFFFFFF);
  }
  std::string text;
  std::vector<uint32_t> pixels;  // of the first column, the topmost and the lowest row
};

TEST(RunClipboard, PagesAreCopiedAsTheyAreAndTheCompositionAsItIsShown) {
  TRunRig rig;
  TClipboardHost host;
  TRunView view(rig.context, host);
  ASSERT_EQ(view.CompileBasic("10 SCREEN 0,0:CLS 3:FOR I=0 TO 3:SCREEN ,,I:CLS 2\n"
                              "20 LINE(0,0)-(639,399),I+1,BF:PSET(0,0),7:NEXT:SCREEN ,,0,17\n"),
            TCompileResult::Runnable);
  view.ReadyBasic();
  view.RunBasic(TMessage("run"));
  ASSERT_EQ(view.WaitForEnd(), 0);
  const uint32_t colors[] = {0x0000FF, 0xFF0000, 0xFF00FF, 0x00FF00};
  using TPixels = std::vector<uint32_t>;
  for (int32_t page = 0; page < 4; ++page) {
    view.MItemCopyGrphClicked(page);
    EXPECT_EQ(host.pixels, (TPixels{0xFFFFFF, colors[page]})) << page;
  }
  view.MItemCopyGrphClicked(-1);  // the page shown is number 2
  EXPECT_EQ(host.pixels, (TPixels{0xFFFFFF, colors[2]}));
  view.MItemCopyGrphClicked(4);  // there is none
  EXPECT_EQ(host.pixels, (TPixels{0, 0}));
  view.MItemCopyCompositionClicked();
  EXPECT_EQ(host.pixels, (TPixels{0xFFFFFF, colors[2]}));
  view.MItemCopyTextClicked();
  EXPECT_EQ(host.text.substr(0, 4), "Ok\n\n");
}

}  // namespace
}  // namespace zoka
