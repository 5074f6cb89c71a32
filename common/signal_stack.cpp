// The host's alternate signal stacks.
#include "common/signal_stack.h"

#include <signal.h>

#include <new>

namespace zoka {

namespace {

/// Enough for the state of all registers of any processor, and for small functions.
constexpr size_t SIGNAL_STACK_BYTES = 64u << 10;

}  // namespace

TSignalStack::TSignalStack() {
  stack_t stack = {};
  if (::sigaltstack(nullptr, &stack) != 0 || (stack.ss_flags & SS_DISABLE) == 0) return;
  mBytes.reset(new (std::nothrow) std::byte[SIGNAL_STACK_BYTES]);
  if (!mBytes) return;
  stack = {};
  stack.ss_sp = mBytes.get();
  stack.ss_size = SIGNAL_STACK_BYTES;
  if (::sigaltstack(&stack, nullptr) != 0) mBytes.reset();
}

TSignalStack::~TSignalStack() {
  if (!mBytes) return;
  stack_t none = {};
  none.ss_flags = SS_DISABLE;
  ::sigaltstack(&none, nullptr);
}

}  // namespace zoka
