// TListDocument: the one program list, without a window: its file, its charset, whether it is
// modified, and the way from its text into a run. A front end lends it a text and answers its
// questions; what happens next is a pure function of its state.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/context.h"
#include "common/handler.h"
#include "common/message.h"
#include "common/types.h"
#include "editor/encoding.h"
#include "editor/format_source.h"
#include "run/run_view.h"

namespace zoka {

/// The text of the list; offsets are bytes. The window's editor or a plain string.
class TEditText {
 public:
  virtual ~TEditText() = default;
  virtual std::string Get() const = 0;
  /// Replaces all of it; nothing to undo remains.
  virtual void Set(const std::string& text) = 0;
  /// Replaces all of it as an edit, which can be undone where that is possible.
  virtual void Replace(const std::string& text) { Set(text); }
  /// Inserts at the selection.
  virtual void Insert(const std::string& text) = 0;
  /// Inserts at the end.
  virtual void Append(const std::string& text) = 0;
};

/// A text that nobody edits.
class TStringText final : public TEditText {
 public:
  std::string Get() const override { return mText; }
  void Set(const std::string& text) override { mText = text; }
  void Insert(const std::string& text) override { mText = text + mText; }
  void Append(const std::string& text) override { mText += text; }

 private:
  std::string mText;
};

/// Between a program's end and the run that it asked for; microseconds.
constexpr bigtime_t NEXT_RUN_DELAY = 20'000;

/// Answers to the question whether to save first.
enum class TSaveAnswer : uint8_t { Cancel, No, Yes };

/// What the document asks and tells. The defaults answer No and show nothing.
class TDocumentHost {
 public:
  virtual ~TDocumentHost() = default;
  virtual TSaveAnswer AskSave(const std::string& fileName);
  virtual void SetStatBarStr(const std::string& text);
  virtual void SetWinTitle();
  /// The file has become the current one: history.
  virtual void AddHistory(const std::string& path);
  /// The window of a debugged run is to be seen.
  virtual void ShowDebug();
  /// The window of the run comes to the front.
  virtual void ShowRun();
  /// The state of the document has changed.
  virtual void StateChanged();
  /// The text became modified, or no longer is.
  virtual void ModifiedChanged();
  /// A compilation begun by StartRun has ended: have FinishRun(compilation) called later, on the
  /// document's thread. Called on the compiler's thread.
  virtual void CompileEnded(int64_t compilation);
  /// A debugged run is about to start, its model is set: the editor's breakpoints are to be put in.
  virtual void DebuggerReady();
};

/// Stages of the way into a run.
enum class TDocumentState : uint8_t { Idle, Loading, Compiling, Running, Ending };
/// What may happen to it.
enum class TDocumentEvent : uint8_t {
  Run,
  Load,
  Loaded,
  LoadFailed,
  Compiled,
  CompileFailed,
  Kill,
  Ended
};
/// The state behind an event; an event that means nothing in a state leaves it.
TDocumentState next_document_state(TDocumentState state, TDocumentEvent event);

/// How RunBasic ended; StartRun may also answer Compiling.
enum class TRunOutcome : uint8_t {
  Started,
  NothingToRun,
  CompileFailed,
  LoadFailed,
  Cancelled,
  Compiling
};

/// The type that files of lists are given, unless they have one.
constexpr const char LIST_MIME_TYPE[] = "text/x-BASIC-source-code";

/// The document. All calls on one thread, the host's.
class TListDocument {
 public:
  /// Nothing is owned; all outlives the document.
  TListDocument(TEngineContext& context, TRunView& runView, TEditText& text, TDocumentHost& host);

  /// Replaces the text by a file's; on success it is the current file, and its folder is drive 1.
  bool OpenList(const std::string& path, int32_t encoding);
  /// Replaces the text by a list that has no file, such as standard input's; `name` is for alerts.
  bool OpenBytes(std::string bytes, int32_t encoding, const std::string& name);
  /// Inserts a file at the selection, or at the end.
  bool AddList(const std::string& path, int32_t encoding);
  bool MergeList(const std::string& path, int32_t encoding);
  /// Writes the text; an auto-save changes nothing of the document's state.
  bool SaveList(const std::string& path, bool isAuto);
  /// Writes the text to a file that becomes the current one; its folder is drive 1.
  bool SaveListAs(const std::string& path);
  /// An empty list without a file. What charset the last one had is kept.
  void NewList();
  /// An unmodified list without a file: a copy of a sample, or one to begin with.
  void OpenCopy(const std::string& text);
  /// Inserts what a process left behind that ended abnormally.
  bool RestoreBackup(const std::string& path);
  /// Where a copy is laid down before a file is written in place; see save_file_atomically.
  void SetRescueFolder(const std::string& folder) { mRescueFolder = folder; }
  /// The auto-save list, written before each run if the preferences say so; empty for none.
  void SetAutoSavePath(const std::string& path) { mAutoSavePath = path; }

  /// The one way into a run: ends the old one, compiles, starts. `request` may hold "LineNum" or
  /// "Label", and "FileName" with "Merge" when a program has asked for another list.
  TRunOutcome RunBasic(TMessage request);
  /// The same with the compilation in the background: it returns as soon as that has begun, and the
  /// host's CompileEnded leads to FinishRun. A run that is asked for meanwhile takes its place.
  TRunOutcome StartRun(TMessage request);
  /// Starts the program that was compiled; Cancelled if that compilation is not the last one.
  TRunOutcome FinishRun(int64_t compilation);
  /// The program has ended, and asks for no other.
  void RunEnded();
  /// The request of a program that has ended (RUN, CHAIN).
  TRunOutcome VMachineRunRqtd(const TMessage& request);
  /// The Kill command.
  void Kill();

  /// The name to show: the file's, or one for a list without a file.
  std::string CurERefName() const;
  const std::string& CurPath() const { return fCurERef; }
  void SetCurERef(const std::string& path);
  int32_t Charset() const { return fCharset; }
  bool IsModified() const { return fModified; }
  void SetModified(bool modified);
  bool IsAutoBackup() const { return fIsAutoBackup; }
  TDocumentState State() const { return mState; }
  /// The compiled text of the last run and its map to the editor's.
  const TFmtSrc& FormattedSource() const { return mFormatted; }
  /// What was replaced by the last load, a sentence each.
  const std::vector<std::string>& LoadReport() const { return mReport; }

 private:
  bool LoadText(const std::string& path, int32_t encoding, const char* status, TListText* list);
  void ShowLoadFault(TListFault fault, const std::string& path);
  void NoteReport(const TListText& list);
  void KeepCharset(int32_t charset);
  void ConnectDebugger();
  bool LoadRequested(TMessage* request);
  bool PrepareRun(TMessage* request);
  TRunOutcome LaunchRun(TCompileResult result, const TMessage& request);
  void EndCompile();
  void SetState(TDocumentEvent event);

  TEngineContext& mContext;
  TRunView& mRunView;
  TEditText& mText;
  TDocumentHost& mHost;
  bool fIsAutoBackup = false;
  int32_t fCharset = 0;
  std::string fCurERef;
  bool fModified = false;
  TFmtSrc mFormatted;
  std::vector<std::string> mReport;
  std::string mRescueFolder;
  std::string mAutoSavePath;
  TDocumentState mState = TDocumentState::Idle;
  int64_t mCompilation = 0;  // number of the last compilation in the background
  TMessage mRequest;         // its request
};

/// The start of a run as the user writes it: a line number if it begins with a digit, a label in
/// upper case if it begins with "*", and any other text whole, in upper case, as a label.
void add_run_start(std::string_view text, TMessage* message);

}  // namespace zoka
