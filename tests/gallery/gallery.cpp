// Writes a picture of every window, dialog and menu, in every language and theme, into a folder. It
// judges nothing: the pictures are for people. The scale is the toolkit's (QT_SCALE_FACTOR).
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QtTest/QTest>
#include <clocale>
#include <cstdio>

#include "app/settings/iap_item.h"
#include "tests/support/temp_folder.h"
#include "tests/window/walked_windows.h"

namespace {

using namespace zoka;

/// A list with something of everything that has a colour.
constexpr const char PROGRAM[] =
    "10 REM A picture for the gallery / ギャラリー用\n"
    "20 CLS 3:CONSOLE 0,25,0,1:LOCATE 10,5\n"
    "30 FOR I=1 TO 7\n"
    "40   COLOR I:PRINT \"HELLO こんにちは\";I\n"
    "50   CIRCLE (320,100),I*20,I\n"
    "60 NEXT I\n"
    "70 *LOOP:A$=INKEY$:IF A$=\"\" THEN *LOOP ELSE 999\n"
    "80 PRINT 1.5#+&HFF,DATE$:GOSUB *LOOP:END\n";
constexpr int SETTLE_MS = 30;

class TGallery {
 public:
  TGallery(const QString& folder, const TWalkedApp& walked) : mFolder(folder), mWalked(walked) {}

  int WriteAll() {
    for (const TLanguage language : {TLanguage::English, TLanguage::Japanese}) {
      mWalked.app.SetLanguage(language);
      for (const char* theme : {FOLLOW_SYSTEM, THEME_LIGHT, THEME_DARK, THEME_CONTRAST}) {
        Choose(theme);
        mStyle = QString("-%1-%2.png").arg(language == TLanguage::English ? "en" : "ja", theme);
        WriteWindows();
      }
    }
    return mWritten;
  }

 private:
  void Choose(const char* theme) {
    TInterAppPrefs& shared = *mWalked.engine.Context().interAppPrefs;
    shared.SetString(THEME_ITEM, theme);
    TMessage message(IAP_CHANGED_CODE);
    add_default_info(&message, THEME_ITEM);
    shared.NotifyToObservers(message);
    QTest::qWait(SETTLE_MS);
  }

  void WriteWindows() {
    for (const TWalkedWindow& walked : walked_windows()) {
      QWidget* const window = open_walked_window(walked, mWalked);
      if (window == nullptr) {
        std::fprintf(stderr, "%s did not open\n", walked.name);
        continue;
      }
      for_each_page(*window, [&, page = 0](const QString& title) mutable {
        const QString number = title.isEmpty() ? QString() : QString("-%1").arg(++page);
        Write(*window, walked.name + number);
      });
      WriteMenus(*window, walked.name);
      close_walked_window(*window, mWalked);
    }
  }

  void WriteMenus(QWidget& window, const QString& name) {
    auto* const frame = qobject_cast<QMainWindow*>(&window);
    auto* const bar = frame ? qobject_cast<QMenuBar*>(frame->menuWidget()) : nullptr;
    if (bar == nullptr || name == "find") return;
    int number = 0;
    for (const QAction* title : bar->actions()) {
      title->menu()->popup(window.mapToGlobal(QPoint(0, 0)));
      Write(*title->menu(), QString("%1-menu-%2").arg(name).arg(++number));
      title->menu()->hide();
    }
  }

  void Write(QWidget& widget, const QString& name) {
    QTest::qWait(SETTLE_MS);
    if (widget.grab().save(mFolder + "/" + name + mStyle)) ++mWritten;
  }

  QString mFolder;
  TWalkedApp mWalked;
  QString mStyle;
  int mWritten = 0;
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("XDG_RUNTIME_DIR", "");
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  if (argc != 2 || !QDir().mkpath(argv[1])) {
    std::fputs("gallery FOLDER\n", stderr);
    return 64;
  }
  const TTempFolder folder;
  folder.Write("maze.bas", PROGRAM);
  TSettingsPlace place;
  place.root = folder.Path("settings");
  TAppEngine engine(place, TLanguage::English);
  TBasicApp app(engine);
  app.ReadyToRun("");
  const int written = TGallery(argv[1], {app, engine, folder.Path("maze.bas")}).WriteAll();
  std::printf("%d pictures in %s\n", written, argv[1]);
  return written > 0 ? 0 : 1;
}
