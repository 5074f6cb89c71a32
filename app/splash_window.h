// TSplashWindow: the picture that is shown while the application starts, with one line that tells
// what goes on. It starts nothing itself.
#pragma once

#include <functional>
#include <string>

#include "common/window/basic_window.h"

namespace zoka {

class TSplashView;

/// Window thread. It does not stay above other windows: a question that comes up meanwhile covers
/// it. Closed by being deleted.
class TSplashWindow final : public TBasicWindow {
 public:
  explicit TSplashWindow(TWindowContext& context);

  /// Shows it in the middle of the screen and calls `start` from the event loop once it is to be
  /// seen, or when the screen keeps the user waiting for it.
  void ShowThen(std::function<void()> start);
  /// The line below the picture, which changes at once.
  void SetSplashStr(const std::string& text);
  QString SplashStr() const;

 private:
  bool eventFilter(QObject* object, QEvent* event) override;
  void Start();

  TSplashView* mView;
  std::function<void()> mStart;
};

}  // namespace zoka
