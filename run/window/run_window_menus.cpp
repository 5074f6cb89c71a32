// The menus of the run window. Items send messages; the few that change the window itself call it.
#include <QActionGroup>
#include <QMenu>

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "common/file_path.h"
#include "common/window/menu_label.h"
#include "run/window/run_window.h"

namespace zoka {
namespace {

/// Microseconds per statement that the Speed menu offers.
constexpr bigtime_t SPEED_INTERVALS[] = {100, 500, 1000, 2000, 5000, 10'000, 20'000, 100'000};
constexpr bigtime_t MICROSECONDS_PER_SECOND = 1'000'000;
/// Items of a drive's menu above the recent folders: the folder, Eject, a separator.
constexpr int MRUF_TARGET_BASE = 3;

TMessage drive_message(const char* code, int32_t drive) {
  TMessage message(code);
  message.AddInt32("DrvFolderIdx", drive);
  return message;
}

TMessage page_message(int32_t page) {
  TMessage message("cpgr");
  message.AddInt32("GrphPage", page);
  return message;
}

}  // namespace

QMenu* TRunWindow::AddMenu(const std::string& text, const char* key) {
  return mMenuBar->addMenu(menu_label(Engine(), text, key));
}

QAction* TRunWindow::AddItem(QMenu* menu, const std::string& text, const char* key,
                             const TMessage& message) {
  QAction* item = menu->addAction(menu_label(Engine(), text, key));
  connect(item, &QAction::triggered, this, [this, message] { PostMessage(message); });
  return item;
}

QAction* TRunWindow::AddItem(QMenu* menu, const char* label, const char* key,
                             const TMessage& message) {
  return AddItem(menu, GetString(label), key, message);
}

void TRunWindow::CreateMenu() {
  for (int32_t drive = 0; drive < LAMP_COUNT; ++drive) CreateDriveMenu(drive);
  CreateCopyMenu();
  CreateWindowMenu();
  CreateSpeedMenu();
  GenerateMenuMRUF();
}

void TRunWindow::CreateDriveMenu(int32_t drive) {
  const auto index = static_cast<size_t>(drive);
  const std::string number = std::to_string(drive + 1);
  mDrvMenu[index] =
      AddMenu(replace_placeholder(GetString("FDD%Num%"), "%Num%", number), number.c_str());
  AddItem(mDrvMenu[index], "", "", drive_message("spdf", drive));
  SetDriveItemText(index, mDrvName[index].empty() ? GetString("(Empty)") : mDrvName[index]);
  AddItem(mDrvMenu[index], "Eject", "E", drive_message("ejct", drive));
  mDrvMenu[index]->addSeparator();
}

void TRunWindow::SetDriveItemText(size_t drive, const std::string& name) {
  mDrvName[drive] = name;
  mDrvMenu[drive]->actions()[0]->setText(menu_label(Engine(), name + " ...", "C"));
}

void TRunWindow::GenerateMenuMRUF() {
  for (size_t drive = 0; drive < mDrvMenu.size(); ++drive) {
    const QList<QAction*> items = mDrvMenu[drive]->actions();
    for (qsizetype i = MRUF_TARGET_BASE; i < items.size(); ++i) {
      mDrvMenu[drive]->removeAction(items[i]);
    }
    for (int32_t i = 0; i < mMrufDrv.CountMRUFs(); ++i) {
      TMessage message = drive_message("_RRC", static_cast<int32_t>(drive));
      message.AddRef("refs", TPathRef{mMrufDrv.MRUFAt(i)});
      AddItem(mDrvMenu[drive], extract_file_name(mMrufDrv.MRUFAt(i)), "", message);
    }
  }
}

void TRunWindow::CreateCopyMenu() {
  QMenu* menu = AddMenu(GetString("Copy"), "C");
  AddItem(menu, "Text", "T", TMessage("cptx"));
  menu->addSeparator();
  AddItem(menu, "Graphic: Display Page", "G", page_message(-1));
  for (int32_t page = 0; page < PAGE_COUNT; ++page) {
    const std::string label =
        replace_placeholder(GetString("Graphic: Page %Num%"), "%Num%", std::to_string(page));
    AddItem(menu, label, "", page_message(page));
  }
  menu->addSeparator();
  AddItem(menu, "Composition", "", TMessage("cpcp"));
}

void TRunWindow::CreateWindowMenu() {
  QMenu* menu = AddMenu(GetString("Window"), "W");
  for (const auto& [label, key, code] :
       {std::tuple("Main Window", "M", "smwn"), std::tuple("Debug Window", "D", "sdwn")}) {
    QAction* item = menu->addAction(menu_label(Engine(), GetString(label), key));
    connect(item, &QAction::triggered, this,
            [this, message = TMessage(code)] { PostToApp(message); });
  }
  menu->addSeparator();
  mMenuBarItem->setText(menu_label(Engine(), GetString("Menu Bar"), "B"));
  mFullScreenItem->setText(menu_label(Engine(), GetString("Full Screen"), "F"));
  for (QAction* item : {mMenuBarItem, mFullScreenItem}) {
    item->setCheckable(true);
    menu->addAction(item);
  }
  mMenuBarItem->setChecked(Engine().exitStates->MBrS.load());
  menu->addSeparator();
  CreateSizeItems(menu);
}

void TRunWindow::CreateSizeItems(QMenu* menu) {
  auto* group = new QActionGroup(menu);
  for (int step = 1; step <= TRunWidget::MAX_STEP; ++step) {
    const std::string label =
        replace_placeholder(GetString("Size ×%Num%"), "%Num%", std::to_string(step));
    QAction* item =
        group->addAction(menu->addAction(menu_label(Engine(), label, std::to_string(step))));
    item->setCheckable(true);
    item->setChecked(step == mWidget->Step());
    connect(item, &QAction::triggered, this, [this, step] { mWidget->SetStep(step); });
  }
}

void TRunWindow::CreateSpeedMenu() {
  QMenu* menu = AddMenu(GetString("Speed"), "S");
  auto* group = new QActionGroup(menu);
  const auto add = [&](const std::string& label, const char* key, bigtime_t interval) {
    QAction* item = group->addAction(menu->addAction(menu_label(Engine(), label, key)));
    item->setCheckable(true);
    item->setData(QVariant::fromValue<qint64>(interval));
    connect(item, &QAction::triggered, this, [this, interval] { SetSpeed(interval); });
  };
  add(GetString("Full Speed"), "F", FULL_SPEED);
  menu->addSeparator();
  for (const bigtime_t interval : SPEED_INTERVALS) {
    add(replace_placeholder(GetString("%Num% Statements per Second"), "%Num%",
                            std::to_string(MICROSECONDS_PER_SECOND / interval)),
        "", interval);
  }
  // The preferences dialog changes the speed as well, also to steps that are not here.
  connect(menu, &QMenu::aboutToShow, this, [this, group] {
    const TPrefs& prefs = *Engine().prefs;
    const bigtime_t now = prefs.USpC.load() ? prefs.SpCI.load() : FULL_SPEED;
    for (QAction* item : group->actions()) item->setChecked(item->data().toLongLong() == now);
  });
}

void TRunWindow::SetLabelsCommon() {
  // The lamps' state belongs to the titles, which are made anew.
  for (QMenu* menu : mDrvMenu) mMenuBar->SetAccessing(menu->menuAction(), false);
  for (QAction* title : mMenuBar->actions()) {
    mMenuBar->removeAction(title);
    title->menu()->deleteLater();
  }
  CreateMenu();
  for (size_t drive = 0; drive < mDrvMenu.size(); ++drive) {
    mMenuBar->SetAccessing(mDrvMenu[drive]->menuAction(), mLampCount[drive] >= 1);
  }
}

}  // namespace zoka
