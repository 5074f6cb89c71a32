// What a terminal's bytes mean as keys.
#include "console/terminal_keys.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

std::string keys_of(std::string bytes, bool isComplete = true, std::string* left = nullptr) {
  std::deque<TFeedItem> keys;
  terminal_keys(&bytes, isComplete, &keys);
  if (left != nullptr) *left = bytes;
  std::string text;
  for (const TFeedItem& key : keys) {
    if (key.kind == TFeedItem::TKind::FunctionKey) text += "<F" + std::to_string(key.number) + ">";
    if (key.kind == TFeedItem::TKind::Break) text += "<BREAK>";
    text += key.bytes;
  }
  return text;
}

TEST(TerminalKeys, CharactersStandForThemselves) {
  EXPECT_EQ(keys_of("aあｱ"), "aあｱ");
  EXPECT_EQ(keys_of("\r"), "\x0A");
  EXPECT_EQ(keys_of("\x7F"), "\x08");
}

TEST(TerminalKeys, SequencesBecomePlatformBytes) {
  EXPECT_EQ(keys_of("\x1b[A\x1b[B\x1b[C\x1b[D"), "\x1E\x1F\x1D\x1C");
  EXPECT_EQ(keys_of("\x1b[H\x1bOF\x1b[2~\x1b[3~\x1b[5~\x1b[6~"), "\x01\x04\x05\x7F\x0B\x0C");
  EXPECT_EQ(keys_of("\x1bOP\x1b[15~\x1b[21~"), "<F1><F5><F10>");
}

TEST(TerminalKeys, UnknownSequencesMeanNothing) {
  EXPECT_EQ(keys_of("\x1b[1;5Ax"), "x");
  EXPECT_EQ(keys_of("\x1b[24~x"), "x");
}

TEST(TerminalKeys, ALoneEscapeIsTheEscapeKeyOnceNothingFollows) {
  std::string left;
  EXPECT_EQ(keys_of("\x1b", false, &left), "");
  EXPECT_EQ(left, "\x1b");
  EXPECT_EQ(keys_of("\x1b", true), "\x1b");
  EXPECT_EQ(keys_of("\x1bq", false), "\x1bq");
}

TEST(TerminalKeys, UnfinishedCharactersAndSequencesStay) {
  std::string left;
  EXPECT_EQ(keys_of("a\xE3\x81", false, &left), "a");
  EXPECT_EQ(left, "\xE3\x81");
  EXPECT_EQ(keys_of("\x1b[1", false, &left), "");
  EXPECT_EQ(left, "\x1b[1");
}

TEST(TerminalKeys, AStrayLeadByteSwallowsNoReturnAndNoBreak) {
  EXPECT_EQ(keys_of("\xE9\r", false), "\xE9\x0A");
  EXPECT_EQ(keys_of(std::string("\xFF\x03") + "b", false), "\xFF<BREAK>b");
}

TEST(TerminalKeys, ControlCBreaksAndControlZSuspends) {
  EXPECT_EQ(keys_of(std::string("a\x03") + "b"), "a<BREAK>b");
  std::string bytes = std::string("a\x1A") + "b";
  std::deque<TFeedItem> keys;
  EXPECT_EQ(terminal_keys(&bytes, true, &keys), TTerminalRequest::Suspend);
  EXPECT_EQ(keys.size(), 1u);
  EXPECT_EQ(bytes, "b");
}

}  // namespace
}  // namespace zoka
