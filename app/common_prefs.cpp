// The common preferences between applications.
#include "app/common_prefs.h"

#include <QFile>
#include <utility>

namespace zoka {
namespace {

/// How often messages of others are acted upon, and how long after a change their files are read.
constexpr int TICK_MS = 20;
/// More items than any window has are not remembered.
constexpr size_t MAX_WAITING = MAX_IAP_COMPONENTS;

}  // namespace

TCommonPrefs::TCommonPrefs(TWindowContext& context, TInterAppPrefs& prefs,
                           const std::string& runtimeFolder, const std::string& sharedFolder)
    : mContext(context),
      mPrefs(prefs),
      mPort(runtimeFolder,
            {[this](TIAPRole role) { Found(role); },
             [this](TIAPPeer peer, const TMessage& message) { Received(peer, message); }}) {
  mAnswer.setSingleShot(true);
  mAnswer.setInterval(IAP_ANSWER_MS);
  connect(&mAnswer, &QTimer::timeout, this, [this] {
    mPort.GiveUp();
    CreateAndShowWindow();
  });
  mTick.setSingleShot(true);
  mTick.setInterval(TICK_MS);
  connect(&mTick, &QTimer::timeout, this, [this] { HandleWaiting(); });
  mReload.setSingleShot(true);
  mReload.setInterval(TICK_MS);
  connect(&mReload, &QTimer::timeout, this, [this] { ReloadFiles(); });
  if (!sharedFolder.empty()) {
    mWatcher.addPath(QFile::decodeName(QByteArray::fromStdString(sharedFolder)));
  }
  connect(&mWatcher, &QFileSystemWatcher::directoryChanged, this, [this] { mReload.start(); });
}

void TCommonPrefs::ShowWindow() {
  if (mWindow && !mWindow->isHidden()) return mWindow->Appear();
  // Nobody waits longer than this, be it for an owner that does not even take the call.
  mAnswer.start();
  mPort.Search();
}

void TCommonPrefs::Found(TIAPRole role) {
  if (role == TIAPRole::Client) return AskOwner();
  CreateAndShowWindow();
}

void TCommonPrefs::AskOwner() {
  mPort.Spread(TMessage(IAP_ACTIVATE_CODE), 0);
  TIAPBoard own;
  own.AddItems(mPrefs);
  for (const TIAPComponent& component : own.Components()) {
    mPort.Spread(message_of_component(component), 0);
  }
  mAnswer.start();
}

void TCommonPrefs::CreateAndShowWindow() {
  mAnswer.stop();
  mBoard.AddItems(mPrefs);
  SyncBoard();
  if (!mWindow) {
    mWindow = std::make_unique<TIAPWindow>(
        mContext, mBoard, [this](const TMessage& value) { IAPControlChanged(value, 0); });
  }
  mWindow->Open();
}

void TCommonPrefs::Received(TIAPPeer peer, const TMessage& message) {
  switch (message.what) {
    case message_code(IAP_ACTIVATED_CODE):
      return mAnswer.stop();
    case message_code(IAP_ACTIVATE_CODE):
      if (mPort.Role() != TIAPRole::Owner) return;
      mPort.Send(peer, TMessage(IAP_ACTIVATED_CODE));
      mAppearWaiting = true;
      break;
    case message_code(IAP_COMPONENT_CODE):
      if (TIAPComponent component;
          mPort.Role() == TIAPRole::Owner && component_of_message(message, &component)) {
        AddComponent(peer, component);
      }
      return;
    case message_code(IAP_VALUE_CODE):
      if (mWaiting.size() < MAX_WAITING || mWaiting.contains(source_item(message))) {
        mWaiting[source_item(message)] = {peer, message};
      }
      break;
    default:
      return;
  }
  if (!mTick.isActive()) mTick.start();
}

void TCommonPrefs::AddComponent(TIAPPeer peer, const TIAPComponent& component) {
  if (mBoard.AddComponent(component)) {
    if (mWindow) mWindow->AddComponents();
    return;
  }
  // The application may have come in the middle of a change: what the window shows holds.
  for (const TIAPComponent& known : mBoard.Components()) {
    const TMessage& value = known.Value(TIAPValue::Current);
    const bool differs = !same_iap_value(value, component.Value(TIAPValue::Current));
    if (known.name == component.name && differs) mPort.Send(peer, value);
  }
}

void TCommonPrefs::HandleWaiting() {
  const auto waiting = std::exchange(mWaiting, {});
  for (const auto& [item, change] : waiting) {
    const auto& [peer, value] = change;
    if (mPort.Role() != TIAPRole::Owner) {
      TakeValue(value);
    } else if (mBoard.Change(value)) {
      IAPControlChanged(value, peer);
    }
  }
  // An item may have refused its value.
  if (!waiting.empty()) SyncBoard();
  if (std::exchange(mAppearWaiting, false)) CreateAndShowWindow();
}

void TCommonPrefs::IAPControlChanged(const TMessage& value, TIAPPeer source) {
  TMessage message = value;
  message.what = message_code(IAP_VALUE_CODE);
  mPort.Spread(message, source);
  TakeValue(message);
}

void TCommonPrefs::TakeValue(const TMessage& value) {
  if (mPrefs.SetValue(value)) mPrefs.NotifyToObservers(value);
}

TMessage TCommonPrefs::ValueOf(const std::string& item) const {
  TIAPConfiguration configuration;
  TMessage standard;
  TMessage value(IAP_VALUE_CODE);
  mPrefs.Describe(item, &configuration, &value, &standard);
  add_default_info(&value, item);
  return value;
}

void TCommonPrefs::SyncBoard() {
  for (const std::string& item : mPrefs.ItemNames()) mBoard.Change(ValueOf(item));
  if (mWindow) mWindow->SetComponents();
}

void TCommonPrefs::ReloadFiles() {
  const std::vector<std::string> changed = mPrefs.Reload();
  // Also what this application has written without the window.
  SyncBoard();
  for (const std::string& item : changed) mPrefs.NotifyToObservers(ValueOf(item));
}

}  // namespace zoka
