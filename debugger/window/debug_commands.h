// The debugger's commands as menus and the tool bar have them: one row a command. What they do is
// the debug view's and the editor's.
#pragma once

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <array>
#include <functional>

#include "common/context.h"

namespace zoka {

/// Codes of the messages.
constexpr const char DEBUG_RUN_OR_GO_ON[] = "rngo";
constexpr const char DEBUG_RUN[] = "run";
constexpr const char DEBUG_PAUSE[] = "stop";
constexpr const char DEBUG_STEP_OVER[] = "stov";
constexpr const char DEBUG_STEP_IN[] = "stin";
constexpr const char DEBUG_STEP_OUT[] = "stot";
constexpr const char DEBUG_KILL[] = "kill";
constexpr const char DEBUG_RUN_TO_CURSOR[] = "rtcr";
constexpr const char DEBUG_TOGGLE_BREAK_POINT[] = "tgbp";
constexpr const char DEBUG_BREAK_RULE[] = "bprl";

struct TDebugCommand {
  const char* code;
  const char* label;  // key of the catalogue
  const char* key;    // the letter that is merged into it
  QKeyCombination shortcut;
};

/// The commands of running on, and those of breakpoints, in the order of the menus.
const std::array<TDebugCommand, 6>& debug_run_commands();
const std::array<TDebugCommand, 2>& debug_break_commands();

/// Adds a command's item to a menu, named by its code; `chosen` gets the code.
QAction* add_debug_command(QMenu* menu, const TEngineContext& context, const TDebugCommand& command,
                           const std::function<void(const char* code)>& chosen);

}  // namespace zoka
