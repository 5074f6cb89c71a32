// The text of --type, and how its keys reach a program.
#include "run/key_feeder.h"

#include <gtest/gtest.h>

#include "tests/unit/run/run_rig.h"

namespace zoka {
namespace {

using TKind = TFeedItem::TKind;
using TRows = std::vector<std::string>;

std::deque<TFeedItem> parsed(std::string_view text) {
  std::deque<TFeedItem> items;
  std::string error;
  EXPECT_TRUE(parse_key_text(text, &items, &error)) << error;
  return items;
}

/// The bytes of all keys, a bar between them.
std::string keys_of(std::string_view text) {
  std::string keys;
  for (const TFeedItem& item : parsed(text)) {
    EXPECT_EQ(item.kind, TKind::Key);
    keys += item.bytes + "|";
  }
  return keys;
}

TEST(KeyText, Characters) {
  EXPECT_EQ(keys_of(""), "");
  EXPECT_EQ(keys_of("aB 1"), "a|B| |1|");
  EXPECT_EQ(keys_of("あｱ漢é"), "あ|ｱ|漢|é|");
  EXPECT_EQ(keys_of("\xF0\x9F\x98\x80"), "\xF0\x9F\x98\x80|");
  EXPECT_EQ(keys_of("}"), "}|");
}

TEST(KeyText, AStrayLeadByteIsAKeyOfItsOwn) {
  EXPECT_EQ(keys_of("\xE3{LEFT}\xF0\x9F"), "\xE3|\x1C|\xF0\x9F|");
}

TEST(KeyText, Escapes) {
  EXPECT_EQ(keys_of("a\\rb\\n\\\\{{c}"), "a|\x0A|b|\x0A|\\|{|c|}|");
  EXPECT_EQ(keys_of("\n\r"), "\x0A|\x0A|");
  EXPECT_EQ(keys_of("{{LEFT}"), "{|L|E|F|T|}|");
}

TEST(KeyText, NamedKeys) {
  EXPECT_EQ(keys_of("{LEFT}{RIGHT}{UP}{DOWN}"), "\x1C|\x1D|\x1E|\x1F|");
  EXPECT_EQ(keys_of("{HOME}{END}{INS}{DEL}{BS}{ESC}{PGUP}{PGDN}"),
            "\x01|\x04|\x05|\x7F|\x08|\x1B|\x0B|\x0C|");
}

TEST(KeyText, FunctionKeys) {
  for (int number = 1; number <= 10; ++number) {
    const auto items = parsed("{F" + std::to_string(number) + "}");
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].kind, TKind::FunctionKey);
    EXPECT_EQ(items[0].number, number);
  }
}

TEST(KeyText, WhatIsNoKey) {
  const auto items = parsed(
      "{BREAK}{WAIT 250}{WAIT 0}{MOVE 10,-20}{LDOWN 1,2}{LUP 3,4}{RDOWN 5,6}"
      "{RUP 7,8}");
  const TKind kinds[] = {TKind::Break,    TKind::Wait,   TKind::Wait,      TKind::Move,
                         TKind::LeftDown, TKind::LeftUp, TKind::RightDown, TKind::RightUp};
  ASSERT_EQ(items.size(), std::size(kinds));
  for (size_t i = 0; i < items.size(); ++i) EXPECT_EQ(items[i].kind, kinds[i]) << i;
  EXPECT_EQ(items[1].delay, 250'000);
  EXPECT_EQ(items[2].delay, 0);
  EXPECT_EQ(items[3].point.x, 10);
  EXPECT_EQ(items[3].point.y, -20);
  EXPECT_EQ(items[7].point.x, 7);
  EXPECT_EQ(items[7].point.y, 8);
}

TEST(KeyText, WhatIsRefused) {
  for (const char* text : {"{",
                           "{LEFT",
                           "{}",
                           "{left}",
                           "{F0}",
                           "{F11}",
                           "{F}",
                           "{F1x}",
                           "{WAIT}",
                           "{WAIT }",
                           "{WAIT x}",
                           "{WAIT -1}",
                           "{WAIT 1 }",
                           "{WAIT 86400001}",
                           "{WAIT 99999999999}",
                           "{MOVE}",
                           "{MOVE 1}",
                           "{MOVE 1,}",
                           "{MOVE 1,2,3}",
                           "{MOVE 99999,1}",
                           "{MOVE -32769,0}",
                           "{MOVE 32768,0}",
                           "{MOVE 0,-32769}",
                           "{MOVE 0,32768}",
                           "{ LEFT}",
                           "{LEFT }",
                           "\\",
                           "\\x",
                           "a\\q"}) {
    std::deque<TFeedItem> items;
    std::string error;
    EXPECT_FALSE(parse_key_text(text, &items, &error)) << text;
    EXPECT_FALSE(error.empty()) << text;
  }
}

TEST(KeyText, LimitsOfNumbers) {
  const auto items = parsed("{WAIT 86400000}{MOVE -32768,32767}{MOVE 32767,-32768}");
  ASSERT_EQ(items.size(), 3u);
  EXPECT_EQ(items[0].delay, 86'400'000'000);
  EXPECT_EQ(items[1].point.x, -32768);
  EXPECT_EQ(items[1].point.y, 32767);
  EXPECT_EQ(items[2].point.x, 32767);
  EXPECT_EQ(items[2].point.y, -32768);
}

TEST(KeyText, TheErrorNamesWhatIsRefused) {
  const std::pair<const char*, const char*> rows[] = {
      {"a{LEFT}{X}b", "{X}"}, {"a{LEFT", "{LEFT"}, {"a\\x{LEFT}b", "\\x{LEFT}"}, {"a\\", "\\"}};
  for (const auto& [text, refused] : rows) {
    std::deque<TFeedItem> items;
    std::string error;
    EXPECT_FALSE(parse_key_text(text, &items, &error)) << text;
    EXPECT_EQ(error, refused) << text;
  }
}

TEST(KeyText, AnyBytesEnd) {
  std::string bytes(3, '\0');
  for (int value = 255; value > 0; --value) {
    if (value != '\\' && value != '{') bytes += static_cast<char>(value);
  }
  EXPECT_FALSE(parsed(bytes).empty());
}

/// A view without a program, whose key buffer the test empties itself.
class KeyFeeder : public ::testing::Test {
 protected:
  KeyFeeder() : feeder(*rig.clock, *rig.view) {
    rig.clock->EnterThread(rig.clock->PrepareThread(TActorClass::Machine));
    rig.view->SetKeyFeeder(&feeder);
  }
  ~KeyFeeder() override {
    rig.view->SetKeyFeeder(nullptr);
    feeder.End();
    rig.clock->LeaveThread();
  }
  void Begin(std::string_view text) {
    feeder.Add(parsed(text));
    feeder.Begin();
  }
  /// Takes what waits, without letting time pass beyond a look.
  std::string Take() {
    std::string keys;
    while (rig.view->Rsrc().KeyBufCount() > 0) {
      keys += rig.view->Rsrc().PopFromKeyBufWithTimeout(0, nullptr);
    }
    return keys;
  }
  void Pass(bigtime_t span) {
    TWake wake(*rig.clock);
    rig.clock->snooze(span, wake);
  }

  TRunRig rig;
  TKeyFeeder feeder;
};

TEST_F(KeyFeeder, NothingBeforeTheRunBegins) {
  feeder.Add(parsed("a"));
  EXPECT_EQ(Take(), "");
}

TEST_F(KeyFeeder, TheProgramComesFirst) {
  Begin("ab");
  feeder.Add(parsed("c"));
  EXPECT_EQ(Take(), "");
  Pass(1);
  EXPECT_EQ(Take(), "abc");
}

TEST_F(KeyFeeder, AWaitForAKeyNeedsNoTime) {
  Begin("ab");
  feeder.WaitBegins(FOREVER);
  EXPECT_EQ(Take(), "ab");
  EXPECT_EQ(rig.clock->system_time(), 0);
}

TEST_F(KeyFeeder, ALookNeedsNoTime) {
  Begin("ab");
  feeder.Look();
  EXPECT_EQ(Take(), "ab");
}

TEST_F(KeyFeeder, KeysAreHeldBackWhileTheBufferIsFull) {
  Begin("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  Pass(1);
  EXPECT_EQ(rig.view->Rsrc().KeyBufCount(), KEY_BUF_SIZE);
  EXPECT_EQ(Take(), "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
}

TEST_F(KeyFeeder, AFunctionKeyWaitsForRoomForItsText) {
  for (int32_t number : {1, 10}) {
    rig.view->Rsrc().SetFuncKeyStr(number - 1, "12345");
    Begin("ABCDEFGHIJKL{F" + std::to_string(number) + "}");
    Pass(1);
    EXPECT_EQ(rig.view->Rsrc().KeyBufCount(), 12);
    rig.view->Rsrc().PopFromKeyBufWithTimeout(0, nullptr);
    EXPECT_EQ(rig.view->Rsrc().KeyBufCount(), KEY_BUF_SIZE);
    EXPECT_EQ(Take(), "BCDEFGHIJKL12345");
    feeder.End();
  }
}

TEST_F(KeyFeeder, AFunctionKeyLongerThanTheBufferGoesToAnEmptyOne) {
  rig.view->Rsrc().SetFuncKeyStr(0, "12345678901234567890");
  Begin("A{F1}B");
  Pass(1);
  EXPECT_EQ(Take(), "A1234567890123456B");
}

TEST_F(KeyFeeder, WaitsCountFromWhereTheyAreReached) {
  Begin("a{WAIT 100}b{WAIT 50}c");
  Pass(1);
  EXPECT_EQ(rig.view->Rsrc().KeyBufCount(), 1);
  Pass(99'999);
  EXPECT_EQ(rig.view->Rsrc().KeyBufCount(), 1);
  Pass(1);
  EXPECT_EQ(rig.view->Rsrc().KeyBufCount(), 2);
  Pass(50'000);
  EXPECT_EQ(Take(), "abc");
}

TEST_F(KeyFeeder, NothingAfterTheEnd) {
  Begin("a{WAIT 100}b");
  Pass(1);
  feeder.End();
  Pass(200'000);
  EXPECT_EQ(Take(), "a");
}

TEST_F(KeyFeeder, KeysLeftOverAreForTheNextRun) {
  Begin("ABCDEFGHIJKLMNOPQR");
  Pass(1);
  feeder.End();
  EXPECT_EQ(Take(), "ABCDEFGHIJKLMNOP");
  feeder.Begin();
  Pass(1);
  EXPECT_EQ(Take(), "QR");
}

TEST(KeyFeederRun, AProgramIsStoppedWhenTheKeysAreUsedUp) {
  for (const char* text : {"", "ab", "ab{WAIT 10}", "{MOVE 1,1}", "ab{WAIT 10}{MOVE 1,1}"}) {
    TRunRig rig;
    TKeyFeeder feeder(*rig.clock, *rig.view);
    rig.view->SetKeyFeeder(&feeder);
    feeder.Add(parsed(text));
    feeder.Finish();
    EXPECT_EQ(rig.Run("10 LINE INPUT A$\n20 PRINT \"X\"\n"), 1) << text;
    EXPECT_EQ(rig.Screen().back(), "Ok");
    EXPECT_EQ(rig.Screen()[1], "@Runtime_Err_Stop_Break@ in 10");
    rig.view->QuitBasic();
  }
}

TEST(KeyFeederRun, TheNextProgramIsNotStoppedBeforeItWaits) {
  TRunRig rig;
  TKeyFeeder feeder(*rig.clock, *rig.view);
  rig.view->SetKeyFeeder(&feeder);
  // The first one ends while it waits without limit, before the keys are used up.
  feeder.Add(parsed("{BREAK}{WAIT 100}"));
  feeder.Finish();
  rig.Run("10 LINE INPUT A$\n");
  EXPECT_EQ(rig.Run("10 CLS:SLEEP 1000:INPUT WAIT 10,A:PRINT \"X\"\n"), 0);
  EXPECT_EQ(rig.Screen(), (TRows{"?", "X", "Ok"}));
  rig.view->QuitBasic();
}

TEST(KeyFeederRun, KeysMayComeLateFromOutside) {
  // The program stands still for keys that are not there yet, for as long as they may come.
  TRunRig rig;
  TKeyFeeder feeder(*rig.clock, *rig.view);
  rig.view->SetKeyFeeder(&feeder);
  rig.Start("10 LINE INPUT A$\n20 IF INKEY$=\"\" THEN 20\n30 PRINT A$;SYSTEMTIME\n");
  feeder.Add(parsed("ab\\r"));
  feeder.Add(parsed("c"));
  feeder.Finish();
  EXPECT_EQ(rig.view->WaitForEnd(), 0);
  EXPECT_EQ(rig.Screen(), (TRows{"ab", "ab 0", "Ok"}));
  rig.view->QuitBasic();
}

TEST(KeyFeederRun, AForcedStopEndsAWaitForKeysThatNeverCome) {
  for (const char* program :
       {"10 LINE INPUT A$\n", "10 A$=INPUT$(3)\n", "10 IF INKEY$=\"\" THEN 10\n",
        "10 ON STOP GOSUB 20:STOP ON:INPUT A\n20 RETURN\n"}) {
    TRunRig rig;
    TKeyFeeder feeder(*rig.clock, *rig.view);
    rig.view->SetKeyFeeder(&feeder);
    rig.Start(program);
    rig.view->ForceStop();
    EXPECT_EQ(rig.view->WaitForEnd(), 1) << program;
    rig.view->QuitBasic();
  }
}

}  // namespace
}  // namespace zoka
