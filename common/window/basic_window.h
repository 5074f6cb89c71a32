// TBasicWindow: the base of all windows: its message queue, where it stands on the screen, and what
// closing it means. What it shows is its children's business.
#pragma once

#include <QMainWindow>

#include "common/context.h"
#include "common/handler.h"
#include "common/types.h"
#include "common/window/message_queue.h"

namespace zoka {

/// What windows are given: the engine, the registry of handlers, and the application among them.
struct TWindowContext {
  TEngineContext& engine;
  THandlerRegistry& registry;
  THandlerId app;
};

/// A message to all windows: the language has changed; shared preferences have changed.
constexpr const char LANGUAGE_CHANGED_CODE[] = "_BLC";
constexpr const char IAP_CHANGED_CODE[] = "_ipc";

/// All on the window thread but PostMessage.
class TBasicWindow : public QMainWindow, public THandler {
 public:
  explicit TBasicWindow(TWindowContext& context);
  ~TBasicWindow() override;

  /// Any thread.
  void PostMessage(const TMessage& message) override { mQueue.PostMessage(message); }
  THandlerId HandlerId() const { return mId; }
  /// Held while the window stands in an alert.
  TMessageQueue& Queue() { return mQueue; }

  /// Shows a hidden window, and activates any other.
  void Appear();
  /// Into the middle of its screen.
  void IntelligentCentering();
  /// Moves the window, and keeps it on the screen.
  void IntelligentMoveTo(QPoint place);
  /// Its frame as the settings keep it, and the place of such a frame.
  TFrame Frame() const;
  void MoveToFrame(const TFrame& frame);

  /// Handles one message; an override hands on what it does not know.
  virtual void MessageReceived(const TMessage& message);
  virtual void LanguageChanged() {}
  virtual void IAPChanged(const TMessage&) {}
  /// The user wants to close it: hides it, and answers false unless the application is quitting.
  virtual bool QuitRequested();
  /// The last act before it goes: stores what the next start should find.
  virtual void Quit() {}

 protected:
  void closeEvent(QCloseEvent* event) override;
  TEngineContext& Engine() const { return mWindowContext.engine; }
  const TWindowContext& WindowContext() const { return mWindowContext; }
  /// Posts to the application.
  void PostToApp(const TMessage& message) const;

 private:
  TWindowContext mWindowContext;
  TMessageQueue mQueue;
  THandlerId mId;
};

}  // namespace zoka
