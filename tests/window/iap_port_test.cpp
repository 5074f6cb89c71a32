// The port of the common preferences on real sockets: who owns it, what arrives, and what strangers
// and nonsense do to it.
#include "app/iap_port.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>

#include "app/settings/iap_board.h"
#include "tests/support/temp_folder.h"
#include "tests/window/port_process.h"
#include "tests/window/waiting.h"

namespace zoka {
namespace {

constexpr uid_t NOBODY = 65534;

/// One application's end of the port, and what it was told.
struct TEnd {
  explicit TEnd(const std::string& folder)
      : port(folder, {[this](TIAPRole role) { roles.push_back(role); },
                      [this](TIAPPeer peer, const TMessage& message) {
                        lastPeer = peer;
                        got.push_back(message);
                      }}) {}

  TIAPRole SearchAndWait() {
    const size_t before = roles.size();
    port.Search();
    EXPECT_TRUE(until([&] { return roles.size() > before; }));
    return port.Role();
  }

  std::vector<TIAPRole> roles;
  std::vector<TMessage> got;
  TIAPPeer lastPeer = 0;
  TIAPPortManager port;
};

TMessage value_of(const std::string& value) {
  TMessage message(IAP_VALUE_CODE);
  add_default_info(&message, LANGUAGE_ITEM);
  message.AddString(IAP_VALUE_KEY, value);
  return message;
}

std::string text_of(const TMessage& message) {
  std::string text;
  message.FindString(IAP_VALUE_KEY, &text);
  return text;
}

class IAPPort : public testing::Test {
 protected:
  std::string Path() { return folder.Path(IAP_PORT_NAME); }
  /// Somebody who speaks to the port in bytes of their own.
  std::unique_ptr<QLocalSocket> Stranger() {
    auto socket = std::make_unique<QLocalSocket>();
    socket->connectToServer(QString::fromStdString(Path()));
    EXPECT_TRUE(until([&] { return socket->state() == QLocalSocket::ConnectedState; }));
    return socket;
  }
  static void Write(QLocalSocket& socket, const std::string& bytes) {
    socket.write(bytes.data(), static_cast<qint64>(bytes.size()));
    socket.flush();
  }
  static bool IsCutOff(QLocalSocket& socket) {
    return socket.state() == QLocalSocket::UnconnectedState;
  }

  TTempFolder folder;
};

TEST_F(IAPPort, TheFirstOwnsItAndTheNextAreItsClients) {
  TEnd owner(folder.Path());
  TEnd client(folder.Path());
  TEnd other(folder.Path());
  EXPECT_EQ(owner.SearchAndWait(), TIAPRole::Owner);
  EXPECT_EQ(client.SearchAndWait(), TIAPRole::Client);
  EXPECT_EQ(other.SearchAndWait(), TIAPRole::Client);
  client.port.Spread(value_of("up"), 0);
  ASSERT_TRUE(until([&] { return owner.got.size() == 1; }));
  EXPECT_EQ(text_of(owner.got[0]), "up");
  owner.port.Send(owner.lastPeer, value_of("answer"));
  ASSERT_TRUE(until([&] { return client.got.size() == 1; }));
  EXPECT_EQ(text_of(client.got[0]), "answer");
  // What came from one goes to all but that one.
  owner.port.Spread(value_of("on"), owner.lastPeer);
  ASSERT_TRUE(until([&] { return other.got.size() == 1; }));
  owner.port.Spread(value_of("all"), 0);
  ASSERT_TRUE(until([&] { return client.got.size() == 2 && other.got.size() == 2; }));
  EXPECT_EQ(text_of(client.got[1]), "all");
  EXPECT_EQ(text_of(other.got[0]), "on");
}

TEST_F(IAPPort, WhenTheOwnerGoesTheNextToAskOwnsIt) {
  auto owner = std::make_unique<TEnd>(folder.Path());
  TEnd client(folder.Path());
  TEnd third(folder.Path());
  ASSERT_EQ(owner->SearchAndWait(), TIAPRole::Owner);
  ASSERT_EQ(client.SearchAndWait(), TIAPRole::Client);
  client.port.Spread(value_of("hello"), 0);
  ASSERT_TRUE(until([&] { return owner->got.size() == 1; }));
  // Said last, and heard all the same.
  owner->port.Spread(value_of("last"), 0);
  owner.reset();
  ASSERT_TRUE(until([&] { return client.port.Role() == TIAPRole::None; }));
  ASSERT_EQ(client.got.size(), 1U);
  EXPECT_EQ(text_of(client.got[0]), "last");
  EXPECT_NE(access(Path().c_str(), F_OK), 0);
  EXPECT_EQ(client.SearchAndWait(), TIAPRole::Owner);
  EXPECT_EQ(third.SearchAndWait(), TIAPRole::Client);
}

TEST_F(IAPPort, AnOwnerThatIsKilledLeavesNothingInTheWay) {
  QProcess owner;
  start_port_process(&owner, folder.Path());
  ASSERT_TRUE(owner.waitForReadyRead(WAIT_MS));
  ASSERT_EQ(owner.readLine(), "owner\n");
  TEnd client(folder.Path());
  ASSERT_EQ(client.SearchAndWait(), TIAPRole::Client);
  owner.kill();
  ASSERT_TRUE(owner.waitForFinished(WAIT_MS));
  ASSERT_TRUE(until([&] { return client.port.Role() == TIAPRole::None; }));
  // The socket and the lock of the dead are still there.
  EXPECT_EQ(access(Path().c_str(), F_OK), 0);
  EXPECT_EQ(access((Path() + ".lock").c_str(), F_OK), 0);
  EXPECT_EQ(client.SearchAndWait(), TIAPRole::Owner);
  QProcess next;
  start_port_process(&next, folder.Path());
  // Its connection is taken by this process.
  ASSERT_TRUE(until([&] { return next.bytesAvailable() > 0; }));
  EXPECT_EQ(next.readLine(), "client\n");
  next.closeWriteChannel();
  EXPECT_TRUE(next.waitForFinished(WAIT_MS));
}

TEST_F(IAPPort, OfThoseThatStartAtOnceOneOwnsIt) {
  for (int round = 0; round < 10; ++round) {
    std::vector<std::unique_ptr<TEnd>> ends;
    for (int i = 0; i < 4; ++i) ends.push_back(std::make_unique<TEnd>(folder.Path()));
    for (const auto& end : ends) end->port.Search();
    ASSERT_TRUE(until([&] {
      return std::all_of(ends.begin(), ends.end(), [](const auto& e) { return !e->roles.empty(); });
    }));
    std::map<TIAPRole, int> count;
    for (const auto& end : ends) ++count[end->port.Role()];
    EXPECT_EQ(count[TIAPRole::Owner], 1) << round;
    EXPECT_EQ(count[TIAPRole::Client], 3) << round;
  }
}

TEST_F(IAPPort, OfProcessesThatStartAtOnceOneOwnsIt) {
  for (int round = 0; round < 3; ++round) {
    // A dead owner's socket is there for them to fight about.
    folder.Write(IAP_PORT_NAME, "");
    QProcess processes[3];
    for (QProcess& process : processes) start_port_process(&process, folder.Path());
    QByteArrayList roles;
    for (QProcess& process : processes) {
      ASSERT_TRUE(process.waitForReadyRead(WAIT_MS));
      roles << process.readLine().trimmed();
    }
    EXPECT_EQ(roles.count("owner"), 1) << round;
    EXPECT_EQ(roles.count("client"), 2) << round;
    for (QProcess& process : processes) {
      process.kill();
      process.waitForFinished(WAIT_MS);
    }
  }
}

TEST_F(IAPPort, MessagesAreWholeInWhateverPiecesTheyCome) {
  TEnd owner(folder.Path());
  ASSERT_EQ(owner.SearchAndWait(), TIAPRole::Owner);
  const auto stranger = Stranger();
  const std::string frames =
      iap_frame(value_of("one")) + iap_frame(value_of("two")) + iap_frame(value_of("three"));
  for (const char byte : frames) {
    Write(*stranger, std::string(1, byte));
    QCoreApplication::processEvents();
  }
  ASSERT_TRUE(until([&] { return owner.got.size() == 3; }));
  EXPECT_EQ(text_of(owner.got[0]) + text_of(owner.got[1]) + text_of(owner.got[2]), "onetwothree");
  // Two and a half in one piece.
  const std::string half = iap_frame(value_of("six"));
  Write(*stranger, iap_frame(value_of("four")) + iap_frame(value_of("five")) + half.substr(0, 7));
  ASSERT_TRUE(until([&] { return owner.got.size() == 5; }));
  Write(*stranger, half.substr(7));
  ASSERT_TRUE(until([&] { return owner.got.size() == 6; }));
  EXPECT_EQ(text_of(owner.got[5]), "six");
}

TEST_F(IAPPort, TheLongestMessageArrivesAndALongerOneIsNotSent) {
  TEnd owner(folder.Path());
  TEnd client(folder.Path());
  ASSERT_EQ(owner.SearchAndWait(), TIAPRole::Owner);
  ASSERT_EQ(client.SearchAndWait(), TIAPRole::Client);
  const size_t rest = MAX_IAP_MESSAGE - value_of("").Flatten().size();
  client.port.Spread(value_of(std::string(rest + 1, 'x')), 0);
  client.port.Spread(value_of(std::string(rest, 'y')), 0);
  client.port.Spread(value_of("end"), 0);
  ASSERT_TRUE(until([&] { return owner.got.size() == 2; }));
  EXPECT_EQ(text_of(owner.got[0]), std::string(rest, 'y'));
  EXPECT_EQ(text_of(owner.got[1]), "end");
}

TEST_F(IAPPort, WhoSpeaksNonsenseIsCutOffAndNobodyElse) {
  TEnd owner(folder.Path());
  TEnd client(folder.Path());
  ASSERT_EQ(owner.SearchAndWait(), TIAPRole::Owner);
  ASSERT_EQ(client.SearchAndWait(), TIAPRole::Client);
  const std::string nonsense[] = {
      "GET / HTTP/1.1\r\n\r\n",                     // a length of 542 MB
      std::string("\x03\x00\x00\x00xyz", 7),        // no message
      std::string("\x00\x00\x00\x00", 4),           // an empty one
      std::string("\x01\x00\x01\x00", 4),           // one byte over the limit
      std::string(4, '\xFF') + std::string(9, 'x')  // a length of 4 GB
  };
  for (const std::string& bytes : nonsense) {
    const auto stranger = Stranger();
    Write(*stranger, bytes);
    EXPECT_TRUE(until([&] { return IsCutOff(*stranger); })) << bytes;
  }
  EXPECT_TRUE(owner.got.empty());
  client.port.Spread(value_of("still there"), 0);
  EXPECT_TRUE(until([&] { return owner.got.size() == 1; }));
}

TEST_F(IAPPort, AnOwnerThatSpeaksNonsenseIsNone) {
  QLocalServer server;
  ASSERT_TRUE(server.listen(QString::fromStdString(Path())));
  TEnd client(folder.Path());
  ASSERT_EQ(client.SearchAndWait(), TIAPRole::Client);
  ASSERT_TRUE(until([&] { return server.hasPendingConnections(); }));
  Write(*server.nextPendingConnection(), "220 mail.example ESMTP\r\n");
  EXPECT_TRUE(until([&] { return client.port.Role() == TIAPRole::None; }));
  EXPECT_TRUE(client.got.empty());
}

TEST_F(IAPPort, WhoIsSilentHoldsNobodyUp) {
  TEnd owner(folder.Path());
  ASSERT_EQ(owner.SearchAndWait(), TIAPRole::Owner);
  const auto silent = Stranger();
  const auto half = Stranger();
  Write(*half, iap_frame(value_of("x")).substr(0, 9));
  TEnd client(folder.Path());
  ASSERT_EQ(client.SearchAndWait(), TIAPRole::Client);
  client.port.Spread(value_of("heard"), 0);
  ASSERT_TRUE(until([&] { return owner.got.size() == 1; }));
  EXPECT_EQ(text_of(owner.got[0]), "heard");
}

TEST_F(IAPPort, WhoNeverReadsIsCutOff) {
  TEnd owner(folder.Path());
  ASSERT_EQ(owner.SearchAndWait(), TIAPRole::Owner);
  const int stranger = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{AF_UNIX, {}};
  Path().copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(connect(stranger, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  send(stranger, iap_frame(value_of("hello")).data(), iap_frame(value_of("hello")).size(), 0);
  ASSERT_TRUE(until([&] { return owner.got.size() == 1; }));
  const TMessage large = value_of(std::string(60'000, 'x'));
  for (int i = 0; i < 100; ++i) {
    owner.port.Spread(large, 0);
    QCoreApplication::processEvents();
  }
  // The peer is gone: what it did not read, and what is still to come, is dropped.
  char bytes[4096];
  EXPECT_TRUE(until([&] { return recv(stranger, bytes, sizeof bytes, MSG_DONTWAIT) == 0; }));
  close(stranger);
}

TEST_F(IAPPort, MoreClientsThanItServesAreTurnedAway) {
  TEnd owner(folder.Path());
  ASSERT_EQ(owner.SearchAndWait(), TIAPRole::Owner);
  std::vector<std::unique_ptr<QLocalSocket>> strangers;
  for (size_t i = 0; i < MAX_IAP_CLIENTS; ++i) strangers.push_back(Stranger());
  const auto oneMore = Stranger();
  EXPECT_TRUE(until([&] { return IsCutOff(*oneMore); }));
  Write(*strangers[0], iap_frame(value_of("first")));
  Write(*strangers.back(), iap_frame(value_of("last")));
  EXPECT_TRUE(until([&] { return owner.got.size() == 2; }));
}

TEST_F(IAPPort, ThereIsNoneInAFolderThatIsNotTheUsersAlone) {
  chmod(folder.Path().c_str(), 0777);
  EXPECT_EQ(TEnd(folder.Path()).SearchAndWait(), TIAPRole::Alone);
  chmod(folder.Path().c_str(), 0720);
  EXPECT_EQ(TEnd(folder.Path()).SearchAndWait(), TIAPRole::Alone);
  folder.Write("file", "");
  for (const std::string& place :
       {std::string(), std::string("relative"), folder.Path("none"), folder.Path("file")}) {
    EXPECT_EQ(TEnd(place).SearchAndWait(), TIAPRole::Alone) << place;
  }
  chmod(folder.Path().c_str(), 0700);
  EXPECT_EQ(TEnd(folder.Path()).SearchAndWait(), TIAPRole::Owner);
}

/// What another user meets who connects: 'r' refused by the system, 'c' cut off, 'i' let in.
char meets_as(uid_t user, const std::string& path, const std::string& bytes) {
  int answer[2];
  if (pipe(answer) != 0) return '?';
  sockaddr_un address{AF_UNIX, {}};
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  const pid_t child = fork();
  if (child == 0) {
    char result = 'r';
    const int stranger = socket(AF_UNIX, SOCK_STREAM, 0);
    if (setresuid(user, user, user) == 0 &&
        connect(stranger, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) {
      send(stranger, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      char byte = 0;
      result = recv(stranger, &byte, 1, 0) > 0 ? 'i' : 'c';
    }
    (void)!write(answer[1], &result, 1);
    _exit(0);
  }
  EXPECT_TRUE(until([&] { return waitpid(child, nullptr, WNOHANG) == child; }));
  char result = '?';
  (void)!read(answer[0], &result, 1);
  close(answer[0]);
  close(answer[1]);
  return result;
}

TEST_F(IAPPort, OtherUsersDoNotGetThrough) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can be somebody else";
  TEnd owner(folder.Path());
  ASSERT_EQ(owner.SearchAndWait(), TIAPRole::Owner);
  const std::string bytes = iap_frame(value_of("let me in"));
  chmod(folder.Path().c_str(), 0755);
  EXPECT_EQ(meets_as(NOBODY, Path(), bytes), 'r');
  // Even if the file's rights are lost.
  chmod(Path().c_str(), 0777);
  EXPECT_EQ(meets_as(NOBODY, Path(), bytes), 'c');
  EXPECT_TRUE(owner.got.empty());
}

TEST_F(IAPPort, ASearchThatDoesNotEndCanBeGivenUp) {
  // A server that never takes a call, with its waiting room full.
  const int server = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{AF_UNIX, {}};
  Path().copy(address.sun_path, sizeof address.sun_path - 1);
  const auto* const any = reinterpret_cast<sockaddr*>(&address);
  ASSERT_EQ(bind(server, any, sizeof address), 0);
  ASSERT_EQ(listen(server, 0), 0);
  std::vector<int> waiting;
  for (;;) {
    waiting.push_back(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0));
    if (connect(waiting.back(), any, sizeof address) != 0) break;
  }
  ASSERT_EQ(errno, EAGAIN);
  TEnd client(folder.Path());
  client.port.Search();
  client.port.Search();  // the second wish changes nothing
  // A refusal would be in the queue by now.
  run_event_rounds();
  EXPECT_TRUE(client.roles.empty());
  EXPECT_EQ(client.port.Role(), TIAPRole::None);
  client.port.GiveUp();
  EXPECT_EQ(client.port.Role(), TIAPRole::Alone);
  for (const int socket : waiting) close(socket);
  close(server);
  EXPECT_EQ(client.SearchAndWait(), TIAPRole::Owner);
}

}  // namespace
}  // namespace zoka
