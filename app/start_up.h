// The window application from its first line to its last, for the program and for tests that drive
// it from outside.
#pragma once

#include <functional>

#include "app/basic_app.h"

namespace zoka {

/// Runs the application with the arguments of main(), the user's settings and desktop. `started`,
/// if there is one, is called on the window thread when the windows stand. Returns the status of
/// the process.
int run_application(int argc, char** argv, const std::function<void(TBasicApp&)>& started = {});

}  // namespace zoka
