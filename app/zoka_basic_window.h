// TZokaBasicWindow: the main window: menu bar, file panels and history around the document's view.
#pragma once

#include <QFileDialog>
#include <QPointer>

#include "app/file_menu.h"
#include "app/settings/mruf.h"
#include "common/window/basic_window.h"
#include "editor/window/list_panels.h"
#include "editor/window/zoka_basic_view.h"

namespace zoka {

/// Window thread, but for PostMessage.
class TZokaBasicWindow final : public TBasicWindow {
 public:
  /// `runWindow` and `place` outlive it.
  TZokaBasicWindow(TWindowContext& context, TRunWindow& runWindow, const TSettingsPlace& place);
  ~TZokaBasicWindow() override;

  TZokaBasicView& View() { return *mView; }
  TListDocument& Document() const { return mView->Document(); }
  /// Loads a list that was given by name; the user may be asked first.
  bool OpenFile(const std::string& path);
  /// Runs the list from its start, ending what runs.
  void Run() { mView->MessageReceived(TMessage("run")); }
  void Kill() { mView->Kill(); }
  QString StatusText() const { return QString::fromStdString(mView->StatBarStr()); }
  /// Asks whether to save; true if the application may end at once.
  bool AskQuit();

  void MessageReceived(const TMessage& message) override;
  void LanguageChanged() override;
  void IAPChanged(const TMessage& message) override;
  bool QuitRequested() override;
  void Quit() override;

  /// The panels, null until first used.
  TZokaOpenPanel* OpenPanel() { return mOpenPanel; }
  TZokaSavePanel* SavePanel() { return mSavePanel; }
  /// The item whose message has that code, or null.
  QAction* FindItem(const char* code) const;
  TMRUF& History() { return mMruf; }
  QMenu* HistoryMenu() { return mHistoryMenu; }
  /// Whether the item for the authors' page can be chosen.
  void SetHasAuthorPage(bool has);
  /// Lets a page lie over the editor, until a list is begun, opened or run.
  void CoverEditor(QWidget* page) { mCover = page; }
  /// Takes the page away, if there is one.
  void UncoverEditor();

 private:
  struct TMenuRow;

  void CreateMenu();
  QMenu* AddMenu(QMenu* menu, const char* label, const char* key);
  void AddRows(QMenu* menu, const TMenuRow* rows, size_t count);
  QAction* AddItem(QMenu* menu, const TMenuRow& row);
  void CreateFileMenu();
  void CreateEditMenu();
  void AddComforts(QMenu* menu);
  void CreateRunMenu();
  void CreateHelpMenu();
  void CreateSamplesMenu(QMenu* menu);
  void GenerateHistoryMenu();
  void UpdateItems();
  void SetWinTitle();

  void MItemOpenClicked();
  void MItemSaveAsClicked(const TMessage& message);
  void MItemDelAllMRULsClicked();
  void AddHistoryRqtd(const std::string& path);
  void RemoveHistoryRqtd(const TMessage& message);
  void HistoryItemClicked(const std::string& path);
  void SaveHistory() const;
  void SetFilePanelFolder(QFileDialog* panel, const QFileDialog* other);
  void Cancel(const QFileDialog* panel);
  void StorePanelFolder(const QFileDialog* panel);
  void SaveChosen(const QString& path);

  const TSettingsPlace& mPlace;
  TZokaBasicView* mView;
  TMRUF mMruf;
  TFileMenu* mFileMenu = nullptr;
  QMenu* mHistoryMenu = nullptr;
  bool mHasAuthorPage = false;
  QPointer<QWidget> mCover;
  QPointer<TZokaOpenPanel> mOpenPanel;
  QPointer<TZokaSavePanel> mSavePanel;
  TMessage mSaveMessage;  // what the save panel's answer carries on
};

}  // namespace zoka
