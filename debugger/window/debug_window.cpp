// The debug window's menus, messages and place.
#include "debugger/window/debug_window.h"

#include <QMenuBar>

#include "app/settings/exit_states.h"
#include "common/window/menu_label.h"
#include "common/window/screen_place.h"
#include "debugger/window/debug_commands.h"

namespace zoka {
namespace {

/// A debug window of a first start; the settings' own default is too small for three lists.
constexpr QSize FIRST_SIZE(800, 560);

constexpr TDebugCommand KILL_COMMAND{DEBUG_KILL, "Kill", "K", Qt::CTRL | Qt::Key_K};

}  // namespace

TDebugWindow::TDebugWindow(TWindowContext& context)
    : TBasicWindow(context), mView(new TDebugView(*this, context.engine)) {
  setObjectName("TDebugWindow");
  setCentralWidget(mView);
  setFocusProxy(mView);
  take_frame(*this, Engine().exitStates->DWFr, DEFAULT_DEBUG_FRAME, FIRST_SIZE);
  CreateMenu();
  SetWinTitle();
  mView->setFocus();
}

void TDebugWindow::SetWinTitle() {
  setWindowTitle(QString(APP_NAME) + " " + localized(Engine(), "(Debug Window)"));
}

QMenu* TDebugWindow::AddMenu(const char* label, const char* key) {
  return menuBar()->addMenu(menu_label(Engine(), Engine().catalogue->GetString(label), key));
}

void TDebugWindow::CreateMenu() {
  menuBar()->setObjectName("MenuBar");
  const QList<QMenu*> old = menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly);
  menuBar()->clear();
  for (QMenu* menu : old) {
    // An item is looked for by its name, and must not be found in here.
    menu->setParent(nullptr);
    menu->deleteLater();
  }
  const auto chosen = [this](const char* code) { PostMessage(TMessage(code)); };
  QMenu* const run = AddMenu("Run", "R");
  for (const TDebugCommand& command : debug_run_commands()) {
    add_debug_command(run, Engine(), command, chosen);
  }
  run->addSeparator();
  add_debug_command(run, Engine(), KILL_COMMAND, chosen);
  QMenu* const breakPoints = AddMenu("Breakpoint", "B");
  for (const TDebugCommand& command : debug_break_commands()) {
    add_debug_command(breakPoints, Engine(), command, chosen);
  }
  QMenu* const windows = AddMenu("Window", "W");
  const auto toApp = [this](const char* code) { PostToApp(TMessage(code)); };
  add_debug_command(windows, Engine(), {"smwn", "Main Window", "M", {}}, toApp);
  add_debug_command(windows, Engine(), {"srwn", "Run Window", "R", {}}, toApp);
}

QAction* TDebugWindow::FindItem(const char* code) const {
  return menuBar()->findChild<QAction*>(code);
}

void TDebugWindow::MessageReceived(const TMessage& message) {
  if (!mView->MessageReceived(message)) TBasicWindow::MessageReceived(message);
}

void TDebugWindow::LanguageChanged() {
  SetWinTitle();
  CreateMenu();
  mView->SetViewLabel();
}

void TDebugWindow::IAPChanged(const TMessage&) {
  CreateMenu();
  mView->SetToolBarStyle();
  mView->SetViewLabel();
}

void TDebugWindow::Quit() {
  Engine().exitStates->DWFr = Frame();
}

}  // namespace zoka
