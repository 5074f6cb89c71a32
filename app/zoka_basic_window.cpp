// The main window's messages, panels and history.
#include "app/zoka_basic_window.h"

#include <QApplication>
#include <QFile>
#include <QShortcut>
#include <filesystem>

#include "app/settings/exit_states.h"
#include "app/settings/show_alert.h"
#include "common/file_path.h"
#include "common/window/menu_label.h"
#include "common/window/screen_place.h"

namespace zoka {
namespace {

constexpr const char HISTORY_FILE[] = "ZokaBASIC_MRUF.arc";
constexpr int32_t DELETE_BUTTON = 1;
/// A main window of a first start; the settings' own default is too small for a list.
constexpr QSize FIRST_SIZE(820, 600);

std::string bytes_of(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

QString path_of(const std::string& bytes) {
  return QFile::decodeName(QByteArray::fromStdString(bytes));
}

/// Messages that bring the editor to work.
bool needs_editor(const TMessage& message) {
  for (const char* code : {"_new", "_smp", "_RRC", "PSTE", "run", "rnlr"}) {
    if (message.what == message_code(code)) return true;
  }
  return false;
}

}  // namespace

TZokaBasicWindow::TZokaBasicWindow(TWindowContext& context, TRunWindow& runWindow,
                                   const TSettingsPlace& place)
    : TBasicWindow(context),
      mPlace(place),
      mView(new TZokaBasicView(*this, context.engine, context.registry, runWindow, place)) {
  setCentralWidget(mView);
  setFocusProxy(mView);
  std::string path;
  if (get_settings_entry(mPlace, SETTINGS_FOLDER, HISTORY_FILE, false, &path) == 0) {
    if (mMruf.Load(path) != 0) set_aside_if_damaged(mPlace, path);
  }
  mView->SetCalls({[this] { SetWinTitle(); }, [this] { UpdateItems(); },
                   [this](const std::string& file) { AddHistoryRqtd(file); }});
  take_frame(*this, Engine().exitStates->WFr, DEFAULT_MAIN_FRAME, FIRST_SIZE);
  CreateMenu();
  // The item in the menu has a submenu, and cannot have a key itself.
  connect(new QShortcut(Qt::CTRL | Qt::Key_O, this), &QShortcut::activated, this,
          [this] { PostMessage(TMessage("_opn")); });
  SetWinTitle();
  mView->setFocus();
}

TZokaBasicWindow::~TZokaBasicWindow() {
  // The view's last messages must not reach a window that is half gone.
  mView->SetCalls({});
  delete takeCentralWidget();
}

bool TZokaBasicWindow::OpenFile(const std::string& path) {
  const THeldQueue held(Queue());
  TMessage message("_RRC");
  message.AddRef("refs", TPathRef{path});
  return mView->Requests().RefsReceived(message);
}

void TZokaBasicWindow::SetWinTitle() {
  setWindowTitle(QString::fromStdString(Document().CurERefName() + " - " + APP_NAME + " " +
                                        Engine().catalogue->GetString("(Main: Edit Window)")));
}

bool TZokaBasicWindow::AskQuit() {
  const THeldQueue held(Queue());
  return mView->Requests().AskSave(TMessage("_QRQ"), WindowContext().app);
}

void TZokaBasicWindow::SetHasAuthorPage(bool has) {
  mHasAuthorPage = has;
  UpdateItems();
}

void TZokaBasicWindow::UncoverEditor() {
  if (!mCover) return;
  mCover->hide();
  mCover->deleteLater();
  mCover.clear();
  mView->setFocus();
}

void TZokaBasicWindow::MessageReceived(const TMessage& message) {
  if (needs_editor(message)) UncoverEditor();
  switch (message.what) {
    case message_code("_sva"):
      return MItemSaveAsClicked(message);
    case message_code("_opn"):
      return MItemOpenClicked();
    case message_code("_rhr"):
      return RemoveHistoryRqtd(message);
    case message_code("damr"):
      return MItemDelAllMRULsClicked();
    case message_code("rptr"):
      Engine().exitStates->RptR.store(!Engine().exitStates->RptR.load());
      return UpdateItems();
    case message_code("usdb"):
      Engine().exitStates->UDbg.store(!Engine().exitStates->UDbg.load());
      return UpdateItems();
    case message_code("_QRQ"):
      QuitRequested();
      return;
    case message_code("pdec"):
      if (mOpenPanel) mOpenPanel->SetDefaultEncoding();
      return;
    default:
      if (!mView->MessageReceived(message)) TBasicWindow::MessageReceived(message);
  }
}

void TZokaBasicWindow::LanguageChanged() {
  CreateMenu();
  mView->LanguageChanged();
  if (mOpenPanel) mOpenPanel->SetLabels();
  if (mSavePanel) mSavePanel->SetLabels();
}

void TZokaBasicWindow::IAPChanged(const TMessage&) {
  CreateMenu();
  mView->Comforts().SetLabels();
}

bool TZokaBasicWindow::QuitRequested() {
  if (!Engine().privacy.quitting.load()) PostToApp(TMessage("_QRQ"));
  return false;
}

void TZokaBasicWindow::Quit() {
  Engine().exitStates->WFr = Frame();
  const QFileDialog* panel =
      mSavePanel ? static_cast<QFileDialog*>(mSavePanel) : static_cast<QFileDialog*>(mOpenPanel);
  if (panel != nullptr) StorePanelFolder(panel);
}

void TZokaBasicWindow::StorePanelFolder(const QFileDialog* panel) {
  Engine().exitStates->MWPF = bytes_of(panel->directory().absolutePath());
}

void TZokaBasicWindow::SetFilePanelFolder(QFileDialog* panel, const QFileDialog* other) {
  const QString stored = path_of(Engine().exitStates->MWPF);
  if (other != nullptr) {
    panel->setDirectory(other->directory());
  } else if (QFileInfo(stored).isDir()) {
    panel->setDirectory(stored);
  }
}

void TZokaBasicWindow::Cancel(const QFileDialog* panel) {
  StorePanelFolder(panel);
  QFileDialog* const other = panel == mOpenPanel ? static_cast<QFileDialog*>(mSavePanel)
                                                 : static_cast<QFileDialog*>(mOpenPanel);
  if (other != nullptr) other->setDirectory(panel->directory());
  // A request that waited for the answer lapses.
  if (panel == mSavePanel) mSaveMessage = TMessage("SAVE");
}

void TZokaBasicWindow::MItemOpenClicked() {
  if (!mOpenPanel) {
    mOpenPanel = new TZokaOpenPanel(this, Engine());
    SetFilePanelFolder(mOpenPanel, mSavePanel);
    connect(mOpenPanel, &QFileDialog::fileSelected, this,
            [this](const QString& path) { PostMessage(mOpenPanel->Message(path)); });
    connect(mOpenPanel, &QDialog::finished, this, [this] { Cancel(mOpenPanel); });
  }
  mOpenPanel->Appear();
}

void TZokaBasicWindow::MItemSaveAsClicked(const TMessage& message) {
  if (!mSavePanel) {
    mSavePanel = new TZokaSavePanel(this, Engine());
    SetFilePanelFolder(mSavePanel, mOpenPanel);
    connect(mSavePanel, &QFileDialog::fileSelected, this,
            [this](const QString& path) { SaveChosen(path); });
    connect(mSavePanel, &QDialog::finished, this, [this] { Cancel(mSavePanel); });
  }
  // The save takes over what was to follow, never the request for this panel itself.
  mSaveMessage = TMessage("SAVE");
  TMessage next;
  THandlerId target;
  if (message.FindMessage(NEXT_MSG, &next) && message.FindHandler(NEXT_MSG_TGT, &target)) {
    add_next_msg(&mSaveMessage, next, target);
  }
  mSavePanel->show();
  mSavePanel->raise();
  mSavePanel->activateWindow();
}

void TZokaBasicWindow::SaveChosen(const QString& path) {
  TMessage message = mSaveMessage;
  const std::string bytes = bytes_of(path);
  message.AddRef("directory", TPathRef{extract_file_folder_path_kernel(bytes)});
  message.AddString("name", extract_file_name(bytes));
  PostMessage(message);
}

void TZokaBasicWindow::SaveHistory() const {
  std::string path;
  if (get_settings_entry(mPlace, SETTINGS_FOLDER, HISTORY_FILE, true, &path) == 0) mMruf.Save(path);
}

void TZokaBasicWindow::AddHistoryRqtd(const std::string& path) {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(path, error);
  mMruf.AddMRUF(error ? path : absolute.string());
  GenerateHistoryMenu();
  SaveHistory();
}

void TZokaBasicWindow::RemoveHistoryRqtd(const TMessage& message) {
  TPathRef ref;
  if (!message.FindRef("refs", &ref)) return;
  mMruf.RemoveMRUF(ref.bytes);
  GenerateHistoryMenu();
  SaveHistory();
}

void TZokaBasicWindow::MItemDelAllMRULsClicked() {
  const TCatalogue& catalogue = *Engine().catalogue;
  const std::string text = catalogue.GetString("@Ask_Del_All_MRULs@") + "\n\n" +
                           catalogue.GetString("@Hint_Del_One_MRUL@");
  if (show_alert(Engine(), text, {{"Cancel", ""}, {"Delete All", "A"}}, 0, nullptr) !=
      DELETE_BUTTON) {
    return;
  }
  mMruf.ClearMRUF();
  GenerateHistoryMenu();
  SaveHistory();
}

void TZokaBasicWindow::HistoryItemClicked(const std::string& path) {
  TMessage message("_RRC");
  message.AddRef("refs", TPathRef{path});
  add_held_modifiers(&message, true);
  PostMessage(message);
}

}  // namespace zoka
