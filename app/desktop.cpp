// The folders and programs of the user's desktop.
#include "app/desktop.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QProcess>

namespace zoka {
namespace {

/// Where shared data of the system is if the environment does not say.
constexpr const char DEFAULT_DATA_FOLDERS[] = "/usr/local/share:/usr/share";

/// The folder that the variable names, else `below` the user's home; empty without a home.
QString user_folder(const char* variable, const char* below) {
  QString named = qEnvironmentVariable(variable);
  if (QDir::isAbsolutePath(named)) return named;
  const QString home = qEnvironmentVariable("HOME");
  return QDir::isAbsolutePath(home) ? home + below : QString();
}

bool start_quietly(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.setProgram(program);
  process.setArguments(arguments);
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  return process.startDetached();
}

}  // namespace

TDesktop TDesktop::OfUser() {
  TDesktop desktop;
  desktop.dataHome = user_folder("XDG_DATA_HOME", "/.local/share");
  desktop.configHome = user_folder("XDG_CONFIG_HOME", "/.config");
  desktop.program = QCoreApplication::applicationFilePath();
  if (!desktop.dataHome.isEmpty()) desktop.dataFolders.append(desktop.dataHome);
  const QString others = qEnvironmentVariable("XDG_DATA_DIRS");
  desktop.dataFolders +=
      (others.isEmpty() ? QString(DEFAULT_DATA_FOLDERS) : others).split(':', Qt::SkipEmptyParts);
  desktop.start = start_quietly;
  desktop.openUrl = [](const QUrl& url) { return QDesktopServices::openUrl(url); };
  return desktop;
}

}  // namespace zoka
