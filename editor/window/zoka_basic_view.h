// TZokaBasicView: the document in its window: the editor, the find bar and the status line, and
// what keeps its text safe. Menus and panels are the window's.
#pragma once

#include <QLabel>
#include <QTimer>
#include <optional>

#include "common/handler.h"
#include "common/window/basic_view.h"
#include "common/window/basic_window.h"
#include "editor/auto_save.h"
#include "editor/list_document.h"
#include "editor/list_requests.h"
#include "editor/window/debug_link.h"
#include "editor/window/edit_comforts.h"
#include "editor/window/edit_txt_view.h"
#include "editor/window/find_bar.h"
#include "run/window/run_window.h"

namespace zoka {

/// What the view tells its window.
struct TBasicViewCalls {
  std::function<void()> titleChanged;
  std::function<void()> stateChanged;
  std::function<void(const std::string& path)> addHistory;
};

/// Window thread, but for CompileEnded.
class TZokaBasicView final : public TBasicView, private TDocumentHost, private TListRequestHost {
 public:
  /// `window` holds the view and hands it the messages that it does not know itself.
  TZokaBasicView(TBasicWindow& window, TEngineContext& context, THandlerRegistry& registry,
                 TRunWindow& runWindow, const TSettingsPlace& place);
  ~TZokaBasicView() override;

  void SetCalls(TBasicViewCalls calls) { mCalls = std::move(calls); }
  /// Debugged runs are shown there from now on; it outlives this view's use.
  void SetDebugView(TDebugView& view);
  /// Handles a message; false if it is none of the document's.
  bool MessageReceived(const TMessage& message);
  /// Asks whether to take over what an abnormal end left behind, and starts the regular auto-save.
  void CheckAndLoadAutoSave();
  /// The view is about to go without asking: what is unsaved is there at the next start, as behind
  /// an abnormal end.
  void KeepUnsaved();
  /// The alert of an engine's thread has come up, and `waiter`, if not null, waits for its answer.
  void AlertShown(const TThread* waiter);
  /// Starts or ends the regular auto-save as the preferences say.
  void SetAutoSaveRegular();
  void LanguageChanged();

  void SetStatBarStr(const std::string& text) override;
  std::string StatBarStr() const { return mStatBar->text().toStdString(); }
  /// Stops a program, or a run that is about to begin.
  void Kill();

  TListDocument& Document() { return mDocument; }
  TListRequests& Requests() { return mRequests; }
  TEditTxtView& Edit() { return *mEdit; }
  TFindBar& FindBar() { return *mFindBar; }
  TEditComforts& Comforts() { return mComforts; }
  /// Null before SetDebugView.
  TDebugLink* DebugLink() { return mDebugLink; }

 private:
  void SetWinTitle() override;
  void AddHistory(const std::string& path) override;
  void ShowDebug() override;
  void ShowRun() override;
  void StateChanged() override;
  void ModifiedChanged() override;
  void CompileEnded(int64_t compilation) override;
  void DebuggerReady() override;

  THandlerId WindowId() const override { return mWindow.HandlerId(); }
  void PostToWindow(const TMessage& message) override { mWindow.PostMessage(message); }
  void GoToOffset(size_t offset) override { mEdit->GoToOffset(offset); }
  void SaveFailed(const std::string& path) override;
  void Saved() override;
  void SampleOpened() override;

  std::string GetString(const char* key) const { return mContext.catalogue->GetString(key); }
  /// Says what is true of the list only as long as nobody changes it.
  void SayOfList(const std::string& text);
  void ForgetNews();
  void SimpleData(const QMimeData& files);
  void RunEnded(int64_t runNumber, const TMessage* request);
  void RunNext();
  void ForgetNextRun();
  void ShowFaultLine(const TException& fault);
  void AskRestore();
  void WriteJournal();
  void AutoSaveRqtd();
  void PrefFontChanged();
  void PrefChanged();

  TBasicWindow& mWindow;
  TEngineContext& mContext;
  TRunWindow& mRunWindow;
  TBasicViewCalls mCalls;
  TEditTxtView* mEdit;
  TFindBar* mFindBar;
  QLabel* mStatBar;
  std::string mListNews;  // what the status line says of the present text; empty if nothing
  TAutoSaveSlot mSlot;
  bool mKeepsUnsaved = false;
  TListDocument mDocument;
  TListRequests mRequests;
  TEditComforts mComforts;
  TDebugLink* mDebugLink = nullptr;
  QTimer mJournalTimer;
  bool mIsKept = true;  // the last attempt to keep unsaved text succeeded
  QTimer mAutoSaveTimer;
  QTimer mNextRun;
  std::optional<TMessage> mNextRequest;  // a program's wish for another run, soon to be fulfilled
};

}  // namespace zoka
