// Lists that are opened while a program runs; and the application's own process, whose files may
// not be allowed to grow.
#include <csignal>

#include <QDropEvent>
#include <QMimeData>
#include <QProcess>
#include <QProcessEnvironment>
#include <QUrl>
#include <fstream>

#include "tests/window/start_rig.h"

namespace zoka {
namespace {

class TListLoad : public TStartRig {};

TEST_F(TListLoad, OpeningLeavesTheProgramRunningAndKillLive) {
  mFolder.Write("b.bas", "10 PRINT \"B\"\n");
  Start();
  Edit().Set("10 GOTO 10\n");
  Choose("run");
  ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Running; }));
  PostRefs(mFolder.Path("b.bas"));
  EXPECT_EQ(Edit().Get(), "10 PRINT \"B\"\n");
  EXPECT_EQ(Document().State(), TDocumentState::Running);
  EXPECT_TRUE(Window().FindItem("kill")->isEnabled());
  Choose("kill");
  ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Idle; }));
  EXPECT_FALSE(Window().FindItem("kill")->isEnabled());
}

TEST_F(TListLoad, OpeningEndsACompilation) {
  mFolder.Write("b.bas", "10 PRINT \"B\"\n");
  Start();
  Edit().Set("10 PRINT &O7\n");  // the compiler never comes to its end
  Choose("run");
  ASSERT_EQ(Document().State(), TDocumentState::Compiling);
  PostRefs(mFolder.Path("b.bas"));
  EXPECT_EQ(Document().State(), TDocumentState::Idle);
  EXPECT_FALSE(Window().FindItem("kill")->isEnabled());
  EXPECT_EQ(Edit().Get(), "10 PRINT \"B\"\n");
}

/// A program that waits for a line and then fails in its second line.
constexpr const char FAILING[] = "10 LINE INPUT A$\n20 GOTO 999\n";

class TLateFault : public TListLoad {
 protected:
  void StartFailing() {
    Start();
    Edit().Set(FAILING);
    Choose("run");
    ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Running; }));
  }
  /// Gives the program its line and waits for its end.
  void Fail() {
    AnswerNext(Qt::Key_U);
    QTest::keyClick(mApp->RunWindow().Widget(), Qt::Key_Return);
    ASSERT_TRUE(Until([this] { return Document().State() == TDocumentState::Idle; }));
  }
};

TEST_F(TLateFault, ItsLineIsFoundAgainBelowLinesThatWerePutIn) {
  StartFailing();
  Edit().insertAt("5 REM\n", 0, 0);
  Fail();
  EXPECT_EQ(Edit().FaultLine(), 2);
}

TEST_F(TLateFault, NoLineOfAnotherListIsMarked) {
  mFolder.Write("b.bas", "10 REM\n20 REM\n30 REM\n");
  StartFailing();
  PostRefs(mFolder.Path("b.bas"));
  Fail();
  EXPECT_EQ(Edit().FaultLine(), -1);
  EXPECT_NE(Status(), "");
}

/// True if the bit of a signal is set in a line of the process's status, such as "SigIgn".
bool has_signal(qint64 process, const std::string& line, int number) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string text; std::getline(status, text);) {
    if (!text.starts_with(line + ":")) continue;
    return std::stoull(text.substr(line.size() + 1), nullptr, 16) >> (number - 1) & 1;
  }
  return false;
}

/// A Shift-JIS name, as old disks have them; no UTF-8.
constexpr const char SJIS_NAME[] = "\x83\x5C.bas";

TEST_F(TListLoad, NamesThatAreNoUtf8AreOpenedWhereTheyAreDropped) {
  mFolder.Write(SJIS_NAME, "10 END\n");
  Start();
  QMimeData files;
  const QByteArray folder = QByteArray::fromStdString(mFolder.Path());
  files.setUrls({QUrl::fromEncoded("file://" + folder + "/%83%5C.bas")});
  QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Edit().viewport(), &enter);
  QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Edit().viewport(), &drop);
  ASSERT_TRUE(Until([this] { return Document().CurPath() == mFolder.Path(SJIS_NAME); }));
  EXPECT_EQ(Edit().Get(), "10 END\n");
  EXPECT_EQ(Window().History().MRUFAt(0), mFolder.Path(SJIS_NAME));
}

/// The application as a process of its own, with settings in a folder that goes with it. It is
/// started by a shell, which makes bytes that the toolkit's texts can't hold.
class TListLoadProcess : public testing::Test {
 protected:
  /// `arguments`: of printf, which writes the application's only argument.
  void Start(const QString& arguments) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("XDG_CONFIG_HOME", QString::fromStdString(mFolder.Path()));
    environment.insert("XDG_DATA_HOME", QString::fromStdString(mFolder.Path("data")));
    mProcess.setProcessEnvironment(environment);
    mProcess.setWorkingDirectory(QString::fromStdString(mFolder.Path()));
    mProcess.setChildProcessModifier([] { std::signal(SIGXFSZ, SIG_DFL); });
    const QString command = "exec \"$0\" \"$(printf " + arguments + ")\"";
    mProcess.start("/bin/sh", {"-c", command, ZOKA_BASIC_PROGRAM});
    ASSERT_TRUE(mProcess.waitForStarted(LONGEST_WAIT_MS));
  }
  std::string History() const { return mFolder.Read("KORUNE/ZokaBASIC/ZokaBASIC_MRUF.arc"); }
  void End() {
    mProcess.terminate();
    ASSERT_TRUE(mProcess.waitForFinished(LONGEST_WAIT_MS));
    EXPECT_EQ(mProcess.exitCode(), 0);
  }

  static constexpr int LONGEST_WAIT_MS = 30'000;
  TTempFolder mFolder;
  QProcess mProcess;
};

TEST_F(TListLoadProcess, ANameThatIsNoUtf8IsOpenedByItsBytes) {
  mFolder.Write(SJIS_NAME, "10 END\n");
  ASSERT_NO_FATAL_FAILURE(Start("'\\203\\134.bas'"));
  EXPECT_TRUE(QTest::qWaitFor([this] { return !History().empty(); }, LONGEST_WAIT_MS));
  EXPECT_NE(History().find(mFolder.Path(SJIS_NAME)), std::string::npos);
  End();
}

TEST_F(TListLoadProcess, AFileThatMayGrowNoFurtherDoesNotKill) {
  mFolder.Write("a.bas", "10 END\n");
  ASSERT_NO_FATAL_FAILURE(Start("a.bas"));
  ASSERT_TRUE(QTest::qWaitFor([this] { return !History().empty(); }, LONGEST_WAIT_MS));
  EXPECT_TRUE(has_signal(mProcess.processId(), "SigIgn", SIGXFSZ));
  End();
}

}  // namespace
}  // namespace zoka
