// TListRequests: what the document does with messages: New, Save, files that were chosen or
// dropped, the dialogs' answers, the wishes of programs; and how a request that waits for a save
// goes on behind it. It owns neither text nor window.
#pragma once

#include <string>

#include "common/context.h"
#include "common/handler.h"
#include "editor/list_document.h"

namespace zoka {

/// Fields of messages.
constexpr const char NEXT_MSG[] = "NextMsg";
constexpr const char NEXT_MSG_TGT[] = "NextMsgTgt";
constexpr const char INPUT_TEXT[] = "SISmplIptTxt";
/// Set by the menus: the list was chosen with that key held down.
constexpr const char CONTROL_HELD[] = "ControlHeld";
constexpr const char OPTION_HELD[] = "OptionHeld";

/// The extension of lists.
constexpr const char LIST_EXT[] = "bas";

/// What requests need of the window. All on the window thread.
class TListRequestHost {
 public:
  virtual ~TListRequestHost() = default;
  /// Messages to it come back to TListRequests::MessageReceived, unless they are the window's own.
  virtual THandlerId WindowId() const = 0;
  virtual void PostToWindow(const TMessage& message) = 0;
  /// The cursor goes to the line of that offset, which comes into view.
  virtual void GoToOffset(size_t offset) = 0;
  /// A list could not be written; nothing else says so.
  virtual void SaveFailed(const std::string& path) = 0;
  /// The user's list is in its file.
  virtual void Saved() = 0;
  /// A sample is in the editor: the user may want to know what to do with it.
  virtual void SampleOpened() = 0;
};

/// One thread, the window's.
class TListRequests {
 public:
  /// Nothing is owned; all outlives it.
  TListRequests(TEngineContext& context, THandlerRegistry& registry, TListDocument& document,
                TEditText& text, TListRequestHost& host);

  /// Handles a message of the document; false if it is none of its own.
  bool MessageReceived(const TMessage& message);
  /// True if the caller may go on at once. Else the user wants to stay, or to save first: then
  /// `next` comes to `target` when that is done.
  bool AskSave(const TMessage& next, THandlerId target);
  /// Loads the file of a message; true if that, or what it asks for instead, was done.
  bool RefsReceived(const TMessage& message);

 private:
  void MItemNewClicked();
  void MItemSaveClicked(const TMessage& message);
  void SaveRequested(const TMessage& message);
  void GoToLineRqtd(const TMessage& message);
  void RunLineRqtd(TMessage message);
  void RenumberRqtd(const TMessage& message);
  void RunRequested(TMessage message);
  void CopyRequested(const TMessage& message);
  bool AskRemoveHistory(const TMessage& message, const TPathRef& ref);
  bool LoadList(const TMessage& message, const TPathRef& ref);
  bool OpenAfterAsking(const TMessage& message, const TPathRef& ref, int32_t encoding);
  bool InvokeNextMsg(const TMessage& message);
  std::string Text(const char* key, const char* placeholder, const std::string& value) const;
  void ShowFault(const char* key) const;

  TEngineContext& mContext;
  THandlerRegistry& mRegistry;
  TListDocument& mDocument;
  TEditText& mText;
  TListRequestHost& mHost;
};

}  // namespace zoka
