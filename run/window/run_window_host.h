// TRunWindowHost: between the engine's threads and the run window. Calls of the engine become calls
// or messages on the window thread; what comes often is put together.
#pragma once

#include <QObject>
#include <QTimer>
#include <array>
#include <atomic>
#include <functional>
#include <mutex>
#include <string>

#include "common/handler.h"
#include "run/run_host.h"

namespace zoka {

/// What the host hands on; each is called on the window thread. Empty ones are left out.
struct TRunWindowCalls {
  std::function<void(const TRect&)> present;
  std::function<void()> compose;
  std::function<void(const std::string&)> setTitle;
  /// The program of that run has ended; `request`, if not null, asks for another run.
  std::function<void(int64_t runNumber, int32_t status, const TMessage* request)> runEnded;
};

/// Made before the run view, and gone after it.
class TRunWindowHost final : public TRunHost {
 public:
  /// Messages about drives go to `window`, once that is set.
  explicit TRunWindowHost(THandlerRegistry& registry);

  /// Window thread, before the engine runs; the calls may be set again to nothing.
  void SetCalls(TRunWindowCalls calls) { mCalls = std::move(calls); }
  void SetRunEnded(decltype(TRunWindowCalls::runEnded) fn) { mCalls.runEnded = std::move(fn); }
  void SetWindow(THandlerId window) { mWindow = window; }

  /// The keys that are down. Window thread.
  void SetKeyState(uint8_t code, bool down);
  void ClearKeyStates();

  void Post(std::function<void()> fn) override;
  void Present(const TRect& rect) override;
  void ComposeSoon() override;
  bool WantsPicture() const override { return true; }
  void SetTitle(const std::string& title) override;
  void DriveChanged(int32_t index, const std::string& path, const std::string& name) override;
  void Lamp(int32_t index, int32_t change) override;
  void SetClipboardText(const std::string& text) override;
  void SetClipboardImage(const TFrameBuffer& image) override;
  TKeyStates KeyStates() const override;
  void RunEnded(int64_t runNumber, int32_t exitStatus, const TMessage* request) override;

 private:
  void PresentNow();

  THandlerRegistry& mRegistry;
  THandlerId mWindow;
  TRunWindowCalls mCalls;
  std::array<std::atomic<uint64_t>, KEY_MATRIX_SIZE / 64> mKeys{};
  std::mutex mMutex;
  TRect mChanged;  // under mMutex: what PresentNow is to show; valid while it is on its way
  QTimer mComposeTimer;
  QObject mContext;  // gone first, and what is posted with it
};

}  // namespace zoka
