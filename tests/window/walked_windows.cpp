// Opening the windows.
#include "tests/window/walked_windows.h"

#include <QApplication>
#include <QDialog>
#include <QTabWidget>
#include <thread>

#include "app/settings/show_alert.h"
#include "tests/window/waiting.h"

namespace zoka {
namespace {

QWidget* if_visible(QWidget* window) {
  return window != nullptr && window->isVisible() ? window : nullptr;
}

QWidget* open_main(const TWalkedApp& walked) {
  TZokaBasicWindow& window = walked.app.MainWindow();
  window.View().FindBar().hide();
  window.UncoverEditor();
  // As large as at the first start, whatever the screen of the test.
  window.resize(820, 600);
  if (walked.program != window.Document().CurPath()) window.OpenFile(walked.program);
  window.Appear();
  return &window;
}

QWidget* open_find_bar(const TWalkedApp& walked) {
  QWidget* const window = open_main(walked);
  walked.app.MainWindow().View().FindBar().Appear();
  return window;
}

QWidget* open_run_window(const TWalkedApp& walked) {
  walked.app.RunWindow().Appear();
  return &walked.app.RunWindow();
}

QWidget* open_preferences(const TWalkedApp& walked) {
  walked.app.Preferences().MessageReceived(TMessage("_prf"));
  return if_visible(walked.app.Preferences().PrefsWindow());
}

QWidget* open_common(const TWalkedApp& walked) {
  TCommonPrefs& common = walked.app.Preferences().CommonPrefs();
  common.ShowWindow();
  return if_visible(common.Window());
}

template <TDialogWindow& (*DIALOG)(TBasicApp&)>
QWidget* open_dialog(const TWalkedApp& walked) {
  TDialogWindow& dialog = DIALOG(walked.app);
  dialog.Appear();
  return &dialog;
}
TDialogWindow& go_to_line(TBasicApp& app) {
  return app.GoToLineWindow();
}
TDialogWindow& run_line(TBasicApp& app) {
  return app.RunLineWindow();
}
TDialogWindow& renumber(TBasicApp& app) {
  return app.RenumWindow();
}

QWidget* open_open_panel(const TWalkedApp& walked) {
  walked.app.MainWindow().MessageReceived(TMessage("_opn"));
  return walked.app.MainWindow().OpenPanel();
}

QWidget* open_save_panel(const TWalkedApp& walked) {
  walked.app.MainWindow().MessageReceived(TMessage("_sva"));
  return walked.app.MainWindow().SavePanel();
}

QWidget* open_folder_panel(const TWalkedApp& walked) {
  TMessage message("spdf");
  message.AddInt32("DrvFolderIdx", 0);
  walked.app.RunWindow().MessageReceived(message);
  return walked.app.RunWindow().findChild<QFileDialog*>();
}

QWidget* open_about(const TWalkedApp& walked) {
  QWidget* const open = if_visible(walked.app.AboutWindow());
  if (open == nullptr) walked.app.PostMessage(TMessage("_ABR"));
  return open;
}

QWidget* open_debug_window(const TWalkedApp& walked) {
  walked.app.DebugWindow().Appear();
  return &walked.app.DebugWindow();
}

QWidget* open_break_rule(const TWalkedApp& walked) {
  TBreakRuleDialog& dialog = walked.app.DebugWindow().DebugView().RuleDialog();
  dialog.Ask("10", {}, {});
  return &dialog;
}

QWidget* open_keywords(const TWalkedApp& walked) {
  TKeywordWindow& window = walked.app.MainWindow().View().Comforts().KeywordWindow();
  window.Appear("CIRCLE");
  return &window;
}

/// The page lies over the editor of the main window.
QWidget* open_first_start(const TWalkedApp& walked) {
  QWidget* const window = open_main(walked);
  walked.app.ShowFirstStartPage();
  return window;
}

/// The question with three buttons. A thread without a waiter does not stand in it.
QWidget* open_question(const TWalkedApp& walked) {
  if (walked.engine.Alerts().OpenDialog() == nullptr) {
    const TCatalogue& texts = *walked.engine.Context().catalogue;
    TAlert alert;
    alert.text =
        replace_placeholder(texts.GetString("@Ask_Save %FileName%@"), "%FileName%", "maze.bas");
    alert.title = replace_placeholder(texts.GetString("* %AppName% *"), "%AppName%", APP_NAME);
    for (const auto& [label, key] : {std::pair("Cancel", ""), {"No", "N"}, {"Yes", "Y"}}) {
      alert.buttons.push_back(merged_label(walked.engine.Context(), label, key));
    }
    alert.escapeIndex = 0;
    std::thread([&] { walked.engine.Alerts().ShowAlert(alert, nullptr); }).join();
  }
  return if_visible(walked.engine.Alerts().OpenDialog());
}

}  // namespace

const std::vector<TWalkedWindow>& walked_windows() {
  static const std::vector<TWalkedWindow> WINDOWS{
      {"main", open_main},
      {"find", open_find_bar},
      {"first-start", open_first_start},
      {"run", open_run_window},
      {"debug", open_debug_window},
      {"break-rule", open_break_rule},
      {"preferences", open_preferences},
      {"common", open_common},
      {"go-to-line", open_dialog<go_to_line>},
      {"run-line", open_dialog<run_line>},
      {"renumber", open_dialog<renumber>},
      {"open", open_open_panel},
      {"save", open_save_panel},
      {"folder", open_folder_panel},
      {"keywords", open_keywords},
      {"about", open_about},
      {"question", open_question},
  };
  return WINDOWS;
}

QWidget* open_walked_window(const TWalkedWindow& window, const TWalkedApp& app) {
  QWidget* opened = nullptr;
  const bool came =
      until([&] { return (opened = window.open(app)) != nullptr && opened->isVisible(); });
  if (!came) return nullptr;
  opened->activateWindow();
  run_event_rounds();
  return opened;
}

void close_walked_window(QWidget& window, const TWalkedApp& app) {
  if (auto* const dialog = qobject_cast<QDialog*>(&window)) {
    dialog->reject();
  } else if (&window != &app.app.MainWindow()) {
    window.hide();
  }
  run_event_rounds();
}

void for_each_page(QWidget& window, const std::function<void(const QString& page)>& look) {
  auto* const tabs = window.findChild<QTabWidget*>();
  if (tabs == nullptr) return look(QString());
  for (int page = 0; page < tabs->count(); ++page) {
    tabs->setCurrentIndex(page);
    run_event_rounds();
    look(tabs->tabText(page));
  }
}

}  // namespace zoka
