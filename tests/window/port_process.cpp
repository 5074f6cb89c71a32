// The process at the port.
#include "tests/window/port_process.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <cstdio>

#include "app/iap_port.h"

namespace zoka {

int run_port_process(const char* folder) {
  TIAPPortManager port(folder, {[](TIAPRole role) {
                                  const bool owner = role == TIAPRole::Owner;
                                  const bool client = role == TIAPRole::Client;
                                  std::puts(owner ? "owner" : client ? "client" : "alone");
                                  std::fflush(stdout);
                                },
                                {}});
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
  port.Search();
  return QCoreApplication::exec();
}

void start_port_process(QProcess* process, const std::string& folder) {
  process->start(QCoreApplication::applicationFilePath(),
                 {PORT_PROCESS_OPTION, QString::fromStdString(folder)});
}

}  // namespace zoka
