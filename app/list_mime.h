// TBasicListMime: makes lists known to the user's desktop: their type, and this program as the one
// that opens them. It writes into the user's own folders only, and asks nobody.
#pragma once

#include <QString>

#include "app/desktop.h"

namespace zoka {

/// Its name among the launchers, types and icons of the desktop.
constexpr const char DESKTOP_NAME[] = "zoka-basic";
/// The icon of lists.
constexpr const char LIST_ICON[] = "text-x-basic-source-code";

/// Window thread.
class TBasicListMime {
 public:
  /// `desktop` outlives it.
  explicit TBasicListMime(const TDesktop& desktop) : mDesktop(desktop) {}

  /// True if the desktop has the type of lists, the user's or everybody's.
  bool IsInstalled() const;
  /// Tells the user's desktop of the type, unless it knows it. Does not wait until it has taken
  /// note. False if that cannot be written.
  bool InstallBasicListMime() const;
  /// The same whatever it knows, with icons, a launcher for this program, and the program as the
  /// one that opens lists. False if any of that cannot be written.
  bool RegistBasicListMime() const;

 private:
  bool SetBasicListMimeInfo() const;
  bool WriteIcons() const;
  bool WriteLauncher() const;
  bool WriteDefault() const;

  const TDesktop& mDesktop;
};

/// A path as a launcher's command line must write it.
QString launcher_quoted(const QString& path);

/// The text of a list of default applications with `launcher` as the default for `type`: the entry
/// is replaced or added, all else stays as it is.
QString with_default_application(const QString& text, const QString& type, const QString& launcher);

}  // namespace zoka
