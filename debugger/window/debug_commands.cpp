// The table of commands.
#include "debugger/window/debug_commands.h"

#include "common/window/menu_label.h"

namespace zoka {

const std::array<TDebugCommand, 6>& debug_run_commands() {
  static const std::array<TDebugCommand, 6> COMMANDS{{
      {DEBUG_RUN_OR_GO_ON, "Run or Continue", "C", Qt::Key_F5},
      {DEBUG_PAUSE, "Pause", "P", Qt::Key_F6},
      {DEBUG_STEP_OVER, "Step Over", "O", Qt::Key_F10},
      {DEBUG_STEP_IN, "Step In", "I", Qt::Key_F11},
      {DEBUG_STEP_OUT, "Step Out", "U", Qt::SHIFT | Qt::Key_F11},
      {DEBUG_RUN_TO_CURSOR, "Run to Cursor", "T", Qt::CTRL | Qt::Key_F10},
  }};
  return COMMANDS;
}

const std::array<TDebugCommand, 2>& debug_break_commands() {
  static const std::array<TDebugCommand, 2> COMMANDS{{
      {DEBUG_TOGGLE_BREAK_POINT, "Toggle Breakpoint", "B", Qt::Key_F9},
      {DEBUG_BREAK_RULE, "Breakpoint Condition", "D", Qt::SHIFT | Qt::Key_F9},
  }};
  return COMMANDS;
}

QAction* add_debug_command(QMenu* menu, const TEngineContext& context, const TDebugCommand& command,
                           const std::function<void(const char* code)>& chosen) {
  QAction* const item = menu->addAction(
      menu_label(context, context.catalogue->GetString(command.label), command.key));
  item->setObjectName(command.code);
  item->setShortcut(command.shortcut);
  QObject::connect(item, &QAction::triggered, menu,
                   [chosen, code = command.code] { chosen(code); });
  return item;
}

}  // namespace zoka
