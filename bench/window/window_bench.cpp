// The window while programs run: how fast they draw into it, how long the window thread works in
// one go, how soon a key is seen, what an idle window costs. It prints figures and judges nothing.
#include <sys/resource.h>

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QTimer>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <vector>

#include "app/basic_app.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

constexpr double MILLISECONDS = 1000;

double seconds_of(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double process_seconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// What the window thread did since Begin: the longest piece of work between two looks at the
/// events, and how the pictures followed each other.
struct TWindowLog {
  double longestWall = 0;
  double longestCpu = 0;
  int pictures = 0;
  double longestGap = 0;
  double lastPicture = 0;

  void Begin() { *this = {}; }
  void Picture() {
    const double now = seconds_of(CLOCK_MONOTONIC);
    if (pictures++ > 0) longestGap = std::max(longestGap, now - lastPicture);
    lastPicture = now;
  }
};

/// Times each event that is not handled inside of another.
class TTimedApplication final : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override {
    if (mInside) return QApplication::notify(receiver, event);
    mInside = true;
    const double wall = seconds_of(CLOCK_MONOTONIC);
    const double cpu = seconds_of(CLOCK_THREAD_CPUTIME_ID);
    const bool result = QApplication::notify(receiver, event);
    log.longestWall = std::max(log.longestWall, seconds_of(CLOCK_MONOTONIC) - wall);
    log.longestCpu = std::max(log.longestCpu, seconds_of(CLOCK_THREAD_CPUTIME_ID) - cpu);
    mInside = false;
    return result;
  }
  TWindowLog log;

 private:
  bool mInside = false;
};

/// The whole application with settings of its own, its run window shown.
class TBench : private QObject {
 public:
  explicit TBench(TTimedApplication& application)
      : mApplication(application), mEngine(Place(), TLanguage::English), mApp(mEngine) {
    mApp.ReadyToRun("");
    mApp.RunWindow().Appear();
    Widget().installEventFilter(this);
    RunFor(1);
  }

  /// Runs a program of the benchmarks and prints its line.
  void Measure(const std::filesystem::path& path) {
    std::ifstream file(path);
    std::string first;
    std::getline(file, first);
    const size_t wanted = first.find("wanted ");
    mApplication.log.Begin();
    const double begin = seconds_of(CLOCK_MONOTONIC);
    const double others = process_seconds() - seconds_of(CLOCK_THREAD_CPUTIME_ID);
    Run(path.string());
    RunUntil([this] { return mApp.MainWindow().Document().State() == TDocumentState::Idle; });
    const double seconds = seconds_of(CLOCK_MONOTONIC) - begin;
    const double work = process_seconds() - seconds_of(CLOCK_THREAD_CPUTIME_ID) - others;
    const TWindowLog& log = mApplication.log;
    std::printf("%-12s %11.0f %8.2f %8.2f %9.1f %8.1f   %s\n", path.stem().c_str(),
                Checked() / work, log.longestCpu * MILLISECONDS, log.longestWall * MILLISECONDS,
                log.pictures / seconds, log.longestGap * MILLISECONDS,
                wanted == std::string::npos ? "" : first.substr(wanted).c_str());
  }

  /// From the host's key event to the painting that shows the character.
  void MeasureKeys() {
    constexpr int ROUNDS = 100;
    Run(Program("10 CLS\n20 A$=INKEY$:IF A$=\"\" THEN 20\n30 LOCATE 0,0:PRINT A$;:GOTO 20\n"));
    RunFor(0.5);
    std::vector<double> latencies;
    std::vector<int> paintings;
    for (int i = 0; i < ROUNDS; ++i) {
      RunFor(0.02 + i % 7 * 0.003);
      mAwaited = i % 2 ? "A" : "B";
      mApplication.log.Begin();
      const double begin = seconds_of(CLOCK_MONOTONIC);
      QKeyEvent event(QEvent::KeyPress, i % 2 ? Qt::Key_A : Qt::Key_B, Qt::NoModifier,
                      QString::fromStdString(mAwaited));
      QApplication::sendEvent(&Widget(), &event);
      RunUntil([this] { return mAwaited.empty(); });
      latencies.push_back((seconds_of(CLOCK_MONOTONIC) - begin) * MILLISECONDS);
      paintings.push_back(mApplication.log.pictures);
    }
    mApp.MainWindow().Kill();
    std::sort(latencies.begin(), latencies.end());
    std::printf("Key to picture:      median %.2f ms, most %.2f ms, at painting %d at the latest\n",
                latencies[latencies.size() / 2], latencies.back(),
                *std::max_element(paintings.begin(), paintings.end()));
  }

  void MeasureIdle() {
    constexpr double SPAN = 5;
    Run(Program("10 CLS:INPUT A\n"));
    RunFor(1);
    const double before = process_seconds();
    RunFor(SPAN);
    std::printf("Idle, INPUT waiting: %.2f %% of a core\n",
                (process_seconds() - before) / SPAN * 100);
    mApp.MainWindow().Kill();
  }

 private:
  TRunWidget& Widget() { return *mApp.RunWindow().Widget(); }
  TBasicRsrc& Rsrc() { return mApp.RunWindow().RunView()->Rsrc(); }

  TSettingsPlace Place() const {
    TSettingsPlace place;
    place.root = mFolder.Path("settings");
    return place;
  }
  std::string Program(const std::string& text) const {
    mFolder.Write("program.bas", text);
    return mFolder.Path("program.bas");
  }
  void Run(const std::string& path) {
    mApp.MainWindow().OpenFile(path);
    mApp.MainWindow().Run();
  }
  void RunUntil(const std::function<bool()>& condition) {
    while (!condition()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  void RunFor(double seconds) {
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(seconds * MILLISECONDS), &loop, &QEventLoop::quit);
    loop.exec();
  }
  /// How often the program has done its work.
  double Checked() {
    const std::string screen = Rsrc().ScreenText();
    const size_t found = screen.rfind("CHECK");
    if (found == std::string::npos) return 0;
    return QString::fromStdString(screen.substr(found + 5)).section('\n', 0, 0).toDouble();
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    mApplication.log.Picture();
    if (!mAwaited.empty() && Rsrc().RowText(0).starts_with(mAwaited)) mAwaited.clear();
    return false;
  }

  TTimedApplication& mApplication;
  TTempFolder mFolder;
  TAppEngine mEngine;
  TBasicApp mApp;
  std::string mAwaited;
};

}  // namespace
}  // namespace zoka

int main(int argc, char** argv) {
  zoka::TTimedApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  zoka::TBench bench(application);
  std::printf("With the window open and updating:\n%-12s %11s %8s %8s %9s %8s\n", "program",
              "a second", "work ms", "wall ms", "pictures", "gap ms");
  std::vector<std::filesystem::path> programs;
  for (const auto& entry : std::filesystem::directory_iterator(ZOKA_BENCH_PROGRAMS)) {
    if (entry.path().extension() == ".bas") programs.push_back(entry.path());
  }
  std::sort(programs.begin(), programs.end());
  for (const auto& path : programs) bench.Measure(path);
  std::printf(
      "(a second of processor time beside the window's thread; work, wall: longest time in one go\n"
      " on that thread; pictures a second, and the longest time between two)\n\n");
  bench.MeasureKeys();
  bench.MeasureIdle();
  return 0;
}
