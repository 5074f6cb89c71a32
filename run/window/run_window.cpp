// The run window's life: messages, drives, lamps, size. Its menus are in run_window_menus.cpp.
#include "run/window/run_window.h"

#include <QFileInfo>
#include <QLayout>
#include <QShowEvent>

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "common/file_path.h"
#include "common/window/panel_columns.h"
#include "common/window/panel_completer.h"

namespace zoka {
namespace {

constexpr const char MRUF_FILE[] = "ZokaBASIC_MRUFDD.arc";

}  // namespace

TRunWindow::TRunWindow(TWindowContext& context, const TSettingsPlace* place)
    : TBasicWindow(context),
      mPlace(place),
      mHost(context.registry),
      mRunView(context.engine, mHost),
      mMenuBar(new TRunMenuBar(this)),
      mWidget(new TRunWidget(mRunView, mHost, this)),
      mMenuBarItem(new QAction(this)),
      mFullScreenItem(new QAction(this)) {
  setWindowTitle(APP_NAME);
  setMenuBar(mMenuBar);
  setCentralWidget(mWidget);
  layout()->setSizeConstraint(QLayout::SetFixedSize);
  mWidget->setFocus();
  mMenuBarItem->setShortcut(QKeySequence(Qt::ALT | Qt::Key_M));
  mFullScreenItem->setShortcuts(
      {QKeySequence(Qt::ALT | Qt::Key_Return), QKeySequence(Qt::ALT | Qt::Key_Enter)});
  connect(mMenuBarItem, &QAction::triggered, this, [this] { Zoom(); });
  connect(mFullScreenItem, &QAction::triggered, this, [this] { ToggleFullScreen(); });
  // Without a menu bar these work as well.
  addActions({mMenuBarItem, mFullScreenItem});
  mHost.SetWindow(HandlerId());
  mHost.SetCalls(
      {[this](const TRect& changed) { mWidget->Present(changed); },
       [this] { mRunView.FlushScreen(); },
       [this](const std::string& title) { setWindowTitle(QString::fromStdString(title)); },
       {}});
  LoadMRUF();
  CreateMenu();
  // The window has its size before it is shown: a change of size in between would let it forget
  // that its place is that of its frame.
  UpdateMBarVisibility();
  layout()->activate();
  adjustSize();
  MoveToFrame(Engine().exitStates->RWFr);
  mRunView.AttachedToWindow();
}

TRunWindow::~TRunWindow() {
  mRunView.DetachedFromWindow();
  mRunView.QuitBasic();
  mHost.SetCalls({});
}

void TRunWindow::MessageReceived(const TMessage& message) {
  int32_t number = 0;
  switch (message.what) {
    case message_code("cptx"):
      return mRunView.MItemCopyTextClicked();
    case message_code("cpgr"):
      if (message.FindInt32("GrphPage", &number)) mRunView.MItemCopyGrphClicked(number);
      return;
    case message_code("cpcp"):
      return mRunView.MItemCopyCompositionClicked();
    case message_code("ejct"):
      if (message.FindInt32("DrvFolderIdx", &number)) mRunView.SetDriveFolder(number, "");
      return;
    case message_code("_RRC"):
    case message_code("sdfr"):
      return SetDrvFolderRqtd(message);
    case message_code("spdf"):
      return MItemSpecifyDrvFolderClicked(message);
    case message_code("udfr"):
      return UpdateMenuDrvFolderRqtd(message);
    case message_code("salr"):
      return SetFDDAccessLampRqtd(message);
    case message_code("pusc"):
      return mRunView.SetUseSpeedControl();
    case message_code("prfc"):
      return mRunView.PrefRunWinFontChanged();
    default:
      return TBasicWindow::MessageReceived(message);
  }
}

void TRunWindow::LanguageChanged() {
  SetLabelsCommon();
  SetPanelLabels();
  mRunView.LanguageChanged();
}

void TRunWindow::IAPChanged(const TMessage&) {
  SetLabelsCommon();
}

void TRunWindow::SetDrvFolderRqtd(const TMessage& message) {
  int32_t drive = 0;
  TPathRef ref;
  if (!message.FindInt32("DrvFolderIdx", &drive) || !message.FindRef("refs", &ref)) return;
  mRunView.SetDriveFolder(drive, ref.bytes);
}

void TRunWindow::UpdateMenuDrvFolderRqtd(const TMessage& message) {
  int32_t drive = 0;
  TPathRef ref;
  std::string name;
  if (!message.FindInt32("DrvFolderIdx", &drive) || !message.FindRef("DrvFolderERef", &ref) ||
      !message.FindString("DrvFolderName", &name) || drive < 0 || drive >= LAMP_COUNT) {
    return;
  }
  SetDriveItemText(static_cast<size_t>(drive), name);
  if (ref.bytes.empty()) return;
  mMrufDrv.AddMRUF(ref.bytes);
  GenerateMenuMRUF();
  SaveMRUF();
}

void TRunWindow::MItemSpecifyDrvFolderClicked(const TMessage& message) {
  if (!message.FindInt32("DrvFolderIdx", &mSpecifyDrive)) return;
  if (!mSpecifyPanel) {
    mSpecifyPanel = new QFileDialog(this);
    mSpecifyPanel->setOption(QFileDialog::DontUseNativeDialog);
    new TPanelCompleter(mSpecifyPanel);
    new TPanelColumns(mSpecifyPanel);
    mSpecifyPanel->setFileMode(QFileDialog::Directory);
    mSpecifyPanel->setOption(QFileDialog::ShowDirsOnly);
    // Without one it begins where the user was last, and not above all folders.
    const QString stored = QFile::decodeName(QByteArray::fromStdString(Engine().exitStates->RWPF));
    if (QFileInfo(stored).isDir()) mSpecifyPanel->setDirectory(stored);
    connect(mSpecifyPanel, &QFileDialog::fileSelected, this, [this](const QString& path) {
      mRunView.SetDriveFolder(mSpecifyDrive, QFile::encodeName(path).toStdString());
    });
  }
  SetPanelLabels();
  mSpecifyPanel->show();
  mSpecifyPanel->raise();
}

void TRunWindow::SetPanelLabels() {
  if (!mSpecifyPanel) return;
  mSpecifyPanel->setWindowTitle(QString::fromStdString(
      replace_placeholder(GetString("%AppName%: Specify Drive Folder"), "%AppName%", APP_NAME)));
  mSpecifyPanel->setNameFilter(QString::fromStdString(GetString("Directories")));
  mSpecifyPanel->setSidebarUrls(mSpecifyPanel->sidebarUrls());  // which names the places anew
  mSpecifyPanel->setLabelText(QFileDialog::Accept, QString::fromStdString(GetString("Specify")));
}

void TRunWindow::SetFDDAccessLampRqtd(const TMessage& message) {
  int32_t drive = 0;
  int32_t change = 0;
  if (!message.FindInt32("DrvFolderIdx", &drive) || !message.FindInt32("FDDALS", &change)) return;
  if (drive < 0 || drive >= LAMP_COUNT) return;
  const auto index = static_cast<size_t>(drive);
  mLampCount[index] += change;
  mMenuBar->SetAccessing(mDrvMenu[index]->menuAction(), mLampCount[index] >= 1);
}

bool TRunWindow::IsLampLit(size_t drive) const {
  return mMenuBar->IsAccessing(mDrvMenu[drive]->menuAction());
}

void TRunWindow::SetSpeed(bigtime_t interval) {
  TPrefs& prefs = *Engine().prefs;
  prefs.USpC.store(interval != FULL_SPEED);
  if (interval != FULL_SPEED) prefs.SpCI.store(interval);
  prefs.SaveToFile();
  mRunView.SetUseSpeedControl();
}

void TRunWindow::Zoom() {
  std::atomic<bool>& shown = Engine().exitStates->MBrS;
  shown.store(!shown.load());
  UpdateMBarVisibility();
}

void TRunWindow::UpdateMBarVisibility() {
  const bool shown = Engine().exitStates->MBrS.load();
  mMenuBar->setVisible(shown);
  mMenuBarItem->setChecked(shown);
}

void TRunWindow::ToggleFullScreen() {
  const bool wanted = !isFullScreen();
  if (wanted) {
    mNormalPlace = geometry().topLeft();
    mNormalFrame = Frame();
  }
  layout()->setSizeConstraint(wanted ? QLayout::SetDefaultConstraint : QLayout::SetFixedSize);
  if (wanted) {
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  }
  mWidget->SetFilling(wanted);
  mFullScreenItem->setChecked(wanted);
  if (wanted) {
    showFullScreen();
  } else {
    showNormal();
    // The frame, which is not there yet, comes round this place.
    setGeometry(QRect(mNormalPlace, sizeHint()));
  }
}

void TRunWindow::changeEvent(QEvent* event) {
  TBasicWindow::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || !isMaximized() || isFullScreen()) return;
  // The zoom button of the window trades the menu bar for the picture alone. What the window
  // manager still has to say about the size comes before.
  QMetaObject::invokeMethod(
      this,
      [this] {
        setWindowState(windowState() & ~Qt::WindowMaximized);
        Zoom();
        layout()->activate();
        resize(minimumSize());
      },
      Qt::QueuedConnection);
}

void TRunWindow::showEvent(QShowEvent* event) {
  TBasicWindow::showEvent(event);
  UpdateMBarVisibility();
}

void TRunWindow::Quit() {
  Engine().exitStates->RWFr = isFullScreen() ? mNormalFrame : Frame();
  if (mSpecifyPanel) {
    Engine().exitStates->RWPF =
        QFile::encodeName(mSpecifyPanel->directory().absolutePath()).toStdString();
  }
}

void TRunWindow::LoadMRUF() {
  std::string path;
  if (mPlace && get_settings_entry(*mPlace, SETTINGS_FOLDER, MRUF_FILE, false, &path) == 0) {
    if (mMrufDrv.Load(path) != 0) set_aside_if_damaged(*mPlace, path);
  }
}

void TRunWindow::SaveMRUF() const {
  std::string path;
  if (mPlace && get_settings_entry(*mPlace, SETTINGS_FOLDER, MRUF_FILE, true, &path) == 0) {
    mMrufDrv.Save(path);
  }
}

}  // namespace zoka
