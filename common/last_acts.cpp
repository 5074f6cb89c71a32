// The handler of fatal signals.
#include "common/last_acts.h"

#include <signal.h>

#include <atomic>
#include <cstddef>
#include <iterator>

namespace zoka {

namespace {

constexpr int FATAL_SIGNALS[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr size_t FATAL_SIGNAL_COUNT = std::size(FATAL_SIGNALS);

// Written before the handlers are installed.
TLastAct gActs[MAX_LAST_ACTS];
int gActCount = 0;
struct sigaction gFormerActions[FATAL_SIGNAL_COUNT];
std::atomic<bool> gDying{false};

void die(int number, siginfo_t* info, void*) {
  // What was there before handles this signal from now on, be it the system or a checking tool.
  for (size_t i = 0; i < FATAL_SIGNAL_COUNT; ++i) {
    ::sigaction(FATAL_SIGNALS[i], &gFormerActions[i], nullptr);
  }
  if (!gDying.exchange(true)) {
    for (int i = 0; i < gActCount; ++i) gActs[i]();
  }
  // A fault happens again when the handler returns; a signal that was sent does not.
  if (info->si_code <= 0) ::raise(number);
}

}  // namespace

void do_in_crash(std::initializer_list<TLastAct> acts) {
  for (const TLastAct act : acts) {
    if (gActCount < MAX_LAST_ACTS) gActs[gActCount++] = act;
  }
  struct sigaction action = {};
  action.sa_sigaction = die;
  // On a thread without a stack for signals it is the thread's own that is used.
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  sigemptyset(&action.sa_mask);
  for (size_t i = 0; i < FATAL_SIGNAL_COUNT; ++i) {
    ::sigaction(FATAL_SIGNALS[i], &action, &gFormerActions[i]);
  }
}

}  // namespace zoka
