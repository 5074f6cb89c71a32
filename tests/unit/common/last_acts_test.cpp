// What a dying process still does; each death is that of a child.
#include "common/last_acts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "common/thread.h"

namespace zoka {
namespace {

void say(std::string_view text) {
  [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
}

void say_first() {
  say("first ");
}

void say_second() {
  say("second");
}

// A fault at an address that nothing stands at, and that no checking tool knows beforehand.
void write_nowhere() {
  volatile uintptr_t nowhere = 16;
  // A fault is wanted. NOLINTNEXTLINE(performance-no-int-to-ptr)
  *reinterpret_cast<volatile int*>(nowhere) = 1;
}

// Deeper and deeper, in steps smaller than the page that guards the end of a stack.
int recurse(const volatile bool& isEnough) {
  char bytes[2048];
  std::memset(bytes, isEnough ? 1 : 2, sizeof bytes);
  const volatile char* const used = bytes;
  if (isEnough) return used[0];
  return recurse(isEnough) + used[sizeof bytes - 1];
}

/// A thread of the engine that uses up its stack.
class TDeepThread final : public TThread {
 public:
  explicit TDeepThread(TClock& clock) : TThread("Deep", 15, clock, TActorClass::Machine) {}

 protected:
  int32_t Execute() override {
    const volatile bool never = false;
    return recurse(never);
  }
};

class LastActs : public testing::Test {
 protected:
  LastActs() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(LastActs, AreDoneInTheirOrderAndTheSignalKills) {
  for (const int number : {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV}) {
    // Checking tools die in a way of their own, so that only the acts and the death are certain.
    EXPECT_DEATH(
        {
          do_in_crash({say_first, say_second});
          ::raise(number);
        },
        "^first second")
        << number;
  }
  EXPECT_EXIT(
      {
        do_in_crash({say_first, say_second});
        std::abort();
      },
      testing::KilledBySignal(SIGABRT), "^first second$");
}

TEST_F(LastActs, AreDoneForAFaultOfTheProgram) {
  EXPECT_DEATH(
      {
        do_in_crash({say_first});
        write_nowhere();
      },
      "^first ");
}

TEST_F(LastActs, AreDoneWhenAnEngineThreadHasNoStackLeft) {
  EXPECT_DEATH(
      {
        do_in_crash({say_first, say_second});
        const auto clock = make_simulated_clock();
        TDeepThread thread(*clock);
        thread.Resume();
        thread.Wait(nullptr);
      },
      "^first second");
}

TEST_F(LastActs, AFaultInsideThemKillsAtOnce) {
  EXPECT_DEATH(
      {
        do_in_crash({say_first, write_nowhere, say_second});
        std::abort();
      },
      testing::AllOf(testing::StartsWith("first "), testing::Not(testing::HasSubstr("second"))));
}

TEST_F(LastActs, MoreThanThereIsRoomForAreLeftOut) {
  EXPECT_EXIT(
      {
        do_in_crash({say_first, say_first, say_first, say_first, say_second});
        std::abort();
      },
      testing::KilledBySignal(SIGABRT), "^first first first first $");
}

}  // namespace
}  // namespace zoka
