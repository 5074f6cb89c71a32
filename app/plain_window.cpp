// The plain main window's menus, and its document's wishes.
#include "app/plain_window.h"

#include <QMenuBar>
#include <QStatusBar>

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "common/window/menu_label.h"

namespace zoka {
namespace {

/// Between a program's end and the run that it asked for.
constexpr int NEXT_RUN_MS = 20;

}  // namespace

std::string TPlainWindow::TViewText::Get() const {
  return mView.toPlainText().toStdString();
}
void TPlainWindow::TViewText::Set(const std::string& text) {
  mView.setPlainText(QString::fromStdString(text));
}
void TPlainWindow::TViewText::Insert(const std::string& text) {
  mView.insertPlainText(QString::fromStdString(text));
}
void TPlainWindow::TViewText::Append(const std::string& text) {
  mView.moveCursor(QTextCursor::End);
  mView.insertPlainText(QString::fromStdString(text));
}

TPlainWindow::TPlainWindow(TWindowContext& context, TRunWindow& runWindow)
    : TBasicWindow(context),
      mRunWindow(runWindow),
      mView(new QPlainTextEdit(this)),
      mText(*mView),
      mDocument(context.engine, *runWindow.RunView(), mText, *this) {
  setCentralWidget(mView);
  mView->setReadOnly(true);
  mView->setLineWrapMode(QPlainTextEdit::NoWrap);
  QFont font(QString::fromStdString(Engine().prefs->MWFF));
  font.setPointSizeF(static_cast<qreal>(Engine().prefs->MWFS.load()));
  mView->setFont(font);
  resize(640, 400);
  MoveToFrame(Engine().exitStates->WFr);
  mNextRun.setSingleShot(true);
  mNextRun.setInterval(NEXT_RUN_MS);
  connect(&mNextRun, &QTimer::timeout, this, [this] { mDocument.StartRun(mNextRequest); });
  mRunWindow.Host().SetRunEnded(
      [this](int64_t run, int32_t, const TMessage* request) { RunEnded(run, request); });
  CreateMenu();
  SetWinTitle();
  statusBar();
}

TPlainWindow::~TPlainWindow() {
  mRunWindow.Host().SetRunEnded({});
  mDocument.Kill();
}

void TPlainWindow::CreateMenu() {
  menuBar()->clear();
  const auto addMenu = [this](const char* label, const char* key) {
    return menuBar()->addMenu(menu_label(Engine(), Engine().catalogue->GetString(label), key));
  };
  const auto addItem = [this](QMenu* menu, const char* label, const char* key,
                              const QKeySequence& shortcut, auto fn) {
    QAction* item =
        menu->addAction(menu_label(Engine(), Engine().catalogue->GetString(label), key));
    item->setShortcut(shortcut);
    connect(item, &QAction::triggered, this, fn);
    return item;
  };
  QMenu* file = addMenu("File", "F");
  addItem(file, "Open", "O", Qt::CTRL | Qt::Key_O, [this] { MItemOpenClicked(); });
  file->addSeparator();
  addItem(file, "Quit", "Q", Qt::CTRL | Qt::Key_Q, [this] { PostToApp(TMessage("_QRQ")); });
  QMenu* run = addMenu("Run", "R");
  QAction* runItem = addItem(run, "Run", "R", Qt::CTRL | Qt::Key_R, [this] { Run(); });
  runItem->setShortcuts({Qt::CTRL | Qt::Key_R, Qt::Key_F5});
  mKillItem = addItem(run, "Kill", "K", Qt::CTRL | Qt::Key_K, [this] { Kill(); });
  QMenu* window = addMenu("Window", "W");
  addItem(window, "Run Window", "R", {}, [this] { PostToApp(TMessage("srwn")); });
  StateChanged();
}

bool TPlainWindow::OpenFile(const std::string& path) {
  return mDocument.OpenList(path, Engine().prefs->DEnc.load());
}

void TPlainWindow::MItemOpenClicked() {
  if (!mOpenPanel) {
    mOpenPanel = new QFileDialog(this);
    mOpenPanel->setOption(QFileDialog::DontUseNativeDialog);
    mOpenPanel->setFileMode(QFileDialog::ExistingFile);
    connect(mOpenPanel, &QFileDialog::fileSelected, this,
            [this](const QString& path) { OpenFile(QFile::encodeName(path).toStdString()); });
  }
  mOpenPanel->show();
}

void TPlainWindow::Run() {
  mNextRun.stop();
  mDocument.StartRun(TMessage("run"));
}

void TPlainWindow::Kill() {
  mNextRun.stop();
  mDocument.Kill();
}

void TPlainWindow::CompileEnded(int64_t compilation) {
  mRunWindow.Host().Post([this, compilation] { mDocument.FinishRun(compilation); });
}

void TPlainWindow::RunEnded(int64_t runNumber, const TMessage* request) {
  // What a run says that has a successor already counts no more.
  if (runNumber != mRunWindow.RunView()->RunNumber()) return;
  mDocument.RunEnded();
  if (request == nullptr) return;
  mNextRequest = *request;
  mNextRun.start();
}

void TPlainWindow::SetStatBarStr(const std::string& text) {
  statusBar()->showMessage(QString::fromStdString(text.empty() ? text : " " + text));
  statusBar()->repaint();
}

QString TPlainWindow::StatusText() const {
  return statusBar()->currentMessage();
}

void TPlainWindow::SetWinTitle() {
  setWindowTitle(QString::fromStdString(mDocument.CurERefName() + " - " + APP_NAME));
}

void TPlainWindow::ShowRun() {
  mRunWindow.Appear();
}

void TPlainWindow::StateChanged() {
  if (mKillItem == nullptr) return;
  const TDocumentState state = mDocument.State();
  mKillItem->setEnabled(state == TDocumentState::Compiling || state == TDocumentState::Running);
  if (state == TDocumentState::Running) {
    SetStatBarStr(Engine().catalogue->GetString("Running"));
  } else if (state == TDocumentState::Idle) {
    SetStatBarStr("");
  }
}

void TPlainWindow::MessageReceived(const TMessage& message) {
  TBasicWindow::MessageReceived(message);
}

void TPlainWindow::LanguageChanged() {
  CreateMenu();
  SetWinTitle();
}

bool TPlainWindow::QuitRequested() {
  if (!Engine().privacy.quitting.load()) PostToApp(TMessage("_QRQ"));
  return false;
}

void TPlainWindow::Quit() {
  Engine().exitStates->WFr = Frame();
}

}  // namespace zoka
