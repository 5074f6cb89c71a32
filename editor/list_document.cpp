// The document's logic: loading, saving, and the way into a run.
#include "editor/list_document.h"

#include <fcntl.h>

#include <utility>

#include "app/settings/exit_states.h"
#include "app/settings/prefs.h"
#include "app/settings/show_alert.h"
#include "common/file.h"
#include "common/file_path.h"
#include "common/file_save.h"
#include "common/text/ascii.h"
#include "common/text/number.h"
#include "debugger/debug_model.h"

namespace zoka {
namespace {

/// Behind the name of something that is under way.
constexpr const char FUC_ELLIPSES[] = "…";

}  // namespace

TSaveAnswer TDocumentHost::AskSave(const std::string&) {
  return TSaveAnswer::No;
}
void TDocumentHost::SetStatBarStr(const std::string&) {}
void TDocumentHost::SetWinTitle() {}
void TDocumentHost::AddHistory(const std::string&) {}
void TDocumentHost::ShowDebug() {}
void TDocumentHost::ShowRun() {}
void TDocumentHost::StateChanged() {}
void TDocumentHost::ModifiedChanged() {}
void TDocumentHost::CompileEnded(int64_t) {}
void TDocumentHost::DebuggerReady() {}

TDocumentState next_document_state(TDocumentState state, TDocumentEvent event) {
  using S = TDocumentState;
  using E = TDocumentEvent;
  switch (event) {
    case E::Run:
      return S::Compiling;
    case E::Load:
      // A compilation gives way to it; a program runs on, whatever becomes of the list.
      return state == S::Running || state == S::Ending ? state : S::Loading;
    case E::Loaded:
    case E::LoadFailed:
      return state == S::Loading ? S::Idle : state;
    case E::Compiled:
      return state == S::Compiling ? S::Running : state;
    case E::CompileFailed:
      return state == S::Compiling ? S::Idle : state;
    case E::Kill:
      return state == S::Idle || state == S::Loading ? state : S::Ending;
    case E::Ended:
      return state == S::Running || state == S::Ending ? S::Idle : state;
  }
  return state;
}

void add_run_start(std::string_view text, TMessage* message) {
  if (text.empty()) return;
  if (is_digit(text[0])) {
    message->AddInt32("LineNum", parse_long(text));
  } else if (text[0] == '*') {
    message->AddString("Label", to_upper(text.substr(1)));
  } else {
    message->AddString("Label", to_upper(text));
  }
}

TListDocument::TListDocument(TEngineContext& context, TRunView& runView, TEditText& text,
                             TDocumentHost& host)
    : mContext(context), mRunView(runView), mText(text), mHost(host) {}

void TListDocument::ShowLoadFault(TListFault fault, const std::string& path) {
  show_fault_alert(mContext, list_fault_text(fault, path, *mContext.catalogue), nullptr);
}

void TListDocument::NoteReport(const TListText& list) {
  mReport = list_report(list, *mContext.catalogue);
  std::string status;
  for (const std::string& sentence : mReport) status += sentence;
  mHost.SetStatBarStr(status);
}

bool TListDocument::LoadText(const std::string& path, int32_t encoding, const char* status,
                             TListText* list) {
  mHost.SetStatBarStr(mContext.catalogue->GetString(status) + FUC_ELLIPSES);
  if (mState == TDocumentState::Compiling) EndCompile();
  SetState(TDocumentEvent::Load);
  TListFault fault = CreateListCtt(path, encoding, mContext.prefs->Cv98.load(), list);
  SetState(fault == TListFault::None ? TDocumentEvent::Loaded : TDocumentEvent::LoadFailed);
  NoteReport(*list);
  if (fault == TListFault::None) return true;
  ShowLoadFault(fault, path);
  return false;
}

bool TListDocument::OpenList(const std::string& path, int32_t encoding) {
  TListText list;
  if (!LoadText(path, encoding, "Opening", &list)) return false;
  mText.Set(list.text);
  fCharset = list.charset;
  SetModified(false);
  SetCurERef(path);
  mRunView.SetDriveFolder(0, extract_file_folder_path_kernel(path));
  return true;
}

bool TListDocument::OpenBytes(std::string bytes, int32_t encoding, const std::string& name) {
  TListText list;
  TListFault fault =
      list_from_bytes(std::move(bytes), encoding, mContext.prefs->Cv98.load(), &list);
  if (fault != TListFault::None) {
    ShowLoadFault(fault, name);
    return false;
  }
  NoteReport(list);
  mText.Set(list.text);
  fCharset = list.charset;
  SetModified(false);
  return true;
}

bool TListDocument::AddList(const std::string& path, int32_t encoding) {
  TListText list;
  if (!LoadText(path, encoding, "Inserting", &list)) return false;
  mText.Insert(list.text);
  KeepCharset(list.charset);
  return true;
}

bool TListDocument::MergeList(const std::string& path, int32_t encoding) {
  TListText list;
  if (!LoadText(path, encoding, "Merging", &list)) return false;
  mText.Append(list.text);
  KeepCharset(list.charset);
  return true;
}

void TListDocument::KeepCharset(int32_t charset) {
  // A list that must be given a name before it is saved stays one.
  if (charset != 0) fCharset = charset;
  SetModified(true);
}

bool TListDocument::SaveList(const std::string& path, bool isAuto) {
  if (!save_file_atomically(path, mText.Get(), mRescueFolder)) return false;
  TBasicFile file;
  if (file.SetTo(path, O_WRONLY) == 0) file.SetTypeIfNone(LIST_MIME_TYPE);
  if (isAuto) return true;
  SetModified(false);
  fCharset = 0;
  return true;
}

bool TListDocument::SaveListAs(const std::string& path) {
  if (!SaveList(path, false)) return false;
  SetCurERef(path);
  mRunView.SetDriveFolder(0, extract_file_folder_path_kernel(path));
  return true;
}

void TListDocument::NewList() {
  OpenCopy("");
}

void TListDocument::OpenCopy(const std::string& text) {
  mText.Set(text);
  SetCurERef("");
  SetModified(false);
}

bool TListDocument::RestoreBackup(const std::string& path) {
  fIsAutoBackup = true;
  const bool restored = AddList(path, ENCODING_UTF8);
  if (!restored) fIsAutoBackup = false;
  mHost.SetWinTitle();
  return restored;
}

void TListDocument::SetModified(bool modified) {
  fModified = modified;
  mHost.ModifiedChanged();
}

void TListDocument::SetCurERef(const std::string& path) {
  fIsAutoBackup = false;
  fCurERef = path;
  if (!path.empty()) mHost.AddHistory(path);
  mHost.SetWinTitle();
}

std::string TListDocument::CurERefName() const {
  if (fIsAutoBackup) return mContext.catalogue->GetString("(Auto Backuped List)");
  if (fCurERef.empty()) return mContext.catalogue->GetString("(New List)");
  return extract_file_name(fCurERef);
}

bool TListDocument::LoadRequested(TMessage* request) {
  std::string fileName;
  if (!request->FindString("FileName", &fileName)) return true;
  request->RemoveName("FileName");
  bool merge = false;
  request->FindBool("Merge", &merge);
  int32_t encoding = mContext.prefs->DEnc.load();
  if (merge) return MergeList(fileName, encoding);
  if (fModified && mHost.AskSave(CurERefName()) != TSaveAnswer::No) return false;
  return OpenList(fileName, encoding);
}

void TListDocument::SetState(TDocumentEvent event) {
  const TDocumentState before = std::exchange(mState, next_document_state(mState, event));
  if (before != mState) mHost.StateChanged();
}

void TListDocument::EndCompile() {
  ++mCompilation;
  mRunView.CancelCompile();
  mRunView.FinishCompile();
}

bool TListDocument::PrepareRun(TMessage* request) {
  if (!mAutoSavePath.empty() && mContext.prefs->ASBR.load()) SaveList(mAutoSavePath, true);
  SetState(TDocumentEvent::Kill);
  EndCompile();
  mRunView.QuitBasic();
  SetState(TDocumentEvent::Ended);
  mRunView.ClearBasic();
  mContext.privacy.killed.store(false);
  if (!LoadRequested(request)) return false;
  mFormatted = CreateFmtSrc(mText.Get());
  SetState(TDocumentEvent::Run);
  mHost.SetStatBarStr(mContext.catalogue->GetString("Compiling") + FUC_ELLIPSES);
  return true;
}

TRunOutcome TListDocument::LaunchRun(TCompileResult result, const TMessage& request) {
  mHost.SetStatBarStr("");
  if (result != TCompileResult::Runnable) {
    SetState(TDocumentEvent::CompileFailed);
    if (result == TCompileResult::Empty) return TRunOutcome::NothingToRun;
    return result == TCompileResult::Failed ? TRunOutcome::CompileFailed : TRunOutcome::Cancelled;
  }
  SetState(TDocumentEvent::Compiled);
  bool notFore = false;
  request.FindBool("NotFore", &notFore);
  if (mContext.exitStates->UDbg.load()) mHost.ShowDebug();
  if (!notFore) mHost.ShowRun();
  mRunView.ReadyBasic();
  ConnectDebugger();
  mRunView.RunBasic(request);
  return TRunOutcome::Started;
}

TRunOutcome TListDocument::RunBasic(TMessage request) {
  if (!PrepareRun(&request)) return TRunOutcome::LoadFailed;
  return LaunchRun(mRunView.CompileBasic(mFormatted.Text().c_str()), request);
}

TRunOutcome TListDocument::StartRun(TMessage request) {
  if (!PrepareRun(&request)) return TRunOutcome::LoadFailed;
  mRequest = std::move(request);
  mRunView.StartCompile(mFormatted.Text(),
                        [this, compilation = mCompilation] { mHost.CompileEnded(compilation); });
  return TRunOutcome::Compiling;
}

TRunOutcome TListDocument::FinishRun(int64_t compilation) {
  if (compilation != mCompilation || mState != TDocumentState::Compiling) {
    return TRunOutcome::Cancelled;
  }
  return LaunchRun(mRunView.FinishCompile(), mRequest);
}

void TListDocument::RunEnded() {
  SetState(TDocumentEvent::Ended);
}

void TListDocument::ConnectDebugger() {
  TDebugger* debugger = mRunView.Debugger();
  if (debugger == nullptr) return;
  TDebugModel& model = *mRunView.DebugModel();
  model.SetSrcCode(mFormatted.Text());
  model.ClearCallStack();
  model.SetVar(mRunView.MidCode());
  model.SetVMachine(debugger);
  model.SetFirstBreakPoint();
  mHost.DebuggerReady();
}

TRunOutcome TListDocument::VMachineRunRqtd(const TMessage& request) {
  SetState(TDocumentEvent::Ended);
  return RunBasic(request);
}

void TListDocument::Kill() {
  SetState(TDocumentEvent::Kill);
  EndCompile();
  mRunView.KillBasic();
  mHost.SetStatBarStr("");
  SetState(TDocumentEvent::Ended);
}

}  // namespace zoka
