// TRunWindow: the frame around the run view: title, drive menus with lamps, the Copy, Window and
// Speed menus, and the menu bar that can be hidden. It owns no run logic.
#pragma once

#include <QFileDialog>
#include <QPointer>
#include <array>

#include "app/settings/mruf.h"
#include "common/window/basic_window.h"
#include "run/run_view.h"
#include "run/window/run_menu_bar.h"
#include "run/window/run_widget.h"
#include "run/window/run_window_host.h"

namespace zoka {

/// The window's size follows the view. Window thread, but for PostMessage.
class TRunWindow final : public TBasicWindow {
 public:
  /// `place` (may be null) is where the recent folders are kept; it outlives the window.
  TRunWindow(TWindowContext& context, const TSettingsPlace* place);
  ~TRunWindow() override;

  TRunView* RunView() { return &mRunView; }
  TRunWidget* Widget() { return mWidget; }
  TRunWindowHost& Host() { return mHost; }

  void MessageReceived(const TMessage& message) override;
  void LanguageChanged() override;
  void IAPChanged(const TMessage& message) override;
  /// Shows or hides the menu bar: without it the window is the picture alone.
  void Zoom();
  /// To the whole screen and back.
  void ToggleFullScreen();
  void Quit() override;

  bool IsMenuBarShown() const { return !mMenuBar->isHidden(); }
  /// True while the lamp of that drive (0 or 1) is lit.
  bool IsLampLit(size_t drive) const;

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  /// Instead of microseconds per statement: no speed control.
  static constexpr bigtime_t FULL_SPEED = 0;

  void CreateMenu();
  void CreateDriveMenu(int32_t drive);
  void CreateCopyMenu();
  void CreateWindowMenu();
  void CreateSizeItems(QMenu* menu);
  void CreateSpeedMenu();
  void SetLabelsCommon();
  void GenerateMenuMRUF();
  QMenu* AddMenu(const std::string& text, const char* key);
  QAction* AddItem(QMenu* menu, const std::string& text, const char* key, const TMessage& message);
  QAction* AddItem(QMenu* menu, const char* label, const char* key, const TMessage& message);
  std::string GetString(const char* key) const { return Engine().catalogue->GetString(key); }

  void UpdateMenuDrvFolderRqtd(const TMessage& message);
  void SetDriveItemText(size_t drive, const std::string& name);
  void MItemSpecifyDrvFolderClicked(const TMessage& message);
  void SetPanelLabels();
  void SetDrvFolderRqtd(const TMessage& message);
  void SetFDDAccessLampRqtd(const TMessage& message);
  void SetSpeed(bigtime_t interval);
  void UpdateMBarVisibility();
  void LoadMRUF();
  void SaveMRUF() const;

  const TSettingsPlace* mPlace;
  TRunWindowHost mHost;
  TRunView mRunView;
  TRunMenuBar* mMenuBar;
  TRunWidget* mWidget;
  QAction* mMenuBarItem;
  QAction* mFullScreenItem;
  // Before the window filled the screen: the place of what is inside its frame, and all of it.
  QPoint mNormalPlace;
  TFrame mNormalFrame;
  std::array<QMenu*, LAMP_COUNT> mDrvMenu{};
  std::array<std::string, LAMP_COUNT> mDrvName;
  std::array<int32_t, LAMP_COUNT> mLampCount{};
  TMRUF mMrufDrv;
  QPointer<QFileDialog> mSpecifyPanel;
  int32_t mSpecifyDrive = 0;
};

}  // namespace zoka
