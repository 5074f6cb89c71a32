// The main window's menu bar: one row an item, and the menus that change.
#include <QDir>
#include <QMenuBar>

#include "app/data_folder.h"
#include "app/settings/exit_states.h"
#include "app/zoka_basic_window.h"
#include "common/file_path.h"
#include "common/window/menu_label.h"
#include "debugger/window/debug_commands.h"

namespace zoka {
namespace {

/// Who gets an item's message.
enum class TMenuTarget : uint8_t { Window, App };
/// Positions in the history that have a digit of their own.
constexpr int32_t DIGITS = 10;
constexpr const char SEPARATOR[] = "";

}  // namespace

/// An item; one without a code is a separator.
struct TZokaBasicWindow::TMenuRow {
  const char* label = SEPARATOR;
  const char* code = SEPARATOR;
  QKeySequence shortcut;
  const char* key = "";
  TMenuTarget target = TMenuTarget::Window;
  bool checkable = false;
};

QAction* TZokaBasicWindow::AddItem(QMenu* menu, const TMenuRow& row) {
  const TCatalogue& texts = *Engine().catalogue;
  const std::string named = replace_placeholder(texts.GetString(row.label), "%AppName%", APP_NAME);
  const std::string text =
      replace_placeholder(named, "%AppAuthor%", texts.GetString("@App_Author@"));
  QAction* const item = menu->addAction(menu_label(Engine(), text, row.key));
  item->setObjectName(row.code);
  item->setShortcut(row.shortcut);
  item->setCheckable(row.checkable);
  const TMessage message{std::string_view(row.code)};
  const bool toApp = row.target == TMenuTarget::App;
  connect(item, &QAction::triggered, this, [this, message, toApp] {
    if (toApp) return PostToApp(message);
    PostMessage(message);
  });
  return item;
}

void TZokaBasicWindow::AddRows(QMenu* menu, const TMenuRow* rows, size_t count) {
  for (size_t i = 0; i < count; ++i) {
    if (*rows[i].code == 0) {
      menu->addSeparator();
    } else {
      AddItem(menu, rows[i]);
    }
  }
}

QMenu* TZokaBasicWindow::AddMenu(QMenu* menu, const char* label, const char* key) {
  menu->setTitle(menu_label(Engine(), Engine().catalogue->GetString(label), key));
  menuBar()->addMenu(menu);
  return menu;
}

void TZokaBasicWindow::CreateMenu() {
  menuBar()->setObjectName("MenuBar");
  const QList<QMenu*> old = menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly);
  menuBar()->clear();
  for (QMenu* menu : old) {
    // An item is looked for by its name, and must not be found in here.
    menu->setParent(nullptr);
    menu->deleteLater();
  }
  CreateFileMenu();
  CreateEditMenu();
  CreateRunMenu();
  using M = TMenuTarget;
  const TMenuRow tools[] = {
      {"Preferences", "_prf", Qt::CTRL | Qt::Key_P, "P", M::App},
      {"KORUNE Common Preferences", "_Ssp", {}, "", M::App},
  };
  AddRows(AddMenu(new QMenu(menuBar()), "Tool", "T"), tools, std::size(tools));
  const TMenuRow windows[] = {
      {"Run Window", "srwn", {}, "", M::App},
      {"Debug Window", "sdwn", {}, "", M::App},
  };
  AddRows(AddMenu(new QMenu(menuBar()), "Window", "W"), windows, std::size(windows));
  CreateHelpMenu();
  GenerateHistoryMenu();
  UpdateItems();
}

void TZokaBasicWindow::CreateFileMenu() {
  mFileMenu = new TFileMenu(menuBar());
  AddMenu(mFileMenu, "File", "F");
  AddItem(mFileMenu, {"New", "_new", Qt::CTRL | Qt::Key_N, "N"});
  mHistoryMenu =
      mFileMenu->addMenu(menu_label(Engine(), Engine().catalogue->GetString("Open"), "O"));
  QAction* const open = mHistoryMenu->menuAction();
  open->setObjectName("_opn");
  mFileMenu->SetChoosable(open, [this] { PostMessage(TMessage("_opn")); });
  const TMenuRow rows[] = {
      {},
      {"Save", "_sav", Qt::CTRL | Qt::Key_S, "S"},
      {"Save As", "_sva", Qt::CTRL | Qt::Key_2, "A"},
      {},
      {"Register MIME", "rmim", {}, "R", TMenuTarget::App},
      {},
      {"Quit", "_QRQ", Qt::CTRL | Qt::Key_Q, "Q", TMenuTarget::App},
  };
  AddRows(mFileMenu, rows, std::size(rows));
}

void TZokaBasicWindow::CreateEditMenu() {
  const TMenuRow rows[] = {
      {"Cut", "CCUT", Qt::CTRL | Qt::Key_X, "X"},
      {"Copy", "COPY", Qt::CTRL | Qt::Key_C, "C"},
      {"Paste", "PSTE", Qt::CTRL | Qt::Key_V, "V"},
      {"Clear", "clr", {}, "L"},
      {},
      {"Select All", "SALL", Qt::CTRL | Qt::Key_A, ""},
      {},
      {"Go to Line", "gtln", Qt::CTRL | Qt::Key_Comma, "G", TMenuTarget::App},
      {"Renumber", "rnmb", {}, "", TMenuTarget::App},
      {},
  };
  QMenu* const menu = AddMenu(new QMenu(menuBar()), "Edit", "E");
  AddRows(menu, rows, std::size(rows));
  AddComforts(menu);
}

/// What the editor offers beyond: not by messages, as nobody else asks for it.
void TZokaBasicWindow::AddComforts(QMenu* menu) {
  using TKeys = QList<QKeySequence>;
  const auto add = [&](const char* label, const char* key, const TKeys& shortcuts, auto fn) {
    const std::string text = Engine().catalogue->GetString(label);
    QAction* const item = menu->addAction(menu_label(Engine(), text, key));
    item->setShortcuts(shortcuts);
    connect(item, &QAction::triggered, this, fn);
  };
  TEditTxtView& edit = mView->Edit();
  TFindBar& bar = mView->FindBar();
  TEditComforts& comforts = mView->Comforts();
  add("Undo", "U", {Qt::CTRL | Qt::Key_Z}, [&edit] { edit.undo(); });
  add("Redo", "R", {Qt::CTRL | Qt::Key_Y}, [&edit] { edit.redo(); });
  menu->addSeparator();
  add("Find", "F", {Qt::CTRL | Qt::Key_F}, [&bar] { bar.Appear(); });
  add("Find Next", "N", {Qt::Key_F3}, [&bar] { bar.FindNext(); });
  add("Find Previous", "P", {Qt::SHIFT | Qt::Key_F3}, [&bar] { bar.FindPrevious(); });
  add("Replace", "E", {Qt::CTRL | Qt::Key_H}, [&bar] { bar.AppearToReplace(); });
  menu->addSeparator();
  add("Complete Word", "W", {Qt::CTRL | Qt::Key_Space}, [&comforts] { comforts.CompleteWord(); });
  add("Go to Definition", "D", {Qt::Key_F12}, [&comforts] { comforts.GoToDefinition(); });
  add("Go Back", "B", {Qt::ALT | Qt::Key_Left}, [&comforts] { comforts.GoBack(); });
  menu->addSeparator();
  // The plus needs Shift on many keyboards, and its key without is the equals sign.
  add("Larger Text", "", {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
      [&edit] { edit.zoomIn(); });
  add("Smaller Text", "", {Qt::CTRL | Qt::Key_Minus}, [&edit] { edit.zoomOut(); });
  add("Normal Text Size", "", {Qt::CTRL | Qt::Key_0}, [&edit] { edit.zoomTo(0); });
}

void TZokaBasicWindow::CreateRunMenu() {
  const TMenuRow rows[] = {
      {"Run", "run", Qt::CTRL | Qt::Key_R, ""},
      {"Run (with Line Number)", "runl", {}, "", TMenuTarget::App},
      {},
      {"Kill", "kill", Qt::CTRL | Qt::Key_K, "K"},
      {},
      {"Repeat", "rptr", {}, "", TMenuTarget::Window, true},
      {"Use Debugger", "usdb", {}, "", TMenuTarget::Window, true},
  };
  QMenu* const menu = AddMenu(new QMenu(menuBar()), "Run", "");
  AddRows(menu, rows, std::size(rows));
  const auto chosen = [this](const char* code) { PostMessage(TMessage(code)); };
  menu->addSeparator();
  for (const TDebugCommand& command : debug_run_commands()) {
    add_debug_command(menu, Engine(), command, chosen);
  }
  menu->addSeparator();
  for (const TDebugCommand& command : debug_break_commands()) {
    add_debug_command(menu, Engine(), command, chosen);
  }
}

void TZokaBasicWindow::CreateHelpMenu() {
  const TMenuRow rows[] = {
      {"Help Text", "_hlp", {}, "", TMenuTarget::App},    {},
      {"%AppAuthor%", "_jaw", {}, "J", TMenuTarget::App}, {},
      {"About", "_ABR", {}, "", TMenuTarget::App},        {},
  };
  QMenu* const menu = AddMenu(new QMenu(menuBar()), "Help", "H");
  AddRows(menu, rows, std::size(rows));
  QAction* const words = menu->addAction(localized(Engine(), "Words of the Language"));
  words->setShortcut(Qt::Key_F1);
  connect(words, &QAction::triggered, this, [this] { mView->Comforts().ShowKeywordHelp(); });
  CreateSamplesMenu(menu->addMenu(localized(Engine(), "Samples")));
}

void TZokaBasicWindow::CreateSamplesMenu(QMenu* menu) {
  const QString folder = find_data_entry("samples");
  menu->setEnabled(!folder.isEmpty());
  if (folder.isEmpty()) return;
  for (const QFileInfo& sample : QDir(folder).entryInfoList({"*.bas"}, QDir::Files, QDir::Name)) {
    QAction* const item = menu->addAction(plain_label(sample.completeBaseName().toStdString()));
    const std::string path = QFile::encodeName(sample.filePath()).toStdString();
    connect(item, &QAction::triggered, this, [this, path] {
      TMessage message("_smp");
      message.AddRef("refs", TPathRef{path});
      PostMessage(message);
    });
  }
}

void TZokaBasicWindow::GenerateHistoryMenu() {
  mHistoryMenu->clear();
  for (int32_t i = 0; i < mMruf.CountMRUFs(); ++i) {
    const std::string path = mMruf.MRUFAt(i);
    const std::string digit = i < DIGITS ? std::to_string(i) : "";
    QAction* const item =
        mHistoryMenu->addAction(menu_label(Engine(), extract_file_name(path), digit));
    item->setToolTip(QFile::decodeName(QByteArray::fromStdString(path)));
    connect(item, &QAction::triggered, this, [this, path] { HistoryItemClicked(path); });
  }
  mHistoryMenu->addSeparator();
  AddItem(mHistoryMenu, {"Delete All MRULs", "damr", {}, "D"});
}

QAction* TZokaBasicWindow::FindItem(const char* code) const {
  return menuBar()->findChild<QAction*>(code);
}

void TZokaBasicWindow::UpdateItems() {
  QAction* const kill = FindItem("kill");
  if (kill == nullptr) return;
  const TDocumentState state = Document().State();
  kill->setEnabled(state == TDocumentState::Compiling || state == TDocumentState::Running);
  FindItem("_jaw")->setEnabled(mHasAuthorPage);
  FindItem("rptr")->setChecked(Engine().exitStates->RptR.load());
  FindItem("usdb")->setChecked(Engine().exitStates->UDbg.load());
}

}  // namespace zoka
