// All windows and dialogs of the application, to be opened one after the other by tests that look
// at each of them, and by the gallery. A new window is one more row of the table.
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "app/basic_app.h"

namespace zoka {

/// What a walk needs of an application that is up.
struct TWalkedApp {
  TBasicApp& app;
  TAppEngine& engine;
  /// An existing program to be shown in the editor.
  std::string program;
};

/// A window: its name for messages and files, and how it comes to the screen.
struct TWalkedWindow {
  const char* name;
  /// Returns it as soon as it is visible; null if that takes the event loop: call again then.
  std::function<QWidget*(const TWalkedApp&)> open;
};

/// Each is opened on its own, and closed by the caller before the next; the main window stays.
const std::vector<TWalkedWindow>& walked_windows();

/// Opens it, waiting on the event loop; null if it does not come within some seconds.
QWidget* open_walked_window(const TWalkedWindow& window, const TWalkedApp& app);

void close_walked_window(QWidget& window, const TWalkedApp& app);

/// The pages of the window one after the other: calls `look` once if it has no tabs, else for each
/// of them with the title of the page.
void for_each_page(QWidget& window, const std::function<void(const QString& page)>& look);

}  // namespace zoka
