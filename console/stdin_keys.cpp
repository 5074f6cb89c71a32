// The reader of standard input's keys.
#include "console/stdin_keys.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>

namespace zoka {
namespace {

constexpr char RETURN_KEY[] = "\x0A";
constexpr size_t READ_SIZE = 4096;

}  // namespace

std::deque<TFeedItem> keys_of_text(std::string* text) {
  std::deque<TFeedItem> items;
  size_t pos = 0;
  while (pos < text->size()) {
    TFeedItem item;
    size_t bytes = 1;
    if ((*text)[pos] == '\n') {
      item.bytes = RETURN_KEY;
    } else {
      bytes = typed_character(std::string_view(*text).substr(pos), false);
      if (bytes == 0) break;
      item.bytes = text->substr(pos, bytes);
    }
    pos += bytes;
    if (item.bytes != "\r") items.push_back(std::move(item));
  }
  text->erase(0, pos);
  return items;
}

TStdinKeys::TStdinKeys(TKeyFeeder& feeder)
    : mFeeder(feeder), mQuitFd(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  mThread = std::thread([this] { Run(); });
}

TStdinKeys::~TStdinKeys() {
  uint64_t one = 1;
  [[maybe_unused]] ssize_t written = ::write(mQuitFd, &one, sizeof one);
  mThread.join();
  ::close(mQuitFd);
}

void TStdinKeys::Run() {
  std::string pending;
  bool lineOpen = false;
  for (;;) {
    pollfd fds[2] = {{mQuitFd, POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
    if (::poll(fds, 2, -1) < 0 && errno != EINTR) break;
    if (fds[0].revents != 0) return;
    if (fds[1].revents == 0) continue;
    char buffer[READ_SIZE];
    ssize_t size = ::read(STDIN_FILENO, buffer, sizeof buffer);
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) break;
    pending.append(buffer, static_cast<size_t>(size));
    lineOpen = pending.back() != '\n';
    mFeeder.Add(keys_of_text(&pending));
  }
  if (!pending.empty()) mFeeder.Add({TFeedItem{TFeedItem::TKind::Key, pending, 0, 0, {}}});
  // The last line ends with a Return also where its line feed is missing.
  if (lineOpen) mFeeder.Add({TFeedItem{TFeedItem::TKind::Key, RETURN_KEY, 0, 0, {}}});
  mFeeder.Finish();
}

}  // namespace zoka
