// The end that the host asks for by a signal: in order, without questions, and no text is lost.
#include "app/end_signals.h"

#include <signal.h>

#include <QProcessEnvironment>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "tests/window/window_rig.h"

namespace zoka {
namespace {

class TEndSignalsTest : public TWindowRig {
 protected:
  /// What the next start would offer to restore; empty for nothing.
  std::string Leftover() const { return mFolder.Read("settings/ZokaBASIC/AutoSave.journal"); }

  /// Runs the event loop as main() does, with `events` one after the other and then the host's wish
  /// to end; the windows go behind it.
  void EndAfter(std::initializer_list<std::function<void()>> events) {
    for (const auto& event : events) QTimer::singleShot(0, qApp, event);
    QTimer::singleShot(0, qApp, [this] { mApp->EndWithoutAsking(); });
    EXPECT_EQ(QApplication::exec(), 0);
    mApp.reset();
  }
};

TEST_F(TEndSignalsTest, EachEndingSignalIsToldOnTheEventLoop) {
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
    int told = 0;
    const TEndSignals endSignals([&told] { ++told; });
    ::raise(number);
    EXPECT_EQ(told, 0) << number;
    EXPECT_TRUE(Until([&told] { return told > 0; })) << number;
    EXPECT_EQ(told, 1) << number;
  }
}

TEST_F(TEndSignalsTest, IgnoredSignalsStayIgnored) {
  const auto former = ::signal(SIGHUP, SIG_IGN);
  {
    int told = 0;
    const TEndSignals endSignals([&told] { ++told; });
    ::raise(SIGHUP);
    ::raise(SIGTERM);
    EXPECT_TRUE(Until([&told] { return told > 0; }));
    EXPECT_EQ(told, 1);
  }
  EXPECT_EQ(::signal(SIGHUP, former), SIG_IGN);
}

TEST_F(TEndSignalsTest, AfterItsLifeASignalKillsAgain) {
  {
    const TEndSignals endSignals([] {});
  }
  for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
    EXPECT_EQ(::signal(number, SIG_DFL), SIG_DFL) << number;
  }
}

TEST_F(TEndSignalsTest, UnsavedTextIsThereAtTheNextStart) {
  QTest::keyClicks(&mApp->MainWindow().View().Edit(), "10 REM");
  ASSERT_TRUE(Document().IsModified());
  EndAfter({});
  EXPECT_EQ(Leftover(), "10 REM");
}

TEST_F(TEndSignalsTest, TheAutoSaveListStaysWithoutUnsavedTextToo) {
  RunToEnd("10 PRINT 1\n");
  EndAfter({});
  // Only a regular end deletes it.
  EXPECT_EQ(mFolder.Read("settings/ZokaBASIC/AutoSave.bas"), "10 PRINT 1\n");
}

TEST_F(TEndSignalsTest, AQuestionDoesNotHoldTheEndUp) {
  bool asked = false;
  EndAfter({[this] { EXPECT_FALSE(mApp->MainWindow().OpenFile(mFolder.Path("none.bas"))); },
            [&] { asked = mEngine->Alerts().OpenDialog() != nullptr; }});
  EXPECT_TRUE(asked);
}

TEST_F(TEndSignalsTest, AWaitingProgramDoesNotHoldTheEndUp) {
  StartUntil("10 INPUT \"number\";A\n", "number?");
  EndAfter({});
}

/// True once the process has a handler for SIGTERM.
bool catches_sigterm(qint64 process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  constexpr std::string_view CAUGHT = "SigCgt:";
  for (std::string line; std::getline(status, line);) {
    if (!line.starts_with(CAUGHT)) continue;
    return std::stoull(line.substr(CAUGHT.size()), nullptr, 16) >> (SIGTERM - 1) & 1;
  }
  return false;
}

TEST(TEndSignalsProcess, TheApplicationEndsInOrder) {
  const TTempFolder folder;
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("QT_QPA_PLATFORM", "offscreen");
  environment.insert("XDG_CONFIG_HOME", QString::fromStdString(folder.Path()));
  environment.insert("XDG_DATA_HOME", QString::fromStdString(folder.Path("data")));
  process.setProcessEnvironment(environment);
  process.start(ZOKA_BASIC_PROGRAM, QStringList());
  ASSERT_TRUE(process.waitForStarted(WAIT_MS));
  ASSERT_TRUE(until([&] { return catches_sigterm(process.processId()); }));
  process.terminate();
  ASSERT_TRUE(process.waitForFinished(WAIT_MS));
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(process.exitCode(), 0);
}

}  // namespace
}  // namespace zoka
