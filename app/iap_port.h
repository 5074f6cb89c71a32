// TIAPPortManager: the port by which applications of the family find the one that owns the window
// of the common preferences, and talk to it. What the messages mean is TCommonPrefs'.
#pragma once

#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "app/settings/iap_wire.h"

namespace zoka {

/// The port's name: that of a socket in the user's run-time folder.
constexpr const char IAP_PORT_NAME[] = "KORUNEIAPPort";
/// More applications than this are not served.
constexpr size_t MAX_IAP_CLIENTS = 32;
/// How long an owner may take to answer before it counts as none, in milliseconds.
constexpr int IAP_ANSWER_MS = 1000;

/// What a search for the owner has come to.
enum class TIAPRole : uint8_t {
  None,    // not searched, or the owner has gone
  Client,  // another application is the owner
  Owner,   // this one is
  Alone    // there can be no port: the window works for this application only
};

/// Whom a message concerns.
using TIAPPeer = uint64_t;

/// Window thread. Only applications of the same user get through. An owner's port ends with it; a
/// socket that was left behind by a crash is replaced, and of two applications that start at once
/// one becomes the owner and the other its client.
class TIAPPortManager final : public QObject {
 public:
  struct TCalls {
    /// The search has ended.
    std::function<void(TIAPRole)> found;
    /// A message has come from that application.
    std::function<void(TIAPPeer, const TMessage&)> received;
  };

  /// `folder` is the run-time folder; without one that belongs to the user there is no port.
  TIAPPortManager(const std::string& folder, TCalls calls);
  ~TIAPPortManager() override;

  /// The user's: $XDG_RUNTIME_DIR.
  static std::string RuntimeFolder();

  TIAPRole Role() const { return mRole; }
  /// Looks for the owner, and becomes it if there is none; TCalls::found tells the end.
  void Search();
  /// An owner's message to one application, or to all but one (0: to all). A client's goes to the
  /// owner.
  void Send(TIAPPeer to, const TMessage& message);
  void Spread(const TMessage& message, TIAPPeer except);
  /// The owner does not answer, or the search for it does not end: does without it.
  void GiveUp();

 private:
  struct TPeer {
    QLocalSocket* socket = nullptr;
    TIAPFrameReader reader;
  };

  bool IsFolderUsable() const;
  void Connect();
  void Connected();
  void ConnectFailed();
  void Own();
  bool Listen();
  void Found(TIAPRole role);
  TIAPPeer AddPeer(QLocalSocket* socket);
  void NewConnection();
  void Read(TIAPPeer peer);
  void Drop(TIAPPeer peer);
  static bool IsOfUser(const QLocalSocket& socket);
  static void Write(QLocalSocket& socket, const std::string& frame);

  QString mFolder;
  QString mPath;
  TCalls mCalls;
  TIAPRole mRole = TIAPRole::None;
  bool mSearching = false;
  int mTries = 0;
  QTimer mRetry;
  std::unique_ptr<QLockFile> mLock;
  std::unique_ptr<QLocalServer> mServer;
  std::map<TIAPPeer, TPeer> mPeers;  // the clients, or of a client the owner
  TIAPPeer mLastPeer = 0;
  QLocalSocket* mConnecting = nullptr;
};

}  // namespace zoka
