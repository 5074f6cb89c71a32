// The document's view: what it shows, and its timers.
#include "editor/window/zoka_basic_view.h"

#include <QFile>
#include <QMimeData>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/settings/prefs.h"
#include "app/settings/show_alert.h"
#include "common/file_path.h"
#include "debugger/window/debug_commands.h"
#include "editor/find_line.h"
#include "editor/window/list_panels.h"

namespace zoka {
namespace {

/// Of the view to itself, when NEXT_RUN_DELAY is over.
constexpr const char NEXT_RUN_CODE[] = "nxtr";
constexpr int MS_PER_MINUTE = 60'000;
constexpr int32_t YES_OF_TWO = 1;

/// The path of a local file as its bytes are: the names of old disks need not be UTF-8.
std::string path_of(const QUrl& url) {
  if (!url.host().isEmpty()) return QFile::encodeName(url.toLocalFile()).toStdString();
  return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}

/// A fault's text on one line.
std::string one_line(std::string text) {
  for (char& c : text) {
    if (c == '\n') c = ' ';
  }
  return text;
}

}  // namespace

TZokaBasicView::TZokaBasicView(TBasicWindow& window, TEngineContext& context,
                               THandlerRegistry& registry, TRunWindow& runWindow,
                               const TSettingsPlace& place)
    : TBasicView(&window),
      mWindow(window),
      mContext(context),
      mRunWindow(runWindow),
      mEdit(new TEditTxtView(this)),
      mFindBar(new TFindBar(this, context, *mEdit)),
      mStatBar(new QLabel(this)),
      mSlot(place),
      mDocument(context, *runWindow.RunView(), *mEdit, *this),
      mRequests(context, registry, mDocument, *mEdit, *this),
      mComforts(*mEdit, context, [this](const std::string& text) { SetStatBarStr(text); }) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(mEdit, 1);
  column->addWidget(mFindBar);
  column->addWidget(mStatBar);
  mStatBar->setObjectName("StatBar");
  mStatBar->setTextFormat(Qt::PlainText);
  // A long text must not widen the window.
  mStatBar->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setFocusProxy(mEdit);
  mEdit->SetCalls({[this] { mDocument.SetModified(true); },
                   [this](const QMimeData& files) { SimpleData(files); }});
  connect(mEdit, &QsciScintilla::textChanged, this, [this] { ForgetNews(); });
  std::string folder;
  if (get_settings_entry(place, SETTINGS_FOLDER, "", true, &folder) == 0) {
    mDocument.SetRescueFolder(folder);
  }
  if (mSlot.IsOpen()) mDocument.SetAutoSavePath(mSlot.ListPath());
  mJournalTimer.setSingleShot(true);
  mJournalTimer.setInterval(JOURNAL_INTERVAL_MS);
  connect(&mJournalTimer, &QTimer::timeout, this, [this] { WriteJournal(); });
  // Messages, so that they wait for the answer while the window stands in an alert.
  connect(&mAutoSaveTimer, &QTimer::timeout, this,
          [this] { mWindow.PostMessage(TMessage("asvr")); });
  mNextRun.setSingleShot(true);
  mNextRun.setInterval(static_cast<int>(NEXT_RUN_DELAY / 1000));
  connect(&mNextRun, &QTimer::timeout, this,
          [this] { mWindow.PostMessage(TMessage(NEXT_RUN_CODE)); });
  mRunWindow.Host().SetRunEnded(
      [this](int64_t run, int32_t, const TMessage* request) { RunEnded(run, request); });
  PrefFontChanged();
  mEdit->SetWordWrap(mContext.prefs->WdWp.load());
  LanguageChanged();
}

TZokaBasicView::~TZokaBasicView() {
  mCalls = {};
  mRunWindow.Host().SetRunEnded({});
  mDocument.Kill();
  if (!mKeepsUnsaved) mSlot.DeleteAutoSave();
}

void TZokaBasicView::KeepUnsaved() {
  // Whatever the list is now: the files may hold what the user has not been asked about yet.
  mKeepsUnsaved = true;
  if (!mDocument.IsModified()) return;
  mJournalTimer.stop();
  mSlot.WriteJournal(mEdit->Get());
}

void TZokaBasicView::SetDebugView(TDebugView& view) {
  mDebugLink = new TDebugLink(this, mContext, mDocument, *mEdit, view,
                              {[this](const std::string& text) { SetStatBarStr(text); },
                               [this] { MessageReceived(TMessage("run")); }});
}

void TZokaBasicView::DebuggerReady() {
  if (mDebugLink != nullptr) mDebugLink->DebuggerReady();
}

void TZokaBasicView::ShowDebug() {
  if (mDebugLink != nullptr) mDebugLink->ShowDebug();
}

void TZokaBasicView::CheckAndLoadAutoSave() {
  if (!mSlot.Leftover().empty()) AskRestore();
  // Not before the answer: it would write over what the question is about.
  SetAutoSaveRegular();
}

void TZokaBasicView::AskRestore() {
  const THeldQueue held(mWindow.Queue());
  const std::string text =
      replace_placeholder(GetString("@Ask_Auto_Open %AppName%@"), "%AppName%", APP_NAME) + "\n\n" +
      GetString("@Warning_Invalid_Auto_Save@");
  if (show_alert(mContext, text, {{"No", "N"}, {"Yes", "Y"}}, 0, nullptr) == YES_OF_TWO) {
    mDocument.RestoreBackup(mSlot.Leftover());
  }
}

void TZokaBasicView::WriteJournal() {
  const bool kept = mSlot.WriteJournal(mEdit->Get());
  // Said once, not with every key.
  if (!kept && mIsKept) SetStatBarStr(GetString("@Nothing_Kept@"));
  mIsKept = kept;
}

void TZokaBasicView::AutoSaveRqtd() {
  // Also a text that nobody has changed.
  if (mSlot.IsOpen()) mDocument.SaveList(mSlot.ListPath(), true);
}

void TZokaBasicView::SetAutoSaveRegular() {
  mAutoSaveTimer.stop();
  if (mContext.prefs->ASvR.load())
    mAutoSaveTimer.start(mContext.prefs->ASvI.load() * MS_PER_MINUTE);
}

bool TZokaBasicView::MessageReceived(const TMessage& message) {
  if (mDebugLink != nullptr && mDebugLink->MessageReceived(message)) return true;
  switch (message.what) {
    case message_code(DEBUG_RUN_OR_GO_ON):
      return MessageReceived(TMessage("run"));
    case message_code("kill"):
      Kill();
      return true;
    case message_code("CCUT"):
      mEdit->cut();
      return true;
    case message_code("COPY"):
      mEdit->copy();
      return true;
    case message_code("PSTE"):
      mEdit->paste();
      return true;
    case message_code("SALL"):
      mEdit->selectAll();
      return true;
    case message_code("clr"):
      mEdit->ClearSelection();
      return true;
    case message_code("pmfc"):
      PrefFontChanged();
      PrefChanged();
      return true;
    case message_code("pwwc"):
      mEdit->SetWordWrap(mContext.prefs->WdWp.load());
      PrefChanged();
      return true;
    case message_code("asvr"):
      AutoSaveRqtd();
      return true;
    case message_code(NEXT_RUN_CODE):
      RunNext();
      return true;
    case message_code("parc"):
      SetAutoSaveRegular();
      PrefChanged();
      return true;
    default:
      break;
  }
  // A run that begins now takes the place of the one that a program has asked for.
  if (message.what == message_code("run") || message.what == message_code("rnlr")) {
    ForgetNextRun();
    mEdit->MarkFault(-1);
  }
  return mRequests.MessageReceived(message);
}

void TZokaBasicView::ForgetNextRun() {
  mNextRun.stop();
  mNextRequest.reset();
}

void TZokaBasicView::RunNext() {
  // The break key of the time between two runs reaches the machine of the first one only.
  const TVMachine* const machine = mRunWindow.RunView()->VMachine();
  if (machine != nullptr && machine->IsTerminated()) ForgetNextRun();
  // None is left where the user has run or killed something meanwhile.
  if (mNextRequest) mRequests.MessageReceived(*std::exchange(mNextRequest, std::nullopt));
}

void TZokaBasicView::Kill() {
  ForgetNextRun();
  mDocument.Kill();
}

void TZokaBasicView::SayOfList(const std::string& text) {
  SetStatBarStr(text);
  mListNews = StatBarStr();
}

void TZokaBasicView::ForgetNews() {
  if (!mListNews.empty() && StatBarStr() == mListNews) SetStatBarStr("");
  mListNews.clear();
}

void TZokaBasicView::SimpleData(const QMimeData& files) {
  for (const QUrl& url : files.urls()) {
    if (!url.isLocalFile()) continue;
    TMessage message("_RRC");
    message.AddRef("refs", TPathRef{path_of(url)});
    add_held_modifiers(&message, false);
    mWindow.PostMessage(message);
    return;
  }
}

void TZokaBasicView::SetStatBarStr(const std::string& text) {
  mStatBar->setText(QString::fromStdString(text.empty() ? text : " " + text));
  // Shown during a long operation, too.
  mStatBar->repaint();
}

void TZokaBasicView::SaveFailed(const std::string& path) {
  SetStatBarStr(replace_placeholder(GetString("Cannot save \"%FileName%\"."), "%FileName%",
                                    extract_file_name(path)));
}

void TZokaBasicView::Saved() {
  SayOfList(GetString("Saved."));
}

void TZokaBasicView::SampleOpened() {
  SayOfList(GetString("@Hint_Run_Sample@"));
}

void TZokaBasicView::SetWinTitle() {
  if (mCalls.titleChanged) mCalls.titleChanged();
}

void TZokaBasicView::AddHistory(const std::string& path) {
  if (mCalls.addHistory) mCalls.addHistory(path);
}

void TZokaBasicView::ShowRun() {
  mRunWindow.Appear();
}

void TZokaBasicView::StateChanged() {
  const TDocumentState state = mDocument.State();
  if (state == TDocumentState::Compiling && mDebugLink != nullptr) mDebugLink->SourceTaken();
  if (state == TDocumentState::Running) SetStatBarStr(GetString("Running"));
  if (state == TDocumentState::Idle) SetStatBarStr("");
  if (mCalls.stateChanged) mCalls.stateChanged();
}

void TZokaBasicView::ModifiedChanged() {
  if (!mDocument.IsModified()) {
    mJournalTimer.stop();
    mSlot.ClearJournal();
  } else if (!mJournalTimer.isActive()) {
    mJournalTimer.start();
  }
}

void TZokaBasicView::CompileEnded(int64_t compilation) {
  const auto finish = [this, compilation] {
    if (mDocument.FinishRun(compilation) == TRunOutcome::CompileFailed) {
      ShowFaultLine(mRunWindow.RunView()->CompileFault());
    }
  };
  // Bound to this view: it may be gone when its turn comes.
  QMetaObject::invokeMethod(this, finish, Qt::QueuedConnection);
}

void TZokaBasicView::RunEnded(int64_t runNumber, const TMessage* request) {
  TRunView* const view = mRunWindow.RunView();
  // What a run says that has a successor already counts no more.
  if (runNumber != view->RunNumber()) return;
  mDocument.RunEnded();
  if (view->VMachine() != nullptr && view->VMachine()->Fault() != nullptr) {
    ShowFaultLine(*view->VMachine()->Fault());
  }
  if (request == nullptr) return;
  mNextRequest = *request;
  mNextRequest->what = message_code("vmrr");
  mNextRun.start();
}

void TZokaBasicView::AlertShown(const TThread* waiter) {
  const TVMachine* const machine = mRunWindow.RunView()->VMachine();
  // It waits for the answer; until then its fault is ours to read.
  if (machine == nullptr || machine != waiter || machine->Fault() == nullptr) return;
  ShowFaultLine(*machine->Fault());
}

void TZokaBasicView::ShowFaultLine(const TException& fault) {
  const TFmtSrc& source = mDocument.FormattedSource();
  int32_t line = line_with_number(source.Text(), static_cast<int32_t>(fault.ID));
  if (fault.fault == TFault::Compile && fault.beginPos >= 0) {
    const std::string_view before =
        std::string_view(source.Text()).substr(0, static_cast<size_t>(fault.beginPos));
    line = static_cast<int32_t>(std::count(before.begin(), before.end(), '\n'));
  }
  SayOfList(one_line(exception_text(fault, *mContext.catalogue)));
  if (line < 0) return;
  // The user may have gone on editing, or have opened another list, while the program ran.
  const int32_t now = mEdit->BreakMarks().Drift().Now(source.EditorLine(line));
  if (now >= 0) mEdit->MarkFault(now);
}

void TZokaBasicView::PrefFontChanged() {
  mEdit->SetFontFamilyAndSize(mContext.prefs->MWFF, mContext.prefs->MWFS.load());
}

void TZokaBasicView::PrefChanged() {
  SetStatBarStr(GetString("Preferences changed."));
}

void TZokaBasicView::LanguageChanged() {
  mEdit->setAccessibleName(QString::fromStdString(GetString("Program List")));
  mStatBar->setAccessibleName(QString::fromStdString(GetString("Status")));
  mFindBar->SetLabels();
  mComforts.SetLabels();
  if (mDebugLink != nullptr) mDebugLink->SetLabels();
  SetWinTitle();
  SetStatBarStr("");
}

}  // namespace zoka
