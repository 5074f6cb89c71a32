// TDesktop: what the application has of the user's desktop: the folders of types, launchers and
// icons, the programs that it starts there, the browser. Tests give it other ones.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <functional>

namespace zoka {

/// The address of the authors' page. There is none yet: the item for it cannot be chosen.
constexpr const char AUTHOR_PAGE[] = "";

/// An empty one has nothing: nothing is written, started or opened. Window thread.
struct TDesktop {
  /// The user's folder of shared data ($XDG_DATA_HOME); empty: there is none.
  QString dataHome;
  /// All folders of shared data, the user's first.
  QStringList dataFolders;
  /// The user's folder of settings ($XDG_CONFIG_HOME); empty: there is none.
  QString configHome;
  /// The path of this program.
  QString program;
  QString authorPage = AUTHOR_PAGE;
  /// Starts a program and does not wait for it; false if there is none of that name.
  std::function<bool(const QString& program, const QStringList& arguments)> start =
      [](const QString&, const QStringList&) { return false; };
  /// Shows a file or a page with the program that the user has for it; false if that fails.
  std::function<bool(const QUrl& url)> openUrl = [](const QUrl&) { return false; };

  /// The real one. Needs the application object.
  static TDesktop OfUser();
};

}  // namespace zoka
