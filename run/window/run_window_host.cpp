// The engine's calls, on their way to the window thread.
#include "run/window/run_window_host.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <algorithm>
#include <utility>

#include "run/screen/compose.h"

namespace zoka {
namespace {

/// Milliseconds until a picture that was held back is composed: one frame of the host's screen less
/// the time to wake up, compose and paint.
constexpr int FRAME_MS = 14;
constexpr unsigned BITS = 64;

}  // namespace

TRunWindowHost::TRunWindowHost(THandlerRegistry& registry) : mRegistry(registry) {
  mComposeTimer.setSingleShot(true);
  mComposeTimer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&mComposeTimer, &QTimer::timeout, &mContext, [this] {
    if (mCalls.compose) mCalls.compose();
  });
}

void TRunWindowHost::Post(std::function<void()> fn) {
  QMetaObject::invokeMethod(&mContext, std::move(fn), Qt::QueuedConnection);
}

void TRunWindowHost::Present(const TRect& rect) {
  {
    std::lock_guard lock(mMutex);
    const bool isOnItsWay = mChanged.IsValid();
    if (isOnItsWay) {
      mChanged = {std::min(mChanged.left, rect.left), std::min(mChanged.top, rect.top),
                  std::max(mChanged.right, rect.right), std::max(mChanged.bottom, rect.bottom)};
      return;
    }
    mChanged = rect;
  }
  Post([this] { PresentNow(); });
}

void TRunWindowHost::PresentNow() {
  TRect changed;
  {
    std::lock_guard lock(mMutex);
    changed = std::exchange(mChanged, TRect{});
  }
  if (mCalls.present) mCalls.present(changed);
}

void TRunWindowHost::ComposeSoon() {
  Post([this] { mComposeTimer.start(FRAME_MS); });
}

void TRunWindowHost::SetTitle(const std::string& title) {
  Post([this, title] {
    if (mCalls.setTitle) mCalls.setTitle(title);
  });
}

void TRunWindowHost::DriveChanged(int32_t index, const std::string& path, const std::string& name) {
  TMessage message("udfr");
  message.AddInt32("DrvFolderIdx", index);
  message.AddRef("DrvFolderERef", TPathRef{path});
  message.AddString("DrvFolderName", name);
  mRegistry.Post(mWindow, message);
}

void TRunWindowHost::Lamp(int32_t index, int32_t change) {
  TMessage message("salr");
  message.AddInt32("DrvFolderIdx", index);
  message.AddInt32("FDDALS", change);
  mRegistry.Post(mWindow, message);
}

void TRunWindowHost::SetClipboardText(const std::string& text) {
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

void TRunWindowHost::SetClipboardImage(const TFrameBuffer& image) {
  const auto* pixels = reinterpret_cast<const uchar*>(image.Row(0));
  const QImage picture(pixels, SCREEN_WIDTH, SCREEN_HEIGHT, QImage::Format_RGB32);
  QGuiApplication::clipboard()->setImage(picture.copy());
}

void TRunWindowHost::SetKeyState(uint8_t code, bool down) {
  if (code >= KEY_MATRIX_SIZE) return;
  const uint64_t bit = uint64_t{1} << code % BITS;
  if (down) {
    mKeys[code / BITS].fetch_or(bit);
  } else {
    mKeys[code / BITS].fetch_and(~bit);
  }
}

void TRunWindowHost::ClearKeyStates() {
  for (auto& word : mKeys) word.store(0);
}

TKeyStates TRunWindowHost::KeyStates() const {
  return TKeyStates(mKeys[1].load()) << BITS | TKeyStates(mKeys[0].load());
}

void TRunWindowHost::RunEnded(int64_t runNumber, int32_t exitStatus, const TMessage* request) {
  Post([this, runNumber, exitStatus, hasRequest = request != nullptr,
        copy = request != nullptr ? *request : TMessage()] {
    if (mCalls.runEnded) mCalls.runEnded(runNumber, exitStatus, hasRequest ? &copy : nullptr);
  });
}

}  // namespace zoka
