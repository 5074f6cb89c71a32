// The port on a local socket.
#include "app/iap_port.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <utility>

namespace zoka {
namespace {

/// Between the looks at an owner that is not listening yet, and how many of them there are.
constexpr int RETRY_MS = 20;
constexpr int MAX_TRIES = 50;
/// An application that lets this many bytes lie is not listening.
constexpr qint64 MAX_UNREAD = 1024 * 1024;

}  // namespace

std::string TIAPPortManager::RuntimeFolder() {
  return qgetenv("XDG_RUNTIME_DIR").toStdString();
}

TIAPPortManager::TIAPPortManager(const std::string& folder, TCalls calls)
    : mFolder(QFile::decodeName(QByteArray::fromStdString(folder))),
      mPath(mFolder + "/" + IAP_PORT_NAME),
      mCalls(std::move(calls)) {
  mRetry.setSingleShot(true);
  mRetry.setInterval(RETRY_MS);
  connect(&mRetry, &QTimer::timeout, this, [this] { Connect(); });
}

TIAPPortManager::~TIAPPortManager() {
  mCalls = {};
  for (auto& [peer, client] : mPeers) {
    client.socket->disconnect(this);
    // The last words still go out, if nobody has to wait for that.
    client.socket->flush();
    client.socket->abort();
  }
  if (mConnecting) mConnecting->disconnect(this);
  if (mServer) mServer->close();
}

bool TIAPPortManager::IsFolderUsable() const {
  struct stat info {};
  return mFolder.startsWith('/') && stat(QFile::encodeName(mFolder).constData(), &info) == 0 &&
         S_ISDIR(info.st_mode) && info.st_uid == geteuid() &&
         (info.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

void TIAPPortManager::Search() {
  if (mSearching) return;
  if (mRole == TIAPRole::Owner || mRole == TIAPRole::Client) return Found(mRole);
  mSearching = true;
  mTries = 0;
  if (!IsFolderUsable()) return Found(TIAPRole::Alone);
  Connect();
}

void TIAPPortManager::Found(TIAPRole role) {
  mSearching = false;
  mRole = role;
  if (mCalls.found) mCalls.found(role);
}

void TIAPPortManager::Connect() {
  mConnecting = new QLocalSocket(this);
  connect(mConnecting, &QLocalSocket::connected, this, [this] { Connected(); });
  connect(
      mConnecting, &QLocalSocket::errorOccurred, this, [this] { ConnectFailed(); },
      Qt::QueuedConnection);
  mConnecting->connectToServer(mPath);
}

void TIAPPortManager::Connected() {
  QLocalSocket* const socket = std::exchange(mConnecting, nullptr);
  socket->disconnect(this);
  if (!IsOfUser(*socket)) {
    socket->deleteLater();
    return Found(TIAPRole::Alone);
  }
  AddPeer(socket);
  Found(TIAPRole::Client);
}

void TIAPPortManager::ConnectFailed() {
  if (!mConnecting) return;
  std::exchange(mConnecting, nullptr)->deleteLater();
  Own();
}

void TIAPPortManager::Own() {
  // Whoever holds the lock may replace the socket; so nobody takes away a new one for an old one.
  mLock = std::make_unique<QLockFile>(mPath + ".lock");
  mLock->setStaleLockTime(0);
  if (mLock->tryLock(0)) return Found(Listen() ? TIAPRole::Owner : TIAPRole::Alone);
  const bool held = mLock->error() == QLockFile::LockFailedError;
  mLock.reset();
  if (!held || ++mTries == MAX_TRIES) return Found(TIAPRole::Alone);
  mRetry.start();
}

bool TIAPPortManager::Listen() {
  QLocalServer::removeServer(mPath);
  mServer = std::make_unique<QLocalServer>();
  mServer->setSocketOptions(QLocalServer::UserAccessOption);
  if (!mServer->listen(mPath)) {
    mServer.reset();
    mLock.reset();
    return false;
  }
  connect(mServer.get(), &QLocalServer::newConnection, this, [this] { NewConnection(); });
  return true;
}

void TIAPPortManager::NewConnection() {
  while (QLocalSocket* socket = mServer->nextPendingConnection()) {
    if (mPeers.size() < MAX_IAP_CLIENTS && IsOfUser(*socket)) {
      socket->setParent(this);
      AddPeer(socket);
    } else {
      socket->abort();
      socket->deleteLater();
    }
  }
}

bool TIAPPortManager::IsOfUser(const QLocalSocket& socket) {
  ucred peer{};
  socklen_t size = sizeof peer;
  const int descriptor = static_cast<int>(socket.socketDescriptor());
  return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
         peer.uid == geteuid();
}

TIAPPeer TIAPPortManager::AddPeer(QLocalSocket* socket) {
  const TIAPPeer peer = ++mLastPeer;
  // What is not read yet stays with the sender.
  socket->setReadBufferSize(MAX_IAP_MESSAGE);
  mPeers[peer].socket = socket;
  connect(socket, &QLocalSocket::readyRead, this, [this, peer] { Read(peer); });
  connect(
      socket, &QLocalSocket::disconnected, this,
      [this, peer] {
        // What it said last still counts.
        Read(peer);
        Drop(peer);
      },
      Qt::QueuedConnection);
  if (socket->bytesAvailable() > 0) {
    QMetaObject::invokeMethod(
        this, [this, peer] { Read(peer); }, Qt::QueuedConnection);
  }
  return peer;
}

void TIAPPortManager::Read(TIAPPeer peer) {
  auto found = mPeers.find(peer);
  if (found == mPeers.end() || !found->second.socket->isOpen()) return;
  found->second.reader.Add(found->second.socket->readAll().toStdString());
  TMessage message;
  // A message's handling may drop anybody.
  while (found != mPeers.end() && found->second.reader.Next(&message)) {
    if (mCalls.received) mCalls.received(peer, message);
    found = mPeers.find(peer);
  }
  if (found != mPeers.end() && found->second.reader.IsBroken()) Drop(peer);
}

void TIAPPortManager::Drop(TIAPPeer peer) {
  const auto found = mPeers.find(peer);
  if (found == mPeers.end()) return;
  QLocalSocket* const socket = found->second.socket;
  mPeers.erase(found);
  socket->disconnect(this);
  socket->abort();
  socket->deleteLater();
  if (mRole == TIAPRole::Client) mRole = TIAPRole::None;
}

void TIAPPortManager::GiveUp() {
  mSearching = false;
  mRetry.stop();
  if (mConnecting) {
    mConnecting->disconnect(this);
    std::exchange(mConnecting, nullptr)->deleteLater();
  }
  while (!mPeers.empty()) Drop(mPeers.begin()->first);
  mRole = TIAPRole::Alone;
}

void TIAPPortManager::Write(QLocalSocket& socket, const std::string& frame) {
  if (socket.bytesToWrite() > MAX_UNREAD) {
    socket.abort();
    return;
  }
  socket.write(frame.data(), static_cast<qint64>(frame.size()));
}

void TIAPPortManager::Send(TIAPPeer to, const TMessage& message) {
  const auto found = mPeers.find(to);
  if (found != mPeers.end()) Write(*found->second.socket, iap_frame(message));
}

void TIAPPortManager::Spread(const TMessage& message, TIAPPeer except) {
  const std::string frame = iap_frame(message);
  for (auto& [peer, client] : mPeers) {
    if (peer != except) Write(*client.socket, frame);
  }
}

}  // namespace zoka
