// Clicks, keys, kills, edits and new runs at random on the real windows while programs run, stop,
// ask, fail and start each other: nothing hangs, nothing crashes, and in the end all is at rest.
// ZOKA_STRESS_SECONDS lets it go on for longer than a few hundred clicks.
#include <QElapsedTimer>
#include <cstdlib>
#include <random>

#include "tests/window/debug_rig.h"

namespace zoka {
namespace {

constexpr unsigned CLICKS = 300;

constexpr const char* PROGRAMS[] = {
    "10 FOR I=1 TO 1000\n20 DIM A(I MOD 50)\n30 GOSUB 100\n40 NEXT\n50 RUN\n"
    "100 A(0)=I:B$=B$+\"x\"\n110 IF LEN(B$)>50 THEN B$=\"\"\n120 RETURN\n",
    "10 INPUT A\n20 GOTO 10\n",
    "10 A=A+1\n20 IF A=500 THEN A=1/0\n30 GOTO 10\n",
    "10 SWAP A,B\n20 SLEEP 100000\n30 GOTO 10\n",
    "10 ON STOP GOSUB 50:STOP ON\n20 A$=A$+\"y\":IF LEN(A$)>200 THEN A$=\"\"\n30 GOTO 20\n"
    "50 RETURN\n",
    "10 END\n",
    "10 A=\n",
};

class TDebugStressTest : public TDebugWindowRig {
 protected:
  unsigned Pick(unsigned count) { return mRandom() % count; }

  void AnswerAlert() {
    if (QMessageBox* alert = mEngine->Alerts().OpenDialog()) alert->reject();
  }
  void Send(const char* code) { Debug().PostMessage(TMessage(code)); }
  void ClickInLists() {
    if (Source().Rows() > 0) Click(Source(), Pick(10) % Source().Rows(), Pick(2) == 0 ? 10 : 60);
    Click(Calls(), Pick(3) % Calls().Rows(), 20);
    if (Vars().Rows() == 0) return;
    Click(Vars(), Pick(60) % Vars().Rows(), Pick(2) == 0 ? 5 : 60);
    Vars().EditValue();
    if (Vars().Editor() == nullptr || Pick(2) == 0) return;
    Vars().Editor()->setText("5");
    QTest::keyClick(Vars().Editor(), Qt::Key_Return);
  }
  void EditList() {
    ClickMargin(static_cast<int>(Pick(8)));
    Edit().setCursorPosition(static_cast<int>(Pick(4)), 0);
    if (Pick(3) == 0) Edit().insert("\n");
  }

  void Act() {
    constexpr const char* COMMANDS[] = {"run", "stop", "stov", "stin", "stot", "rtcr", "tgbp"};
    switch (Pick(12)) {
      case 0:
        mEngine->Context().prefs->BrkS.store(Pick(2) == 0);
        mEngine->Context().exitStates->UDbg.store(Pick(4) != 0);
        return RunList(PROGRAMS[Pick(std::size(PROGRAMS))]);
      case 1:
        return Send("kill");
      case 2:
        return EditList();
      case 3:
        return ClickInLists();
      case 4:
        return View().KeyDown("\n");
      case 5:
        return View().CtrlKeyDown('C');
      case 6:
        return RunList();
      default:
        return Send(COMMANDS[Pick(std::size(COMMANDS))]);
    }
  }

  std::minstd_rand mRandom{20};
};

TEST_F(TDebugStressTest, ActionsAtRandom) {
  const char* const wanted = std::getenv("ZOKA_STRESS_SECONDS");
  const qint64 milliseconds = wanted != nullptr ? std::atoll(wanted) * 1000 : 0;
  QElapsedTimer clock;
  clock.start();
  RunList(PROGRAMS[0]);
  for (unsigned i = 0; i < CLICKS || clock.elapsed() < milliseconds; ++i) {
    Act();
    for (unsigned turn = Pick(4); turn > 0; --turn) QApplication::processEvents();
    AnswerAlert();
  }
  mApp->MainWindow().Kill();
  ASSERT_TRUE(Until([&] {
    AnswerAlert();
    return IsIdle() && !Model().HasDebugger() && mEngine->Alerts().OpenDialog() == nullptr;
  }));
  Document().SetModified(false);
  EXPECT_TRUE(mApp->QuitRequested());
}

TEST_F(TDebugStressTest, QuitAtAnyMoment) {
  for (int round = 0; round < 6; ++round) {
    mEngine->Context().exitStates->UDbg.store(true);
    RunList(PROGRAMS[0]);
    for (unsigned i = Pick(30); i > 0; --i) {
      Send(Pick(2) == 0 ? "stop" : "stin");
      QApplication::processEvents();
    }
    Document().SetModified(false);
    EXPECT_TRUE(mApp->QuitRequested());
    mApp.reset();
    mEngine->Context().privacy.quitting.store(false);
    mApp = std::make_unique<TBasicApp>(*mEngine);
    mApp->ReadyToRun("");
  }
}

}  // namespace
}  // namespace zoka
