// Starts the window application.
#include <QApplication>
#include <QFile>
#include <clocale>

#include "app/basic_app.h"
#include "app/end_signals.h"
#include "app/held_modifiers.h"
#include "common/last_acts.h"
#include "sound/alsa_client.h"

int main(int argc, char** argv) {
  zoka::do_in_crash({zoka::silence_alsa_in_crash});
  QApplication application(argc, argv);
  // The toolkit takes the user's decimal comma over; numbers of programs have a point.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName(zoka::APP_NAME);
  QApplication::setApplicationVersion(zoka::APP_VERSION);
  zoka::TSettingsPlace place = zoka::TSettingsPlace::OfUser();
  place.modifiers = zoka::held_modifiers;
  zoka::TAppEngine engine(place, zoka::TCatalogue::FromEnvironment());
  zoka::TBasicApp app(engine);
  const zoka::TEndSignals endSignals([&app] { app.EndWithoutAsking(); });
  const QStringList arguments = QApplication::arguments();
  app.ReadyToRun(arguments.size() > 1 ? QFile::encodeName(arguments[1]).toStdString() : "");
  return QApplication::exec();
}
