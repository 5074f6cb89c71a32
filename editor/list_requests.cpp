// The document's messages.
#include "editor/list_requests.h"

#include "app/settings/prefs.h"
#include "app/settings/show_alert.h"
#include "common/file_path.h"
#include "common/text/number.h"
#include "editor/find_line.h"
#include "editor/renumber.h"

namespace zoka {
namespace {

/// Places of the buttons.
constexpr int32_t NO_BUTTON = 1;
constexpr int32_t YES_BUTTON = 2;
constexpr int32_t YES_OF_TWO = 1;

bool flag(const TMessage& message, const char* name) {
  bool value = false;
  return message.FindBool(name, &value) && value;
}

}  // namespace

TListRequests::TListRequests(TEngineContext& context, THandlerRegistry& registry,
                             TListDocument& document, TEditText& text, TListRequestHost& host)
    : mContext(context), mRegistry(registry), mDocument(document), mText(text), mHost(host) {}

std::string TListRequests::Text(const char* key, const char* placeholder,
                                const std::string& value) const {
  return replace_placeholder(mContext.catalogue->GetString(key), placeholder, value);
}

void TListRequests::ShowFault(const char* key) const {
  show_fault_alert(mContext, mContext.catalogue->GetString(key), nullptr);
}

bool TListRequests::MessageReceived(const TMessage& message) {
  switch (message.what) {
    case message_code("_new"):
      MItemNewClicked();
      return true;
    case message_code("_sav"):
      MItemSaveClicked(message);
      return true;
    case message_code("SAVE"):
      SaveRequested(message);
      return true;
    case message_code("_RRC"):
      RefsReceived(message);
      return true;
    case message_code("_smp"):
      CopyRequested(message);
      return true;
    case message_code("gtlr"):
      GoToLineRqtd(message);
      return true;
    case message_code("rnlr"):
      RunLineRqtd(message);
      return true;
    case message_code("rnmr"):
      RenumberRqtd(message);
      return true;
    case message_code("run"):
    case message_code("vmrr"):
      RunRequested(message);
      return true;
    case message_code("kill"):
      mDocument.Kill();
      return true;
    default:
      return false;
  }
}

bool TListRequests::AskSave(const TMessage& next, THandlerId target) {
  if (!mDocument.IsModified()) return true;
  const std::string text = Text("@Ask_Save %FileName%@", "%FileName%", mDocument.CurERefName());
  const int32_t answer =
      show_alert(mContext, text, {{"Cancel", ""}, {"No", "N"}, {"Yes", "Y"}}, 0, nullptr);
  if (answer == YES_BUTTON) {
    TMessage save("_sav");
    add_next_msg(&save, next, target);
    mHost.PostToWindow(save);
  }
  return answer == NO_BUTTON;
}

bool TListRequests::InvokeNextMsg(const TMessage& message) {
  TMessage next;
  THandlerId target;
  if (!message.FindMessage(NEXT_MSG, &next) || !message.FindHandler(NEXT_MSG_TGT, &target)) {
    return false;
  }
  return mRegistry.Post(target, next);
}

void TListRequests::MItemNewClicked() {
  if (AskSave(TMessage("_new"), mHost.WindowId())) mDocument.NewList();
}

void TListRequests::MItemSaveClicked(const TMessage& message) {
  if (mDocument.CurPath().empty() || mDocument.Charset() != 0) {
    // What was read in another encoding is never written back under its name.
    TMessage saveAs = message;
    saveAs.what = message_code("_sva");
    mHost.PostToWindow(saveAs);
    return;
  }
  if (!mDocument.SaveList(mDocument.CurPath(), false)) {
    return mHost.SaveFailed(mDocument.CurPath());
  }
  mHost.Saved();
  InvokeNextMsg(message);
}

void TListRequests::SaveRequested(const TMessage& message) {
  TPathRef folder;
  std::string name;
  if (!message.FindRef("directory", &folder) || !message.FindString("name", &name)) return;
  const std::string path = folder.bytes + "/" + add_ext(name, LIST_EXT);
  if (!mDocument.SaveListAs(path)) return mHost.SaveFailed(path);
  mHost.Saved();
  InvokeNextMsg(message);
}

bool TListRequests::AskRemoveHistory(const TMessage& message, const TPathRef& ref) {
  const std::string text =
      Text("@Ask_Del_One_MRUL %FileName%@", "%FileName%", extract_file_name(ref.bytes));
  if (show_alert(mContext, text, {{"Cancel", ""}, {"Yes", "Y"}}, 0, nullptr) != YES_OF_TWO) {
    return false;
  }
  TMessage remove("_rhr");
  remove.AddRef("refs", ref);
  mHost.PostToWindow(remove);
  InvokeNextMsg(message);
  return true;
}

bool TListRequests::RefsReceived(const TMessage& message) {
  TPathRef ref;
  if (!message.FindRef("refs", &ref)) return false;
  if (flag(message, CONTROL_HELD)) return AskRemoveHistory(message, ref);
  if (!LoadList(message, ref)) return false;
  InvokeNextMsg(message);
  return true;
}

bool TListRequests::LoadList(const TMessage& message, const TPathRef& ref) {
  int32_t encoding = mContext.prefs->DEnc.load();
  message.FindInt32("Encoding", &encoding);
  if (flag(message, "Add") || flag(message, OPTION_HELD)) {
    return mDocument.AddList(ref.bytes, encoding);
  }
  if (flag(message, "Merge")) return mDocument.MergeList(ref.bytes, encoding);
  return OpenAfterAsking(message, ref, encoding);
}

bool TListRequests::OpenAfterAsking(const TMessage& message, const TPathRef& ref,
                                    int32_t encoding) {
  return AskSave(message, mHost.WindowId()) && mDocument.OpenList(ref.bytes, encoding);
}

void TListRequests::CopyRequested(const TMessage& message) {
  TPathRef ref;
  if (!message.FindRef("refs", &ref) || !AskSave(message, mHost.WindowId())) return;
  TListText list;
  const TListFault fault = CreateListCtt(ref.bytes, ENCODING_UTF8, false, &list);
  if (fault == TListFault::None) {
    mDocument.OpenCopy(list.text);
    return mHost.SampleOpened();
  }
  show_fault_alert(mContext, list_fault_text(fault, ref.bytes, *mContext.catalogue), nullptr);
}

void TListRequests::GoToLineRqtd(const TMessage& message) {
  std::string input;
  message.FindString(INPUT_TEXT, &input);
  if (input.empty()) return ShowFault("@Err_Line_Not_Input@");
  const int64_t offset = OffsetFromLineNum(mText.Get(), parse_long(input));
  if (offset < 0) return ShowFault("@Err_Specified_Line_Not_Found@");
  mHost.GoToOffset(static_cast<size_t>(offset));
}

void TListRequests::RunLineRqtd(TMessage message) {
  std::string input;
  message.FindString(INPUT_TEXT, &input);
  if (input.empty()) return ShowFault("@Err_Line_Not_Input@");
  add_run_start(input, &message);
  RunRequested(std::move(message));
}

void TListRequests::RenumberRqtd(const TMessage& message) {
  int32_t newLine = 0;
  int32_t oldLine = 0;
  int32_t step = 0;
  if (!message.FindInt32("NewLine", &newLine) || !message.FindInt32("OldLine", &oldLine) ||
      !message.FindInt32("Step", &step)) {
    return;
  }
  std::string text = mText.Get();
  Renumber(&text, newLine, oldLine, step, false);
  mText.Replace(text);
  mDocument.SetModified(true);
}

void TListRequests::RunRequested(TMessage message) {
  std::string fileName;
  if (!message.FindString("FileName", &fileName)) {
    mDocument.StartRun(std::move(message));
    return;
  }
  TMessage load("_RRC");
  load.AddRef("refs", TPathRef{fileName});
  if (flag(message, "Merge")) load.AddBool("Merge", true);
  message.RemoveName("FileName");
  // The run that it asks for comes back without the name, when the list is there.
  add_next_msg(&load, message, mHost.WindowId());
  mHost.PostToWindow(load);
}

}  // namespace zoka
