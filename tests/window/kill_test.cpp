// Abnormal ends: the whole application is killed at random moments while somebody types, and the
// next start must bring back all but the last second. ZOKA_KILLS sets the number of kills.
#include <sys/resource.h>

#include <QFile>
#include <QProcess>
#include <charconv>
#include <csignal>
#include <random>
#include <vector>

#include "tests/window/start_rig.h"

namespace zoka {
namespace {

constexpr int DEFAULT_KILLS = 10;
/// Typing of the last this many milliseconds may be lost.
constexpr int64_t LOSS_MS = 1000;
constexpr int MAX_KEYS_BEFORE_KILL = 700;

struct TRecord {
  int64_t time = 0;  // milliseconds
  std::string kind;
  std::string text;
};

/// What the typist has written so far; a record that is not whole yet is left out.
std::vector<TRecord> read_log(const std::string& path) {
  QFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::ReadOnly)) return {};
  const std::string bytes = file.readAll().toStdString();
  std::vector<TRecord> records;
  for (size_t at = 0; at < bytes.size();) {
    const size_t end = bytes.find('\n', at);
    if (end == bytes.npos) break;
    const QStringList head = QString::fromStdString(bytes.substr(at, end - at)).split(' ');
    const auto size = static_cast<size_t>(head.value(2).toLongLong());
    if (head.size() != 3 || end + 1 + size + 1 > bytes.size()) break;
    records.push_back({head[0].toLongLong(), head[1].toStdString(), bytes.substr(end + 1, size)});
    at = end + 1 + size + 1;
  }
  return records;
}

class TKillTest : public TStartRig {
 protected:
  TKillTest() { mPlace.root = mFolder.Path("config/KORUNE"); }
  ~TKillTest() override { StopTypist(); }

  /// Starts the application with a typist. `keys` until it rests, 0 for never.
  void StartTypist(uint32_t seed, int keys, const std::string& list = "") {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", QString::fromStdString(mFolder.Path()));
    environment.insert("XDG_CONFIG_HOME", QString::fromStdString(mFolder.Path("config")));
    environment.insert("XDG_DATA_HOME", QString::fromStdString(mFolder.Path("data")));
    environment.insert("XDG_RUNTIME_DIR", QString::fromStdString(mFolder.Path()));
    environment.insert("ZOKA_FEED_LOG", QString::fromStdString(mFolder.Path("log")));
    environment.insert("ZOKA_FEED_SEED", QString::number(seed));
    environment.insert("ZOKA_FEED_KEYS", QString::number(keys));
    mTypist.setProcessEnvironment(environment);
    mTypist.setProcessChannelMode(QProcess::ForwardedChannels);
    mTypist.start(ZOKA_FEED,
                  list.empty() ? QStringList() : QStringList(QString::fromStdString(list)));
    ASSERT_TRUE(mTypist.waitForStarted());
  }
  void StopTypist() {
    if (mTypist.state() == QProcess::NotRunning) return;
    mTypist.kill();
    mTypist.waitForFinished();
  }
  size_t Keys() {
    size_t keys = 0;
    for (const TRecord& record : read_log(mFolder.Path("log"))) keys += record.kind == "key";
    return keys;
  }
  bool Rests() {
    const std::vector<TRecord> records = read_log(mFolder.Path("log"));
    return !records.empty() && records.back().kind == "rest";
  }

  /// The text after a restart and Yes; what it began with if there is nothing to ask about.
  std::string Restored() {
    const bool asks = !TAutoSaveSlot(mPlace).Leftover().empty();
    if (asks) AnswerNext(Qt::Key_Y);
    Start();
    EXPECT_EQ(!mAsked.empty(), asks);
    return asks ? Edit().Get() : read_log(mFolder.Path("log")).front().text;
  }

  /// True if `text` is one that the editor held within the last second of the log.
  testing::AssertionResult IsRecent(const std::string& text) {
    const std::vector<TRecord> records = read_log(mFolder.Path("log"));
    if (records.empty()) return testing::AssertionFailure() << "nothing was logged";
    const int64_t end = records.back().time;
    for (size_t i = records.size(); i-- > 0;) {
      if (records[i].text == text) return testing::AssertionSuccess() << end - records[i].time;
      // The text of the record before stood until this one: that is what counts.
      if (end - records[i].time > LOSS_MS) break;
    }
    return testing::AssertionFailure() << "after " << records.size() << " records came back:\n"
                                       << text << "\nlast was:\n"
                                       << records.back().text;
  }

  QProcess mTypist;
};

int kill_count() {
  const int count = qEnvironmentVariableIntValue("ZOKA_KILLS");
  return count > 0 ? count : DEFAULT_KILLS;
}

/// One kill a test, so that each has its own time limit and its own folder.
class TRandomKill : public TKillTest, public testing::WithParamInterface<int> {};

TEST_P(TRandomKill, LosesAtMostASecond) {
  std::mt19937 random(static_cast<uint32_t>(GetParam()));
  const size_t keys = 1 + random() % MAX_KEYS_BEFORE_KILL;
  // Every other list has a name and a text that is saved.
  std::string list;
  if (GetParam() % 2 == 1) {
    mFolder.Write("a.bas", "10 PRINT 1\n20 END\n");
    list = mFolder.Path("a.bas");
  }
  StartTypist(static_cast<uint32_t>(GetParam()), 0, list);
  ASSERT_TRUE(Until([&] { return Keys() >= keys; })) << Keys();
  StopTypist();
  EXPECT_TRUE(IsRecent(Restored()));
  if (!list.empty()) {
    EXPECT_EQ(mFolder.Read("a.bas"), "10 PRINT 1\n20 END\n");
  }
}

INSTANTIATE_TEST_SUITE_P(Moments, TRandomKill, testing::Range(0, kill_count()));

// That the journal follows within a second is what the kills at random moments see.
TEST_F(TKillTest, WhoPausesLosesNothing) {
  StartTypist(7, 25);
  ASSERT_TRUE(Until([this] { return Rests(); }));
  const std::string typed = read_log(mFolder.Path("log")).back().text;
  ASSERT_TRUE(
      Until([&] { return mFolder.Read("config/KORUNE/ZokaBASIC/AutoSave.journal") == typed; }));
  StopTypist();
  EXPECT_EQ(Restored(), typed);
}

TEST_F(TKillTest, SignalsThatEndAProcessKeepTheText) {
  for (const int signal : {SIGTERM, SIGHUP}) {
    StartTypist(7, 25);
    ASSERT_TRUE(Until([this] { return Rests(); }));
    // Most likely before the journal has the last keys.
    ::kill(static_cast<pid_t>(mTypist.processId()), signal);
    ASSERT_TRUE(mTypist.waitForFinished());
    EXPECT_EQ(Restored(), read_log(mFolder.Path("log")).back().text) << signal;
    End();
    std::filesystem::remove(mFolder.Path("log"));
  }
}

}  // namespace
}  // namespace zoka
