// The key buffer and the function keys.
#include <atomic>
#include <thread>

#include "common/thread.h"
#include "tests/unit/screen/screen_fixture.h"

namespace zoka {
namespace {

class TKeysTest : public TScreenTest {
 protected:
  void Push(const std::string& key) {
    rsrc.PushToKeyBuf(key.data(), static_cast<int32_t>(key.size()));
  }
  std::string Look() { return rsrc.PopFromKeyBufWithTimeout(0, nullptr); }
};

/// A thread that is only asked whether it has to end.
class TIdleThread : public TThread {
 public:
  explicit TIdleThread(TClock& clock) : TThread("Idle", 15, clock, TActorClass::Machine) {}

 protected:
  int32_t Execute() override { return 0; }
};

TEST_F(TKeysTest, KeysComeBackInOrder) {
  Push("a");
  Push("あ");
  EXPECT_EQ(rsrc.KeyBufCount(), 2);
  EXPECT_EQ(rsrc.PopFromKeyBuf(nullptr), "a");
  EXPECT_EQ(rsrc.PopFromKeyBuf(nullptr), "あ");
  EXPECT_EQ(rsrc.KeyBufCount(), 0);
}

TEST_F(TKeysTest, FirstBytesAreTranslated) {
  struct TRow {
    char pushed;
    char popped;
  };
  const TRow rows[] = {{'\x01', '\x0C'}, {'\x04', '\x01'}, {'\x05', '\x12'}, {'\x0A', '\x0D'},
                       {'\x0B', '\xF9'}, {'\x0C', '\xF8'}, {'\x1C', '\x1D'}, {'\x1D', '\x1C'}};
  for (int byte = 0; byte < 256; ++byte) {
    char expected = static_cast<char>(byte);
    for (const TRow& row : rows) {
      if (row.pushed == static_cast<char>(byte)) expected = row.popped;
    }
    Push(std::string(1, static_cast<char>(byte)));
    EXPECT_EQ(Look(), std::string(1, expected)) << byte;
  }
}

TEST_F(TKeysTest, OnlyTheFirstByteIsTranslated) {
  Push("\x01\x01");
  EXPECT_EQ(Look(), "\x0C\x01");
}

TEST_F(TKeysTest, AKeyHasTheBytesThatItWasGiven) {
  for (const int32_t numBytes : {0, -1}) {
    EXPECT_TRUE(rsrc.PushToKeyBuf("xyz", numBytes));
    EXPECT_TRUE(rsrc.PushToKeyBuf("xyz", 2));
    EXPECT_EQ(Look(), "") << numBytes;
    EXPECT_EQ(Look(), "xy") << numBytes;
  }
}

TEST_F(TKeysTest, TheSeventeenthKeyIsLost) {
  for (int i = 0; i < 16; ++i) {
    const char key = static_cast<char>('a' + i);
    EXPECT_TRUE(rsrc.PushToKeyBuf(&key, 1));
  }
  EXPECT_FALSE(rsrc.PushToKeyBuf("z", 1));
  for (int i = 0; i < 16; ++i) EXPECT_EQ(Look(), std::string(1, static_cast<char>('a' + i)));
  EXPECT_EQ(Look(), "");
}

TEST_F(TKeysTest, ALookReturnsAtOnceAndCountsAsAPoll) {
  const bigtime_t before = clock->system_time();
  EXPECT_EQ(Look(), "");
  EXPECT_EQ(clock->system_time() - before, 100);
  Push("a");
  const bigtime_t then = clock->system_time();
  EXPECT_EQ(Look(), "a");
  EXPECT_EQ(clock->system_time(), then);
  EXPECT_EQ(rsrc.PopFromKeyBufWithTimeout(-5, nullptr), "");
  EXPECT_TRUE(owner.keyWaits.empty());
}

TEST_F(TKeysTest, AWaitEndsAtItsLimit) {
  const bigtime_t before = clock->system_time();
  EXPECT_EQ(rsrc.PopFromKeyBufWithTimeout(1'000'000, nullptr), "");
  EXPECT_EQ(clock->system_time() - before, 1'000'000);
  EXPECT_EQ(owner.keyWaits, std::vector<bigtime_t>{before + 1'000'000});
  EXPECT_EQ(rsrc.PopFromKeyBufWithTimeout(1, nullptr), "");
  EXPECT_EQ(clock->system_time() - before, 1'000'001);
}

TEST_F(TKeysTest, AWaitEndsAtTheKeysOwnTime) {
  const bigtime_t before = clock->system_time();
  clock->StartTimer(
      123'457, false, [this] { Push("k"); }, TActorClass::Keys);
  EXPECT_EQ(rsrc.PopFromKeyBufWithTimeout(1'000'000, nullptr), "k");
  EXPECT_EQ(clock->system_time() - before, 123'457);
}

TEST_F(TKeysTest, AWaitWithoutLimitSaysSoBeforehand) {
  clock->StartTimer(
      5, false, [this] { Push("k"); }, TActorClass::Keys);
  EXPECT_EQ(rsrc.PopFromKeyBuf(nullptr), "k");
  EXPECT_EQ(owner.keyWaits, std::vector<bigtime_t>{FOREVER});
}

TEST_F(TKeysTest, AKeyThatIsThereNeedsNoWait) {
  Push("a");
  EXPECT_EQ(rsrc.PopFromKeyBuf(nullptr), "a");
  EXPECT_TRUE(owner.keyWaits.empty());
}

TEST_F(TKeysTest, AHugeLimitIsForEver) {
  owner.onKeyWait = [this] { Push("k"); };
  EXPECT_EQ(rsrc.PopFromKeyBufWithTimeout(INT64_MAX - 1, nullptr), "k");
}

TEST_F(TKeysTest, ATerminatedWaiterGetsNothing) {
  TIdleThread waiter(*clock);
  owner.onKeyWait = [&] {
    waiter.Terminate();
    rsrc.WakeKeyWait();
  };
  EXPECT_EQ(rsrc.PopFromKeyBuf(&waiter), "");
  EXPECT_EQ(rsrc.PopFromKeyBufWithTimeout(1'000'000, &waiter), "");
}

TEST_F(TKeysTest, RoomIsReportedForEachKeyTaken) {
  Push("a");
  Push("b");
  EXPECT_EQ(owner.rooms, 0);
  Look();
  EXPECT_EQ(owner.rooms, 1);
  rsrc.ClearKeyBuf();
  EXPECT_EQ(owner.rooms, 2);
  rsrc.ClearKeyBuf();
  EXPECT_EQ(owner.rooms, 2);
}

TEST_F(TKeysTest, TakenKeysGoBackInFrontAndOnlyAsFarAsThereIsRoom) {
  Push("a");
  Push("b");
  const std::deque<std::string> keys = rsrc.TakeKeyBuf();
  EXPECT_EQ(rsrc.KeyBufCount(), 0);
  for (int i = 0; i < 15; ++i) Push("n");
  rsrc.PutBackKeys(keys);
  EXPECT_EQ(rsrc.KeyBufCount(), 16);
  EXPECT_EQ(Look(), "a");
  EXPECT_EQ(Look(), "b");
  EXPECT_EQ(Look(), "n");
}

TEST_F(TKeysTest, FunctionKeysStartWithTheMachinesTexts) {
  const char* const texts[] = {"load \"", "auto ", "go to ", "list ",    "run\r",
                               "save \"", "key ",  "print ", "edit .\r", "cont\r"};
  for (int32_t i = 0; i < 10; ++i) EXPECT_EQ(rsrc.FuncKeyStr(i), texts[i]);
}

TEST_F(TKeysTest, AFunctionKeyIsTypedByteByByteAndRaisesItsTrap) {
  rsrc.SetFuncKeyStr(0, "あ\r");
  bool raised = false;
  rsrc.PushFuncKey(0, [&] { raised = true; });
  EXPECT_TRUE(raised);
  EXPECT_EQ(Look(), "\xE3");
  EXPECT_EQ(Look(), "\x81");
  EXPECT_EQ(Look(), "\x82");
  EXPECT_EQ(Look(), "\r");
  EXPECT_EQ(Look(), "");
}

TEST_F(TKeysTest, AFunctionKeyBeyondTheTenthRaisesOnly) {
  int raised = 0;
  rsrc.PushFuncKey(10, [&] { ++raised; });
  rsrc.PushFuncKey(-1, [&] { ++raised; });
  EXPECT_EQ(raised, 2);
  EXPECT_EQ(rsrc.KeyBufCount(), 0);
  EXPECT_EQ(rsrc.FuncKeyStr(10), "");
  EXPECT_EQ(rsrc.FuncKeyStr(-1), "");
}

TEST_F(TKeysTest, AFunctionKeysTextIsCutByTheBuffer) {
  for (int i = 0; i < 14; ++i) Push("n");
  rsrc.PushFuncKey(4, [] {});
  EXPECT_EQ(rsrc.KeyBufCount(), 16);
}

TEST(TKeysThreadTest, OnePusherAndOnePopperLoseNothingOnTheRealClock) {
  const std::unique_ptr<TClock> clock = make_real_clock();
  TBasicRsrc rsrc(*clock);
  constexpr int COUNT = 20'000;
  std::thread pusher([&] {
    for (int i = 0; i < COUNT;) {
      const char key = static_cast<char>('a' + i % 26);
      if (rsrc.PushToKeyBuf(&key, 1)) {
        ++i;
      } else {
        std::this_thread::yield();
      }
    }
  });
  for (int i = 0; i < COUNT; ++i) {
    ASSERT_EQ(rsrc.PopFromKeyBuf(nullptr), std::string(1, static_cast<char>('a' + i % 26)));
  }
  pusher.join();
}

TEST(TKeysThreadTest, TerminateEndsAWaitOnTheRealClock) {
  const std::unique_ptr<TClock> clock = make_real_clock();
  TBasicRsrc rsrc(*clock);
  TIdleThread waiter(*clock);
  std::string key = "none";
  std::thread popper([&] { key = rsrc.PopFromKeyBuf(&waiter); });
  waiter.Terminate();
  rsrc.WakeKeyWait();
  popper.join();
  EXPECT_EQ(key, "");
}

}  // namespace
}  // namespace zoka
