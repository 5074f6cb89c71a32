// The sequences of the terminals in use (xterm, linux, screen) in one table.
#include "console/terminal_keys.h"

#include <string_view>

#include "run/screen/host_keys.h"

namespace zoka {
namespace {

constexpr char CTRL_C = 0x03;
constexpr char CTRL_Z = 0x1A;
constexpr char ESCAPE = 0x1B;
constexpr char RETURN_BYTE = 0x0D;
constexpr char ERASE_BYTE = 0x7F;

/// A sequence behind ESC: either a byte of the platform, or a function key.
struct TSequence {
  std::string_view sequence;
  char byte;
  int32_t functionKey;
};
constexpr TSequence SEQUENCES[] = {
    {"[A", HOST_KEY_UP, 0},
    {"[B", HOST_KEY_DOWN, 0},
    {"[C", HOST_KEY_RIGHT, 0},
    {"[D", HOST_KEY_LEFT, 0},
    {"OA", HOST_KEY_UP, 0},
    {"OB", HOST_KEY_DOWN, 0},
    {"OC", HOST_KEY_RIGHT, 0},
    {"OD", HOST_KEY_LEFT, 0},
    {"[H", HOST_KEY_HOME, 0},
    {"OH", HOST_KEY_HOME, 0},
    {"[1~", HOST_KEY_HOME, 0},
    {"[7~", HOST_KEY_HOME, 0},
    {"[F", HOST_KEY_END, 0},
    {"OF", HOST_KEY_END, 0},
    {"[4~", HOST_KEY_END, 0},
    {"[8~", HOST_KEY_END, 0},
    {"[2~", HOST_KEY_INSERT, 0},
    {"[3~", HOST_KEY_DELETE, 0},
    {"[5~", HOST_KEY_PAGE_UP, 0},
    {"[6~", HOST_KEY_PAGE_DOWN, 0},
    {"OP", 0, 1},
    {"OQ", 0, 2},
    {"OR", 0, 3},
    {"OS", 0, 4},
    {"[[A", 0, 1},
    {"[[B", 0, 2},
    {"[[C", 0, 3},
    {"[[D", 0, 4},
    {"[[E", 0, 5},
    {"[11~", 0, 1},
    {"[12~", 0, 2},
    {"[13~", 0, 3},
    {"[14~", 0, 4},
    {"[15~", 0, 5},
    {"[17~", 0, 6},
    {"[18~", 0, 7},
    {"[19~", 0, 8},
    {"[20~", 0, 9},
    {"[21~", 0, 10},
};

TFeedItem key_item(std::string bytes) {
  TFeedItem item;
  item.bytes = std::move(bytes);
  return item;
}

TFeedItem sequence_item(const TSequence& row) {
  TFeedItem item;
  if (row.functionKey == 0) return key_item(std::string(1, row.byte));
  item.kind = TFeedItem::TKind::FunctionKey;
  item.number = row.functionKey;
  return item;
}

/// Bytes of an unknown control sequence behind ESC: up to its final letter; 0 if it is unfinished.
size_t unknown_sequence(std::string_view rest) {
  for (size_t pos = 1; pos < rest.size(); ++pos) {
    if (rest[pos] >= '@' && rest[pos] <= '~' && rest[pos] != '[') return pos + 1;
  }
  return 0;
}

/// Takes a sequence at an ESC. Returns the bytes used, 0 if more are needed.
size_t take_escape(std::string_view bytes, bool isComplete, std::deque<TFeedItem>* keys) {
  std::string_view rest = bytes.substr(1);
  for (const TSequence& row : SEQUENCES) {
    if (rest.starts_with(row.sequence)) {
      keys->push_back(sequence_item(row));
      return 1 + row.sequence.size();
    }
  }
  bool isSequence = !rest.empty() && (rest[0] == '[' || rest[0] == 'O') && rest.size() > 1;
  if (isSequence) {
    if (size_t used = unknown_sequence(rest)) return 1 + used;  // means no key here
  }
  bool isLone = !rest.empty() && rest[0] != '[' && rest[0] != 'O';
  if (!isComplete && !isLone) return 0;
  keys->push_back(key_item(std::string(1, ESCAPE)));
  return 1;
}

/// Takes one character. Returns the bytes used, 0 if more are needed.
size_t take_character(std::string_view bytes, bool isComplete, std::deque<TFeedItem>* keys) {
  size_t length = typed_character(bytes, isComplete);
  if (length == 0) return 0;
  std::string key(bytes.substr(0, length));
  if (key[0] == RETURN_BYTE) key[0] = HOST_KEY_ENTER;
  if (key[0] == ERASE_BYTE) key[0] = HOST_KEY_BACKSPACE;
  keys->push_back(key_item(std::move(key)));
  return length;
}

}  // namespace

TTerminalRequest terminal_keys(std::string* bytes, bool isComplete, std::deque<TFeedItem>* keys) {
  TTerminalRequest request = TTerminalRequest::None;
  size_t pos = 0;
  while (pos < bytes->size() && request == TTerminalRequest::None) {
    std::string_view rest = std::string_view(*bytes).substr(pos);
    size_t used = 1;
    if (rest[0] == CTRL_C) {
      TFeedItem item;
      item.kind = TFeedItem::TKind::Break;
      keys->push_back(item);
    } else if (rest[0] == CTRL_Z) {
      request = TTerminalRequest::Suspend;
    } else if (rest[0] == ESCAPE) {
      used = take_escape(rest, isComplete, keys);
    } else {
      used = take_character(rest, isComplete, keys);
    }
    if (used == 0) break;
    pos += used;
  }
  bytes->erase(0, pos);
  return request;
}

}  // namespace zoka
