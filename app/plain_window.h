// TPlainWindow: a main window without an editor: open a list, look at it, run and kill it.
#pragma once

#include <QFileDialog>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTimer>

#include "common/window/basic_window.h"
#include "editor/list_document.h"
#include "run/window/run_window.h"

namespace zoka {

/// Window thread, but for PostMessage and CompileEnded.
class TPlainWindow final : public TBasicWindow, private TDocumentHost {
 public:
  /// `runWindow` outlives it.
  TPlainWindow(TWindowContext& context, TRunWindow& runWindow);
  ~TPlainWindow() override;

  bool OpenFile(const std::string& path);
  /// Runs the list from its start, ending what runs.
  void Run();
  void Kill();
  TListDocument& Document() { return mDocument; }
  QString StatusText() const;

  void MessageReceived(const TMessage& message) override;
  void LanguageChanged() override;
  bool QuitRequested() override;
  void Quit() override;

 private:
  /// The text of the view as the document sees it.
  class TViewText final : public TEditText {
   public:
    explicit TViewText(QPlainTextEdit& view) : mView(view) {}
    std::string Get() const override;
    void Set(const std::string& text) override;
    void Insert(const std::string& text) override;
    void Append(const std::string& text) override;

   private:
    QPlainTextEdit& mView;
  };

  void SetStatBarStr(const std::string& text) override;
  void SetWinTitle() override;
  void ShowRun() override;
  void StateChanged() override;
  void CompileEnded(int64_t compilation) override;

  void CreateMenu();
  void MItemOpenClicked();
  void RunEnded(int64_t runNumber, const TMessage* request);

  TRunWindow& mRunWindow;
  QPlainTextEdit* mView;
  TViewText mText;
  TListDocument mDocument;
  QAction* mKillItem = nullptr;
  QPointer<QFileDialog> mOpenPanel;
  QTimer mNextRun;  // a program's wish for another run, soon to be fulfilled
  TMessage mNextRequest;
};

}  // namespace zoka
