// How long the window application lets its user wait: a key in a long list, a large file, the way
// from F5 to the first output. It prints what it has measured and judges nothing.
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/basic_app.h"
#include "tests/support/temp_folder.h"

namespace zoka {
namespace {

constexpr int LONG_LIST_LINES = 20'000;
constexpr int KEYS = 300;
constexpr size_t LARGE_FILE_BYTES = 2'000'000;
constexpr int RUN_LINES = 1'000;
constexpr int ROUNDS = 10;
constexpr double NS_PER_MS = 1e6;
constexpr double MS_PER_S = 1e3;

/// A list as people write them: numbers, jumps to lines and labels, texts, comments; every tenth
/// jump leads nowhere.
std::string long_list(int lines) {
  std::string text;
  for (int i = 1; i <= lines; ++i) {
    const std::string number = std::to_string(i * 10);
    text += number;
    switch (i % 5) {
      case 0:
        text += " *LABEL" + std::to_string(i) + ":COUNT" + std::to_string(i % 300) + "=" + number;
        break;
      case 1:
        text += " IF A$=\"TEXT\" THEN " + std::to_string((i % 10 == 1 ? 5 : 10) * i) + " ELSE 20";
        break;
      case 2:
        text += " GOSUB *LABEL" + std::to_string(i * 3 % lines / 5 * 5) + ":PRINT A;B$,C%(3)";
        break;
      case 3:
        text += " ' a remark: 漢字とカナ";
        break;
      default:
        text += " FOR I=1 TO 10:X(I)=SIN(I*3.14/180)*&HFF:NEXT I:DATA 1,2,3";
        break;
    }
    text += "\n";
  }
  return text;
}

/// Times of one kind.
class TTimes {
 public:
  explicit TTimes(const char* name) : mName(name) {}

  void Measure(const std::function<void()>& work) {
    QElapsedTimer timer;
    const std::clock_t before = std::clock();
    timer.start();
    work();
    mTimes.push_back(static_cast<double>(timer.nsecsElapsed()) / NS_PER_MS);
    mBusy.push_back(static_cast<double>(std::clock() - before) * MS_PER_S / CLOCKS_PER_SEC);
  }
  /// Passed time, and beside it the processor's, which tells more on a busy machine.
  void Print() {
    std::sort(mTimes.begin(), mTimes.end());
    std::sort(mBusy.begin(), mBusy.end());
    std::printf("%-36s %7.2f ms, 95%% %7.2f, max %7.2f; processor %7.2f, 95%% %7.2f\n", mName,
                At(mTimes, 0.5), At(mTimes, 0.95), mTimes.back(), At(mBusy, 0.5), At(mBusy, 0.95));
  }

 private:
  static double At(const std::vector<double>& sorted, double part) {
    return sorted[static_cast<size_t>(part * static_cast<double>(sorted.size() - 1))];
  }

  const char* mName;
  std::vector<double> mTimes;
  std::vector<double> mBusy;
};

class TEditorBench {
 public:
  TEditorBench() {
    mPlace.root = mFolder.Path("settings");
    mEngine = std::make_unique<TAppEngine>(mPlace, TLanguage::English);
    mApp = std::make_unique<TBasicApp>(*mEngine);
    mApp->ReadyToRun("");
    Settle();
  }

  void TypeInALongList() {
    Edit().Set(long_list(LONG_LIST_LINES));
    Settle();
    const std::string line = "15 PRINT A$:GOTO 70:COUNT1=";
    for (const auto& [name, at] :
         {std::pair{"key, at the start of 20,000 lines", 0L},
          std::pair{"key, in the middle", Length() / 2}, std::pair{"key, at the end", Length()}}) {
      GoToLineOf(at);
      TTimes times(name);
      for (int i = 0; i < KEYS; ++i) {
        times.Measure([&] { Press(line[static_cast<size_t>(i) % line.size()]); });
      }
      times.Print();
    }
    GoToLineOf(0);
    TTimes lines("Return and Backspace, at the start");
    for (int i = 0; i < KEYS / 10; ++i) {
      lines.Measure([&] { Press('\r', Qt::Key_Return); });
      lines.Measure([&] { Press('\b', Qt::Key_Backspace); });
    }
    lines.Print();
  }

  void OpenALargeFile() {
    std::string text = long_list(LONG_LIST_LINES * 3);
    text.resize(std::min(text.size(), LARGE_FILE_BYTES));
    mFolder.Write("large.bas", text);
    TTimes times("open a file of 2 MB, to the picture");
    for (int i = 0; i < ROUNDS; ++i) {
      times.Measure([&] {
        Document().OpenList(mFolder.Path("large.bas"), 0);
        Settle();
      });
    }
    times.Print();
  }

  void RunALongList() {
    std::string rest;
    for (int i = 2; i <= RUN_LINES; ++i) {
      rest += std::to_string(i * 10) + " A=A+" + std::to_string(i) + ":B$=\"X\":IF A=1 THEN 10\n";
    }
    TTimes times("F5 to the first output, 1,000 lines");
    for (int i = 0; i < ROUNDS; ++i) {
      const std::string shown = "round " + std::to_string(i);
      Edit().Set("10 PRINT \"" + shown + "\"\n" + rest);
      Settle();
      times.Measure([&] {
        mApp->MainWindow().Run();
        WaitFor([&] { return Shows(shown); });
      });
      WaitFor([&] { return Document().State() == TDocumentState::Idle; });
    }
    times.Print();
  }

 private:
  TEditTxtView& Edit() { return mApp->MainWindow().View().Edit(); }
  TListDocument& Document() { return mApp->MainWindow().Document(); }
  long Length() { return Edit().SendScintilla(QsciScintillaBase::SCI_GETLENGTH); }

  void GoToLineOf(long offset) {
    const long line = Edit().SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION,
                                           static_cast<unsigned long>(offset));
    Edit().GoToOffset(static_cast<size_t>(Edit().SendScintilla(
        QsciScintillaBase::SCI_POSITIONFROMLINE, static_cast<unsigned long>(line))));
    Settle();
  }
  /// A key, until what it has changed is painted.
  void Press(char c, int key = 0) {
    const QString text(QChar::fromLatin1(c));
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier, text);
      QApplication::sendEvent(&Edit(), &event);
    }
    Settle();
  }
  bool Shows(const std::string& text) {
    return mApp->RunWindow().RunView()->Rsrc().ScreenText().find(text) != std::string::npos;
  }
  /// What has been posted is done, and the editor's picture is painted anew.
  void Settle() {
    QApplication::processEvents();
    Edit().viewport()->repaint();
  }
  void WaitFor(const std::function<bool()>& condition) {
    while (!condition()) QApplication::processEvents(QEventLoop::AllEvents, 1);
  }

  TTempFolder mFolder;
  TSettingsPlace mPlace;
  std::unique_ptr<TAppEngine> mEngine;
  std::unique_ptr<TBasicApp> mApp;
};

}  // namespace
}  // namespace zoka

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  zoka::TEditorBench bench;
  bench.TypeInALongList();
  bench.OpenALargeFile();
  bench.RunALongList();
  return 0;
}
