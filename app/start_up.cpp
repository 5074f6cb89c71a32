// The order of starting: settings, splash, windows.
#include "app/start_up.h"

#include <QApplication>
#include <QTimer>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "app/end_signals.h"
#include "app/held_modifiers.h"
#include "app/list_mime.h"
#include "app/logo.h"
#include "common/last_acts.h"
#include "sound/alsa_client.h"

namespace zoka {
namespace {

/// The application while its event loop runs: the toolkit ends the process by exit() when the
/// connection to the display breaks.
TBasicApp* gRunningApp = nullptr;

void end_at_exit() {
  if (gRunningApp != nullptr) gRunningApp->EndAtExit();
}

constexpr int ICON_SIZES[] = {16, 32, 48, 128};

TSettingsPlace settings_place() {
  TSettingsPlace place = TSettingsPlace::OfUser();
  place.modifiers = held_modifiers;
  return place;
}

/// What the user names, byte for byte (the names of old disks need not be in the encoding of the
/// locale), with the folder's own name in it, which becomes that of drive 1.
std::string absolute_path(const std::filesystem::path& path) {
  if (path.empty() || path.is_absolute()) return path.string();
  std::error_code error;
  const auto folder = std::filesystem::weakly_canonical("." / path.parent_path(), error);
  return error ? path.string() : (folder / path.filename()).string();
}

void name_application() {
  QApplication::setApplicationName(APP_NAME);
  QApplication::setApplicationVersion(APP_VERSION);
  QApplication::setDesktopFileName(DESKTOP_NAME);
  QIcon icon;
  for (const int size : ICON_SIZES) icon.addPixmap(QPixmap::fromImage(app_icon(size)));
  QApplication::setWindowIcon(icon);
}

}  // namespace

int run_application(int argc, char** argv, const std::function<void(TBasicApp&)>& started) {
  do_in_crash({silence_alsa_in_crash});
  // A file that grows beyond its limit is told by the write that fails, as a full disk is.
  std::signal(SIGXFSZ, SIG_IGN);
  QApplication application(argc, argv);
  // The toolkit takes the user's decimal comma over; numbers of programs have a point.
  std::setlocale(LC_NUMERIC, "C");
  name_application();
  TAppEngine engine(settings_place(), TCatalogue::FromEnvironment());
  engine.Desktop() = TDesktop::OfUser();
  const std::string path = argc > 1 ? absolute_path(argv[1]) : "";
  std::unique_ptr<TBasicApp> app;
  // A signal may come before there is an application, or even an event loop.
  bool isToEnd = false;
  const TEndSignals endSignals([&] {
    isToEnd = true;
    app ? app->EndWithoutAsking() : QApplication::exit(0);
  });
  TSplashWindow* splash = nullptr;
  const auto start = [&] {
    if (isToEnd) return QApplication::exit(0);
    app = std::make_unique<TBasicApp>(engine, splash);
    gRunningApp = app.get();
    std::atexit(end_at_exit);
    app->ReadyToRun(path);
    if (engine.IsNewUser() && path.empty()) app->ShowFirstStartPage();
    if (started) started(*app);
  };
  if (engine.Context().prefs->SSls.load()) {
    TWindowContext context{engine.Context(), engine.Registry(), {}};
    splash = new TSplashWindow(context);
    splash->ShowThen(start);
  } else {
    QTimer::singleShot(0, &application, start);
  }
  const int status = QApplication::exec();
  gRunningApp = nullptr;
  return status;
}

}  // namespace zoka
