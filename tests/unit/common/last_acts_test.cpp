// What a dying process still does; each death is that of a child.
#include "common/last_acts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string_view>

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
